#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Form elements: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(assisted_input, 3)
VX_BINDING_BARE(bitmap, 0)
VX_BINDING_BARE(bitmap_visitor, 0)
VX_BINDING_HANDLE(button)
struct vx_button_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(button, 4)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_button_default_button(t_vx_button_interface)
{ return 0; }
namespace vx
{
class VX_API button : public binding::wrapper<t_vx_button_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int default_button() const
    { return vxk_framework_button_default_button(f_handle); }
};
class VX_API button_impl
    : public binding::implementation<button_impl, vx::button>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_button_interface_name; }
    VX_LOCAL static vx_button_interface_table const* family_table();
protected:
    ~button_impl() = default;
};
VX_LOCAL inline constexpr vx_button_interface_table button_family_table{
    &binding::generalize_slot<button_impl>,
};
inline vx_button_interface_table const* button_impl::family_table()
{ return &button_family_table; }
}

VX_BINDING_BARE(buttoned_output, 1)
VX_BINDING_HANDLE(canvas)
struct vx_canvas_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(canvas, 2)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline double vxk_framework_canvas_scale(t_vx_canvas_interface)
{ return 1.0; }
namespace vx
{
class VX_API canvas : public binding::wrapper<t_vx_canvas_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL double scale() const
    { return vxk_framework_canvas_scale(f_handle); }
};
class VX_API canvas_impl
    : public binding::implementation<canvas_impl, vx::canvas>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_canvas_interface_name; }
    VX_LOCAL static vx_canvas_interface_table const* family_table();
protected:
    ~canvas_impl() = default;
};
VX_LOCAL inline constexpr vx_canvas_interface_table canvas_family_table{
    &binding::generalize_slot<canvas_impl>,
};
inline vx_canvas_interface_table const* canvas_impl::family_table()
{ return &canvas_family_table; }
}

VX_BINDING_BARE(checkbox, 2)
VX_BINDING_HANDLE(checkbox_list)
struct vx_checkbox_list_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(checkbox_list, 3)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_checkbox_list_item_enabled(t_vx_checkbox_list_interface)
{ return false; }
namespace vx
{
class VX_API checkbox_list : public binding::wrapper<t_vx_checkbox_list_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool item_enabled() const
    { return vxk_framework_checkbox_list_item_enabled(f_handle); }
};
class VX_API checkbox_list_impl
    : public binding::implementation<checkbox_list_impl, vx::checkbox_list>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_checkbox_list_interface_name; }
    VX_LOCAL static vx_checkbox_list_interface_table const* family_table();
protected:
    ~checkbox_list_impl() = default;
};
VX_LOCAL inline constexpr vx_checkbox_list_interface_table checkbox_list_family_table{
    &binding::generalize_slot<checkbox_list_impl>,
};
inline vx_checkbox_list_interface_table const* checkbox_list_impl::family_table()
{ return &checkbox_list_family_table; }
}

VX_BINDING_BARE(dropdown, 3)
VX_BINDING_HANDLE(floating_input)
struct vx_floating_input_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(floating_input, 7)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline double vxk_framework_floating_input_increment(t_vx_floating_input_interface)
{ return 1.0; }
namespace vx
{
class VX_API floating_input : public binding::wrapper<t_vx_floating_input_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL double increment() const
    { return vxk_framework_floating_input_increment(f_handle); }
};
class VX_API floating_input_impl
    : public binding::implementation<floating_input_impl, vx::floating_input>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_floating_input_interface_name; }
    VX_LOCAL static vx_floating_input_interface_table const* family_table();
protected:
    ~floating_input_impl() = default;
};
VX_LOCAL inline constexpr vx_floating_input_interface_table floating_input_family_table{
    &binding::generalize_slot<floating_input_impl>,
};
inline vx_floating_input_interface_table const* floating_input_impl::family_table()
{ return &floating_input_family_table; }
}

