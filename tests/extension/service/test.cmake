# Extensions of other makers: built apart, with their own flags, without our libraries.
set(modules ${CMAKE_CURRENT_SOURCE_DIR}/extension/service/modules)
function(vx_peer_extension name)
    add_library(${name} MODULE ${modules}/peer_extension.cpp)
    target_include_directories(${name} PRIVATE ${ARGN} ${CMAKE_SOURCE_DIR}/src)
    set_target_properties(${name} PROPERTIES CXX_VISIBILITY_PRESET default VISIBILITY_INLINES_HIDDEN OFF PREFIX ""
                          LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/test_extensions)
    target_link_libraries(${name} PRIVATE vx_warnings)
    add_dependencies(${test_target} ${name})
endfunction()

# The headers of some families with the next revision of each.
function(vx_later_families folder)
    foreach(family ${ARGN})
        set(header ${CMAKE_SOURCE_DIR}/src/extension/binding/${family}.h)
        file(READ ${header} text)
        string(REGEX REPLACE "VX_BINDING_(FUNCTIONS|BARE)\\(${family}, ([0-9]+)" "VX_BINDING_\\1(${family}, \\2000" text "${text}")
        file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${folder}/extension/binding/${family}.h CONTENT "${text}" @ONLY)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
    endforeach()
endfunction()

vx_peer_extension(peer_extension)
# What decides whether two know each other ...
vx_later_families(later_visitor layer_2d_editor_extension_service_visitor)
vx_peer_extension(later_extension ${CMAKE_CURRENT_BINARY_DIR}/later_visitor)
# ... and what is only passed on.
vx_later_families(later_others layer_2d_editor_extension_service service_visitor service_factory style_editor
                  style_editor_visitor style_editor_data_source style_editor_data_source_visitor docker docker_visitor
                  element_view string_visitor referent referrer)
vx_peer_extension(other_extension ${CMAKE_CURRENT_BINARY_DIR}/later_others)
target_link_libraries(${test_target} PRIVATE ${CMAKE_DL_LIBS})
target_compile_definitions(${test_target} PRIVATE VX_TEST_EXTENSIONS="${CMAKE_BINARY_DIR}/lib/test_extensions")
