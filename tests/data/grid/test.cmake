# The bundle is loaded at run time; GDAL makes the files and says what is in them.
add_dependencies(${test_target} vxk_gdal_drivers)
target_link_libraries(${test_target} PRIVATE GDAL::GDAL)
