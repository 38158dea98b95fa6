#pragma once

#include "platform/base/geometry.h"

/// A position on the canvas in logical pixels, y down, from the upper left corner.
struct Tvx_screen_point
{
    double x = 0;
    double y = 0;
    friend constexpr bool operator==(Tvx_screen_point const &, Tvx_screen_point const &) = default;
};

/// What the canvas shows: a point of the map in its middle and the size of a pixel in map units. The map's y
/// runs up.
///
/// Whatever comes in, the view stays usable: numbers that are not finite are refused, the size of a pixel is
/// kept between bounds within which doubles still tell neighbouring pixels apart.
class Tvx_canvas_view
{
public:
    static constexpr double c_min_units_per_pixel = 1e-11;
    static constexpr double c_max_units_per_pixel = 1e9;

    [[nodiscard]] Tvx_pnt_d2 center() const { return f_center; }
    [[nodiscard]] double units_per_pixel() const { return f_units_per_pixel; }
    [[nodiscard]] int width() const { return f_width; }
    [[nodiscard]] int height() const { return f_height; }
    /// The part of the map that is seen.
    [[nodiscard]] Tvx_box_d2 box() const;

    [[nodiscard]] Tvx_screen_point to_screen(Tvx_pnt_d2 map) const;
    [[nodiscard]] Tvx_pnt_d2 to_map(Tvx_screen_point screen) const;

    /// Sizes below 1 count as 1. The middle and the scale stay.
    void set_size(int width, int height);
    void set_center(Tvx_pnt_d2 center);
    void set_units_per_pixel(double units);
    /// Moves what is seen by so many pixels: positive `dx` moves the map to the right.
    void pan(double dx, double dy);
    /// Makes everything `factor` times larger; the map point under `anchor` stays under it.
    void zoom(double factor, Tvx_screen_point anchor);
    /// Shows the whole of `box` with a margin round it. A single point is shown with some land about it; an
    /// empty box changes nothing.
    void show(Tvx_box_d2 const &box);

    friend bool operator==(Tvx_canvas_view const &, Tvx_canvas_view const &) = default;

private:
    Tvx_pnt_d2 f_center{};
    double f_units_per_pixel = 1;
    int f_width = 1;
    int f_height = 1;
};
