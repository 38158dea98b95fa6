# Data are read through the real driver.
add_dependencies(${test_target} vxk_gdal_drivers)
