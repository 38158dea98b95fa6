#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/dict_visitor.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

#include "platform/base/geometry.h"

VX_BINDING_HANDLE(data_source)
struct vx_data_source_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*detach)(void const* table, void* self);
    int (*driver_id)(void const* table, void* self);
    bool (*has_capability)(void const* table, void* self, int capability);
    bool (*with_extent)(void const* table, void* self, Tvx_box_d2* box, bool force);
    bool (*with_extent_z)(void const* table, void* self, Tvx_box_d3* box, bool force);
    void (*with_proj4)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    bool (*set_proj4)(void const* table, void* self, wchar_t const* text);
    int (*field_count)(void const* table, void* self);
    void (*field_name)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    void (*field_alias)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    bool (*set_field_alias)(void const* table, void* self, int field, wchar_t const* alias);
    int (*field_type)(void const* table, void* self, int field);
    int (*field_subtype)(void const* table, void* self, int field);
    bool (*field_nullable)(void const* table, void* self, int field);
    bool (*field_readonly)(void const* table, void* self, int field);
    void (*field_default)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
    bool (*field_dict)(void const* table, void* self, int field, t_vx_dict_visitor_interface visitor);
    bool (*field_index)(void const* table, void* self, wchar_t const* name, int* index);
    bool (*make_field_name)(void const* table, void* self, wchar_t const* name,
        t_vx_string_visitor_interface visitor);
    int (*vector_count)(void const* table, void* self);
    void (*vector_source)(void const* table, void* self, int index, t_vx_string_visitor_interface visitor);
    void (*vector_name)(void const* table, void* self, int index, t_vx_string_visitor_interface visitor);
    int (*grid_count)(void const* table, void* self);
    void (*grid_source)(void const* table, void* self, int index, t_vx_string_visitor_interface visitor);
    void (*grid_name)(void const* table, void* self, int index, t_vx_string_visitor_interface visitor);
    void (*with_name)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void (*with_description)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void (*with_files)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void (*with_error)(void const* table, void* self, t_vx_string_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(data_source, 23)
VX_LOCAL inline void vxk_datasource_data_source_detach(t_vx_data_source_interface h)
{
    if (h.table && h.self)
        h.table->detach(h.table, h.self);
}
VX_LOCAL inline int vxk_datasource_data_source_driver_id(t_vx_data_source_interface h)
{
    return h.table && h.self ? h.table->driver_id(h.table, h.self) : 0;
}
VX_LOCAL inline bool vxk_datasource_data_source_has_capability(t_vx_data_source_interface h, int capability)
{
    return h.table && h.self ? h.table->has_capability(h.table, h.self, capability) : false;
}
VX_LOCAL inline bool vxk_datasource_data_source_with_extent(
    t_vx_data_source_interface h, Tvx_box_d2* box, bool force)
{
    return h.table && h.self ? h.table->with_extent(h.table, h.self, box, force) : false;
}
VX_LOCAL inline bool vxk_datasource_data_source_with_extent_z(
    t_vx_data_source_interface h, Tvx_box_d3* box, bool force)
{
    return h.table && h.self ? h.table->with_extent_z(h.table, h.self, box, force) : false;
}
VX_LOCAL inline void vxk_datasource_data_source_with_proj4(
    t_vx_data_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_proj4(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_datasource_data_source_set_proj4(t_vx_data_source_interface h, wchar_t const* text)
{
    return h.table && h.self ? h.table->set_proj4(h.table, h.self, text) : false;
}
VX_LOCAL inline int vxk_datasource_data_source_field_count(t_vx_data_source_interface h)
{
    return h.table && h.self ? h.table->field_count(h.table, h.self) : 0;
}
VX_LOCAL inline void vxk_datasource_data_source_field_name(
    t_vx_data_source_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->field_name(h.table, h.self, field, visitor);
}
VX_LOCAL inline void vxk_datasource_data_source_field_alias(
    t_vx_data_source_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->field_alias(h.table, h.self, field, visitor);
}
VX_LOCAL inline bool vxk_datasource_data_source_set_field_alias(
    t_vx_data_source_interface h, int field, wchar_t const* alias)
{
    return h.table && h.self ? h.table->set_field_alias(h.table, h.self, field, alias) : false;
}
VX_LOCAL inline int vxk_datasource_data_source_field_type(t_vx_data_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_type(h.table, h.self, field) : 0;
}
VX_LOCAL inline int vxk_datasource_data_source_field_subtype(t_vx_data_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_subtype(h.table, h.self, field) : 0;
}
VX_LOCAL inline bool vxk_datasource_data_source_field_nullable(t_vx_data_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_nullable(h.table, h.self, field) : false;
}
VX_LOCAL inline bool vxk_datasource_data_source_field_readonly(t_vx_data_source_interface h, int field)
{
    return h.table && h.self ? h.table->field_readonly(h.table, h.self, field) : false;
}
VX_LOCAL inline void vxk_datasource_data_source_field_default(
    t_vx_data_source_interface h, int field, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->field_default(h.table, h.self, field, visitor);
}
VX_LOCAL inline bool vxk_datasource_data_source_field_dict(
    t_vx_data_source_interface h, int field, t_vx_dict_visitor_interface visitor)
{
    return h.table && h.self ? h.table->field_dict(h.table, h.self, field, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_data_source_field_index(
    t_vx_data_source_interface h, wchar_t const* name, int* index)
{
    return h.table && h.self ? h.table->field_index(h.table, h.self, name, index) : false;
}
VX_LOCAL inline bool vxk_datasource_data_source_make_field_name(
    t_vx_data_source_interface h, wchar_t const* name, t_vx_string_visitor_interface visitor)
{
    return h.table && h.self ? h.table->make_field_name(h.table, h.self, name, visitor) : false;
}
VX_LOCAL inline int vxk_datasource_data_source_vector_count(t_vx_data_source_interface h)
{
    return h.table && h.self ? h.table->vector_count(h.table, h.self) : 0;
}
VX_LOCAL inline void vxk_datasource_data_source_vector_source(
    t_vx_data_source_interface h, int index, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->vector_source(h.table, h.self, index, visitor);
}
VX_LOCAL inline void vxk_datasource_data_source_vector_name(
    t_vx_data_source_interface h, int index, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->vector_name(h.table, h.self, index, visitor);
}
VX_LOCAL inline int vxk_datasource_data_source_grid_count(t_vx_data_source_interface h)
{
    return h.table && h.self ? h.table->grid_count(h.table, h.self) : 0;
}
VX_LOCAL inline void vxk_datasource_data_source_grid_source(
    t_vx_data_source_interface h, int index, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->grid_source(h.table, h.self, index, visitor);
}
VX_LOCAL inline void vxk_datasource_data_source_grid_name(
    t_vx_data_source_interface h, int index, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->grid_name(h.table, h.self, index, visitor);
}
VX_LOCAL inline void vxk_datasource_data_source_with_name(
    t_vx_data_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_name(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_datasource_data_source_with_description(
    t_vx_data_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_description(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_datasource_data_source_with_files(
    t_vx_data_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_files(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_datasource_data_source_with_error(
    t_vx_data_source_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_error(h.table, h.self, visitor);
}
namespace vx
{
/// An open data set of any kind, with its fields.
class VX_API data_source : public binding::wrapper<t_vx_data_source_interface>
{
public:
    using wrapper::wrapper;
    /// Closes the source for the caller; no other call may follow.
    VX_LOCAL void detach() const
    { vxk_datasource_data_source_detach(f_handle); }
    VX_LOCAL int driver_id() const
    { return vxk_datasource_data_source_driver_id(f_handle); }
    /// 0: fast reading of single features by index.
    VX_LOCAL bool has_capability(int capability) const
    { return vxk_datasource_data_source_has_capability(f_handle, capability); }
    /// Force: read the data if the driver does not know it at once.
    VX_LOCAL bool with_extent(Tvx_box_d2* box, bool force) const
    { return vxk_datasource_data_source_with_extent(f_handle, box, force); }
    VX_LOCAL bool with_extent_z(Tvx_box_d3* box, bool force) const
    { return vxk_datasource_data_source_with_extent_z(f_handle, box, force); }
    VX_LOCAL void with_proj4(vx::string_visitor visitor) const
    { vxk_datasource_data_source_with_proj4(f_handle, visitor); }
    VX_LOCAL bool set_proj4(wchar_t const* text) const
    { return vxk_datasource_data_source_set_proj4(f_handle, text); }
    VX_LOCAL int field_count() const
    { return vxk_datasource_data_source_field_count(f_handle); }
    VX_LOCAL void field_name(int field, vx::string_visitor visitor) const
    { vxk_datasource_data_source_field_name(f_handle, field, visitor); }
    VX_LOCAL void field_alias(int field, vx::string_visitor visitor) const
    { vxk_datasource_data_source_field_alias(f_handle, field, visitor); }
    VX_LOCAL bool set_field_alias(int field, wchar_t const* alias) const
    { return vxk_datasource_data_source_set_field_alias(f_handle, field, alias); }
    /// 0 none, 1 string, 2 numeric, 3 integer, 4 bigint.
    VX_LOCAL int field_type(int field) const
    { return vxk_datasource_data_source_field_type(f_handle, field); }
    /// 0 none, 1 boolean, 2 date, 3 time, 4 date and time, 5 binary, 6 list, 7 structured text.
    VX_LOCAL int field_subtype(int field) const
    { return vxk_datasource_data_source_field_subtype(f_handle, field); }
    VX_LOCAL bool field_nullable(int field) const
    { return vxk_datasource_data_source_field_nullable(f_handle, field); }
    VX_LOCAL bool field_readonly(int field) const
    { return vxk_datasource_data_source_field_readonly(f_handle, field); }
    /// Nothing visited: there is none.
    VX_LOCAL void field_default(int field, vx::string_visitor visitor) const
    { vxk_datasource_data_source_field_default(f_handle, field, visitor); }
    /// False: the field has no dictionary.
    VX_LOCAL bool field_dict(int field, vx::dict_visitor visitor) const
    { return vxk_datasource_data_source_field_dict(f_handle, field, visitor); }
    /// False: no such field, the index is untouched.
    VX_LOCAL bool field_index(wchar_t const* name, int* index) const
    { return vxk_datasource_data_source_field_index(f_handle, name, index); }
    /// A name like the wanted one that is free and that the driver takes.
    VX_LOCAL bool make_field_name(wchar_t const* name, vx::string_visitor visitor) const
    { return vxk_datasource_data_source_make_field_name(f_handle, name, visitor); }
    VX_LOCAL int vector_count() const
    { return vxk_datasource_data_source_vector_count(f_handle); }
    /// Connection string that opens the source with this table selected.
    VX_LOCAL void vector_source(int index, vx::string_visitor visitor) const
    { vxk_datasource_data_source_vector_source(f_handle, index, visitor); }
    VX_LOCAL void vector_name(int index, vx::string_visitor visitor) const
    { vxk_datasource_data_source_vector_name(f_handle, index, visitor); }
    VX_LOCAL int grid_count() const
    { return vxk_datasource_data_source_grid_count(f_handle); }
    VX_LOCAL void grid_source(int index, vx::string_visitor visitor) const
    { vxk_datasource_data_source_grid_source(f_handle, index, visitor); }
    VX_LOCAL void grid_name(int index, vx::string_visitor visitor) const
    { vxk_datasource_data_source_grid_name(f_handle, index, visitor); }
    VX_LOCAL void with_name(vx::string_visitor visitor) const
    { vxk_datasource_data_source_with_name(f_handle, visitor); }
    VX_LOCAL void with_description(vx::string_visitor visitor) const
    { vxk_datasource_data_source_with_description(f_handle, visitor); }
    /// One visit a file.
    VX_LOCAL void with_files(vx::string_visitor visitor) const
    { vxk_datasource_data_source_with_files(f_handle, visitor); }
    /// Reason of the last failed call; nothing visited after a success.
    VX_LOCAL void with_error(vx::string_visitor visitor) const
    { vxk_datasource_data_source_with_error(f_handle, visitor); }
};
class VX_API data_source_impl
    : public binding::implementation<data_source_impl, vx::data_source>
{
public:
    virtual void detach() {}
    virtual int driver_id() { return 0; }
    virtual bool has_capability(int) { return false; }
    virtual bool with_extent(Tvx_box_d2*, bool) { return false; }
    virtual bool with_extent_z(Tvx_box_d3*, bool) { return false; }
    virtual void with_proj4(vx::string_visitor) {}
    virtual bool set_proj4(wchar_t const*) { return false; }
    virtual int field_count() { return 0; }
    virtual void field_name(int, vx::string_visitor) {}
    virtual void field_alias(int, vx::string_visitor) {}
    virtual bool set_field_alias(int, wchar_t const*) { return false; }
    virtual int field_type(int) { return 0; }
    virtual int field_subtype(int) { return 0; }
    virtual bool field_nullable(int) { return false; }
    virtual bool field_readonly(int) { return false; }
    virtual void field_default(int, vx::string_visitor) {}
    virtual bool field_dict(int, vx::dict_visitor) { return false; }
    virtual bool field_index(wchar_t const*, int*) { return false; }
    virtual bool make_field_name(wchar_t const*, vx::string_visitor) { return false; }
    virtual int vector_count() { return 0; }
    virtual void vector_source(int, vx::string_visitor) {}
    virtual void vector_name(int, vx::string_visitor) {}
    virtual int grid_count() { return 0; }
    virtual void grid_source(int, vx::string_visitor) {}
    virtual void grid_name(int, vx::string_visitor) {}
    virtual void with_name(vx::string_visitor) {}
    virtual void with_description(vx::string_visitor) {}
    virtual void with_files(vx::string_visitor) {}
    virtual void with_error(vx::string_visitor) {}
    VX_LOCAL static char const* interface_name() { return vx_data_source_interface_name; }
    VX_LOCAL static vx_data_source_interface_table const* family_table();
protected:
    ~data_source_impl() = default;
};
VX_LOCAL inline constexpr vx_data_source_interface_table data_source_family_table{
    &binding::generalize_slot<data_source_impl>,
    &binding::slot<&data_source_impl::detach>::call,
    &binding::slot<&data_source_impl::driver_id>::call,
    &binding::slot<&data_source_impl::has_capability>::call,
    &binding::slot<&data_source_impl::with_extent>::call,
    &binding::slot<&data_source_impl::with_extent_z>::call,
    &binding::slot<&data_source_impl::with_proj4>::call,
    &binding::slot<&data_source_impl::set_proj4>::call,
    &binding::slot<&data_source_impl::field_count>::call,
    &binding::slot<&data_source_impl::field_name>::call,
    &binding::slot<&data_source_impl::field_alias>::call,
    &binding::slot<&data_source_impl::set_field_alias>::call,
    &binding::slot<&data_source_impl::field_type>::call,
    &binding::slot<&data_source_impl::field_subtype>::call,
    &binding::slot<&data_source_impl::field_nullable>::call,
    &binding::slot<&data_source_impl::field_readonly>::call,
    &binding::slot<&data_source_impl::field_default>::call,
    &binding::slot<&data_source_impl::field_dict>::call,
    &binding::slot<&data_source_impl::field_index>::call,
    &binding::slot<&data_source_impl::make_field_name>::call,
    &binding::slot<&data_source_impl::vector_count>::call,
    &binding::slot<&data_source_impl::vector_source>::call,
    &binding::slot<&data_source_impl::vector_name>::call,
    &binding::slot<&data_source_impl::grid_count>::call,
    &binding::slot<&data_source_impl::grid_source>::call,
    &binding::slot<&data_source_impl::grid_name>::call,
    &binding::slot<&data_source_impl::with_name>::call,
    &binding::slot<&data_source_impl::with_description>::call,
    &binding::slot<&data_source_impl::with_files>::call,
    &binding::slot<&data_source_impl::with_error>::call,
};
inline vx_data_source_interface_table const* data_source_impl::family_table()
{ return &data_source_family_table; }
}
