#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/base/geometry.h"
#include "platform/base/string_adp.h"

class vx_fnt_type;

/// Complex styles: a stack of style layers that together draw one point, line or polygon, the first layer
/// lowest. Lists, layers and nested styles belong to the style. Lengths are in millimetres, angles in degrees
/// counter-clockwise. All functions accept null; a layer function on a layer of another key reads zero and
/// writes nothing.

/// Empty styles.
[[nodiscard]] VX_API void *vx_cpx_pnt_style_create();
VX_API void vx_cpx_pnt_style_destroy(void *style);
[[nodiscard]] VX_API void *vx_cpx_pln_style_create();
VX_API void vx_cpx_pln_style_destroy(void *style);
[[nodiscard]] VX_API void *vx_cpx_pgn_style_create();
VX_API void vx_cpx_pgn_style_destroy(void *style);
/// Copies the layers. The target keeps its type; layers that this type cannot hold are left out.
VX_API void vx_cpx_style_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_cpx_style_equal(void const *a, void const *b);
/// "pnt_style", "pln_style" or "pgn_style".
[[nodiscard]] VX_API char const *vx_cpx_style_get_type(void const *style);
[[nodiscard]] VX_API void *vx_cpx_style_get_style_lrs_ptr(void *style);

[[nodiscard]] VX_API unsigned vx_style_lrs_get_size(void const *list);
[[nodiscard]] VX_API void *vx_style_lrs_get_lr_ptr(void *list, unsigned index);
/// Appends a layer of the key and returns it; null for a key that is unknown or not for this type of style.
VX_API void *vx_style_lrs_add_lr(void *list, char const *key);
VX_API void vx_style_lrs_del_lr(void *list, unsigned index);
/// Those between move up or down by one; nothing if either place is outside the list.
VX_API void vx_style_lrs_move_lr(void *list, unsigned from, unsigned to);

/// Key of the layer, such as "pnt_figr_slr". Static text.
[[nodiscard]] VX_API char const *vx_style_lr_get_type(void const *layer);
/// Copies all parameters between layers of one key; nothing otherwise.
VX_API void vx_style_lr_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_style_lr_equal(void const *a, void const *b);

