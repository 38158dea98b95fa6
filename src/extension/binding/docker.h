#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/element_view.h"
#include "extension/binding/elements_families.h"
#include "extension/binding/grid_layout.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(docker)
struct vx_docker_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_icon)(void const* table, void* self, t_vx_bitmap_visitor_interface visitor);
    void (*with_caption)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void (*with_element)(void const* table, void* self, t_vx_element_visitor_interface visitor);
    bool (*visible)(void const* table, void* self);
    int (*help_context)(void const* table, void* self);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};
VX_BINDING_FUNCTIONS(docker, 92)
VX_LOCAL inline void vxk_framework_docker_with_icon(
    t_vx_docker_interface h, t_vx_bitmap_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_icon(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_docker_with_caption(
    t_vx_docker_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_caption(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_docker_with_element(
    t_vx_docker_interface h, t_vx_element_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_element(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_framework_docker_visible(t_vx_docker_interface h)
{
    return h.table && h.self ? h.table->visible(h.table, h.self) : true;
}
VX_LOCAL inline int vxk_framework_docker_help_context(t_vx_docker_interface h)
{
    return h.table && h.self ? h.table->help_context(h.table, h.self) : -1;
}
VX_LOCAL inline void vxk_framework_docker_reattach(t_vx_docker_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}
namespace vx
{
/// A panel of another module.
class VX_API docker : public binding::wrapper<t_vx_docker_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_icon(vx::bitmap_visitor visitor) const
    { vxk_framework_docker_with_icon(f_handle, visitor); }
    VX_LOCAL void with_caption(vx::string_visitor visitor) const
    { vxk_framework_docker_with_caption(f_handle, visitor); }
    VX_LOCAL void with_element(vx::element_visitor visitor) const
    { vxk_framework_docker_with_element(f_handle, visitor); }
    VX_LOCAL bool visible() const
    { return vxk_framework_docker_visible(f_handle); }
    VX_LOCAL int help_context() const
    { return vxk_framework_docker_help_context(f_handle); }
    /// Null: the view goes away.
    VX_LOCAL void reattach(vx::element_view view) const
    { vxk_framework_docker_reattach(f_handle, view); }
};
class VX_API docker_impl
    : public binding::implementation<docker_impl, vx::docker>
{
public:
    virtual void with_icon(vx::bitmap_visitor) {}
    virtual void with_caption(vx::string_visitor) {}
    virtual void with_element(vx::element_visitor) {}
    virtual bool visible() { return true; }
    virtual int help_context() { return -1; }
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_docker_interface_name; }
    VX_LOCAL static vx_docker_interface_table const* family_table();
protected:
    ~docker_impl() = default;
};
VX_LOCAL inline constexpr vx_docker_interface_table docker_family_table{
    &binding::generalize_slot<docker_impl>,
    &binding::slot<&docker_impl::with_icon>::call,
    &binding::slot<&docker_impl::with_caption>::call,
    &binding::slot<&docker_impl::with_element>::call,
    &binding::slot<&docker_impl::visible>::call,
    &binding::slot<&docker_impl::help_context>::call,
    &binding::slot<&docker_impl::reattach>::call,
};
inline vx_docker_interface_table const* docker_impl::family_table()
{ return &docker_family_table; }
}
