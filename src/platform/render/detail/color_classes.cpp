#include "platform/render/detail/color_classes.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/detail/rtr_layer.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/detail/raster_feeds.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace vx::render {
namespace {
constexpr Tvx_color c_black = vx_clr_init_grey(0), c_white = vx_clr_init_grey(255);
constexpr Tvx_color c_parts[] = {vx_clr_init_rgb(255, 0, 0), vx_clr_init_rgb(0, 255, 0),
                                 vx_clr_init_rgb(0, 0, 255)};
constexpr std::size_t c_most_rows = 100; ///< of a palette
constexpr std::size_t c_most_stops = 64; ///< of the colours of a row
constexpr std::ptrdiff_t c_filler = 8;   ///< entries of one colour
/// So many colours that differ by so little on average are one that changes.
constexpr std::size_t c_least_of_ramp = 16;
constexpr double c_ramp_step = 24;

std::wstring number_text(double value)
{
    constexpr int c_digits = 6;
    char text[32];
    auto const end = std::to_chars(text, std::end(text), value, std::chars_format::general, c_digits);
    return {text, end.ptr};
}

std::wstring bounds_text(double low, double high)
{
    return number_text(low) + L" \u2013 " + number_text(high);
}

/// The name of a band in a row of its colour.
std::wstring part_caption(std::wstring const &band, double low, double high)
{
    return band + L": " + bounds_text(low, high);
}

bool is_ramp(std::vector<Tvx_color> const &colors)
{
    if (colors.size() < c_least_of_ramp)
        return false;
    double way = 0;
    for (std::size_t i = 1; i < colors.size(); ++i)
        way += std::hypot(colors[i].r - colors[i - 1].r, colors[i].g - colors[i - 1].g,
                          colors[i].b - colors[i - 1].b);
    return way < c_ramp_step * static_cast<double>(colors.size() - 1);
}

std::vector<Tvx_color> thinned(std::vector<Tvx_color> const &colors)
{
    if (colors.size() <= c_most_stops)
        return colors;
    std::vector<Tvx_color> some;
    for (std::size_t i = 0; i < c_most_stops; ++i)
        some.push_back(colors[i * (colors.size() - 1) / (c_most_stops - 1)]);
    return some;
}

std::vector<color_class> palette_classes(Ivx_layer *layer, Tvx_rtr_source &source,
                                         std::vector<Tvx_color> const &palette)
{
    Tvx_color const out = vx_rtr_lr2d_get_transparent_clr(layer);
    auto const no_data = source.no_data(0);
    auto const &used = source.used_numbers(0, palette.size());
    // Where nobody knows which occur, those that share a colour with many others are left out: nobody set it.
    bool const is_known = std::ranges::find(used, false) != used.end();
    auto const is_filler = [&](Tvx_color c) {
        return !is_known && std::ranges::count(palette, c) >= c_filler;
    };
    std::vector<std::size_t> numbers;
    std::vector<Tvx_color> colors;
    for (std::size_t i = 0; i < palette.size(); ++i) {
        Tvx_color const c = palette[i];
        bool const is_left_out = out.a > 0 && c.r == out.r && c.g == out.g && c.b == out.b;
        if (!used[i] || c.a == 0 || is_left_out || is_filler(c) || !no_data.counts(static_cast<double>(i)))
            continue;
        numbers.push_back(i);
        colors.push_back(c);
    }
    auto const number = [](std::size_t of) { return number_text(static_cast<double>(of)); };
    if (is_ramp(colors) || colors.size() > c_most_rows)
        return {{number(numbers.front()) + L" \u2013 " + number(numbers.back()), thinned(colors)}};
    std::vector<color_class> rows;
    for (std::size_t i = 0; i < colors.size(); ++i)
        rows.push_back({number(numbers[i]), {colors[i]}});
    return rows;
}

std::vector<color_class> raster_classes(Ivx_layer *layer, Tvx_rtr_source &source)
{
    if (vx_rtr_lr2d_get_draw_type(layer) == c_rtr_draw_normal)
        if (auto const palette = source.palette(0); !palette.empty())
            return palette_classes(layer, source, palette);
    auto const feeds = raster_feeds(layer, source);
    std::vector<color_class> rows;
    for (std::size_t i = 0; i < feeds.size(); ++i) {
        channel_feed const &feed = feeds[i];
        if (feed.band < 0)
            continue;
        bool const is_gray = feeds.size() == 1;
        auto const &band = source.bands()[static_cast<std::size_t>(feed.band)];
        rows.push_back({is_gray ? bounds_text(feed.low, feed.high) : part_caption(band, feed.low, feed.high),
                        {c_black, is_gray ? c_white : c_parts[i]}});
    }
    return rows;
}

std::wstring band_of(void const *channel)
{
    std::wstring name;
    vx_clr_channel_get_prop_name_w(channel, Tvx_std_wstring_adapter(name));
    return name;
}

/// Of a grid that is not drawn by a scale.
std::vector<color_class> grid_classes(Ivx_layer *layer, int draw_type)
{
    constexpr int c_draw_channels = 1;
    void *const channels = vx_tos_grid_lr2d_get_rgb_channels_ptr(layer);
    if (draw_type != c_draw_channels) {
        void const *const gray = vx_rgb_channels_get_gray(channels);
        if (band_of(gray).empty())
            return {};
        return {
            {bounds_text(vx_clr_channel_get_min(gray), vx_clr_channel_get_max(gray)), {c_black, c_white}}};
    }
    std::vector<color_class> rows;
    void const *const parts[] = {vx_rgb_channels_get_red(channels), vx_rgb_channels_get_green(channels),
                                 vx_rgb_channels_get_blue(channels)};
    for (std::size_t i = 0; i < std::size(parts); ++i)
        if (std::wstring const band = band_of(parts[i]); !band.empty())
            rows.push_back(
                {part_caption(band, vx_clr_channel_get_min(parts[i]), vx_clr_channel_get_max(parts[i])),
                 {c_black, c_parts[i]}});
    return rows;
}
} // namespace

std::vector<color_class> color_classes(Ivx_layer *layer)
{
    constexpr int c_draw_scale = 0;
    std::vector<color_class> rows;
    double opacity = 1;
    if (auto *const raster = layers::as<layers::rtr_layer>(layer)) {
        rows = raster_classes(layer, raster->opened_source());
        opacity = vx_rtr_lr2d_get_opacity(layer);
    } else if (vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer)) {
        int const type = vx_tos_grid_lr2d_get_draw_type(layer);
        if (type != c_draw_scale)
            rows = grid_classes(layer, type);
        opacity = vx_tos_grid_lr2d_get_opacity(layer);
    }
    for (color_class &row : rows)
        for (Tvx_color &color : row.colors)
            color.a = static_cast<unsigned char>(std::lround(color.a * opacity));
    return rows;
}
} // namespace vx::render
