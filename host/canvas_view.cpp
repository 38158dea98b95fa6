#include "host/canvas_view.h"

#include <algorithm>
#include <cmath>

namespace {
/// Part of the canvas that stays free round a box that is shown whole.
constexpr double c_margin = 0.04;
/// Width shown round a single point, as a part of its coordinates, and the least of it.
constexpr double c_point_surroundings = 1e-3;
constexpr double c_least_surroundings = 1e-2;
} // namespace

Tvx_box_d2 Tvx_canvas_view::box() const
{
    Tvx_pnt_d2 const upper_left = to_map({0, 0});
    Tvx_pnt_d2 const lower_right = to_map({double(f_width), double(f_height)});
    Tvx_box_d2 box;
    box.add(upper_left.x, upper_left.y);
    box.add(lower_right.x, lower_right.y);
    return box;
}

Tvx_screen_point Tvx_canvas_view::to_screen(Tvx_pnt_d2 map) const
{
    return {f_width / 2.0 + (map.x - f_center.x) / f_units_per_pixel,
            f_height / 2.0 - (map.y - f_center.y) / f_units_per_pixel};
}

Tvx_pnt_d2 Tvx_canvas_view::to_map(Tvx_screen_point screen) const
{
    return {f_center.x + (screen.x - f_width / 2.0) * f_units_per_pixel,
            f_center.y - (screen.y - f_height / 2.0) * f_units_per_pixel};
}

void Tvx_canvas_view::set_size(int width, int height)
{
    f_width = std::max(1, width);
    f_height = std::max(1, height);
}

void Tvx_canvas_view::set_center(Tvx_pnt_d2 center)
{
    if (std::isfinite(center.x) && std::isfinite(center.y))
        f_center = center;
}

void Tvx_canvas_view::set_units_per_pixel(double units)
{
    if (std::isfinite(units) && units > 0)
        f_units_per_pixel = std::clamp(units, c_min_units_per_pixel, c_max_units_per_pixel);
}

void Tvx_canvas_view::pan(double dx, double dy)
{
    set_center({f_center.x - dx * f_units_per_pixel, f_center.y + dy * f_units_per_pixel});
}

void Tvx_canvas_view::zoom(double factor, Tvx_screen_point anchor)
{
    if (!std::isfinite(factor) || factor <= 0)
        return;
    Tvx_pnt_d2 const fixed = to_map(anchor);
    set_units_per_pixel(f_units_per_pixel / factor);
    Tvx_pnt_d2 const moved = to_map(anchor);
    set_center({f_center.x + fixed.x - moved.x, f_center.y + fixed.y - moved.y});
}

void Tvx_canvas_view::show(Tvx_box_d2 const &box)
{
    if (box.is_empty() || !std::isfinite(box.width()) || !std::isfinite(box.height()))
        return;
    double width = box.width();
    double const height = box.height();
    if (width <= 0 && height <= 0)
        width = std::max(c_least_surroundings,
                         c_point_surroundings * (std::abs(box.min_x) + std::abs(box.min_y)));
    set_center({box.min_x + box.width() / 2, box.min_y + height / 2});
    double const free = 1 - 2 * c_margin;
    set_units_per_pixel(std::max(width / (f_width * free), height / (f_height * free)));
}
