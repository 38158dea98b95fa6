#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/text_settings_editor.h"

VX_BINDING_HANDLE(text_settings_editor_visitor)
struct vx_text_settings_editor_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_text_settings_editor_interface editor);
};
VX_BINDING_FUNCTIONS(text_settings_editor_visitor, 1)
VX_LOCAL inline void vxk_framework_text_settings_editor_visitor_visit(
    t_vx_text_settings_editor_visitor_interface h, t_vx_text_settings_editor_interface editor)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, editor);
}
namespace vx
{
/// Receives the model of a page.
class VX_API text_settings_editor_visitor : public binding::wrapper<t_vx_text_settings_editor_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::text_settings_editor editor) const
    { vxk_framework_text_settings_editor_visitor_visit(f_handle, editor); }
};
class VX_API text_settings_editor_visitor_impl
    : public binding::implementation<text_settings_editor_visitor_impl, vx::text_settings_editor_visitor>
{
public:
    virtual void visit(vx::text_settings_editor) {}
    VX_LOCAL static char const* interface_name() { return vx_text_settings_editor_visitor_interface_name; }
    VX_LOCAL static vx_text_settings_editor_visitor_interface_table const* family_table();
protected:
    ~text_settings_editor_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_text_settings_editor_visitor_interface_table text_settings_editor_visitor_family_table{
    &binding::generalize_slot<text_settings_editor_visitor_impl>,
    &binding::slot<&text_settings_editor_visitor_impl::visit>::call,
};
inline vx_text_settings_editor_visitor_interface_table const* text_settings_editor_visitor_impl::family_table()
{ return &text_settings_editor_visitor_family_table; }
}
