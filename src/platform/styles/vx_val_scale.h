#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// A value scale: a list of entries, each drawing the objects whose attribute, as text, equals the entry's
/// text, and an other entry for the rest. A rule scale is the same kind of object, with a filter as the text
/// of an entry. Scales belong to their style manager. Indexes are zero-based; all functions accept null and
/// indexes outside the scale. `scale_prm` pointers live as long as their entry. Text in 8 bits is in the
/// system code page.

[[nodiscard]] VX_API unsigned vx_val_scale_get_size(void const *scale);
/// Cuts entries off the end, or appends blank ones: empty text and caption, visible, default styles.
VX_API void vx_val_scale_set_size(void *scale, unsigned size);
/// Appends a blank entry; returns the new size.
VX_API unsigned vx_val_scale_add(void *scale);
/// Inserts a blank entry before `index`, which is cut to the size; returns its index.
VX_API unsigned vx_val_scale_ins(void *scale, unsigned index);
VX_API void vx_val_scale_del(void *scale, unsigned index);
VX_API void vx_val_scale_del_marked(void *scale);
/// The entry leaves its place and comes to place `to` of the others; nothing if either is outside.
VX_API void vx_val_scale_move(void *scale, unsigned from, unsigned to);
/// `ints` (vx_ints.h) holds for each new place the old index of the entry that goes there. A list that is no
/// order of all entries changes nothing.
VX_API void vx_val_scale_set_order(void *scale, void const *ints);
/// Copies entries, other entry and opacity points between scales of one style type.
VX_API void vx_val_scale_assign(void *target, void const *source);
/// Marks and the active entry do not count.
[[nodiscard]] VX_API bool vx_val_scale_equal(void const *a, void const *b);
[[nodiscard]] VX_API char const *vx_val_scale_get_style_type(void const *scale);

/// Index of the active entry, -1 if there is none. It follows its entry; an index outside the scale means
/// none.
[[nodiscard]] VX_API int vx_val_scale_get_active_idx(void const *scale);
VX_API void vx_val_scale_set_active_idx(void *scale, int index);

VX_API void vx_val_scale_get_text_w(void const *scale, unsigned index, Ivx_string_adp *adp);
VX_API void vx_val_scale_set_text_w(void *scale, unsigned index, wchar_t const *text);
VX_API void vx_val_scale_set_text(void *scale, unsigned index, char const *text);
VX_API void vx_val_scale_get_caption_w(void const *scale, unsigned index, Ivx_string_adp *adp);
VX_API void vx_val_scale_set_caption_w(void *scale, unsigned index, wchar_t const *text);
VX_API void vx_val_scale_set_caption(void *scale, unsigned index, char const *text);
VX_API void vx_val_scale_get_other_caption_w(void const *scale, Ivx_string_adp *adp);
VX_API void vx_val_scale_set_other_caption_w(void *scale, wchar_t const *text);
VX_API void vx_val_scale_set_other_caption(void *scale, char const *text);
[[nodiscard]] VX_API bool vx_val_scale_get_marked(void const *scale, unsigned index);
VX_API void vx_val_scale_set_marked(void *scale, unsigned index, bool marked);
/// How many entries are marked; known without looking at them.
[[nodiscard]] VX_API unsigned vx_val_scale_get_marked_count(void const *scale);

[[nodiscard]] VX_API void *vx_val_scale_get_scale_prm_ptr(void *scale, unsigned index);
[[nodiscard]] VX_API void *vx_val_scale_get_other_prm_ptr(void *scale);
/// Copies the base or the selection style of `stl_prm` into that of the entry; nothing between style types.
VX_API void vx_val_scale_set_stl_prm(void *scale, unsigned index, void const *stl_prm, bool sel);

/// The entry that draws an object of the value: the first whose text equals it, white space at both ends
/// aside, with regard to case. -1 is the other entry. Takes the same time however long the scale is.
[[nodiscard]] VX_API int vx_val_scale_find_w(void const *scale, wchar_t const *value);

/// The curve of the opacity over the span of the scale, for exports that know one: supports in ascending
/// order, position and opacity from 0 to 1, the first at 0 and the last at 1. `init` makes it opaque
/// everywhere, with no support between.
VX_API void vx_val_scale_init_opacity_pts(void *scale);
[[nodiscard]] VX_API unsigned vx_val_scale_get_opacity_pts_size(void const *scale);
VX_API void vx_val_scale_get_opacity_pt(void const *scale, unsigned index, double *position, double *opacity);
/// False, and no change, if `count` points are no such curve.
VX_API bool vx_val_scale_set_opacity_pts(void *scale, double const *positions, double const *opacities,
                                         unsigned count);

/// Give the rows strictly between `first` and `last`, in either order, the colour, hue, opacity or size that
/// lies between those two: the leading colour and size of the base or the selection style. Colour runs
/// straight through a perceptually even space, hue on the shorter arc, opacity and size linearly. What a
/// function does not name stays: the colour gradient keeps the opacity, the hue gradient lightness and chroma
/// too. Ends outside the scale change nothing.
VX_API void vx_val_scale_clr_gradient(void *scale, unsigned first, unsigned last, bool sel);
VX_API void vx_val_scale_hue_gradient(void *scale, unsigned first, unsigned last, bool sel);
VX_API void vx_val_scale_transparency_gradient(void *scale, unsigned first, unsigned last, bool sel);
VX_API void vx_val_scale_size_gradient(void *scale, unsigned first, unsigned last, bool sel);
