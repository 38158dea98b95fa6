# One set of warnings for everything that is ours.
add_library(vx_warnings INTERFACE)
target_compile_options(vx_warnings INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
    -Wno-unused-parameter -Wnull-dereference)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # With the sanitizers on, the optimiser's flow warnings report paths that the checks themselves add.
    if(VX_SANITIZE)
        target_compile_options(vx_warnings INTERFACE -Wno-null-dereference -Wno-maybe-uninitialized
            -Wno-stringop-overflow -Wno-array-bounds -Wno-free-nonheap-object)
    endif()
endif()
if(VX_WERROR)
    target_compile_options(vx_warnings INTERFACE -Werror)
endif()
