#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/service_visitor.h"

VX_BINDING_HANDLE(service_registry)
struct vx_service_registry_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_services)(void const* table, void* self, wchar_t const* category,
        t_vx_service_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(service_registry, 0)
VX_LOCAL inline void vxk_framework_service_registry_with_services(
    t_vx_service_registry_interface h, wchar_t const* category, t_vx_service_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_services(h.table, h.self, category, visitor);
}
namespace vx
{
/// Hands a visitor to the factories of a category of services.
class VX_API service_registry : public binding::wrapper<t_vx_service_registry_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_services(wchar_t const* category, vx::service_visitor visitor) const
    { vxk_framework_service_registry_with_services(f_handle, category, visitor); }
};
class VX_API service_registry_impl
    : public binding::implementation<service_registry_impl, vx::service_registry>
{
public:
    virtual void with_services(wchar_t const*, vx::service_visitor) {}
    VX_LOCAL static char const* interface_name() { return vx_service_registry_interface_name; }
    VX_LOCAL static vx_service_registry_interface_table const* family_table();
protected:
    ~service_registry_impl() = default;
};
VX_LOCAL inline constexpr vx_service_registry_interface_table service_registry_family_table{
    &binding::generalize_slot<service_registry_impl>,
    &binding::slot<&service_registry_impl::with_services>::call,
};
inline vx_service_registry_interface_table const* service_registry_impl::family_table()
{ return &service_registry_family_table; }
}
