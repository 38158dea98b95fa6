#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"

/// Style parameters of one entry of a scale: the styles that its style type uses, each as a base style and as
/// a selection style, the style of a selected object. The flag `sel` says which is meant, false is the base
/// style. All functions accept null.

/// Free-standing parameters with default styles, for a plain or manager key; null for another key.
[[nodiscard]] VX_API void *vx_stl_prm_create(char const *type);
/// A free-standing copy, which the caller destroys.
[[nodiscard]] VX_API void *vx_stl_prm_clone(void const *stl_prm);
VX_API void vx_stl_prm_destroy(void *stl_prm);
/// Takes over the style type and both styles.
VX_API void vx_stl_prm_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_stl_prm_equal(void const *a, void const *b);

/// The style type key, such as "pnt_style". Static text.
[[nodiscard]] VX_API char const *vx_stl_prm_get_style_type(void const *stl_prm);

/// The leading colour: of the fill if it shows, else of the line, else of the point; of a complex style that
/// of its first layer with a colour; of a text that of the letters.
[[nodiscard]] VX_API Tvx_color vx_stl_prm_get_color(void const *stl_prm, bool sel);
VX_API void vx_stl_prm_set_color(void *stl_prm, bool sel, Tvx_color color);
/// Sets the colour in all components and layers of the style; of a text in its letters alone, so that they
/// stay legible on their outline.
VX_API void vx_stl_prm_clr_set_all(void *stl_prm, Tvx_color color, bool sel);
/// The leading size in millimetres: size of a point, width of a line or outline, font size of a text, 0 for
/// colours.
[[nodiscard]] VX_API double vx_stl_prm_get_size(void const *stl_prm, bool sel);
VX_API void vx_stl_prm_set_size(void *stl_prm, bool sel, double size);

/// The style of that kind inside the parameters, owned by them, to be read and changed; null if the style
/// type does not use one. "grid1d_clr_style" uses a line style. The colour style is a `Tvx_color`.
[[nodiscard]] VX_API void *vx_stl_prm_get_pnt_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API void *vx_stl_prm_get_pln_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API void *vx_stl_prm_get_pgn_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API Tvx_color *vx_stl_prm_get_clr_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API void *vx_stl_prm_get_pnt3d_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API void *vx_stl_prm_get_pln3d_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API void *vx_stl_prm_get_pgn3d_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API void *vx_stl_prm_get_txt_pnt_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API void *vx_stl_prm_get_txt_pln_style_ptr(void *stl_prm, bool sel);
[[nodiscard]] VX_API void *vx_stl_prm_get_txt_pgn_style_ptr(void *stl_prm, bool sel);
