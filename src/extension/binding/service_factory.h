#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/core_families.h"
#include "extension/binding/interface.h"
#include "extension/binding/service_visitor.h"

VX_BINDING_HANDLE(service_factory)
struct vx_service_factory_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_services)(void const* table, void* self, t_vx_bundle_context_interface context,
        t_vx_service_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(service_factory, 1)
VX_LOCAL inline void vxk_framework_service_factory_with_services(
    t_vx_service_factory_interface h, t_vx_bundle_context_interface context,
        t_vx_service_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_services(h.table, h.self, context, visitor);
}
namespace vx
{
/// Makes the services of one bundle: finds the visitor of their family behind the general one.
class VX_API service_factory : public binding::wrapper<t_vx_service_factory_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_services(vx::bundle_context context, vx::service_visitor visitor) const
    { vxk_framework_service_factory_with_services(f_handle, context, visitor); }
};
class VX_API service_factory_impl
    : public binding::implementation<service_factory_impl, vx::service_factory>
{
public:
    virtual void with_services(vx::bundle_context, vx::service_visitor) {}
    VX_LOCAL static char const* interface_name() { return vx_service_factory_interface_name; }
    VX_LOCAL static vx_service_factory_interface_table const* family_table();
protected:
    ~service_factory_impl() = default;
};
VX_LOCAL inline constexpr vx_service_factory_interface_table service_factory_family_table{
    &binding::generalize_slot<service_factory_impl>,
    &binding::slot<&service_factory_impl::with_services>::call,
};
inline vx_service_factory_interface_table const* service_factory_impl::family_table()
{ return &service_factory_family_table; }
}
