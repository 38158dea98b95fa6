#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/data_sets_families.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(data_3d_visitor)
struct vx_data_3d_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_poly_data)(void const* table, void* self, t_vx_poly_data_3d_interface data);
    void (*visit_poly_data_ex)(void const* table, void* self, t_vx_poly_data_3d_interface data);
};
VX_BINDING_FUNCTIONS(data_3d_visitor, 6)
VX_LOCAL inline void vxk_framework_data_3d_visitor_visit_poly_data(
    t_vx_data_3d_visitor_interface h, t_vx_poly_data_3d_interface data)
{
    if (h.table && h.self)
        h.table->visit_poly_data(h.table, h.self, data);
}
VX_LOCAL inline void vxk_framework_data_3d_visitor_visit_poly_data_ex(
    t_vx_data_3d_visitor_interface h, t_vx_poly_data_3d_interface data)
{
    if (h.table && h.self)
        h.table->visit_poly_data_ex(h.table, h.self, data);
}
namespace vx
{
/// Receives spatial data by its form.
class VX_API data_3d_visitor : public binding::wrapper<t_vx_data_3d_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_poly_data(vx::poly_data_3d data) const
    { vxk_framework_data_3d_visitor_visit_poly_data(f_handle, data); }
    VX_LOCAL void visit_poly_data_ex(vx::poly_data_3d data) const
    { vxk_framework_data_3d_visitor_visit_poly_data_ex(f_handle, data); }
};
class VX_API data_3d_visitor_impl
    : public binding::implementation<data_3d_visitor_impl, vx::data_3d_visitor>
{
public:
    virtual void visit_poly_data(vx::poly_data_3d) {}
    virtual void visit_poly_data_ex(vx::poly_data_3d) {}
    VX_LOCAL static char const* interface_name() { return vx_data_3d_visitor_interface_name; }
    VX_LOCAL static vx_data_3d_visitor_interface_table const* family_table();
protected:
    ~data_3d_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_data_3d_visitor_interface_table data_3d_visitor_family_table{
    &binding::generalize_slot<data_3d_visitor_impl>,
    &binding::slot<&data_3d_visitor_impl::visit_poly_data>::call,
    &binding::slot<&data_3d_visitor_impl::visit_poly_data_ex>::call,
};
inline vx_data_3d_visitor_interface_table const* data_3d_visitor_impl::family_table()
{ return &data_3d_visitor_family_table; }
}
