#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpsabi" // vectors never leave the functions below

/// Sums over runs of cells of any type, four cells at a time, on processors that have it by its wider
/// instructions. Cells that lie within `low` and `high`, and those that are no number, are passed over. The
/// results are the same to the last bit on both roads.
namespace vx::gdal {
namespace lanes {
inline constexpr std::size_t c_count = 4;
inline constexpr std::size_t c_step = 2 * c_count; ///< cells of one round: runs are a multiple of it

using numbers [[gnu::vector_size(c_count * sizeof(double))]] = double;
using flags [[gnu::vector_size(c_count * sizeof(double))]] = long long;
using places [[gnu::vector_size(c_count * sizeof(int))]] = int;

/// Through an argument: what is given back would have to cross in registers that not every processor has.
template <class T>
[[gnu::always_inline]] inline void load(numbers &to, T const *cells)
{
    using few [[gnu::vector_size(c_count * sizeof(T))]] = T;
    few some;
    std::memcpy(&some, cells, sizeof some);
    to = __builtin_convertvector(some, numbers);
}
} // namespace lanes

/// The cells that have no value.
struct gap
{
    double low, high;
};

struct run_sums
{
    double minimum, maximum;
    double distance; ///< sum of the distances from `start`
    long long count; ///< cells that were not passed over
};

template <class T>
[[gnu::always_inline]] inline run_sums sum_run_body(T const *cells, std::size_t count, gap none, double start)
{
    using namespace lanes;
    numbers const low = numbers{} + none.low, high = numbers{} + none.high, first = numbers{} + start;
    numbers least[2] = {first, first}, most[2] = {first, first}, sum[2] = {};
    flags kept[2] = {};
    for (std::size_t i = 0; i < count; i += c_step)
        for (std::size_t half = 0; half < 2; ++half) {
            numbers cell;
            load(cell, cells + i + half * c_count);
            flags const counts = (cell < low) | (cell > high);
            numbers const here = counts ? cell : first;
            least[half] = here < least[half] ? here : least[half];
            most[half] = here > most[half] ? here : most[half];
            sum[half] += here - first;
            kept[half] -= counts;
        }
    run_sums result{start, start, 0, 0};
    for (std::size_t lane = 0; lane < c_count; ++lane)
        for (std::size_t half = 0; half < 2; ++half) {
            result.minimum = least[half][lane] < result.minimum ? least[half][lane] : result.minimum;
            result.maximum = most[half][lane] > result.maximum ? most[half][lane] : result.maximum;
            result.distance += sum[half][lane];
            result.count += kept[half][lane];
        }
    return result;
}

/// Sum of the squared distances from `mean`.
template <class T>
[[gnu::always_inline]] inline double square_run_body(T const *cells, std::size_t count, gap none, double mean)
{
    using namespace lanes;
    numbers const low = numbers{} + none.low, high = numbers{} + none.high, middle = numbers{} + mean;
    numbers sum[2] = {};
    for (std::size_t i = 0; i < count; i += c_step)
        for (std::size_t half = 0; half < 2; ++half) {
            numbers cell;
            load(cell, cells + i + half * c_count);
            flags const counts = (cell < low) | (cell > high);
            numbers const away = (counts ? cell : middle) - middle;
            sum[half] += away * away;
        }
    double total = 0;
    for (std::size_t lane = 0; lane < c_count; ++lane)
        total += sum[0][lane] + sum[1][lane];
    return total;
}

/// Classes of equal width; what lies outside goes to the class behind the last.
struct run_classes
{
    double low, high;
    double scale; ///< classes in a unit
    int count;
    std::uint32_t *tables; ///< `c_step` of them, each with a place for what lies outside
    std::size_t stride;    ///< from a table to the next; 0 for one table
};

template <class T>
[[gnu::always_inline]] inline void class_run_body(T const *cells, std::size_t count, gap none,
                                                  run_classes const &to)
{
    using namespace lanes;
    numbers const gap_low = numbers{} + none.low, gap_high = numbers{} + none.high, low = numbers{} + to.low,
                  high = numbers{} + to.high, scale = numbers{} + to.scale,
                  last = numbers{} + static_cast<double>(to.count - 1),
                  outside = numbers{} + static_cast<double>(to.count);
    for (std::size_t i = 0; i < count; i += c_step) {
        int at[c_step];
        for (std::size_t half = 0; half < 2; ++half) {
            numbers cell;
            load(cell, cells + i + half * c_count);
            flags const is_inside = ((cell < gap_low) | (cell > gap_high)) & (cell >= low) & (cell <= high);
            numbers const wanted = (cell - low) * scale;
            numbers const place = is_inside ? (wanted < last ? wanted : last) : outside;
            places const some = __builtin_convertvector(place, places);
            std::memcpy(at + half * c_count, &some, sizeof some);
        }
        // A cell waits for the count of the one before it only where both use one table.
        std::uint32_t *table = to.tables;
#pragma GCC unroll 8
        for (std::size_t lane = 0; lane < c_step; ++lane, table += to.stride)
            ++table[at[lane]];
    }
}

#if defined(__x86_64__)
template <class T>
[[gnu::target("avx2")]] run_sums sum_run_wide(T const *cells, std::size_t count, gap none, double start)
{
    return sum_run_body(cells, count, none, start);
}
template <class T>
[[gnu::target("avx2")]] double square_run_wide(T const *cells, std::size_t count, gap none, double mean)
{
    return square_run_body(cells, count, none, mean);
}
template <class T>
[[gnu::target("avx2")]] void class_run_wide(T const *cells, std::size_t count, gap none,
                                            run_classes const &to)
{
    class_run_body(cells, count, none, to);
}
inline bool has_wide_lanes()
{
    static bool const has = __builtin_cpu_supports("avx2");
    return has;
}
#else
inline constexpr bool has_wide_lanes()
{
    return false;
}
#endif

/// `start` is one of the cells that count, or anything where none does. `count` is a multiple of `c_step`.
template <class T>
run_sums sum_run(T const *cells, std::size_t count, gap none, double start)
{
#if defined(__x86_64__)
    if (has_wide_lanes())
        return sum_run_wide(cells, count, none, start);
#endif
    return sum_run_body(cells, count, none, start);
}

template <class T>
double square_run(T const *cells, std::size_t count, gap none, double mean)
{
#if defined(__x86_64__)
    if (has_wide_lanes())
        return square_run_wide(cells, count, none, mean);
#endif
    return square_run_body(cells, count, none, mean);
}

template <class T>
void class_run(T const *cells, std::size_t count, gap none, run_classes const &to)
{
#if defined(__x86_64__)
    if (has_wide_lanes())
        return class_run_wide(cells, count, none, to);
#endif
    class_run_body(cells, count, none, to);
}
} // namespace vx::gdal
#pragma GCC diagnostic pop
