#The example files are read through the real driver, and styles are edited by the module's dialogs.
add_dependencies(${test_target} vxk_gdal_drivers vxk_scene2d_editor_bdl)
