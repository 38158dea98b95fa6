# The example files are read through the real driver.
add_dependencies(${test_target} vxk_gdal_drivers)
# Areas are compared with the painter itself.
target_link_libraries(${test_target} PRIVATE Qt6::Gui)
