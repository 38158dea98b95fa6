#pragma once

#include "platform/render/detail/style_painter.h"

#include <span>
#include <vector>

/// Lines and areas that cross themselves again and again. The painter sorts all crossings of a row, which
/// takes as long as the square of their number, and asks nobody on the way; here they take no more than their
/// length, and the drawing can be ended within.
namespace vx::render {
/// How much the painter would sort to fill what these lines, in a box, bound.
class crossings
{
public:
    explicit crossings(Tvx_box_d2 const &box) : f_box(box) {}
    void add(std::span<Tvx_pnt_d2 const> line);
    [[nodiscard]] bool are_many() const;
    /// Rows of pixels that the lines pass, each as often as a line does.
    [[nodiscard]] double rows() const { return f_rows; }

private:
    Tvx_box_d2 f_box;
    double f_rows = 0;
    double f_columns = 0; ///< the same of columns: a flat piece of a line counts in each pixel
};

/// The pixels that lie in an odd number of rings.
class tangled_area
{
public:
    /// Empty when the drawing is ended meanwhile.
    tangled_area(surface const &target, std::span<px_line const> rings, Tvx_box_d2 const &box,
                 crossings const &work);
    void fill(surface const &target, Tvx_color color) const;
    /// Narrows the painter's clip to the pixels of which the half is covered.
    void clip(surface const &target) const;

private:
    int f_left;
    int f_top;
    int f_width = 0;
    int f_height = 0;
    std::vector<unsigned char> f_cover; ///< row by row, 255: covered wholly
};

/// Strokes a line with the painter's pen in runs, one after the other, as if it were one; `start` is where
/// its dashes begin, in pixels along the line.
void stroke_in_runs(surface const &target, std::span<Tvx_pnt_d2 const> line, double start);
} // namespace vx::render
