#include "platform/layers/vx_tos_lr2d.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/basic/vx_palette.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/layers/detail/tos_layer.h"
#include "platform/layers/detail/tos_place.h"
#include "platform/layers/layer_keys.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

using namespace vx::layers;

namespace {
using file_ptr = vx::owned<Ivx_tos4_file, &vx_tos4_file_close>;
using prop_ptr = vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close>;

file_ptr open_file(std::wstring const &name, Ivx_string_adp *error)
{
    file_ptr file(vx_tos4_file_open_w(name.c_str(), true));
    vx_tos4_get_werror(error);
    return file;
}

std::wstring name_of(Ivx_tos4_file *file, unsigned prop)
{
    std::wstring name;
    vx_tos4_get_prop_name_w(file, prop, Tvx_std_wstring_adapter(name));
    return name;
}

/// The property that one of the names is of, else the one at the place.
std::wstring named_or(Ivx_tos4_file *file, std::initializer_list<wchar_t const *> names, unsigned place)
{
    for (auto const *const name : names)
        if (vx_tos4_find_prop_w(file, name) >= 0)
            return name;
    return name_of(file, place);
}

char const *key_of(Tvx_tos4_grid const &grid)
{
    constexpr char const *c_keys[] = {c_lr_key_tos_2crd, c_lr_key_tos_grid_1d, c_lr_key_tos_grid,
                                      c_lr_key_tos_slice};
    return c_keys[grid.dimensions];
}

/// Least and greatest value of a property.
bool span_of(Ivx_tos4_file *file, std::wstring const &name, double &low, double &high)
{
    int const index = vx_tos4_find_prop_w(file, name.c_str());
    prop_ptr const prop(vx_tos4_prop_open(file, static_cast<unsigned>(index)));
    if (!prop ||
        (!vx_tos4_prop_get_statistic_exist(prop.get()) && !vx_tos4_prop_statistic_update(prop.get())))
        return false;
    low = vx_tos4_prop_get_statistic_min(prop.get());
    high = vx_tos4_prop_get_statistic_max(prop.get());
    return vx_tos4_prop_get_statistic_exist(prop.get());
}

/// Equal ranges over all values, from dark to light.
void set_ranges(void *mngr, double low, double high)
{
    constexpr unsigned c_ranges = 12;
    if (!(low < high) || !std::isfinite(low) || !std::isfinite(high))
        return;
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr);
    Tvx_color colors[c_ranges];
    vx_clr_arrays_generate(c_palette_green_white_brown, c_ranges, colors);
    auto const set = [](void *scale_prm, Tvx_color color) {
        *vx_stl_prm_get_clr_style_ptr(vx_scale_prm_get_stl_prm_ptr(scale_prm), false) = color;
        vx_scale_prm_set_visible(scale_prm, true);
    };
    // The difference of the bounds may not be a finite number.
    double const step = high / c_ranges - low / c_ranges;
    auto const bound = [&](unsigned i) { return i == c_ranges ? high : std::fma(step, i, low); };
    vx_rng_scale_set_size(scale, c_ranges);
    vx_rng_scale_set_min_value(scale, low);
    vx_rng_scale_set_max_value(scale, high);
    for (unsigned i = 0; i < c_ranges; ++i) {
        vx_rng_scale_set_min(scale, i, bound(i));
        vx_rng_scale_set_max(scale, i, bound(i + 1));
        vx_rng_scale_set_default_caption(scale, i);
        set(vx_rng_scale_get_scale_prm_ptr(scale, i), colors[i]);
    }
    set(vx_rng_scale_get_min_prm_ptr(scale), colors[0]);
    set(vx_rng_scale_get_max_prm_ptr(scale), colors[c_ranges - 1]);
    vx_scale_prm_set_visible(vx_rng_scale_get_other_prm_ptr(scale), false);
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_range);
}

void feed_channel(void *channel, Ivx_tos4_file *file, unsigned prop)
{
    auto const name = name_of(file, prop);
    double low = 0, high = 0;
    vx_clr_channel_set_prop_name_w(channel, name.c_str());
    if (!span_of(file, name, low, high))
        return;
    vx_clr_channel_set_min(channel, low);
    vx_clr_channel_set_max(channel, high);
}

/// Somebody has said which property a layer shows.
bool is_fed(Ivx_layer *layer)
{
    std::wstring name;
    if (auto const *const grid = as<tos_grid_layer>(layer))
        vx_stl_mngr_get_rng_prop_name_w(grid->colors.get(), Tvx_std_wstring_adapter(name));
    else if (auto const *const curve = as<tos_curve_layer>(layer))
        name = curve->height_property;
    else if (auto const *const points = as<tos_2crd_layer>(layer))
        name = points->property_x + points->property_y;
    return !name.empty();
}

