#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(poly_data_3d_attr_def_visitor)
struct vx_poly_data_3d_attr_def_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_integer_attr)(void const* table, void* self, wchar_t const* name);
    void (*visit_floating_attr)(void const* table, void* self, wchar_t const* name);
    void (*visit_short_floating_attr)(void const* table, void* self, wchar_t const* name);
    void (*visit_string_attr)(void const* table, void* self, wchar_t const* name);
};
VX_BINDING_FUNCTIONS(poly_data_3d_attr_def_visitor, 0)
VX_LOCAL inline void vxk_framework_poly_data_3d_attr_def_visitor_visit_integer_attr(
    t_vx_poly_data_3d_attr_def_visitor_interface h, wchar_t const* name)
{
    if (h.table && h.self)
        h.table->visit_integer_attr(h.table, h.self, name);
}
VX_LOCAL inline void vxk_framework_poly_data_3d_attr_def_visitor_visit_floating_attr(
    t_vx_poly_data_3d_attr_def_visitor_interface h, wchar_t const* name)
{
    if (h.table && h.self)
        h.table->visit_floating_attr(h.table, h.self, name);
}
VX_LOCAL inline void vxk_framework_poly_data_3d_attr_def_visitor_visit_short_floating_attr(
    t_vx_poly_data_3d_attr_def_visitor_interface h, wchar_t const* name)
{
    if (h.table && h.self)
        h.table->visit_short_floating_attr(h.table, h.self, name);
}
VX_LOCAL inline void vxk_framework_poly_data_3d_attr_def_visitor_visit_string_attr(
    t_vx_poly_data_3d_attr_def_visitor_interface h, wchar_t const* name)
{
    if (h.table && h.self)
        h.table->visit_string_attr(h.table, h.self, name);
}
namespace vx
{
/// Receives the attributes of spatial data by type.
class VX_API poly_data_3d_attr_def_visitor : public binding::wrapper<t_vx_poly_data_3d_attr_def_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_integer_attr(wchar_t const* name) const
    { vxk_framework_poly_data_3d_attr_def_visitor_visit_integer_attr(f_handle, name); }
    VX_LOCAL void visit_floating_attr(wchar_t const* name) const
    { vxk_framework_poly_data_3d_attr_def_visitor_visit_floating_attr(f_handle, name); }
    VX_LOCAL void visit_short_floating_attr(wchar_t const* name) const
    { vxk_framework_poly_data_3d_attr_def_visitor_visit_short_floating_attr(f_handle, name); }
    VX_LOCAL void visit_string_attr(wchar_t const* name) const
    { vxk_framework_poly_data_3d_attr_def_visitor_visit_string_attr(f_handle, name); }
};
class VX_API poly_data_3d_attr_def_visitor_impl
    : public binding::implementation<poly_data_3d_attr_def_visitor_impl, vx::poly_data_3d_attr_def_visitor>
{
public:
    virtual void visit_integer_attr(wchar_t const*) {}
    virtual void visit_floating_attr(wchar_t const*) {}
    virtual void visit_short_floating_attr(wchar_t const*) {}
    virtual void visit_string_attr(wchar_t const*) {}
    VX_LOCAL static char const* interface_name() { return vx_poly_data_3d_attr_def_visitor_interface_name; }
    VX_LOCAL static vx_poly_data_3d_attr_def_visitor_interface_table const* family_table();
protected:
    ~poly_data_3d_attr_def_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_poly_data_3d_attr_def_visitor_interface_table poly_data_3d_attr_def_visitor_family_table{
    &binding::generalize_slot<poly_data_3d_attr_def_visitor_impl>,
    &binding::slot<&poly_data_3d_attr_def_visitor_impl::visit_integer_attr>::call,
    &binding::slot<&poly_data_3d_attr_def_visitor_impl::visit_floating_attr>::call,
    &binding::slot<&poly_data_3d_attr_def_visitor_impl::visit_short_floating_attr>::call,
    &binding::slot<&poly_data_3d_attr_def_visitor_impl::visit_string_attr>::call,
};
inline vx_poly_data_3d_attr_def_visitor_interface_table const* poly_data_3d_attr_def_visitor_impl::family_table()
{ return &poly_data_3d_attr_def_visitor_family_table; }
}
