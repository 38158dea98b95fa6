#pragma once

#include "platform/base/color.h"
#include "platform/base/geometry.h"
#include "platform/layers/vx_lr2d.h"

struct Tvx_stat_data;

/// Raster layers, key "rtr_lr2d". On other layers the getters give the defaults and the setters do nothing.

[[nodiscard]] VX_API Ivx_layer *vx_rtr_lr2d_create(wchar_t const *source);

/// How the cells become colours.
enum Tvx_rtr_draw_type : int
{
    c_rtr_draw_normal = 0,
    c_rtr_draw_channels = 1,
    c_rtr_draw_gray = 2,
};
/// Normal unless set; other numbers are ignored.
[[nodiscard]] VX_API int vx_rtr_lr2d_get_draw_type(Ivx_layer const *layer);
VX_API void vx_rtr_lr2d_set_draw_type(Ivx_layer *layer, int draw_type);
/// Colour that is not drawn; one of alpha 0, as at the start, leaves none out.
[[nodiscard]] VX_API Tvx_color vx_rtr_lr2d_get_transparent_clr(Ivx_layer const *layer);
VX_API void vx_rtr_lr2d_set_transparent_clr(Ivx_layer *layer, Tvx_color color);
/// 0 to 1, 1 unless set; values outside are cut, no number is ignored.
[[nodiscard]] VX_API double vx_rtr_lr2d_get_opacity(Ivx_layer const *layer);
VX_API void vx_rtr_lr2d_set_opacity(Ivx_layer *layer, double opacity);

/// The channels of the draw types channels and gray (platform/basic/vx_clr_channel.h); the layer's own. Null
/// for other layers. At the first question the first bands feed them, where the raster can be opened.
[[nodiscard]] VX_API void *vx_rtr_lr2d_get_rgb_channels_ptr(Ivx_layer *layer);

// ---- bands

/// Bands of the raster; 0 while it cannot be opened.
[[nodiscard]] VX_API unsigned vx_rtr_lr2d_get_prop_count(Ivx_layer *layer);
/// Empty past the end. Valid while the layer lives and keeps its file.
[[nodiscard]] VX_API wchar_t const *vx_rtr_lr2d_get_prop_name(Ivx_layer *layer, unsigned band);
/// Column and row, from 0, of the cell at a place of the map. False outside, and while the raster cannot be
/// opened.
[[nodiscard]] VX_API bool vx_rtr_lr2d_find_cell(Ivx_layer *layer, Tvx_pnt_d2 at, int *column, int *row);
/// Value of a band's cell. False when it has none, or cannot be read.
[[nodiscard]] VX_API bool vx_rtr_lr2d_get_cell(Ivx_layer *layer, unsigned band, int column, int row,
                                               double *value);
/// What is known of the band's cells, kept with the layer and its clones; null past the end. Whoever finds
/// nothing in it fills it by the functions below.
[[nodiscard]] VX_API Tvx_stat_data *vx_rtr_lr2d_get_statistic(Ivx_layer *layer, unsigned band);

/// The raster behind the layer, the layer's own; null for other layers.
struct Tvx_rtr_source;
[[nodiscard]] VX_API Tvx_rtr_source *vx_rtr_lr2d_get_sourse(Ivx_layer *layer);

/// What works statistics of a band out. Ended before the layer, by `vx_rtr_lr2d_rastr_stat_destroy`.
struct Tvx_rtr_stat;
[[nodiscard]] VX_API Tvx_rtr_stat *vx_rtr_lr2d_rastr_stat_create(Tvx_rtr_source *source, unsigned band);
VX_API void vx_rtr_lr2d_rastr_stat_destroy(Tvx_rtr_stat *rs);
/// Goes over all cells, of the file as it is now, and fills the four numbers; a histogram of the cells as
/// they were is not present any more. False, with the record as it was, when the raster cannot be read or no
/// cell has a value.
VX_API bool vx_rtr_lr2d_compute_stat(Tvx_rtr_stat *rs, Tvx_stat_data *stat);
/// Fills the histogram, of 256 classes from the record's minimum to its maximum, which are worked out first
/// where the record has none. Of whole numbers there are so few classes that each holds as many of them as
/// its neighbours. Cells of bytes are counted once for all bounds.
VX_API bool vx_rtr_lr2d_compute_hg(Tvx_rtr_stat *rs, Tvx_stat_data *stat);
/// The same between bounds of the caller's, of which the lower comes first. False for bounds that are not
/// finite or not in order.
VX_API bool vx_rtr_lr2d_compute_hg_min_max(Tvx_rtr_stat *rs, Tvx_stat_data *stat, double minimum,
                                           double maximum);

/// The histogram of the band's record, worked out where that has none: its classes and bounds, and the
/// average and deviation of the cells. Outs may be null. False, with the outs as they were, when it cannot be
/// had.
VX_API bool vx_rtr_lr2d_get_hg_stats(Ivx_layer *layer, unsigned band, unsigned *count, double *minimum,
                                     double *maximum, double *average, double *deviation);
/// Cells of a class of that histogram, cut to what the type holds; 0 past the end and without one.
[[nodiscard]] VX_API int vx_rtr_lr2d_get_hg_value(Ivx_layer *layer, unsigned band, unsigned bin);