void feed(Ivx_layer *layer, Ivx_tos4_file *file)
{
    if (auto *const grid = as<tos_grid_layer>(layer)) {
        auto const first = name_of(file, 0);
        double low = 0, high = 0;
        vx_stl_mngr_set_rng_prop_name_w(grid->colors.get(), first.c_str());
        vx_stl_mngr_set_val_prop_name_w(grid->colors.get(), first.c_str());
        if (span_of(file, first, low, high))
            set_ranges(grid->colors.get(), low, high);
        grid->interpolate = true;
        unsigned const last = std::max(vx_tos4_get_prop_count(file), 1U) - 1;
        void *const all = grid->channels.get();
        feed_channel(vx_rgb_channels_get_red(all), file, 0);
        feed_channel(vx_rgb_channels_get_green(all), file, std::min(1U, last));
        feed_channel(vx_rgb_channels_get_blue(all), file, std::min(2U, last));
        feed_channel(vx_rgb_channels_get_gray(all), file, 0);
    } else if (auto *const curve = as<tos_curve_layer>(layer)) {
        curve->height_property = name_of(file, 0);
    } else if (auto *const points = as<tos_2crd_layer>(layer)) {
        points->property_x = named_or(file, {L"X", L"x", L"lon", L"LON", L"longitude"}, 0);
        points->property_y = named_or(file, {L"Y", L"y", L"lat", L"LAT", L"latitude"}, 1);
    }
}

/// The corners of the cells, of which the grid tells the centres.
Tvx_box_d2 box_of(Tvx_tos4_grid const &grid)
{
    double const angle = grid.azimuth * std::numbers::pi / 180;
    double const cosine = std::cos(angle), sine = std::sin(angle);
    constexpr double c_infinite = std::numeric_limits<double>::infinity();
    Tvx_box_d2 box{c_infinite, c_infinite, -c_infinite, -c_infinite};
    for (double const column : {-0.5, static_cast<double>(grid.count[0]) - 0.5})
        for (double const row : {-0.5, static_cast<double>(grid.count[1]) - 0.5}) {
            double const along = column * grid.spacing[0], across = row * grid.spacing[1];
            double const x = grid.origin[0] + along * cosine - across * sine;
            double const y = grid.origin[1] + along * sine + across * cosine;
            box = {std::min(box.min_x, x), std::min(box.min_y, y), std::max(box.max_x, x),
                   std::max(box.max_y, y)};
        }
    return box;
}
} // namespace

bool vx_lr2d_is_tos(Ivx_layer const *layer)
{
    return as<tos_layer>(layer) != nullptr;
}

Ivx_layer *vx_tos_lr2d_open(wchar_t const *file_name, Ivx_string_adp *error)
{
    auto const file = open_file(file_name ? file_name : L"", error);
    if (!file)
        return nullptr;
    Tvx_tos4_grid grid;
    vx_tos4_get_grid(file.get(), &grid);
    vx::owned<Ivx_layer, &vx_lr2d_destroy> layer(vx_lr2d_create(key_of(grid)));
    vx_lr2d_set_wfilename(layer.get(), file_name);
    return vx_tos_lr2d_attach(layer.get(), error) ? layer.release() : nullptr;
}

bool vx_tos_lr2d_attach(Ivx_layer *layer, Ivx_string_adp *error)
{
    auto const file = vx_lr2d_is_tos(layer) ? open_file(layer->file_name, error) : nullptr;
    if (!file)
        return false;
    Tvx_tos4_grid grid;
    vx_tos4_get_grid(file.get(), &grid);
    constexpr unsigned long long c_most = std::numeric_limits<int>::max();
    if (!is_fed(layer))
        feed(layer, file.get());
    vx_tos_slice_lr2d_set_zslice_count(layer, static_cast<int>(std::min(grid.count[2], c_most)));
    return true;
}

bool vx_tos_lr2d_get_extent(Ivx_layer *layer, Tvx_box_d2 *box)
{
    auto const file = vx_lr2d_is_tos(layer) && box ? open_file(layer->file_name, nullptr) : nullptr;
    if (!file)
        return false;
    Tvx_tos4_grid grid;
    vx_tos4_get_grid(file.get(), &grid);
    Tvx_box_d2 found;
    bool is_known = true;
    if (auto const *const points = as<tos_2crd_layer>(layer)) {
        is_known = span_of(file.get(), points->property_x, found.min_x, found.max_x) &&
                   span_of(file.get(), points->property_y, found.min_y, found.max_y);
    } else if (auto const *const curve = as<tos_curve_layer>(layer)) {
        double const end = grid.origin[0] + static_cast<double>(grid.count[0] - 1) * grid.spacing[0];
        found.min_x = std::min(grid.origin[0], end);
        found.max_x = std::max(grid.origin[0], end);
        is_known = span_of(file.get(), curve->height_property, found.min_y, found.max_y);
    } else {
        is_known = grid.dimensions >= 2;
        found = box_of(grid);
    }
    if (is_known)
        *box = found;
    return is_known;
}

bool vx_tos_lr2d_find_cell(Ivx_layer *layer, Tvx_pnt_d2 at, unsigned long long *object)
{
    auto const *const cells = as<tos_grid_layer>(layer);
    auto const file = cells && object ? open_file(layer->file_name, nullptr) : nullptr;
    Tvx_tos4_grid grid;
    vx_tos4_get_grid(file.get(), &grid);
    auto const cell =
        file && grid.dimensions >= 2 ? cell_places(grid).at(at.x, at.y) : std::optional<unsigned long long>();
    if (!cell)
        return false;
    auto const slice = std::min(static_cast<unsigned long long>(cells->slice), grid.count[2] - 1);
    *object = slice * grid.count[0] * grid.count[1] + *cell;
    return true;
}

void vx_tos_lr2d_get_proj4(Ivx_layer const *layer, Ivx_string_adp *text)
{
    auto const file = vx_lr2d_is_tos(layer) ? open_file(layer->file_name, nullptr) : nullptr;
    vx_tos4_get_proj4(file.get(), text);
}
