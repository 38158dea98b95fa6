#include "scale_engine/range/detail/classify.h"

#include "scale_engine/range/range_scale_round_digits.h"
#include "scale_engine/range/range_scale_update_caption.h"

#include "platform/styles/vx_rng_scale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vx::task::detail {
void begin_classify(void *scale, int type, int digits)
{
    vx_rng_scale_set_rng_type(scale, type);
    vx_rng_scale_set_round_digits(scale, digits);
}

void finish_classify(void *scale, int digits)
{
    range_scale_round_digits::execute(scale, digits);
    range_scale_update_caption::interval(scale);
}

unsigned set_range_count(void *scale, unsigned nranges)
{
    unsigned const count = std::min(nranges, c_most_ranges);
    vx_rng_scale_set_size(scale, count);
    return count;
}

void set_range(void *scale, unsigned index, double min_bound, double max_bound)
{
    vx_rng_scale_set_min(scale, index, min_bound);
    vx_rng_scale_set_max(scale, index, max_bound);
}

void set_span(void *scale, double min_value, double max_value)
{
    vx_rng_scale_set_min_value(scale, min_value);
    vx_rng_scale_set_max_value(scale, max_value);
}

void equal_ranges(void *scale, unsigned nranges, double minval, double maxval)
{
    unsigned const count = set_range_count(scale, nranges);
    double step = (maxval - minval) / count;
    if (!std::isfinite(step))
        step = 0;
    for (unsigned i = 0; i < count; ++i)
        set_range(scale, i, i * step + minval, (i + 1) * step + minval);
    set_span(scale, minval, count * step + minval);
}

void equal_ranges_of_any_span(void *scale, unsigned nranges, double minval, double maxval)
{
    if (!std::isfinite(minval) || !std::isfinite(maxval) || std::isfinite(maxval - minval))
        return equal_ranges(scale, nranges, minval, maxval);
    unsigned const count = set_range_count(scale, nranges);
    auto const bound = [&](unsigned i) { return std::lerp(minval, maxval, double(i) / count); };
    for (unsigned i = 0; i < count; ++i)
        set_range(scale, i, bound(i), bound(i + 1));
    set_span(scale, minval, maxval);
}

double within_numbers(double value)
{
    constexpr double c_most = std::numeric_limits<double>::max();
    return std::isnan(value) ? value : std::clamp(value, -c_most, c_most);
}
} // namespace vx::task::detail
