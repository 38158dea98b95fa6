#pragma once

#include <vector>

struct Ivx_layer;
struct Tvx_rtr_source;

namespace vx::render {
/// What feeds a colour of a raster, and the values that are none and all of it.
struct channel_feed
{
    int band = -1; ///< nothing feeds it
    double low = 0;
    double high = 255;
};

/// One for gray, or three for red, green and blue, by the layer's channels where it is drawn by these. Else
/// as the raster itself is meant: the bands that say that they are colours, the first three, or the only one
/// in gray. Bytes are levels; other numbers reach over what there is. None when there is no band.
[[nodiscard]] std::vector<channel_feed> raster_feeds(Ivx_layer *layer, Tvx_rtr_source &source);
} // namespace vx::render
