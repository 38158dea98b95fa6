#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Data sets: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(datasource_handle_visitor, 0)
VX_BINDING_HANDLE(datasource_service)
struct vx_datasource_service_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(datasource_service, 34)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_datasource_datasource_service_priority(t_vx_datasource_service_interface)
{ return 0; }
namespace vx
{
class VX_API datasource_service : public binding::wrapper<t_vx_datasource_service_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int priority() const
    { return vxk_datasource_datasource_service_priority(f_handle); }
};
class VX_API datasource_service_impl
    : public binding::implementation<datasource_service_impl, vx::datasource_service>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_datasource_service_interface_name; }
    VX_LOCAL static vx_datasource_service_interface_table const* family_table();
protected:
    ~datasource_service_impl() = default;
};
VX_LOCAL inline constexpr vx_datasource_service_interface_table datasource_service_family_table{
    &binding::generalize_slot<datasource_service_impl>,
};
inline vx_datasource_service_interface_table const* datasource_service_impl::family_table()
{ return &datasource_service_family_table; }
}

VX_BINDING_BARE(datasource_service_visitor, 34)
VX_BINDING_BARE(datasource_visitor, 25)
VX_BINDING_BARE(feature_create_request, 0)
VX_BINDING_BARE(feature_extent_request, 12)
VX_BINDING_BARE(poly_data_3d, 6)
VX_BINDING_BARE(poly_data_3d_attr_buffer, 0)
VX_BINDING_BARE(poly_data_3d_attr_buffers, 0)
VX_BINDING_BARE_PASSED(poly_data_3d_cells, 1)
VX_BINDING_BARE_PASSED(poly_data_3d_points, 0)
