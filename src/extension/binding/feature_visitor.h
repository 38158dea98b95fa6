#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/feature.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(feature_visitor)
struct vx_feature_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, t_vx_feature_interface item);
};
VX_BINDING_FUNCTIONS(feature_visitor, 15)
VX_LOCAL inline void vxk_datasource_feature_visitor_visit(
    t_vx_feature_visitor_interface h, t_vx_feature_interface item)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, item);
}
namespace vx
{
/// Receives a feature and owns it.
class VX_API feature_visitor : public binding::wrapper<t_vx_feature_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(vx::feature item) const
    { vxk_datasource_feature_visitor_visit(f_handle, item); }
};
class VX_API feature_visitor_impl
    : public binding::implementation<feature_visitor_impl, vx::feature_visitor>
{
public:
    virtual void visit(vx::feature) {}
    VX_LOCAL static char const* interface_name() { return vx_feature_visitor_interface_name; }
    VX_LOCAL static vx_feature_visitor_interface_table const* family_table();
protected:
    ~feature_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_feature_visitor_interface_table feature_visitor_family_table{
    &binding::generalize_slot<feature_visitor_impl>,
    &binding::slot<&feature_visitor_impl::visit>::call,
};
inline vx_feature_visitor_interface_table const* feature_visitor_impl::family_table()
{ return &feature_visitor_family_table; }
}
