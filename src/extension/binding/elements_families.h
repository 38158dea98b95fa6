#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Form elements: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(assisted_input, 3)
VX_BINDING_BARE(bitmap, 0)
VX_BINDING_BARE(bitmap_visitor, 0)
VX_BINDING_BARE(buttoned_output, 1)
VX_BINDING_BARE(canvas, 2,
    [[nodiscard]] VX_LOCAL double scale() const { return 1.0; })
[[nodiscard]] VX_LOCAL inline double vxk_framework_canvas_scale(t_vx_canvas_interface)
{ return 1.0; }

VX_BINDING_BARE(checkbox_list, 3,
    [[nodiscard]] VX_LOCAL bool item_enabled() const { return false; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_checkbox_list_item_enabled(t_vx_checkbox_list_interface)
{ return false; }

VX_BINDING_BARE(dropdown, 3)
VX_BINDING_BARE(floating_input, 7,
    [[nodiscard]] VX_LOCAL double increment() const { return 1.0; })
[[nodiscard]] VX_LOCAL inline double vxk_framework_floating_input_increment(t_vx_floating_input_interface)
{ return 1.0; }

VX_BINDING_BARE(floating_output, 1)
VX_BINDING_BARE_PASSED(gauge, 0)
VX_BINDING_BARE(histogram, 4)
VX_BINDING_BARE(histogram_distribution_visitor, 1)
VX_BINDING_BARE(image, 4)
VX_BINDING_BARE(input, 8)
VX_BINDING_BARE(input_cursor, 2)
VX_BINDING_BARE(input_cursor_selection_visitor, 0)
VX_BINDING_BARE(input_cursor_view, 2)
VX_BINDING_BARE(input_cursor_visitor, 2)
VX_BINDING_BARE(integer_input, 6,
    [[nodiscard]] VX_LOCAL int increment() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_input_increment(t_vx_integer_input_interface)
{ return 1; }

VX_BINDING_BARE(integer_output, 1)
VX_BINDING_BARE(list, 3)
VX_BINDING_BARE(masked_bitmap, 0)
VX_BINDING_BARE(masked_bitmap_visitor, 0)
VX_BINDING_BARE(multiline_input, 6)
VX_BINDING_BARE(numeric_view, 0)
VX_BINDING_BARE(radiobutton, 1)
VX_BINDING_BARE(rich_input, 3)
VX_BINDING_BARE(slider, 2,
    [[nodiscard]] VX_LOCAL bool tick_visible() const { return true; }
    [[nodiscard]] VX_LOCAL int single_step() const { return 1; }
    [[nodiscard]] VX_LOCAL int page_step() const { return 10; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_slider_tick_visible(t_vx_slider_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_slider_single_step(t_vx_slider_interface)
{ return 1; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_slider_page_step(t_vx_slider_interface)
{ return 10; }

VX_BINDING_BARE(split_layout, 91)
VX_BINDING_BARE(stack_layout, 67)
VX_BINDING_BARE(tab_layout, 91)
VX_BINDING_BARE(text_selection, 0)
