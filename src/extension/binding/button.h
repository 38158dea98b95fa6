#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/element_view.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(button)
struct vx_button_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_caption)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    bool (*enabled)(void const* table, void* self);
    bool (*default_button)(void const* table, void* self);
    void (*click)(void const* table, void* self);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};
VX_BINDING_FUNCTIONS(button, 4)
VX_LOCAL inline void vxk_framework_button_with_caption(
    t_vx_button_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_caption(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_framework_button_enabled(t_vx_button_interface h)
{
    return h.table && h.self ? h.table->enabled(h.table, h.self) : true;
}
VX_LOCAL inline bool vxk_framework_button_default_button(t_vx_button_interface h)
{
    return h.table && h.self ? h.table->default_button(h.table, h.self) : 0;
}
VX_LOCAL inline void vxk_framework_button_click(t_vx_button_interface h)
{
    if (h.table && h.self)
        h.table->click(h.table, h.self);
}
VX_LOCAL inline void vxk_framework_button_reattach(t_vx_button_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}
namespace vx
{
/// A button.
class VX_API button : public binding::wrapper<t_vx_button_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_caption(vx::string_visitor visitor) const
    { vxk_framework_button_with_caption(f_handle, visitor); }
    VX_LOCAL bool enabled() const
    { return vxk_framework_button_enabled(f_handle); }
    /// Enter presses it.
    VX_LOCAL bool default_button() const
    { return vxk_framework_button_default_button(f_handle); }
    /// The user pressed it.
    VX_LOCAL void click() const
    { vxk_framework_button_click(f_handle); }
    VX_LOCAL void reattach(vx::element_view view) const
    { vxk_framework_button_reattach(f_handle, view); }
};
class VX_API button_impl
    : public binding::implementation<button_impl, vx::button>
{
public:
    virtual void with_caption(vx::string_visitor) {}
    virtual bool enabled() { return true; }
    virtual bool default_button() { return 0; }
    virtual void click() {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_button_interface_name; }
    VX_LOCAL static vx_button_interface_table const* family_table();
protected:
    ~button_impl() = default;
};
VX_LOCAL inline constexpr vx_button_interface_table button_family_table{
    &binding::generalize_slot<button_impl>,
    &binding::slot<&button_impl::with_caption>::call,
    &binding::slot<&button_impl::enabled>::call,
    &binding::slot<&button_impl::default_button>::call,
    &binding::slot<&button_impl::click>::call,
    &binding::slot<&button_impl::reattach>::call,
};
inline vx_button_interface_table const* button_impl::family_table()
{ return &button_family_table; }
}
