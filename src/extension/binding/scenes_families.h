#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Scenes, layers and viewers: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(layer_2d, 10)
VX_BINDING_HANDLE(layer_2d_adder)
struct vx_layer_2d_adder_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(layer_2d_adder, 2)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_layer_2d_adder_visible(t_vx_layer_2d_adder_interface)
{ return false; }
namespace vx
{
class VX_API layer_2d_adder : public binding::wrapper<t_vx_layer_2d_adder_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_layer_2d_adder_visible(f_handle); }
};
class VX_API layer_2d_adder_impl
    : public binding::implementation<layer_2d_adder_impl, vx::layer_2d_adder>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_layer_2d_adder_interface_name; }
    VX_LOCAL static vx_layer_2d_adder_interface_table const* family_table();
protected:
    ~layer_2d_adder_impl() = default;
};
VX_LOCAL inline constexpr vx_layer_2d_adder_interface_table layer_2d_adder_family_table{
    &binding::generalize_slot<layer_2d_adder_impl>,
};
inline vx_layer_2d_adder_interface_table const* layer_2d_adder_impl::family_table()
{ return &layer_2d_adder_family_table; }
}

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
VX_BINDING_HANDLE(layer_3d_adder)
struct vx_layer_3d_adder_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(layer_3d_adder, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_layer_3d_adder_visible(t_vx_layer_3d_adder_interface)
{ return false; }
namespace vx
{
class VX_API layer_3d_adder : public binding::wrapper<t_vx_layer_3d_adder_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_layer_3d_adder_visible(f_handle); }
};
class VX_API layer_3d_adder_impl
    : public binding::implementation<layer_3d_adder_impl, vx::layer_3d_adder>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_layer_3d_adder_interface_name; }
    VX_LOCAL static vx_layer_3d_adder_interface_table const* family_table();
protected:
    ~layer_3d_adder_impl() = default;
};
VX_LOCAL inline constexpr vx_layer_3d_adder_interface_table layer_3d_adder_family_table{
    &binding::generalize_slot<layer_3d_adder_impl>,
};
inline vx_layer_3d_adder_interface_table const* layer_3d_adder_impl::family_table()
{ return &layer_3d_adder_family_table; }
}

VX_BINDING_BARE(layer_3d_adder_visitor, 0)
VX_BINDING_HANDLE(layer_3d_editor_extension_service)
struct vx_layer_3d_editor_extension_service_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(layer_3d_editor_extension_service, 86)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_layer_3d_editor_extension_service_priority(t_vx_layer_3d_editor_extension_service_interface)
{ return 1; }
namespace vx
{
class VX_API layer_3d_editor_extension_service : public binding::wrapper<t_vx_layer_3d_editor_extension_service_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int priority() const
    { return vxk_framework_layer_3d_editor_extension_service_priority(f_handle); }
};
class VX_API layer_3d_editor_extension_service_impl
    : public binding::implementation<layer_3d_editor_extension_service_impl,
        vx::layer_3d_editor_extension_service>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_layer_3d_editor_extension_service_interface_name; }
    VX_LOCAL static vx_layer_3d_editor_extension_service_interface_table const* family_table();
protected:
    ~layer_3d_editor_extension_service_impl() = default;
};
VX_LOCAL inline constexpr vx_layer_3d_editor_extension_service_interface_table layer_3d_editor_extension_service_family_table{
    &binding::generalize_slot<layer_3d_editor_extension_service_impl>,
};
inline vx_layer_3d_editor_extension_service_interface_table const* layer_3d_editor_extension_service_impl::family_table()
{ return &layer_3d_editor_extension_service_family_table; }
}

VX_BINDING_BARE(layer_3d_editor_extension_service_visitor, 86)
VX_BINDING_BARE(layer_3d_externalization_service, 10)
VX_BINDING_BARE(layer_3d_externalization_service_visitor, 10)
VX_BINDING_BARE(layer_3d_service, 9)
VX_BINDING_BARE(layer_3d_service_visitor, 9)
VX_BINDING_BARE(layer_3d_visitor, 8)
VX_BINDING_HANDLE(project_editor_extension_service)
struct vx_project_editor_extension_service_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(project_editor_extension_service, 91)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_project_editor_extension_service_priority(t_vx_project_editor_extension_service_interface)
{ return 1; }
namespace vx
{
class VX_API project_editor_extension_service : public binding::wrapper<t_vx_project_editor_extension_service_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int priority() const
    { return vxk_framework_project_editor_extension_service_priority(f_handle); }
};
class VX_API project_editor_extension_service_impl
    : public binding::implementation<project_editor_extension_service_impl,
        vx::project_editor_extension_service>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_project_editor_extension_service_interface_name; }
    VX_LOCAL static vx_project_editor_extension_service_interface_table const* family_table();
