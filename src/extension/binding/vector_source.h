#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/feature_visitor.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"
#include "extension/binding/vector_definition.h"

VX_BINDING_HANDLE(vector_source)
struct vx_vector_source_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*create_vector)(void const* table, void* self, wchar_t const* name, int geom_type, long long flags,
        t_vx_vector_definition_interface definition);
    bool (*select_vector)(void const* table, void* self, wchar_t const* name);
    bool (*select_geom_field)(void const* table, void* self, wchar_t const* name);
    int (*geom_type)(void const* table, void* self);
    unsigned long long (*feature_count)(void const* table, void* self, bool force);
    void (*fid_field_name)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    int (*field_width)(void const* table, void* self, int field);
    int (*field_precision)(void const* table, void* self, int field);
    int (*geom_field_count)(void const* table, void* self);
    void (*geom_field_name)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    int (*geom_field_type)(void const* table, void* self, int field);
    void (*geom_field_proj4)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    bool (*create_field)(void const* table, void* self, t_vx_vector_definition_interface definition);
    bool (*delete_field)(void const* table, void* self, int field);
    bool (*alter_field)(void const* table, void* self, int field,
        t_vx_vector_definition_interface definition);
    bool (*reorder_fields)(void const* table, void* self, int* order);
    bool (*create_geom_field)(void const* table, void* self, t_vx_vector_definition_interface definition);
    bool (*delete_geom_field)(void const* table, void* self, int field);
    bool (*transaction_start)(void const* table, void* self);
    bool (*transaction_commit)(void const* table, void* self);
    bool (*transaction_rollback)(void const* table, void* self);
    bool (*flush_changes)(void const* table, void* self);
    bool (*create_feature)(void const* table, void* self, long long fid,
        t_vx_feature_visitor_interface visitor);
    bool (*delete_feature)(void const* table, void* self, long long fid);
};
VX_BINDING_FUNCTIONS(vector_source, 23)
VX_LOCAL inline bool vxk_datasource_vector_source_create_vector(
    t_vx_vector_source_interface h, wchar_t const* name, int geom_type, long long flags,
        t_vx_vector_definition_interface definition)
{
    return h.table && h.self ? h.table->create_vector(h.table, h.self, name, geom_type, flags,
        definition) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_select_vector(
    t_vx_vector_source_interface h, wchar_t const* name)
{
    return h.table && h.self ? h.table->select_vector(h.table, h.self, name) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_select_geom_field(
    t_vx_vector_source_interface h, wchar_t const* name)
{
    return h.table && h.self ? h.table->select_geom_field(h.table, h.self, name) : false;
}
VX_LOCAL inline int vxk_datasource_vector_source_geom_type(t_vx_vector_source_interface h)
{
    return h.table && h.self ? h.table->geom_type(h.table, h.self) : 0;
}
VX_LOCAL inline unsigned long long vxk_datasource_vector_source_feature_count(
    t_vx_vector_source_interface h, bool force)
{
    return h.table && h.self ? h.table->feature_count(h.table, h.self, force) : 0;
}
VX_LOCAL inline void vxk_datasource_vector_source_fid_field_name(
    t_vx_vector_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->fid_field_name(h.table, h.self, visitor);
}
VX_LOCAL inline int vxk_datasource_vector_source_field_width(t_vx_vector_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_width(h.table, h.self, field) : 0;
}
VX_LOCAL inline int vxk_datasource_vector_source_field_precision(t_vx_vector_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_precision(h.table, h.self, field) : 0;
}
VX_LOCAL inline int vxk_datasource_vector_source_geom_field_count(t_vx_vector_source_interface h)
{
    return h.table && h.self ? h.table->geom_field_count(h.table, h.self) : 0;
}
VX_LOCAL inline void vxk_datasource_vector_source_geom_field_name(
    t_vx_vector_source_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->geom_field_name(h.table, h.self, field, visitor);
}
VX_LOCAL inline int vxk_datasource_vector_source_geom_field_type(t_vx_vector_source_interface h, int field)
{
    return h.table && h.self ? h.table->geom_field_type(h.table, h.self, field) : 0;
}
VX_LOCAL inline void vxk_datasource_vector_source_geom_field_proj4(
    t_vx_vector_source_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->geom_field_proj4(h.table, h.self, field, visitor);
}
VX_LOCAL inline bool vxk_datasource_vector_source_create_field(
    t_vx_vector_source_interface h, t_vx_vector_definition_interface definition)
{
    return h.table && h.self ? h.table->create_field(h.table, h.self, definition) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_delete_field(t_vx_vector_source_interface h, int field)
{
    return h.table && h.self ? h.table->delete_field(h.table, h.self, field) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_alter_field(
    t_vx_vector_source_interface h, int field, t_vx_vector_definition_interface definition)
{
    return h.table && h.self ? h.table->alter_field(h.table, h.self, field, definition) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_reorder_fields(t_vx_vector_source_interface h, int* order)
{
    return h.table && h.self ? h.table->reorder_fields(h.table, h.self, order) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_create_geom_field(
    t_vx_vector_source_interface h, t_vx_vector_definition_interface definition)
{
    return h.table && h.self ? h.table->create_geom_field(h.table, h.self, definition) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_delete_geom_field(t_vx_vector_source_interface h, int field)
{
    return h.table && h.self ? h.table->delete_geom_field(h.table, h.self, field) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_transaction_start(t_vx_vector_source_interface h)
{
    return h.table && h.self ? h.table->transaction_start(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_transaction_commit(t_vx_vector_source_interface h)
{
    return h.table && h.self ? h.table->transaction_commit(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_transaction_rollback(t_vx_vector_source_interface h)
{
    return h.table && h.self ? h.table->transaction_rollback(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_flush_changes(t_vx_vector_source_interface h)
{
    return h.table && h.self ? h.table->flush_changes(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_create_feature(
    t_vx_vector_source_interface h, long long fid, t_vx_feature_visitor_interface visitor)
{
    return h.table && h.self ? h.table->create_feature(h.table, h.self, fid, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_vector_source_delete_feature(
    t_vx_vector_source_interface h, long long fid)
{
    return h.table && h.self ? h.table->delete_feature(h.table, h.self, fid) : false;
}
namespace vx
{
/// The tables of a data set; calls are about the selected one.
class VX_API vector_source : public binding::wrapper<t_vx_vector_source_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL bool create_vector(wchar_t const* name, int geom_type, long long flags,
        vx::vector_definition definition) const
    { return vxk_datasource_vector_source_create_vector(f_handle, name, geom_type, flags, definition); }
    VX_LOCAL bool select_vector(wchar_t const* name) const
    { return vxk_datasource_vector_source_select_vector(f_handle, name); }
    VX_LOCAL bool select_geom_field(wchar_t const* name) const
    { return vxk_datasource_vector_source_select_geom_field(f_handle, name); }
    /// 0 none, 1 point, 3 polyline, 5 polygon, 8 multipoint, 11 to 18 with z, 31 multipatch, 100 unknown.
    VX_LOCAL int geom_type() const
    { return vxk_datasource_vector_source_geom_type(f_handle); }
    /// The largest number: not known.
    VX_LOCAL unsigned long long feature_count(bool force) const
    { return vxk_datasource_vector_source_feature_count(f_handle, force); }
    VX_LOCAL void fid_field_name(vx::string_visitor visitor) const
    { vxk_datasource_vector_source_fid_field_name(f_handle, visitor); }
    VX_LOCAL int field_width(int field) const
    { return vxk_datasource_vector_source_field_width(f_handle, field); }
    VX_LOCAL int field_precision(int field) const
    { return vxk_datasource_vector_source_field_precision(f_handle, field); }
    VX_LOCAL int geom_field_count() const
    { return vxk_datasource_vector_source_geom_field_count(f_handle); }
    VX_LOCAL void geom_field_name(int field, vx::string_visitor visitor) const
    { vxk_datasource_vector_source_geom_field_name(f_handle, field, visitor); }
    VX_LOCAL int geom_field_type(int field) const
    { return vxk_datasource_vector_source_geom_field_type(f_handle, field); }
    VX_LOCAL void geom_field_proj4(int field, vx::string_visitor visitor) const
    { vxk_datasource_vector_source_geom_field_proj4(f_handle, field, visitor); }
    VX_LOCAL bool create_field(vx::vector_definition definition) const
    { return vxk_datasource_vector_source_create_field(f_handle, definition); }
    VX_LOCAL bool delete_field(int field) const
    { return vxk_datasource_vector_source_delete_field(f_handle, field); }
    VX_LOCAL bool alter_field(int field, vx::vector_definition definition) const
    { return vxk_datasource_vector_source_alter_field(f_handle, field, definition); }
    /// Field_count() old indices in the new order.
    VX_LOCAL bool reorder_fields(int* order) const
    { return vxk_datasource_vector_source_reorder_fields(f_handle, order); }
    VX_LOCAL bool create_geom_field(vx::vector_definition definition) const
    { return vxk_datasource_vector_source_create_geom_field(f_handle, definition); }
    VX_LOCAL bool delete_geom_field(int field) const
    { return vxk_datasource_vector_source_delete_geom_field(f_handle, field); }
    VX_LOCAL bool transaction_start() const
    { return vxk_datasource_vector_source_transaction_start(f_handle); }
    VX_LOCAL bool transaction_commit() const
    { return vxk_datasource_vector_source_transaction_commit(f_handle); }
    VX_LOCAL bool transaction_rollback() const
    { return vxk_datasource_vector_source_transaction_rollback(f_handle); }
    VX_LOCAL bool flush_changes() const
    { return vxk_datasource_vector_source_flush_changes(f_handle); }
    /// The feature is stored when the visitor comes back; fid 0: the driver's choice.
    VX_LOCAL bool create_feature(long long fid, vx::feature_visitor visitor) const
    { return vxk_datasource_vector_source_create_feature(f_handle, fid, visitor); }
    VX_LOCAL bool delete_feature(long long fid) const
    { return vxk_datasource_vector_source_delete_feature(f_handle, fid); }
};
class VX_API vector_source_impl
    : public binding::implementation<vector_source_impl, vx::vector_source>
{
public:
    virtual bool create_vector(wchar_t const*, int, long long, vx::vector_definition) { return false; }
    virtual bool select_vector(wchar_t const*) { return false; }
    virtual bool select_geom_field(wchar_t const*) { return false; }
    virtual int geom_type() { return 0; }
    virtual unsigned long long feature_count(bool) { return 0; }
    virtual void fid_field_name(vx::string_visitor) {}
    virtual int field_width(int) { return 0; }
    virtual int field_precision(int) { return 0; }
    virtual int geom_field_count() { return 0; }
    virtual void geom_field_name(int, vx::string_visitor) {}
    virtual int geom_field_type(int) { return 0; }
    virtual void geom_field_proj4(int, vx::string_visitor) {}
    virtual bool create_field(vx::vector_definition) { return false; }
    virtual bool delete_field(int) { return false; }
    virtual bool alter_field(int, vx::vector_definition) { return false; }
    virtual bool reorder_fields(int*) { return false; }
    virtual bool create_geom_field(vx::vector_definition) { return false; }
    virtual bool delete_geom_field(int) { return false; }
    virtual bool transaction_start() { return false; }
    virtual bool transaction_commit() { return false; }
    virtual bool transaction_rollback() { return false; }
    virtual bool flush_changes() { return false; }
    virtual bool create_feature(long long, vx::feature_visitor) { return false; }
    virtual bool delete_feature(long long) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_vector_source_interface_name; }
    VX_LOCAL static vx_vector_source_interface_table const* family_table();
protected:
    ~vector_source_impl() = default;
};
VX_LOCAL inline constexpr vx_vector_source_interface_table vector_source_family_table{
    &binding::generalize_slot<vector_source_impl>,
    &binding::slot<&vector_source_impl::create_vector>::call,
    &binding::slot<&vector_source_impl::select_vector>::call,
    &binding::slot<&vector_source_impl::select_geom_field>::call,
    &binding::slot<&vector_source_impl::geom_type>::call,
    &binding::slot<&vector_source_impl::feature_count>::call,
    &binding::slot<&vector_source_impl::fid_field_name>::call,
    &binding::slot<&vector_source_impl::field_width>::call,
    &binding::slot<&vector_source_impl::field_precision>::call,
    &binding::slot<&vector_source_impl::geom_field_count>::call,
    &binding::slot<&vector_source_impl::geom_field_name>::call,
    &binding::slot<&vector_source_impl::geom_field_type>::call,
    &binding::slot<&vector_source_impl::geom_field_proj4>::call,
    &binding::slot<&vector_source_impl::create_field>::call,
    &binding::slot<&vector_source_impl::delete_field>::call,
    &binding::slot<&vector_source_impl::alter_field>::call,
    &binding::slot<&vector_source_impl::reorder_fields>::call,
    &binding::slot<&vector_source_impl::create_geom_field>::call,
    &binding::slot<&vector_source_impl::delete_geom_field>::call,
    &binding::slot<&vector_source_impl::transaction_start>::call,
    &binding::slot<&vector_source_impl::transaction_commit>::call,
    &binding::slot<&vector_source_impl::transaction_rollback>::call,
    &binding::slot<&vector_source_impl::flush_changes>::call,
    &binding::slot<&vector_source_impl::create_feature>::call,
    &binding::slot<&vector_source_impl::delete_feature>::call,
};
inline vx_vector_source_interface_table const* vector_source_impl::family_table()
{ return &vector_source_family_table; }
}
