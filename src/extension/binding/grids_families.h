#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Grids and outlines: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(action_outline_column, 4)
VX_BINDING_BARE(action_outline_column_variant, 0)
VX_BINDING_HANDLE(assisted_string_outline_column)
struct vx_assisted_string_outline_column_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(assisted_string_outline_column, 7)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_assisted_string_outline_column_avid(t_vx_assisted_string_outline_column_interface)
{ return true; }
namespace vx
{
class VX_API assisted_string_outline_column : public binding::wrapper<t_vx_assisted_string_outline_column_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool avid() const
    { return vxk_framework_assisted_string_outline_column_avid(f_handle); }
};
class VX_API assisted_string_outline_column_impl
    : public binding::implementation<assisted_string_outline_column_impl, vx::assisted_string_outline_column>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_assisted_string_outline_column_interface_name; }
    VX_LOCAL static vx_assisted_string_outline_column_interface_table const* family_table();
protected:
    ~assisted_string_outline_column_impl() = default;
};
VX_LOCAL inline constexpr vx_assisted_string_outline_column_interface_table assisted_string_outline_column_family_table{
    &binding::generalize_slot<assisted_string_outline_column_impl>,
};
inline vx_assisted_string_outline_column_interface_table const* assisted_string_outline_column_impl::family_table()
{ return &assisted_string_outline_column_family_table; }
}

VX_BINDING_BARE(bitmap_outline_column, 5)
VX_BINDING_BARE(bitmap_outline_column_variant, 0)
VX_BINDING_BARE(boolean_outline_column, 7)
VX_BINDING_BARE(boolean_outline_column_variant, 0)
VX_BINDING_HANDLE(canvas_outline_column)
struct vx_canvas_outline_column_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(canvas_outline_column, 5)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_canvas_outline_column_avid(t_vx_canvas_outline_column_interface)
{ return true; }
namespace vx
{
class VX_API canvas_outline_column : public binding::wrapper<t_vx_canvas_outline_column_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool avid() const
    { return vxk_framework_canvas_outline_column_avid(f_handle); }
};
class VX_API canvas_outline_column_impl
    : public binding::implementation<canvas_outline_column_impl, vx::canvas_outline_column>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_canvas_outline_column_interface_name; }
    VX_LOCAL static vx_canvas_outline_column_interface_table const* family_table();
protected:
    ~canvas_outline_column_impl() = default;
};
VX_LOCAL inline constexpr vx_canvas_outline_column_interface_table canvas_outline_column_family_table{
    &binding::generalize_slot<canvas_outline_column_impl>,
};
inline vx_canvas_outline_column_interface_table const* canvas_outline_column_impl::family_table()
{ return &canvas_outline_column_family_table; }
}

VX_BINDING_BARE(canvas_outline_column_variant, 0)
VX_BINDING_HANDLE(enum_outline_column)
struct vx_enum_outline_column_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(enum_outline_column, 6)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_enum_outline_column_avid(t_vx_enum_outline_column_interface)
{ return true; }
namespace vx
{
class VX_API enum_outline_column : public binding::wrapper<t_vx_enum_outline_column_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool avid() const
    { return vxk_framework_enum_outline_column_avid(f_handle); }
};
class VX_API enum_outline_column_impl
    : public binding::implementation<enum_outline_column_impl, vx::enum_outline_column>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_enum_outline_column_interface_name; }
    VX_LOCAL static vx_enum_outline_column_interface_table const* family_table();
protected:
    ~enum_outline_column_impl() = default;
};
VX_LOCAL inline constexpr vx_enum_outline_column_interface_table enum_outline_column_family_table{
    &binding::generalize_slot<enum_outline_column_impl>,
};
inline vx_enum_outline_column_interface_table const* enum_outline_column_impl::family_table()
{ return &enum_outline_column_family_table; }
}

VX_BINDING_BARE(enum_outline_column_variant, 0)
VX_BINDING_HANDLE(floating_outline_column)
struct vx_floating_outline_column_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(floating_outline_column, 14)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_floating_outline_column_avid(t_vx_floating_outline_column_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline double vxk_framework_floating_outline_column_increment(t_vx_floating_outline_column_interface)
{ return 1.0; }
namespace vx
{
class VX_API floating_outline_column : public binding::wrapper<t_vx_floating_outline_column_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool avid() const
    { return vxk_framework_floating_outline_column_avid(f_handle); }
    [[nodiscard]] VX_LOCAL double increment() const
    { return vxk_framework_floating_outline_column_increment(f_handle); }
};
class VX_API floating_outline_column_impl
    : public binding::implementation<floating_outline_column_impl, vx::floating_outline_column>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_floating_outline_column_interface_name; }
    VX_LOCAL static vx_floating_outline_column_interface_table const* family_table();
