#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/tools_families.h"

VX_BINDING_HANDLE(tool_visitor)
struct vx_tool_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_string_tool)(void const* table, void* self, t_vx_string_tool_interface tool);
    void (*visit_assisted_string_tool)(void const* table, void* self,
        t_vx_assisted_string_tool_interface tool);
    void (*visit_floating_tool)(void const* table, void* self, t_vx_floating_tool_interface tool);
    void (*visit_integer_tool)(void const* table, void* self, t_vx_integer_tool_interface tool);
    void (*visit_enum_tool)(void const* table, void* self, t_vx_enum_tool_interface tool);
    void (*visit_boolean_tool)(void const* table, void* self, t_vx_boolean_tool_interface tool);
    void (*visit_action_tool)(void const* table, void* self, t_vx_action_tool_interface tool);
    void (*visit_multiaction_tool)(void const* table, void* self, t_vx_multiaction_tool_interface tool);
    void (*visit_multiboolean_tool)(void const* table, void* self, t_vx_multiboolean_tool_interface tool);
    void (*visit_category_tool)(void const* table, void* self, t_vx_category_tool_interface tool);
    void (*visit_list_tool)(void const* table, void* self, t_vx_list_tool_interface tool);
};
VX_BINDING_FUNCTIONS(tool_visitor, 5)
VX_LOCAL inline void vxk_framework_tool_visitor_visit_string_tool(
    t_vx_tool_visitor_interface h, t_vx_string_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_string_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_assisted_string_tool(
    t_vx_tool_visitor_interface h, t_vx_assisted_string_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_assisted_string_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_floating_tool(
    t_vx_tool_visitor_interface h, t_vx_floating_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_floating_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_integer_tool(
    t_vx_tool_visitor_interface h, t_vx_integer_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_integer_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_enum_tool(
    t_vx_tool_visitor_interface h, t_vx_enum_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_enum_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_boolean_tool(
    t_vx_tool_visitor_interface h, t_vx_boolean_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_boolean_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_action_tool(
    t_vx_tool_visitor_interface h, t_vx_action_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_action_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_multiaction_tool(
    t_vx_tool_visitor_interface h, t_vx_multiaction_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_multiaction_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_multiboolean_tool(
    t_vx_tool_visitor_interface h, t_vx_multiboolean_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_multiboolean_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_category_tool(
    t_vx_tool_visitor_interface h, t_vx_category_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_category_tool(h.table, h.self, tool);
}
VX_LOCAL inline void vxk_framework_tool_visitor_visit_list_tool(
    t_vx_tool_visitor_interface h, t_vx_list_tool_interface tool)
{
    if (h.table && h.self)
        h.table->visit_list_tool(h.table, h.self, tool);
}
namespace vx
{
/// Receives a tool by kind.
class VX_API tool_visitor : public binding::wrapper<t_vx_tool_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_string_tool(vx::string_tool tool) const
    { vxk_framework_tool_visitor_visit_string_tool(f_handle, tool); }
    VX_LOCAL void visit_assisted_string_tool(vx::assisted_string_tool tool) const
    { vxk_framework_tool_visitor_visit_assisted_string_tool(f_handle, tool); }
    VX_LOCAL void visit_floating_tool(vx::floating_tool tool) const
    { vxk_framework_tool_visitor_visit_floating_tool(f_handle, tool); }
    VX_LOCAL void visit_integer_tool(vx::integer_tool tool) const
    { vxk_framework_tool_visitor_visit_integer_tool(f_handle, tool); }
    VX_LOCAL void visit_enum_tool(vx::enum_tool tool) const
    { vxk_framework_tool_visitor_visit_enum_tool(f_handle, tool); }
    VX_LOCAL void visit_boolean_tool(vx::boolean_tool tool) const
    { vxk_framework_tool_visitor_visit_boolean_tool(f_handle, tool); }
    VX_LOCAL void visit_action_tool(vx::action_tool tool) const
    { vxk_framework_tool_visitor_visit_action_tool(f_handle, tool); }
    VX_LOCAL void visit_multiaction_tool(vx::multiaction_tool tool) const
    { vxk_framework_tool_visitor_visit_multiaction_tool(f_handle, tool); }
    VX_LOCAL void visit_multiboolean_tool(vx::multiboolean_tool tool) const
    { vxk_framework_tool_visitor_visit_multiboolean_tool(f_handle, tool); }
    VX_LOCAL void visit_category_tool(vx::category_tool tool) const
    { vxk_framework_tool_visitor_visit_category_tool(f_handle, tool); }
    VX_LOCAL void visit_list_tool(vx::list_tool tool) const
    { vxk_framework_tool_visitor_visit_list_tool(f_handle, tool); }
};
class VX_API tool_visitor_impl
    : public binding::implementation<tool_visitor_impl, vx::tool_visitor>
{
public:
    virtual void visit_string_tool(vx::string_tool) {}
    virtual void visit_assisted_string_tool(vx::assisted_string_tool) {}
    virtual void visit_floating_tool(vx::floating_tool) {}
    virtual void visit_integer_tool(vx::integer_tool) {}
    virtual void visit_enum_tool(vx::enum_tool) {}
    virtual void visit_boolean_tool(vx::boolean_tool) {}
    virtual void visit_action_tool(vx::action_tool) {}
    virtual void visit_multiaction_tool(vx::multiaction_tool) {}
    virtual void visit_multiboolean_tool(vx::multiboolean_tool) {}
    virtual void visit_category_tool(vx::category_tool) {}
    virtual void visit_list_tool(vx::list_tool) {}
    VX_LOCAL static char const* interface_name() { return vx_tool_visitor_interface_name; }
    VX_LOCAL static vx_tool_visitor_interface_table const* family_table();
protected:
    ~tool_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_tool_visitor_interface_table tool_visitor_family_table{
    &binding::generalize_slot<tool_visitor_impl>,
    &binding::slot<&tool_visitor_impl::visit_string_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_assisted_string_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_floating_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_integer_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_enum_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_boolean_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_action_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_multiaction_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_multiboolean_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_category_tool>::call,
    &binding::slot<&tool_visitor_impl::visit_list_tool>::call,
};
inline vx_tool_visitor_interface_table const* tool_visitor_impl::family_table()
{ return &tool_visitor_family_table; }
}
