#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/grid_block.h"
#include "extension/binding/grid_palette_visitor.h"
#include "extension/binding/interface.h"
#include "extension/binding/monitor.h"
#include "extension/binding/string_visitor.h"

#include "platform/base/geometry.h"

VX_BINDING_HANDLE(grid_source)
struct vx_grid_source_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*create_grid)(void const* table, void* self, wchar_t const* name, int grid_type, int* dimensions,
        int field_count, int datatype);
    bool (*create_copy)(void const* table, void* self, wchar_t const* name,
        t_vx_grid_source_interface source, t_vx_monitor_interface progress);
    bool (*select_grid)(void const* table, void* self, wchar_t const* name);
    int (*grid_type)(void const* table, void* self);
    bool (*set_grid_type)(void const* table, void* self, int type);
    bool (*with_dimensions)(void const* table, void* self, int* counts);
    bool (*with_geotransform)(void const* table, void* self, Tvx_matrix3x3* matrix);
    bool (*set_geotransform)(void const* table, void* self, Tvx_matrix3x3* matrix);
    bool (*with_geotransform_z)(void const* table, void* self, Tvx_matrix4x4* matrix);
    bool (*set_geotransform_z)(void const* table, void* self, Tvx_matrix4x4* matrix);
    bool (*with_origin)(void const* table, void* self, double* xyz);
    bool (*set_origin)(void const* table, void* self, double* xyz);
    bool (*with_spacing)(void const* table, void* self, double* xyz);
    bool (*set_spacing)(void const* table, void* self, double* xyz);
    double (*azimuth)(void const* table, void* self);
    bool (*set_azimuth)(void const* table, void* self, double angle);
    void (*coord_x)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    bool (*set_coord_x)(void const* table, void* self, wchar_t const* name);
    void (*coord_y)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    bool (*set_coord_y)(void const* table, void* self, wchar_t const* name);
    void (*coord_z)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    bool (*set_coord_z)(void const* table, void* self, wchar_t const* name);
    bool (*create_overviews)(void const* table, void* self, int resampling, int* levels, int level_count,
        int* fields, int field_count, t_vx_monitor_interface progress);
    bool (*delete_overviews)(void const* table, void* self, int* fields, int field_count);
    int (*create_field)(void const* table, void* self, wchar_t const* name, int datatype);
    bool (*delete_field)(void const* table, void* self, int field);
    bool (*rename_field)(void const* table, void* self, int field, wchar_t const* name);
    bool (*reorder_fields)(void const* table, void* self, int* order);
    int (*field_datatype)(void const* table, void* self, int field);
    bool (*set_field_datatype)(void const* table, void* self, int field, int datatype);
    int (*field_color)(void const* table, void* self, int field);
    bool (*set_field_color)(void const* table, void* self, int field, int color);
    int (*field_kind)(void const* table, void* self, int field);
    bool (*set_field_kind)(void const* table, void* self, int field, int kind);
    bool (*field_palette)(void const* table, void* self, int field,
        t_vx_grid_palette_visitor_interface visitor);
    bool (*with_block)(void const* table, void* self, int field, t_vx_grid_block_visitor_interface visitor);
    bool (*with_index)(void const* table, void* self, t_vx_grid_block_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(grid_source, 20)
VX_LOCAL inline bool vxk_datasource_grid_source_create_grid(
    t_vx_grid_source_interface h, wchar_t const* name, int grid_type, int* dimensions, int field_count,
        int datatype)
{
    return h.table && h.self ? h.table->create_grid(h.table, h.self, name, grid_type, dimensions,
        field_count, datatype) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_create_copy(
    t_vx_grid_source_interface h, wchar_t const* name, t_vx_grid_source_interface source,
        t_vx_monitor_interface progress)
{
    return h.table && h.self ? h.table->create_copy(h.table, h.self, name, source, progress) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_select_grid(t_vx_grid_source_interface h, wchar_t const* name)
{
    return h.table && h.self ? h.table->select_grid(h.table, h.self, name) : false;
}
VX_LOCAL inline int vxk_datasource_grid_source_grid_type(t_vx_grid_source_interface h)
{
    return h.table && h.self ? h.table->grid_type(h.table, h.self) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_grid_type(t_vx_grid_source_interface h, int type)
{
    return h.table && h.self ? h.table->set_grid_type(h.table, h.self, type) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_with_dimensions(t_vx_grid_source_interface h, int* counts)
{
    return h.table && h.self ? h.table->with_dimensions(h.table, h.self, counts) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_with_geotransform(
    t_vx_grid_source_interface h, Tvx_matrix3x3* matrix)
{
    return h.table && h.self ? h.table->with_geotransform(h.table, h.self, matrix) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_geotransform(
    t_vx_grid_source_interface h, Tvx_matrix3x3* matrix)
{
    return h.table && h.self ? h.table->set_geotransform(h.table, h.self, matrix) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_with_geotransform_z(
    t_vx_grid_source_interface h, Tvx_matrix4x4* matrix)
{
    return h.table && h.self ? h.table->with_geotransform_z(h.table, h.self, matrix) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_geotransform_z(
    t_vx_grid_source_interface h, Tvx_matrix4x4* matrix)
{
    return h.table && h.self ? h.table->set_geotransform_z(h.table, h.self, matrix) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_with_origin(t_vx_grid_source_interface h, double* xyz)
{
    return h.table && h.self ? h.table->with_origin(h.table, h.self, xyz) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_origin(t_vx_grid_source_interface h, double* xyz)
{
    return h.table && h.self ? h.table->set_origin(h.table, h.self, xyz) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_with_spacing(t_vx_grid_source_interface h, double* xyz)
{
    return h.table && h.self ? h.table->with_spacing(h.table, h.self, xyz) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_spacing(t_vx_grid_source_interface h, double* xyz)
{
    return h.table && h.self ? h.table->set_spacing(h.table, h.self, xyz) : false;
}
VX_LOCAL inline double vxk_datasource_grid_source_azimuth(t_vx_grid_source_interface h)
{
    return h.table && h.self ? h.table->azimuth(h.table, h.self) : 0.0;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_azimuth(t_vx_grid_source_interface h, double angle)
{
    return h.table && h.self ? h.table->set_azimuth(h.table, h.self, angle) : false;
}
VX_LOCAL inline void vxk_datasource_grid_source_coord_x(
    t_vx_grid_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->coord_x(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_coord_x(t_vx_grid_source_interface h, wchar_t const* name)
{
    return h.table && h.self ? h.table->set_coord_x(h.table, h.self, name) : false;
}
VX_LOCAL inline void vxk_datasource_grid_source_coord_y(
    t_vx_grid_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->coord_y(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_coord_y(t_vx_grid_source_interface h, wchar_t const* name)
{
    return h.table && h.self ? h.table->set_coord_y(h.table, h.self, name) : false;
}
VX_LOCAL inline void vxk_datasource_grid_source_coord_z(
    t_vx_grid_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->coord_z(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_coord_z(t_vx_grid_source_interface h, wchar_t const* name)
{
    return h.table && h.self ? h.table->set_coord_z(h.table, h.self, name) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_create_overviews(
    t_vx_grid_source_interface h, int resampling, int* levels, int level_count, int* fields, int field_count,
        t_vx_monitor_interface progress)
{
    return h.table && h.self ? h.table->create_overviews(h.table, h.self, resampling, levels, level_count,
        fields, field_count, progress) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_delete_overviews(
    t_vx_grid_source_interface h, int* fields, int field_count)
{
    return h.table && h.self ? h.table->delete_overviews(h.table, h.self, fields, field_count) : false;
}
VX_LOCAL inline int vxk_datasource_grid_source_create_field(
    t_vx_grid_source_interface h, wchar_t const* name, int datatype)
{
    return h.table && h.self ? h.table->create_field(h.table, h.self, name, datatype) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_source_delete_field(t_vx_grid_source_interface h, int field)
{
    return h.table && h.self ? h.table->delete_field(h.table, h.self, field) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_rename_field(
    t_vx_grid_source_interface h, int field, wchar_t const* name)
{
    return h.table && h.self ? h.table->rename_field(h.table, h.self, field, name) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_reorder_fields(t_vx_grid_source_interface h, int* order)
{
    return h.table && h.self ? h.table->reorder_fields(h.table, h.self, order) : false;
}
VX_LOCAL inline int vxk_datasource_grid_source_field_datatype(t_vx_grid_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_datatype(h.table, h.self, field) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_field_datatype(
    t_vx_grid_source_interface h, int field, int datatype)
{
    return h.table && h.self ? h.table->set_field_datatype(h.table, h.self, field, datatype) : false;
}
VX_LOCAL inline int vxk_datasource_grid_source_field_color(t_vx_grid_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_color(h.table, h.self, field) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_field_color(
    t_vx_grid_source_interface h, int field, int color)
{
    return h.table && h.self ? h.table->set_field_color(h.table, h.self, field, color) : false;
}
VX_LOCAL inline int vxk_datasource_grid_source_field_kind(t_vx_grid_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_kind(h.table, h.self, field) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_source_set_field_kind(
    t_vx_grid_source_interface h, int field, int kind)
{
    return h.table && h.self ? h.table->set_field_kind(h.table, h.self, field, kind) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_field_palette(
    t_vx_grid_source_interface h, int field, t_vx_grid_palette_visitor_interface visitor)
{
    return h.table && h.self ? h.table->field_palette(h.table, h.self, field, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_with_block(
    t_vx_grid_source_interface h, int field, t_vx_grid_block_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_block(h.table, h.self, field, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_grid_source_with_index(
    t_vx_grid_source_interface h, t_vx_grid_block_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_index(h.table, h.self, visitor) : false;
}
namespace vx
{
/// The grids of a data set; calls are about the selected one.
class VX_API grid_source : public binding::wrapper<t_vx_grid_source_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL bool create_grid(wchar_t const* name, int grid_type, int* dimensions, int field_count,
        int datatype) const
    { return vxk_datasource_grid_source_create_grid(f_handle, name, grid_type, dimensions, field_count,
        datatype); }
    VX_LOCAL bool create_copy(wchar_t const* name, vx::grid_source source, vx::monitor progress) const
    { return vxk_datasource_grid_source_create_copy(f_handle, name, source, progress); }
    VX_LOCAL bool select_grid(wchar_t const* name) const
    { return vxk_datasource_grid_source_select_grid(f_handle, name); }
    VX_LOCAL int grid_type() const
    { return vxk_datasource_grid_source_grid_type(f_handle); }
    VX_LOCAL bool set_grid_type(int type) const
    { return vxk_datasource_grid_source_set_grid_type(f_handle, type); }
    /// Three counts: x, y, z.
    VX_LOCAL bool with_dimensions(int* counts) const
    { return vxk_datasource_grid_source_with_dimensions(f_handle, counts); }
    VX_LOCAL bool with_geotransform(Tvx_matrix3x3* matrix) const
    { return vxk_datasource_grid_source_with_geotransform(f_handle, matrix); }
    VX_LOCAL bool set_geotransform(Tvx_matrix3x3* matrix) const
    { return vxk_datasource_grid_source_set_geotransform(f_handle, matrix); }
    VX_LOCAL bool with_geotransform_z(Tvx_matrix4x4* matrix) const
    { return vxk_datasource_grid_source_with_geotransform_z(f_handle, matrix); }
    VX_LOCAL bool set_geotransform_z(Tvx_matrix4x4* matrix) const
    { return vxk_datasource_grid_source_set_geotransform_z(f_handle, matrix); }
    VX_LOCAL bool with_origin(double* xyz) const
    { return vxk_datasource_grid_source_with_origin(f_handle, xyz); }
    VX_LOCAL bool set_origin(double* xyz) const
    { return vxk_datasource_grid_source_set_origin(f_handle, xyz); }
    VX_LOCAL bool with_spacing(double* xyz) const
    { return vxk_datasource_grid_source_with_spacing(f_handle, xyz); }
    VX_LOCAL bool set_spacing(double* xyz) const
    { return vxk_datasource_grid_source_set_spacing(f_handle, xyz); }
    VX_LOCAL double azimuth() const
    { return vxk_datasource_grid_source_azimuth(f_handle); }
    VX_LOCAL bool set_azimuth(double angle) const
    { return vxk_datasource_grid_source_set_azimuth(f_handle, angle); }
    VX_LOCAL void coord_x(vx::string_visitor visitor) const
    { vxk_datasource_grid_source_coord_x(f_handle, visitor); }
    VX_LOCAL bool set_coord_x(wchar_t const* name) const
    { return vxk_datasource_grid_source_set_coord_x(f_handle, name); }
    VX_LOCAL void coord_y(vx::string_visitor visitor) const
    { vxk_datasource_grid_source_coord_y(f_handle, visitor); }
    VX_LOCAL bool set_coord_y(wchar_t const* name) const
    { return vxk_datasource_grid_source_set_coord_y(f_handle, name); }
    VX_LOCAL void coord_z(vx::string_visitor visitor) const
    { vxk_datasource_grid_source_coord_z(f_handle, visitor); }
    VX_LOCAL bool set_coord_z(wchar_t const* name) const
    { return vxk_datasource_grid_source_set_coord_z(f_handle, name); }
    VX_LOCAL bool create_overviews(int resampling, int* levels, int level_count, int* fields,
        int field_count, vx::monitor progress) const
    { return vxk_datasource_grid_source_create_overviews(f_handle, resampling, levels, level_count, fields,
        field_count, progress); }
    VX_LOCAL bool delete_overviews(int* fields, int field_count) const
    { return vxk_datasource_grid_source_delete_overviews(f_handle, fields, field_count); }
    /// Index of the new field, -1 on failure.
    VX_LOCAL int create_field(wchar_t const* name, int datatype) const
    { return vxk_datasource_grid_source_create_field(f_handle, name, datatype); }
    VX_LOCAL bool delete_field(int field) const
    { return vxk_datasource_grid_source_delete_field(f_handle, field); }
    VX_LOCAL bool rename_field(int field, wchar_t const* name) const
    { return vxk_datasource_grid_source_rename_field(f_handle, field, name); }
    VX_LOCAL bool reorder_fields(int* order) const
    { return vxk_datasource_grid_source_reorder_fields(f_handle, order); }
    VX_LOCAL int field_datatype(int field) const
    { return vxk_datasource_grid_source_field_datatype(f_handle, field); }
    VX_LOCAL bool set_field_datatype(int field, int datatype) const
    { return vxk_datasource_grid_source_set_field_datatype(f_handle, field, datatype); }
    VX_LOCAL int field_color(int field) const
    { return vxk_datasource_grid_source_field_color(f_handle, field); }
    VX_LOCAL bool set_field_color(int field, int color) const
    { return vxk_datasource_grid_source_set_field_color(f_handle, field, color); }
    VX_LOCAL int field_kind(int field) const
    { return vxk_datasource_grid_source_field_kind(f_handle, field); }
    VX_LOCAL bool set_field_kind(int field, int kind) const
    { return vxk_datasource_grid_source_set_field_kind(f_handle, field, kind); }
    VX_LOCAL bool field_palette(int field, vx::grid_palette_visitor visitor) const
    { return vxk_datasource_grid_source_field_palette(f_handle, field, visitor); }
    VX_LOCAL bool with_block(int field, vx::grid_block_visitor visitor) const
    { return vxk_datasource_grid_source_with_block(f_handle, field, visitor); }
    VX_LOCAL bool with_index(vx::grid_block_visitor visitor) const
    { return vxk_datasource_grid_source_with_index(f_handle, visitor); }
};
class VX_API grid_source_impl
    : public binding::implementation<grid_source_impl, vx::grid_source>
{
public:
    virtual bool create_grid(wchar_t const*, int, int*, int, int) { return false; }
    virtual bool create_copy(wchar_t const*, vx::grid_source, vx::monitor) { return false; }
    virtual bool select_grid(wchar_t const*) { return false; }
    virtual int grid_type() { return 0; }
    virtual bool set_grid_type(int) { return false; }
    virtual bool with_dimensions(int*) { return false; }
    virtual bool with_geotransform(Tvx_matrix3x3*) { return false; }
    virtual bool set_geotransform(Tvx_matrix3x3*) { return false; }
    virtual bool with_geotransform_z(Tvx_matrix4x4*) { return false; }
    virtual bool set_geotransform_z(Tvx_matrix4x4*) { return false; }
    virtual bool with_origin(double*) { return false; }
    virtual bool set_origin(double*) { return false; }
    virtual bool with_spacing(double*) { return false; }
    virtual bool set_spacing(double*) { return false; }
    virtual double azimuth() { return 0.0; }
    virtual bool set_azimuth(double) { return false; }
    virtual void coord_x(vx::string_visitor) {}
    virtual bool set_coord_x(wchar_t const*) { return false; }
    virtual void coord_y(vx::string_visitor) {}
    virtual bool set_coord_y(wchar_t const*) { return false; }
    virtual void coord_z(vx::string_visitor) {}
    virtual bool set_coord_z(wchar_t const*) { return false; }
    virtual bool create_overviews(int, int*, int, int*, int, vx::monitor) { return false; }
    virtual bool delete_overviews(int*, int) { return false; }
    virtual int create_field(wchar_t const*, int) { return 0; }
    virtual bool delete_field(int) { return false; }
    virtual bool rename_field(int, wchar_t const*) { return false; }
    virtual bool reorder_fields(int*) { return false; }
    virtual int field_datatype(int) { return 0; }
    virtual bool set_field_datatype(int, int) { return false; }
    virtual int field_color(int) { return 0; }
    virtual bool set_field_color(int, int) { return false; }
    virtual int field_kind(int) { return 0; }
    virtual bool set_field_kind(int, int) { return false; }
    virtual bool field_palette(int, vx::grid_palette_visitor) { return false; }
    virtual bool with_block(int, vx::grid_block_visitor) { return false; }
    virtual bool with_index(vx::grid_block_visitor) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_grid_source_interface_name; }
    VX_LOCAL static vx_grid_source_interface_table const* family_table();
protected:
    ~grid_source_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_source_interface_table grid_source_family_table{
    &binding::generalize_slot<grid_source_impl>,
    &binding::slot<&grid_source_impl::create_grid>::call,
    &binding::slot<&grid_source_impl::create_copy>::call,
    &binding::slot<&grid_source_impl::select_grid>::call,
    &binding::slot<&grid_source_impl::grid_type>::call,
    &binding::slot<&grid_source_impl::set_grid_type>::call,
    &binding::slot<&grid_source_impl::with_dimensions>::call,
    &binding::slot<&grid_source_impl::with_geotransform>::call,
    &binding::slot<&grid_source_impl::set_geotransform>::call,
    &binding::slot<&grid_source_impl::with_geotransform_z>::call,
    &binding::slot<&grid_source_impl::set_geotransform_z>::call,
    &binding::slot<&grid_source_impl::with_origin>::call,
    &binding::slot<&grid_source_impl::set_origin>::call,
    &binding::slot<&grid_source_impl::with_spacing>::call,
    &binding::slot<&grid_source_impl::set_spacing>::call,
    &binding::slot<&grid_source_impl::azimuth>::call,
    &binding::slot<&grid_source_impl::set_azimuth>::call,
    &binding::slot<&grid_source_impl::coord_x>::call,
    &binding::slot<&grid_source_impl::set_coord_x>::call,
    &binding::slot<&grid_source_impl::coord_y>::call,
    &binding::slot<&grid_source_impl::set_coord_y>::call,
    &binding::slot<&grid_source_impl::coord_z>::call,
    &binding::slot<&grid_source_impl::set_coord_z>::call,
    &binding::slot<&grid_source_impl::create_overviews>::call,
    &binding::slot<&grid_source_impl::delete_overviews>::call,
    &binding::slot<&grid_source_impl::create_field>::call,
    &binding::slot<&grid_source_impl::delete_field>::call,
    &binding::slot<&grid_source_impl::rename_field>::call,
    &binding::slot<&grid_source_impl::reorder_fields>::call,
    &binding::slot<&grid_source_impl::field_datatype>::call,
    &binding::slot<&grid_source_impl::set_field_datatype>::call,
    &binding::slot<&grid_source_impl::field_color>::call,
    &binding::slot<&grid_source_impl::set_field_color>::call,
    &binding::slot<&grid_source_impl::field_kind>::call,
    &binding::slot<&grid_source_impl::set_field_kind>::call,
    &binding::slot<&grid_source_impl::field_palette>::call,
    &binding::slot<&grid_source_impl::with_block>::call,
    &binding::slot<&grid_source_impl::with_index>::call,
};
inline vx_grid_source_interface_table const* grid_source_impl::family_table()
{ return &grid_source_family_table; }
}
