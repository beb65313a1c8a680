# Build-time generators run on the build machine. A native build runs its own
# and lists them in host-tools.cmake; a cross build given that file
# (Q3A_HOST_TOOLS) runs those instead, and without it runs its own through
# CMAKE_CROSSCOMPILING_EMULATOR, which CMake puts before target commands.
#   Q3A_TABLE_GEN   the generator of the built-in AWB tables
set(Q3A_TABLE_GEN q3a-qawb-table-gen)
if(CMAKE_CROSSCOMPILING AND Q3A_HOST_TOOLS)
  include(${Q3A_HOST_TOOLS})
  if(NOT EXISTS "${Q3A_HOST_TABLE_GEN}")
    message(FATAL_ERROR "${Q3A_HOST_TOOLS} names no built table generator; "
                        "build its q3a-qawb-table-gen first")
  endif()
  set(Q3A_TABLE_GEN ${Q3A_HOST_TABLE_GEN})
elseif(NOT CMAKE_CROSSCOMPILING)
  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/host-tools.cmake CONTENT
       "set(Q3A_HOST_TABLE_GEN \"$<TARGET_FILE:q3a-qawb-table-gen>\")\n")
endif()
