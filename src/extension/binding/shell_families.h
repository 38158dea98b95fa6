#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Application shell: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(app_events_service, 5)
VX_BINDING_BARE(app_events_service_visitor, 5)
VX_BINDING_BARE(app_service, 15)
VX_BINDING_BARE(app_service_visitor, 15)
VX_BINDING_BARE(app_view, 4)
VX_BINDING_BARE(custom_app_service, 79)
VX_BINDING_BARE(custom_app_service_visitor, 79)
VX_BINDING_BARE(dock_panel, 92)
VX_BINDING_HANDLE(dock_panel_service)
struct vx_dock_panel_service_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(dock_panel_service, 94)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_dock_panel_service_priority(t_vx_dock_panel_service_interface)
{ return 1; }
namespace vx
{
class VX_API dock_panel_service : public binding::wrapper<t_vx_dock_panel_service_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int priority() const
    { return vxk_framework_dock_panel_service_priority(f_handle); }
};
class VX_API dock_panel_service_impl
    : public binding::implementation<dock_panel_service_impl, vx::dock_panel_service>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_dock_panel_service_interface_name; }
    VX_LOCAL static vx_dock_panel_service_interface_table const* family_table();
protected:
    ~dock_panel_service_impl() = default;
};
VX_LOCAL inline constexpr vx_dock_panel_service_interface_table dock_panel_service_family_table{
    &binding::generalize_slot<dock_panel_service_impl>,
};
inline vx_dock_panel_service_interface_table const* dock_panel_service_impl::family_table()
{ return &dock_panel_service_family_table; }
}

VX_BINDING_BARE(dock_panel_service_visitor, 94)
VX_BINDING_BARE(dock_panel_view, 0)
VX_BINDING_BARE(dock_panel_visitor, 92)
VX_BINDING_BARE_PASSED(main_form, 92)
VX_BINDING_BARE_PASSED(main_form_visitor, 92)
VX_BINDING_BARE_PASSED(mdi_child, 92)
VX_BINDING_BARE_PASSED(mdi_child_view, 0)
VX_BINDING_BARE_PASSED(mdi_child_visitor, 92)
VX_BINDING_BARE(modal_dialog, 101)
VX_BINDING_BARE(modal_dialog_service, 102)
VX_BINDING_BARE(modal_dialog_service_visitor, 102)
VX_BINDING_BARE(modal_dialog_view, 101)
VX_BINDING_BARE(modal_dialog_visitor, 101)
VX_BINDING_HANDLE(modeless_dialog)
struct vx_modeless_dialog_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(modeless_dialog, 72)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_modeless_dialog_visible(t_vx_modeless_dialog_interface)
{ return false; }
namespace vx
{
class VX_API modeless_dialog : public binding::wrapper<t_vx_modeless_dialog_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_modeless_dialog_visible(f_handle); }
};
class VX_API modeless_dialog_impl
    : public binding::implementation<modeless_dialog_impl, vx::modeless_dialog>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_modeless_dialog_interface_name; }
    VX_LOCAL static vx_modeless_dialog_interface_table const* family_table();
protected:
    ~modeless_dialog_impl() = default;
};
VX_LOCAL inline constexpr vx_modeless_dialog_interface_table modeless_dialog_family_table{
    &binding::generalize_slot<modeless_dialog_impl>,
};
inline vx_modeless_dialog_interface_table const* modeless_dialog_impl::family_table()
{ return &modeless_dialog_family_table; }
}

VX_BINDING_BARE(modeless_dialog_service, 72)
VX_BINDING_BARE(modeless_dialog_service_visitor, 72)
VX_BINDING_BARE(modeless_dialog_view, 2)
VX_BINDING_BARE(modeless_dialog_visitor, 72)
VX_BINDING_BARE(status_panel_view, 0)
VX_BINDING_BARE(statusbar, 0)
VX_BINDING_HANDLE(string_status_panel)
struct vx_string_status_panel_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(string_status_panel, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_string_status_panel_visible(t_vx_string_status_panel_interface)
{ return true; }
namespace vx
{
class VX_API string_status_panel : public binding::wrapper<t_vx_string_status_panel_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_string_status_panel_visible(f_handle); }
};
class VX_API string_status_panel_impl
    : public binding::implementation<string_status_panel_impl, vx::string_status_panel>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_string_status_panel_interface_name; }
    VX_LOCAL static vx_string_status_panel_interface_table const* family_table();
protected:
    ~string_status_panel_impl() = default;
};
VX_LOCAL inline constexpr vx_string_status_panel_interface_table string_status_panel_family_table{
    &binding::generalize_slot<string_status_panel_impl>,
};
inline vx_string_status_panel_interface_table const* string_status_panel_impl::family_table()
{ return &string_status_panel_family_table; }
}

VX_BINDING_BARE(toolbar, 6)
VX_BINDING_BARE(tray_icon, 2)
VX_BINDING_BARE(tray_icon_visitor, 2)
