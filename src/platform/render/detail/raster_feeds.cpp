#include "platform/render/detail/raster_feeds.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/detail/rtr_source.h"
#include "platform/layers/vx_rtr_lr2d.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace vx::render {
namespace {
using layers::raster_color;

channel_feed feed_of(Tvx_rtr_source &source, void const *channel)
{
    std::wstring name;
    vx_clr_channel_get_prop_name_w(channel, Tvx_std_wstring_adapter(name));
    auto const &bands = source.bands();
    auto const found = std::ranges::find(bands, name);
    return {found == bands.end() ? -1 : static_cast<int>(found - bands.begin()),
            vx_clr_channel_get_min(channel), vx_clr_channel_get_max(channel)};
}

std::vector<channel_feed> natural_feeds(Tvx_rtr_source &source)
{
    auto const count = static_cast<unsigned>(source.bands().size());
    int colors[3] = {-1, -1, -1};
    std::vector<int> plain;
    for (unsigned band = 0; band < count; ++band) {
        auto const color = source.color_of(band);
        auto const place = static_cast<int>(color) - static_cast<int>(raster_color::red);
        if (color == raster_color::alpha)
            continue;
        if (place >= 0 && place < 3)
            colors[place] = static_cast<int>(band);
        plain.push_back(static_cast<int>(band));
    }
    std::vector<int> bands(std::begin(colors), std::end(colors));
    if (std::ranges::find(bands, -1) != bands.end())
        bands.assign(plain.begin(), plain.size() < 3 ? plain.begin() + std::min<long>(1, std::ssize(plain))
                                                     : plain.begin() + 3);
    std::vector<channel_feed> feeds;
    for (int const band : bands) {
        channel_feed feed{band};
        if (!source.is_unsigned_bytes(static_cast<unsigned>(band)) &&
            !source.shown_bounds(static_cast<unsigned>(band), feed.low, feed.high))
            feed.low = feed.high = 0;
        feeds.push_back(feed);
    }
    return feeds;
}
} // namespace

std::vector<channel_feed> raster_feeds(Ivx_layer *layer, Tvx_rtr_source &source)
{
    int const type = vx_rtr_lr2d_get_draw_type(layer);
    if (type == c_rtr_draw_normal)
        return natural_feeds(source);
    void *const channels = vx_rtr_lr2d_get_rgb_channels_ptr(layer);
    if (type == c_rtr_draw_gray)
        return {feed_of(source, vx_rgb_channels_get_gray(channels))};
    return {feed_of(source, vx_rgb_channels_get_red(channels)),
            feed_of(source, vx_rgb_channels_get_green(channels)),
            feed_of(source, vx_rgb_channels_get_blue(channels))};
}
} // namespace vx::render
