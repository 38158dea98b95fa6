#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/element_view.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(multiline_output)
struct vx_multiline_output_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_text)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};
VX_BINDING_FUNCTIONS(multiline_output, 1)
VX_LOCAL inline void vxk_framework_multiline_output_with_text(
    t_vx_multiline_output_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_text(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_multiline_output_reattach(
    t_vx_multiline_output_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}
namespace vx
{
/// Lines of text that can be read and copied.
class VX_API multiline_output : public binding::wrapper<t_vx_multiline_output_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_text(vx::string_visitor visitor) const
    { vxk_framework_multiline_output_with_text(f_handle, visitor); }
    VX_LOCAL void reattach(vx::element_view view) const
    { vxk_framework_multiline_output_reattach(f_handle, view); }
};
class VX_API multiline_output_impl
    : public binding::implementation<multiline_output_impl, vx::multiline_output>
{
public:
    virtual void with_text(vx::string_visitor) {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_multiline_output_interface_name; }
    VX_LOCAL static vx_multiline_output_interface_table const* family_table();
protected:
    ~multiline_output_impl() = default;
};
VX_LOCAL inline constexpr vx_multiline_output_interface_table multiline_output_family_table{
    &binding::generalize_slot<multiline_output_impl>,
    &binding::slot<&multiline_output_impl::with_text>::call,
    &binding::slot<&multiline_output_impl::reattach>::call,
};
inline vx_multiline_output_interface_table const* multiline_output_impl::family_table()
{ return &multiline_output_family_table; }
}
