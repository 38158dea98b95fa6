#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(column_visitor)
struct vx_column_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*visit_integers)(void const* table, void* self, unsigned long long count, int const* values,
        unsigned char const* defined);
    bool (*visit_bigints)(void const* table, void* self, unsigned long long count, long long const* values,
        unsigned char const* defined);
    bool (*visit_floatings)(void const* table, void* self, unsigned long long count, double const* values,
        unsigned char const* defined);
    bool (*visit_texts)(void const* table, void* self, unsigned long long count, char const* bytes,
        int const* starts, unsigned char const* defined);
};
VX_BINDING_FUNCTIONS(column_visitor, 0)
VX_LOCAL inline bool vxk_datasource_column_visitor_visit_integers(
    t_vx_column_visitor_interface h, unsigned long long count, int const* values,
        unsigned char const* defined)
{
    return h.table && h.self ? h.table->visit_integers(h.table, h.self, count, values, defined) : false;
}
VX_LOCAL inline bool vxk_datasource_column_visitor_visit_bigints(
    t_vx_column_visitor_interface h, unsigned long long count, long long const* values,
        unsigned char const* defined)
{
    return h.table && h.self ? h.table->visit_bigints(h.table, h.self, count, values, defined) : false;
}
VX_LOCAL inline bool vxk_datasource_column_visitor_visit_floatings(
    t_vx_column_visitor_interface h, unsigned long long count, double const* values,
        unsigned char const* defined)
{
    return h.table && h.self ? h.table->visit_floatings(h.table, h.self, count, values, defined) : false;
}
VX_LOCAL inline bool vxk_datasource_column_visitor_visit_texts(
    t_vx_column_visitor_interface h, unsigned long long count, char const* bytes, int const* starts,
        unsigned char const* defined)
{
    return h.table && h.self ? h.table->visit_texts(h.table, h.self, count, bytes, starts, defined) : false;
}
namespace vx
{
/// Receives the cells of one field in runs of one type.
class VX_API column_visitor : public binding::wrapper<t_vx_column_visitor_interface>
{
public:
    using wrapper::wrapper;
    /// This and all below: a run of cells; defined has a bit for each, the lowest first, and is null when no
    /// cell is null; false to stop.
    VX_LOCAL bool visit_integers(unsigned long long count, int const* values,
        unsigned char const* defined) const
    { return vxk_datasource_column_visitor_visit_integers(f_handle, count, values, defined); }
    VX_LOCAL bool visit_bigints(unsigned long long count, long long const* values,
        unsigned char const* defined) const
    { return vxk_datasource_column_visitor_visit_bigints(f_handle, count, values, defined); }
    VX_LOCAL bool visit_floatings(unsigned long long count, double const* values,
        unsigned char const* defined) const
    { return vxk_datasource_column_visitor_visit_floatings(f_handle, count, values, defined); }
    /// In UTF-8; text i has the bytes from starts[i] up to starts[i + 1].
    VX_LOCAL bool visit_texts(unsigned long long count, char const* bytes, int const* starts,
        unsigned char const* defined) const
    { return vxk_datasource_column_visitor_visit_texts(f_handle, count, bytes, starts, defined); }
};
class VX_API column_visitor_impl
    : public binding::implementation<column_visitor_impl, vx::column_visitor>
{
public:
    virtual bool visit_integers(unsigned long long, int const*, unsigned char const*) { return false; }
    virtual bool visit_bigints(unsigned long long, long long const*, unsigned char const*) { return false; }
    virtual bool visit_floatings(unsigned long long, double const*, unsigned char const*) { return false; }
    virtual bool visit_texts(unsigned long long, char const*, int const*,
        unsigned char const*) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_column_visitor_interface_name; }
    VX_LOCAL static vx_column_visitor_interface_table const* family_table();
protected:
    ~column_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_column_visitor_interface_table column_visitor_family_table{
    &binding::generalize_slot<column_visitor_impl>,
    &binding::slot<&column_visitor_impl::visit_integers>::call,
    &binding::slot<&column_visitor_impl::visit_bigints>::call,
    &binding::slot<&column_visitor_impl::visit_floatings>::call,
    &binding::slot<&column_visitor_impl::visit_texts>::call,
};
inline vx_column_visitor_interface_table const* column_visitor_impl::family_table()
{ return &column_visitor_family_table; }
}
