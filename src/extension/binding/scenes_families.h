#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Scenes, layers and viewers: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(layer_2d, 10)
VX_BINDING_BARE(layer_2d_adder, 2,
    [[nodiscard]] VX_LOCAL bool visible() const { return false; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_layer_2d_adder_visible(t_vx_layer_2d_adder_interface)
{ return false; }

VX_BINDING_BARE(layer_2d_adder_visitor, 2)
VX_BINDING_BARE(layer_2d_externalization_service, 13)
VX_BINDING_BARE(layer_2d_externalization_service_visitor, 13)
VX_BINDING_BARE(layer_2d_list_editor, 1)
VX_BINDING_BARE(layer_2d_list_editor_visitor, 1)
VX_BINDING_BARE(layer_2d_renderer_extension_service, 3)
VX_BINDING_BARE(layer_2d_renderer_extension_service_visitor, 3)
VX_BINDING_BARE(layer_2d_selection_service, 5)
VX_BINDING_BARE(layer_2d_selection_service_visitor, 5)
VX_BINDING_BARE(layer_2d_service, 12)
VX_BINDING_BARE(layer_2d_service_visitor, 12)
VX_BINDING_BARE(layer_2d_visitor, 10)
VX_BINDING_BARE(layer_3d, 8)
VX_BINDING_BARE(layer_3d_adder, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return false; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_layer_3d_adder_visible(t_vx_layer_3d_adder_interface)
{ return false; }

VX_BINDING_BARE(layer_3d_adder_visitor, 0)
VX_BINDING_BARE(layer_3d_editor_extension_service, 86,
    [[nodiscard]] VX_LOCAL int priority() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_layer_3d_editor_extension_service_priority(
    t_vx_layer_3d_editor_extension_service_interface)
{ return 1; }

VX_BINDING_BARE(layer_3d_editor_extension_service_visitor, 86)
VX_BINDING_BARE(layer_3d_externalization_service, 10)
VX_BINDING_BARE(layer_3d_externalization_service_visitor, 10)
VX_BINDING_BARE(layer_3d_service, 9)
VX_BINDING_BARE(layer_3d_service_visitor, 9)
VX_BINDING_BARE(layer_3d_visitor, 8)
VX_BINDING_BARE(project_editor_extension_service, 91,
    [[nodiscard]] VX_LOCAL int priority() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_project_editor_extension_service_priority(
    t_vx_project_editor_extension_service_interface)
{ return 1; }

VX_BINDING_BARE(project_editor_extension_service_visitor, 91)
VX_BINDING_BARE(properties_3d_editor, 82,
    [[nodiscard]] VX_LOCAL bool visible() const { return false; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_properties_3d_editor_visible(
    t_vx_properties_3d_editor_interface)
{ return false; }

VX_BINDING_BARE(properties_3d_editor_visitor, 83)
VX_BINDING_BARE(scene_2d, 2)
VX_BINDING_BARE(scene_2d_collection, 3)
VX_BINDING_BARE(scene_2d_collection_visitor, 3)
VX_BINDING_BARE(scene_2d_editor_extension, 1,
    [[nodiscard]] VX_LOCAL bool type_action_enabled() const { return false; }
    [[nodiscard]] VX_LOCAL bool save_action_enabled() const { return false; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_2d_editor_extension_type_action_enabled(
    t_vx_scene_2d_editor_extension_interface)
{ return false; }
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_2d_editor_extension_save_action_enabled(
    t_vx_scene_2d_editor_extension_interface)
{ return false; }

VX_BINDING_BARE(scene_2d_editor_extension_service, 94,
    [[nodiscard]] VX_LOCAL int priority() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_scene_2d_editor_extension_service_priority(
    t_vx_scene_2d_editor_extension_service_interface)
{ return 1; }

VX_BINDING_BARE(scene_2d_editor_extension_service_visitor, 94)
VX_BINDING_BARE(scene_2d_editor_extension_visitor, 1)
VX_BINDING_BARE(scene_2d_externalization_service, 7)
VX_BINDING_BARE(scene_2d_externalization_service_visitor, 7)
VX_BINDING_BARE(scene_2d_parameters_editor, 82)
VX_BINDING_BARE(scene_2d_parameters_editor_service, 82)
VX_BINDING_BARE(scene_2d_parameters_editor_service_visitor, 82)
VX_BINDING_BARE(scene_2d_parameters_editor_visitor, 82)
VX_BINDING_BARE(scene_2d_renderer_extension_service, 1)
VX_BINDING_BARE(scene_2d_renderer_extension_service_visitor, 1)
VX_BINDING_BARE(scene_2d_service, 7)
VX_BINDING_BARE(scene_2d_service_visitor, 7)
VX_BINDING_BARE(scene_2d_visitor, 2)
VX_BINDING_BARE(scene_3d_editor_extension, 0,
    [[nodiscard]] VX_LOCAL bool type_action_enabled() const { return false; }
    [[nodiscard]] VX_LOCAL bool save_action_enabled() const { return false; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_3d_editor_extension_type_action_enabled(
    t_vx_scene_3d_editor_extension_interface)
{ return false; }
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_3d_editor_extension_save_action_enabled(
    t_vx_scene_3d_editor_extension_interface)
{ return false; }

VX_BINDING_BARE(scene_3d_editor_extension_service, 18,
    [[nodiscard]] VX_LOCAL int priority() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_scene_3d_editor_extension_service_priority(
    t_vx_scene_3d_editor_extension_service_interface)
{ return 1; }

VX_BINDING_BARE(scene_3d_editor_extension_service_visitor, 18)
VX_BINDING_BARE(scene_3d_editor_extension_visitor, 0)
VX_BINDING_BARE(scene_adder, 2,
    [[nodiscard]] VX_LOCAL bool visible() const { return false; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_adder_visible(t_vx_scene_adder_interface)
{ return false; }

VX_BINDING_BARE(scene_adder_visitor, 2)
VX_BINDING_BARE(scene_editor_filter, 0)
VX_BINDING_BARE(scene_editor_filter_visitor, 0)
VX_BINDING_BARE(scene_list_editor, 89)
VX_BINDING_BARE(scene_list_editor_visitor, 89)
VX_BINDING_BARE(viewer, 91)
VX_BINDING_BARE(viewer_2d, 3)
VX_BINDING_BARE(viewer_2d_panel, 6)
VX_BINDING_BARE(viewer_extension, 4)
VX_BINDING_BARE(viewer_extension_mode, 2)
VX_BINDING_BARE(viewer_extension_mode_view, 0)
VX_BINDING_BARE(viewer_extension_mode_visitor, 2)
VX_BINDING_BARE(viewer_extension_service, 4)
VX_BINDING_BARE(viewer_extension_service_visitor, 4)
VX_BINDING_BARE(viewer_extension_visitor, 4)
VX_BINDING_BARE(viewer_factory, 94)
VX_BINDING_BARE(viewer_factory_visitor, 94)
VX_BINDING_BARE(viewer_service, 95)
VX_BINDING_BARE(viewer_service_visitor, 95)
