#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/element_view.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"
#include "extension/binding/style_editor_data_source_visitor.h"

VX_BINDING_HANDLE(style_editor)
struct vx_style_editor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_caption)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void* (*style_manager)(void const* table, void* self);
    void* (*table_data)(void const* table, void* self);
    bool (*use_selection_styles)(void const* table, void* self);
    bool (*use_rules)(void const* table, void* self);
    void (*with_data_source)(void const* table, void* self,
        t_vx_style_editor_data_source_visitor_interface visitor);
    void (*commit)(void const* table, void* self);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};
VX_BINDING_FUNCTIONS(style_editor, 5)
VX_LOCAL inline void vxk_framework_style_editor_with_caption(
    t_vx_style_editor_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_caption(h.table, h.self, visitor);
}
VX_LOCAL inline void* vxk_framework_style_editor_style_manager(t_vx_style_editor_interface h)
{
    return h.table && h.self ? h.table->style_manager(h.table, h.self) : nullptr;
}
VX_LOCAL inline void* vxk_framework_style_editor_table_data(t_vx_style_editor_interface h)
{
    return h.table && h.self ? h.table->table_data(h.table, h.self) : nullptr;
}
VX_LOCAL inline bool vxk_framework_style_editor_use_selection_styles(t_vx_style_editor_interface h)
{
    return h.table && h.self ? h.table->use_selection_styles(h.table, h.self) : false;
}
VX_LOCAL inline bool vxk_framework_style_editor_use_rules(t_vx_style_editor_interface h)
{
    return h.table && h.self ? h.table->use_rules(h.table, h.self) : false;
}
VX_LOCAL inline void vxk_framework_style_editor_with_data_source(
    t_vx_style_editor_interface h, t_vx_style_editor_data_source_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_data_source(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_style_editor_commit(t_vx_style_editor_interface h)
{
    if (h.table && h.self)
        h.table->commit(h.table, h.self);
}
VX_LOCAL inline void vxk_framework_style_editor_reattach(
    t_vx_style_editor_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}
namespace vx
{
/// Model of a page for one style manager.
class VX_API style_editor : public binding::wrapper<t_vx_style_editor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_caption(vx::string_visitor visitor) const
    { vxk_framework_style_editor_with_caption(f_handle, visitor); }
    VX_LOCAL void* style_manager() const
    { return vxk_framework_style_editor_style_manager(f_handle); }
    /// Attribute data for filter dialogs.
    VX_LOCAL void* table_data() const
    { return vxk_framework_style_editor_table_data(f_handle); }
    VX_LOCAL bool use_selection_styles() const
    { return vxk_framework_style_editor_use_selection_styles(f_handle); }
    VX_LOCAL bool use_rules() const
    { return vxk_framework_style_editor_use_rules(f_handle); }
    VX_LOCAL void with_data_source(vx::style_editor_data_source_visitor visitor) const
    { vxk_framework_style_editor_with_data_source(f_handle, visitor); }
    /// The user changed something.
    VX_LOCAL void commit() const
    { vxk_framework_style_editor_commit(f_handle); }
    VX_LOCAL void reattach(vx::element_view view) const
    { vxk_framework_style_editor_reattach(f_handle, view); }
};
class VX_API style_editor_impl
    : public binding::implementation<style_editor_impl, vx::style_editor>
{
public:
    virtual void with_caption(vx::string_visitor) {}
    virtual void* style_manager() { return nullptr; }
    virtual void* table_data() { return nullptr; }
    virtual bool use_selection_styles() { return false; }
    virtual bool use_rules() { return false; }
    virtual void with_data_source(vx::style_editor_data_source_visitor) {}
    virtual void commit() {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_style_editor_interface_name; }
    VX_LOCAL static vx_style_editor_interface_table const* family_table();
protected:
    ~style_editor_impl() = default;
};
VX_LOCAL inline constexpr vx_style_editor_interface_table style_editor_family_table{
    &binding::generalize_slot<style_editor_impl>,
    &binding::slot<&style_editor_impl::with_caption>::call,
    &binding::slot<&style_editor_impl::style_manager>::call,
    &binding::slot<&style_editor_impl::table_data>::call,
    &binding::slot<&style_editor_impl::use_selection_styles>::call,
    &binding::slot<&style_editor_impl::use_rules>::call,
    &binding::slot<&style_editor_impl::with_data_source>::call,
    &binding::slot<&style_editor_impl::commit>::call,
    &binding::slot<&style_editor_impl::reattach>::call,
};
inline vx_style_editor_interface_table const* style_editor_impl::family_table()
{ return &style_editor_family_table; }
}
