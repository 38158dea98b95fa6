#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// A range scale: a list of ranges, a min entry for values below the scale, a max entry for values above it,
/// and an other entry for objects without a value and for values in no range. Scales belong to their style
/// manager. Indexes of ranges are zero-based; rows of the whole scale are 0 for the min entry, i + 1 for
/// range i, size + 1 for the max entry. All functions accept null and indexes outside the scale.

/// How the ranges were classified.
inline constexpr int c_rng_type_equal_ranges = 0;
inline constexpr int c_rng_type_stdev = 1;
inline constexpr int c_rng_type_log = 2;
inline constexpr int c_rng_type_equal_area = 3;
inline constexpr int c_rng_type_natural_breaks = 4;
inline constexpr int c_rng_type_log_space = 5;

/// Number of ranges, not counting min, max and other.
[[nodiscard]] VX_API unsigned vx_rng_scale_get_size(void const *scale);
/// Cuts ranges off the end, or appends blank ones: bounds 0, empty caption, visible, default styles.
VX_API void vx_rng_scale_set_size(void *scale, unsigned size);
/// Inserts a blank range before `index`, which is cut to the size; returns its index.
VX_API unsigned vx_rng_scale_ins(void *scale, unsigned index);
VX_API void vx_rng_scale_del(void *scale, unsigned index);
/// Marked ranges; the min and max entries stay.
VX_API void vx_rng_scale_del_marked(void *scale);
/// As `vx_val_scale_move`, of the ranges; bounds stay with their range.
VX_API void vx_rng_scale_move(void *scale, unsigned from, unsigned to);
/// As `vx_val_scale_set_order`, of the ranges.
VX_API void vx_rng_scale_set_order(void *scale, void const *ints);
/// Copies everything between scales of one style type.
VX_API void vx_rng_scale_assign(void *target, void const *source);
/// Marks do not count.
[[nodiscard]] VX_API bool vx_rng_scale_equal(void const *a, void const *b);
[[nodiscard]] VX_API char const *vx_rng_scale_get_style_type(void const *scale);

[[nodiscard]] VX_API double vx_rng_scale_get_min(void const *scale, unsigned index);
[[nodiscard]] VX_API double vx_rng_scale_get_max(void const *scale, unsigned index);
VX_API void vx_rng_scale_set_min(void *scale, unsigned index, double value);
VX_API void vx_rng_scale_set_max(void *scale, unsigned index, double value);
/// Bounds of the whole scale.
[[nodiscard]] VX_API double vx_rng_scale_get_min_value(void const *scale);
[[nodiscard]] VX_API double vx_rng_scale_get_max_value(void const *scale);
VX_API void vx_rng_scale_set_min_value(void *scale, double value);
VX_API void vx_rng_scale_set_max_value(void *scale, double value);

VX_API void vx_rng_scale_get_caption_w(void const *scale, unsigned index, Ivx_string_adp *adp);
VX_API void vx_rng_scale_set_caption_w(void *scale, unsigned index, wchar_t const *text);
VX_API void vx_rng_scale_set_caption(void *scale, unsigned index, char const *text);
/// Gives the range the caption that the scale makes from its bounds: "lower - upper", under the round digits.
VX_API void vx_rng_scale_set_default_caption(void *scale, unsigned index);
VX_API void vx_rng_scale_get_min_caption_w(void const *scale, Ivx_string_adp *adp);
VX_API void vx_rng_scale_set_min_caption_w(void *scale, wchar_t const *text);
VX_API void vx_rng_scale_set_min_caption(void *scale, char const *text);
VX_API void vx_rng_scale_get_max_caption_w(void const *scale, Ivx_string_adp *adp);
VX_API void vx_rng_scale_set_max_caption_w(void *scale, wchar_t const *text);
VX_API void vx_rng_scale_set_max_caption(void *scale, char const *text);
VX_API void vx_rng_scale_get_other_caption_w(void const *scale, Ivx_string_adp *adp);
VX_API void vx_rng_scale_set_other_caption_w(void *scale, wchar_t const *text);
VX_API void vx_rng_scale_set_other_caption(void *scale, char const *text);

