#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(histogram_visitor)
struct vx_histogram_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, double minimum, double maximum, int count,
        long long* counts);
};
VX_BINDING_FUNCTIONS(histogram_visitor, 0)
VX_LOCAL inline void vxk_datasource_histogram_visitor_visit(
    t_vx_histogram_visitor_interface h, double minimum, double maximum, int count, long long* counts)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, minimum, maximum, count, counts);
}
namespace vx
{
/// Receives how many values lie in each of `count` classes of equal width from minimum to maximum.
class VX_API histogram_visitor : public binding::wrapper<t_vx_histogram_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(double minimum, double maximum, int count, long long* counts) const
    { vxk_datasource_histogram_visitor_visit(f_handle, minimum, maximum, count, counts); }
};
class VX_API histogram_visitor_impl
    : public binding::implementation<histogram_visitor_impl, vx::histogram_visitor>
{
public:
    virtual void visit(double, double, int, long long*) {}
    VX_LOCAL static char const* interface_name() { return vx_histogram_visitor_interface_name; }
    VX_LOCAL static vx_histogram_visitor_interface_table const* family_table();
protected:
    ~histogram_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_histogram_visitor_interface_table histogram_visitor_family_table{
    &binding::generalize_slot<histogram_visitor_impl>,
    &binding::slot<&histogram_visitor_impl::visit>::call,
};
inline vx_histogram_visitor_interface_table const* histogram_visitor_impl::family_table()
{ return &histogram_visitor_family_table; }
}
