# A compiler cache when there is one. The sloppiness settings let it work with precompiled headers.
find_program(VX_CCACHE ccache)
if(VX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        CCACHE_NOHASHDIR=1 ${VX_CCACHE})
endif()
