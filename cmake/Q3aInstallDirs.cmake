# Installation directories: the GNU ones, with the library under
# lib/<multiarch> for every prefix (not only /usr), so an installed tree, a
# Debian package and a cross build all look alike.
if(CMAKE_LIBRARY_ARCHITECTURE AND NOT DEFINED CACHE{CMAKE_INSTALL_LIBDIR})
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH
      "Object code libraries (lib/<multiarch>)")
endif()
include(GNUInstallDirs)
set(Q3A_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/q3a_tuning)
set(Q3A_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/q3a_tuning)
set(Q3A_INSTALL_DATADIR ${CMAKE_INSTALL_DATADIR}/q3a_tuning)
