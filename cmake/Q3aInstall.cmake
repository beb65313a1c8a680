# What `cmake --install` puts under the prefix: the versioned library, its
# public headers at the paths the sources use, the schema, the tool, a CMake
# package (q3a_tuning::q3a_tuning) and a pkg-config module. Components:
# runtime (the library), development (everything to build against it) and
# tool (q3a-tuning, with its manual page and completion, Q3aToolDocs); the
# Debian packages (debian/) follow them.
include(CMakePackageConfigHelpers)

# The public headers: the exported declarations and what they include.
target_sources(q3a_tuning PUBLIC
  FILE_SET HEADERS
  BASE_DIRS ${PROJECT_SOURCE_DIR}
  FILES
    base/q3a_export.h
    coordinator/actuator_tuning.h
    coordinator/ae_tuning_record.h
    coordinator/camera_characteristics.h
    coordinator/qaf_tuning.h
    coordinator/tuning_common.h
    coordinator/tuning_key.h
    coordinator/tuning_map.h
    awb_records/all_records.h
    awb_records/qawb_advance_tuning_table.h
    awb_records/qawb_basic_tuning_table.h
    awb_records/qawb_color_control_tuning_table.h
    awb_records/qawb_feature_tuning_table.h
    awb_records/qawb_shared_records.h
    awb_records/record_description.h
    awb_records/tuning_tables.h
    awb_records/type_list.h
    libs_v4/qAWB/src/base/qawb_tuning.h
    libs_v4/qAWB/src/base/fixed_qawb_tuning.h
    libs_v4/qAWB/src/base/mutable_qawb_tuning.h
    protomsg/record_conversions.h
    protomsg/tuning_files.h
    tuning/qawb/load_qawb_tuning_from_file.h)
# Build directories may lie inside the source tree, so the generated header
# is a file set of its own.
target_sources(q3a_tuning PUBLIC
  FILE_SET generated_headers TYPE HEADERS
  BASE_DIRS ${PROJECT_BINARY_DIR}
  FILES ${PROJECT_BINARY_DIR}/libs_v4/qAWB/proto/qawb_tuning.pb.h)
target_compile_features(q3a_tuning PUBLIC cxx_std_20)

# The Android logging libraries live outside the loader's search path
# (lib/<multiarch>/android), so the library and the tool carry it. The tool
# also finds the library beside its own prefix, unless that is /usr, where
# the loader finds it anyway (the Debian packages).
get_filename_component(q3a_android_libdir ${AndroidLogging_LOG_LIBRARY}
                       DIRECTORY)
set_target_properties(q3a_tuning PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  INSTALL_RPATH ${q3a_android_libdir})
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(q3a_tool_rpath ${q3a_android_libdir})
else()
  file(RELATIVE_PATH q3a_bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR}
       ${CMAKE_INSTALL_FULL_LIBDIR})
  set(q3a_tool_rpath "$ORIGIN/${q3a_bin_to_lib};${q3a_android_libdir}")
endif()
if(Q3A_BUILD_TOOL)
  set_target_properties(q3a-tuning PROPERTIES INSTALL_RPATH "${q3a_tool_rpath}")
  install(TARGETS q3a-tuning RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    COMPONENT tool)
endif()

install(TARGETS q3a_tuning EXPORT q3a_tuning_targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    COMPONENT runtime NAMELINK_COMPONENT development
  FILE_SET HEADERS DESTINATION ${Q3A_INSTALL_INCLUDEDIR}
    COMPONENT development
  FILE_SET generated_headers DESTINATION ${Q3A_INSTALL_INCLUDEDIR}
    COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/libs_v4/qAWB/proto/qawb_tuning.proto
  DESTINATION ${Q3A_INSTALL_DATADIR} COMPONENT development)

install(EXPORT q3a_tuning_targets NAMESPACE q3a_tuning::
  FILE q3a_tuning-targets.cmake DESTINATION ${Q3A_INSTALL_CMAKEDIR}
  COMPONENT development)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/q3a_tuning-config.cmake.in
  ${PROJECT_BINARY_DIR}/q3a_tuning-config.cmake
  INSTALL_DESTINATION ${Q3A_INSTALL_CMAKEDIR})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/q3a_tuning-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/q3a_tuning-config.cmake
    ${PROJECT_BINARY_DIR}/q3a_tuning-config-version.cmake
    ${PROJECT_SOURCE_DIR}/cmake/FindAndroidLogging.cmake
  DESTINATION ${Q3A_INSTALL_CMAKEDIR} COMPONENT development)

# The pkg-config module finds its prefix from its own place, so an unpacked
# package works wherever it lies.
file(RELATIVE_PATH q3a_pc_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
     ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" q3a_pc_to_prefix "${q3a_pc_to_prefix}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/q3a_tuning.pc.in
               ${PROJECT_BINARY_DIR}/q3a_tuning.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/q3a_tuning.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
