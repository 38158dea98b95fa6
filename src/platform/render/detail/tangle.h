#pragma once

#include "platform/render/detail/style_painter.h"

#include <span>
#include <vector>

/// Lines and areas of many vertices, and such that cross themselves again and again. The painter fills what
/// it is given in one call, sorts all crossings of each row, which takes as long as the square of their
/// number, and asks nobody on the way. Here they are drawn in pieces, and the drawing can be ended between
/// them.
namespace vx::render {
/// How much the painter would sort to fill what these lines, in a box, bound.
class crossings
{
public:
    explicit crossings(Tvx_box_d2 const &box) : f_box(box) {}
    void add(std::span<Tvx_pnt_d2 const> line);
    /// So many that the painter is not to have them at all.
    [[nodiscard]] bool are_many() const;
    /// What the painter would take, in nanoseconds.
    [[nodiscard]] double cost() const;
    /// Rows of pixels that the lines pass, each as often as a line does.
    [[nodiscard]] double rows() const { return f_rows; }

private:
    [[nodiscard]] double steps() const;

    Tvx_box_d2 f_box;
    double f_vertices = 0;
    double f_rows = 0;
    double f_columns = 0; ///< the same of columns: a flat piece of a line counts in each pixel
};

using px_rings = std::span<std::span<Tvx_pnt_d2 const> const>;

/// The pixels that lie in an odd number of rings, as the painter would cover them; where crossings are many,
/// as some samples of each pixel do.
class area_cover
{
public:
    /// Rings in a box. Empty when the drawing is ended meanwhile.
    area_cover(surface const &target, px_rings rings, Tvx_box_d2 const &box, crossings const &work);
    void fill(surface const &target, Tvx_color color) const;
    /// Draws pixels, 32 bits each, premultiplied, of the size of the cover, where it lies. They are changed.
    void lay(surface const &target, unsigned char *pixels, int bytes_per_line) const;

    [[nodiscard]] int left() const { return f_left; }
    [[nodiscard]] int top() const { return f_top; }
    [[nodiscard]] int width() const { return f_width; }
    [[nodiscard]] int height() const { return f_height; }

private:
    void sample(surface const &target, px_rings rings, int down);
    [[nodiscard]] bool paint(surface const &target, px_rings rings, int first, int last);
    void paint_rows(px_rings rings, int first, int last);

    int f_left;
    int f_top;
    int f_width = 0;
    int f_height = 0;
    double f_slowness = 8;              ///< of the painter, by what the last piece took
    std::vector<unsigned char> f_cover; ///< row by row, 255: covered wholly
};

/// Strokes a line with the painter's pen in runs, one after the other, as if it were one; `start` is where
/// its dashes begin, in pixels along the line.
void stroke_in_runs(surface const &target, std::span<Tvx_pnt_d2 const> line, double start);
} // namespace vx::render
