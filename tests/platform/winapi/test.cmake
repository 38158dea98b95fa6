add_library(vx_test_module MODULE ${CMAKE_CURRENT_SOURCE_DIR}/platform/winapi/module/module.cpp)
set_target_properties(vx_test_module PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/vxk_bundles)
add_dependencies(${test_target} vx_test_module)
