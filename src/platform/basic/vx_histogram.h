#pragma once

#include "platform/base/export.h"

/// A histogram: bins of equal width between a lower and an upper bound, each with a count held as double. Bin
/// `i` runs from its lower bound to its upper bound; bounds are contiguous and ascending. All functions
/// accept null, which counts as a histogram without bins; a bin past the end is ignored and gives 0.
struct Tvx_histogramm_data;

[[nodiscard]] VX_API Tvx_histogramm_data *vx_histogramm_create();
VX_API void vx_histogramm_destroy(Tvx_histogramm_data *histogram);
VX_API void vx_histogramm_assign(Tvx_histogramm_data *target, Tvx_histogramm_data const *source);
/// All counts become 0; the shape stays.
VX_API void vx_histogramm_clear(Tvx_histogramm_data *histogram);

/// Null outs are left out; a null histogram leaves all outs as they were.
VX_API void vx_histogramm_get_params(Tvx_histogramm_data const *histogram, unsigned *size, double *minimum,
                                     double *maximum);
/// Gives the histogram `size` bins between the bounds; the counts become 0.
VX_API void vx_histogramm_set_params(Tvx_histogramm_data *histogram, unsigned size, double minimum,
                                     double maximum);
[[nodiscard]] VX_API unsigned vx_histogramm_get_size(Tvx_histogramm_data const *histogram);
[[nodiscard]] VX_API double vx_histogramm_get(Tvx_histogramm_data const *histogram, unsigned bin);
VX_API void vx_histogramm_set(Tvx_histogramm_data *histogram, unsigned bin, double count);
/// Lower bound of the first bin is the minimum, upper bound of the last bin the maximum, exactly.
[[nodiscard]] VX_API double vx_histogramm_get_bnd_min(Tvx_histogramm_data const *histogram, unsigned bin);
[[nodiscard]] VX_API double vx_histogramm_get_bnd_max(Tvx_histogramm_data const *histogram, unsigned bin);
/// Moves a bound of the whole; the counts stay with their bins.
VX_API void vx_histogramm_set_min(Tvx_histogramm_data *histogram, double minimum);
VX_API void vx_histogramm_set_max(Tvx_histogramm_data *histogram, double maximum);
