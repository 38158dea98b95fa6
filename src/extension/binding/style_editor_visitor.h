#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/style_editor.h"

VX_BINDING_HANDLE(style_editor_visitor)
struct vx_style_editor_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_style_editor_interface editor);
};
VX_BINDING_FUNCTIONS(style_editor_visitor, 5)
VX_LOCAL inline void vxk_framework_style_editor_visitor_visit(
    t_vx_style_editor_visitor_interface h, t_vx_style_editor_interface editor)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, editor);
}
namespace vx
{
/// Receives the model of a page.
class VX_API style_editor_visitor : public binding::wrapper<t_vx_style_editor_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::style_editor editor) const
    { vxk_framework_style_editor_visitor_visit(f_handle, editor); }
};
class VX_API style_editor_visitor_impl
    : public binding::implementation<style_editor_visitor_impl, vx::style_editor_visitor>
{
public:
    virtual void visit(vx::style_editor) {}
    VX_LOCAL static char const* interface_name() { return vx_style_editor_visitor_interface_name; }
    VX_LOCAL static vx_style_editor_visitor_interface_table const* family_table();
protected:
    ~style_editor_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_style_editor_visitor_interface_table style_editor_visitor_family_table{
    &binding::generalize_slot<style_editor_visitor_impl>,
    &binding::slot<&style_editor_visitor_impl::visit>::call,
};
inline vx_style_editor_visitor_interface_table const* style_editor_visitor_impl::family_table()
{ return &style_editor_visitor_family_table; }
}
