#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(outline_item_data_visitor)
struct vx_outline_item_data_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_integer)(void const* table, void* self, int value);
    void (*visit_string)(void const* table, void* self, wchar_t const* value);
    void (*visit_tag)(void const* table, void* self, void* tag);
};
VX_BINDING_FUNCTIONS(outline_item_data_visitor, 0)
VX_LOCAL inline void vxk_framework_outline_item_data_visitor_visit_integer(
    t_vx_outline_item_data_visitor_interface h, int value)
{
    if (h.table && h.self)
        h.table->visit_integer(h.table, h.self, value);
}
VX_LOCAL inline void vxk_framework_outline_item_data_visitor_visit_string(
    t_vx_outline_item_data_visitor_interface h, wchar_t const* value)
{
    if (h.table && h.self)
        h.table->visit_string(h.table, h.self, value);
}
VX_LOCAL inline void vxk_framework_outline_item_data_visitor_visit_tag(
    t_vx_outline_item_data_visitor_interface h, void* tag)
{
    if (h.table && h.self)
        h.table->visit_tag(h.table, h.self, tag);
}
namespace vx
{
/// Receives what identifies an item.
class VX_API outline_item_data_visitor : public binding::wrapper<t_vx_outline_item_data_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_integer(int value) const
    { vxk_framework_outline_item_data_visitor_visit_integer(f_handle, value); }
    VX_LOCAL void visit_string(wchar_t const* value) const
    { vxk_framework_outline_item_data_visitor_visit_string(f_handle, value); }
    VX_LOCAL void visit_tag(void* tag) const
    { vxk_framework_outline_item_data_visitor_visit_tag(f_handle, tag); }
};
class VX_API outline_item_data_visitor_impl
    : public binding::implementation<outline_item_data_visitor_impl, vx::outline_item_data_visitor>
{
public:
    virtual void visit_integer(int) {}
    virtual void visit_string(wchar_t const*) {}
    virtual void visit_tag(void*) {}
    VX_LOCAL static char const* interface_name() { return vx_outline_item_data_visitor_interface_name; }
    VX_LOCAL static vx_outline_item_data_visitor_interface_table const* family_table();
protected:
    ~outline_item_data_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_outline_item_data_visitor_interface_table outline_item_data_visitor_family_table{
    &binding::generalize_slot<outline_item_data_visitor_impl>,
    &binding::slot<&outline_item_data_visitor_impl::visit_integer>::call,
    &binding::slot<&outline_item_data_visitor_impl::visit_string>::call,
    &binding::slot<&outline_item_data_visitor_impl::visit_tag>::call,
};
inline vx_outline_item_data_visitor_interface_table const* outline_item_data_visitor_impl::family_table()
{ return &outline_item_data_visitor_family_table; }
}
