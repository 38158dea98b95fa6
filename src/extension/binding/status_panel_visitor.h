#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/shell_families.h"

VX_BINDING_HANDLE(status_panel_visitor)
struct vx_status_panel_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_string_panel)(void const* table, void* self, t_vx_string_status_panel_interface panel);
};
VX_BINDING_FUNCTIONS(status_panel_visitor, 0)
VX_LOCAL inline void vxk_framework_status_panel_visitor_visit_string_panel(
    t_vx_status_panel_visitor_interface h, t_vx_string_status_panel_interface panel)
{
    if (h.table && h.self)
        h.table->visit_string_panel(h.table, h.self, panel);
}
namespace vx
{
/// Receives a panel of the status bar.
class VX_API status_panel_visitor : public binding::wrapper<t_vx_status_panel_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_string_panel(vx::string_status_panel panel) const
    { vxk_framework_status_panel_visitor_visit_string_panel(f_handle, panel); }
};
class VX_API status_panel_visitor_impl
    : public binding::implementation<status_panel_visitor_impl, vx::status_panel_visitor>
{
public:
    virtual void visit_string_panel(vx::string_status_panel) {}
    VX_LOCAL static char const* interface_name() { return vx_status_panel_visitor_interface_name; }
    VX_LOCAL static vx_status_panel_visitor_interface_table const* family_table();
protected:
    ~status_panel_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_status_panel_visitor_interface_table status_panel_visitor_family_table{
    &binding::generalize_slot<status_panel_visitor_impl>,
    &binding::slot<&status_panel_visitor_impl::visit_string_panel>::call,
};
inline vx_status_panel_visitor_interface_table const* status_panel_visitor_impl::family_table()
{ return &status_panel_visitor_family_table; }
}
