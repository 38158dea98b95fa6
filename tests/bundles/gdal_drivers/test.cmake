# The bundle is loaded at run time; SQLite looks at what it wrote, past it.
add_dependencies(${test_target} vxk_gdal_drivers)
target_link_libraries(${test_target} PRIVATE SQLite::SQLite3)
