#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/tools_families.h"

VX_BINDING_HANDLE(context_menu_visitor)
struct vx_context_menu_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_context_menu_interface menu);
    void (*visit_popup)(void const* table, void* self, t_vx_context_popup_menu_interface menu);
};
VX_BINDING_FUNCTIONS(context_menu_visitor, 3)
VX_LOCAL inline void vxk_framework_context_menu_visitor_visit(
    t_vx_context_menu_visitor_interface h, t_vx_context_menu_interface menu)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, menu);
}
VX_LOCAL inline void vxk_framework_context_menu_visitor_visit_popup(
    t_vx_context_menu_visitor_interface h, t_vx_context_popup_menu_interface menu)
{
    if (h.table && h.self)
        h.table->visit_popup(h.table, h.self, menu);
}
namespace vx
{
/// Receives a menu by kind.
class VX_API context_menu_visitor : public binding::wrapper<t_vx_context_menu_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::context_menu menu) const
    { vxk_framework_context_menu_visitor_visit(f_handle, menu); }
    VX_LOCAL void visit_popup(vx::context_popup_menu menu) const
    { vxk_framework_context_menu_visitor_visit_popup(f_handle, menu); }
};
class VX_API context_menu_visitor_impl
    : public binding::implementation<context_menu_visitor_impl, vx::context_menu_visitor>
{
public:
    virtual void visit(vx::context_menu) {}
    virtual void visit_popup(vx::context_popup_menu) {}
    VX_LOCAL static char const* interface_name() { return vx_context_menu_visitor_interface_name; }
    VX_LOCAL static vx_context_menu_visitor_interface_table const* family_table();
protected:
    ~context_menu_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_context_menu_visitor_interface_table context_menu_visitor_family_table{
    &binding::generalize_slot<context_menu_visitor_impl>,
    &binding::slot<&context_menu_visitor_impl::visit>::call,
    &binding::slot<&context_menu_visitor_impl::visit_popup>::call,
};
inline vx_context_menu_visitor_interface_table const* context_menu_visitor_impl::family_table()
{ return &context_menu_visitor_family_table; }
}
