# The example files are read through the real driver.
add_dependencies(${test_target} vxk_gdal_drivers)
# Property files are spoilt and watched from outside.
target_link_libraries(${test_target} PRIVATE SQLite::SQLite3)
