#include "platform/render/detail/cell_painter.h"

#include "platform/base/owned.h"
#include "platform/base/shown_number.h"
#include "platform/base/string_adp.h"
#include "platform/basic/detail/vx_oklab.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/layers/detail/tos_place.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/detail/channel_level.h"
#include "platform/render/detail/pixel_blend.h"
#include "platform/render/detail/tos_table.h"
#include "platform/render/detail/work_meter.h"
#include "platform/styles/detail/mngr_model.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <vector>

namespace vx::render {
namespace {
using file_ptr = tos_file_ptr;
using prop_ptr = tos_prop_ptr;
using object_number = unsigned long long;

constexpr int c_draw_scale = 0;
constexpr int c_draw_channels = 1;
constexpr double c_cell_cost = 60; ///< nanoseconds, some of a cell that is read from the file
constexpr int c_between_looks = 64;
constexpr Tvx_color c_nothing{};

prop_ptr open_property(Ivx_tos4_file *file, std::wstring const &name)
{
    int const index = vx_tos4_find_prop_w(file, name.c_str());
    return prop_ptr(index < 0 ? nullptr : vx_tos4_prop_open(file, static_cast<unsigned>(index)));
}

Tvx_color color_of(styles::stl_prm const &prm)
{
    return vx_stl_prm_get_color(&prm, false);
}

/// The colour of a row; one of alpha 0 where nothing is drawn.
Tvx_color color_of(styles::scale_prm const *row)
{
    return row && row->visible ? color_of(row->prm) : c_nothing;
}

/// What gives each cell its colour.
class cell_colors
{
public:
    cell_colors() = default;
    cell_colors(cell_colors const &) = delete;
    cell_colors &operator=(cell_colors const &) = delete;
    virtual ~cell_colors() = default;
    [[nodiscard]] virtual Tvx_color color(object_number object) = 0;
    [[nodiscard]] virtual bool is_damaged() const { return false; }
};

class one_color final : public cell_colors
{
public:
    explicit one_color(Tvx_color all) : f_color(all) {}
    [[nodiscard]] Tvx_color color(object_number) override { return f_color; }

private:
    Tvx_color f_color;
};

/// By the values of one property.
class value_colors : public cell_colors
{
public:
    value_colors(Ivx_tos4_file *file, std::wstring const &name) : f_prop(open_property(file, name)) {}
    [[nodiscard]] Tvx_color color(object_number object) final
    {
        double value = 0;
        return vx_tos4_prop_get_value_double(f_prop.get(), object, &value) ? of_value(value) : of_none();
    }
    [[nodiscard]] bool is_damaged() const final { return vx_tos4_prop_is_damaged(f_prop.get()); }

private:
    [[nodiscard]] virtual Tvx_color of_value(double value) = 0;
    [[nodiscard]] virtual Tvx_color of_none() = 0;

    prop_ptr f_prop;
};

class entry_colors final : public value_colors
{
public:
    entry_colors(Ivx_tos4_file *file, styles::stl_mngr const &mngr)
        : value_colors(file, mngr.val_prop_name), f_scale(mngr.values)
    {
    }

private:
    [[nodiscard]] Tvx_color of_value(double value) override
    {
        if (value == f_last)
            return f_color;
        text::number_buffer buffer;
        int const entry = f_scale.find(text::shown_number(value, buffer));
        f_last = value;
        f_color = entry < 0 ? of_none() : color_of(&f_scale.at(static_cast<unsigned>(entry))->prm);
        return f_color;
    }
    [[nodiscard]] Tvx_color of_none() override { return color_of(&f_scale.other.prm); }

    styles::val_scale const &f_scale;
    double f_last = std::nan("");
    Tvx_color f_color;
};

/// By ranges. Between the middles of two neighbours that are both drawn the colour can go from the one to the
/// other; outside the outer middles it is that of the range.
class range_colors final : public value_colors
{
public:
    range_colors(Ivx_tos4_file *file, styles::stl_mngr const &mngr, bool interpolates)
        : value_colors(file, mngr.rng_prop_name), f_scale(mngr.ranges)
    {
        for (unsigned row = 0; row <= f_scale.other_row(); ++row)
            f_colors.push_back(color_of(f_scale.row(row)));
        f_interpolates = interpolates;
        f_steps.resize(f_scale.size());
    }

private:
    static constexpr std::size_t c_steps = 32; ///< from one middle to the next
    using steps = std::vector<Tvx_color>;

