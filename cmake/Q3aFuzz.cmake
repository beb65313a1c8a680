# The fuzzing build: every target gets coverage instrumentation and ASan and
# UBSan, so the library code the fuzz targets reach is instrumented too. The
# fuzz targets add libFuzzer's main themselves (fuzz/CMakeLists.txt).

if(Q3A_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "Q3A_FUZZ needs clang: configure with CC=clang CXX=clang++")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined
                      -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()