protected:
    ~floating_outline_column_impl() = default;
};
VX_LOCAL inline constexpr vx_floating_outline_column_interface_table floating_outline_column_family_table{
    &binding::generalize_slot<floating_outline_column_impl>,
};
inline vx_floating_outline_column_interface_table const* floating_outline_column_impl::family_table()
{ return &floating_outline_column_family_table; }
}

VX_BINDING_HANDLE(floating_outline_column_variant)
struct vx_floating_outline_column_variant_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(floating_outline_column_variant, 1)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline double vxk_framework_floating_outline_column_variant_increment(t_vx_floating_outline_column_variant_interface)
{ return 1.0; }
namespace vx
{
class VX_API floating_outline_column_variant : public binding::wrapper<t_vx_floating_outline_column_variant_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL double increment() const
    { return vxk_framework_floating_outline_column_variant_increment(f_handle); }
};
class VX_API floating_outline_column_variant_impl
    : public binding::implementation<floating_outline_column_variant_impl,
        vx::floating_outline_column_variant>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_floating_outline_column_variant_interface_name; }
    VX_LOCAL static vx_floating_outline_column_variant_interface_table const* family_table();
protected:
    ~floating_outline_column_variant_impl() = default;
};
VX_LOCAL inline constexpr vx_floating_outline_column_variant_interface_table floating_outline_column_variant_family_table{
    &binding::generalize_slot<floating_outline_column_variant_impl>,
};
inline vx_floating_outline_column_variant_interface_table const* floating_outline_column_variant_impl::family_table()
{ return &floating_outline_column_variant_family_table; }
}

VX_BINDING_HANDLE(grid)
struct vx_grid_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(grid, 32)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_grid_fixed_column_count(t_vx_grid_interface)
{ return 0; }
namespace vx
{
class VX_API grid : public binding::wrapper<t_vx_grid_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int fixed_column_count() const
    { return vxk_framework_grid_fixed_column_count(f_handle); }
};
class VX_API grid_impl
    : public binding::implementation<grid_impl, vx::grid>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_grid_interface_name; }
    VX_LOCAL static vx_grid_interface_table const* family_table();
protected:
    ~grid_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_interface_table grid_family_table{
    &binding::generalize_slot<grid_impl>,
};
inline vx_grid_interface_table const* grid_impl::family_table()
{ return &grid_family_table; }
}

VX_BINDING_BARE(grid_action_cell, 4)
VX_BINDING_BARE(grid_assisted_string_cell, 5)
VX_BINDING_BARE(grid_bitmap_cell, 4)
VX_BINDING_BARE(grid_boolean_cell, 3)
VX_BINDING_BARE(grid_canvas_cell, 1)
VX_BINDING_BARE(grid_cell_index_visitor, 0)
VX_BINDING_BARE(grid_check_cell, 0)
VX_BINDING_BARE(grid_enum_cell, 6)
VX_BINDING_HANDLE(grid_floating_cell)
struct vx_grid_floating_cell_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(grid_floating_cell, 10)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline double vxk_framework_grid_floating_cell_increment(t_vx_grid_floating_cell_interface)
{ return 1.0; }
namespace vx
{
class VX_API grid_floating_cell : public binding::wrapper<t_vx_grid_floating_cell_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL double increment() const
    { return vxk_framework_grid_floating_cell_increment(f_handle); }
};
class VX_API grid_floating_cell_impl
    : public binding::implementation<grid_floating_cell_impl, vx::grid_floating_cell>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_grid_floating_cell_interface_name; }
    VX_LOCAL static vx_grid_floating_cell_interface_table const* family_table();
protected:
    ~grid_floating_cell_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_floating_cell_interface_table grid_floating_cell_family_table{
    &binding::generalize_slot<grid_floating_cell_impl>,
};
inline vx_grid_floating_cell_interface_table const* grid_floating_cell_impl::family_table()
{ return &grid_floating_cell_family_table; }
}

VX_BINDING_HANDLE(grid_integer_cell)
struct vx_grid_integer_cell_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(grid_integer_cell, 8)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_grid_integer_cell_increment(t_vx_grid_integer_cell_interface)
{ return 1; }
namespace vx
{
class VX_API grid_integer_cell : public binding::wrapper<t_vx_grid_integer_cell_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int increment() const
    { return vxk_framework_grid_integer_cell_increment(f_handle); }
};
class VX_API grid_integer_cell_impl
    : public binding::implementation<grid_integer_cell_impl, vx::grid_integer_cell>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_grid_integer_cell_interface_name; }
    VX_LOCAL static vx_grid_integer_cell_interface_table const* family_table();
