#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/docker.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(scene_2d_parameters_docker_visitor)
struct vx_scene_2d_parameters_docker_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_docker)(void const* table, void* self, t_vx_docker_interface panel);
};
VX_BINDING_FUNCTIONS(scene_2d_parameters_docker_visitor, 80)
VX_LOCAL inline void vxk_framework_scene_2d_parameters_docker_visitor_visit_docker(
    t_vx_scene_2d_parameters_docker_visitor_interface h, t_vx_docker_interface panel)
{
    if (h.table && h.self)
        h.table->visit_docker(h.table, h.self, panel);
}
namespace vx
{
/// Receives a panel.
class VX_API scene_2d_parameters_docker_visitor : public binding::wrapper<t_vx_scene_2d_parameters_docker_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_docker(vx::docker panel) const
    { vxk_framework_scene_2d_parameters_docker_visitor_visit_docker(f_handle, panel); }
};
class VX_API scene_2d_parameters_docker_visitor_impl
    : public binding::implementation<scene_2d_parameters_docker_visitor_impl,
        vx::scene_2d_parameters_docker_visitor>
{
public:
    virtual void visit_docker(vx::docker) {}
    VX_LOCAL static char const* interface_name() { return vx_scene_2d_parameters_docker_visitor_interface_name; }
    VX_LOCAL static vx_scene_2d_parameters_docker_visitor_interface_table const* family_table();
protected:
    ~scene_2d_parameters_docker_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_scene_2d_parameters_docker_visitor_interface_table scene_2d_parameters_docker_visitor_family_table{
    &binding::generalize_slot<scene_2d_parameters_docker_visitor_impl>,
    &binding::slot<&scene_2d_parameters_docker_visitor_impl::visit_docker>::call,
};
inline vx_scene_2d_parameters_docker_visitor_interface_table const* scene_2d_parameters_docker_visitor_impl::family_table()
{ return &scene_2d_parameters_docker_visitor_family_table; }
}
