#include "platform/render/detail/raster_painter.h"

#include "platform/layers/detail/rtr_layer.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/render/detail/channel_level.h"
#include "platform/render/detail/pixel_blend.h"
#include "platform/render/detail/raster_feeds.h"
#include "platform/render/detail/work_meter.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace vx::render {
namespace {
using layers::raster_place;
using layers::raster_window;
using pixels = std::vector<std::uint32_t>;

/// Of a picture, up to which the averages of cells are taken: all of them are read for it.
constexpr double c_most_averaged = 4e6;

/// What gives cells their colours.
class raster_colors
{
public:
    explicit raster_colors(Tvx_rtr_source &source, double opacity) : f_source(source)
    {
        for (int i = 0; i < 256; ++i)
            f_part[static_cast<std::size_t>(i)] = static_cast<int>(std::lround(i * opacity));
    }
    raster_colors(raster_colors const &) = delete;
    raster_colors &operator=(raster_colors const &) = delete;
    virtual ~raster_colors() = default;
    /// Averages of cells have a meaning.
    [[nodiscard]] virtual bool is_measured() const = 0;
    /// False when the cells cannot be read.
    [[nodiscard]] virtual bool fill(raster_window const &window, pixels &result) = 0;

protected:
    [[nodiscard]] std::uint32_t opaque(int r, int g, int b) const
    {
        auto const part = [this](int of) { return f_part[static_cast<std::size_t>(of)]; };
        return pixel_of(f_part[255], part(r), part(g), part(b));
    }
    [[nodiscard]] Tvx_rtr_source &source() { return f_source; }

private:
    Tvx_rtr_source &f_source;
    std::array<int, 256> f_part; ///< of a colour, premultiplied
};

/// By a palette of colours; numbers outside have none.
class palette_colors final : public raster_colors
{
public:
    palette_colors(Tvx_rtr_source &source, unsigned band, std::vector<Tvx_color> const &palette,
                   Tvx_color transparent, double opacity)
        : raster_colors(source, opacity), f_band(static_cast<int>(band)),
          f_is_bytes(source.is_unsigned_bytes(band))
    {
        auto const no_data = source.no_data(band);
        for (std::size_t i = 0; i < palette.size(); ++i) {
            Tvx_color const c = palette[i];
            bool const is_left_out =
                transparent.a > 0 && c.r == transparent.r && c.g == transparent.g && c.b == transparent.b;
            bool const is_drawn = !is_left_out && no_data.counts(static_cast<double>(i));
            f_pixels.push_back(is_drawn ? premultiplied(c, opacity) : 0);
        }
        f_pixels.resize(std::max<std::size_t>(256, f_pixels.size()), 0);
    }
    [[nodiscard]] bool is_measured() const override { return false; }
    [[nodiscard]] bool fill(raster_window const &window, pixels &result) override
    {
        if (f_is_bytes) {
            f_bytes.resize(window.buffer_cells());
            if (!source().read(f_band, window, f_bytes.data()))
                return false;
            std::ranges::transform(f_bytes, result.begin(), [this](unsigned char i) { return f_pixels[i]; });
            return true;
        }
        f_numbers.resize(window.buffer_cells());
        if (!source().read(f_band, window, f_numbers.data()))
            return false;
        std::ranges::transform(f_numbers, result.begin(), [this](double number) {
            bool const is_one = number >= 0 && number < static_cast<double>(f_pixels.size());
            return is_one ? f_pixels[static_cast<std::size_t>(number)] : 0;
        });
        return true;
    }

private:
    int f_band;
    bool f_is_bytes;
    pixels f_pixels;
    std::vector<unsigned char> f_bytes;
    std::vector<double> f_numbers;
};

/// By the values of three bands, or of one in gray. A cell without a value in one of them has no colour.
class channel_colors final : public raster_colors
{
public:
    channel_colors(Tvx_rtr_source &source, std::vector<channel_feed> const &feeds, Tvx_color transparent,
                   double opacity)
        : raster_colors(source, opacity), f_transparent(transparent)
    {
        for (channel_feed const &feed : feeds)
            f_channels.push_back(channel(source, feed));
        f_is_measured = std::ranges::none_of(f_channels, [&](channel const &c) {
            return c.feed.band >= 0 && source.is_coded(static_cast<unsigned>(c.feed.band));
        });
        f_is_fed = std::ranges::any_of(f_channels, [](channel const &c) { return c.feed.band >= 0; });
    }
    [[nodiscard]] bool is_measured() const override { return f_is_measured && f_transparent.a == 0; }
    [[nodiscard]] bool fill(raster_window const &window, pixels &result) override
    {
        std::size_t const count = window.buffer_cells();
        if (!f_is_fed) {
            std::ranges::fill(result, 0);
            return true;
        }
        if (f_channels.size() == 1 && f_channels[0].is_bytes)
            return fill_gray(window, result);
        for (std::size_t i = 0; i < f_channels.size(); ++i) {
            auto const same =
                std::ranges::find_if(f_channels.begin(), f_channels.begin() + static_cast<std::ptrdiff_t>(i),
                                     [&](channel const &c) { return c.has_levels_of(f_channels[i]); });
            if (same != f_channels.begin() + static_cast<std::ptrdiff_t>(i))
                f_channels[i].levels = same->levels;
            else if (!read(f_channels[i], window, count))
                return false;
        }
        bool const is_gray = f_channels.size() == 1;
        auto const &r = f_channels[0].levels, &g = is_gray ? r : f_channels[1].levels,
                   &b = is_gray ? r : f_channels[2].levels;
        for (std::size_t i = 0; i < count; ++i)
            result[i] =
                (r[i] | g[i] | b[i]) < 0 || is_left_out(r[i], g[i], b[i]) ? 0 : opaque(r[i], g[i], b[i]);
        return true;
    }

private:
    /// 0 to 255, and -1 without a value.
    using level = short;
    struct channel
    {
        channel(Tvx_rtr_source &source, channel_feed const &of) : feed(of)
        {
            if (of.band < 0)
                return;
            auto const band = static_cast<unsigned>(of.band);
            is_bytes = source.is_unsigned_bytes(band);
            auto const no_data = source.no_data(band);
            for (int i = 0; is_bytes && i < 256; ++i)
                of_byte[static_cast<std::size_t>(i)] = no_data.counts(i) ? level_of(i) : level(-1);
        }
        [[nodiscard]] level level_of(double value) const
        {
            return static_cast<level>(channel_level(value, feed.low, feed.high));
        }
        [[nodiscard]] bool has_levels_of(channel const &other) const
        {
            return feed.band == other.feed.band && feed.low == other.feed.low && feed.high == other.feed.high;
        }

