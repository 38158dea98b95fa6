#pragma once

#include "platform/base/geometry.h"

#include <cstdint>
#include <vector>

namespace vx::attr {
/// Finds the boxes that may meet a window without a look at all of them: boxes lie in the cell of a grid that
/// holds their middle, and the few that are larger than cells in a list of their own. Five bytes a box.
class shape_grid
{
public:
    /// `box_of` gives the box of each number below `count`; empty ones are in no cell.
    template <class BoxOf>
    void build(Tvx_box_d2 const &whole, std::size_t count, BoxOf box_of)
    {
        lay_out(whole, count);
        f_starts.assign(cell_count() + 1, 0);
        for (std::size_t i = 0; i < count; ++i)
            if (Tvx_box_d2 const box = box_of(i); is_small(box))
                ++f_starts[cell_of(box) + 1];
        for (std::size_t c = 1; c < f_starts.size(); ++c)
            f_starts[c] += f_starts[c - 1];
        f_numbers.resize(f_starts.back());
        std::vector<std::uint32_t> next(f_starts.begin(), f_starts.end() - 1);
        for (std::size_t i = 0; i < count; ++i) {
            Tvx_box_d2 const box = box_of(i);
            if (is_small(box))
                f_numbers[next[cell_of(box)]++] = static_cast<std::uint32_t>(i);
            else if (!box.is_empty())
                f_large.push_back(static_cast<std::uint32_t>(i));
        }
        f_is_built = true;
    }
    [[nodiscard]] bool is_built() const { return f_is_built; }

    /// How many boxes `find` would give.
    [[nodiscard]] std::size_t count(Tvx_box_d2 const &window) const;
    /// Ascending numbers of the boxes that may meet the window, all that do among them.
    [[nodiscard]] std::vector<std::uint32_t> find(Tvx_box_d2 const &window) const;

private:
    static constexpr double c_boxes_in_cell = 4;

    void lay_out(Tvx_box_d2 const &whole, std::size_t count);
    [[nodiscard]] std::size_t cell_count() const { return static_cast<std::size_t>(f_columns) * f_rows; }
    [[nodiscard]] bool is_small(Tvx_box_d2 const &box) const
    {
        return !box.is_empty() && box.width() <= f_cell_width && box.height() <= f_cell_height;
    }
    [[nodiscard]] std::size_t cell_of(Tvx_box_d2 const &box) const;
    /// The cells along an axis that hold middles between the two places.
    [[nodiscard]] static unsigned place(double at, double origin, double size, unsigned cells);
    template <class Take>
    void for_each_run(Tvx_box_d2 const &window, Take take) const;

    Tvx_pnt_d2 f_origin;
    double f_cell_width = 1;
    double f_cell_height = 1;
    unsigned f_columns = 0;
    unsigned f_rows = 0;
    std::vector<std::uint32_t> f_starts;  ///< by cell, and the end behind the last: places in `f_numbers`
    std::vector<std::uint32_t> f_numbers; ///< of small boxes, by cells
    std::vector<std::uint32_t> f_large;   ///< ascending
    bool f_is_built = false;
};
} // namespace vx::attr
