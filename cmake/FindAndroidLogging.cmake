# The Android logging libraries as Debian packages them (android-liblog-dev,
# android-libbase-dev): headers under /usr/include/android, libraries under
# /usr/lib/<multiarch>/android. Defines android::log and android::base.

find_path(AndroidLogging_INCLUDE_DIR android/log.h
          PATHS /usr/include/android NO_DEFAULT_PATH)
find_library(AndroidLogging_LOG_LIBRARY log
             PATH_SUFFIXES android ${CMAKE_LIBRARY_ARCHITECTURE}/android)
find_library(AndroidLogging_BASE_LIBRARY base
             PATH_SUFFIXES android ${CMAKE_LIBRARY_ARCHITECTURE}/android)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(AndroidLogging REQUIRED_VARS
  AndroidLogging_INCLUDE_DIR AndroidLogging_LOG_LIBRARY
  AndroidLogging_BASE_LIBRARY)

if(AndroidLogging_FOUND AND NOT TARGET android::log)
  add_library(android::log UNKNOWN IMPORTED)
  set_target_properties(android::log PROPERTIES
    IMPORTED_LOCATION ${AndroidLogging_LOG_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${AndroidLogging_INCLUDE_DIR})
  add_library(android::base UNKNOWN IMPORTED)
  set_target_properties(android::base PROPERTIES
    IMPORTED_LOCATION ${AndroidLogging_BASE_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${AndroidLogging_INCLUDE_DIR}
    INTERFACE_LINK_LIBRARIES android::log)
endif()
