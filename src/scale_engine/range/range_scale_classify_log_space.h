#pragma once

#include "platform/base/export.h"

namespace vx::task {
/// Bounds at equal steps of the logarithm over a span (range type 5). A span that begins at 0 or below is
/// shifted for it, so that it begins at 1. Writes what `range_scale_classify_equal_ranges` writes.
class VX_API range_scale_classify_log_space
{
public:
    /// The values of the span may come in either order. 0 ranges give none.
    range_scale_classify_log_space(unsigned nranges, double minval, double maxval, int digits);
    void execute(void *scale) const;

private:
    void log_space(void *scale) const;

    unsigned f_nranges;
    double f_minval;
    double f_maxval;
    int f_digits;
};
} // namespace vx::task
