# The example files are read through the real driver.
add_dependencies(${test_target} vxk_gdal_drivers vxk_scene2d_editor_bdl)