/// A font symbol.
[[nodiscard]] VX_API vx_fnt_type *vx_pnt_symb_lr_get_fnt_type_ptr(void *layer);
[[nodiscard]] VX_API unsigned vx_pnt_symb_lr_get_symbol(void const *layer);
VX_API void vx_pnt_symb_lr_set_symbol(void *layer, unsigned value);
[[nodiscard]] VX_API Tvx_color vx_pnt_symb_lr_get_color(void const *layer);
VX_API void vx_pnt_symb_lr_set_color(void *layer, Tvx_color value);
[[nodiscard]] VX_API double vx_pnt_symb_lr_get_size(void const *layer);
VX_API void vx_pnt_symb_lr_set_size(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_symb_lr_get_dx(void const *layer);
VX_API void vx_pnt_symb_lr_set_dx(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_symb_lr_get_dy(void const *layer);
VX_API void vx_pnt_symb_lr_set_dy(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_symb_lr_get_angle(void const *layer);
VX_API void vx_pnt_symb_lr_set_angle(void *layer, double value);

/// A figure.
[[nodiscard]] VX_API int vx_pnt_figr_lr_get_lr_figure(void const *layer);
VX_API void vx_pnt_figr_lr_set_lr_figure(void *layer, int value);
[[nodiscard]] VX_API Tvx_color vx_pnt_figr_lr_get_color(void const *layer);
VX_API void vx_pnt_figr_lr_set_color(void *layer, Tvx_color value);
[[nodiscard]] VX_API double vx_pnt_figr_lr_get_size_x(void const *layer);
VX_API void vx_pnt_figr_lr_set_size_x(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_figr_lr_get_size_y(void const *layer);
VX_API void vx_pnt_figr_lr_set_size_y(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_figr_lr_get_dx(void const *layer);
VX_API void vx_pnt_figr_lr_set_dx(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_figr_lr_get_dy(void const *layer);
VX_API void vx_pnt_figr_lr_set_dy(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_figr_lr_get_angle(void const *layer);
VX_API void vx_pnt_figr_lr_set_angle(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_figr_lr_get_line_width(void const *layer);
VX_API void vx_pnt_figr_lr_set_line_width(void *layer, double value);

/// A drawing of its own.
[[nodiscard]] VX_API bool vx_pnt_geom_lr_get_fill(void const *layer);
VX_API void vx_pnt_geom_lr_set_fill(void *layer, bool value);
[[nodiscard]] VX_API Tvx_color vx_pnt_geom_lr_get_color(void const *layer);
VX_API void vx_pnt_geom_lr_set_color(void *layer, Tvx_color value);
[[nodiscard]] VX_API double vx_pnt_geom_lr_get_size(void const *layer);
VX_API void vx_pnt_geom_lr_set_size(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_geom_lr_get_dx(void const *layer);
VX_API void vx_pnt_geom_lr_set_dx(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_geom_lr_get_dy(void const *layer);
VX_API void vx_pnt_geom_lr_set_dy(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_geom_lr_get_angle(void const *layer);
VX_API void vx_pnt_geom_lr_set_angle(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_geom_lr_get_line_width(void const *layer);
VX_API void vx_pnt_geom_lr_set_line_width(void *layer, double value);
/// Parts of the drawing in the square from (-0.5, -0.5) to (0.5, 0.5), x to the right and y up.
[[nodiscard]] VX_API unsigned vx_pnt_geom_lr_get_part_count(void const *layer);
[[nodiscard]] VX_API unsigned vx_pnt_geom_lr_get_vertex_count(void const *layer, unsigned part);
[[nodiscard]] VX_API Tvx_pnt_d2 vx_pnt_geom_lr_get_vertex(void const *layer, unsigned part, unsigned index);
/// Appends a part of `count` vertices.
VX_API void vx_pnt_geom_lr_add_part(void *layer, Tvx_pnt_d2 const *vertices, unsigned count);
VX_API void vx_pnt_geom_lr_clear(void *layer);

/// A text centred on the point.
[[nodiscard]] VX_API vx_fnt_type *vx_pnt_text_lr_get_fnt_type_ptr(void *layer);
[[nodiscard]] VX_API Tvx_color vx_pnt_text_lr_get_color(void const *layer);
VX_API void vx_pnt_text_lr_set_color(void *layer, Tvx_color value);
[[nodiscard]] VX_API double vx_pnt_text_lr_get_size(void const *layer);
VX_API void vx_pnt_text_lr_set_size(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_text_lr_get_dx(void const *layer);
VX_API void vx_pnt_text_lr_set_dx(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_text_lr_get_dy(void const *layer);
VX_API void vx_pnt_text_lr_set_dy(void *layer, double value);
[[nodiscard]] VX_API double vx_pnt_text_lr_get_angle(void const *layer);
VX_API void vx_pnt_text_lr_set_angle(void *layer, double value);
VX_API void vx_pnt_text_lr_get_text_w(void const *layer, Ivx_string_adp *adp);
VX_API void vx_pnt_text_lr_set_text_w(void *layer, wchar_t const *text);

/// A plain stroke, `delta` to the left of the line.
[[nodiscard]] VX_API Tvx_color vx_pln_line_lr_get_color(void const *layer);
VX_API void vx_pln_line_lr_set_color(void *layer, Tvx_color value);
[[nodiscard]] VX_API double vx_pln_line_lr_get_width(void const *layer);
VX_API void vx_pln_line_lr_set_width(void *layer, double value);
[[nodiscard]] VX_API double vx_pln_line_lr_get_delta(void const *layer);
VX_API void vx_pln_line_lr_set_delta(void *layer, double value);

/// A stroke by a repeating template that begins `shift` behind the start of the line, `delta` to its left.
[[nodiscard]] VX_API Tvx_color vx_pln_tplt_lr_get_color(void const *layer);
VX_API void vx_pln_tplt_lr_set_color(void *layer, Tvx_color value);
[[nodiscard]] VX_API double vx_pln_tplt_lr_get_width(void const *layer);
VX_API void vx_pln_tplt_lr_set_width(void *layer, double value);
[[nodiscard]] VX_API double vx_pln_tplt_lr_get_dash(void const *layer);
VX_API void vx_pln_tplt_lr_set_dash(void *layer, double value);
[[nodiscard]] VX_API double vx_pln_tplt_lr_get_gap(void const *layer);
VX_API void vx_pln_tplt_lr_set_gap(void *layer, double value);
[[nodiscard]] VX_API double vx_pln_tplt_lr_get_shift(void const *layer);
VX_API void vx_pln_tplt_lr_set_shift(void *layer, double value);
[[nodiscard]] VX_API double vx_pln_tplt_lr_get_delta(void const *layer);
VX_API void vx_pln_tplt_lr_set_delta(void *layer, double value);
/// The template: a character for each element, "0" gap, "1" dash, "2" point, "3" dash at 90 degrees, "4"
/// symbol, "5" dash at 45 degrees, "6" dash at 135 degrees. The text lives until it is set again.
[[nodiscard]] VX_API char const *vx_pln_tplt_lr_get_template(void const *layer);
VX_API void vx_pln_tplt_lr_set_template(void *layer, char const *text);
/// What a symbol of the template is drawn with.
[[nodiscard]] VX_API void *vx_pln_tplt_lr_get_cpx_pnt_style_ptr(void *layer);

/// A stroke with dashes of any lengths, ends (0 flat, 1 square, 2 round), corners (0 mitre, 1 round, 2 bevel)
/// and a casing on both sides.
[[nodiscard]] VX_API Tvx_color vx_pln_cart_lr_get_color(void const *layer);
VX_API void vx_pln_cart_lr_set_color(void *layer, Tvx_color value);
[[nodiscard]] VX_API double vx_pln_cart_lr_get_width(void const *layer);
VX_API void vx_pln_cart_lr_set_width(void *layer, double value);
[[nodiscard]] VX_API double vx_pln_cart_lr_get_delta(void const *layer);
VX_API void vx_pln_cart_lr_set_delta(void *layer, double value);
[[nodiscard]] VX_API int vx_pln_cart_lr_get_cap(void const *layer);
VX_API void vx_pln_cart_lr_set_cap(void *layer, int value);
[[nodiscard]] VX_API int vx_pln_cart_lr_get_join(void const *layer);
VX_API void vx_pln_cart_lr_set_join(void *layer, int value);
[[nodiscard]] VX_API double vx_pln_cart_lr_get_casing_width(void const *layer);
VX_API void vx_pln_cart_lr_set_casing_width(void *layer, double value);
[[nodiscard]] VX_API Tvx_color vx_pln_cart_lr_get_casing_color(void const *layer);
VX_API void vx_pln_cart_lr_set_casing_color(void *layer, Tvx_color value);
/// Lengths of dash, gap, dash, gap and so on; none gives a full stroke. Lengths below 0 are refused.
[[nodiscard]] VX_API unsigned vx_pln_cart_lr_get_dash_count(void const *layer);
[[nodiscard]] VX_API double vx_pln_cart_lr_get_dash(void const *layer, unsigned index);
VX_API void vx_pln_cart_lr_set_dashes(void *layer, double const *lengths, unsigned count);

/// A solid fill.
[[nodiscard]] VX_API Tvx_color vx_pgn_fill_lr_get_color(void const *layer);
VX_API void vx_pgn_fill_lr_set_color(void *layer, Tvx_color value);

// Patterns of areas are fixed to the map: they begin at its origin, the point (0, 0), and move with it. In a
// sample they begin at the upper left corner.

/// Parallel lines, `delta` apart, at `angle`; the first one `shift` from the origin, to the right of its
/// direction.
[[nodiscard]] VX_API double vx_pgn_htch_lr_get_delta(void const *layer);
VX_API void vx_pgn_htch_lr_set_delta(void *layer, double value);
[[nodiscard]] VX_API double vx_pgn_htch_lr_get_angle(void const *layer);
VX_API void vx_pgn_htch_lr_set_angle(void *layer, double value);
[[nodiscard]] VX_API double vx_pgn_htch_lr_get_shift(void const *layer);
VX_API void vx_pgn_htch_lr_set_shift(void *layer, double value);
/// The lines; a style without layers gives thin black ones.
[[nodiscard]] VX_API void *vx_pgn_htch_lr_get_cpx_pln_style_ptr(void *layer);

/// Points on a net of steps `dx`, `dy` from (`x0`, `y0`) to the right of and below the origin: `spot_type` 0
/// in rows, 1 with every other row moved by half a step. The random flags put each point somewhere in its own
/// cell of the net and turn it, always in the same way.
[[nodiscard]] VX_API int vx_pgn_spot_lr_get_spot_type(void const *layer);
VX_API void vx_pgn_spot_lr_set_spot_type(void *layer, int value);
[[nodiscard]] VX_API double vx_pgn_spot_lr_get_dx(void const *layer);
VX_API void vx_pgn_spot_lr_set_dx(void *layer, double value);
[[nodiscard]] VX_API double vx_pgn_spot_lr_get_dy(void const *layer);
VX_API void vx_pgn_spot_lr_set_dy(void *layer, double value);
[[nodiscard]] VX_API double vx_pgn_spot_lr_get_x0(void const *layer);
VX_API void vx_pgn_spot_lr_set_x0(void *layer, double value);
[[nodiscard]] VX_API double vx_pgn_spot_lr_get_y0(void const *layer);
VX_API void vx_pgn_spot_lr_set_y0(void *layer, double value);
[[nodiscard]] VX_API bool vx_pgn_spot_lr_get_use_cpx_pnt(void const *layer);
VX_API void vx_pgn_spot_lr_set_use_cpx_pnt(void *layer, bool value);
[[nodiscard]] VX_API Tvx_color vx_pgn_spot_lr_get_point_clr(void const *layer);
VX_API void vx_pgn_spot_lr_set_point_clr(void *layer, Tvx_color value);
[[nodiscard]] VX_API double vx_pgn_spot_lr_get_point_size(void const *layer);
VX_API void vx_pgn_spot_lr_set_point_size(void *layer, double value);
[[nodiscard]] VX_API bool vx_pgn_spot_lr_get_random_x(void const *layer);
VX_API void vx_pgn_spot_lr_set_random_x(void *layer, bool value);
[[nodiscard]] VX_API bool vx_pgn_spot_lr_get_random_y(void const *layer);
VX_API void vx_pgn_spot_lr_set_random_y(void *layer, bool value);
[[nodiscard]] VX_API bool vx_pgn_spot_lr_get_random_angle(void const *layer);
VX_API void vx_pgn_spot_lr_set_random_angle(void *layer, bool value);
[[nodiscard]] VX_API void *vx_pgn_spot_lr_get_cpx_pnt_style_ptr(void *layer);
