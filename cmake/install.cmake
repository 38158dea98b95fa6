# Libraries, bundles, headers, the map host, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS vxk_platform vxk_lr2d_edit_form EXPORT vxk_lr2d_edit_form_targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
get_property(vx_bundles GLOBAL PROPERTY VX_BUNDLES)
add_custom_target(vxk_bundles)
if(vx_bundles)
    add_dependencies(vxk_bundles ${vx_bundles})
    install(TARGETS ${vx_bundles} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/vxk_bundles)
endif()
install(DIRECTORY ${CMAKE_SOURCE_DIR}/resources/style_libs DESTINATION ${CMAKE_INSTALL_DATADIR}/vxk)
if(TARGET vx_map)
    install(TARGETS vx_map RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    # Where vx_map looks for what its tour opens.
    install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples/data DESTINATION ${CMAKE_INSTALL_DATADIR}/vxk_lr2d_edit_form/examples)
endif()
install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vxk_lr2d_edit_form
        FILES_MATCHING PATTERN "*.h" PATTERN "*_priv.h" EXCLUDE PATTERN "detail" EXCLUDE
        PATTERN "user_input" EXCLUDE)
# The driver of windows, for tests and guided tours of plug-ins: `--component user_input`.
install(TARGETS vxk_user_input EXPORT vxk_user_input_targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT user_input NAMELINK_COMPONENT user_input)
install(FILES ${CMAKE_SOURCE_DIR}/src/user_input/user_input.h ${CMAKE_SOURCE_DIR}/src/user_input/user_hand.h
              ${CMAKE_SOURCE_DIR}/src/user_input/random_hand.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vxk_lr2d_edit_form/user_input COMPONENT user_input)
# The toolkit's headers were in one folder before they were put into rooms: a host that includes them by their former path
# builds on.
file(GLOB vx_toolkit_headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/src
     ${CMAKE_SOURCE_DIR}/src/platform/toolkit/*/*.h)
list(FILTER vx_toolkit_headers EXCLUDE REGEX "_priv\\.h$")
foreach(header ${vx_toolkit_headers})
    get_filename_component(name ${header} NAME)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/former_paths/${name} CONTENT "#pragma once\n#include \"${header}\"\n")
    install(FILES ${CMAKE_BINARY_DIR}/former_paths/${name}
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vxk_lr2d_edit_form/platform/toolkit)
endforeach()

set(vx_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vxk_lr2d_edit_form)
install(EXPORT vxk_lr2d_edit_form_targets NAMESPACE vxk:: DESTINATION ${vx_package_dir})
install(EXPORT vxk_user_input_targets NAMESPACE vxk:: DESTINATION ${vx_package_dir} COMPONENT user_input)
set(VXK_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/vxk_plugins)
set(VXK_BUNDLE_DIR ${CMAKE_INSTALL_LIBDIR}/vxk_bundles)
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/vxk_lr2d_edit_form-config.cmake.in
    ${CMAKE_BINARY_DIR}/vxk_lr2d_edit_form-config.cmake INSTALL_DESTINATION ${vx_package_dir}
    PATH_VARS VXK_PLUGIN_DIR VXK_BUNDLE_DIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/vxk_lr2d_edit_form-config-version.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/vxk_lr2d_edit_form-config.cmake
              ${CMAKE_BINARY_DIR}/vxk_lr2d_edit_form-config-version.cmake DESTINATION ${vx_package_dir})
file(RELATIVE_PATH vx_pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_SOURCE_DIR}/cmake/vxk_lr2d_edit_form.pc.in ${CMAKE_BINARY_DIR}/vxk_lr2d_edit_form.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/vxk_lr2d_edit_form.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
