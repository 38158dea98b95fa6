#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/shape_reading.h"

VX_BINDING_HANDLE(shape_reading_visitor)
struct vx_shape_reading_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_shape_reading_interface item);
};
VX_BINDING_FUNCTIONS(shape_reading_visitor, 0)
VX_LOCAL inline void vxk_datasource_shape_reading_visitor_visit(
    t_vx_shape_reading_visitor_interface h, t_vx_shape_reading_interface item)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, item);
}
namespace vx
{
class VX_API shape_reading_visitor : public binding::wrapper<t_vx_shape_reading_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::shape_reading item) const
    { vxk_datasource_shape_reading_visitor_visit(f_handle, item); }
};
class VX_API shape_reading_visitor_impl
    : public binding::implementation<shape_reading_visitor_impl, vx::shape_reading_visitor>
{
public:
    virtual void visit(vx::shape_reading) {}
    VX_LOCAL static char const* interface_name() { return vx_shape_reading_visitor_interface_name; }
    VX_LOCAL static vx_shape_reading_visitor_interface_table const* family_table();
protected:
    ~shape_reading_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_shape_reading_visitor_interface_table shape_reading_visitor_family_table{
    &binding::generalize_slot<shape_reading_visitor_impl>,
    &binding::slot<&shape_reading_visitor_impl::visit>::call,
};
inline vx_shape_reading_visitor_interface_table const* shape_reading_visitor_impl::family_table()
{ return &shape_reading_visitor_family_table; }
}
