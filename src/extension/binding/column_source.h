#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/column_reading_visitor.h"
#include "extension/binding/column_visitor.h"
#include "extension/binding/interface.h"

VX_BINDING_HANDLE(column_source)
struct vx_column_source_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*with_column)(void const* table, void* self, int field, t_vx_column_visitor_interface visitor);
    bool (*read_column)(void const* table, void* self, int field,
        t_vx_column_reading_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(column_source, 1)
VX_LOCAL inline bool vxk_datasource_column_source_with_column(
    t_vx_column_source_interface h, int field, t_vx_column_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_column(h.table, h.self, field, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_column_source_read_column(
    t_vx_column_source_interface h, int field, t_vx_column_reading_visitor_interface visitor)
{
    return h.table && h.self ? h.table->read_column(h.table, h.self, field, visitor) : false;
}
namespace vx
{
/// A data set that can be read by columns.
class VX_API column_source : public binding::wrapper<t_vx_column_source_interface>
{
public:
    using wrapper::wrapper;
    /// All cells of a field in record order, whatever the reading position is; false: not offered, or not
    /// read to the end.
    VX_LOCAL bool with_column(int field, vx::column_visitor visitor) const
    { return vxk_datasource_column_source_with_column(f_handle, field, visitor); }
    /// Hands out a reading of all cells of a field in record order; whoever is visited owns it. False: not
    /// offered, also where with_column is.
    VX_LOCAL bool read_column(int field, vx::column_reading_visitor visitor) const
    { return vxk_datasource_column_source_read_column(f_handle, field, visitor); }
};
class VX_API column_source_impl
    : public binding::implementation<column_source_impl, vx::column_source>
{
public:
    virtual bool with_column(int, vx::column_visitor) { return false; }
    virtual bool read_column(int, vx::column_reading_visitor) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_column_source_interface_name; }
    VX_LOCAL static vx_column_source_interface_table const* family_table();
protected:
    ~column_source_impl() = default;
};
VX_LOCAL inline constexpr vx_column_source_interface_table column_source_family_table{
    &binding::generalize_slot<column_source_impl>,
    &binding::slot<&column_source_impl::with_column>::call,
    &binding::slot<&column_source_impl::read_column>::call,
};
inline vx_column_source_interface_table const* column_source_impl::family_table()
{ return &column_source_family_table; }
}
