#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/scenes_families.h"

VX_BINDING_HANDLE(viewer_visitor)
struct vx_viewer_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_viewer_interface any);
    void (*visit_2d)(void const* table, void* self, t_vx_viewer_2d_interface flat);
    void (*visit_custom_2d)(void const* table, void* self, t_vx_viewer_2d_interface custom);
};
VX_BINDING_FUNCTIONS(viewer_visitor, 94)
VX_LOCAL inline void vxk_framework_viewer_visitor_visit(
    t_vx_viewer_visitor_interface h, t_vx_viewer_interface any)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, any);
}
VX_LOCAL inline void vxk_framework_viewer_visitor_visit_2d(
    t_vx_viewer_visitor_interface h, t_vx_viewer_2d_interface flat)
{
    if (h.table && h.self)
        h.table->visit_2d(h.table, h.self, flat);
}
VX_LOCAL inline void vxk_framework_viewer_visitor_visit_custom_2d(
    t_vx_viewer_visitor_interface h, t_vx_viewer_2d_interface custom)
{
    if (h.table && h.self)
        h.table->visit_custom_2d(h.table, h.self, custom);
}
namespace vx
{
/// Receives a viewer by kind.
class VX_API viewer_visitor : public binding::wrapper<t_vx_viewer_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::viewer any) const
    { vxk_framework_viewer_visitor_visit(f_handle, any); }
    VX_LOCAL void visit_2d(vx::viewer_2d flat) const
    { vxk_framework_viewer_visitor_visit_2d(f_handle, flat); }
    VX_LOCAL void visit_custom_2d(vx::viewer_2d custom) const
    { vxk_framework_viewer_visitor_visit_custom_2d(f_handle, custom); }
};
class VX_API viewer_visitor_impl
    : public binding::implementation<viewer_visitor_impl, vx::viewer_visitor>
{
public:
    virtual void visit(vx::viewer) {}
    virtual void visit_2d(vx::viewer_2d) {}
    virtual void visit_custom_2d(vx::viewer_2d) {}
    VX_LOCAL static char const* interface_name() { return vx_viewer_visitor_interface_name; }
    VX_LOCAL static vx_viewer_visitor_interface_table const* family_table();
protected:
    ~viewer_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_viewer_visitor_interface_table viewer_visitor_family_table{
    &binding::generalize_slot<viewer_visitor_impl>,
    &binding::slot<&viewer_visitor_impl::visit>::call,
    &binding::slot<&viewer_visitor_impl::visit_2d>::call,
    &binding::slot<&viewer_visitor_impl::visit_custom_2d>::call,
};
inline vx_viewer_visitor_interface_table const* viewer_visitor_impl::family_table()
{ return &viewer_visitor_family_table; }
}
