#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_stat.h"

/// A colour channel of a raster or grid: the property that feeds it, the two values between which it is
/// stretched, and the range of its histogram. All functions accept null.

VX_API void vx_clr_channel_get_prop_name_w(void const *channel, Ivx_string_adp *adp);
/// Another property than before has other statistics: those of the channel are forgotten.
VX_API void vx_clr_channel_set_prop_name_w(void *channel, wchar_t const *name);
/// The stretch: `min` shows as nothing of the colour, `max` as all of it. 0 and 255 in a new channel.
[[nodiscard]] VX_API double vx_clr_channel_get_min(void const *channel);
VX_API void vx_clr_channel_set_min(void *channel, double value);
[[nodiscard]] VX_API double vx_clr_channel_get_max(void const *channel);
VX_API void vx_clr_channel_set_max(void *channel, double value);
/// Whether the histogram covers the property's full range (true in a new channel) or the user's range.
[[nodiscard]] VX_API bool vx_clr_channel_get_histogramm_default(void const *channel);
VX_API void vx_clr_channel_set_histogramm_default(void *channel, bool full_range);
[[nodiscard]] VX_API double vx_clr_channel_get_histogramm_min(void const *channel);
VX_API void vx_clr_channel_set_histogramm_min(void *channel, double value);
[[nodiscard]] VX_API double vx_clr_channel_get_histogramm_max(void const *channel);
VX_API void vx_clr_channel_set_histogramm_max(void *channel, double value);
/// Statistics of what feeds the channel, owned by it.
[[nodiscard]] VX_API Tvx_stat_data *vx_clr_channel_get_stat(void *channel);

/// The four channels of a picture; they belong to the set.
[[nodiscard]] VX_API void *vx_rgb_channels_create();
[[nodiscard]] VX_API void *vx_rgb_channels_clone(void const *channels);
VX_API void vx_rgb_channels_destroy(void *channels);
VX_API void vx_rgb_channels_assign(void *target, void const *source);
/// Whether both draw alike: what feeds the channels, how it is stretched and the range of its histogram.
/// Statistics do not count.
[[nodiscard]] VX_API bool vx_rgb_channels_equal(void const *a, void const *b);
[[nodiscard]] VX_API void *vx_rgb_channels_get_red(void *channels);
[[nodiscard]] VX_API void *vx_rgb_channels_get_green(void *channels);
[[nodiscard]] VX_API void *vx_rgb_channels_get_blue(void *channels);
[[nodiscard]] VX_API void *vx_rgb_channels_get_gray(void *channels);
