#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/shape_visitor.h"

VX_BINDING_HANDLE(shape_reading)
struct vx_shape_reading_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*detach)(void const* table, void* self);
    int (*next)(void const* table, void* self, int milliseconds, t_vx_shape_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(shape_reading, 0)
VX_LOCAL inline void vxk_datasource_shape_reading_detach(t_vx_shape_reading_interface h)
{
    if (h.table && h.self)
        h.table->detach(h.table, h.self);
}
VX_LOCAL inline int vxk_datasource_shape_reading_next(
    t_vx_shape_reading_interface h, int milliseconds, t_vx_shape_visitor_interface visitor)
{
    return h.table && h.self ? h.table->next(h.table, h.self, milliseconds, visitor) : 0;
}
namespace vx
{
/// A walk over shapes with a place of its own, whatever else is read meanwhile.
class VX_API shape_reading : public binding::wrapper<t_vx_shape_reading_interface>
{
public:
    using wrapper::wrapper;
    /// Ends it; has to come before the source's.
    VX_LOCAL void detach() const
    { vxk_datasource_shape_reading_detach(f_handle); }
    /// Hands out what comes next, for about so long; a `reading` state.
    VX_LOCAL int next(int milliseconds, vx::shape_visitor visitor) const
    { return vxk_datasource_shape_reading_next(f_handle, milliseconds, visitor); }
};
class VX_API shape_reading_impl
    : public binding::implementation<shape_reading_impl, vx::shape_reading>
{
public:
    virtual void detach() {}
    virtual int next(int, vx::shape_visitor) { return 0; }
    VX_LOCAL static char const* interface_name() { return vx_shape_reading_interface_name; }
    VX_LOCAL static vx_shape_reading_interface_table const* family_table();
protected:
    ~shape_reading_impl() = default;
};
VX_LOCAL inline constexpr vx_shape_reading_interface_table shape_reading_family_table{
    &binding::generalize_slot<shape_reading_impl>,
    &binding::slot<&shape_reading_impl::detach>::call,
    &binding::slot<&shape_reading_impl::next>::call,
};
inline vx_shape_reading_interface_table const* shape_reading_impl::family_table()
{ return &shape_reading_family_table; }
}
