# simdjson, for the direct JSON codec. Debian's libsimdjson-dev holds the
# CMake package of one architecture and cannot be installed for two at once,
# so a cross build that finds no package for its target links the target's
# shared object from the runtime package (libsimdjson14:arm64) and compiles
# against the build machine's header, which is the same for every
# architecture.
find_package(simdjson 3 CONFIG QUIET)
if(NOT simdjson_FOUND)
  find_path(Q3A_SIMDJSON_HEADER_DIR simdjson.h REQUIRED)
  find_library(Q3A_SIMDJSON_LIBRARY NAMES simdjson libsimdjson.so.14 REQUIRED)
  add_library(simdjson::simdjson SHARED IMPORTED)
  set_target_properties(simdjson::simdjson PROPERTIES
    IMPORTED_LOCATION ${Q3A_SIMDJSON_LIBRARY})
  # /usr/include is searched already; naming it again would reorder the
  # compiler's own system directories.
  if(NOT Q3A_SIMDJSON_HEADER_DIR STREQUAL "/usr/include")
    set_target_properties(simdjson::simdjson PROPERTIES
      INTERFACE_INCLUDE_DIRECTORIES ${Q3A_SIMDJSON_HEADER_DIR})
  endif()
  message(STATUS "simdjson: ${Q3A_SIMDJSON_LIBRARY}")
endif()
