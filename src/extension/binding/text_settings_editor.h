#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/element_view.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"
#include "extension/binding/style_editor_data_source_visitor.h"

VX_BINDING_HANDLE(text_settings_editor)
struct vx_text_settings_editor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_caption)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void* (*text_settings)(void const* table, void* self);
    bool (*use_selection_styles)(void const* table, void* self);
    void (*with_data_source)(void const* table, void* self,
        t_vx_style_editor_data_source_visitor_interface visitor);
    void (*commit)(void const* table, void* self);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};
VX_BINDING_FUNCTIONS(text_settings_editor, 1)
VX_LOCAL inline void vxk_framework_text_settings_editor_with_caption(
    t_vx_text_settings_editor_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_caption(h.table, h.self, visitor);
}
VX_LOCAL inline void* vxk_framework_text_settings_editor_text_settings(t_vx_text_settings_editor_interface h)
{
    return h.table && h.self ? h.table->text_settings(h.table, h.self) : nullptr;
}
VX_LOCAL inline bool vxk_framework_text_settings_editor_use_selection_styles(
    t_vx_text_settings_editor_interface h)
{
    return h.table && h.self ? h.table->use_selection_styles(h.table, h.self) : false;
}
VX_LOCAL inline void vxk_framework_text_settings_editor_with_data_source(
    t_vx_text_settings_editor_interface h, t_vx_style_editor_data_source_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_data_source(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_text_settings_editor_commit(t_vx_text_settings_editor_interface h)
{
    if (h.table && h.self)
        h.table->commit(h.table, h.self);
}
VX_LOCAL inline void vxk_framework_text_settings_editor_reattach(
    t_vx_text_settings_editor_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}
namespace vx
{
/// Model of a page for text settings.
class VX_API text_settings_editor : public binding::wrapper<t_vx_text_settings_editor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_caption(vx::string_visitor visitor) const
    { vxk_framework_text_settings_editor_with_caption(f_handle, visitor); }
    VX_LOCAL void* text_settings() const
    { return vxk_framework_text_settings_editor_text_settings(f_handle); }
    VX_LOCAL bool use_selection_styles() const
    { return vxk_framework_text_settings_editor_use_selection_styles(f_handle); }
    VX_LOCAL void with_data_source(vx::style_editor_data_source_visitor visitor) const
    { vxk_framework_text_settings_editor_with_data_source(f_handle, visitor); }
    VX_LOCAL void commit() const
    { vxk_framework_text_settings_editor_commit(f_handle); }
    VX_LOCAL void reattach(vx::element_view view) const
    { vxk_framework_text_settings_editor_reattach(f_handle, view); }
};
class VX_API text_settings_editor_impl
    : public binding::implementation<text_settings_editor_impl, vx::text_settings_editor>
{
public:
    virtual void with_caption(vx::string_visitor) {}
    virtual void* text_settings() { return nullptr; }
    virtual bool use_selection_styles() { return false; }
    virtual void with_data_source(vx::style_editor_data_source_visitor) {}
    virtual void commit() {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_text_settings_editor_interface_name; }
    VX_LOCAL static vx_text_settings_editor_interface_table const* family_table();
protected:
    ~text_settings_editor_impl() = default;
};
VX_LOCAL inline constexpr vx_text_settings_editor_interface_table text_settings_editor_family_table{
    &binding::generalize_slot<text_settings_editor_impl>,
    &binding::slot<&text_settings_editor_impl::with_caption>::call,
    &binding::slot<&text_settings_editor_impl::text_settings>::call,
    &binding::slot<&text_settings_editor_impl::use_selection_styles>::call,
    &binding::slot<&text_settings_editor_impl::with_data_source>::call,
    &binding::slot<&text_settings_editor_impl::commit>::call,
    &binding::slot<&text_settings_editor_impl::reattach>::call,
};
inline vx_text_settings_editor_interface_table const* text_settings_editor_impl::family_table()
{ return &text_settings_editor_family_table; }
}
