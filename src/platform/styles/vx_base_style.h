#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"

class vx_fnt_type;

/// Base styles: each describes one geometry. All functions accept null: getters give zero, setters do
/// nothing. Sizes and widths are in millimetres; values that are no finite numbers are refused.

/// A point: a figure or a font symbol, with colour and size, or a complex style.
[[nodiscard]] VX_API void *vx_bpnt_style_create();
[[nodiscard]] VX_API void *vx_bpnt_style_clone(void const *style);
VX_API void vx_bpnt_style_destroy(void *style);
VX_API void vx_bpnt_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_bpnt_style_equal(void const *a, void const *b);
/// Figure, or else symbol.
[[nodiscard]] VX_API bool vx_bpnt_style_get_use_figure(void const *style);
VX_API void vx_bpnt_style_set_use_figure(void *style, bool value);
/// Number of the figure, 0 to 25; other numbers are kept and drawn as figure 0.
[[nodiscard]] VX_API int vx_bpnt_style_get_figure(void const *style);
VX_API void vx_bpnt_style_set_figure(void *style, int value);
/// The font of the symbol, owned by the style.
[[nodiscard]] VX_API vx_fnt_type *vx_bpnt_style_get_fnt_type_ptr(void *style);
VX_API void vx_bpnt_style_set_fnt_type(void *style, vx_fnt_type const *font);
/// Code point of the symbol.
[[nodiscard]] VX_API unsigned vx_bpnt_style_get_symbol(void const *style);
VX_API void vx_bpnt_style_set_symbol(void *style, unsigned value);
[[nodiscard]] VX_API Tvx_color vx_bpnt_style_get_color(void const *style);
VX_API void vx_bpnt_style_set_color(void *style, Tvx_color value);
[[nodiscard]] VX_API double vx_bpnt_style_get_size(void const *style);
VX_API void vx_bpnt_style_set_size(void *style, double value);
/// Drawn by the complex style; the plain values stay for the time when the flag is off again.
[[nodiscard]] VX_API bool vx_bpnt_style_get_use_complex(void const *style);
VX_API void vx_bpnt_style_set_use_complex(void *style, bool value);
/// Complex point style, owned by the style, never null for a live one.
[[nodiscard]] VX_API void *vx_bpnt_style_get_complex_style(void *style);

/// A line of a colour and width, or a complex style.
[[nodiscard]] VX_API void *vx_bpln_style_create();
[[nodiscard]] VX_API void *vx_bpln_style_clone(void const *style);
VX_API void vx_bpln_style_destroy(void *style);
VX_API void vx_bpln_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_bpln_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API Tvx_color vx_bpln_style_get_color(void const *style);
VX_API void vx_bpln_style_set_color(void *style, Tvx_color value);
[[nodiscard]] VX_API double vx_bpln_style_get_width(void const *style);
VX_API void vx_bpln_style_set_width(void *style, double value);
[[nodiscard]] VX_API bool vx_bpln_style_get_use_complex(void const *style);
VX_API void vx_bpln_style_set_use_complex(void *style, bool value);
[[nodiscard]] VX_API void *vx_bpln_style_get_complex_style(void *style);

/// A fill of a colour, or a complex style.
[[nodiscard]] VX_API void *vx_bpgn_style_create();
[[nodiscard]] VX_API void *vx_bpgn_style_clone(void const *style);
VX_API void vx_bpgn_style_destroy(void *style);
VX_API void vx_bpgn_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_bpgn_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API Tvx_color vx_bpgn_style_get_color(void const *style);
VX_API void vx_bpgn_style_set_color(void *style, Tvx_color value);
[[nodiscard]] VX_API bool vx_bpgn_style_get_use_complex(void const *style);
VX_API void vx_bpgn_style_set_use_complex(void *style, bool value);
[[nodiscard]] VX_API void *vx_bpgn_style_get_complex_style(void *style);
