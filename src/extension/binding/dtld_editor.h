#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/element_view.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"
#include "extension/binding/style_editor_data_source_visitor.h"

struct Ivx_layer;

VX_BINDING_HANDLE(dtld_editor)
struct vx_dtld_editor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_caption)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    Ivx_layer* (*dtld_layer)(void const* table, void* self);
    void (*with_data_source)(void const* table, void* self,
        t_vx_style_editor_data_source_visitor_interface visitor);
    void (*commit)(void const* table, void* self);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};
VX_BINDING_FUNCTIONS(dtld_editor, 3)
VX_LOCAL inline void vxk_framework_dtld_editor_with_caption(
    t_vx_dtld_editor_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_caption(h.table, h.self, visitor);
}
VX_LOCAL inline Ivx_layer* vxk_framework_dtld_editor_dtld_layer(t_vx_dtld_editor_interface h)
{
    return h.table && h.self ? h.table->dtld_layer(h.table, h.self) : nullptr;
}
VX_LOCAL inline void vxk_framework_dtld_editor_with_data_source(
    t_vx_dtld_editor_interface h, t_vx_style_editor_data_source_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_data_source(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_dtld_editor_commit(t_vx_dtld_editor_interface h)
{
    if (h.table && h.self)
        h.table->commit(h.table, h.self);
}
VX_LOCAL inline void vxk_framework_dtld_editor_reattach(
    t_vx_dtld_editor_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}
namespace vx
{
/// Model of a page for a dynamic text layer.
class VX_API dtld_editor : public binding::wrapper<t_vx_dtld_editor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_caption(vx::string_visitor visitor) const
    { vxk_framework_dtld_editor_with_caption(f_handle, visitor); }
    VX_LOCAL Ivx_layer* dtld_layer() const
    { return vxk_framework_dtld_editor_dtld_layer(f_handle); }
    VX_LOCAL void with_data_source(vx::style_editor_data_source_visitor visitor) const
    { vxk_framework_dtld_editor_with_data_source(f_handle, visitor); }
    VX_LOCAL void commit() const
    { vxk_framework_dtld_editor_commit(f_handle); }
    VX_LOCAL void reattach(vx::element_view view) const
    { vxk_framework_dtld_editor_reattach(f_handle, view); }
};
class VX_API dtld_editor_impl
    : public binding::implementation<dtld_editor_impl, vx::dtld_editor>
{
public:
    virtual void with_caption(vx::string_visitor) {}
    virtual Ivx_layer* dtld_layer() { return nullptr; }
    virtual void with_data_source(vx::style_editor_data_source_visitor) {}
    virtual void commit() {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_dtld_editor_interface_name; }
    VX_LOCAL static vx_dtld_editor_interface_table const* family_table();
protected:
    ~dtld_editor_impl() = default;
};
VX_LOCAL inline constexpr vx_dtld_editor_interface_table dtld_editor_family_table{
    &binding::generalize_slot<dtld_editor_impl>,
    &binding::slot<&dtld_editor_impl::with_caption>::call,
    &binding::slot<&dtld_editor_impl::dtld_layer>::call,
    &binding::slot<&dtld_editor_impl::with_data_source>::call,
    &binding::slot<&dtld_editor_impl::commit>::call,
    &binding::slot<&dtld_editor_impl::reattach>::call,
};
inline vx_dtld_editor_interface_table const* dtld_editor_impl::family_table()
{ return &dtld_editor_family_table; }
}
