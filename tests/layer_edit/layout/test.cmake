# The pages of elements are a bundle's, and the data behind them are read through the real driver.
add_dependencies(${test_target} vxk_gdal_drivers vxk_layout_elements vxk_scene2d_editor_bdl)
# Texts and the way of Tab are seen in Qt's windows; without Qt's definitions, which would shut out the precompiled header.
target_include_directories(${test_target} SYSTEM PRIVATE
    $<TARGET_PROPERTY:Qt6::Core,INTERFACE_INCLUDE_DIRECTORIES>
    $<TARGET_PROPERTY:Qt6::Gui,INTERFACE_INCLUDE_DIRECTORIES>
    $<TARGET_PROPERTY:Qt6::Widgets,INTERFACE_INCLUDE_DIRECTORIES>)
target_link_libraries(${test_target} PRIVATE $<LINK_ONLY:Qt6::Core> $<LINK_ONLY:Qt6::Gui> $<LINK_ONLY:Qt6::Widgets>)
