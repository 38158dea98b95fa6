#include "scale_engine/range/range_scale_classify_equal_ranges.h"

#include "scale_engine/range/detail/classify.h"

#include "platform/styles/vx_rng_scale.h"

#include <cmath>
#include <limits>

namespace vx::task {
range_scale_classify_equal_ranges::range_scale_classify_equal_ranges(unsigned nranges, double minval,
                                                                     double maxval, int digits)
    : f_nranges(nranges), f_minval(minval), f_maxval(maxval), f_digits(digits)
{
}

void range_scale_classify_equal_ranges::execute(void *scale) const
{
    detail::begin_classify(scale, c_rng_type_equal_ranges, f_digits);
    if (f_nranges == 0) {
        detail::set_range_count(scale, 1);
        detail::set_range(scale, 0, f_minval, f_maxval);
        detail::set_span(scale, f_minval, f_maxval);
    } else {
        detail::equal_ranges(scale, f_nranges, f_minval, f_maxval);
    }
    detail::finish_classify(scale, f_digits);
}

int range_scale_classify_equal_ranges::nranges(double step, double minval, double maxval)
{
    double const count = std::ceil(std::abs((maxval - minval) / step));
    if (std::isnan(count))
        return 0;
    constexpr int most = std::numeric_limits<int>::max();
    return count < most ? static_cast<int>(count) : most;
}

double range_scale_classify_equal_ranges::step(int nranges, double minval, double maxval)
{
    return (maxval - minval) / nranges;
}

double range_scale_classify_equal_ranges::minval(int nranges, double step, double maxval)
{
    return maxval - nranges * step;
}

double range_scale_classify_equal_ranges::maxval(int nranges, double step, double minval)
{
    return nranges * step + minval;
}
} // namespace vx::task
