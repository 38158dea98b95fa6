#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/base/string_adp.h"

class vx_fnt_type;

/// Text styles: how a label is written. One kind of object serves labels at points, along lines and in
/// polygons. Lengths are in millimetres, angles in degrees counter-clockwise. All functions accept null.

/// A style for labels at points; the style parameters hold those for lines and polygons.
[[nodiscard]] VX_API void *vx_txt_style_create();
[[nodiscard]] VX_API void *vx_txt_style_clone(void const *style);
VX_API void vx_txt_style_destroy(void *style);
VX_API void vx_txt_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_txt_style_equal(void const *a, void const *b);
/// The font, owned by the style.
[[nodiscard]] VX_API vx_fnt_type *vx_txt_style_get_font_ptr(void *style);
VX_API void vx_txt_style_set_font(void *style, vx_fnt_type const *font);
[[nodiscard]] VX_API Tvx_color vx_txt_style_get_color(void const *style);
VX_API void vx_txt_style_set_color(void *style, Tvx_color value);
[[nodiscard]] VX_API double vx_txt_style_get_angle(void const *style);
VX_API void vx_txt_style_set_angle(void *style, double value);
[[nodiscard]] VX_API double vx_txt_style_get_font_size(void const *style);
VX_API void vx_txt_style_set_font_size(void *style, double value);
/// A rim round the letters.
[[nodiscard]] VX_API bool vx_txt_style_get_outline(void const *style);
VX_API void vx_txt_style_set_outline(void *style, bool value);
[[nodiscard]] VX_API Tvx_color vx_txt_style_get_outline_clr(void const *style);
VX_API void vx_txt_style_set_outline_clr(void *style, Tvx_color value);
[[nodiscard]] VX_API double vx_txt_style_get_outline_size(void const *style);
VX_API void vx_txt_style_set_outline_size(void *style, double value);
/// A box of colour behind the text.
[[nodiscard]] VX_API bool vx_txt_style_get_back(void const *style);
VX_API void vx_txt_style_set_back(void *style, bool value);
[[nodiscard]] VX_API Tvx_color vx_txt_style_get_back_clr(void const *style);
VX_API void vx_txt_style_set_back_clr(void *style, Tvx_color value);
/// The text once more, behind itself: the gaps move it to the right and up.
[[nodiscard]] VX_API bool vx_txt_style_get_shadow(void const *style);
VX_API void vx_txt_style_set_shadow(void *style, bool value);
[[nodiscard]] VX_API Tvx_color vx_txt_style_get_shadow_clr(void const *style);
VX_API void vx_txt_style_set_shadow_clr(void *style, Tvx_color value);
[[nodiscard]] VX_API double vx_txt_style_get_shadow_width(void const *style);
VX_API void vx_txt_style_set_shadow_width(void *style, double value);
[[nodiscard]] VX_API double vx_txt_style_get_shadow_gap_x(void const *style);
VX_API void vx_txt_style_set_shadow_gap_x(void *style, double value);
[[nodiscard]] VX_API double vx_txt_style_get_shadow_gap_y(void const *style);
VX_API void vx_txt_style_set_shadow_gap_y(void *style, double value);
/// Side of the anchor on which the text stands: -1 left or below, 0 centred, 1 right or above; other values
/// are ignored.
[[nodiscard]] VX_API int vx_txt_style_get_pos_x(void const *style);
VX_API void vx_txt_style_set_pos_x(void *style, int value);
[[nodiscard]] VX_API int vx_txt_style_get_pos_y(void const *style);
VX_API void vx_txt_style_set_pos_y(void *style, int value);
/// Distance from that place, to the right and up.
[[nodiscard]] VX_API double vx_txt_style_get_delta_x(void const *style);
VX_API void vx_txt_style_set_delta_x(void *style, double value);
[[nodiscard]] VX_API double vx_txt_style_get_delta_y(void const *style);
VX_API void vx_txt_style_set_delta_y(void *style, double value);

/// The lines of the text, owned by the style. A line that names a property of the data is replaced by the
/// object's value, any other text is written as it is.
[[nodiscard]] VX_API void *vx_txt_style_get_txt_stl_line(void *style);
[[nodiscard]] VX_API unsigned vx_txt_stl_line_count(void const *line);
/// Appends `count` empty lines.
VX_API void vx_txt_stl_line_add(void *line, unsigned count);
VX_API void vx_txt_stl_line_del(void *line, unsigned index);
VX_API void vx_txt_stl_line_clear(void *line);
/// Sets line `index`; nothing outside the list.
VX_API void vx_txt_stl_line_set_str(void *line, wchar_t const *text, unsigned index);
VX_API void vx_txt_stl_line_get_str(void const *line, Ivx_string_adp *adp, unsigned index);
