target_link_libraries(${test_target} PRIVATE pugixml::pugixml)
# A raster of a scene is opened through the real driver.
add_dependencies(${test_target} vxk_gdal_drivers)
