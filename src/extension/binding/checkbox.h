#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/element_view.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(checkbox)
struct vx_checkbox_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_caption)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    bool (*enabled)(void const* table, void* self);
    bool (*checked)(void const* table, void* self);
    void (*set_checked)(void const* table, void* self, bool checked);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};
VX_BINDING_FUNCTIONS(checkbox, 2)
VX_LOCAL inline void vxk_framework_checkbox_with_caption(
    t_vx_checkbox_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_caption(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_framework_checkbox_enabled(t_vx_checkbox_interface h)
{
    return h.table && h.self ? h.table->enabled(h.table, h.self) : true;
}
VX_LOCAL inline bool vxk_framework_checkbox_checked(t_vx_checkbox_interface h)
{
    return h.table && h.self ? h.table->checked(h.table, h.self) : false;
}
VX_LOCAL inline void vxk_framework_checkbox_set_checked(t_vx_checkbox_interface h, bool checked)
{
    if (h.table && h.self)
        h.table->set_checked(h.table, h.self, checked);
}
VX_LOCAL inline void vxk_framework_checkbox_reattach(
    t_vx_checkbox_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}
namespace vx
{
/// A box with a tick.
class VX_API checkbox : public binding::wrapper<t_vx_checkbox_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_caption(vx::string_visitor visitor) const
    { vxk_framework_checkbox_with_caption(f_handle, visitor); }
    VX_LOCAL bool enabled() const
    { return vxk_framework_checkbox_enabled(f_handle); }
    VX_LOCAL bool checked() const
    { return vxk_framework_checkbox_checked(f_handle); }
    /// The user set it.
    VX_LOCAL void set_checked(bool checked) const
    { vxk_framework_checkbox_set_checked(f_handle, checked); }
    VX_LOCAL void reattach(vx::element_view view) const
    { vxk_framework_checkbox_reattach(f_handle, view); }
};
class VX_API checkbox_impl
    : public binding::implementation<checkbox_impl, vx::checkbox>
{
public:
    virtual void with_caption(vx::string_visitor) {}
    virtual bool enabled() { return true; }
    virtual bool checked() { return false; }
    virtual void set_checked(bool) {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_checkbox_interface_name; }
    VX_LOCAL static vx_checkbox_interface_table const* family_table();
protected:
    ~checkbox_impl() = default;
};
VX_LOCAL inline constexpr vx_checkbox_interface_table checkbox_family_table{
    &binding::generalize_slot<checkbox_impl>,
    &binding::slot<&checkbox_impl::with_caption>::call,
    &binding::slot<&checkbox_impl::enabled>::call,
    &binding::slot<&checkbox_impl::checked>::call,
    &binding::slot<&checkbox_impl::set_checked>::call,
    &binding::slot<&checkbox_impl::reattach>::call,
};
inline vx_checkbox_interface_table const* checkbox_impl::family_table()
{ return &checkbox_family_table; }
}
