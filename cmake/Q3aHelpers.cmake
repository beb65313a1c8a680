# Build settings shared by every target of the project.

if(Q3A_SANITIZERS)
  add_compile_options(-fsanitize=${Q3A_SANITIZERS} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${Q3A_SANITIZERS})
endif()

# Coverage (make coverage): unoptimised, so the lines and branches counted
# are the source's; counters updated atomically, so that the threads of one
# test do not lose counts (which gcov then reports as negative).
if(Q3A_COVERAGE)
  add_compile_options(--coverage -O0 -fprofile-update=atomic)
  add_link_options(--coverage)
  add_compile_definitions(Q3A_COVERAGE)
endif()

# Warnings as errors on our own code (generated protobuf code stays out).
# GCC 12 at -O3 reports a false -Wrestrict inside std::string concatenation
# (GCC bug 105329), so that one stays a warning. Distribution builds turn
# errors off (Q3A_WERROR=OFF, debian/rules): their flags (_FORTIFY_SOURCE's
# unused-result checks) and future compilers must not break a package build.
option(Q3A_WERROR "Treat warnings in the project's code as errors" ON)
add_library(q3a_warnings INTERFACE)
target_compile_options(q3a_warnings INTERFACE -Wall -Wextra
  $<$<BOOL:${Q3A_WERROR}>:-Werror>
  $<$<CXX_COMPILER_ID:GNU>:-Wno-error=restrict>)

# Calls between the library's own exported functions bind locally, so the
# record conversions call each other directly and can be inlined.
add_library(q3a_codegen INTERFACE)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(q3a_codegen INTERFACE -fno-semantic-interposition)
endif()

# A component of libq3a_tuning.so: an object library
# with the project's include root, warnings and code generation settings.
function(q3a_component name)
  cmake_parse_arguments(ARG "" "" "SRCS;DEPS" ${ARGN})
  add_library(${name} OBJECT ${ARG_SRCS})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_DEPS}
                        PRIVATE q3a_warnings q3a_codegen)
endfunction()

# The suites' own code is compiled unoptimised: the typed suites instantiate
# every record's templates, which costs five times as long at -O2, and the
# library they test keeps the build's optimisation.
set(Q3A_TEST_COMPILE_OPTIONS "-O0" CACHE STRING
    "Compiler options of the test suites' own sources")

# A GoogleTest suite whose cases ctest lists one by one (natively).
function(q3a_cc_test name)
  cmake_parse_arguments(ARG "" "" "SRCS;DEPS" ${ARGN})
  add_executable(${name} ${ARG_SRCS})
  target_compile_options(${name} PRIVATE ${Q3A_TEST_COMPILE_OPTIONS})
  target_link_libraries(${name} PRIVATE ${ARG_DEPS} q3a_warnings
                        GTest::gmock GTest::gtest GTest::gtest_main)
  if(CMAKE_CROSSCOMPILING)
    # Under the emulator every process start costs a second or two, so each
    # suite runs as one test rather than one process per case.
    add_test(NAME ${name} COMMAND ${name}
             WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
  else()
    # Test names without the printed parameter: a parameter without a
    # printer prints its bytes, pointers included, which change per build.
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
                         WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
  endif()
endfunction()

# The shell words that start a program built here: nothing natively, the
# emulator in a cross build. Tests that run the tool put it before its path.
set(Q3A_TARGET_RUN_PREFIX "")
if(CMAKE_CROSSCOMPILING AND CMAKE_CROSSCOMPILING_EMULATOR)
  list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " Q3A_TARGET_RUN_PREFIX)
  string(APPEND Q3A_TARGET_RUN_PREFIX " ")
endif()