[[nodiscard]] VX_API bool vx_rng_scale_get_marked(void const *scale, unsigned index);
VX_API void vx_rng_scale_set_marked(void *scale, unsigned index, bool marked);
[[nodiscard]] VX_API bool vx_rng_scale_get_min_marked(void const *scale);
VX_API void vx_rng_scale_set_min_marked(void *scale, bool marked);
[[nodiscard]] VX_API bool vx_rng_scale_get_max_marked(void const *scale);
VX_API void vx_rng_scale_set_max_marked(void *scale, bool marked);

[[nodiscard]] VX_API void *vx_rng_scale_get_scale_prm_ptr(void *scale, unsigned index);
[[nodiscard]] VX_API void *vx_rng_scale_get_min_prm_ptr(void *scale);
[[nodiscard]] VX_API void *vx_rng_scale_get_max_prm_ptr(void *scale);
[[nodiscard]] VX_API void *vx_rng_scale_get_other_prm_ptr(void *scale);
/// Copy the base or the selection style of `stl_prm` into that of the entry; nothing between style types.
VX_API void vx_rng_scale_set_stl_prm(void *scale, unsigned index, void const *stl_prm, bool sel);
VX_API void vx_rng_scale_set_min_style_prm(void *scale, void const *stl_prm, bool sel);
VX_API void vx_rng_scale_set_max_style_prm(void *scale, void const *stl_prm, bool sel);

/// How the ranges were classified, a number that the scale keeps.
[[nodiscard]] VX_API int vx_rng_scale_get_rng_type(void const *scale);
VX_API void vx_rng_scale_set_rng_type(void *scale, int type);
/// Exponent of the power of ten that bounds are rounded to; -2 in a new scale, -30 rounds nothing.
[[nodiscard]] VX_API int vx_rng_scale_get_round_digits(void const *scale);
VX_API void vx_rng_scale_set_round_digits(void *scale, int digits);
/// For the standard deviation type; 1 in a new scale.
[[nodiscard]] VX_API double vx_rng_scale_get_deviation_coeff(void const *scale);
VX_API void vx_rng_scale_set_deviation_coeff(void *scale, double coeff);

/// The row of a value; size + 2 stands for the other entry. A bound belongs to the range below it: a range
/// holds what is above its lower bound up to and including its upper bound, the min entry everything up to
/// and including the min value, the max entry everything above the max value. Of ranges that overlap the
/// first counts. A value in no range, and one that is no number, is in the other row. Takes time in the
/// logarithm of the size.
[[nodiscard]] VX_API unsigned vx_rng_scale_find(void const *scale, double value);

/// The curve of the opacity over the span of the scale, for exports that know one: supports in ascending
/// order, position and opacity from 0 to 1, the first at 0 and the last at 1. `init` makes it opaque
/// everywhere, with no support between.
VX_API void vx_rng_scale_init_opacity_pts(void *scale);
[[nodiscard]] VX_API unsigned vx_rng_scale_get_opacity_pts_size(void const *scale);
VX_API void vx_rng_scale_get_opacity_pt(void const *scale, unsigned index, double *position, double *opacity);
/// False, and no change, if `count` points are no such curve.
VX_API bool vx_rng_scale_set_opacity_pts(void *scale, double const *positions, double const *opacities,
                                         unsigned count);

/// Give the rows strictly between `first` and `last`, in either order, the colour, hue, opacity or size that
/// lies between those two: the leading colour and size of the base or the selection style. Colour runs
/// straight through a perceptually even space, hue on the shorter arc, opacity and size linearly. What a
/// function does not name stays: the colour gradient keeps the opacity, the hue gradient lightness and chroma
/// too. Ends outside the scale change nothing.
VX_API void vx_rng_scale_clr_gradient(void *scale, unsigned first, unsigned last, bool sel);
VX_API void vx_rng_scale_hue_gradient(void *scale, unsigned first, unsigned last, bool sel);
VX_API void vx_rng_scale_transparency_gradient(void *scale, unsigned first, unsigned last, bool sel);
VX_API void vx_rng_scale_size_gradient(void *scale, unsigned first, unsigned last, bool sel);
