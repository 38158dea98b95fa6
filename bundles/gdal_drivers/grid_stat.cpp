#include "grid_block.h"
#include "grid_set.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace vx::gdal {
namespace {
/// Cells of one piece of a pass: bounds the memory whatever blocks a file claims to have.
constexpr int c_most_cells = 1 << 20;
/// Classes of the histogram that nobody gave bounds for.
constexpr int c_default_classes = 256;

} // namespace

bool grid_set::scan(int field, std::function<bool(double const *cells, std::size_t count)> const &visit)
{
    GDALRasterBand *const b = band(field);
    if (!b)
        return false;
    error_guard const guard(f_set->error());
    nodata const none = nodata_of(*b);
    int block_width = 0;
    int block_height = 0;
    b->GetBlockSize(&block_width, &block_height);
    int const across = std::clamp(block_width, 1, std::min(b->GetXSize(), c_most_cells));
    int const down = std::clamp(block_height, 1, std::max(1, c_most_cells / across));
    std::vector<double> cells(static_cast<std::size_t>(across) * static_cast<std::size_t>(down));
    for (int y = 0; y < b->GetYSize(); y += down)
        for (int x = 0; x < b->GetXSize(); x += across) {
            int const width = std::min(across, b->GetXSize() - x);
            int const height = std::min(down, b->GetYSize() - y);
            if (b->RasterIO(GF_Read, x, y, width, height, cells.data(), width, height, GDT_Float64, 0, 0,
                            nullptr) != CE_None)
                return false;
            auto const first = cells.begin();
            auto const last = first + static_cast<std::ptrdiff_t>(width) * height;
            auto const kept =
                none.has ? std::remove_if(first, last, [&](double c) { return !none.counts(c); }) : last;
            if (!visit(cells.data(), static_cast<std::size_t>(kept - first)))
                return true;
        }
    return true;
}

std::optional<grid_set::band_stat> grid_set::stored_stat(int field) const
{
    GDALRasterBand *const b = band(field);
    double deviation = 0;
    band_stat stat;
    if (!b || b->GetStatistics(FALSE, FALSE, &stat.minimum, &stat.maximum, &stat.mean, &deviation) != CE_None)
        return std::nullopt;
    return stat;
}

grid_set::band_stat const *grid_set::stat_of(int field)
{
    auto const known = f_stats.find(field);
    if (known != f_stats.end())
        return &known->second;
    band_stat stat;
    bool const good = scan(field, [&](double const *cells, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            double const value = cells[i];
            if (++stat.count == 1)
                stat.minimum = stat.maximum = value;
            stat.minimum = std::fmin(stat.minimum, value);
            stat.maximum = std::fmax(stat.maximum, value);
            stat.sum += value;
            double const away = value - stat.mean;
            stat.mean += away / static_cast<double>(stat.count);
            stat.squares += away * (value - stat.mean);
        }
        return true;
    });
    return good ? &f_stats.emplace(field, stat).first->second : nullptr;
}

bool grid_set::has_stat(int field)
{
    error_guard const guard(f_set->error());
    return f_stats.count(field) != 0 || stored_stat(field);
}

bool grid_set::minimum(int field, double *value)
{
    error_guard const guard(f_set->error());
    auto const stored = stored_stat(field);
    auto const *const stat = stored ? &*stored : stat_of(field);
    if (stat && value)
        *value = stat->minimum;
    return stat && value;
}

bool grid_set::maximum(int field, double *value)
{
    error_guard const guard(f_set->error());
    auto const stored = stored_stat(field);
    auto const *const stat = stored ? &*stored : stat_of(field);
    if (stat && value)
        *value = stat->maximum;
    return stat && value;
}

bool grid_set::average(int field, double *value)
{
    error_guard const guard(f_set->error());
    auto const stored = stored_stat(field);
    auto const *const stat = stored ? &*stored : stat_of(field);
    if (stat && value)
        *value = stat->mean;
    return stat && value;
}

// What a data set stores is the deviation of the whole population, without the count; the sample's needs a
// pass.
bool grid_set::stdev(int field, double *value)
{
    auto const *const stat = stat_of(field);
    if (stat && value)
        *value = stat->count > 1 ? std::sqrt(stat->squares / static_cast<double>(stat->count - 1)) : 0;
    return stat && value;
}

bool grid_set::sum(int field, double *value)
{
    auto const *const stat = stat_of(field);
    if (stat && value)
        *value = stat->sum;
    return stat && value;
}

bool grid_set::count_nonnull(int field, long long *count)
{
    auto const *const stat = stat_of(field);
    if (stat && count)
        *count = stat->count;
    return stat && count;
}

bool grid_set::compute_stats(int field, bool force)
{
    return force ? stat_of(field) != nullptr : has_stat(field);
}

bool grid_set::with_unique_numerics(int field, int limit, vx::floatings_visitor visitor)
{
    std::set<double> values;
    bool const good = scan(field, [&](double const *cells, std::size_t count) {
        double last = std::nan("");
        for (std::size_t i = 0; i < count; ++i) {
            // Neighbours are often equal, and finding that out is cheap.
            if (cells[i] == last || std::isnan(cells[i]))
                continue;
            last = cells[i];
            values.insert(last);
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
    if (!force || !band(field) || count <= 0 || !counts || !(minimum <= maximum))
        return false;
    std::fill(counts, counts + count, 0);
    double const width = (maximum - minimum) / count;
    return scan(field, [&](double const *cells, std::size_t number) {
        for (std::size_t i = 0; i < number; ++i) {
            if (!(cells[i] >= minimum && cells[i] <= maximum))
                continue;
            double const place = width > 0 ? (cells[i] - minimum) / width : 0;
            // The upper bound belongs to the last class.
            ++counts[std::min(count - 1, static_cast<int>(place))];
        }
        return true;
    });
}

bool grid_set::with_default_histogram(int field, bool force, vx::histogram_visitor visitor)
{
    GDALRasterBand *const b = band(field);
    if (!b || !force)
        return false;
    double low = 0;
    double high = 255;
    // A class for each value of a byte; else the range of the values.
    if (b->GetRasterDataType() == GDT_Byte) {
        low = -0.5;
        high = 255.5;
    } else {
        auto const *const stat = stat_of(field);
        if (!stat || stat->count == 0)
            return false;
        low = stat->minimum;
        high = stat->maximum;
    }
    std::vector<long long> counts(c_default_classes);
    if (!with_custom_histogram(field, low, high, c_default_classes, counts.data(), true))
        return false;
    visitor.visit(low, high, c_default_classes, counts.data());
    return true;
}
} // namespace vx::gdal