        channel_feed feed;
        bool is_bytes = false;
        std::array<level, 256> of_byte{};
        std::vector<level> levels; ///< of the cells that were read last
    };

    /// Bytes in gray: each has its pixel.
    [[nodiscard]] bool fill_gray(raster_window const &window, pixels &result)
    {
        channel const &gray = f_channels[0];
        if (f_gray.empty())
            for (level const l : gray.of_byte)
                f_gray.push_back(l < 0 || is_left_out(l, l, l) ? 0 : opaque(l, l, l));
        f_bytes.resize(window.buffer_cells());
        if (!source().read(gray.feed.band, window, f_bytes.data()))
            return false;
        std::ranges::transform(f_bytes, result.begin(), [this](unsigned char byte) { return f_gray[byte]; });
        return true;
    }

    [[nodiscard]] bool read(channel &of, raster_window const &window, std::size_t count)
    {
        of.levels.resize(count);
        if (of.feed.band < 0) {
            std::ranges::fill(of.levels, level(0));
        } else if (of.is_bytes) {
            f_bytes.resize(count);
            if (!source().read(of.feed.band, window, f_bytes.data()))
                return false;
            std::ranges::transform(f_bytes, of.levels.begin(),
                                   [&](unsigned char byte) { return of.of_byte[byte]; });
        } else {
            f_numbers.resize(count);
            if (!source().read(of.feed.band, window, f_numbers.data()))
                return false;
            std::ranges::transform(f_numbers, of.levels.begin(), [&](double number) {
                return std::isnan(number) ? level(-1) : of.level_of(number);
            });
        }
        return true;
    }
    [[nodiscard]] bool is_left_out(int r, int g, int b) const
    {
        return f_transparent.a > 0 && r == f_transparent.r && g == f_transparent.g && b == f_transparent.b;
    }

