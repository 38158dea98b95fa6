#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(dict_item_visitor)
struct vx_dict_item_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, wchar_t const* key, wchar_t const* value);
};
VX_BINDING_FUNCTIONS(dict_item_visitor, 0)
VX_LOCAL inline void vxk_datasource_dict_item_visitor_visit(
    t_vx_dict_item_visitor_interface h, wchar_t const* key, wchar_t const* value)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, key, value);
}
namespace vx
{
/// Receives the pairs of a dictionary.
class VX_API dict_item_visitor : public binding::wrapper<t_vx_dict_item_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(wchar_t const* key, wchar_t const* value) const
    { vxk_datasource_dict_item_visitor_visit(f_handle, key, value); }
};
class VX_API dict_item_visitor_impl
    : public binding::implementation<dict_item_visitor_impl, vx::dict_item_visitor>
{
public:
    virtual void visit(wchar_t const*, wchar_t const*) {}
    VX_LOCAL static char const* interface_name() { return vx_dict_item_visitor_interface_name; }
    VX_LOCAL static vx_dict_item_visitor_interface_table const* family_table();
protected:
    ~dict_item_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_dict_item_visitor_interface_table dict_item_visitor_family_table{
    &binding::generalize_slot<dict_item_visitor_impl>,
    &binding::slot<&dict_item_visitor_impl::visit>::call,
};
inline vx_dict_item_visitor_interface_table const* dict_item_visitor_impl::family_table()
{ return &dict_item_visitor_family_table; }
}
