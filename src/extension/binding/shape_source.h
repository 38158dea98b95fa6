#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/shape_reading_visitor.h"

#include "platform/base/geometry.h"

VX_BINDING_HANDLE(shape_source)
struct vx_shape_source_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*read_shapes)(void const* table, void* self, Tvx_box_d2* window,
        t_vx_shape_reading_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(shape_source, 0)
VX_LOCAL inline bool vxk_datasource_shape_source_read_shapes(
    t_vx_shape_source_interface h, Tvx_box_d2* window, t_vx_shape_reading_visitor_interface visitor)
{
    return h.table && h.self ? h.table->read_shapes(h.table, h.self, window, visitor) : false;
}
namespace vx
{
/// A data set whose shapes can be read in runs, apart from its fields.
class VX_API shape_source : public binding::wrapper<t_vx_shape_source_interface>
{
public:
    using wrapper::wrapper;
    /// Hands out a reading of all shapes in record order or, with a window, of those whose boxes meet it, in
    /// the order of their records; whoever is visited owns it. False: not offered, with a window also where
    /// the records of the shapes are not known, or finding them takes as long as reading all.
    VX_LOCAL bool read_shapes(Tvx_box_d2* window, vx::shape_reading_visitor visitor) const
    { return vxk_datasource_shape_source_read_shapes(f_handle, window, visitor); }
};
class VX_API shape_source_impl
    : public binding::implementation<shape_source_impl, vx::shape_source>
{
public:
    virtual bool read_shapes(Tvx_box_d2*, vx::shape_reading_visitor) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_shape_source_interface_name; }
    VX_LOCAL static vx_shape_source_interface_table const* family_table();
protected:
    ~shape_source_impl() = default;
};
VX_LOCAL inline constexpr vx_shape_source_interface_table shape_source_family_table{
    &binding::generalize_slot<shape_source_impl>,
    &binding::slot<&shape_source_impl::read_shapes>::call,
};
inline vx_shape_source_interface_table const* shape_source_impl::family_table()
{ return &shape_source_family_table; }
}