    [[nodiscard]] Tvx_color of_value(double value) override
    {
        unsigned const row = f_scale.find(value);
        bool const is_range = row > 0 && row <= f_scale.size();
        return f_interpolates && is_range ? between(row - 1, value) : f_colors[row];
    }
    [[nodiscard]] Tvx_color of_none() override { return f_colors[f_scale.other_row()]; }

    [[nodiscard]] double middle(unsigned range) const
    {
        auto const *const r = f_scale.at(range);
        return r->min / 2 + r->max / 2;
    }

    [[nodiscard]] Tvx_color between(unsigned range, double value)
    {
        // The lower one of the two middles that the value lies between.
        bool const is_below = value < middle(range);
        if ((is_below && range == 0) || (!is_below && range + 1 == f_scale.size()))
            return f_colors[range + 1];
        unsigned const low = is_below ? range - 1 : range;
        double const from = middle(low), to = middle(low + 1);
        if (!(from < to) || f_colors[low + 1].a == 0 || f_colors[low + 2].a == 0)
            return f_colors[range + 1];
        auto const &way = steps_of(low);
        double const place = (value - from) / (to - from) * static_cast<double>(c_steps);
        return way[std::min(c_steps, static_cast<std::size_t>(std::max(0.0, place + 0.5)))];
    }

    steps const &steps_of(unsigned low)
    {
        auto &way = f_steps[low];
        if (!way.empty())
            return way;
        Tvx_color const first = f_colors[low + 1], last = f_colors[low + 2];
        auto const a = color::to_oklab(first), b = color::to_oklab(last);
        for (std::size_t i = 0; i <= c_steps; ++i) {
            double const t = static_cast<double>(i) / c_steps;
            auto const mixed = [t](double x, double y) { return x + (y - x) * t; };
            auto const alpha = static_cast<unsigned char>(std::lround(mixed(first.a, last.a)));
            way.push_back(color::from_oklab({mixed(a.l, b.l), mixed(a.a, b.a), mixed(a.b, b.b)}, alpha));
        }
        way.front() = first;
        way.back() = last;
        return way;
    }

