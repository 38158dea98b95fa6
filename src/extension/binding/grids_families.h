#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Grids and outlines: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(action_outline_column, 4)
VX_BINDING_BARE(action_outline_column_variant, 0)
VX_BINDING_BARE(assisted_string_outline_column, 7,
    [[nodiscard]] VX_LOCAL bool avid() const { return true; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_assisted_string_outline_column_avid(
    t_vx_assisted_string_outline_column_interface)
{ return true; }

VX_BINDING_BARE(bitmap_outline_column, 5)
VX_BINDING_BARE(bitmap_outline_column_variant, 0)
VX_BINDING_BARE(boolean_outline_column, 7)
VX_BINDING_BARE(boolean_outline_column_variant, 0)
VX_BINDING_BARE(canvas_outline_column, 5,
    [[nodiscard]] VX_LOCAL bool avid() const { return true; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_canvas_outline_column_avid(
    t_vx_canvas_outline_column_interface)
{ return true; }

VX_BINDING_BARE(canvas_outline_column_variant, 0)
VX_BINDING_BARE(enum_outline_column, 6,
    [[nodiscard]] VX_LOCAL bool avid() const { return true; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_enum_outline_column_avid(t_vx_enum_outline_column_interface)
{ return true; }

VX_BINDING_BARE(enum_outline_column_variant, 0)
VX_BINDING_BARE(floating_outline_column, 14,
    [[nodiscard]] VX_LOCAL bool avid() const { return true; }
    [[nodiscard]] VX_LOCAL double increment() const { return 1.0; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_floating_outline_column_avid(
    t_vx_floating_outline_column_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline double vxk_framework_floating_outline_column_increment(
    t_vx_floating_outline_column_interface)
{ return 1.0; }

VX_BINDING_BARE(floating_outline_column_variant, 1,
    [[nodiscard]] VX_LOCAL double increment() const { return 1.0; })
[[nodiscard]] VX_LOCAL inline double vxk_framework_floating_outline_column_variant_increment(
    t_vx_floating_outline_column_variant_interface)
{ return 1.0; }

VX_BINDING_BARE(grid, 32,
    [[nodiscard]] VX_LOCAL int fixed_column_count() const { return 0; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_grid_fixed_column_count(t_vx_grid_interface)
{ return 0; }

VX_BINDING_BARE(grid_action_cell, 4)
VX_BINDING_BARE(grid_assisted_string_cell, 5)
VX_BINDING_BARE(grid_bitmap_cell, 4)
VX_BINDING_BARE(grid_boolean_cell, 3)
VX_BINDING_BARE(grid_canvas_cell, 1)
VX_BINDING_BARE(grid_cell_index_visitor, 0)
VX_BINDING_BARE(grid_check_cell, 0)
VX_BINDING_BARE(grid_enum_cell, 6)
VX_BINDING_BARE(grid_floating_cell, 10,
    [[nodiscard]] VX_LOCAL double increment() const { return 1.0; })
[[nodiscard]] VX_LOCAL inline double vxk_framework_grid_floating_cell_increment(
    t_vx_grid_floating_cell_interface)
{ return 1.0; }

VX_BINDING_BARE(grid_integer_cell, 8,
    [[nodiscard]] VX_LOCAL int increment() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_grid_integer_cell_increment(t_vx_grid_integer_cell_interface)
{ return 1; }

VX_BINDING_BARE(grid_range_selection, 0)
VX_BINDING_BARE(grid_range_selection_visitor, 0)
VX_BINDING_BARE(grid_range_visitor, 0)
VX_BINDING_BARE(grid_string_cell, 6)
VX_BINDING_BARE(integer_outline_column, 12,
    [[nodiscard]] VX_LOCAL bool avid() const { return true; }
    [[nodiscard]] VX_LOCAL int increment() const { return 1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_integer_outline_column_avid(
    t_vx_integer_outline_column_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_outline_column_increment(
    t_vx_integer_outline_column_interface)
{ return 1; }

VX_BINDING_BARE(integer_outline_column_variant, 1,
    [[nodiscard]] VX_LOCAL int increment() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_outline_column_variant_increment(
    t_vx_integer_outline_column_variant_interface)
{ return 1; }

VX_BINDING_BARE(lookup_outline_column, 5,
    [[nodiscard]] VX_LOCAL bool avid() const { return true; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_lookup_outline_column_avid(
    t_vx_lookup_outline_column_interface)
{ return true; }

VX_BINDING_BARE(outline, 32,
    [[nodiscard]] VX_LOCAL bool show_root() const { return true; }
    [[nodiscard]] VX_LOCAL int fixed_column_count() const { return 1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_outline_show_root(t_vx_outline_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_outline_fixed_column_count(t_vx_outline_interface)
{ return 1; }

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
VX_BINDING_BARE(string_outline_column, 10,
    [[nodiscard]] VX_LOCAL bool avid() const { return true; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_string_outline_column_avid(
    t_vx_string_outline_column_interface)
{ return true; }

VX_BINDING_BARE(string_outline_column_variant, 0)
VX_BINDING_BARE(variant_outline_column, 5,
    [[nodiscard]] VX_LOCAL bool avid() const { return true; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_variant_outline_column_avid(
    t_vx_variant_outline_column_interface)
{ return true; }
