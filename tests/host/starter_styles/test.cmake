target_link_libraries(${test_target} PRIVATE vx_map_lib Qt6::Core Qt6::Gui)
