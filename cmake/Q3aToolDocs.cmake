# The tool's manual page and bash completion, made from the built tool at
# build time, so that they never disagree with it: help2man reads its
# --help, --version and each subcommand's --help; the completion comes from
# its command table (`q3a-tuning completion bash`). A cross build runs the
# tool through its emulator. Both are installed with the tool.
find_program(Q3A_HELP2MAN help2man REQUIRED)

set(q3a_doc_dir ${PROJECT_BINARY_DIR}/tools/q3a_tuning/doc)
# help2man names the page after the program it runs, so the wrapper that
# runs the tool (through the emulator if any) carries the tool's name.
set(q3a_tool_runner ${q3a_doc_dir}/bin/q3a-tuning)
string(JOIN " " q3a_emulator ${CMAKE_CROSSCOMPILING_EMULATOR})
file(GENERATE OUTPUT ${q3a_tool_runner}
  CONTENT "#!/bin/sh\nexec ${q3a_emulator} \"$<TARGET_FILE:q3a-tuning>\" \"$@\"\n"
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
                   GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(q3a_man_page ${q3a_doc_dir}/q3a-tuning.1)
set(q3a_man_include ${PROJECT_SOURCE_DIR}/tools/q3a_tuning/doc/make-man-page)
add_custom_command(OUTPUT ${q3a_man_page}
  COMMAND ${q3a_man_include} ${Q3A_HELP2MAN} ${q3a_tool_runner}
          ${q3a_man_page}
  DEPENDS q3a-tuning ${q3a_man_include}
  COMMENT "Manual page q3a-tuning(1) from the tool's help"
  VERBATIM)

set(q3a_completion ${q3a_doc_dir}/q3a-tuning.bash)
add_custom_command(OUTPUT ${q3a_completion}
  COMMAND ${q3a_tool_runner} completion bash > ${q3a_completion}
  DEPENDS q3a-tuning
  COMMENT "Bash completion of q3a-tuning from its command table")
add_custom_target(q3a_tool_docs ALL DEPENDS ${q3a_man_page} ${q3a_completion})

install(FILES ${q3a_man_page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
  COMPONENT tool)
install(FILES ${q3a_completion}
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
  RENAME q3a-tuning COMPONENT tool)
