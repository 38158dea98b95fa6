#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(datatype_visitor)
struct vx_datatype_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, int type);
};
VX_BINDING_FUNCTIONS(datatype_visitor, 0)
VX_LOCAL inline void vxk_datasource_datatype_visitor_visit(t_vx_datatype_visitor_interface h, int type)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, type);
}
namespace vx
{
/// Receives the number of a type of cells.
class VX_API datatype_visitor : public binding::wrapper<t_vx_datatype_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(int type) const
    { vxk_datasource_datatype_visitor_visit(f_handle, type); }
};
class VX_API datatype_visitor_impl
    : public binding::implementation<datatype_visitor_impl, vx::datatype_visitor>
{
public:
    virtual void visit(int) {}
    VX_LOCAL static char const* interface_name() { return vx_datatype_visitor_interface_name; }
    VX_LOCAL static vx_datatype_visitor_interface_table const* family_table();
protected:
    ~datatype_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_datatype_visitor_interface_table datatype_visitor_family_table{
    &binding::generalize_slot<datatype_visitor_impl>,
    &binding::slot<&datatype_visitor_impl::visit>::call,
};
inline vx_datatype_visitor_interface_table const* datatype_visitor_impl::family_table()
{ return &datatype_visitor_family_table; }
}
