#pragma once

#include "platform/base/export.h"
#include "platform/basic/vx_histogram.h"

/// Statistics of one field or channel: minimum, maximum, average and standard deviation of the sample, each
/// known or not, and a histogram that is present or not. All functions accept null, which counts as a record
/// of nothing known.
struct Tvx_stat_data;

[[nodiscard]] VX_API Tvx_stat_data *vx_stat_create();
VX_API void vx_stat_destroy(Tvx_stat_data *stat);
VX_API void vx_stat_assign(Tvx_stat_data *target, Tvx_stat_data const *source);
/// Nothing is known any more, and no histogram is present.
VX_API void vx_stat_clear(Tvx_stat_data *stat);

/// The value, 0 while it is not known. `known`, which may be null, is set true if the value is known, else
/// false.
[[nodiscard]] VX_API double vx_stat_get_minimum(Tvx_stat_data const *stat, bool *known);
[[nodiscard]] VX_API double vx_stat_get_maximum(Tvx_stat_data const *stat, bool *known);
[[nodiscard]] VX_API double vx_stat_get_average(Tvx_stat_data const *stat, bool *known);
[[nodiscard]] VX_API double vx_stat_get_stddev(Tvx_stat_data const *stat, bool *known);
VX_API void vx_stat_set_minimum(Tvx_stat_data *stat, double value);
VX_API void vx_stat_set_maximum(Tvx_stat_data *stat, double value);
VX_API void vx_stat_set_average(Tvx_stat_data *stat, double value);
VX_API void vx_stat_set_stddev(Tvx_stat_data *stat, double value);
/// Whether all four values are known.
[[nodiscard]] VX_API bool vx_stat_has_statistic(Tvx_stat_data const *stat);

[[nodiscard]] VX_API bool vx_stat_has_histogramm(Tvx_stat_data const *stat);
/// The record's own histogram, to be read and filled; `present`, which may be null, tells whether it holds
/// one. Null for a null record.
[[nodiscard]] VX_API Tvx_histogramm_data *vx_stat_get_histogramm(Tvx_stat_data *stat, bool *present);
VX_API void vx_stat_set_histogramm(Tvx_stat_data *stat, bool present);
