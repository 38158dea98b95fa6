#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/grids_families.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(outline_column_visitor)
struct vx_outline_column_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_action_column)(void const* table, void* self, t_vx_action_outline_column_interface column);
    void (*visit_boolean_column)(void const* table, void* self, t_vx_boolean_outline_column_interface column);
    void (*visit_enum_column)(void const* table, void* self, t_vx_enum_outline_column_interface column);
    void (*visit_integer_column)(void const* table, void* self, t_vx_integer_outline_column_interface column);
    void (*visit_floating_column)(void const* table, void* self,
        t_vx_floating_outline_column_interface column);
    void (*visit_string_column)(void const* table, void* self, t_vx_string_outline_column_interface column);
    void (*visit_assisted_string_column)(void const* table, void* self,
        t_vx_assisted_string_outline_column_interface column);
    void (*visit_lookup_column)(void const* table, void* self, t_vx_lookup_outline_column_interface column);
    void (*visit_bitmap_column)(void const* table, void* self, t_vx_bitmap_outline_column_interface column);
    void (*visit_canvas_column)(void const* table, void* self, t_vx_canvas_outline_column_interface column);
    void (*visit_variant_column)(void const* table, void* self, t_vx_variant_outline_column_interface column);
};
VX_BINDING_FUNCTIONS(outline_column_visitor, 23)
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_action_column(
    t_vx_outline_column_visitor_interface h, t_vx_action_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_action_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_boolean_column(
    t_vx_outline_column_visitor_interface h, t_vx_boolean_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_boolean_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_enum_column(
    t_vx_outline_column_visitor_interface h, t_vx_enum_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_enum_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_integer_column(
    t_vx_outline_column_visitor_interface h, t_vx_integer_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_integer_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_floating_column(
    t_vx_outline_column_visitor_interface h, t_vx_floating_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_floating_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_string_column(
    t_vx_outline_column_visitor_interface h, t_vx_string_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_string_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_assisted_string_column(
    t_vx_outline_column_visitor_interface h, t_vx_assisted_string_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_assisted_string_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_lookup_column(
    t_vx_outline_column_visitor_interface h, t_vx_lookup_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_lookup_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_bitmap_column(
    t_vx_outline_column_visitor_interface h, t_vx_bitmap_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_bitmap_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_canvas_column(
    t_vx_outline_column_visitor_interface h, t_vx_canvas_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_canvas_column(h.table, h.self, column);
}
VX_LOCAL inline void vxk_framework_outline_column_visitor_visit_variant_column(
    t_vx_outline_column_visitor_interface h, t_vx_variant_outline_column_interface column)
{
    if (h.table && h.self)
        h.table->visit_variant_column(h.table, h.self, column);
}
namespace vx
{
/// Receives a column by kind.
class VX_API outline_column_visitor : public binding::wrapper<t_vx_outline_column_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_action_column(vx::action_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_action_column(f_handle, column); }
    VX_LOCAL void visit_boolean_column(vx::boolean_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_boolean_column(f_handle, column); }
    VX_LOCAL void visit_enum_column(vx::enum_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_enum_column(f_handle, column); }
    VX_LOCAL void visit_integer_column(vx::integer_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_integer_column(f_handle, column); }
    VX_LOCAL void visit_floating_column(vx::floating_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_floating_column(f_handle, column); }
    VX_LOCAL void visit_string_column(vx::string_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_string_column(f_handle, column); }
    VX_LOCAL void visit_assisted_string_column(vx::assisted_string_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_assisted_string_column(f_handle, column); }
    VX_LOCAL void visit_lookup_column(vx::lookup_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_lookup_column(f_handle, column); }
    VX_LOCAL void visit_bitmap_column(vx::bitmap_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_bitmap_column(f_handle, column); }
    VX_LOCAL void visit_canvas_column(vx::canvas_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_canvas_column(f_handle, column); }
    VX_LOCAL void visit_variant_column(vx::variant_outline_column column) const
    { vxk_framework_outline_column_visitor_visit_variant_column(f_handle, column); }
};
class VX_API outline_column_visitor_impl
    : public binding::implementation<outline_column_visitor_impl, vx::outline_column_visitor>
{
public:
    virtual void visit_action_column(vx::action_outline_column) {}
    virtual void visit_boolean_column(vx::boolean_outline_column) {}
    virtual void visit_enum_column(vx::enum_outline_column) {}
    virtual void visit_integer_column(vx::integer_outline_column) {}
    virtual void visit_floating_column(vx::floating_outline_column) {}
    virtual void visit_string_column(vx::string_outline_column) {}
    virtual void visit_assisted_string_column(vx::assisted_string_outline_column) {}
    virtual void visit_lookup_column(vx::lookup_outline_column) {}
    virtual void visit_bitmap_column(vx::bitmap_outline_column) {}
    virtual void visit_canvas_column(vx::canvas_outline_column) {}
    virtual void visit_variant_column(vx::variant_outline_column) {}
    VX_LOCAL static char const* interface_name() { return vx_outline_column_visitor_interface_name; }
    VX_LOCAL static vx_outline_column_visitor_interface_table const* family_table();
protected:
    ~outline_column_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_outline_column_visitor_interface_table outline_column_visitor_family_table{
    &binding::generalize_slot<outline_column_visitor_impl>,
    &binding::slot<&outline_column_visitor_impl::visit_action_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_boolean_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_enum_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_integer_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_floating_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_string_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_assisted_string_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_lookup_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_bitmap_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_canvas_column>::call,
    &binding::slot<&outline_column_visitor_impl::visit_variant_column>::call,
};
inline vx_outline_column_visitor_interface_table const* outline_column_visitor_impl::family_table()
{ return &outline_column_visitor_family_table; }
}
