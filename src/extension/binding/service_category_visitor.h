#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(service_category_visitor)
struct vx_service_category_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, wchar_t const* category);
};
VX_BINDING_FUNCTIONS(service_category_visitor, 1)
VX_LOCAL inline void vxk_framework_service_category_visitor_visit(
    t_vx_service_category_visitor_interface h, wchar_t const* category)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, category);
}
namespace vx
{
/// Receives the categories of a registry.
class VX_API service_category_visitor : public binding::wrapper<t_vx_service_category_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(wchar_t const* category) const
    { vxk_framework_service_category_visitor_visit(f_handle, category); }
};
class VX_API service_category_visitor_impl
    : public binding::implementation<service_category_visitor_impl, vx::service_category_visitor>
{
public:
    virtual void visit(wchar_t const*) {}
    VX_LOCAL static char const* interface_name() { return vx_service_category_visitor_interface_name; }
    VX_LOCAL static vx_service_category_visitor_interface_table const* family_table();
protected:
    ~service_category_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_service_category_visitor_interface_table service_category_visitor_family_table{
    &binding::generalize_slot<service_category_visitor_impl>,
    &binding::slot<&service_category_visitor_impl::visit>::call,
};
inline vx_service_category_visitor_interface_table const* service_category_visitor_impl::family_table()
{ return &service_category_visitor_family_table; }
}
