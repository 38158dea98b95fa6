#include "scale_engine/natural_breaks/range_scale_classify_natural_breaks.h"

#include "data/grid/random_sample_task.h"
#include "scale_engine/natural_breaks/detail/break_programme.h"
#include "scale_engine/natural_breaks/detail/breaks_scale.h"
#include "scale_engine/range/detail/classify.h"

#include "platform/styles/vx_rng_scale.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vx::task {
namespace {
constexpr std::uint64_t c_sample = 3000;
/// A grid of more cells is not walked for the number of its values before a sample was tried.
constexpr std::uint64_t c_large_grid = 20 * c_sample;

bool is_large_grid(vx::data::generic_datasource const &source)
{
    vx::data::vector_datasource features;
    vx::data::grid_datasource grid;
    return !features.from_generic(source) && grid.from_generic(source) && grid.obj_count() > c_large_grid;
}
} // namespace

range_scale_classify_natural_breaks::range_scale_classify_natural_breaks(std::wstring field, unsigned nranges,
                                                                         double minval, double maxval,
                                                                         int digits)
    : f_field(std::move(field)), f_nranges(nranges), f_minval(minval), f_maxval(maxval), f_digits(digits)
{
    if (f_minval > f_maxval)
        std::swap(f_minval, f_maxval);
}

void range_scale_classify_natural_breaks::execute(void *scale, vx::data::connection const &connection) const
{
    detail::begin_classify(scale, c_rng_type_natural_breaks, f_digits);
    std::vector<double> values;
    if (load_values(connection, values))
        make_scale(scale, build_breaks(values));
    detail::finish_classify(scale, f_digits);
}

void range_scale_classify_natural_breaks::execute(void *scale, std::vector<double> values) const
{
    detail::keep_within(values, f_minval, f_maxval);
    detail::begin_classify(scale, c_rng_type_natural_breaks, f_digits);
    make_scale(scale, build_breaks(values));
    detail::finish_classify(scale, f_digits);
}

bool range_scale_classify_natural_breaks::load_values(vx::data::connection const &connection,
                                                      std::vector<double> &values) const
{
    values.clear();
    vx::data::generic_datasource source;
    if (!source.open(connection, vx::data::access_read))
        return false;
    auto const field = source.field_index(f_field);
    if (field == vx::data::c_no_field)
        return true;
    // Few values are all taken, once each: drawing would take some twice and others not at all.
    bool const large_grid = is_large_grid(source);
    auto const has_few = [&] { return source.field_quantity(field) <= c_sample; };
    bool take_all = !large_grid && has_few();
    if (!take_all) {
        values = vx::data::random_sample_task(c_sample, f_minval, f_maxval).execute(source, f_field);
        take_all = large_grid && values.size() < c_sample / 2 && has_few();
    }
    if (take_all) {
        source.field_values(field, values);
        detail::keep_within(values, f_minval, f_maxval);
    }
    return true;
}

std::vector<double> range_scale_classify_natural_breaks::build_breaks(std::vector<double> &values) const
{
    std::erase_if(values, [](double value) { return !std::isfinite(value); });
    if (values.empty() || f_nranges < 2)
        return {};
    std::sort(values.begin(), values.end());
    if (f_nranges >= values.size())
        return values;
    // The squares of very large numbers are beyond all numbers. A power of two changes no digit.
    constexpr double c_most = 1e150;
    constexpr int c_power = 600;
    if (std::max(-values.front(), values.back()) <= c_most)
        return detail::find_breaks(values, f_nranges);
    std::ranges::transform(values, values.begin(), [](double value) { return std::ldexp(value, -c_power); });
    auto breaks = detail::find_breaks(values, f_nranges);
    std::ranges::transform(breaks, breaks.begin(), [](double value) { return std::ldexp(value, c_power); });
    return breaks;
}

void range_scale_classify_natural_breaks::make_scale(void *scale, std::vector<double> const &breaks) const
{
    detail::write_breaks(scale, breaks, f_minval, f_maxval);
}
} // namespace vx::task
