#include "scale_engine/range/range_scale_classify_log_space.h"

#include "scale_engine/range/detail/classify.h"

#include "platform/styles/vx_rng_scale.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace vx::task {
range_scale_classify_log_space::range_scale_classify_log_space(unsigned nranges, double minval, double maxval,
                                                               int digits)
    : f_nranges(nranges), f_minval(minval), f_maxval(maxval), f_digits(digits)
{
    if (f_minval > f_maxval)
        std::swap(f_minval, f_maxval);
}

void range_scale_classify_log_space::execute(void *scale) const
{
    detail::begin_classify(scale, c_rng_type_log_space, f_digits);
    if (f_nranges == 0) {
        detail::set_range_count(scale, 0);
        detail::set_span(scale, 0, 0);
    } else {
        log_space(scale);
    }
    detail::finish_classify(scale, f_digits);
}

void range_scale_classify_log_space::log_space(void *scale) const
{
    unsigned const count = detail::set_range_count(scale, f_nranges);
    // A shifted span begins at 1, whose logarithm is 0, and reaches 1 + maxval - minval; the shift is never
    // added, since a minimum far below 0 would swallow the 1.
    bool const shifted = f_minval <= 0;
    double const span = f_maxval - f_minval;
    bool const is_huge = shifted && std::isinf(span) && std::isfinite(f_minval) && std::isfinite(f_maxval);
    // Of a span beyond all numbers the half is one.
    double const whole = is_huge   ? std::log(f_maxval / 2 - f_minval / 2) + std::numbers::ln2
                         : shifted ? std::log1p(span)
                                   : std::log(f_maxval) - std::log(f_minval);
    double step = whole / count;
    if (!std::isfinite(step))
        step = 0;
    auto const bound = [&](unsigned i) {
        if (i == 0)
            return f_minval;
        if (i == count) // so that the greatest value lies in a row
            return f_maxval;
        if (is_huge)
            return 2 * (std::exp(i * step - std::numbers::ln2) + f_minval / 2);
        return shifted ? std::expm1(i * step) + f_minval : std::exp(i * step + std::log(f_minval));
    };
    for (unsigned i = 0; i < count; ++i)
        detail::set_range(scale, i, bound(i), bound(i + 1));
    detail::set_span(scale, f_minval, f_maxval);
}
} // namespace vx::task
