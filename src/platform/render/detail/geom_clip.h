#pragma once

#include "platform/base/geometry.h"

#include <span>
#include <vector>

/// Lines and rings in pixels, made fit for drawing.
namespace vx::render {
using px_line = std::vector<Tvx_pnt_d2>;

/// A piece of a longer line; `start` is how far along that line it begins.
struct line_piece
{
    px_line points;
    double start = 0;
};

/// The pieces of the line that pass through the box, in order. Without `lengths` their starts stay 0.
[[nodiscard]] std::vector<line_piece> clip_line(std::span<Tvx_pnt_d2 const> line, Tvx_box_d2 const &box,
                                                bool lengths = true);
/// The part of the ring's area in the box as one ring, whose edges may run along the box; empty if there is
/// none.
[[nodiscard]] px_line clip_ring(std::span<Tvx_pnt_d2 const> ring, Tvx_box_d2 const &box);
/// The line moved by `distance` to the left of its direction (y grows downwards). A corner whose mitre is
/// longer than four distances is cut off. A line that ends where it begins is moved as a ring.
[[nodiscard]] px_line offset_line(std::span<Tvx_pnt_d2 const> line, double distance);
[[nodiscard]] Tvx_box_d2 box_of(std::span<Tvx_pnt_d2 const> points);
[[nodiscard]] Tvx_box_d2 grown(Tvx_box_d2 box, double by);
[[nodiscard]] bool holds(Tvx_box_d2 const &outer, Tvx_box_d2 const &inner);
} // namespace vx::render
