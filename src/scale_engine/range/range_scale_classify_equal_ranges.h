#pragma once

#include "platform/base/export.h"

namespace vx::task {
/// Divides a span into ranges of one width (range type 0).
///
/// Like all classifications it writes type, round digits, bounds and captions of a range scale, the bounds
/// rounded to the digits, and leaves styles alone. More than 100,000 ranges are not made: of a larger number
/// that many are.
class VX_API range_scale_classify_equal_ranges
{
public:
    /// With `minval` above `maxval` the ranges run downward. 0 ranges give one over the whole span. A span
    /// that is not finite gives ranges of no width.
    range_scale_classify_equal_ranges(unsigned nranges, double minval, double maxval, int digits);
    void execute(void *scale) const;

    /// The number of ranges of a width, the last one perhaps longer than the span; 0 when there is none, at
    /// most the largest `int`.
    [[nodiscard]] static int nranges(double step, double minval, double maxval);
    /// The three others from two of them.
    [[nodiscard]] static double step(int nranges, double minval, double maxval);
    [[nodiscard]] static double minval(int nranges, double step, double maxval);
    [[nodiscard]] static double maxval(int nranges, double step, double minval);

private:
    unsigned f_nranges;
    double f_minval;
    double f_maxval;
    int f_digits;
};
} // namespace vx::task