    std::vector<channel> f_channels; ///< red, green and blue, or gray
    Tvx_color f_transparent;
    bool f_is_measured = false;
    bool f_is_fed = false;
    pixels f_gray; ///< of the bytes, once they were asked for
    std::vector<unsigned char> f_bytes;
    std::vector<double> f_numbers;
};

/// Null when there is no band.
std::unique_ptr<raster_colors> colors_of(Ivx_layer *layer, Tvx_rtr_source &source)
{
    double const opacity = vx_rtr_lr2d_get_opacity(layer);
    bool const is_natural = vx_rtr_lr2d_get_draw_type(layer) == c_rtr_draw_normal;
    Tvx_color const transparent = is_natural ? vx_rtr_lr2d_get_transparent_clr(layer) : Tvx_color{};
    if (is_natural)
        if (auto const palette = source.palette(0); !palette.empty())
            return std::make_unique<palette_colors>(source, 0, palette, transparent, opacity);
    auto const feeds = raster_feeds(layer, source);
    return feeds.empty() ? nullptr : std::make_unique<channel_colors>(source, feeds, transparent, opacity);
}

/// Which cell lies under a pixel, and in what pieces cells are read.
class raster_cells
{
public:
    raster_cells(raster_place const &place, Tvx_map_view const &view) : f_place(place)
    {
        // From pixels to the world, and from there to columns and rows.
        double const step_x = view.world.width() / view.width, step_y = -view.world.height() / view.height;
        double const det = place.x[0] * place.y[1] - place.x[1] * place.y[0];
        double const from_x = view.world.min_x - place.x[2], from_y = view.world.max_y - place.y[2];
        f_column[0] = place.y[1] * step_x / det;
        f_column[1] = -place.x[1] * step_y / det;
        f_column[2] = (place.y[1] * from_x - place.x[1] * from_y) / det;
        f_row[0] = -place.y[0] * step_x / det;
        f_row[1] = place.x[0] * step_y / det;
        f_row[2] = (place.x[0] * from_y - place.y[0] * from_x) / det;
        f_step_x = step_of(f_column, place.width);
        f_step_y = step_of(f_row, place.height);
    }
    /// It has a place at all.
    [[nodiscard]] bool is_valid() const
    {
        auto const is_finite = [](double number) { return std::isfinite(number); };
        return std::ranges::all_of(f_column, is_finite) && std::ranges::all_of(f_row, is_finite) &&
               (f_column[0] != 0 || f_column[1] != 0) && (f_row[0] != 0 || f_row[1] != 0);
    }
    [[nodiscard]] bool is_upright() const { return f_column[1] == 0 && f_row[0] == 0; }
    [[nodiscard]] bool is_thinned() const { return f_step_x > 1 || f_step_y > 1; }
    /// Of the middle of a pixel, in pieces.
    [[nodiscard]] double column_at(double x, double y) const
    {
        return (f_column[0] * (x + 0.5) + f_column[1] * (y + 0.5) + f_column[2]) / f_step_x;
    }
    [[nodiscard]] double row_at(double x, double y) const
    {
        return (f_row[0] * (x + 0.5) + f_row[1] * (y + 0.5) + f_row[2]) / f_step_y;
    }
    /// Whole pieces of cells; what is left at the end counts with the last one.
    [[nodiscard]] int columns() const { return f_place.width / f_step_x; }
    [[nodiscard]] int rows() const { return f_place.height / f_step_y; }
    [[nodiscard]] bool has(double column, double row) const
    {
        return column >= 0 && row >= 0 && column * f_step_x < f_place.width &&
               row * f_step_y < f_place.height;
    }
    /// The pieces under a rectangle of pixels; false when there are none.
    [[nodiscard]] bool window_of(Tvx_box_i2 const &px, raster_window &window) const
    {
        double low_x = HUGE_VAL, low_y = HUGE_VAL, high_x = -HUGE_VAL, high_y = -HUGE_VAL;
        for (double const x : {px.min_x, px.max_x - 1})
            for (double const y : {px.min_y, px.max_y - 1}) {
                low_x = std::min(low_x, column_at(x, y));
                high_x = std::max(high_x, column_at(x, y));
                low_y = std::min(low_y, row_at(x, y));
                high_y = std::max(high_y, row_at(x, y));
            }
        auto const cut = [](double at, int count) {
            return static_cast<int>(std::clamp(std::floor(at), 0.0, static_cast<double>(count)));
        };
        // Those of the last piece begin before its end.
        if (high_x < 0 || high_y < 0 || low_x * f_step_x >= f_place.width ||
            low_y * f_step_y >= f_place.height)
            return false;
        int const first_x = std::min(cut(low_x, columns()), columns() - 1);
        int const first_y = std::min(cut(low_y, rows()), rows() - 1);
        window.buffer_width = std::min(cut(high_x, columns()), columns() - 1) - first_x + 1;
        window.buffer_height = std::min(cut(high_y, rows()), rows() - 1) - first_y + 1;
        window.x = first_x * f_step_x;
        window.y = first_y * f_step_y;
        window.width = window.buffer_width * f_step_x;
        window.height = window.buffer_height * f_step_y;
        return true;
    }
    [[nodiscard]] int first_column(raster_window const &window) const { return window.x / f_step_x; }
    [[nodiscard]] int first_row(raster_window const &window) const { return window.y / f_step_y; }

private:
    /// Cells that lie under a pixel along an axis.
    static int step_of(double const *axis, int count)
    {
        double const cells = std::hypot(axis[0], axis[1]) * (1 + 1e-9);
        return cells < 2 ? 1 : static_cast<int>(std::min(cells, static_cast<double>(count)));
    }

