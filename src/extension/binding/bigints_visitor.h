#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(bigints_visitor)
struct vx_bigints_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, unsigned long long count, long long* values);
};
VX_BINDING_FUNCTIONS(bigints_visitor, 0)
VX_LOCAL inline void vxk_framework_bigints_visitor_visit(
    t_vx_bigints_visitor_interface h, unsigned long long count, long long* values)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, count, values);
}
namespace vx
{
/// A run of numbers.
class VX_API bigints_visitor : public binding::wrapper<t_vx_bigints_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(unsigned long long count, long long* values) const
    { vxk_framework_bigints_visitor_visit(f_handle, count, values); }
};
class VX_API bigints_visitor_impl
    : public binding::implementation<bigints_visitor_impl, vx::bigints_visitor>
{
public:
    virtual void visit(unsigned long long, long long*) {}
    VX_LOCAL static char const* interface_name() { return vx_bigints_visitor_interface_name; }
    VX_LOCAL static vx_bigints_visitor_interface_table const* family_table();
protected:
    ~bigints_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_bigints_visitor_interface_table bigints_visitor_family_table{
    &binding::generalize_slot<bigints_visitor_impl>,
    &binding::slot<&bigints_visitor_impl::visit>::call,
};
inline vx_bigints_visitor_interface_table const* bigints_visitor_impl::family_table()
{ return &bigints_visitor_family_table; }
}
