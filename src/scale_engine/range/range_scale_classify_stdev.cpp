#include "scale_engine/range/range_scale_classify_stdev.h"

#include "scale_engine/range/detail/classify.h"

#include "platform/basic/vx_stat.h"
#include "platform/styles/vx_rng_scale.h"

namespace vx::task {
namespace {
constexpr int c_no_guess = 1;
}

range_scale_classify_stdev::range_scale_classify_stdev(Tvx_stat_data const *stat, unsigned nranges,
                                                       double coeff, int digits)
    : f_mean(vx_stat_get_average(stat, nullptr)), f_stddev(vx_stat_get_stddev(stat, nullptr)),
      f_nranges(nranges), f_coeff(coeff), f_digits(digits)
{
}

void range_scale_classify_stdev::execute(void *scale) const
{
    vx_rng_scale_set_rng_type(scale, c_rng_type_stdev);
    vx_rng_scale_set_deviation_coeff(scale, f_coeff);
    vx_rng_scale_set_round_digits(scale, f_digits);
    if (f_nranges == 0) {
        detail::set_range_count(scale, 0);
        detail::set_span(scale, f_mean, f_mean);
    } else {
        double const half = f_coeff * f_stddev;
        detail::equal_ranges(scale, f_nranges, detail::within_numbers(f_mean - half),
                             detail::within_numbers(f_mean + half));
    }
    detail::finish_classify(scale, f_digits);
}

int range_scale_classify_stdev::estimate_factor(void const *scale, double stddev)
{
    double const span = vx_rng_scale_get_max_value(scale) - vx_rng_scale_get_min_value(scale);
    double const ratio = span / (2 * stddev);
    if (ratio >= 0.25 && ratio < 0.75)
        return 0;
    if (ratio >= 1.5 && ratio < 2.5)
        return 2;
    if (ratio >= 2.5 && ratio < 3.5)
        return 3;
    return c_no_guess;
}

int range_scale_classify_stdev::estimate_factor(void const *scale, Tvx_stat_data const *stat)
{
    bool known = false;
    double const stddev = vx_stat_get_stddev(stat, &known);
    return known ? estimate_factor(scale, stddev) : c_no_guess;
}
} // namespace vx::task
