#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/column_visitor.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(column_reading)
struct vx_column_reading_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*detach)(void const* table, void* self);
    int (*next)(void const* table, void* self, int milliseconds, t_vx_column_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(column_reading, 0)
VX_LOCAL inline void vxk_datasource_column_reading_detach(t_vx_column_reading_interface h)
{
    if (h.table && h.self)
        h.table->detach(h.table, h.self);
}
VX_LOCAL inline int vxk_datasource_column_reading_next(
    t_vx_column_reading_interface h, int milliseconds, t_vx_column_visitor_interface visitor)
{
    return h.table && h.self ? h.table->next(h.table, h.self, milliseconds, visitor) : 0;
}
namespace vx
{
/// A walk over the cells of a field with a place of its own, whatever else is read meanwhile.
class VX_API column_reading : public binding::wrapper<t_vx_column_reading_interface>
{
public:
    using wrapper::wrapper;
    /// Ends it; has to come before the source's.
    VX_LOCAL void detach() const
    { vxk_datasource_column_reading_detach(f_handle); }
    /// Hands out what comes next, for about so long; a `reading` state.
    VX_LOCAL int next(int milliseconds, vx::column_visitor visitor) const
    { return vxk_datasource_column_reading_next(f_handle, milliseconds, visitor); }
};
class VX_API column_reading_impl
    : public binding::implementation<column_reading_impl, vx::column_reading>
{
public:
    virtual void detach() {}
    virtual int next(int, vx::column_visitor) { return 0; }
    VX_LOCAL static char const* interface_name() { return vx_column_reading_interface_name; }
    VX_LOCAL static vx_column_reading_interface_table const* family_table();
protected:
    ~column_reading_impl() = default;
};
VX_LOCAL inline constexpr vx_column_reading_interface_table column_reading_family_table{
    &binding::generalize_slot<column_reading_impl>,
    &binding::slot<&column_reading_impl::detach>::call,
    &binding::slot<&column_reading_impl::next>::call,
};
inline vx_column_reading_interface_table const* column_reading_impl::family_table()
{ return &column_reading_family_table; }
}
