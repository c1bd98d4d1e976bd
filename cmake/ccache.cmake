# Compile through ccache where it is installed. The sloppiness lets it serve the precompiled test headers.
find_program(ZRBASE_CCACHE ccache)
mark_as_advanced(ZRBASE_CCACHE)
if(ZRBASE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime;${ZRBASE_CCACHE}")
endif()