    raster_place const &f_place;
    double f_column[3]; ///< column = [0] * x + [1] * y + [2]
    double f_row[3];
    int f_step_x = 1;
    int f_step_y = 1;
};

/// How large the pieces of a picture are that are drawn at a time: by what the last ones took.
class piece_size
{
public:
    piece_size(bool is_upright, int most_width) : f_most_width(is_upright ? most_width : c_turned) {}
    [[nodiscard]] int width() const { return std::min(f_width, f_most_width); }
    [[nodiscard]] int height() const { return f_height; }
    void note(double milliseconds)
    {
        constexpr double c_long = 8, c_short = 2;
        if (milliseconds > c_long) {
            // What is in the cache is quick: the next of this size may not be.
            f_most_area = f_width * f_height / 2;
            if (f_width > c_least_width)
                f_width /= 2;
            else
                f_height = std::max(1, f_height / 2);
        } else if (milliseconds < c_short && 2 * f_width * f_height <= f_most_area) {
            if (f_width < f_most_width)
                f_width *= 2;
            else if (f_height < c_most_height)
                f_height *= 2;
        }
    }

private:
    static constexpr int c_turned =
        128; ///< of a raster that is not upright: longer ones have more round them
    static constexpr int c_most_height = 128;
    static constexpr int c_least_width = 32;
    int f_most_width;
    int f_width = 64;
    int f_height = 16;
    int f_most_area = std::numeric_limits<int>::max();
};

class raster_drawing
{
public:
    raster_drawing(Tvx_rtr_source &source, raster_colors &colors, raster_cells const &cells,
                   surface const &target)
        : f_source(source), f_colors(colors), f_cells(cells), f_target(target), f_has_mask(source.has_mask())
    {
    }

    /// False when cells under the rectangle could not be read.
    [[nodiscard]] bool draw(Tvx_box_i2 const &px, bool averages)
    {
        raster_window window;
        window.averages = averages;
        if (!f_cells.window_of(px, window))
            return true;
        f_pixels.resize(window.buffer_cells());
        if (!f_colors.fill(window, f_pixels) || !fade(window))
            return false;
        f_places.resize(static_cast<std::size_t>(px.max_x - px.min_x));
        for (int y = px.min_y; y < px.max_y; ++y)
            f_cells.is_upright() ? draw_upright(px, y, window) : draw_turned(px, y, window);
        return true;
    }

private:
    [[nodiscard]] bool fade(raster_window window)
    {
        if (!f_has_mask)
            return true;
        window.averages = false;
        f_mask.resize(window.buffer_cells());
        if (!f_source.read(layers::c_raster_mask, window, f_mask.data()))
            return false;
        for (std::size_t i = 0; i < f_mask.size(); ++i)
            if (f_mask[i] < 255)
                f_pixels[i] = faded(f_pixels[i], f_mask[i]);
        return true;
    }
    [[nodiscard]] std::size_t place_x(double column, raster_window const &window) const
    {
        return static_cast<std::size_t>(
            std::clamp(static_cast<int>(column) - f_cells.first_column(window), 0, window.buffer_width - 1));
    }
    [[nodiscard]] std::size_t line_of(double row, raster_window const &window) const
    {
        int const at =
            std::clamp(static_cast<int>(row) - f_cells.first_row(window), 0, window.buffer_height - 1);
        return static_cast<std::size_t>(at) * static_cast<std::size_t>(window.buffer_width);
    }
    [[nodiscard]] unsigned char *pixel_at(int x, int y) const
    {
        return f_target.pixels + static_cast<std::ptrdiff_t>(y) * f_target.bytes_per_line +
               4 * static_cast<std::ptrdiff_t>(x);
    }
    void draw_upright(Tvx_box_i2 const &px, int y, raster_window const &window)
    {
        double const row = f_cells.row_at(px.min_x, y);
        if (y == px.min_y) {
            f_first = f_end = 0;
            for (int x = px.min_x; x < px.max_x; ++x) {
                double const column = f_cells.column_at(x, y);
                auto const i = static_cast<std::size_t>(x - px.min_x);
                if (!f_cells.has(column, 0))
                    continue;
                f_first = f_end == 0 ? i : f_first;
                f_end = i + 1;
                f_places[i] = place_x(column, window);
            }
        }
        if (!f_cells.has(0, row))
            return;
        std::uint32_t const *const line = f_pixels.data() + line_of(row, window);
        unsigned char *at = pixel_at(px.min_x + static_cast<int>(f_first), y);
        for (std::size_t i = f_first; i < f_end; ++i, at += 4)
            put_over(at, line[f_places[i]]);
    }
    void draw_turned(Tvx_box_i2 const &px, int y, raster_window const &window)
    {
        unsigned char *at = pixel_at(px.min_x, y);
        for (int x = px.min_x; x < px.max_x; ++x, at += 4) {
            double const column = f_cells.column_at(x, y), row = f_cells.row_at(x, y);
            if (f_cells.has(column, row))
                put_over(at, f_pixels[line_of(row, window) + place_x(column, window)]);
        }
    }

