// Compiled with -ffp-contract=off: a product that is rounded once less gives other breaks.
#include "scale_engine/natural_breaks/detail/break_programme.h"

#include "scale_engine/natural_breaks/detail/layer_search.h"

#include <array>
#include <cmath>
#include <limits>

namespace vx::task::detail {
namespace {
constexpr double c_largest = std::numeric_limits<double>::max();
constexpr double c_infinite = std::numeric_limits<double>::infinity();

/// Two rows side by side.
using pair = double __attribute__((vector_size(16)));
constexpr std::size_t c_pairs = 4;
constexpr std::size_t c_lanes = 2 * c_pairs;

pair both(double value)
{
    return pair{value, value};
}

/// Eight rows side by side.
struct lanes
{
    pair pairs[c_pairs];

    [[nodiscard]] double get(std::size_t i) const { return pairs[i / 2][i % 2]; }
    void set(std::size_t i, double value) { pairs[i / 2][i % 2] = value; }
};

/// The running sums of one row of the programme.
struct row_sums
{
    double s = 0;
    double q = 0;
    double count = 0;

    /// Takes one more value to the left; gives the cost of the values so far.
    double take(double x)
    {
        s += x;
        q += x * x;
        count += 1;
        return q - s * s / count;
    }
};

/// The costs of all rows, column by column, for columns 1 to k - 1: the walk back works the last one out for
/// the one row that it needs, and all limits likewise.
class cost_table
{
public:
    cost_table(std::vector<double> const &sorted, unsigned k)
        : f_values(sorted), f_columns(k), f_segments(sorted.size() + c_lanes)
    {
        auto const count = sorted.size();
        f_values.resize(count + c_lanes); // rows past the end are worked out and not read
        for (unsigned j = 1; j < k; ++j) {
            f_columns[j].assign(count + c_lanes + 1, c_largest);
            f_columns[j][0] = f_columns[j][1] = 0;
        }
        for (std::size_t row = 2; row <= count; row += c_lanes)
            fill_rows(row);
    }

    /// limit[row][j] of the programme; 0 when nothing was less than the largest double.
    [[nodiscard]] std::size_t limit(std::size_t row, unsigned j) const
    {
        std::size_t split = 0;
        double best = c_largest;
        row_sums sums;
        auto const &before = f_columns[j - 1];
        for (std::size_t b = row - 1; b > 0; --b) {
            double const cost = sums.take(f_values[b]) + before[b];
            if (best >= cost) {
                best = cost;
                split = b;
            }
        }
        return split;
    }

private:
    /// Costs of what lies inside a block of rows, by row and split, both from the first row of the block on.
    using block_costs = std::array<std::array<double, c_lanes>, c_lanes>;

    /// Rows `first` to `first` + `c_lanes` - 1.
    void fill_rows(std::size_t first)
    {
        block_costs inside{};
        lanes s{};
        lanes q{};
        lanes count{};
        for (std::size_t i = 0; i < c_lanes; ++i) {
            row_sums sums;
            for (std::size_t b = i; b-- > 0;)
                inside[i][b] = sums.take(f_values[first + b]);
            s.set(i, sums.s);
            q.set(i, sums.q);
            count.set(i, sums.count);
        }
        // The values before the block belong to all its rows.
        for (std::size_t b = first; b-- > 0;) {
            pair const x = both(f_values[b]);
            pair const square = x * x;
            lanes &v = f_segments[b];
            for (std::size_t p = 0; p < c_pairs; ++p) {
                s.pairs[p] += x;
                q.pairs[p] += square;
                count.pairs[p] += both(1);
                v.pairs[p] = q.pairs[p] - s.pairs[p] * s.pairs[p] / count.pairs[p];
            }
        }
        for (std::size_t i = 0; i < c_lanes; ++i)
            f_columns[1][first + i] = f_segments[0].get(i);
        for (std::size_t j = 2; j < f_columns.size(); ++j)
            fill_column(first, f_columns[j - 1], f_columns[j], inside);
    }

    void fill_column(std::size_t first, std::vector<double> const &before, std::vector<double> &column,
                     block_costs const &inside) const
    {
        lanes best;
        for (auto &p : best.pairs)
            p = both(c_infinite);
        for (std::size_t b = 1; b < first; ++b) {
            pair const cost = both(before[b]);
            lanes const &v = f_segments[b];
            for (std::size_t p = 0; p < c_pairs; ++p) {
                pair const sum = v.pairs[p] + cost;
                best.pairs[p] = sum < best.pairs[p] ? sum : best.pairs[p];
            }
        }
        for (std::size_t i = 0; i < c_lanes; ++i) {
            double least = best.get(i);
            for (std::size_t b = 0; b < i; ++b) {
                double const sum = inside[i][b] + before[first + b];
                least = sum < least ? sum : least;
            }
            column[first + i] = least <= c_largest ? least : c_largest;
        }
    }

