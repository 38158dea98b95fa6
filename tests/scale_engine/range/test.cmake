add_dependencies(${test_target} vxk_gdal_drivers)
