#pragma once

#include "dataset.h"
#include "grid_types.h"

#include <functional>
#include <vector>

namespace vx::gdal {
/// Statistics of the cells of a band that have a value. What is not a number has none.
struct band_stat
{
    double minimum = 0;
    double maximum = 0;
    double mean = 0;
    double sum = 0;
    long double squares =
        0; ///< sum of the squared distances from the mean; has room for those of any numbers
    long long count = 0;

    /// The statistics of both sets of cells together.
    void add(band_stat const &other);
};

/// Classes of equal width from the lower to the upper bound, which belongs to the last.
struct histogram_span
{
    double low = 0;
    double high = 0;
    int count = 0;

    [[nodiscard]] bool is_valid() const;
    friend bool operator==(histogram_span const &, histogram_span const &) = default;
};

struct pass_result
{
    band_stat stat;
    std::vector<long long> counts; ///< of the classes
};

/// Everything that is asked of all cells, in one walk: statistics always, a histogram where the span is
/// known. The same cells give the same numbers to the last bit, however many threads share the work: partial
/// results are joined in the order of the file.
///
/// False, with the reason in the innermost error guard, when a block cannot be read.
[[nodiscard]] bool pass_over_cells(dataset const &set, int band, bool has_stat, histogram_span const *span,
                                   pass_result &result);

/// Hands out all cells that have a value, in pieces of bounded size; `visit` gives false to stop. False when
/// a piece cannot be read.
[[nodiscard]] bool scan_cells(GDALRasterBand &band,
                              std::function<bool(double const *cells, std::size_t count)> const &visit);
} // namespace vx::gdal
