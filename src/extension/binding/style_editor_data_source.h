#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"
#include "extension/binding/referent.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(style_editor_data_source)
struct vx_style_editor_data_source_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    t_vx_referent_interface* (*as_referent)(t_vx_referent_interface* result, void const* table, void* self);
    int (*property_count)(void const* table, void* self);
    int (*item_count)(void const* table, void* self);
    bool (*property_used)(void const* table, void* self, int property);
    bool (*property_floating)(void const* table, void* self, int property);
    void (*with_property_name)(void const* table, void* self, int property,
        t_vx_string_visitor_interface visitor);
    void (*with_property_caption)(void const* table, void* self, int property,
        t_vx_string_visitor_interface visitor);
    bool (*item_property_defined)(void const* table, void* self, int item, int property);
    void (*with_item_property_text)(void const* table, void* self, int item, int property,
        t_vx_string_visitor_interface visitor);
    double (*item_property_value)(void const* table, void* self, int item, int property);
    bool (*property_stats)(void const* table, void* self, int property, double* first, double* second,
        double* third, double* fourth);
};
VX_BINDING_FUNCTIONS(style_editor_data_source, 2)
VX_LOCAL inline t_vx_referent_interface vxk_framework_style_editor_data_source_as_referent(
    t_vx_style_editor_data_source_interface h)
{
    t_vx_referent_interface result;
    if (h.table && h.self)
        h.table->as_referent(&result, h.table, h.self);
    return result;
}
VX_LOCAL inline int vxk_framework_style_editor_data_source_property_count(
    t_vx_style_editor_data_source_interface h)
{
    return h.table && h.self ? h.table->property_count(h.table, h.self) : 0;
}
VX_LOCAL inline int vxk_framework_style_editor_data_source_item_count(
    t_vx_style_editor_data_source_interface h)
{
    return h.table && h.self ? h.table->item_count(h.table, h.self) : 0;
}
VX_LOCAL inline bool vxk_framework_style_editor_data_source_property_used(
    t_vx_style_editor_data_source_interface h, int property)
{
    return h.table && h.self ? h.table->property_used(h.table, h.self, property) : false;
}
VX_LOCAL inline bool vxk_framework_style_editor_data_source_property_floating(
    t_vx_style_editor_data_source_interface h, int property)
{
    return h.table && h.self ? h.table->property_floating(h.table, h.self, property) : false;
}
VX_LOCAL inline void vxk_framework_style_editor_data_source_with_property_name(
    t_vx_style_editor_data_source_interface h, int property, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_property_name(h.table, h.self, property, visitor);
}
VX_LOCAL inline void vxk_framework_style_editor_data_source_with_property_caption(
    t_vx_style_editor_data_source_interface h, int property, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_property_caption(h.table, h.self, property, visitor);
}
VX_LOCAL inline bool vxk_framework_style_editor_data_source_item_property_defined(
    t_vx_style_editor_data_source_interface h, int item, int property)
{
    return h.table && h.self ? h.table->item_property_defined(h.table, h.self, item, property) : false;
}
VX_LOCAL inline void vxk_framework_style_editor_data_source_with_item_property_text(
    t_vx_style_editor_data_source_interface h, int item, int property, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_item_property_text(h.table, h.self, item, property, visitor);
}
VX_LOCAL inline double vxk_framework_style_editor_data_source_item_property_value(
    t_vx_style_editor_data_source_interface h, int item, int property)
{
    return h.table && h.self ? h.table->item_property_value(h.table, h.self, item, property) : 0.0;
}
VX_LOCAL inline bool vxk_framework_style_editor_data_source_property_stats(
    t_vx_style_editor_data_source_interface h, int property, double* first, double* second, double* third,
        double* fourth)
{
    return h.table && h.self ? h.table->property_stats(h.table, h.self, property, first, second, third,
        fourth) : false;
}
namespace vx
{
/// The values by which the styles of a page are chosen: items (records) with properties (fields), both from
/// 0.
class VX_API style_editor_data_source : public binding::wrapper<t_vx_style_editor_data_source_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL vx::referent as_referent() const
    { return vxk_framework_style_editor_data_source_as_referent(f_handle); }
    VX_LOCAL int property_count() const
    { return vxk_framework_style_editor_data_source_property_count(f_handle); }
    VX_LOCAL int item_count() const
    { return vxk_framework_style_editor_data_source_item_count(f_handle); }
    VX_LOCAL bool property_used(int property) const
    { return vxk_framework_style_editor_data_source_property_used(f_handle, property); }
    VX_LOCAL bool property_floating(int property) const
    { return vxk_framework_style_editor_data_source_property_floating(f_handle, property); }
    VX_LOCAL void with_property_name(int property, vx::string_visitor visitor) const
    { vxk_framework_style_editor_data_source_with_property_name(f_handle, property, visitor); }
    VX_LOCAL void with_property_caption(int property, vx::string_visitor visitor) const
    { vxk_framework_style_editor_data_source_with_property_caption(f_handle, property, visitor); }
    VX_LOCAL bool item_property_defined(int item, int property) const
    { return vxk_framework_style_editor_data_source_item_property_defined(f_handle, item, property); }
    VX_LOCAL void with_item_property_text(int item, int property, vx::string_visitor visitor) const
    { vxk_framework_style_editor_data_source_with_item_property_text(f_handle, item, property, visitor); }
    VX_LOCAL double item_property_value(int item, int property) const
    { return vxk_framework_style_editor_data_source_item_property_value(f_handle, item, property); }
    /// In the order of the editors' statistics closure.
    VX_LOCAL bool property_stats(int property, double* first, double* second, double* third,
        double* fourth) const
    { return vxk_framework_style_editor_data_source_property_stats(f_handle, property, first, second, third,
        fourth); }
};
class VX_API style_editor_data_source_impl
    : public binding::implementation<style_editor_data_source_impl, vx::style_editor_data_source>
{
public:
    virtual vx::referent as_referent() { return {}; }
    virtual int property_count() { return 0; }
    virtual int item_count() { return 0; }
    virtual bool property_used(int) { return false; }
    virtual bool property_floating(int) { return false; }
    virtual void with_property_name(int, vx::string_visitor) {}
    virtual void with_property_caption(int, vx::string_visitor) {}
    virtual bool item_property_defined(int, int) { return false; }
    virtual void with_item_property_text(int, int, vx::string_visitor) {}
    virtual double item_property_value(int, int) { return 0.0; }
    virtual bool property_stats(int, double*, double*, double*, double*) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_style_editor_data_source_interface_name; }
    VX_LOCAL static vx_style_editor_data_source_interface_table const* family_table();
protected:
    ~style_editor_data_source_impl() = default;
};
VX_LOCAL inline constexpr vx_style_editor_data_source_interface_table style_editor_data_source_family_table{
    &binding::generalize_slot<style_editor_data_source_impl>,
    &binding::slot<&style_editor_data_source_impl::as_referent>::call,
    &binding::slot<&style_editor_data_source_impl::property_count>::call,
    &binding::slot<&style_editor_data_source_impl::item_count>::call,
    &binding::slot<&style_editor_data_source_impl::property_used>::call,
    &binding::slot<&style_editor_data_source_impl::property_floating>::call,
    &binding::slot<&style_editor_data_source_impl::with_property_name>::call,
    &binding::slot<&style_editor_data_source_impl::with_property_caption>::call,
    &binding::slot<&style_editor_data_source_impl::item_property_defined>::call,
    &binding::slot<&style_editor_data_source_impl::with_item_property_text>::call,
    &binding::slot<&style_editor_data_source_impl::item_property_value>::call,
    &binding::slot<&style_editor_data_source_impl::property_stats>::call,
};
inline vx_style_editor_data_source_interface_table const* style_editor_data_source_impl::family_table()
{ return &style_editor_data_source_family_table; }
}
