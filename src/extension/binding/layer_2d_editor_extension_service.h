#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/docker_visitor.h"
#include "extension/binding/dtld_editor_visitor.h"
#include "extension/binding/interface.h"
#include "extension/binding/referent.h"
#include "extension/binding/style_editor_visitor.h"
#include "extension/binding/style_list_editor_visitor.h"
#include "extension/binding/text_settings_editor_visitor.h"

struct Ivx_layer;

VX_BINDING_HANDLE(layer_2d_editor_extension_service)
struct vx_layer_2d_editor_extension_service_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    t_vx_referent_interface* (*as_referent)(t_vx_referent_interface* result, void const* table, void* self);
    void (*with_docker)(void const* table, void* self, t_vx_docker_visitor_interface visitor);
    void (*set_layer)(void const* table, void* self, Ivx_layer* layer);
    void (*with_style_editor)(void const* table, void* self, t_vx_style_editor_visitor_interface visitor);
    void (*with_dtld_editor)(void const* table, void* self, t_vx_dtld_editor_visitor_interface visitor);
    void (*with_style_list_editor)(void const* table, void* self,
        t_vx_style_list_editor_visitor_interface visitor);
    void (*with_text_settings_editor)(void const* table, void* self,
        t_vx_text_settings_editor_visitor_interface visitor);
    int (*priority)(void const* table, void* self);
};
VX_BINDING_FUNCTIONS(layer_2d_editor_extension_service, 98)
VX_LOCAL inline t_vx_referent_interface vxk_framework_layer_2d_editor_extension_service_as_referent(
    t_vx_layer_2d_editor_extension_service_interface h)
{
    t_vx_referent_interface result;
    if (h.table && h.self)
        h.table->as_referent(&result, h.table, h.self);
    return result;
}
VX_LOCAL inline void vxk_framework_layer_2d_editor_extension_service_with_docker(
    t_vx_layer_2d_editor_extension_service_interface h, t_vx_docker_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_docker(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_layer_2d_editor_extension_service_set_layer(
    t_vx_layer_2d_editor_extension_service_interface h, Ivx_layer* layer)
{
    if (h.table && h.self)
        h.table->set_layer(h.table, h.self, layer);
}
VX_LOCAL inline void vxk_framework_layer_2d_editor_extension_service_with_style_editor(
    t_vx_layer_2d_editor_extension_service_interface h, t_vx_style_editor_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_style_editor(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_layer_2d_editor_extension_service_with_dtld_editor(
    t_vx_layer_2d_editor_extension_service_interface h, t_vx_dtld_editor_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_dtld_editor(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_layer_2d_editor_extension_service_with_style_list_editor(
    t_vx_layer_2d_editor_extension_service_interface h, t_vx_style_list_editor_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_style_list_editor(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_layer_2d_editor_extension_service_with_text_settings_editor(
    t_vx_layer_2d_editor_extension_service_interface h, t_vx_text_settings_editor_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_text_settings_editor(h.table, h.self, visitor);
}
VX_LOCAL inline int vxk_framework_layer_2d_editor_extension_service_priority(
    t_vx_layer_2d_editor_extension_service_interface h)
{
    return h.table && h.self ? h.table->priority(h.table, h.self) : 1;
}
namespace vx
{
/// Adds pages to the editor of a layer.
class VX_API layer_2d_editor_extension_service : public binding::wrapper<t_vx_layer_2d_editor_extension_service_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL vx::referent as_referent() const
    { return vxk_framework_layer_2d_editor_extension_service_as_referent(f_handle); }
    VX_LOCAL void with_docker(vx::docker_visitor visitor) const
    { vxk_framework_layer_2d_editor_extension_service_with_docker(f_handle, visitor); }
    VX_LOCAL void set_layer(Ivx_layer* layer) const
    { vxk_framework_layer_2d_editor_extension_service_set_layer(f_handle, layer); }
    VX_LOCAL void with_style_editor(vx::style_editor_visitor visitor) const
    { vxk_framework_layer_2d_editor_extension_service_with_style_editor(f_handle, visitor); }
    VX_LOCAL void with_dtld_editor(vx::dtld_editor_visitor visitor) const
    { vxk_framework_layer_2d_editor_extension_service_with_dtld_editor(f_handle, visitor); }
    VX_LOCAL void with_style_list_editor(vx::style_list_editor_visitor visitor) const
    { vxk_framework_layer_2d_editor_extension_service_with_style_list_editor(f_handle, visitor); }
    VX_LOCAL void with_text_settings_editor(vx::text_settings_editor_visitor visitor) const
    { vxk_framework_layer_2d_editor_extension_service_with_text_settings_editor(f_handle, visitor); }
    /// Services are asked in ascending order.
    VX_LOCAL int priority() const
    { return vxk_framework_layer_2d_editor_extension_service_priority(f_handle); }
};
class VX_API layer_2d_editor_extension_service_impl
    : public binding::implementation<layer_2d_editor_extension_service_impl,
        vx::layer_2d_editor_extension_service>
{
public:
    virtual vx::referent as_referent() { return {}; }
    virtual void with_docker(vx::docker_visitor) {}
    virtual void set_layer(Ivx_layer*) {}
    virtual void with_style_editor(vx::style_editor_visitor) {}
    virtual void with_dtld_editor(vx::dtld_editor_visitor) {}
    virtual void with_style_list_editor(vx::style_list_editor_visitor) {}
    virtual void with_text_settings_editor(vx::text_settings_editor_visitor) {}
    virtual int priority() { return 1; }
    VX_LOCAL static char const* interface_name() { return vx_layer_2d_editor_extension_service_interface_name; }
    VX_LOCAL static vx_layer_2d_editor_extension_service_interface_table const* family_table();
protected:
    ~layer_2d_editor_extension_service_impl() = default;
};
VX_LOCAL inline constexpr vx_layer_2d_editor_extension_service_interface_table layer_2d_editor_extension_service_family_table{
    &binding::generalize_slot<layer_2d_editor_extension_service_impl>,
    &binding::slot<&layer_2d_editor_extension_service_impl::as_referent>::call,
    &binding::slot<&layer_2d_editor_extension_service_impl::with_docker>::call,
    &binding::slot<&layer_2d_editor_extension_service_impl::set_layer>::call,
    &binding::slot<&layer_2d_editor_extension_service_impl::with_style_editor>::call,
    &binding::slot<&layer_2d_editor_extension_service_impl::with_dtld_editor>::call,
    &binding::slot<&layer_2d_editor_extension_service_impl::with_style_list_editor>::call,
    &binding::slot<&layer_2d_editor_extension_service_impl::with_text_settings_editor>::call,
    &binding::slot<&layer_2d_editor_extension_service_impl::priority>::call,
};
inline vx_layer_2d_editor_extension_service_interface_table const* layer_2d_editor_extension_service_impl::family_table()
{ return &layer_2d_editor_extension_service_family_table; }
}
