#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/column_reading.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(column_reading_visitor)
struct vx_column_reading_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_column_reading_interface item);
};
VX_BINDING_FUNCTIONS(column_reading_visitor, 0)
VX_LOCAL inline void vxk_datasource_column_reading_visitor_visit(
    t_vx_column_reading_visitor_interface h, t_vx_column_reading_interface item)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, item);
}
namespace vx
{
class VX_API column_reading_visitor : public binding::wrapper<t_vx_column_reading_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::column_reading item) const
    { vxk_datasource_column_reading_visitor_visit(f_handle, item); }
};
class VX_API column_reading_visitor_impl
    : public binding::implementation<column_reading_visitor_impl, vx::column_reading_visitor>
{
public:
    virtual void visit(vx::column_reading) {}
    VX_LOCAL static char const* interface_name() { return vx_column_reading_visitor_interface_name; }
    VX_LOCAL static vx_column_reading_visitor_interface_table const* family_table();
protected:
    ~column_reading_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_column_reading_visitor_interface_table column_reading_visitor_family_table{
    &binding::generalize_slot<column_reading_visitor_impl>,
    &binding::slot<&column_reading_visitor_impl::visit>::call,
};
inline vx_column_reading_visitor_interface_table const* column_reading_visitor_impl::family_table()
{ return &column_reading_visitor_family_table; }
}
