#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/dict.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(dict_visitor)
struct vx_dict_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_dict_interface values);
};
VX_BINDING_FUNCTIONS(dict_visitor, 1)
VX_LOCAL inline void vxk_datasource_dict_visitor_visit(
    t_vx_dict_visitor_interface h, t_vx_dict_interface values)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, values);
}
namespace vx
{
/// Receives a dictionary and owns it.
class VX_API dict_visitor : public binding::wrapper<t_vx_dict_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::dict values) const
    { vxk_datasource_dict_visitor_visit(f_handle, values); }
};
class VX_API dict_visitor_impl
    : public binding::implementation<dict_visitor_impl, vx::dict_visitor>
{
public:
    virtual void visit(vx::dict) {}
    VX_LOCAL static char const* interface_name() { return vx_dict_visitor_interface_name; }
    VX_LOCAL static vx_dict_visitor_interface_table const* family_table();
protected:
    ~dict_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_dict_visitor_interface_table dict_visitor_family_table{
    &binding::generalize_slot<dict_visitor_impl>,
    &binding::slot<&dict_visitor_impl::visit>::call,
};
inline vx_dict_visitor_interface_table const* dict_visitor_impl::family_table()
{ return &dict_visitor_family_table; }
}
