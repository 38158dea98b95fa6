#pragma once

#include "platform/base/export.h"

/// Composed styles: how a type of geometry is drawn with base styles (vx_base_style.h), each with a flag that
/// shows it. The components belong to the style. All functions accept null.

/// How points are drawn: one base point style.
[[nodiscard]] VX_API void *vx_pnt_style_create();
[[nodiscard]] VX_API void *vx_pnt_style_clone(void const *style);
VX_API void vx_pnt_style_destroy(void *style);
VX_API void vx_pnt_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_pnt_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API void *vx_pnt_style_get_bpnt_style_ptr(void *style);
[[nodiscard]] VX_API bool vx_pnt_style_get_pnt_visible(void const *style);
VX_API void vx_pnt_style_set_pnt_visible(void *style, bool visible);

/// How lines are drawn: the line, and points at its vertices, its end and its beginning.
[[nodiscard]] VX_API void *vx_pln_style_create();
[[nodiscard]] VX_API void *vx_pln_style_clone(void const *style);
VX_API void vx_pln_style_destroy(void *style);
VX_API void vx_pln_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_pln_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API void *vx_pln_style_get_bpln_style_ptr(void *style);
[[nodiscard]] VX_API void *vx_pln_style_get_bpnt_style_ptr(void *style);
[[nodiscard]] VX_API void *vx_pln_style_get_bend_style_ptr(void *style);
[[nodiscard]] VX_API void *vx_pln_style_get_bbeg_style_ptr(void *style);
[[nodiscard]] VX_API bool vx_pln_style_get_pln_visible(void const *style);
VX_API void vx_pln_style_set_pln_visible(void *style, bool visible);
[[nodiscard]] VX_API bool vx_pln_style_get_pnt_visible(void const *style);
VX_API void vx_pln_style_set_pnt_visible(void *style, bool visible);
[[nodiscard]] VX_API bool vx_pln_style_get_end_visible(void const *style);
VX_API void vx_pln_style_set_end_visible(void *style, bool visible);
[[nodiscard]] VX_API bool vx_pln_style_get_beg_visible(void const *style);
VX_API void vx_pln_style_set_beg_visible(void *style, bool visible);

/// How polygons are drawn: the fill, the outline, and points at the vertices.
[[nodiscard]] VX_API void *vx_pgn_style_create();
[[nodiscard]] VX_API void *vx_pgn_style_clone(void const *style);
VX_API void vx_pgn_style_destroy(void *style);
VX_API void vx_pgn_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_pgn_style_equal(void const *a, void const *b);
[[nodiscard]] VX_API void *vx_pgn_style_get_bpgn_style_ptr(void *style);
[[nodiscard]] VX_API void *vx_pgn_style_get_bpln_style_ptr(void *style);
[[nodiscard]] VX_API void *vx_pgn_style_get_bpnt_style_ptr(void *style);
[[nodiscard]] VX_API bool vx_pgn_style_get_pgn_visible(void const *style);
VX_API void vx_pgn_style_set_pgn_visible(void *style, bool visible);
[[nodiscard]] VX_API bool vx_pgn_style_get_pln_visible(void const *style);
VX_API void vx_pgn_style_set_pln_visible(void *style, bool visible);
[[nodiscard]] VX_API bool vx_pgn_style_get_pnt_visible(void const *style);
VX_API void vx_pgn_style_set_pnt_visible(void *style, bool visible);
