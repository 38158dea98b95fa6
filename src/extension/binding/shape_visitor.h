#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(shape_visitor)
struct vx_shape_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_points)(void const* table, void* self, unsigned long long count, double const* places,
        unsigned long long const* records);
    void (*visit_shapes)(void const* table, void* self, unsigned long long count, int const* kinds,
        unsigned const* part_counts, unsigned const* vertex_counts, double const* places,
        unsigned long long const* records);
};
VX_BINDING_FUNCTIONS(shape_visitor, 0)
VX_LOCAL inline void vxk_datasource_shape_visitor_visit_points(
    t_vx_shape_visitor_interface h, unsigned long long count, double const* places,
        unsigned long long const* records)
{
    if (h.table && h.self)
        h.table->visit_points(h.table, h.self, count, places, records);
}
VX_LOCAL inline void vxk_datasource_shape_visitor_visit_shapes(
    t_vx_shape_visitor_interface h, unsigned long long count, int const* kinds, unsigned const* part_counts,
        unsigned const* vertex_counts, double const* places, unsigned long long const* records)
{
    if (h.table && h.self)
        h.table->visit_shapes(h.table, h.self, count, kinds, part_counts, vertex_counts, places, records);
}
namespace vx
{
/// Receives shapes in runs.
class VX_API shape_visitor : public binding::wrapper<t_vx_shape_visitor_interface>
{
public:
    using wrapper::wrapper;
    /// Single points, x and y of each, not a number where a record has no shape; this and below: records is
    /// null when they follow those of the last run, from 0 on.
    VX_LOCAL void visit_points(unsigned long long count, double const* places,
        unsigned long long const* records) const
    { vxk_datasource_shape_visitor_visit_points(f_handle, count, places, records); }
    /// Kinds are flat types of geometry, below zero where the record has parts of other kinds as well, which
    /// a connection with that type of geometry gives; a vertex count for each part of all shapes, then x and
    /// y of each vertex.
    VX_LOCAL void visit_shapes(unsigned long long count, int const* kinds, unsigned const* part_counts,
        unsigned const* vertex_counts, double const* places, unsigned long long const* records) const
    { vxk_datasource_shape_visitor_visit_shapes(f_handle, count, kinds, part_counts, vertex_counts, places,
        records); }
};
class VX_API shape_visitor_impl
    : public binding::implementation<shape_visitor_impl, vx::shape_visitor>
{
public:
    virtual void visit_points(unsigned long long, double const*, unsigned long long const*) {}
    virtual void visit_shapes(unsigned long long, int const*, unsigned const*, unsigned const*,
        double const*, unsigned long long const*) {}
    VX_LOCAL static char const* interface_name() { return vx_shape_visitor_interface_name; }
    VX_LOCAL static vx_shape_visitor_interface_table const* family_table();
protected:
    ~shape_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_shape_visitor_interface_table shape_visitor_family_table{
    &binding::generalize_slot<shape_visitor_impl>,
    &binding::slot<&shape_visitor_impl::visit_points>::call,
    &binding::slot<&shape_visitor_impl::visit_shapes>::call,
};
inline vx_shape_visitor_interface_table const* shape_visitor_impl::family_table()
{ return &shape_visitor_family_table; }
}
