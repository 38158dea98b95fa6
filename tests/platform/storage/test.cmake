target_link_libraries(${test_target} PRIVATE pugixml::pugixml)
