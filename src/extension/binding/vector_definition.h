#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(vector_definition)
struct vx_vector_definition_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    int (*field_count)(void const* table, void* self);
    void (*field_name)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    int (*field_type)(void const* table, void* self, int field);
    int (*field_subtype)(void const* table, void* self, int field);
    int (*field_width)(void const* table, void* self, int field);
    int (*field_precision)(void const* table, void* self, int field);
    bool (*field_nullable)(void const* table, void* self, int field);
    void (*field_default)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    int (*geom_field_count)(void const* table, void* self);
    void (*geom_field_name)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    int (*geom_field_type)(void const* table, void* self, int field);
    void (*geom_field_proj4)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    void (*with_fid_field)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void (*with_proj4)(void const* table, void* self, t_vx_string_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(vector_definition, 3)
VX_LOCAL inline int vxk_datasource_vector_definition_field_count(t_vx_vector_definition_interface h)
{
    return h.table && h.self ? h.table->field_count(h.table, h.self) : 0;
}
VX_LOCAL inline void vxk_datasource_vector_definition_field_name(
    t_vx_vector_definition_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->field_name(h.table, h.self, field, visitor);
}
VX_LOCAL inline int vxk_datasource_vector_definition_field_type(t_vx_vector_definition_interface h, int field)
{
    return h.table && h.self ? h.table->field_type(h.table, h.self, field) : 0;
}
VX_LOCAL inline int vxk_datasource_vector_definition_field_subtype(
    t_vx_vector_definition_interface h, int field)
{
    return h.table && h.self ? h.table->field_subtype(h.table, h.self, field) : 0;
}
VX_LOCAL inline int vxk_datasource_vector_definition_field_width(
    t_vx_vector_definition_interface h, int field)
{
    return h.table && h.self ? h.table->field_width(h.table, h.self, field) : 0;
}
VX_LOCAL inline int vxk_datasource_vector_definition_field_precision(
    t_vx_vector_definition_interface h, int field)
{
    return h.table && h.self ? h.table->field_precision(h.table, h.self, field) : 0;
}
VX_LOCAL inline bool vxk_datasource_vector_definition_field_nullable(
    t_vx_vector_definition_interface h, int field)
{
    return h.table && h.self ? h.table->field_nullable(h.table, h.self, field) : false;
}
VX_LOCAL inline void vxk_datasource_vector_definition_field_default(
    t_vx_vector_definition_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->field_default(h.table, h.self, field, visitor);
}
VX_LOCAL inline int vxk_datasource_vector_definition_geom_field_count(t_vx_vector_definition_interface h)
{
    return h.table && h.self ? h.table->geom_field_count(h.table, h.self) : 0;
}
VX_LOCAL inline void vxk_datasource_vector_definition_geom_field_name(
    t_vx_vector_definition_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->geom_field_name(h.table, h.self, field, visitor);
}
VX_LOCAL inline int vxk_datasource_vector_definition_geom_field_type(
    t_vx_vector_definition_interface h, int field)
{
    return h.table && h.self ? h.table->geom_field_type(h.table, h.self, field) : 0;
}
VX_LOCAL inline void vxk_datasource_vector_definition_geom_field_proj4(
    t_vx_vector_definition_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->geom_field_proj4(h.table, h.self, field, visitor);
}
VX_LOCAL inline void vxk_datasource_vector_definition_with_fid_field(
    t_vx_vector_definition_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_fid_field(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_datasource_vector_definition_with_proj4(
    t_vx_vector_definition_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_proj4(h.table, h.self, visitor);
}
namespace vx
{
/// Describes the fields and geometry fields of a table that is to be made or changed.
class VX_API vector_definition : public binding::wrapper<t_vx_vector_definition_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL int field_count() const
    { return vxk_datasource_vector_definition_field_count(f_handle); }
    VX_LOCAL void field_name(int field, vx::string_visitor visitor) const
    { vxk_datasource_vector_definition_field_name(f_handle, field, visitor); }
    VX_LOCAL int field_type(int field) const
    { return vxk_datasource_vector_definition_field_type(f_handle, field); }
    VX_LOCAL int field_subtype(int field) const
    { return vxk_datasource_vector_definition_field_subtype(f_handle, field); }
    VX_LOCAL int field_width(int field) const
    { return vxk_datasource_vector_definition_field_width(f_handle, field); }
    VX_LOCAL int field_precision(int field) const
    { return vxk_datasource_vector_definition_field_precision(f_handle, field); }
    VX_LOCAL bool field_nullable(int field) const
    { return vxk_datasource_vector_definition_field_nullable(f_handle, field); }
    VX_LOCAL void field_default(int field, vx::string_visitor visitor) const
    { vxk_datasource_vector_definition_field_default(f_handle, field, visitor); }
    VX_LOCAL int geom_field_count() const
    { return vxk_datasource_vector_definition_geom_field_count(f_handle); }
    VX_LOCAL void geom_field_name(int field, vx::string_visitor visitor) const
    { vxk_datasource_vector_definition_geom_field_name(f_handle, field, visitor); }
    VX_LOCAL int geom_field_type(int field) const
    { return vxk_datasource_vector_definition_geom_field_type(f_handle, field); }
    VX_LOCAL void geom_field_proj4(int field, vx::string_visitor visitor) const
    { vxk_datasource_vector_definition_geom_field_proj4(f_handle, field, visitor); }
    VX_LOCAL void with_fid_field(vx::string_visitor visitor) const
    { vxk_datasource_vector_definition_with_fid_field(f_handle, visitor); }
    VX_LOCAL void with_proj4(vx::string_visitor visitor) const
    { vxk_datasource_vector_definition_with_proj4(f_handle, visitor); }
};
class VX_API vector_definition_impl
    : public binding::implementation<vector_definition_impl, vx::vector_definition>
{
public:
    virtual int field_count() { return 0; }
    virtual void field_name(int, vx::string_visitor) {}
    virtual int field_type(int) { return 0; }
    virtual int field_subtype(int) { return 0; }
    virtual int field_width(int) { return 0; }
    virtual int field_precision(int) { return 0; }
    virtual bool field_nullable(int) { return false; }
    virtual void field_default(int, vx::string_visitor) {}
    virtual int geom_field_count() { return 0; }
    virtual void geom_field_name(int, vx::string_visitor) {}
    virtual int geom_field_type(int) { return 0; }
    virtual void geom_field_proj4(int, vx::string_visitor) {}
    virtual void with_fid_field(vx::string_visitor) {}
    virtual void with_proj4(vx::string_visitor) {}
    VX_LOCAL static char const* interface_name() { return vx_vector_definition_interface_name; }
    VX_LOCAL static vx_vector_definition_interface_table const* family_table();
protected:
    ~vector_definition_impl() = default;
};
VX_LOCAL inline constexpr vx_vector_definition_interface_table vector_definition_family_table{
    &binding::generalize_slot<vector_definition_impl>,
    &binding::slot<&vector_definition_impl::field_count>::call,
    &binding::slot<&vector_definition_impl::field_name>::call,
    &binding::slot<&vector_definition_impl::field_type>::call,
    &binding::slot<&vector_definition_impl::field_subtype>::call,
    &binding::slot<&vector_definition_impl::field_width>::call,
    &binding::slot<&vector_definition_impl::field_precision>::call,
    &binding::slot<&vector_definition_impl::field_nullable>::call,
    &binding::slot<&vector_definition_impl::field_default>::call,
    &binding::slot<&vector_definition_impl::geom_field_count>::call,
    &binding::slot<&vector_definition_impl::geom_field_name>::call,
    &binding::slot<&vector_definition_impl::geom_field_type>::call,
    &binding::slot<&vector_definition_impl::geom_field_proj4>::call,
    &binding::slot<&vector_definition_impl::with_fid_field>::call,
    &binding::slot<&vector_definition_impl::with_proj4>::call,
};
inline vx_vector_definition_interface_table const* vector_definition_impl::family_table()
{ return &vector_definition_family_table; }
}
