#include "platform/render/detail/tos_painter.h"

#include "platform/base/string_adp.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/detail/mngr_painter.h"
#include "platform/render/detail/tos_table.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace vx::render {
namespace {
constexpr unsigned long long c_chunk = 4096; ///< values that are read at a time
constexpr double c_value_cost = 10;          ///< nanoseconds

tos_file_ptr open_file(Ivx_layer *layer)
{
    std::wstring name;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(name));
    return tos_file_ptr(vx_tos4_file_open_w(name.c_str(), true));
}

tos_prop_ptr open_property(Ivx_tos4_file *file, std::wstring const &name)
{
    int const index = vx_tos4_find_prop_w(file, name.c_str());
    return tos_prop_ptr(index < 0 ? nullptr : vx_tos4_prop_open(file, static_cast<unsigned>(index)));
}

/// Vertices of a curve as they are read. Of those in one column of pixels the first, the lowest, the highest
/// and the last are kept.
class curve_parts
{
public:
    explicit curve_parts(Tvx_map_view const &view) : f_view(view) {}
    void add(Tvx_pnt_d2 at)
    {
        double const column = std::floor(f_view.world_to_px_x(at.x));
        if (f_count > 0 && column != f_column)
            end_column();
        f_column = column;
        if (f_count == 0)
            f_first = f_low = f_high = at;
        f_is_low_first = at.y > f_high.y || (at.y >= f_low.y && f_is_low_first);
        if (at.y < f_low.y)
            f_low = at;
        if (at.y > f_high.y)
            f_high = at;
        f_last = at;
        ++f_count;
    }
    void gap()
    {
        end_column();
        if (f_starts.back() < f_points.size())
            f_starts.push_back(static_cast<unsigned>(f_points.size()));
    }
    /// Valid as long as nothing is added.
    [[nodiscard]] Tvx_shape_view shape()
    {
        gap();
        return {
            c_shape_polyline, static_cast<int>(f_starts.size()) - 1, f_starts.data(), f_points.data(), {}};
    }

private:
    void end_column()
    {
        if (f_count == 0)
            return;
        f_points.push_back(f_first);
        if (f_count > 2) {
            f_points.push_back(f_is_low_first ? f_low : f_high);
            f_points.push_back(f_is_low_first ? f_high : f_low);
        }
        if (f_count > 1)
            f_points.push_back(f_last);
        f_count = 0;
    }

    Tvx_map_view const &f_view;
    std::vector<Tvx_pnt_d2> f_points;
    std::vector<unsigned> f_starts{0};
    // The column that is being read.
    double f_column = 0;
    std::size_t f_count = 0;
    bool f_is_low_first = true; ///< the lowest comes before the highest
    Tvx_pnt_d2 f_first{}, f_low{}, f_high{}, f_last{};
};

/// The objects of a curve that can show, and one on either side: from the first up to the second, not
/// included.
std::pair<unsigned long long, unsigned long long> shown_objects(Tvx_tos4_grid const &grid,
                                                                Tvx_box_d2 const &world)
{
    double const a = (world.min_x - grid.origin[0]) / grid.spacing[0],
                 b = (world.max_x - grid.origin[0]) / grid.spacing[0];
    auto const count = static_cast<double>(grid.count[0]);
    double const first = std::clamp(std::floor(std::min(a, b)) - 1, 0.0, count),
                 end = std::clamp(std::ceil(std::max(a, b)) + 2, first, count);
    return {static_cast<unsigned long long>(first), static_cast<unsigned long long>(end)};
}
} // namespace

bool draw_curve(Ivx_layer *layer, Tvx_map_view const &view, surface const &target)
{
    auto const file = open_file(layer);
    std::wstring name;
    vx_tos_grid_1d_lr2d_get_height_prp_name(layer, Tvx_std_wstring_adapter(name));
    if (file && name.empty())
        return true;
    auto const heights = open_property(file.get(), name);
    if (!heights)
        return false;
    Tvx_tos4_grid grid;
    vx_tos4_get_grid(file.get(), &grid);
    // What stands on a vertex reaches beyond it.
    constexpr double c_reach_mm = 30;
    double const reach = c_reach_mm * target.px_per_mm_x * view.world.width() / view.width;
    auto [object, end] = shown_objects(
        grid, {view.world.min_x - reach, view.world.min_y, view.world.max_x + reach, view.world.max_y});
    curve_parts parts(view);
    std::vector<double> values(c_chunk);
    while (object < end) {
        auto const count =
            vx_tos4_prop_get_values(heights.get(), object, std::min(c_chunk, end - object), values.data());
        if (count == 0)
            break;
        for (std::size_t i = 0; i < count; ++i)
            if (std::isfinite(values[i]))
                parts.add({grid.origin[0] + static_cast<double>(object + i) * grid.spacing[0], values[i]});
            else
                parts.gap();
        object += count;
        if (!go_on(target, c_value_cost * static_cast<double>(count)))
            return false;
    }
    auto const &mngr = *static_cast<styles::stl_mngr const *>(vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer));
    attr_table none(nullptr);
    mngr_painter painter(target, view, mngr, none, styles::variant_of_style::base);
    auto const shape = parts.shape();
    painter.draw(0, shape);
    painter.finish();
    painter.draw_upper_levels();
    return (!target.meter || !target.meter->stopped()) && !vx_tos4_prop_is_damaged(heights.get());
}

bool draw_points(Ivx_layer *layer, Tvx_map_view const &view, surface const &target, Tvx_box_d2 const &box,
                 styles::variant_of_style variant, closure<bool(unsigned long long)> selected)
{
    auto const file = open_file(layer);
    std::wstring name_x, name_y;
    vx_tos_2crd_lr2d_get_wprop_name_x(layer, Tvx_std_wstring_adapter(name_x));
    vx_tos_2crd_lr2d_get_wprop_name_y(layer, Tvx_std_wstring_adapter(name_y));
    if (file && (name_x.empty() || name_y.empty()))
        return true;
    auto const xs = open_property(file.get(), name_x), ys = open_property(file.get(), name_y);
    if (!xs || !ys)
        return false;
    tos_table table(file.get());
    auto const &mngr = *static_cast<styles::stl_mngr const *>(vx_tos_2crd_lr2d_get_stl_mngr(layer));
    mngr_painter painter(target, view, mngr, table, variant);
    std::vector<double> x(c_chunk), y(c_chunk);
    auto const end = std::min<unsigned long long>(vx_tos4_get_object_count_64(file.get()),
                                                  std::numeric_limits<unsigned>::max());
    for (unsigned long long first = 0; first < end; first += c_chunk) {
        auto const wanted = std::min(c_chunk, end - first);
        auto const count = std::min(vx_tos4_prop_get_values(xs.get(), first, wanted, x.data()),
                                    vx_tos4_prop_get_values(ys.get(), first, wanted, y.data()));
        for (std::size_t i = 0; i < count; ++i) {
            Tvx_pnt_d2 const at{x[i], y[i]};
            bool const is_near =
                at.x >= box.min_x && at.x <= box.max_x && at.y >= box.min_y && at.y <= box.max_y;
            if (!is_near || (selected && !selected(first + i)))
                continue;
            constexpr unsigned c_starts[] = {0, 1};
            painter.draw(static_cast<unsigned>(first + i), {c_shape_point, 1, c_starts, &at, {}});
        }
        painter.finish();
        if (!go_on(target, 2 * c_value_cost * static_cast<double>(c_chunk)))
            return false;
    }
    return !vx_tos4_prop_is_damaged(xs.get()) && !vx_tos4_prop_is_damaged(ys.get()) && !table.is_damaged();
}
} // namespace vx::render
