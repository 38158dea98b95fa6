add_dependencies(${test_target} vxk_gdal_drivers)
set(same_breaks ${CMAKE_CURRENT_SOURCE_DIR}/scale_engine/natural_breaks/same_breaks.cpp)
set_source_files_properties(${same_breaks} PROPERTIES COMPILE_OPTIONS -ffp-contract=off SKIP_PRECOMPILE_HEADERS ON)

# Both roads and the plain programme once more, optimised: a compiler may round differently then.
set(optimised ${test_target}_optimised)
add_executable(${optimised} ${same_breaks}
    ${CMAKE_SOURCE_DIR}/src/scale_engine/natural_breaks/detail/break_programme.cpp)
target_link_libraries(${optimised} PRIVATE vx_test_support vx_warnings)
target_compile_options(${optimised} PRIVATE -O2 -ffp-contract=off)
add_test(NAME ${folder}_optimised COMMAND ${optimised})
set_tests_properties(${folder}_optimised PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 600)
