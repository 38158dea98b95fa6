#pragma once

#include "host/canvas_view.h"

#include <optional>
#include <string_view>

/// Length of the unit that a map's coordinates are in.
struct Tvx_map_unit
{
    /// Coordinates are degrees of longitude and latitude.
    bool is_degree = false;
    /// For a projected map: metres in one unit.
    double metres = 1;

    friend bool operator==(Tvx_map_unit const &, Tvx_map_unit const &) = default;
};

/// The unit of a coordinate system in PROJ.4 form; nothing when the text names no projection.
[[nodiscard]] std::optional<Tvx_map_unit> vx_map_unit_from_proj4(std::wstring_view text);

/// For data without a coordinate system: degrees when the box fits on the globe, metres otherwise.
[[nodiscard]] Tvx_map_unit vx_map_unit_guess(Tvx_box_d2 const &box);

/// N of the scale 1 : N in the middle of the view. Degrees are measured along the parallel there, so the
/// scale of a world map is that of its middle.
[[nodiscard]] double vx_map_scale(Tvx_canvas_view const &view, Tvx_map_unit unit, double pixels_per_mm);
/// Pixel size, in map units, at which the view has the scale 1 : `scale`.
[[nodiscard]] double vx_map_scale_to_units_per_pixel(double scale, Tvx_canvas_view const &view,
                                                     Tvx_map_unit unit, double pixels_per_mm);