    std::vector<double> f_values;
    std::vector<std::vector<double>> f_columns;
    std::vector<lanes> f_segments; ///< cost of the values from here to the end of each row of the block
};

/// By how much two costs of the first `row` values, each as the programme and the quick search have it, may
/// seem to differ while they are equal.
///
/// The programme adds up to `row` values and as many squares, each addition off by at most half a unit of its
/// sum; with the Cauchy-Schwarz inequality the cost of a run of m values is off by at most 3m + 3 roundings
/// of the sum of its squares, and the runs of a partition share the squares of all values. Each class adds
/// one rounding. The quick search is off by 12 roundings for a run and may, where two splits are that near to
/// each other, take the wrong one at each halving and in each column. Products too small for a double are off
/// by up to half the least double instead.
double rounding_noise(segment_costs const &segments, std::size_t row, unsigned k)
{
    constexpr double rounding = std::numeric_limits<double>::epsilon() / 2;
    double const halvings = std::log2(static_cast<double>(segments.size())) + 2;
    double const programme = 3.0 * static_cast<double>(row) + k + 10;
    double const search = (12.0 + k) * (2 * k * halvings + 1);
    double const underflow = 1000.0 * static_cast<double>(segments.size()) * k * halvings;
    return 2.5 * (programme + search) * rounding * segments.squares(row) +
           underflow * std::numeric_limits<double>::denorm_min();
}

/// The split of a row with the least cost, if no other comes near it.
std::optional<std::size_t> certain_split(segment_costs const &segments, std::vector<double> const &before,
                                         std::size_t row, unsigned k)
{
    std::size_t split = 1;
    double best = segments.cost(1, row) + before[1];
    double second = c_infinite;
    for (std::size_t b = 2; b < row; ++b) {
        double const cost = segments.cost(b, row) + before[b];
        if (cost < best) {
            second = best;
            best = cost;
            split = b;
        } else if (!(cost >= second)) {
            second = cost;
        }
    }
    return second - best > rounding_noise(segments, row, k) ? std::optional(split) : std::nullopt;
}

/// Walks from the last row of column k to the second column. `limit(row, j)` gives the split or nothing.
template <class Limit>
bool walk_back(std::vector<double> const &sorted, unsigned k, std::vector<double> &breaks, Limit limit)
{
    breaks.assign(k - 1, 0);
    std::size_t row = sorted.size();
    for (unsigned j = k; j >= 2; --j) {
        std::size_t split = 1;
        if (row >= 2) {
            std::optional<std::size_t> const found = limit(row, j);
            if (!found)
                return false;
            split = std::max<std::size_t>(*found, 1);
        }
        breaks[j - 2] = sorted[split - 1];
        row = split - 1;
    }
    return true;
}
} // namespace

std::optional<std::vector<double>> find_breaks_quickly(std::vector<double> const &sorted, unsigned k)
{
    auto const count = sorted.size();
    segment_costs segments;
    segments.reserve(count);
    for (double const value : sorted)
        segments.append(value);
    // No sum of the programme may overflow.
    if (!(segments.squares(count) < c_largest / (4 * static_cast<double>(count))))
        return std::nullopt;
    std::vector<double> one_class(count + 1);
    for (std::size_t row = 2; row <= count; ++row)
        one_class[row] = segments.cost(0, row);
    std::vector<std::vector<double>> columns(1); // the first is not used
    columns.push_back(std::move(one_class));
    auto never = [] { return false; };
    for (unsigned j = 2; j < k; ++j) {
        std::vector<double> costs;
        layer_search(segments, columns.back(), never).run(costs, nullptr);
        columns.push_back(std::move(costs));
    }
    std::vector<double> breaks;
    auto const certain_limit = [&](std::size_t row, unsigned j) {
        return row == 2 ? std::optional<std::size_t>(1) : certain_split(segments, columns[j - 1], row, k);
    };
    return walk_back(sorted, k, breaks, certain_limit) ? std::optional(std::move(breaks)) : std::nullopt;
}

std::vector<double> find_breaks_surely(std::vector<double> const &sorted, unsigned k)
{
    cost_table const table(sorted, k);
    std::vector<double> breaks;
    walk_back(sorted, k, breaks,
              [&](std::size_t row, unsigned j) { return std::optional(table.limit(row, j)); });
    return breaks;
}

std::vector<double> find_breaks(std::vector<double> const &sorted, unsigned k)
{
    auto breaks = find_breaks_quickly(sorted, k);
    return breaks ? std::move(*breaks) : find_breaks_surely(sorted, k);
}
} // namespace vx::task::detail