protected:
    ~project_editor_extension_service_impl() = default;
};
VX_LOCAL inline constexpr vx_project_editor_extension_service_interface_table project_editor_extension_service_family_table{
    &binding::generalize_slot<project_editor_extension_service_impl>,
};
inline vx_project_editor_extension_service_interface_table const* project_editor_extension_service_impl::family_table()
{ return &project_editor_extension_service_family_table; }
}

VX_BINDING_BARE(project_editor_extension_service_visitor, 91)
VX_BINDING_HANDLE(properties_3d_editor)
struct vx_properties_3d_editor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(properties_3d_editor, 82)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_properties_3d_editor_visible(t_vx_properties_3d_editor_interface)
{ return false; }
namespace vx
{
class VX_API properties_3d_editor : public binding::wrapper<t_vx_properties_3d_editor_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_properties_3d_editor_visible(f_handle); }
};
class VX_API properties_3d_editor_impl
    : public binding::implementation<properties_3d_editor_impl, vx::properties_3d_editor>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_properties_3d_editor_interface_name; }
    VX_LOCAL static vx_properties_3d_editor_interface_table const* family_table();
protected:
    ~properties_3d_editor_impl() = default;
};
VX_LOCAL inline constexpr vx_properties_3d_editor_interface_table properties_3d_editor_family_table{
    &binding::generalize_slot<properties_3d_editor_impl>,
};
inline vx_properties_3d_editor_interface_table const* properties_3d_editor_impl::family_table()
{ return &properties_3d_editor_family_table; }
}

VX_BINDING_BARE(properties_3d_editor_visitor, 83)
VX_BINDING_BARE(scene_2d, 2)
VX_BINDING_BARE(scene_2d_collection, 3)
VX_BINDING_BARE(scene_2d_collection_visitor, 3)
VX_BINDING_HANDLE(scene_2d_editor_extension)
struct vx_scene_2d_editor_extension_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(scene_2d_editor_extension, 1)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_2d_editor_extension_type_action_enabled(t_vx_scene_2d_editor_extension_interface)
{ return false; }
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_2d_editor_extension_save_action_enabled(t_vx_scene_2d_editor_extension_interface)
{ return false; }
namespace vx
{
class VX_API scene_2d_editor_extension : public binding::wrapper<t_vx_scene_2d_editor_extension_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool type_action_enabled() const
    { return vxk_framework_scene_2d_editor_extension_type_action_enabled(f_handle); }
    [[nodiscard]] VX_LOCAL bool save_action_enabled() const
    { return vxk_framework_scene_2d_editor_extension_save_action_enabled(f_handle); }
};
class VX_API scene_2d_editor_extension_impl
    : public binding::implementation<scene_2d_editor_extension_impl, vx::scene_2d_editor_extension>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_scene_2d_editor_extension_interface_name; }
    VX_LOCAL static vx_scene_2d_editor_extension_interface_table const* family_table();
protected:
    ~scene_2d_editor_extension_impl() = default;
};
VX_LOCAL inline constexpr vx_scene_2d_editor_extension_interface_table scene_2d_editor_extension_family_table{
    &binding::generalize_slot<scene_2d_editor_extension_impl>,
};
inline vx_scene_2d_editor_extension_interface_table const* scene_2d_editor_extension_impl::family_table()
{ return &scene_2d_editor_extension_family_table; }
}

VX_BINDING_HANDLE(scene_2d_editor_extension_service)
struct vx_scene_2d_editor_extension_service_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(scene_2d_editor_extension_service, 94)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_scene_2d_editor_extension_service_priority(t_vx_scene_2d_editor_extension_service_interface)
{ return 1; }
namespace vx
{
class VX_API scene_2d_editor_extension_service : public binding::wrapper<t_vx_scene_2d_editor_extension_service_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int priority() const
    { return vxk_framework_scene_2d_editor_extension_service_priority(f_handle); }
};
class VX_API scene_2d_editor_extension_service_impl
    : public binding::implementation<scene_2d_editor_extension_service_impl,
        vx::scene_2d_editor_extension_service>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_scene_2d_editor_extension_service_interface_name; }
    VX_LOCAL static vx_scene_2d_editor_extension_service_interface_table const* family_table();
