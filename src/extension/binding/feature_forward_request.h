#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/feature_visitor.h"
#include "extension/binding/interface.h"

#include "platform/base/geometry.h"

VX_BINDING_HANDLE(feature_forward_request)
struct vx_feature_forward_request_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*set_spatial_filter)(void const* table, void* self, Tvx_box_d2* box);
    bool (*set_attribute_filter)(void const* table, void* self, wchar_t const* text);
    bool (*reset_reading)(void const* table, void* self);
    bool (*with_next_feature)(void const* table, void* self, t_vx_feature_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(feature_forward_request, 15)
VX_LOCAL inline bool vxk_datasource_feature_forward_request_set_spatial_filter(
    t_vx_feature_forward_request_interface h, Tvx_box_d2* box)
{
    return h.table && h.self ? h.table->set_spatial_filter(h.table, h.self, box) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_forward_request_set_attribute_filter(
    t_vx_feature_forward_request_interface h, wchar_t const* text)
{
    return h.table && h.self ? h.table->set_attribute_filter(h.table, h.self, text) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_forward_request_reset_reading(
    t_vx_feature_forward_request_interface h)
{
    return h.table && h.self ? h.table->reset_reading(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_forward_request_with_next_feature(
    t_vx_feature_forward_request_interface h, t_vx_feature_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_next_feature(h.table, h.self, visitor) : false;
}
namespace vx
{
/// Reads features in their order.
class VX_API feature_forward_request : public binding::wrapper<t_vx_feature_forward_request_interface>
{
public:
    using wrapper::wrapper;
    /// Null: no filter.
    VX_LOCAL bool set_spatial_filter(Tvx_box_d2* box) const
    { return vxk_datasource_feature_forward_request_set_spatial_filter(f_handle, box); }
    /// Null or empty: no filter; a refused filter changes nothing.
    VX_LOCAL bool set_attribute_filter(wchar_t const* text) const
    { return vxk_datasource_feature_forward_request_set_attribute_filter(f_handle, text); }
    VX_LOCAL bool reset_reading() const
    { return vxk_datasource_feature_forward_request_reset_reading(f_handle); }
    /// False at the end.
    VX_LOCAL bool with_next_feature(vx::feature_visitor visitor) const
    { return vxk_datasource_feature_forward_request_with_next_feature(f_handle, visitor); }
};
class VX_API feature_forward_request_impl
    : public binding::implementation<feature_forward_request_impl, vx::feature_forward_request>
{
public:
    virtual bool set_spatial_filter(Tvx_box_d2*) { return false; }
    virtual bool set_attribute_filter(wchar_t const*) { return false; }
    virtual bool reset_reading() { return false; }
    virtual bool with_next_feature(vx::feature_visitor) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_feature_forward_request_interface_name; }
    VX_LOCAL static vx_feature_forward_request_interface_table const* family_table();
protected:
    ~feature_forward_request_impl() = default;
};
VX_LOCAL inline constexpr vx_feature_forward_request_interface_table feature_forward_request_family_table{
    &binding::generalize_slot<feature_forward_request_impl>,
    &binding::slot<&feature_forward_request_impl::set_spatial_filter>::call,
    &binding::slot<&feature_forward_request_impl::set_attribute_filter>::call,
    &binding::slot<&feature_forward_request_impl::reset_reading>::call,
    &binding::slot<&feature_forward_request_impl::with_next_feature>::call,
};
inline vx_feature_forward_request_interface_table const* feature_forward_request_impl::family_table()
{ return &feature_forward_request_family_table; }
}
