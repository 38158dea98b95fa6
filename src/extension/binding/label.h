#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/element_view.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(label)
struct vx_label_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_caption)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    bool (*enabled)(void const* table, void* self);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};
VX_BINDING_FUNCTIONS(label, 2)
VX_LOCAL inline void vxk_framework_label_with_caption(
    t_vx_label_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_caption(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_framework_label_enabled(t_vx_label_interface h)
{
    return h.table && h.self ? h.table->enabled(h.table, h.self) : true;
}
VX_LOCAL inline void vxk_framework_label_reattach(t_vx_label_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}
namespace vx
{
/// A text of one line.
class VX_API label : public binding::wrapper<t_vx_label_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_caption(vx::string_visitor visitor) const
    { vxk_framework_label_with_caption(f_handle, visitor); }
    VX_LOCAL bool enabled() const
    { return vxk_framework_label_enabled(f_handle); }
    VX_LOCAL void reattach(vx::element_view view) const
    { vxk_framework_label_reattach(f_handle, view); }
};
class VX_API label_impl
    : public binding::implementation<label_impl, vx::label>
{
public:
    virtual void with_caption(vx::string_visitor) {}
    virtual bool enabled() { return true; }
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_label_interface_name; }
    VX_LOCAL static vx_label_interface_table const* family_table();
protected:
    ~label_impl() = default;
};
VX_LOCAL inline constexpr vx_label_interface_table label_family_table{
    &binding::generalize_slot<label_impl>,
    &binding::slot<&label_impl::with_caption>::call,
    &binding::slot<&label_impl::enabled>::call,
    &binding::slot<&label_impl::reattach>::call,
};
inline vx_label_interface_table const* label_impl::family_table()
{ return &label_family_table; }
}
