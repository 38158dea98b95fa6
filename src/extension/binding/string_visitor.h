#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(string_visitor)
struct vx_string_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, wchar_t const* text);
};
VX_BINDING_FUNCTIONS(string_visitor, 0)
VX_LOCAL inline void vxk_framework_string_visitor_visit(t_vx_string_visitor_interface h, wchar_t const* text)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, text);
}
namespace vx
{
/// Receives a text, or several one by one.
class VX_API string_visitor : public binding::wrapper<t_vx_string_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(wchar_t const* text) const
    { vxk_framework_string_visitor_visit(f_handle, text); }
};
class VX_API string_visitor_impl
    : public binding::implementation<string_visitor_impl, vx::string_visitor>
{
public:
    virtual void visit(wchar_t const*) {}
    VX_LOCAL static char const* interface_name() { return vx_string_visitor_interface_name; }
    VX_LOCAL static vx_string_visitor_interface_table const* family_table();
protected:
    ~string_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_string_visitor_interface_table string_visitor_family_table{
    &binding::generalize_slot<string_visitor_impl>,
    &binding::slot<&string_visitor_impl::visit>::call,
};
inline vx_string_visitor_interface_table const* string_visitor_impl::family_table()
{ return &string_visitor_family_table; }
}
