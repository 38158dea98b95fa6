#pragma once

#include "platform/base/geometry.h"

#include <vector>

namespace vx::render {
inline constexpr int c_figure_count = 26;

/// Which curve a figure is that is not made of straight strokes alone.
enum class figure_curve : unsigned char
{
    none,
    disc,      ///< the ellipse in the figure's box
    half_disc, ///< the upper half of an ellipse, which fills the box, and its diameter
};

/// A point figure in the square from (-0.5, -0.5) to (0.5, 0.5), x to the right, y up.
struct figure
{
    std::vector<std::vector<Tvx_pnt_d2>> parts; ///< of a curve, the corners of its box
    bool filled = true;                         ///< the area within the parts; else their outline
    bool closed = true;                         ///< parts are rings
    figure_curve curve = figure_curve::none;
};

/// 0 disc, 1 circle, 2 and 3 square, 4 and 5 triangle, 6 upright cross of lines, 7 and 8 star of five, 9 and
/// 10 diamond, 11 and 12 pentagon, 13 and 14 hexagon, 15 and 16 triangle upside down, 17 and 18 half disc, 19
/// and 20 arrow, 21 and 22 broad cross, 23 and 24 star of four, 25 slanted cross of lines; of two, the first
/// is filled. Another number gives figure 0.
[[nodiscard]] figure const &get_figure(int number);
} // namespace vx::render
