#pragma once

#include "scale_engine/natural_breaks/detail/segment_costs.h"

#include <algorithm>
#include <cstdint>

namespace vx::task::detail {
/// The least cost of the first `row` values in one class more than in the layer before, for all rows.
///
/// The best split is never further left for a longer row, so the middle row is searched first and bounds
/// those on either side: n log n questions instead of n squared.
///
/// `Stop` is asked now and then, and ends the search with true.
template <class Stop>
class layer_search
{
public:
    /// `before` are the costs in one class fewer, by rows; row 1 always costs nothing.
    layer_search(segment_costs const &segments, std::vector<double> const &before, Stop &stop)
        : f_segments(segments), f_before(before), f_stop(stop)
    {
    }

    /// False when it was stopped. `splits`, which may be null, takes for each row the number of values before
    /// the last class.
    bool run(std::vector<double> &costs, std::uint32_t *splits)
    {
        auto const rows = f_segments.size();
        costs.assign(rows + 1, 0);
        f_costs = costs.data();
        f_splits = splits;
        return rows < 2 || search(2, rows, 1, rows - 1);
    }

private:
    bool search(std::size_t first_row, std::size_t last_row, std::size_t first_split, std::size_t last_split)
    {
        while (first_row <= last_row) {
            std::size_t const row = first_row + (last_row - first_row) / 2;
            std::size_t const end = std::min(last_split, row - 1);
            f_asked += end - first_split + 1;
            if (f_asked > c_questions_between_stops) {
                f_asked = 0;
                if (f_stop())
                    return false;
            }
            std::size_t best_split = first_split;
            double best = f_segments.cost(first_split, row) + f_before[first_split];
            for (std::size_t split = first_split + 1; split <= end; ++split) {
                double const cost = f_segments.cost(split, row) + f_before[split];
                if (cost < best) {
                    best = cost;
                    best_split = split;
                }
            }
            f_costs[row] = best;
            if (f_splits)
                f_splits[row] = static_cast<std::uint32_t>(best_split);
            if (row > first_row && !search(first_row, row - 1, first_split, best_split))
                return false;
            first_row = row + 1;
            first_split = best_split;
        }
        return true;
    }

    /// Some milliseconds of work.
    static constexpr std::size_t c_questions_between_stops = 2'000'000;

    segment_costs const &f_segments;
    std::vector<double> const &f_before;
    Stop &f_stop;
    double *f_costs = nullptr;
    std::uint32_t *f_splits = nullptr;
    std::size_t f_asked = 0;
};
} // namespace vx::task::detail
