#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/docker.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(docker_visitor)
struct vx_docker_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, wchar_t const* name, t_vx_docker_interface panel);
};
VX_BINDING_FUNCTIONS(docker_visitor, 91)
VX_LOCAL inline void vxk_framework_docker_visitor_visit(
    t_vx_docker_visitor_interface h, wchar_t const* name, t_vx_docker_interface panel)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, name, panel);
}
namespace vx
{
/// Receives a panel under a name that no other panel of the same place bears.
class VX_API docker_visitor : public binding::wrapper<t_vx_docker_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(wchar_t const* name, vx::docker panel) const
    { vxk_framework_docker_visitor_visit(f_handle, name, panel); }
};
class VX_API docker_visitor_impl
    : public binding::implementation<docker_visitor_impl, vx::docker_visitor>
{
public:
    virtual void visit(wchar_t const*, vx::docker) {}
    VX_LOCAL static char const* interface_name() { return vx_docker_visitor_interface_name; }
    VX_LOCAL static vx_docker_visitor_interface_table const* family_table();
protected:
    ~docker_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_docker_visitor_interface_table docker_visitor_family_table{
    &binding::generalize_slot<docker_visitor_impl>,
    &binding::slot<&docker_visitor_impl::visit>::call,
};
inline vx_docker_visitor_interface_table const* docker_visitor_impl::family_table()
{ return &docker_visitor_family_table; }
}
