#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/grids_families.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(grid_cell_visitor)
struct vx_grid_cell_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_action_cell)(void const* table, void* self, t_vx_grid_action_cell_interface cell);
    void (*visit_boolean_cell)(void const* table, void* self, t_vx_grid_boolean_cell_interface cell);
    void (*visit_enum_cell)(void const* table, void* self, t_vx_grid_enum_cell_interface cell);
    void (*visit_integer_cell)(void const* table, void* self, t_vx_grid_integer_cell_interface cell);
    void (*visit_floating_cell)(void const* table, void* self, t_vx_grid_floating_cell_interface cell);
    void (*visit_string_cell)(void const* table, void* self, t_vx_grid_string_cell_interface cell);
    void (*visit_assisted_string_cell)(void const* table, void* self,
        t_vx_grid_assisted_string_cell_interface cell);
    void (*visit_bitmap_cell)(void const* table, void* self, t_vx_grid_bitmap_cell_interface cell);
    void (*visit_canvas_cell)(void const* table, void* self, t_vx_grid_canvas_cell_interface cell);
    void (*visit_check_cell)(void const* table, void* self, t_vx_grid_check_cell_interface cell);
};
VX_BINDING_FUNCTIONS(grid_cell_visitor, 17)
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_action_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_action_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_action_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_boolean_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_boolean_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_boolean_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_enum_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_enum_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_enum_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_integer_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_integer_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_integer_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_floating_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_floating_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_floating_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_string_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_string_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_string_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_assisted_string_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_assisted_string_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_assisted_string_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_bitmap_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_bitmap_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_bitmap_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_canvas_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_canvas_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_canvas_cell(h.table, h.self, cell);
}
VX_LOCAL inline void vxk_framework_grid_cell_visitor_visit_check_cell(
    t_vx_grid_cell_visitor_interface h, t_vx_grid_check_cell_interface cell)
{
    if (h.table && h.self)
        h.table->visit_check_cell(h.table, h.self, cell);
}
namespace vx
{
/// Receives a cell by kind.
class VX_API grid_cell_visitor : public binding::wrapper<t_vx_grid_cell_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_action_cell(vx::grid_action_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_action_cell(f_handle, cell); }
    VX_LOCAL void visit_boolean_cell(vx::grid_boolean_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_boolean_cell(f_handle, cell); }
    VX_LOCAL void visit_enum_cell(vx::grid_enum_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_enum_cell(f_handle, cell); }
    VX_LOCAL void visit_integer_cell(vx::grid_integer_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_integer_cell(f_handle, cell); }
    VX_LOCAL void visit_floating_cell(vx::grid_floating_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_floating_cell(f_handle, cell); }
    VX_LOCAL void visit_string_cell(vx::grid_string_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_string_cell(f_handle, cell); }
    VX_LOCAL void visit_assisted_string_cell(vx::grid_assisted_string_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_assisted_string_cell(f_handle, cell); }
    VX_LOCAL void visit_bitmap_cell(vx::grid_bitmap_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_bitmap_cell(f_handle, cell); }
    VX_LOCAL void visit_canvas_cell(vx::grid_canvas_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_canvas_cell(f_handle, cell); }
    VX_LOCAL void visit_check_cell(vx::grid_check_cell cell) const
    { vxk_framework_grid_cell_visitor_visit_check_cell(f_handle, cell); }
};
class VX_API grid_cell_visitor_impl
    : public binding::implementation<grid_cell_visitor_impl, vx::grid_cell_visitor>
{
public:
    virtual void visit_action_cell(vx::grid_action_cell) {}
    virtual void visit_boolean_cell(vx::grid_boolean_cell) {}
    virtual void visit_enum_cell(vx::grid_enum_cell) {}
    virtual void visit_integer_cell(vx::grid_integer_cell) {}
    virtual void visit_floating_cell(vx::grid_floating_cell) {}
    virtual void visit_string_cell(vx::grid_string_cell) {}
    virtual void visit_assisted_string_cell(vx::grid_assisted_string_cell) {}
    virtual void visit_bitmap_cell(vx::grid_bitmap_cell) {}
    virtual void visit_canvas_cell(vx::grid_canvas_cell) {}
    virtual void visit_check_cell(vx::grid_check_cell) {}
    VX_LOCAL static char const* interface_name() { return vx_grid_cell_visitor_interface_name; }
    VX_LOCAL static vx_grid_cell_visitor_interface_table const* family_table();
protected:
    ~grid_cell_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_cell_visitor_interface_table grid_cell_visitor_family_table{
    &binding::generalize_slot<grid_cell_visitor_impl>,
    &binding::slot<&grid_cell_visitor_impl::visit_action_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_boolean_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_enum_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_integer_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_floating_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_string_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_assisted_string_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_bitmap_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_canvas_cell>::call,
    &binding::slot<&grid_cell_visitor_impl::visit_check_cell>::call,
};
inline vx_grid_cell_visitor_interface_table const* grid_cell_visitor_impl::family_table()
{ return &grid_cell_visitor_family_table; }
}
