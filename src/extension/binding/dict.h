#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/dict_item_visitor.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(dict)
struct vx_dict_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*detach)(void const* table, void* self);
    void (*with_keys)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void (*with_items)(void const* table, void* self, t_vx_dict_item_visitor_interface visitor);
    bool (*get_value)(void const* table, void* self, wchar_t const* key,
        t_vx_string_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(dict, 1)
VX_LOCAL inline void vxk_datasource_dict_detach(t_vx_dict_interface h)
{
    if (h.table && h.self)
        h.table->detach(h.table, h.self);
}
VX_LOCAL inline void vxk_datasource_dict_with_keys(
    t_vx_dict_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_keys(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_datasource_dict_with_items(
    t_vx_dict_interface h, t_vx_dict_item_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_items(h.table, h.self, visitor);
}
VX_LOCAL inline bool vxk_datasource_dict_get_value(
    t_vx_dict_interface h, wchar_t const* key, t_vx_string_visitor_interface visitor)
{
    return h.table && h.self ? h.table->get_value(h.table, h.self, key, visitor) : false;
}
namespace vx
{
/// The texts that stand for the codes of a field.
class VX_API dict : public binding::wrapper<t_vx_dict_interface>
{
public:
    using wrapper::wrapper;
    /// Ends the dictionary for the caller.
    VX_LOCAL void detach() const
    { vxk_datasource_dict_detach(f_handle); }
    VX_LOCAL void with_keys(vx::string_visitor visitor) const
    { vxk_datasource_dict_with_keys(f_handle, visitor); }
    VX_LOCAL void with_items(vx::dict_item_visitor visitor) const
    { vxk_datasource_dict_with_items(f_handle, visitor); }
    /// False: no such key, nothing visited.
    VX_LOCAL bool get_value(wchar_t const* key, vx::string_visitor visitor) const
    { return vxk_datasource_dict_get_value(f_handle, key, visitor); }
};
class VX_API dict_impl
    : public binding::implementation<dict_impl, vx::dict>
{
public:
    virtual void detach() {}
    virtual void with_keys(vx::string_visitor) {}
    virtual void with_items(vx::dict_item_visitor) {}
    virtual bool get_value(wchar_t const*, vx::string_visitor) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_dict_interface_name; }
    VX_LOCAL static vx_dict_interface_table const* family_table();
protected:
    ~dict_impl() = default;
};
VX_LOCAL inline constexpr vx_dict_interface_table dict_family_table{
    &binding::generalize_slot<dict_impl>,
    &binding::slot<&dict_impl::detach>::call,
    &binding::slot<&dict_impl::with_keys>::call,
    &binding::slot<&dict_impl::with_items>::call,
    &binding::slot<&dict_impl::get_value>::call,
};
inline vx_dict_interface_table const* dict_impl::family_table()
{ return &dict_family_table; }
}
