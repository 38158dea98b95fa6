#include "platform/data/detail/shape_grid.h"

#include <algorithm>
#include <cmath>

namespace vx::attr {
void shape_grid::lay_out(Tvx_box_d2 const &whole, std::size_t count)
{
    constexpr double c_most_cells = 4096; // along an axis
    double const width = std::max(whole.width(), 0.0);
    double const height = std::max(whole.height(), 0.0);
    double const cells = std::max(1.0, static_cast<double>(count) / c_boxes_in_cell);
    // Square cells, but for data sets that are no wider, or no higher, than a line.
    double const side = std::sqrt(width / cells * height);
    auto const along = [&](double extent) {
        double const wanted = side > 0 ? extent / side : extent > 0 ? cells : 1;
        return static_cast<unsigned>(std::clamp(std::ceil(wanted), 1.0, c_most_cells));
    };
    f_origin = {whole.min_x, whole.min_y};
    f_columns = along(width);
    f_rows = along(height);
    f_cell_width = width > 0 ? width / f_columns : 1;
    f_cell_height = height > 0 ? height / f_rows : 1;
    f_numbers.clear();
    f_large.clear();
}

unsigned shape_grid::place(double at, double origin, double size, unsigned cells)
{
    return static_cast<unsigned>(std::clamp(std::floor((at - origin) / size), 0.0, cells - 1.0));
}

std::size_t shape_grid::cell_of(Tvx_box_d2 const &box) const
{
    unsigned const column = place(box.min_x / 2 + box.max_x / 2, f_origin.x, f_cell_width, f_columns);
    unsigned const row = place(box.min_y / 2 + box.max_y / 2, f_origin.y, f_cell_height, f_rows);
    return static_cast<std::size_t>(row) * f_columns + column;
}

/// A small box reaches half a cell from its middle; a whole one leaves room for what is lost in rounding.
template <class Take>
void shape_grid::for_each_run(Tvx_box_d2 const &window, Take take) const
{
    if (window.is_empty() || f_columns == 0)
        return;
    unsigned const left = place(window.min_x - f_cell_width, f_origin.x, f_cell_width, f_columns);
    unsigned const right = place(window.max_x + f_cell_width, f_origin.x, f_cell_width, f_columns);
    unsigned const top = place(window.min_y - f_cell_height, f_origin.y, f_cell_height, f_rows);
    unsigned const bottom = place(window.max_y + f_cell_height, f_origin.y, f_cell_height, f_rows);
    for (unsigned row = top; row <= bottom; ++row) {
        std::size_t const first = static_cast<std::size_t>(row) * f_columns;
        take(f_starts[first + left], f_starts[first + right + 1]);
    }
}

std::size_t shape_grid::count(Tvx_box_d2 const &window) const
{
    std::size_t sum = f_large.size();
    for_each_run(window, [&](std::uint32_t from, std::uint32_t to) { sum += to - from; });
    return sum;
}

std::vector<std::uint32_t> shape_grid::find(Tvx_box_d2 const &window) const
{
    std::vector<std::uint32_t> found(f_large);
    for_each_run(window, [&](std::uint32_t from, std::uint32_t to) {
        found.insert(found.end(), f_numbers.begin() + from, f_numbers.begin() + to);
    });
    std::sort(found.begin(), found.end());
    return found;
}
} // namespace vx::attr
