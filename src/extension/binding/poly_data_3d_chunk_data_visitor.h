#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/data_sets_families.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(poly_data_3d_chunk_data_visitor)
struct vx_poly_data_3d_chunk_data_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_poly_data_3d_attr_buffer_interface data);
    void (*visit_ex)(void const* table, void* self, t_vx_poly_data_3d_attr_buffers_interface data);
};
VX_BINDING_FUNCTIONS(poly_data_3d_chunk_data_visitor, 5)
VX_LOCAL inline void vxk_framework_poly_data_3d_chunk_data_visitor_visit(
    t_vx_poly_data_3d_chunk_data_visitor_interface h, t_vx_poly_data_3d_attr_buffer_interface data)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, data);
}
VX_LOCAL inline void vxk_framework_poly_data_3d_chunk_data_visitor_visit_ex(
    t_vx_poly_data_3d_chunk_data_visitor_interface h, t_vx_poly_data_3d_attr_buffers_interface data)
{
    if (h.table && h.self)
        h.table->visit_ex(h.table, h.self, data);
}
namespace vx
{
/// Receives the attribute values of a chunk.
class VX_API poly_data_3d_chunk_data_visitor : public binding::wrapper<t_vx_poly_data_3d_chunk_data_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::poly_data_3d_attr_buffer data) const
    { vxk_framework_poly_data_3d_chunk_data_visitor_visit(f_handle, data); }
    VX_LOCAL void visit_ex(vx::poly_data_3d_attr_buffers data) const
    { vxk_framework_poly_data_3d_chunk_data_visitor_visit_ex(f_handle, data); }
};
class VX_API poly_data_3d_chunk_data_visitor_impl
    : public binding::implementation<poly_data_3d_chunk_data_visitor_impl,
        vx::poly_data_3d_chunk_data_visitor>
{
public:
    virtual void visit(vx::poly_data_3d_attr_buffer) {}
    virtual void visit_ex(vx::poly_data_3d_attr_buffers) {}
    VX_LOCAL static char const* interface_name() { return vx_poly_data_3d_chunk_data_visitor_interface_name; }
    VX_LOCAL static vx_poly_data_3d_chunk_data_visitor_interface_table const* family_table();
protected:
    ~poly_data_3d_chunk_data_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_poly_data_3d_chunk_data_visitor_interface_table poly_data_3d_chunk_data_visitor_family_table{
    &binding::generalize_slot<poly_data_3d_chunk_data_visitor_impl>,
    &binding::slot<&poly_data_3d_chunk_data_visitor_impl::visit>::call,
    &binding::slot<&poly_data_3d_chunk_data_visitor_impl::visit_ex>::call,
};
inline vx_poly_data_3d_chunk_data_visitor_interface_table const* poly_data_3d_chunk_data_visitor_impl::family_table()
{ return &poly_data_3d_chunk_data_visitor_family_table; }
}
