#pragma once

#include "platform/base/geometry.h"
#include "platform/layers/vx_lr2d.h"

/// Layers over a property file: grid ("tos_grid_lr2d"), slice of a stack of grids ("tos_slice_lr2d"), curve
/// ("tos_grid_lr1d"), points placed by two properties ("tos_2crd_lr2d"). On layers of another kind the
/// getters give the defaults and the setters do nothing.

/// A layer over a property file, of the kind that the file is: slices for a grid of three dimensions, a grid
/// for two, a curve for one, points for objects that are no cells. The first properties feed it: those called
/// X and Y place points. A grid has ranges over all values of the first one, and channels that reach over all
/// values of theirs. Null, with the reason in `error` (may be null), when the file cannot be opened.
[[nodiscard]] VX_API Ivx_layer *vx_tos_lr2d_open(wchar_t const *file_name, Ivx_string_adp *error);
/// Takes from the file of a layer what it has to know of it: the number of slices, and where nobody has said
/// which property it shows, what a layer that is opened gets. False, with the reason in
/// `error` (may be null), when the file cannot be opened, or the layer is of another kind.
[[nodiscard]] VX_API bool vx_tos_lr2d_attach(Ivx_layer *layer, Ivx_string_adp *error);
[[nodiscard]] VX_API bool vx_lr2d_is_tos(Ivx_layer const *layer);
/// The box of all cells of a grid or slice; of points and curves that of their places, from the statistics of
/// the properties that give them. False when it is not known.
[[nodiscard]] VX_API bool vx_tos_lr2d_get_extent(Ivx_layer *layer, Tvx_box_d2 *box);
/// The cell of a grid, or of the slice shown, at a place of the map, as the number of its object. False
/// outside and for other layers.
[[nodiscard]] VX_API bool vx_tos_lr2d_find_cell(Ivx_layer *layer, Tvx_pnt_d2 at, unsigned long long *object);
/// The coordinate system of the file in PROJ.4 form; empty when it is not known.
VX_API void vx_tos_lr2d_get_proj4(Ivx_layer const *layer, Ivx_string_adp *text);

// ---- grid and slice

/// Draw type: 0 colour scale (at the start), 1 channels, 3 gray; other numbers are ignored.
[[nodiscard]] VX_API int vx_tos_grid_lr2d_get_draw_type(Ivx_layer const *layer);
VX_API void vx_tos_grid_lr2d_set_draw_type(Ivx_layer *layer, int draw_type);
/// 0 to 1, 1 unless set; values outside are cut, no number is ignored.
[[nodiscard]] VX_API double vx_tos_grid_lr2d_get_opacity(Ivx_layer const *layer);
VX_API void vx_tos_grid_lr2d_set_opacity(Ivx_layer *layer, double opacity);
[[nodiscard]] VX_API bool vx_tos_grid_lr2d_get_interpolate(Ivx_layer const *layer);
VX_API void vx_tos_grid_lr2d_set_interpolate(Ivx_layer *layer, bool interpolate);
/// The manager of the colour scale, of style type "clr_style"; the layer's own.
[[nodiscard]] VX_API void *vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(Ivx_layer *layer);
/// The channels of the draw types channels and gray (platform/basic/vx_clr_channel.h); the layer's own.
[[nodiscard]] VX_API void *vx_tos_grid_lr2d_get_rgb_channels_ptr(Ivx_layer *layer);

/// Slice shown, from 0; a number outside the stack is cut.
[[nodiscard]] VX_API int vx_tos_slice_lr2d_get_zslice(Ivx_layer const *layer);
VX_API void vx_tos_slice_lr2d_set_zslice(Ivx_layer *layer, int slice);
/// Number of slices, at least 1.
[[nodiscard]] VX_API int vx_tos_slice_lr2d_get_zslice_count(Ivx_layer const *layer);
VX_API void vx_tos_slice_lr2d_set_zslice_count(Ivx_layer *layer, int count);

// ---- curve

VX_API void vx_tos_grid_1d_lr2d_get_height_prp_name(Ivx_layer const *layer, Ivx_string_adp *name);
VX_API void vx_tos_grid_1d_lr2d_set_height_prp_name(Ivx_layer *layer, wchar_t const *name);
/// The manager of the curve, of style type "grid1d_clr_style"; the layer's own.
[[nodiscard]] VX_API void *vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(Ivx_layer *layer);

// ---- two coordinates

/// The manager of the points, of style type "pnt_style"; the layer's own.
[[nodiscard]] VX_API void *vx_tos_2crd_lr2d_get_stl_mngr(Ivx_layer *layer);
/// The text settings, of style type "txt_pnt_style"; the layer's own.
[[nodiscard]] VX_API void *vx_tos_2crd_lr2d_get_txt_settings(Ivx_layer *layer);
/// The dynamic text layer of the layer, its own; cloned with it.
[[nodiscard]] VX_API Ivx_layer *vx_tos_2crd_lr2d_get_text_layer_ptr(Ivx_layer *layer);
VX_API void vx_tos_2crd_lr2d_get_wprop_name_x(Ivx_layer const *layer, Ivx_string_adp *name);
VX_API void vx_tos_2crd_lr2d_get_wprop_name_y(Ivx_layer const *layer, Ivx_string_adp *name);
VX_API void vx_tos_2crd_lr2d_set_wprop_name_x(Ivx_layer *layer, wchar_t const *name);
VX_API void vx_tos_2crd_lr2d_set_wprop_name_y(Ivx_layer *layer, wchar_t const *name);
