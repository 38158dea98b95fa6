#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/tools_families.h"

VX_BINDING_HANDLE(menu_item_visitor)
struct vx_menu_item_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_tool)(void const* table, void* self, t_vx_action_tool_interface tool);
    void (*visit_menu)(void const* table, void* self, t_vx_menu_item_set_interface menu);
};
VX_BINDING_FUNCTIONS(menu_item_visitor, 0)
VX_LOCAL inline void vxk_framework_menu_item_visitor_visit_tool(
    t_vx_menu_item_visitor_interface h, t_vx_action_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_menu_item_visitor_visit_menu(
    t_vx_menu_item_visitor_interface h, t_vx_menu_item_set_interface menu)
{
    if (h.table && h.self)
        h.table->visit_menu(h.table, h.self, menu);
}
namespace vx
{
/// Receives an entry of a menu by kind.
class VX_API menu_item_visitor : public binding::wrapper<t_vx_menu_item_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_tool(vx::action_tool tool) const
    { vxk_framework_menu_item_visitor_visit_tool(f_handle, tool); }
    VX_LOCAL void visit_menu(vx::menu_item_set menu) const
    { vxk_framework_menu_item_visitor_visit_menu(f_handle, menu); }
};
class VX_API menu_item_visitor_impl
    : public binding::implementation<menu_item_visitor_impl, vx::menu_item_visitor>
{
public:
    virtual void visit_tool(vx::action_tool) {}
    virtual void visit_menu(vx::menu_item_set) {}
    VX_LOCAL static char const* interface_name() { return vx_menu_item_visitor_interface_name; }
    VX_LOCAL static vx_menu_item_visitor_interface_table const* family_table();
protected:
    ~menu_item_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_menu_item_visitor_interface_table menu_item_visitor_family_table{
    &binding::generalize_slot<menu_item_visitor_impl>,
    &binding::slot<&menu_item_visitor_impl::visit_tool>::call,
    &binding::slot<&menu_item_visitor_impl::visit_menu>::call,
};
inline vx_menu_item_visitor_interface_table const* menu_item_visitor_impl::family_table()
{ return &menu_item_visitor_family_table; }
}
