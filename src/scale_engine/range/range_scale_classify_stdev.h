#pragma once

#include "platform/base/export.h"

struct Tvx_stat_data;

namespace vx::task {
/// Ranges of one width round the mean (range type 1): together they reach `coeff` standard deviations to each
/// side. Writes what `range_scale_classify_equal_ranges` writes, and the coefficient.
class VX_API range_scale_classify_stdev
{
public:
    /// Reads mean and deviation here; a value that the record does not know counts as 0. 0 ranges give none,
    /// with the mean as the whole span.
    range_scale_classify_stdev(Tvx_stat_data const *stat, unsigned nranges, double coeff, int digits);
    void execute(void *scale) const;

    /// The index, among the coefficients 0.5, 1, 2, 3, of the one that the span of the scale comes nearest
    /// to; 1 when it is near none.
    [[nodiscard]] static int estimate_factor(void const *scale, double stddev);
    /// The same; 1 also when the record does not know the deviation.
    [[nodiscard]] static int estimate_factor(void const *scale, Tvx_stat_data const *stat);

private:
    double f_mean;
    double f_stddev;
    unsigned f_nranges;
    double f_coeff;
    int f_digits;
};
} // namespace vx::task
