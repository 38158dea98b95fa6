#pragma once

#include "platform/base/geometry.h"

#include <cstddef>
#include <span>
#include <vector>

/// Lines and rings in pixels, made fit for drawing. With a meter what is long ends with the drawing, and
/// gives what it has by then.
namespace vx::render {
class work_meter;
using px_line = std::vector<Tvx_pnt_d2>;

/// A piece of a longer line; `start` is how far along that line it begins.
struct line_piece
{
    px_line points;
    double start = 0;
};

/// The pieces of a line that pass through a box, one after the other.
class line_clipper
{
public:
    /// Without `lengths` their starts stay 0.
    line_clipper(std::span<Tvx_pnt_d2 const> line, Tvx_box_d2 const &box, bool lengths = true,
                 work_meter *meter = nullptr)
        : f_line(line), f_box(box), f_lengths(lengths), f_meter(meter)
    {
    }
    /// False when there is none left.
    [[nodiscard]] bool next();
    [[nodiscard]] line_piece const &piece() const { return f_piece; }

private:
    std::span<Tvx_pnt_d2 const> f_line;
    Tvx_box_d2 f_box;
    bool f_lengths;
    work_meter *f_meter;
    line_piece f_piece;
    std::size_t f_next = 1; ///< the vertex at the end of the next segment
    double f_along = 0;
};

/// The part of the ring's area in the box as one ring, whose edges may run along the box; empty if there is
/// none.
[[nodiscard]] px_line clip_ring(std::span<Tvx_pnt_d2 const> ring, Tvx_box_d2 const &box,
                                work_meter *meter = nullptr);
/// The ring without the vertices of which nothing shows in these rows: its area there is the same, to the
/// last bit.
[[nodiscard]] px_line within_rows(std::span<Tvx_pnt_d2 const> ring, double top, double bottom);
/// The line moved by `distance` to the left of its direction (y grows downwards). A corner whose mitre is
/// longer than four distances is cut off. A line that ends where it begins is moved as a ring.
[[nodiscard]] px_line offset_line(std::span<Tvx_pnt_d2 const> line, double distance,
                                  work_meter *meter = nullptr);
[[nodiscard]] Tvx_box_d2 box_of(std::span<Tvx_pnt_d2 const> points);
[[nodiscard]] Tvx_box_d2 grown(Tvx_box_d2 box, double by);
[[nodiscard]] bool holds(Tvx_box_d2 const &outer, Tvx_box_d2 const &inner);
} // namespace vx::render
