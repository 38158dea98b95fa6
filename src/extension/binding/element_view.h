#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(element_view)
struct vx_element_view_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*update_appearance)(void const* table, void* self);
    void (*update_state)(void const* table, void* self);
    void (*update_data)(void const* table, void* self);
    void (*focus)(void const* table, void* self);
};
VX_BINDING_FUNCTIONS(element_view, 1)
VX_LOCAL inline void vxk_framework_element_view_update_appearance(t_vx_element_view_interface h)
{
    if (h.table && h.self)
        h.table->update_appearance(h.table, h.self);
}
VX_LOCAL inline void vxk_framework_element_view_update_state(t_vx_element_view_interface h)
{
    if (h.table && h.self)
        h.table->update_state(h.table, h.self);
}
VX_LOCAL inline void vxk_framework_element_view_update_data(t_vx_element_view_interface h)
{
    if (h.table && h.self)
        h.table->update_data(h.table, h.self);
}
VX_LOCAL inline void vxk_framework_element_view_focus(t_vx_element_view_interface h)
{
    if (h.table && h.self)
        h.table->focus(h.table, h.self);
}
namespace vx
{
/// The view half of a panel or page: its model tells it what has changed.
class VX_API element_view : public binding::wrapper<t_vx_element_view_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void update_appearance() const
    { vxk_framework_element_view_update_appearance(f_handle); }
    VX_LOCAL void update_state() const
    { vxk_framework_element_view_update_state(f_handle); }
    VX_LOCAL void update_data() const
    { vxk_framework_element_view_update_data(f_handle); }
    VX_LOCAL void focus() const
    { vxk_framework_element_view_focus(f_handle); }
};
class VX_API element_view_impl
    : public binding::implementation<element_view_impl, vx::element_view>
{
public:
    virtual void update_appearance() {}
    virtual void update_state() {}
    virtual void update_data() {}
    virtual void focus() {}
    VX_LOCAL static char const* interface_name() { return vx_element_view_interface_name; }
    VX_LOCAL static vx_element_view_interface_table const* family_table();
protected:
    ~element_view_impl() = default;
};
VX_LOCAL inline constexpr vx_element_view_interface_table element_view_family_table{
    &binding::generalize_slot<element_view_impl>,
    &binding::slot<&element_view_impl::update_appearance>::call,
    &binding::slot<&element_view_impl::update_state>::call,
    &binding::slot<&element_view_impl::update_data>::call,
    &binding::slot<&element_view_impl::focus>::call,
};
inline vx_element_view_interface_table const* element_view_impl::family_table()
{ return &element_view_family_table; }
}
