#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/bytes_visitor.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

#include "platform/base/geometry.h"
#include "platform/base/vertex_list.h"

VX_BINDING_HANDLE(feature)
struct vx_feature_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*detach)(void const* table, void* self);
    long long (*fid)(void const* table, void* self);
    int (*geom_type)(void const* table, void* self);
    void (*with_proj4)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    bool (*with_extent)(void const* table, void* self, Tvx_box_d2* box);
    bool (*with_extent_z)(void const* table, void* self, Tvx_box_d3* box);
    bool (*get_point)(void const* table, void* self, Tvx_vtx_d2* vertex);
    bool (*get_point_z)(void const* table, void* self, Tvx_vtx_d3* vertex);
    bool (*get_multipoint)(void const* table, void* self, Tvx_op2d* list);
    bool (*get_multipoint_z)(void const* table, void* self, Tvx_ovtx_d3* list);
    bool (*get_polypoint)(void const* table, void* self, Tvx_op2d* list);
    bool (*get_polypoint_z)(void const* table, void* self, Tvx_ovtx_d3* list);
    bool (*set_empty)(void const* table, void* self);
    bool (*set_point)(void const* table, void* self, Tvx_vtx_d2* vertex);
    bool (*set_point_z)(void const* table, void* self, Tvx_vtx_d3* vertex);
    bool (*set_multipoint)(void const* table, void* self, Tvx_op2d* list);
    bool (*set_multipoint_z)(void const* table, void* self, Tvx_ovtx_d3* list);
    bool (*set_polyline)(void const* table, void* self, Tvx_op2d* list);
    bool (*set_polyline_z)(void const* table, void* self, Tvx_ovtx_d3* list);
    bool (*set_polygon)(void const* table, void* self, Tvx_op2d* list);
    bool (*set_polygon_z)(void const* table, void* self, Tvx_ovtx_d3* list);
    bool (*get_style)(void const* table, void* self, void* style);
    int (*field_type)(void const* table, void* self, int field);
    int (*field_subtype)(void const* table, void* self, int field);
    void (*get_string)(void const* table, void* self, int field, bool* not_null,
        t_vx_string_visitor_interface visitor);
    int (*get_integer)(void const* table, void* self, int field, bool* not_null);
    long long (*get_bigint)(void const* table, void* self, int field, bool* not_null);
    double (*get_numeric)(void const* table, void* self, int field, bool* not_null);
    void (*get_binary)(void const* table, void* self, int field, bool* not_null,
        t_vx_bytes_visitor_interface visitor);
    bool (*set_string)(void const* table, void* self, int field, wchar_t const* text);
    bool (*set_integer)(void const* table, void* self, int field, int value);
    bool (*set_bigint)(void const* table, void* self, int field, long long value);
    bool (*set_numeric)(void const* table, void* self, int field, double value);
    bool (*set_binary)(void const* table, void* self, int field, int size, char* bytes);
    bool (*set_undef)(void const* table, void* self, int field);
};
VX_BINDING_FUNCTIONS(feature, 15)
VX_LOCAL inline void vxk_datasource_feature_detach(t_vx_feature_interface h)
{
    if (h.table && h.self)
        h.table->detach(h.table, h.self);
}
VX_LOCAL inline long long vxk_datasource_feature_fid(t_vx_feature_interface h)
{
    return h.table && h.self ? h.table->fid(h.table, h.self) : 0;
}
VX_LOCAL inline int vxk_datasource_feature_geom_type(t_vx_feature_interface h)
{
    return h.table && h.self ? h.table->geom_type(h.table, h.self) : 0;
}
VX_LOCAL inline void vxk_datasource_feature_with_proj4(
    t_vx_feature_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_proj4(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_datasource_feature_with_extent(t_vx_feature_interface h, Tvx_box_d2* box)
{
    return h.table && h.self ? h.table->with_extent(h.table, h.self, box) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_with_extent_z(t_vx_feature_interface h, Tvx_box_d3* box)
{
    return h.table && h.self ? h.table->with_extent_z(h.table, h.self, box) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_get_point(t_vx_feature_interface h, Tvx_vtx_d2* vertex)
{
    return h.table && h.self ? h.table->get_point(h.table, h.self, vertex) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_get_point_z(t_vx_feature_interface h, Tvx_vtx_d3* vertex)
{
    return h.table && h.self ? h.table->get_point_z(h.table, h.self, vertex) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_get_multipoint(t_vx_feature_interface h, Tvx_op2d* list)
{
    return h.table && h.self ? h.table->get_multipoint(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_get_multipoint_z(t_vx_feature_interface h, Tvx_ovtx_d3* list)
{
    return h.table && h.self ? h.table->get_multipoint_z(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_get_polypoint(t_vx_feature_interface h, Tvx_op2d* list)
{
    return h.table && h.self ? h.table->get_polypoint(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_get_polypoint_z(t_vx_feature_interface h, Tvx_ovtx_d3* list)
{
    return h.table && h.self ? h.table->get_polypoint_z(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_empty(t_vx_feature_interface h)
{
    return h.table && h.self ? h.table->set_empty(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_point(t_vx_feature_interface h, Tvx_vtx_d2* vertex)
{
    return h.table && h.self ? h.table->set_point(h.table, h.self, vertex) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_point_z(t_vx_feature_interface h, Tvx_vtx_d3* vertex)
{
    return h.table && h.self ? h.table->set_point_z(h.table, h.self, vertex) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_multipoint(t_vx_feature_interface h, Tvx_op2d* list)
{
    return h.table && h.self ? h.table->set_multipoint(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_multipoint_z(t_vx_feature_interface h, Tvx_ovtx_d3* list)
{
    return h.table && h.self ? h.table->set_multipoint_z(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_polyline(t_vx_feature_interface h, Tvx_op2d* list)
{
    return h.table && h.self ? h.table->set_polyline(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_polyline_z(t_vx_feature_interface h, Tvx_ovtx_d3* list)
{
    return h.table && h.self ? h.table->set_polyline_z(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_polygon(t_vx_feature_interface h, Tvx_op2d* list)
{
    return h.table && h.self ? h.table->set_polygon(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_polygon_z(t_vx_feature_interface h, Tvx_ovtx_d3* list)
{
    return h.table && h.self ? h.table->set_polygon_z(h.table, h.self, list) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_get_style(t_vx_feature_interface h, void* style)
{
    return h.table && h.self ? h.table->get_style(h.table, h.self, style) : false;
}
VX_LOCAL inline int vxk_datasource_feature_field_type(t_vx_feature_interface h, int field)
{
    return h.table && h.self ? h.table->field_type(h.table, h.self, field) : 0;
}
VX_LOCAL inline int vxk_datasource_feature_field_subtype(t_vx_feature_interface h, int field)
{
    return h.table && h.self ? h.table->field_subtype(h.table, h.self, field) : 0;
}
VX_LOCAL inline void vxk_datasource_feature_get_string(
    t_vx_feature_interface h, int field, bool* not_null, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->get_string(h.table, h.self, field, not_null, visitor);
}
VX_LOCAL inline int vxk_datasource_feature_get_integer(t_vx_feature_interface h, int field, bool* not_null)
{
    return h.table && h.self ? h.table->get_integer(h.table, h.self, field, not_null) : 0;
}
VX_LOCAL inline long long vxk_datasource_feature_get_bigint(
    t_vx_feature_interface h, int field, bool* not_null)
{
    return h.table && h.self ? h.table->get_bigint(h.table, h.self, field, not_null) : 0;
}
VX_LOCAL inline double vxk_datasource_feature_get_numeric(t_vx_feature_interface h, int field, bool* not_null)
{
    return h.table && h.self ? h.table->get_numeric(h.table, h.self, field, not_null) : 0.0;
}
VX_LOCAL inline void vxk_datasource_feature_get_binary(
    t_vx_feature_interface h, int field, bool* not_null, t_vx_bytes_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->get_binary(h.table, h.self, field, not_null, visitor);
}
VX_LOCAL inline bool vxk_datasource_feature_set_string(
    t_vx_feature_interface h, int field, wchar_t const* text)
{
    return h.table && h.self ? h.table->set_string(h.table, h.self, field, text) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_integer(t_vx_feature_interface h, int field, int value)
{
    return h.table && h.self ? h.table->set_integer(h.table, h.self, field, value) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_bigint(t_vx_feature_interface h, int field, long long value)
{
    return h.table && h.self ? h.table->set_bigint(h.table, h.self, field, value) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_numeric(t_vx_feature_interface h, int field, double value)
{
    return h.table && h.self ? h.table->set_numeric(h.table, h.self, field, value) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_binary(
    t_vx_feature_interface h, int field, int size, char* bytes)
{
    return h.table && h.self ? h.table->set_binary(h.table, h.self, field, size, bytes) : false;
}
VX_LOCAL inline bool vxk_datasource_feature_set_undef(t_vx_feature_interface h, int field)
{
    return h.table && h.self ? h.table->set_undef(h.table, h.self, field) : false;
}
namespace vx
{
/// One record of a table with its geometry.
class VX_API feature : public binding::wrapper<t_vx_feature_interface>
{
public:
    using wrapper::wrapper;
    /// Ends the feature for the caller.
    VX_LOCAL void detach() const
    { vxk_datasource_feature_detach(f_handle); }
    VX_LOCAL long long fid() const
    { return vxk_datasource_feature_fid(f_handle); }
    /// Of this feature; 0 without a geometry.
    VX_LOCAL int geom_type() const
    { return vxk_datasource_feature_geom_type(f_handle); }
    VX_LOCAL void with_proj4(vx::string_visitor visitor) const
    { vxk_datasource_feature_with_proj4(f_handle, visitor); }
    VX_LOCAL bool with_extent(Tvx_box_d2* box) const
    { return vxk_datasource_feature_with_extent(f_handle, box); }
    VX_LOCAL bool with_extent_z(Tvx_box_d3* box) const
    { return vxk_datasource_feature_with_extent_z(f_handle, box); }
    /// Getters: false if the geometry is not of the kind; the target is then empty.
    VX_LOCAL bool get_point(Tvx_vtx_d2* vertex) const
    { return vxk_datasource_feature_get_point(f_handle, vertex); }
    /// Without z in the data z is 0.
    VX_LOCAL bool get_point_z(Tvx_vtx_d3* vertex) const
    { return vxk_datasource_feature_get_point_z(f_handle, vertex); }
    /// One part for each point.
    VX_LOCAL bool get_multipoint(Tvx_op2d* list) const
    { return vxk_datasource_feature_get_multipoint(f_handle, list); }
    VX_LOCAL bool get_multipoint_z(Tvx_ovtx_d3* list) const
    { return vxk_datasource_feature_get_multipoint_z(f_handle, list); }
    /// One part for each line or ring; rings repeat their first vertex at the end.
    VX_LOCAL bool get_polypoint(Tvx_op2d* list) const
    { return vxk_datasource_feature_get_polypoint(f_handle, list); }
    VX_LOCAL bool get_polypoint_z(Tvx_ovtx_d3* list) const
    { return vxk_datasource_feature_get_polypoint_z(f_handle, list); }
    /// Takes the geometry away; setters change the stored feature.
    VX_LOCAL bool set_empty() const
    { return vxk_datasource_feature_set_empty(f_handle); }
    VX_LOCAL bool set_point(Tvx_vtx_d2* vertex) const
    { return vxk_datasource_feature_set_point(f_handle, vertex); }
    VX_LOCAL bool set_point_z(Tvx_vtx_d3* vertex) const
    { return vxk_datasource_feature_set_point_z(f_handle, vertex); }
    VX_LOCAL bool set_multipoint(Tvx_op2d* list) const
    { return vxk_datasource_feature_set_multipoint(f_handle, list); }
    VX_LOCAL bool set_multipoint_z(Tvx_ovtx_d3* list) const
    { return vxk_datasource_feature_set_multipoint_z(f_handle, list); }
    VX_LOCAL bool set_polyline(Tvx_op2d* list) const
    { return vxk_datasource_feature_set_polyline(f_handle, list); }
    VX_LOCAL bool set_polyline_z(Tvx_ovtx_d3* list) const
    { return vxk_datasource_feature_set_polyline_z(f_handle, list); }
    /// Rings in any order and direction; what lies in an odd number of rings is inside.
    VX_LOCAL bool set_polygon(Tvx_op2d* list) const
    { return vxk_datasource_feature_set_polygon(f_handle, list); }
    VX_LOCAL bool set_polygon_z(Tvx_ovtx_d3* list) const
    { return vxk_datasource_feature_set_polygon_z(f_handle, list); }
    /// Fills an engine style from what the data set says; false if it says nothing.
    VX_LOCAL bool get_style(void* style) const
    { return vxk_datasource_feature_get_style(f_handle, style); }
    VX_LOCAL int field_type(int field) const
    { return vxk_datasource_feature_field_type(f_handle, field); }
    VX_LOCAL int field_subtype(int field) const
    { return vxk_datasource_feature_field_subtype(f_handle, field); }
    /// Nothing visited for null.
    VX_LOCAL void get_string(int field, bool* not_null, vx::string_visitor visitor) const
    { vxk_datasource_feature_get_string(f_handle, field, not_null, visitor); }
    VX_LOCAL int get_integer(int field, bool* not_null) const
    { return vxk_datasource_feature_get_integer(f_handle, field, not_null); }
    VX_LOCAL long long get_bigint(int field, bool* not_null) const
    { return vxk_datasource_feature_get_bigint(f_handle, field, not_null); }
    VX_LOCAL double get_numeric(int field, bool* not_null) const
    { return vxk_datasource_feature_get_numeric(f_handle, field, not_null); }
    VX_LOCAL void get_binary(int field, bool* not_null, vx::bytes_visitor visitor) const
    { vxk_datasource_feature_get_binary(f_handle, field, not_null, visitor); }
    VX_LOCAL bool set_string(int field, wchar_t const* text) const
    { return vxk_datasource_feature_set_string(f_handle, field, text); }
    VX_LOCAL bool set_integer(int field, int value) const
    { return vxk_datasource_feature_set_integer(f_handle, field, value); }
    VX_LOCAL bool set_bigint(int field, long long value) const
    { return vxk_datasource_feature_set_bigint(f_handle, field, value); }
    VX_LOCAL bool set_numeric(int field, double value) const
    { return vxk_datasource_feature_set_numeric(f_handle, field, value); }
    VX_LOCAL bool set_binary(int field, int size, char* bytes) const
    { return vxk_datasource_feature_set_binary(f_handle, field, size, bytes); }
    /// Makes the cell null.
    VX_LOCAL bool set_undef(int field) const
    { return vxk_datasource_feature_set_undef(f_handle, field); }
};
class VX_API feature_impl
    : public binding::implementation<feature_impl, vx::feature>
{
public:
    virtual void detach() {}
    virtual long long fid() { return 0; }
    virtual int geom_type() { return 0; }
    virtual void with_proj4(vx::string_visitor) {}
    virtual bool with_extent(Tvx_box_d2*) { return false; }
    virtual bool with_extent_z(Tvx_box_d3*) { return false; }
    virtual bool get_point(Tvx_vtx_d2*) { return false; }
    virtual bool get_point_z(Tvx_vtx_d3*) { return false; }
    virtual bool get_multipoint(Tvx_op2d*) { return false; }
    virtual bool get_multipoint_z(Tvx_ovtx_d3*) { return false; }
    virtual bool get_polypoint(Tvx_op2d*) { return false; }
    virtual bool get_polypoint_z(Tvx_ovtx_d3*) { return false; }
    virtual bool set_empty() { return false; }
    virtual bool set_point(Tvx_vtx_d2*) { return false; }
    virtual bool set_point_z(Tvx_vtx_d3*) { return false; }
    virtual bool set_multipoint(Tvx_op2d*) { return false; }
    virtual bool set_multipoint_z(Tvx_ovtx_d3*) { return false; }
    virtual bool set_polyline(Tvx_op2d*) { return false; }
    virtual bool set_polyline_z(Tvx_ovtx_d3*) { return false; }
    virtual bool set_polygon(Tvx_op2d*) { return false; }
    virtual bool set_polygon_z(Tvx_ovtx_d3*) { return false; }
    virtual bool get_style(void*) { return false; }
    virtual int field_type(int) { return 0; }
    virtual int field_subtype(int) { return 0; }
    virtual void get_string(int, bool*, vx::string_visitor) {}
    virtual int get_integer(int, bool*) { return 0; }
    virtual long long get_bigint(int, bool*) { return 0; }
    virtual double get_numeric(int, bool*) { return 0.0; }
    virtual void get_binary(int, bool*, vx::bytes_visitor) {}
    virtual bool set_string(int, wchar_t const*) { return false; }
    virtual bool set_integer(int, int) { return false; }
    virtual bool set_bigint(int, long long) { return false; }
    virtual bool set_numeric(int, double) { return false; }
    virtual bool set_binary(int, int, char*) { return false; }
    virtual bool set_undef(int) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_feature_interface_name; }
    VX_LOCAL static vx_feature_interface_table const* family_table();
protected:
    ~feature_impl() = default;
};
VX_LOCAL inline constexpr vx_feature_interface_table feature_family_table{
    &binding::generalize_slot<feature_impl>,
    &binding::slot<&feature_impl::detach>::call,
    &binding::slot<&feature_impl::fid>::call,
    &binding::slot<&feature_impl::geom_type>::call,
    &binding::slot<&feature_impl::with_proj4>::call,
    &binding::slot<&feature_impl::with_extent>::call,
    &binding::slot<&feature_impl::with_extent_z>::call,
    &binding::slot<&feature_impl::get_point>::call,
    &binding::slot<&feature_impl::get_point_z>::call,
    &binding::slot<&feature_impl::get_multipoint>::call,
    &binding::slot<&feature_impl::get_multipoint_z>::call,
    &binding::slot<&feature_impl::get_polypoint>::call,
    &binding::slot<&feature_impl::get_polypoint_z>::call,
    &binding::slot<&feature_impl::set_empty>::call,
    &binding::slot<&feature_impl::set_point>::call,
    &binding::slot<&feature_impl::set_point_z>::call,
    &binding::slot<&feature_impl::set_multipoint>::call,
    &binding::slot<&feature_impl::set_multipoint_z>::call,
    &binding::slot<&feature_impl::set_polyline>::call,
    &binding::slot<&feature_impl::set_polyline_z>::call,
    &binding::slot<&feature_impl::set_polygon>::call,
    &binding::slot<&feature_impl::set_polygon_z>::call,
    &binding::slot<&feature_impl::get_style>::call,
    &binding::slot<&feature_impl::field_type>::call,
    &binding::slot<&feature_impl::field_subtype>::call,
    &binding::slot<&feature_impl::get_string>::call,
    &binding::slot<&feature_impl::get_integer>::call,
    &binding::slot<&feature_impl::get_bigint>::call,
    &binding::slot<&feature_impl::get_numeric>::call,
    &binding::slot<&feature_impl::get_binary>::call,
    &binding::slot<&feature_impl::set_string>::call,
    &binding::slot<&feature_impl::set_integer>::call,
    &binding::slot<&feature_impl::set_bigint>::call,
    &binding::slot<&feature_impl::set_numeric>::call,
    &binding::slot<&feature_impl::set_binary>::call,
    &binding::slot<&feature_impl::set_undef>::call,
};
inline vx_feature_interface_table const* feature_impl::family_table()
{ return &feature_family_table; }
}
