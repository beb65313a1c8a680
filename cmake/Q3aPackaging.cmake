# `make package`: Debian packages built by CPack from the install components.
#   libq3a-tuning1     the library
#   libq3a-tuning-dev  headers, schema, CMake package, pkg-config module
#   q3a-tuning         the tuning tool
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME q3a-tuning)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Constant 3A camera tuning with an AWB tuning-file override")
set(CPACK_PACKAGE_CONTACT "q3a_tuning maintainers <q3a-tuning@example.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development tool)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOL_DEPENDS runtime)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The tool's dependency on the library package comes from the components;
# dpkg-shlibdeps only has to find the library, which is in the build tree.
get_target_property(q3a_library_dir q3a_tuning BINARY_DIR)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${q3a_library_dir})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libq3a-tuning${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libq3a-tuning-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libprotobuf-dev, android-liblog-dev, android-libbase-dev")
set(CPACK_DEBIAN_TOOL_PACKAGE_NAME q3a-tuning)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION graphics)
include(CPack)
