#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/layer_2d_editor_extension_service.h"

VX_BINDING_HANDLE(layer_2d_editor_extension_service_visitor)
struct vx_layer_2d_editor_extension_service_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_layer_2d_editor_extension_service_interface service);
};
VX_BINDING_FUNCTIONS(layer_2d_editor_extension_service_visitor, 98)
VX_LOCAL inline void vxk_framework_layer_2d_editor_extension_service_visitor_visit(
    t_vx_layer_2d_editor_extension_service_visitor_interface h,
        t_vx_layer_2d_editor_extension_service_interface service)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, service);
}
namespace vx
{
/// Receives a service.
class VX_API layer_2d_editor_extension_service_visitor : public binding::wrapper<t_vx_layer_2d_editor_extension_service_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::layer_2d_editor_extension_service service) const
    { vxk_framework_layer_2d_editor_extension_service_visitor_visit(f_handle, service); }
};
class VX_API layer_2d_editor_extension_service_visitor_impl
    : public binding::implementation<layer_2d_editor_extension_service_visitor_impl,
        vx::layer_2d_editor_extension_service_visitor>
{
public:
    virtual void visit(vx::layer_2d_editor_extension_service) {}
    VX_LOCAL static char const* interface_name() { return vx_layer_2d_editor_extension_service_visitor_interface_name; }
    VX_LOCAL static vx_layer_2d_editor_extension_service_visitor_interface_table const* family_table();
protected:
    ~layer_2d_editor_extension_service_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_layer_2d_editor_extension_service_visitor_interface_table layer_2d_editor_extension_service_visitor_family_table{
    &binding::generalize_slot<layer_2d_editor_extension_service_visitor_impl>,
    &binding::slot<&layer_2d_editor_extension_service_visitor_impl::visit>::call,
};
inline vx_layer_2d_editor_extension_service_visitor_interface_table const* layer_2d_editor_extension_service_visitor_impl::family_table()
{ return &layer_2d_editor_extension_service_visitor_family_table; }
}
