#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/data_sets_families.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(poly_data_3d_chunk_visitor)
struct vx_poly_data_3d_chunk_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_coords)(void const* table, void* self, t_vx_poly_data_3d_points_interface points);
    void (*visit_vertices)(void const* table, void* self, t_vx_poly_data_3d_cells_interface cells);
    void (*visit_lines)(void const* table, void* self, t_vx_poly_data_3d_cells_interface cells);
    void (*visit_polygons)(void const* table, void* self, t_vx_poly_data_3d_cells_interface cells);
};
VX_BINDING_FUNCTIONS(poly_data_3d_chunk_visitor, 6)
VX_LOCAL inline void vxk_framework_poly_data_3d_chunk_visitor_visit_coords(
    t_vx_poly_data_3d_chunk_visitor_interface h, t_vx_poly_data_3d_points_interface points)
{
    if (h.table && h.self)
        h.table->visit_coords(h.table, h.self, points);
}
VX_LOCAL inline void vxk_framework_poly_data_3d_chunk_visitor_visit_vertices(
    t_vx_poly_data_3d_chunk_visitor_interface h, t_vx_poly_data_3d_cells_interface cells)
{
    if (h.table && h.self)
        h.table->visit_vertices(h.table, h.self, cells);
}
VX_LOCAL inline void vxk_framework_poly_data_3d_chunk_visitor_visit_lines(
    t_vx_poly_data_3d_chunk_visitor_interface h, t_vx_poly_data_3d_cells_interface cells)
{
    if (h.table && h.self)
        h.table->visit_lines(h.table, h.self, cells);
}
VX_LOCAL inline void vxk_framework_poly_data_3d_chunk_visitor_visit_polygons(
    t_vx_poly_data_3d_chunk_visitor_interface h, t_vx_poly_data_3d_cells_interface cells)
{
    if (h.table && h.self)
        h.table->visit_polygons(h.table, h.self, cells);
}
namespace vx
{
/// Receives a chunk of spatial data by kind.
class VX_API poly_data_3d_chunk_visitor : public binding::wrapper<t_vx_poly_data_3d_chunk_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_coords(vx::poly_data_3d_points points) const
    { vxk_framework_poly_data_3d_chunk_visitor_visit_coords(f_handle, points); }
    VX_LOCAL void visit_vertices(vx::poly_data_3d_cells cells) const
    { vxk_framework_poly_data_3d_chunk_visitor_visit_vertices(f_handle, cells); }
    VX_LOCAL void visit_lines(vx::poly_data_3d_cells cells) const
    { vxk_framework_poly_data_3d_chunk_visitor_visit_lines(f_handle, cells); }
    VX_LOCAL void visit_polygons(vx::poly_data_3d_cells cells) const
    { vxk_framework_poly_data_3d_chunk_visitor_visit_polygons(f_handle, cells); }
};
class VX_API poly_data_3d_chunk_visitor_impl
    : public binding::implementation<poly_data_3d_chunk_visitor_impl, vx::poly_data_3d_chunk_visitor>
{
public:
    virtual void visit_coords(vx::poly_data_3d_points) {}
    virtual void visit_vertices(vx::poly_data_3d_cells) {}
    virtual void visit_lines(vx::poly_data_3d_cells) {}
    virtual void visit_polygons(vx::poly_data_3d_cells) {}
    VX_LOCAL static char const* interface_name() { return vx_poly_data_3d_chunk_visitor_interface_name; }
    VX_LOCAL static vx_poly_data_3d_chunk_visitor_interface_table const* family_table();
protected:
    ~poly_data_3d_chunk_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_poly_data_3d_chunk_visitor_interface_table poly_data_3d_chunk_visitor_family_table{
    &binding::generalize_slot<poly_data_3d_chunk_visitor_impl>,
    &binding::slot<&poly_data_3d_chunk_visitor_impl::visit_coords>::call,
    &binding::slot<&poly_data_3d_chunk_visitor_impl::visit_vertices>::call,
    &binding::slot<&poly_data_3d_chunk_visitor_impl::visit_lines>::call,
    &binding::slot<&poly_data_3d_chunk_visitor_impl::visit_polygons>::call,
};
inline vx_poly_data_3d_chunk_visitor_interface_table const* poly_data_3d_chunk_visitor_impl::family_table()
{ return &poly_data_3d_chunk_visitor_family_table; }
}
