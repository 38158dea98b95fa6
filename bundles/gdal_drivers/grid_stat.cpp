#include "grid_set.h"

#include "platform/base/whole_number_classes.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace vx::gdal {
namespace {
/// Classes of the histogram that nobody gave bounds for.
constexpr int c_default_classes = 256;

/// The number as a cell of 32 bits holds it. By way of memory: GCC 12 takes two such conversions side by side
/// for none when it puts them into one vector.
double as_float_cell(double number)
{
    float const volatile cell = static_cast<float>(number);
    return static_cast<double>(cell);
}
} // namespace

void grid_set::forget_old()
{
    if (f_seen_changes == f_set->changes())
        return;
    f_seen_changes = f_set->changes();
    f_stats.clear();
    f_histograms.clear();
}

std::optional<band_stat> grid_set::stored_stat(int field) const
{
    GDALRasterBand *const b = band(field);
    double deviation = 0;
    band_stat stat;
    if (!b || b->GetStatistics(FALSE, FALSE, &stat.minimum, &stat.maximum, &stat.mean, &deviation) != CE_None)
        return std::nullopt;
    // Anybody may have written them: what cannot be is not believed.
    bool const can_be = std::isfinite(stat.minimum) && std::isfinite(stat.maximum) &&
                        stat.minimum <= stat.mean && stat.mean <= stat.maximum && deviation >= 0;
    if (!can_be)
        return std::nullopt;
    // They are kept as texts of some digits; the bounds are cells, which have fewer.
    if (cell_type_of(*b) == cells_float32) {
        stat.minimum = as_float_cell(stat.minimum);
        stat.maximum = as_float_cell(stat.maximum);
        stat.mean = std::clamp(stat.mean, stat.minimum, stat.maximum);
    }
    return stat;
}

std::optional<histogram_span> grid_set::span_of_type(int field) const
{
    // A class for each value of a byte.
    switch (cell_type_of(*band(field))) {
    case cells_uint8:
        return histogram_span{-0.5, 255.5, c_default_classes};
    case cells_int8:
        return histogram_span{-128.5, 127.5, c_default_classes};
    default:
        return std::nullopt;
    }
}

std::optional<histogram_span> grid_set::known_span(int field)
{
    if (auto const span = span_of_type(field))
        return span;
    auto const known = f_stats.find(field);
    auto const stored = known == f_stats.end() ? stored_stat(field) : std::nullopt;
    if (known == f_stats.end() && !stored)
        return std::nullopt;
    band_stat const &stat = stored ? *stored : known->second;
    int const type = cell_type_of(*band(field));
    bool const is_whole = type >= cells_uint8 && type <= cells_uint64;
    int const classes = is_whole ? vx::whole_number_classes(stat.minimum, stat.maximum, c_default_classes)
                                 : c_default_classes;
    histogram_span const span{stat.minimum, stat.maximum, classes};
    return span.is_valid() ? std::optional(span) : std::nullopt;
}

bool grid_set::pass(int field, std::optional<histogram_span> const &span)
{
    pass_result result;
    bool const has_stat = f_stats.count(field) == 0;
    if (!pass_over_cells(*f_set, field + 1, has_stat, span ? &*span : nullptr, result))
        return false;
    if (has_stat)
        f_stats[field] = result.stat;
    if (span)
        f_histograms[field] = {*span, std::move(result.counts)};
    return true;
}

band_stat const *grid_set::stat_of(int field)
{
    forget_old();
    auto const known = f_stats.find(field);
    if (known != f_stats.end())
        return &known->second;
    error_guard const guard(f_set->error());
    // The same walk brings the histogram where it can be had by the way.
    return band(field) && pass(field, known_span(field)) ? &f_stats[field] : nullptr;
}

std::vector<long long> const *grid_set::histogram_of(int field, histogram_span const &span)
{
    forget_old();
    auto const known = f_histograms.find(field);
    if (known != f_histograms.end() && known->second.span == span)
        return &known->second.counts;
    error_guard const guard(f_set->error());
    return band(field) && pass(field, span) ? &f_histograms[field].counts : nullptr;
}

