#pragma once

#include "platform/render/detail/figures.h"
#include "platform/render/detail/geom_clip.h"

namespace vx::render {
/// A figure in pixels round its anchor, y downwards.
struct placed_figure
{
    std::vector<px_line> parts;
    Tvx_box_d2 box; ///< of the parts
    /// Where in its pixel the anchor lies: on an axis 0 for its edge, 0.5 for its middle.
    Tvx_pnt_d2 shift;
};

/// The figure with the anchor at its middle, as exact as numbers are. `pen` is the width of the outline, 0
/// for an area; an outline lies inside the size.
[[nodiscard]] placed_figure scale_figure(figure const &shape, double size_x, double size_y, double pen);

/// The same fitted to the grid of pixels, so that it is crisp where it is small: its width and height become
/// whole pixels, at least one, and so do the places of its upright and level edges. `pen` is a whole number.
[[nodiscard]] placed_figure fit_figure(figure const &shape, double size_x, double size_y, double pen);
} // namespace vx::render