protected:
    ~scene_2d_editor_extension_service_impl() = default;
};
VX_LOCAL inline constexpr vx_scene_2d_editor_extension_service_interface_table scene_2d_editor_extension_service_family_table{
    &binding::generalize_slot<scene_2d_editor_extension_service_impl>,
};
inline vx_scene_2d_editor_extension_service_interface_table const* scene_2d_editor_extension_service_impl::family_table()
{ return &scene_2d_editor_extension_service_family_table; }
}

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
VX_BINDING_HANDLE(scene_3d_editor_extension)
struct vx_scene_3d_editor_extension_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(scene_3d_editor_extension, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_3d_editor_extension_type_action_enabled(t_vx_scene_3d_editor_extension_interface)
{ return false; }
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_3d_editor_extension_save_action_enabled(t_vx_scene_3d_editor_extension_interface)
{ return false; }
namespace vx
{
class VX_API scene_3d_editor_extension : public binding::wrapper<t_vx_scene_3d_editor_extension_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool type_action_enabled() const
    { return vxk_framework_scene_3d_editor_extension_type_action_enabled(f_handle); }
    [[nodiscard]] VX_LOCAL bool save_action_enabled() const
    { return vxk_framework_scene_3d_editor_extension_save_action_enabled(f_handle); }
};
class VX_API scene_3d_editor_extension_impl
    : public binding::implementation<scene_3d_editor_extension_impl, vx::scene_3d_editor_extension>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_scene_3d_editor_extension_interface_name; }
    VX_LOCAL static vx_scene_3d_editor_extension_interface_table const* family_table();
protected:
    ~scene_3d_editor_extension_impl() = default;
};
VX_LOCAL inline constexpr vx_scene_3d_editor_extension_interface_table scene_3d_editor_extension_family_table{
    &binding::generalize_slot<scene_3d_editor_extension_impl>,
};
inline vx_scene_3d_editor_extension_interface_table const* scene_3d_editor_extension_impl::family_table()
{ return &scene_3d_editor_extension_family_table; }
}

VX_BINDING_HANDLE(scene_3d_editor_extension_service)
struct vx_scene_3d_editor_extension_service_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(scene_3d_editor_extension_service, 18)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_scene_3d_editor_extension_service_priority(t_vx_scene_3d_editor_extension_service_interface)
{ return 1; }
namespace vx
{
class VX_API scene_3d_editor_extension_service : public binding::wrapper<t_vx_scene_3d_editor_extension_service_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int priority() const
    { return vxk_framework_scene_3d_editor_extension_service_priority(f_handle); }
};
class VX_API scene_3d_editor_extension_service_impl
    : public binding::implementation<scene_3d_editor_extension_service_impl,
        vx::scene_3d_editor_extension_service>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_scene_3d_editor_extension_service_interface_name; }
    VX_LOCAL static vx_scene_3d_editor_extension_service_interface_table const* family_table();
protected:
    ~scene_3d_editor_extension_service_impl() = default;
};
VX_LOCAL inline constexpr vx_scene_3d_editor_extension_service_interface_table scene_3d_editor_extension_service_family_table{
    &binding::generalize_slot<scene_3d_editor_extension_service_impl>,
};
inline vx_scene_3d_editor_extension_service_interface_table const* scene_3d_editor_extension_service_impl::family_table()
{ return &scene_3d_editor_extension_service_family_table; }
}

VX_BINDING_BARE(scene_3d_editor_extension_service_visitor, 18)
VX_BINDING_BARE(scene_3d_editor_extension_visitor, 0)
VX_BINDING_HANDLE(scene_adder)
struct vx_scene_adder_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(scene_adder, 2)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scene_adder_visible(t_vx_scene_adder_interface)
{ return false; }
namespace vx
{
class VX_API scene_adder : public binding::wrapper<t_vx_scene_adder_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_scene_adder_visible(f_handle); }
};
class VX_API scene_adder_impl
    : public binding::implementation<scene_adder_impl, vx::scene_adder>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_scene_adder_interface_name; }
    VX_LOCAL static vx_scene_adder_interface_table const* family_table();
protected:
    ~scene_adder_impl() = default;
};
VX_LOCAL inline constexpr vx_scene_adder_interface_table scene_adder_family_table{
    &binding::generalize_slot<scene_adder_impl>,
};
inline vx_scene_adder_interface_table const* scene_adder_impl::family_table()
{ return &scene_adder_family_table; }
}

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
