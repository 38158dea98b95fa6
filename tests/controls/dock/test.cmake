# Files are dropped as the window system drops them.
target_include_directories(${test_target} SYSTEM PRIVATE
    $<TARGET_PROPERTY:Qt6::Core,INTERFACE_INCLUDE_DIRECTORIES>
    $<TARGET_PROPERTY:Qt6::Gui,INTERFACE_INCLUDE_DIRECTORIES>
    $<TARGET_PROPERTY:Qt6::Widgets,INTERFACE_INCLUDE_DIRECTORIES>)
target_link_libraries(${test_target} PRIVATE $<LINK_ONLY:Qt6::Core> $<LINK_ONLY:Qt6::Gui> $<LINK_ONLY:Qt6::Widgets>)
