#pragma once

#include <cstddef>
#include <vector>

namespace vx::task::detail {
/// What it costs to put a run of sorted values into one class: the sum of the squares of their distances from
/// their mean. Sums of all prefixes make each question one subtraction; they are kept in two parts each, so
/// that a run far from the beginning is known as exactly as one at it.
class segment_costs
{
public:
    segment_costs() : f_prefixes(1) {}
    void reserve(std::size_t count) { f_prefixes.reserve(count + 1); }
    /// `times` values of this size behind those there are.
    void append(double value, double times = 1)
    {
        prefix next = f_prefixes.back();
        next.count += times;
        add(next.sum, next.sum_rest, value * times);
        add(next.squares, next.squares_rest, value * value * times);
        f_prefixes.push_back(next);
    }
    [[nodiscard]] std::size_t size() const { return f_prefixes.size() - 1; }
    /// Of the values `first` to `last` - 1; never below 0. The error is at most 12 roundings of the sum of
    /// their squares.
    [[nodiscard]] double cost(std::size_t first, std::size_t last) const
    {
        prefix const &a = f_prefixes[first];
        prefix const &b = f_prefixes[last];
        double const sum = (b.sum - a.sum) + (b.sum_rest - a.sum_rest);
        double const squares = (b.squares - a.squares) + (b.squares_rest - a.squares_rest);
        double const cost = squares - sum * sum / (b.count - a.count);
        return cost < 0 ? 0 : cost;
    }
    /// Sum of the squares of the first `count` values.
    [[nodiscard]] double squares(std::size_t count) const { return f_prefixes[count].squares; }

private:
    struct prefix
    {
        double count = 0;
        double sum = 0;
        double sum_rest = 0;
        double squares = 0;
        double squares_rest = 0;
    };
    /// Adds without loss: what the sum cannot hold goes to `rest`.
    static void add(double &sum, double &rest, double value)
    {
        double const total = sum + value;
        double const kept = total - sum;
        rest += (sum - (total - kept)) + (value - kept);
        sum = total;
    }

    std::vector<prefix> f_prefixes;
};
} // namespace vx::task::detail