protected:
    ~grid_integer_cell_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_integer_cell_interface_table grid_integer_cell_family_table{
    &binding::generalize_slot<grid_integer_cell_impl>,
};
inline vx_grid_integer_cell_interface_table const* grid_integer_cell_impl::family_table()
{ return &grid_integer_cell_family_table; }
}

VX_BINDING_HANDLE(grid_layout)
struct vx_grid_layout_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(grid_layout, 91)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_grid_layout_column_visible(t_vx_grid_layout_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline bool vxk_framework_grid_layout_row_visible(t_vx_grid_layout_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline bool vxk_framework_grid_layout_column_avid(t_vx_grid_layout_interface)
{ return false; }
[[nodiscard]] VX_LOCAL inline bool vxk_framework_grid_layout_row_avid(t_vx_grid_layout_interface)
{ return false; }
namespace vx
{
class VX_API grid_layout : public binding::wrapper<t_vx_grid_layout_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool column_visible() const
    { return vxk_framework_grid_layout_column_visible(f_handle); }
    [[nodiscard]] VX_LOCAL bool row_visible() const
    { return vxk_framework_grid_layout_row_visible(f_handle); }
    [[nodiscard]] VX_LOCAL bool column_avid() const
    { return vxk_framework_grid_layout_column_avid(f_handle); }
    [[nodiscard]] VX_LOCAL bool row_avid() const
    { return vxk_framework_grid_layout_row_avid(f_handle); }
};
class VX_API grid_layout_impl
    : public binding::implementation<grid_layout_impl, vx::grid_layout>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_grid_layout_interface_name; }
    VX_LOCAL static vx_grid_layout_interface_table const* family_table();
protected:
    ~grid_layout_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_layout_interface_table grid_layout_family_table{
    &binding::generalize_slot<grid_layout_impl>,
};
inline vx_grid_layout_interface_table const* grid_layout_impl::family_table()
{ return &grid_layout_family_table; }
}

VX_BINDING_BARE(grid_range_selection, 0)
VX_BINDING_BARE(grid_range_selection_visitor, 0)
VX_BINDING_BARE(grid_range_visitor, 0)
VX_BINDING_BARE(grid_string_cell, 6)
VX_BINDING_HANDLE(integer_outline_column)
struct vx_integer_outline_column_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(integer_outline_column, 12)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_integer_outline_column_avid(t_vx_integer_outline_column_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_outline_column_increment(t_vx_integer_outline_column_interface)
{ return 1; }
namespace vx
{
class VX_API integer_outline_column : public binding::wrapper<t_vx_integer_outline_column_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool avid() const
    { return vxk_framework_integer_outline_column_avid(f_handle); }
    [[nodiscard]] VX_LOCAL int increment() const
    { return vxk_framework_integer_outline_column_increment(f_handle); }
};
class VX_API integer_outline_column_impl
    : public binding::implementation<integer_outline_column_impl, vx::integer_outline_column>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_integer_outline_column_interface_name; }
    VX_LOCAL static vx_integer_outline_column_interface_table const* family_table();
protected:
    ~integer_outline_column_impl() = default;
};
VX_LOCAL inline constexpr vx_integer_outline_column_interface_table integer_outline_column_family_table{
    &binding::generalize_slot<integer_outline_column_impl>,
};
inline vx_integer_outline_column_interface_table const* integer_outline_column_impl::family_table()
{ return &integer_outline_column_family_table; }
}

VX_BINDING_HANDLE(integer_outline_column_variant)
struct vx_integer_outline_column_variant_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(integer_outline_column_variant, 1)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_outline_column_variant_increment(t_vx_integer_outline_column_variant_interface)
{ return 1; }
namespace vx
{
class VX_API integer_outline_column_variant : public binding::wrapper<t_vx_integer_outline_column_variant_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int increment() const
    { return vxk_framework_integer_outline_column_variant_increment(f_handle); }
};
class VX_API integer_outline_column_variant_impl
    : public binding::implementation<integer_outline_column_variant_impl, vx::integer_outline_column_variant>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_integer_outline_column_variant_interface_name; }
    VX_LOCAL static vx_integer_outline_column_variant_interface_table const* family_table();
protected:
    ~integer_outline_column_variant_impl() = default;
};
VX_LOCAL inline constexpr vx_integer_outline_column_variant_interface_table integer_outline_column_variant_family_table{
    &binding::generalize_slot<integer_outline_column_variant_impl>,
};
inline vx_integer_outline_column_variant_interface_table const* integer_outline_column_variant_impl::family_table()
{ return &integer_outline_column_variant_family_table; }
}

