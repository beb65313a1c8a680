# Compiles through ccache when it is installed and no launcher was chosen.
# The Makefile sets CCACHE_BASEDIR to the checkout and CCACHE_NOHASHDIR, so
# clones in other directories share the cache.
find_program(Q3A_CCACHE ccache)
if(Q3A_CCACHE)
  foreach(lang C CXX)
    if(NOT CMAKE_${lang}_COMPILER_LAUNCHER)
      set(CMAKE_${lang}_COMPILER_LAUNCHER ${Q3A_CCACHE})
    endif()
  endforeach()
endif()