    styles::rng_scale const &f_scale;
    std::vector<Tvx_color> f_colors; ///< of the rows
    std::vector<steps> f_steps;      ///< from range i to the next; empty before it is needed
    bool f_interpolates = false;
};

class rule_colors final : public cell_colors
{
public:
    rule_colors(Ivx_tos4_file *file, styles::stl_mngr const &mngr) : f_row(file), f_scale(mngr.rules)
    {
        vx::owned<void, &vx_calc_filter_destroy> const filter(vx_calc_filter_create());
        f_tests.resize(f_scale.size());
        for (unsigned i = 0; i < f_scale.size(); ++i)
            if (vx_calc_filter_from_str(filter.get(), f_scale.at(i)->text.c_str()))
                f_tests[i].reset(vx_calc_filter_prepare(filter.get(), f_row));
    }
    [[nodiscard]] Tvx_color color(object_number object) override
    {
        f_row.go_to(object);
        for (unsigned i = 0; i < f_tests.size(); ++i)
            if (f_tests[i] && vx_calc_prepared_matches(f_tests[i].get(), f_row))
                return color_of(&f_scale.at(i)->prm);
        return color_of(&f_scale.other.prm);
    }
    [[nodiscard]] bool is_damaged() const override { return f_row.is_damaged(); }

private:
    tos_row f_row;
    styles::val_scale const &f_scale;
    std::vector<vx::owned<void, &vx_calc_prepared_destroy>> f_tests; ///< null for a text that is no filter
};

/// One channel: how much of the colour a cell has.
class channel
{
public:
    channel(Ivx_tos4_file *file, void const *of)
        : f_low(vx_clr_channel_get_min(of)), f_high(vx_clr_channel_get_max(of))
    {
        std::wstring name;
        vx_clr_channel_get_prop_name_w(of, Tvx_std_wstring_adapter(name));
        f_prop = open_property(file, name);
    }
    [[nodiscard]] bool is_fed() const { return f_prop != nullptr; }
    /// Nothing for a cell without a value; what nothing feeds has none of its colour.
    [[nodiscard]] std::optional<int> level(object_number object) const
    {
        double value = 0;
        if (!is_fed())
            return 0;
        if (!vx_tos4_prop_get_value_double(f_prop.get(), object, &value))
            return std::nullopt;
        return channel_level(value, f_low, f_high);
    }
    [[nodiscard]] bool is_damaged() const { return vx_tos4_prop_is_damaged(f_prop.get()); }

private:
    prop_ptr f_prop;
    double f_low;
    double f_high;
};

class channel_colors final : public cell_colors
{
public:
    channel_colors(Ivx_tos4_file *file, std::initializer_list<void const *> channels)
    {
        for (auto const *const of : channels)
            f_channels.emplace_back(file, of);
        f_is_fed = std::ranges::any_of(f_channels, &channel::is_fed);
    }
    [[nodiscard]] Tvx_color color(object_number object) override
    {
        int levels[3] = {};
        if (!f_is_fed)
            return c_nothing;
        for (std::size_t i = 0; i < f_channels.size(); ++i) {
            auto const level = f_channels[i].level(object);
            if (!level)
                return c_nothing;
            levels[i] = *level;
        }
        return f_channels.size() == 1 ? vx_clr_init_grey(levels[0])
                                      : vx_clr_init_rgb(levels[0], levels[1], levels[2]);
    }
    [[nodiscard]] bool is_damaged() const override
    {
        return std::ranges::any_of(f_channels, [](channel const &c) { return c.is_damaged(); });
    }

private:
    std::vector<channel> f_channels; ///< red, green and blue, or gray
    bool f_is_fed = false;
};

std::unique_ptr<cell_colors> colors_of(Ivx_layer *layer, Ivx_tos4_file *file)
{
    void *const channels = vx_tos_grid_lr2d_get_rgb_channels_ptr(layer);
    int const type = vx_tos_grid_lr2d_get_draw_type(layer);
    if (type == c_draw_channels)
        return std::make_unique<channel_colors>(
            file, std::initializer_list<void const *>{vx_rgb_channels_get_red(channels),
                                                      vx_rgb_channels_get_green(channels),
                                                      vx_rgb_channels_get_blue(channels)});
    if (type != c_draw_scale)
        return std::make_unique<channel_colors>(
            file, std::initializer_list<void const *>{vx_rgb_channels_get_gray(channels)});
    auto const &mngr = *static_cast<styles::stl_mngr const *>(vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer));
    switch (mngr.mode) {
    case c_stl_mngr_mode_value:
        return std::make_unique<entry_colors>(file, mngr);
    case c_stl_mngr_mode_range:
        return std::make_unique<range_colors>(file, mngr, vx_tos_grid_lr2d_get_interpolate(layer));
    case c_stl_mngr_mode_rule:
        return std::make_unique<rule_colors>(file, mngr);
    default:
        return std::make_unique<one_color>(color_of(mngr.simple));
    }
}
} // namespace

bool draw_cells(Ivx_layer *layer, Tvx_map_view const &view, surface const &target)
{
    std::wstring name;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(name));
    file_ptr const file(vx_tos4_file_open_w(name.c_str(), true));
    Tvx_tos4_grid grid;
    vx_tos4_get_grid(file.get(), &grid);
    if (!file || grid.dimensions < 2 || !target.pixels)
        return false;
    auto const colors = colors_of(layer, file.get());
    layers::cell_places const places(grid);
    auto const slice =
        std::min(static_cast<object_number>(vx_tos_slice_lr2d_get_zslice(layer)), grid.count[2] - 1);
    object_number const first = slice * grid.count[0] * grid.count[1];
    double const opacity = vx_tos_grid_lr2d_get_opacity(layer);
    int const width = std::min(view.width, target.width), height = std::min(view.height, target.height);
    std::optional<object_number> last;
    std::uint32_t pixel = 0;
    for (int y = 0; y < height; ++y) {
        unsigned char *const line = target.pixels + static_cast<std::ptrdiff_t>(y) * target.bytes_per_line;
        for (int x = 0; x < width; ++x) {
            if (x % c_between_looks == 0 && target.meter &&
                !target.meter->go_on(c_cell_cost * std::min(c_between_looks, width - x)))
                return false;
            auto const cell = places.at(view.px_to_world_x(x + 0.5), view.px_to_world_y(y + 0.5));
            if (!cell)
                continue;
            if (cell != last)
                pixel = premultiplied(colors->color(first + *cell), opacity);
            last = cell;
            put_over(line + 4 * static_cast<std::ptrdiff_t>(x), pixel);
        }
    }
    return !colors->is_damaged();
}
} // namespace vx::render