VX_BINDING_HANDLE(lookup_outline_column)
struct vx_lookup_outline_column_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(lookup_outline_column, 5)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_lookup_outline_column_avid(t_vx_lookup_outline_column_interface)
{ return true; }
namespace vx
{
class VX_API lookup_outline_column : public binding::wrapper<t_vx_lookup_outline_column_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool avid() const
    { return vxk_framework_lookup_outline_column_avid(f_handle); }
};
class VX_API lookup_outline_column_impl
    : public binding::implementation<lookup_outline_column_impl, vx::lookup_outline_column>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_lookup_outline_column_interface_name; }
    VX_LOCAL static vx_lookup_outline_column_interface_table const* family_table();
protected:
    ~lookup_outline_column_impl() = default;
};
VX_LOCAL inline constexpr vx_lookup_outline_column_interface_table lookup_outline_column_family_table{
    &binding::generalize_slot<lookup_outline_column_impl>,
};
inline vx_lookup_outline_column_interface_table const* lookup_outline_column_impl::family_table()
{ return &lookup_outline_column_family_table; }
}

VX_BINDING_HANDLE(outline)
struct vx_outline_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(outline, 32)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_outline_show_root(t_vx_outline_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_outline_fixed_column_count(t_vx_outline_interface)
{ return 1; }
namespace vx
{
class VX_API outline : public binding::wrapper<t_vx_outline_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool show_root() const
    { return vxk_framework_outline_show_root(f_handle); }
    [[nodiscard]] VX_LOCAL int fixed_column_count() const
    { return vxk_framework_outline_fixed_column_count(f_handle); }
};
class VX_API outline_impl
    : public binding::implementation<outline_impl, vx::outline>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_outline_interface_name; }
    VX_LOCAL static vx_outline_interface_table const* family_table();
protected:
    ~outline_impl() = default;
};
VX_LOCAL inline constexpr vx_outline_interface_table outline_family_table{
    &binding::generalize_slot<outline_impl>,
};
inline vx_outline_interface_table const* outline_impl::family_table()
{ return &outline_family_table; }
}

VX_BINDING_BARE(outline_checks, 1)
VX_BINDING_BARE(outline_checks_visitor, 1)
VX_BINDING_BARE_PASSED(outline_column_variant_view, 0)
VX_BINDING_BARE(outline_column_view, 1)
VX_BINDING_BARE(outline_item, 0)
VX_BINDING_BARE(outline_item_index, 0)
VX_BINDING_BARE(outline_item_index_visitor, 0)
VX_BINDING_BARE(outline_item_type, 0)
VX_BINDING_BARE(outline_item_type_visitor, 0)
VX_BINDING_BARE(outline_item_view, 0)
VX_BINDING_BARE(outline_item_visitor, 0)
VX_BINDING_HANDLE(string_outline_column)
struct vx_string_outline_column_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(string_outline_column, 10)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_string_outline_column_avid(t_vx_string_outline_column_interface)
{ return true; }
namespace vx
{
class VX_API string_outline_column : public binding::wrapper<t_vx_string_outline_column_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool avid() const
    { return vxk_framework_string_outline_column_avid(f_handle); }
};
class VX_API string_outline_column_impl
    : public binding::implementation<string_outline_column_impl, vx::string_outline_column>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_string_outline_column_interface_name; }
    VX_LOCAL static vx_string_outline_column_interface_table const* family_table();
protected:
    ~string_outline_column_impl() = default;
};
VX_LOCAL inline constexpr vx_string_outline_column_interface_table string_outline_column_family_table{
    &binding::generalize_slot<string_outline_column_impl>,
};
inline vx_string_outline_column_interface_table const* string_outline_column_impl::family_table()
{ return &string_outline_column_family_table; }
}

VX_BINDING_BARE(string_outline_column_variant, 0)
VX_BINDING_HANDLE(variant_outline_column)
struct vx_variant_outline_column_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(variant_outline_column, 5)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_variant_outline_column_avid(t_vx_variant_outline_column_interface)
{ return true; }
namespace vx
{
class VX_API variant_outline_column : public binding::wrapper<t_vx_variant_outline_column_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool avid() const
    { return vxk_framework_variant_outline_column_avid(f_handle); }
};
class VX_API variant_outline_column_impl
    : public binding::implementation<variant_outline_column_impl, vx::variant_outline_column>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_variant_outline_column_interface_name; }
    VX_LOCAL static vx_variant_outline_column_interface_table const* family_table();
protected:
    ~variant_outline_column_impl() = default;
};
VX_LOCAL inline constexpr vx_variant_outline_column_interface_table variant_outline_column_family_table{
    &binding::generalize_slot<variant_outline_column_impl>,
};
inline vx_variant_outline_column_interface_table const* variant_outline_column_impl::family_table()
{ return &variant_outline_column_family_table; }
}
