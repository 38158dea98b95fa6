#The bundle is loaded at run time.
add_dependencies(${test_target} vxk_gdal_drivers)