std::optional<band_stat> grid_set::quick_stat(int field)
{
    forget_old();
    if (auto const known = f_stats.find(field); known != f_stats.end())
        return known->second;
    error_guard const guard(f_set->error());
    return stored_stat(field);
}

bool grid_set::has_stat(int field)
{
    return quick_stat(field).has_value();
}

bool grid_set::give(int field, double *value, double band_stat::*member)
{
    if (!value)
        return false;
    auto const quick = quick_stat(field);
    auto const *const stat = quick ? &*quick : stat_of(field);
    if (stat)
        *value = stat->*member;
    return stat != nullptr;
}

bool grid_set::minimum(int field, double *value)
{
    return give(field, value, &band_stat::minimum);
}

bool grid_set::maximum(int field, double *value)
{
    return give(field, value, &band_stat::maximum);
}

bool grid_set::average(int field, double *value)
{
    return give(field, value, &band_stat::mean);
}

// What a data set stores is the deviation of the whole population, without the count; the sample's needs a
// pass.
bool grid_set::stdev(int field, double *value)
{
    auto const *const stat = value ? stat_of(field) : nullptr;
    if (stat)
        *value =
            stat->count > 1
                ? static_cast<double>(std::sqrt(stat->squares / static_cast<long double>(stat->count - 1)))
                : 0;
    return stat != nullptr;
}

bool grid_set::sum(int field, double *value)
{
    auto const *const stat = value ? stat_of(field) : nullptr;
    if (stat)
        *value = stat->sum;
    return stat != nullptr;
}

bool grid_set::count_nonnull(int field, long long *count)
{
    auto const *const stat = count ? stat_of(field) : nullptr;
    if (stat)
        *count = stat->count;
    return stat != nullptr;
}

bool grid_set::compute_stats(int field, bool force)
{
    return force ? stat_of(field) != nullptr : has_stat(field);
}

bool grid_set::with_unique_numerics(int field, int limit, vx::floatings_visitor visitor)
{
    error_guard const guard(f_set->error());
    GDALRasterBand *const b = band(field);
    std::set<double> values;
    bool const good = b && scan_cells(*b, [&](double const *cells, std::size_t count) {
                          double last = std::nan("");
                          for (std::size_t i = 0; i < count; ++i) {
                              // Neighbours are often equal, and finding that out is cheap.
                              if (cells[i] == last)
                                  continue;
                              last = cells[i];
                              values.insert(last + 0.0); // a negative zero is zero
                              if (limit >= 0 && values.size() >= static_cast<std::size_t>(limit))
                                  return false;
                          }
                          return true;
                      });
    if (!good)
        return false;
    std::vector<double> list(values.begin(), values.end());
    if (!list.empty())
        visitor.visit(list.size(), list.data());
    return true;
}

bool grid_set::has_histogram(int field)
{
    return band(field) != nullptr;
}

bool grid_set::with_custom_histogram(int field, double minimum, double maximum, int count, long long *counts,
                                     bool force)
{
    histogram_span const span{minimum, maximum, count};
    if (!band(field) || !counts || !span.is_valid())
        return false;
    forget_old();
    auto const known = f_histograms.find(field);
    if (!force && (known == f_histograms.end() || !(known->second.span == span)))
        return false;
    auto const *const found = histogram_of(field, span);
    if (found)
        std::copy(found->begin(), found->end(), counts);
    return found != nullptr;
}

bool grid_set::with_default_histogram(int field, bool force, vx::histogram_visitor visitor)
{
    forget_old();
    if (!band(field) || !force)
        return false;
    auto span = known_span(field);
    auto const *counts = span ? histogram_of(field, *span) : nullptr;
    // After a walk the span of the cells is known for good; a stored one may turn out to be another.
    auto const *const stat = stat_of(field);
    if (!stat || stat->count == 0)
        return false;
    if (auto const right = known_span(field); right != span) {
        span = right;
        counts = span ? histogram_of(field, *span) : nullptr;
    }
    if (!counts)
        return false;
    std::vector<long long> copy = *counts;
    visitor.visit(span->low, span->high, span->count, copy.data());
    return true;
}
} // namespace vx::gdal