VX_BINDING_BARE(floating_output, 1)
VX_BINDING_BARE_PASSED(gauge, 0)
VX_BINDING_BARE(groupbox, 92)
VX_BINDING_BARE(histogram, 4)
VX_BINDING_BARE(histogram_distribution_visitor, 1)
VX_BINDING_BARE(image, 4)
VX_BINDING_BARE(input, 8)
VX_BINDING_BARE(input_cursor, 2)
VX_BINDING_BARE(input_cursor_selection_visitor, 0)
VX_BINDING_BARE(input_cursor_view, 2)
VX_BINDING_BARE(input_cursor_visitor, 2)
VX_BINDING_HANDLE(integer_input)
struct vx_integer_input_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(integer_input, 6)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_input_increment(t_vx_integer_input_interface)
{ return 1; }
namespace vx
{
class VX_API integer_input : public binding::wrapper<t_vx_integer_input_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int increment() const
    { return vxk_framework_integer_input_increment(f_handle); }
};
class VX_API integer_input_impl
    : public binding::implementation<integer_input_impl, vx::integer_input>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_integer_input_interface_name; }
    VX_LOCAL static vx_integer_input_interface_table const* family_table();
protected:
    ~integer_input_impl() = default;
};
VX_LOCAL inline constexpr vx_integer_input_interface_table integer_input_family_table{
    &binding::generalize_slot<integer_input_impl>,
};
inline vx_integer_input_interface_table const* integer_input_impl::family_table()
{ return &integer_input_family_table; }
}

VX_BINDING_BARE(integer_output, 1)
VX_BINDING_BARE(label, 2)
VX_BINDING_BARE(list, 3)
VX_BINDING_BARE(masked_bitmap, 0)
VX_BINDING_BARE(masked_bitmap_visitor, 0)
VX_BINDING_BARE(multiline_input, 6)
VX_BINDING_BARE(multiline_output, 1)
VX_BINDING_BARE(numeric_view, 0)
VX_BINDING_BARE(output, 2)
VX_BINDING_BARE(radiobutton, 1)
VX_BINDING_BARE(rich_input, 3)
VX_BINDING_HANDLE(scroll_layout)
struct vx_scroll_layout_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(scroll_layout, 37)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_scroll_layout_visible(t_vx_scroll_layout_interface)
{ return true; }
namespace vx
{
class VX_API scroll_layout : public binding::wrapper<t_vx_scroll_layout_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_scroll_layout_visible(f_handle); }
};
class VX_API scroll_layout_impl
    : public binding::implementation<scroll_layout_impl, vx::scroll_layout>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_scroll_layout_interface_name; }
    VX_LOCAL static vx_scroll_layout_interface_table const* family_table();
protected:
    ~scroll_layout_impl() = default;
};
VX_LOCAL inline constexpr vx_scroll_layout_interface_table scroll_layout_family_table{
    &binding::generalize_slot<scroll_layout_impl>,
};
inline vx_scroll_layout_interface_table const* scroll_layout_impl::family_table()
{ return &scroll_layout_family_table; }
}

VX_BINDING_HANDLE(slider)
struct vx_slider_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(slider, 2)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_slider_tick_visible(t_vx_slider_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_slider_single_step(t_vx_slider_interface)
{ return 1; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_slider_page_step(t_vx_slider_interface)
{ return 10; }
namespace vx
{
class VX_API slider : public binding::wrapper<t_vx_slider_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool tick_visible() const
    { return vxk_framework_slider_tick_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int single_step() const
    { return vxk_framework_slider_single_step(f_handle); }
    [[nodiscard]] VX_LOCAL int page_step() const
    { return vxk_framework_slider_page_step(f_handle); }
};
class VX_API slider_impl
    : public binding::implementation<slider_impl, vx::slider>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_slider_interface_name; }
    VX_LOCAL static vx_slider_interface_table const* family_table();
protected:
    ~slider_impl() = default;
};
VX_LOCAL inline constexpr vx_slider_interface_table slider_family_table{
    &binding::generalize_slot<slider_impl>,
};
inline vx_slider_interface_table const* slider_impl::family_table()
{ return &slider_family_table; }
}

VX_BINDING_BARE(split_layout, 91)
VX_BINDING_BARE(stack_layout, 67)
VX_BINDING_BARE(tab_layout, 91)
VX_BINDING_BARE(text_selection, 0)
