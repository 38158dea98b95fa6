#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/grids_families.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(outline_column_variant_visitor)
struct vx_outline_column_variant_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_action_column_variant)(void const* table, void* self,
        t_vx_action_outline_column_variant_interface variant);
    void (*visit_boolean_column_variant)(void const* table, void* self,
        t_vx_boolean_outline_column_variant_interface variant);
    void (*visit_enum_column_variant)(void const* table, void* self,
        t_vx_enum_outline_column_variant_interface variant);
    void (*visit_integer_column_variant)(void const* table, void* self,
        t_vx_integer_outline_column_variant_interface variant);
    void (*visit_floating_column_variant)(void const* table, void* self,
        t_vx_floating_outline_column_variant_interface variant);
    void (*visit_string_column_variant)(void const* table, void* self,
        t_vx_string_outline_column_variant_interface variant);
    void (*visit_bitmap_column_variant)(void const* table, void* self,
        t_vx_bitmap_outline_column_variant_interface variant);
    void (*visit_render_column_variant)(void const* table, void* self,
        t_vx_canvas_outline_column_variant_interface variant);
};
VX_BINDING_FUNCTIONS(outline_column_variant_visitor, 2)
VX_LOCAL inline void vxk_framework_outline_column_variant_visitor_visit_action_column_variant(
    t_vx_outline_column_variant_visitor_interface h, t_vx_action_outline_column_variant_interface variant)
{
    if (h.table && h.self)
        h.table->visit_action_column_variant(h.table, h.self, variant);
}
VX_LOCAL inline void vxk_framework_outline_column_variant_visitor_visit_boolean_column_variant(
    t_vx_outline_column_variant_visitor_interface h, t_vx_boolean_outline_column_variant_interface variant)
{
    if (h.table && h.self)
        h.table->visit_boolean_column_variant(h.table, h.self, variant);
}
VX_LOCAL inline void vxk_framework_outline_column_variant_visitor_visit_enum_column_variant(
    t_vx_outline_column_variant_visitor_interface h, t_vx_enum_outline_column_variant_interface variant)
{
    if (h.table && h.self)
        h.table->visit_enum_column_variant(h.table, h.self, variant);
}
VX_LOCAL inline void vxk_framework_outline_column_variant_visitor_visit_integer_column_variant(
    t_vx_outline_column_variant_visitor_interface h, t_vx_integer_outline_column_variant_interface variant)
{
    if (h.table && h.self)
        h.table->visit_integer_column_variant(h.table, h.self, variant);
}
VX_LOCAL inline void vxk_framework_outline_column_variant_visitor_visit_floating_column_variant(
    t_vx_outline_column_variant_visitor_interface h, t_vx_floating_outline_column_variant_interface variant)
{
    if (h.table && h.self)
        h.table->visit_floating_column_variant(h.table, h.self, variant);
}
VX_LOCAL inline void vxk_framework_outline_column_variant_visitor_visit_string_column_variant(
    t_vx_outline_column_variant_visitor_interface h, t_vx_string_outline_column_variant_interface variant)
{
    if (h.table && h.self)
        h.table->visit_string_column_variant(h.table, h.self, variant);
}
VX_LOCAL inline void vxk_framework_outline_column_variant_visitor_visit_bitmap_column_variant(
    t_vx_outline_column_variant_visitor_interface h, t_vx_bitmap_outline_column_variant_interface variant)
{
    if (h.table && h.self)
        h.table->visit_bitmap_column_variant(h.table, h.self, variant);
}
VX_LOCAL inline void vxk_framework_outline_column_variant_visitor_visit_render_column_variant(
    t_vx_outline_column_variant_visitor_interface h, t_vx_canvas_outline_column_variant_interface variant)
{
    if (h.table && h.self)
        h.table->visit_render_column_variant(h.table, h.self, variant);
}
namespace vx
{
/// Receives one of the forms of a column of mixed cells.
class VX_API outline_column_variant_visitor : public binding::wrapper<t_vx_outline_column_variant_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_action_column_variant(vx::action_outline_column_variant variant) const
    { vxk_framework_outline_column_variant_visitor_visit_action_column_variant(f_handle, variant); }
    VX_LOCAL void visit_boolean_column_variant(vx::boolean_outline_column_variant variant) const
    { vxk_framework_outline_column_variant_visitor_visit_boolean_column_variant(f_handle, variant); }
    VX_LOCAL void visit_enum_column_variant(vx::enum_outline_column_variant variant) const
    { vxk_framework_outline_column_variant_visitor_visit_enum_column_variant(f_handle, variant); }
    VX_LOCAL void visit_integer_column_variant(vx::integer_outline_column_variant variant) const
    { vxk_framework_outline_column_variant_visitor_visit_integer_column_variant(f_handle, variant); }
    VX_LOCAL void visit_floating_column_variant(vx::floating_outline_column_variant variant) const
    { vxk_framework_outline_column_variant_visitor_visit_floating_column_variant(f_handle, variant); }
    VX_LOCAL void visit_string_column_variant(vx::string_outline_column_variant variant) const
    { vxk_framework_outline_column_variant_visitor_visit_string_column_variant(f_handle, variant); }
    VX_LOCAL void visit_bitmap_column_variant(vx::bitmap_outline_column_variant variant) const
    { vxk_framework_outline_column_variant_visitor_visit_bitmap_column_variant(f_handle, variant); }
    VX_LOCAL void visit_render_column_variant(vx::canvas_outline_column_variant variant) const
    { vxk_framework_outline_column_variant_visitor_visit_render_column_variant(f_handle, variant); }
};
class VX_API outline_column_variant_visitor_impl
    : public binding::implementation<outline_column_variant_visitor_impl, vx::outline_column_variant_visitor>
{
public:
    virtual void visit_action_column_variant(vx::action_outline_column_variant) {}
    virtual void visit_boolean_column_variant(vx::boolean_outline_column_variant) {}
    virtual void visit_enum_column_variant(vx::enum_outline_column_variant) {}
    virtual void visit_integer_column_variant(vx::integer_outline_column_variant) {}
    virtual void visit_floating_column_variant(vx::floating_outline_column_variant) {}
    virtual void visit_string_column_variant(vx::string_outline_column_variant) {}
    virtual void visit_bitmap_column_variant(vx::bitmap_outline_column_variant) {}
    virtual void visit_render_column_variant(vx::canvas_outline_column_variant) {}
    VX_LOCAL static char const* interface_name() { return vx_outline_column_variant_visitor_interface_name; }
    VX_LOCAL static vx_outline_column_variant_visitor_interface_table const* family_table();
protected:
    ~outline_column_variant_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_outline_column_variant_visitor_interface_table outline_column_variant_visitor_family_table{
    &binding::generalize_slot<outline_column_variant_visitor_impl>,
    &binding::slot<&outline_column_variant_visitor_impl::visit_action_column_variant>::call,
    &binding::slot<&outline_column_variant_visitor_impl::visit_boolean_column_variant>::call,
    &binding::slot<&outline_column_variant_visitor_impl::visit_enum_column_variant>::call,
    &binding::slot<&outline_column_variant_visitor_impl::visit_integer_column_variant>::call,
    &binding::slot<&outline_column_variant_visitor_impl::visit_floating_column_variant>::call,
    &binding::slot<&outline_column_variant_visitor_impl::visit_string_column_variant>::call,
    &binding::slot<&outline_column_variant_visitor_impl::visit_bitmap_column_variant>::call,
    &binding::slot<&outline_column_variant_visitor_impl::visit_render_column_variant>::call,
};
inline vx_outline_column_variant_visitor_interface_table const* outline_column_variant_visitor_impl::family_table()
{ return &outline_column_variant_visitor_family_table; }
}
