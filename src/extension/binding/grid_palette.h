#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

#include "platform/base/color.h"

VX_BINDING_HANDLE(grid_palette)
struct vx_grid_palette_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*detach)(void const* table, void* self);
    int (*color_count)(void const* table, void* self);
    bool (*with_color)(void const* table, void* self, int index, Tvx_color* color);
};
VX_BINDING_FUNCTIONS(grid_palette, 1)
VX_LOCAL inline void vxk_datasource_grid_palette_detach(t_vx_grid_palette_interface h)
{
    if (h.table && h.self)
        h.table->detach(h.table, h.self);
}
VX_LOCAL inline int vxk_datasource_grid_palette_color_count(t_vx_grid_palette_interface h)
{
    return h.table && h.self ? h.table->color_count(h.table, h.self) : 0;
}
VX_LOCAL inline bool vxk_datasource_grid_palette_with_color(
    t_vx_grid_palette_interface h, int index, Tvx_color* color)
{
    return h.table && h.self ? h.table->with_color(h.table, h.self, index, color) : false;
}
namespace vx
{
/// The colours of coded cells.
class VX_API grid_palette : public binding::wrapper<t_vx_grid_palette_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void detach() const
    { vxk_datasource_grid_palette_detach(f_handle); }
    VX_LOCAL int color_count() const
    { return vxk_datasource_grid_palette_color_count(f_handle); }
    VX_LOCAL bool with_color(int index, Tvx_color* color) const
    { return vxk_datasource_grid_palette_with_color(f_handle, index, color); }
};
class VX_API grid_palette_impl
    : public binding::implementation<grid_palette_impl, vx::grid_palette>
{
public:
    virtual void detach() {}
    virtual int color_count() { return 0; }
    virtual bool with_color(int, Tvx_color*) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_grid_palette_interface_name; }
    VX_LOCAL static vx_grid_palette_interface_table const* family_table();
protected:
    ~grid_palette_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_palette_interface_table grid_palette_family_table{
    &binding::generalize_slot<grid_palette_impl>,
    &binding::slot<&grid_palette_impl::detach>::call,
    &binding::slot<&grid_palette_impl::color_count>::call,
    &binding::slot<&grid_palette_impl::with_color>::call,
};
inline vx_grid_palette_interface_table const* grid_palette_impl::family_table()
{ return &grid_palette_family_table; }
}