    Tvx_rtr_source &f_source;
    raster_colors &f_colors;
    raster_cells const &f_cells;
    surface const &f_target;
    bool f_has_mask;
    pixels f_pixels; ///< of the pieces that were read last
    std::vector<unsigned char> f_mask;
    std::vector<std::size_t> f_places; ///< of the columns of a rectangle, from `f_first` to `f_end`
    std::size_t f_first = 0;
    std::size_t f_end = 0;
};

/// The pixels that the raster may reach; empty outside of the picture.
Tvx_box_i2 pixels_of(raster_place const &place, Tvx_map_view const &view, int width, int height)
{
    Tvx_box_d2 box;
    for (double const column : {0, place.width})
        for (double const row : {0, place.height})
            box.add(view.world_to_px_x(place.x[0] * column + place.x[1] * row + place.x[2]),
                    view.world_to_px_y(place.y[0] * column + place.y[1] * row + place.y[2]));
    auto const cut = [](double at, int most) {
        return static_cast<int>(std::clamp(at, 0.0, static_cast<double>(most)));
    };
    return {cut(std::floor(box.min_x), width), cut(std::floor(box.min_y), height),
            cut(std::ceil(box.max_x), width), cut(std::ceil(box.max_y), height)};
}
} // namespace

bool draw_raster(Ivx_layer *layer, Tvx_map_view const &view, surface const &target)
{
    using clock = std::chrono::steady_clock;
    constexpr int c_most_failures = 8; ///< of pieces: each may take long
    auto *const raster = layers::as<layers::rtr_layer>(layer);
    if (!raster || !target.pixels)
        return false;
    auto &source = raster->opened_source();
    raster_place place;
    if (!source.place(place))
        return false;
    raster_cells const cells(place, view);
    auto const colors = colors_of(layer, source);
    if (!cells.is_valid() || !colors)
        return false;
    Tvx_box_i2 const all =
        pixels_of(place, view, std::min(view.width, target.width), std::min(view.height, target.height));
    raster_window whole;
    bool const averages = cells.is_thinned() && colors->is_measured() && cells.window_of(all, whole) &&
                          static_cast<double>(whole.width) * whole.height <= c_most_averaged;
    raster_drawing drawing(source, *colors, cells, target);
    piece_size size(cells.is_upright(), all.max_x - all.min_x);
    int failures = 0;
    for (int y = all.min_y, height = 0; y < all.max_y; y += height) {
        height = std::min(size.height(), all.max_y - y);
        for (int x = all.min_x, width = 0; x < all.max_x; x += width) {
            width = std::min(size.width(), all.max_x - x);
            auto const begin = clock::now();
            if (!drawing.draw({x, y, x + width, y + height}, averages) && ++failures >= c_most_failures)
                return false;
            double const took = std::chrono::duration<double, std::milli>(clock::now() - begin).count();
            size.note(took);
            if (target.meter && !target.meter->go_on(took * 1e6))
                return false;
        }
    }
    return failures == 0;
}
} // namespace vx::render
