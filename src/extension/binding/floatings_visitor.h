#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(floatings_visitor)
struct vx_floatings_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, unsigned long long count, double* values);
};
VX_BINDING_FUNCTIONS(floatings_visitor, 1)
VX_LOCAL inline void vxk_framework_floatings_visitor_visit(
    t_vx_floatings_visitor_interface h, unsigned long long count, double* values)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, count, values);
}
namespace vx
{
/// A run of numbers.
class VX_API floatings_visitor : public binding::wrapper<t_vx_floatings_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(unsigned long long count, double* values) const
    { vxk_framework_floatings_visitor_visit(f_handle, count, values); }
};
class VX_API floatings_visitor_impl
    : public binding::implementation<floatings_visitor_impl, vx::floatings_visitor>
{
public:
    virtual void visit(unsigned long long, double*) {}
    VX_LOCAL static char const* interface_name() { return vx_floatings_visitor_interface_name; }
    VX_LOCAL static vx_floatings_visitor_interface_table const* family_table();
protected:
    ~floatings_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_floatings_visitor_interface_table floatings_visitor_family_table{
    &binding::generalize_slot<floatings_visitor_impl>,
    &binding::slot<&floatings_visitor_impl::visit>::call,
};
inline vx_floatings_visitor_interface_table const* floatings_visitor_impl::family_table()
{ return &floatings_visitor_family_table; }
}
