#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/grid_palette.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(grid_palette_visitor)
struct vx_grid_palette_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_grid_palette_interface palette);
};
VX_BINDING_FUNCTIONS(grid_palette_visitor, 1)
VX_LOCAL inline void vxk_datasource_grid_palette_visitor_visit(
    t_vx_grid_palette_visitor_interface h, t_vx_grid_palette_interface palette)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, palette);
}
namespace vx
{
/// Receives a palette and owns it.
class VX_API grid_palette_visitor : public binding::wrapper<t_vx_grid_palette_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::grid_palette palette) const
    { vxk_datasource_grid_palette_visitor_visit(f_handle, palette); }
};
class VX_API grid_palette_visitor_impl
    : public binding::implementation<grid_palette_visitor_impl, vx::grid_palette_visitor>
{
public:
    virtual void visit(vx::grid_palette) {}
    VX_LOCAL static char const* interface_name() { return vx_grid_palette_visitor_interface_name; }
    VX_LOCAL static vx_grid_palette_visitor_interface_table const* family_table();
protected:
    ~grid_palette_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_palette_visitor_interface_table grid_palette_visitor_family_table{
    &binding::generalize_slot<grid_palette_visitor_impl>,
    &binding::slot<&grid_palette_visitor_impl::visit>::call,
};
inline vx_grid_palette_visitor_interface_table const* grid_palette_visitor_impl::family_table()
{ return &grid_palette_visitor_family_table; }
}
