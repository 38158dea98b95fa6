add_dependencies(${test_target} vxk_gdal_drivers)
target_sources(${test_target} PRIVATE ${CMAKE_SOURCE_DIR}/src/scale_engine/value/detail/kept_texts.cpp)
