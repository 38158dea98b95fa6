#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/feature_visitor.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(feature_random_request)
struct vx_feature_random_request_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*has_random_read)(void const* table, void* self);
    bool (*with_feature)(void const* table, void* self, long long fid,
        t_vx_feature_visitor_interface visitor);
    bool (*has_moveto_index)(void const* table, void* self);
    bool (*moveto_index)(void const* table, void* self, long long index);
};
VX_BINDING_FUNCTIONS(feature_random_request, 16)
VX_LOCAL inline bool vxk_datasource_feature_random_request_has_random_read(
    t_vx_feature_random_request_interface h)
{
    return h.table && h.self ? h.table->has_random_read(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_random_request_with_feature(
    t_vx_feature_random_request_interface h, long long fid, t_vx_feature_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_feature(h.table, h.self, fid, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_random_request_has_moveto_index(
    t_vx_feature_random_request_interface h)
{
    return h.table && h.self ? h.table->has_moveto_index(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_random_request_moveto_index(
    t_vx_feature_random_request_interface h, long long index)
{
    return h.table && h.self ? h.table->moveto_index(h.table, h.self, index) : false;
}
namespace vx
{
/// Reads features by identifier or place.
class VX_API feature_random_request : public binding::wrapper<t_vx_feature_random_request_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL bool has_random_read() const
    { return vxk_datasource_feature_random_request_has_random_read(f_handle); }
    /// By identifier.
    VX_LOCAL bool with_feature(long long fid, vx::feature_visitor visitor) const
    { return vxk_datasource_feature_random_request_with_feature(f_handle, fid, visitor); }
    VX_LOCAL bool has_moveto_index() const
    { return vxk_datasource_feature_random_request_has_moveto_index(f_handle); }
    /// The next feature read forward is this one of the filtered sequence, from 0.
    VX_LOCAL bool moveto_index(long long index) const
    { return vxk_datasource_feature_random_request_moveto_index(f_handle, index); }
};
class VX_API feature_random_request_impl
    : public binding::implementation<feature_random_request_impl, vx::feature_random_request>
{
public:
    virtual bool has_random_read() { return false; }
    virtual bool with_feature(long long, vx::feature_visitor) { return false; }
    virtual bool has_moveto_index() { return false; }
    virtual bool moveto_index(long long) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_feature_random_request_interface_name; }
    VX_LOCAL static vx_feature_random_request_interface_table const* family_table();
protected:
    ~feature_random_request_impl() = default;
};
VX_LOCAL inline constexpr vx_feature_random_request_interface_table feature_random_request_family_table{
    &binding::generalize_slot<feature_random_request_impl>,
    &binding::slot<&feature_random_request_impl::has_random_read>::call,
    &binding::slot<&feature_random_request_impl::with_feature>::call,
    &binding::slot<&feature_random_request_impl::has_moveto_index>::call,
    &binding::slot<&feature_random_request_impl::moveto_index>::call,
};
inline vx_feature_random_request_interface_table const* feature_random_request_impl::family_table()
{ return &feature_random_request_family_table; }
}
