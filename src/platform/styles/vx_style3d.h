#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"

/// Styles of objects in space: base styles of a colour and a size, and composed styles of them. All functions
/// accept null; lengths are in millimetres.

/// A point.
[[nodiscard]] VX_API void *vx_bpnt3d_style_create();
[[nodiscard]] VX_API void *vx_bpnt3d_style_clone(void const *style);
VX_API void vx_bpnt3d_style_destroy(void *style);
VX_API void vx_bpnt3d_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_bpnt3d_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API Tvx_color vx_bpnt3d_style_get_color(void const *style);
VX_API void vx_bpnt3d_style_set_color(void *style, Tvx_color value);
[[nodiscard]] VX_API double vx_bpnt3d_style_get_size(void const *style);
VX_API void vx_bpnt3d_style_set_size(void *style, double value);

/// A line; its width counts four times that of a line in the plane.
[[nodiscard]] VX_API void *vx_bpln3d_style_create();
[[nodiscard]] VX_API void *vx_bpln3d_style_clone(void const *style);
VX_API void vx_bpln3d_style_destroy(void *style);
VX_API void vx_bpln3d_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_bpln3d_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API Tvx_color vx_bpln3d_style_get_color(void const *style);
VX_API void vx_bpln3d_style_set_color(void *style, Tvx_color value);
[[nodiscard]] VX_API double vx_bpln3d_style_get_width(void const *style);
VX_API void vx_bpln3d_style_set_width(void *style, double value);

/// A fill.
[[nodiscard]] VX_API void *vx_bpgn3d_style_create();
[[nodiscard]] VX_API void *vx_bpgn3d_style_clone(void const *style);
VX_API void vx_bpgn3d_style_destroy(void *style);
VX_API void vx_bpgn3d_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_bpgn3d_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API Tvx_color vx_bpgn3d_style_get_color(void const *style);
VX_API void vx_bpgn3d_style_set_color(void *style, Tvx_color value);

/// How points are drawn.
[[nodiscard]] VX_API void *vx_pnt3d_style_create();
[[nodiscard]] VX_API void *vx_pnt3d_style_clone(void const *style);
VX_API void vx_pnt3d_style_destroy(void *style);
VX_API void vx_pnt3d_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_pnt3d_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API void *vx_pnt3d_style_get_bpnt3d_style_ptr(void *style);
[[nodiscard]] VX_API bool vx_pnt3d_style_get_pnt_visible(void const *style);
VX_API void vx_pnt3d_style_set_pnt_visible(void *style, bool visible);

/// How lines are drawn, with points at their vertices.
[[nodiscard]] VX_API void *vx_pln3d_style_create();
[[nodiscard]] VX_API void *vx_pln3d_style_clone(void const *style);
VX_API void vx_pln3d_style_destroy(void *style);
VX_API void vx_pln3d_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_pln3d_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API void *vx_pln3d_style_get_bpln3d_style_ptr(void *style);
[[nodiscard]] VX_API void *vx_pln3d_style_get_bpnt3d_style_ptr(void *style);
[[nodiscard]] VX_API bool vx_pln3d_style_get_pln_visible(void const *style);
VX_API void vx_pln3d_style_set_pln_visible(void *style, bool visible);
[[nodiscard]] VX_API bool vx_pln3d_style_get_pnt_visible(void const *style);
VX_API void vx_pln3d_style_set_pnt_visible(void *style, bool visible);

/// How polygons are drawn: fill, outline, points at the vertices.
[[nodiscard]] VX_API void *vx_pgn3d_style_create();
[[nodiscard]] VX_API void *vx_pgn3d_style_clone(void const *style);
VX_API void vx_pgn3d_style_destroy(void *style);
VX_API void vx_pgn3d_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_pgn3d_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API void *vx_pgn3d_style_get_bpgn3d_style_ptr(void *style);
[[nodiscard]] VX_API void *vx_pgn3d_style_get_bpln3d_style_ptr(void *style);
[[nodiscard]] VX_API void *vx_pgn3d_style_get_bpnt3d_style_ptr(void *style);
[[nodiscard]] VX_API bool vx_pgn3d_style_get_pgn_visible(void const *style);
VX_API void vx_pgn3d_style_set_pgn_visible(void *style, bool visible);
[[nodiscard]] VX_API bool vx_pgn3d_style_get_pln_visible(void const *style);
VX_API void vx_pgn3d_style_set_pln_visible(void *style, bool visible);
[[nodiscard]] VX_API bool vx_pgn3d_style_get_pnt_visible(void const *style);
VX_API void vx_pgn3d_style_set_pnt_visible(void *style, bool visible);
