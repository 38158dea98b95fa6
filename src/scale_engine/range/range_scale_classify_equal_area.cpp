#include "scale_engine/range/range_scale_classify_equal_area.h"

#include "scale_engine/range/detail/classify.h"

#include "platform/basic/vx_histogram.h"
#include "platform/styles/vx_rng_scale.h"

#include <algorithm>
#include <utility>

namespace vx::task {
namespace {
/// Where `to` stands at the place at which `from` is `value`, on the curve of the points.
double interpolate(std::vector<Tvx_vtx_d2> const &points, double Tvx_vtx_d2::*from, double Tvx_vtx_d2::*to,
                   double value)
{
    if (points.empty())
        return 0;
    if (value < points.front().*from)
        return points.front().*to;
    auto const right =
        std::upper_bound(points.begin(), points.end(), value,
                         [from](double v, Tvx_vtx_d2 const &point) { return v < point.*from; });
    if (right == points.end() || right == points.begin()) // the latter for what is no number
        return points.back().*to;
    auto const left = right - 1;
    return *left.*to + (value - *left.*from) * (*right.*to - *left.*to) / (*right.*from - *left.*from);
}
} // namespace

void range_scale_classify_equal_area::linear_spline::append(double x, double y)
{
    Tvx_vtx_d2 point;
    vx_vtx_d2_init_xy(&point, x, y);
    f_points.push_back(point);
}

double range_scale_classify_equal_area::linear_spline::evaluate(double x) const
{
    return interpolate(f_points, &Tvx_vtx_d2::x, &Tvx_vtx_d2::y, x);
}

double range_scale_classify_equal_area::linear_spline::inverse(double y) const
{
    return interpolate(f_points, &Tvx_vtx_d2::y, &Tvx_vtx_d2::x, y);
}

range_scale_classify_equal_area::range_scale_classify_equal_area(Tvx_histogramm_data const *histogram,
                                                                 unsigned nranges, double minval,
                                                                 double maxval, int digits)
    : f_histogram(histogram), f_nranges(nranges), f_minval(minval), f_maxval(maxval), f_digits(digits)
{
    if (f_minval > f_maxval)
        std::swap(f_minval, f_maxval);
}

void range_scale_classify_equal_area::execute(void *scale) const
{
    detail::begin_classify(scale, c_rng_type_equal_area, f_digits);
    equal_area(scale);
    detail::finish_classify(scale, f_digits);
}

void range_scale_classify_equal_area::equal_area(void *scale) const
{
    unsigned const count = detail::set_range_count(scale, f_nranges);
    detail::set_span(scale, f_minval, f_maxval);
    if (count == 0 || vx_histogramm_get_size(f_histogram) == 0)
        return;
    linear_spline curve;
    make_histogram_cumulative_integral(f_histogram, curve);
    make_scale(scale, count, curve);
}

void range_scale_classify_equal_area::make_histogram_cumulative_integral(Tvx_histogramm_data const *histogram,
                                                                         linear_spline &curve)
{
    unsigned size = 0;
    double minimum = 0;
    double maximum = 1;
    vx_histogramm_get_params(histogram, &size, &minimum, &maximum);
    curve.clear();
    curve.append(minimum, 0);
    double sum = 0;
    for (unsigned bin = 0; bin < size; ++bin) {
        double const count = vx_histogramm_get(histogram, bin);
        if (count > 0) // a count that is none must not make the curve fall
            sum += count;
        curve.append(vx_histogramm_get_bnd_max(histogram, bin), sum);
    }
}

void range_scale_classify_equal_area::make_scale(void *scale, unsigned count,
                                                 linear_spline const &curve) const
{
    double const below = curve.evaluate(f_minval);
    double const share = (curve.evaluate(f_maxval) - below) / count;
    for (unsigned i = 0; i < count; ++i) {
        if (i != 0)
            vx_rng_scale_set_min(scale, i, vx_rng_scale_get_max(scale, i - 1));
        vx_rng_scale_set_max(scale, i, curve.inverse(below + (i + 1) * share));
    }
    vx_rng_scale_set_min(scale, 0, f_minval);
    vx_rng_scale_set_max(scale, count - 1, f_maxval);
}
} // namespace vx::task
