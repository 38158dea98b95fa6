target_link_libraries(${test_target} PRIVATE vx_map_lib Qt6::Core Qt6::Gui Qt6::Widgets SQLite::SQLite3)
add_dependencies(${test_target} vxk_gdal_drivers vxk_scene2d_editor_bdl vx_map)
vx_test_at_200_percent(${folder} map_window.comes_within*)
