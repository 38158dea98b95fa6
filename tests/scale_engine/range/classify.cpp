#include "scale_engine/scale_fixture.h"
#include "scale_engine/vxk_task.h"

#include "platform/basic/vx_stat.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>

namespace {
using namespace scale_fixture;
using namespace vx::task;
using owned_stat = vx::owned<Tvx_stat_data, &vx_stat_destroy>;
using owned_histogram = vx::owned<Tvx_histogramm_data, &vx_histogramm_destroy>;

constexpr int c_no_rounding = -30;
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_inf = std::numeric_limits<double>::infinity();
constexpr double c_max = std::numeric_limits<double>::max();
constexpr double c_tiny = std::numeric_limits<double>::denorm_min();

owned_stat make_stat(double minimum, double maximum, double average = 0, double stddev = 0)
{
    owned_stat stat(vx_stat_create());
    vx_stat_set_minimum(stat.get(), minimum);
    vx_stat_set_maximum(stat.get(), maximum);
    vx_stat_set_average(stat.get(), average);
    vx_stat_set_stddev(stat.get(), stddev);
    return stat;
}

owned_histogram make_histogram(double minimum, double maximum, std::vector<double> const &counts)
{
    owned_histogram histogram(vx_histogramm_create());
    vx_histogramm_set_params(histogram.get(), static_cast<unsigned>(counts.size()), minimum, maximum);
    for (unsigned i = 0; i < counts.size(); ++i)
        vx_histogramm_set(histogram.get(), i, counts[i]);
    return histogram;
}

/// Inner bounds that follow each other, from the first lower to the last upper one.
std::vector<double> edges(void const *scale)
{
    std::vector<double> out;
    double upper = c_nan;
    for (auto const &[lower, next] : bounds_of(scale)) {
        if (out.empty())
            out.push_back(lower);
        else
            EXPECT_EQ(upper, lower);
        out.push_back(upper = next);
    }
    return out;
}

void expect_near(std::vector<double> const &wanted, std::vector<double> const &found)
{
    ASSERT_EQ(wanted.size(), found.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_NEAR(wanted[i], found[i], 1e-12 * (1 + std::abs(wanted[i]))) << i;
}

TEST(equal_ranges, divide_the_span)
{
    scales s;
    struct
    {
        unsigned n;
        double minimum, maximum;
        int digits;
        bounds_list bounds;
        std::pair<double, double> span;
    } const cases[] = {
        {4, 0, 10, -2, {{0, 2.5}, {2.5, 5}, {5, 7.5}, {7.5, 10}}, {0, 10}},
        {3, 0, 1, -2, {{0, 0.33}, {0.33, 0.67}, {0.67, 1}}, {0, 1}},
        {2, 10, 0, -2, {{10, 5}, {5, 0}}, {10, 0}},
        {2, 7, 7, 0, {{7, 7}, {7, 7}}, {7, 7}},
        {0, 2, 3, 0, {{2, 3}}, {2, 3}},
        {2, -c_max, c_max, c_no_rounding, {{-c_max, -c_max}, {-c_max, -c_max}}, {-c_max, -c_max}},
        {2, 1, c_inf, c_no_rounding, {{1, 1}, {1, 1}}, {1, 1}},
        {2, 0, c_tiny, c_no_rounding, {{0, 0}, {0, 0}}, {0, 0}},
    };
    for (auto const &c : cases) {
        range_scale_classify_equal_ranges(c.n, c.minimum, c.maximum, c.digits).execute(s.rng);
        EXPECT_EQ(c.bounds, bounds_of(s.rng));
        EXPECT_EQ(c.span, span_of(s.rng));
        EXPECT_EQ(c.digits, vx_rng_scale_get_round_digits(s.rng));
        EXPECT_EQ(c_rng_type_equal_ranges, vx_rng_scale_get_rng_type(s.rng));
    }
    range_scale_classify_equal_ranges(2, 0, 1, -1).execute(s.rng);
    EXPECT_EQ((text_list{L"up to 0.0", L"0.0 - 0.5", L"0.5 - 1.0", L"above 1.0"}), captions_of(s.rng));
    // Each bound is made from its own number, so that none carries the error of those before it.
    range_scale_classify_equal_ranges(1000, 0, 1, c_no_rounding).execute(s.rng);
    auto const found = bounds_of(s.rng);
    for (unsigned i = 0; i < 1000; ++i)
        EXPECT_EQ(found[i], std::pair(i * (1.0 / 1000), (i + 1) * (1.0 / 1000)));
}

TEST(stdev, lies_round_the_mean)
{
    scales s;
    auto const stat = make_stat(0, 0, 10, 2);
    range_scale_classify_stdev(stat.get(), 4, 0.5, -2).execute(s.rng);
    EXPECT_EQ((bounds_list{{9, 9.5}, {9.5, 10}, {10, 10.5}, {10.5, 11}}), bounds_of(s.rng));
    EXPECT_EQ(0.5, vx_rng_scale_get_deviation_coeff(s.rng));
    EXPECT_EQ(c_rng_type_stdev, vx_rng_scale_get_rng_type(s.rng));
    range_scale_classify_stdev(stat.get(), 0, 3, -2).execute(s.rng);
    EXPECT_EQ(bounds_list{}, bounds_of(s.rng));
    EXPECT_EQ(std::pair(10.0, 10.0), span_of(s.rng));
    range_scale_classify_stdev(make_stat(0, 0, 5, 0).get(), 2, 3, -2).execute(s.rng);
    EXPECT_EQ((bounds_list{{5, 5}, {5, 5}}), bounds_of(s.rng));
}

TEST(stdev, guesses_the_coefficient_from_the_span)
{
    scales s;
    struct
    {
        double ratio;
        int index;
    } const cases[] = {{0, 1},    {0.24, 1}, {0.25, 0}, {0.74, 0}, {0.75, 1}, {1.49, 1},  {1.5, 2},
                       {2.49, 2}, {2.5, 3},  {3.49, 3}, {3.5, 1},  {100, 1},  {c_nan, 1}, {-1, 1}};
    for (auto const &c : cases) {
        vx_rng_scale_set_min_value(s.rng, 0);
        vx_rng_scale_set_max_value(s.rng, c.ratio * 4);
        EXPECT_EQ(c.index, range_scale_classify_stdev::estimate_factor(s.rng, 2.0)) << c.ratio;
    }
    vx_rng_scale_set_max_value(s.rng, 8);
    EXPECT_EQ(1, range_scale_classify_stdev::estimate_factor(s.rng, 0.0));
    EXPECT_EQ(2, range_scale_classify_stdev::estimate_factor(s.rng, make_stat(0, 0, 0, 2).get()));
    owned_stat const unknown(vx_stat_create());
    EXPECT_EQ(1, range_scale_classify_stdev::estimate_factor(s.rng, unknown.get()));
}

TEST(log, goes_by_1_2_5)
{
    scales s;
    struct
    {
        double minimum, maximum;
        int base;
        bool two_sided;
        int digits;
        std::vector<double> edges;
    } const cases[] = {
        {0, 30, 1, false, 0, {0, 2, 5, 10, 20, 50}},
        {0, 1, 0, false, 0, {0, 1}},
        {0, -5, 0, false, 0, {0, 1}},
        {0, 1, 2, false, 0, {0, 5}},
        {-3, 2, 0, true, 0, {-5, -2, -1, 1, 2}},
        {1, 1, 2, true, -1, {-0.5, 0.5, 1}},
        {-1, 5, 2, true, 0, {-5, 5}},
        {0, 0.1, 0, false, -2, {0, 0.01, 0.02, 0.05, 0.1}},
        {0, 700, 2, false, 2, {0, 500, 1000}},
        {0, 1, 7, false, 0, {0, 5}},
        {0, c_nan, 0, false, 0, {0, 1}},
    };
    for (auto const &c : cases) {
        auto const stat = make_stat(c.minimum, c.maximum);
        range_scale_classify_log(stat.get(), c.base, c.two_sided, c.digits).execute(s.rng);
        EXPECT_EQ(c.edges, edges(s.rng)) << c.maximum << ' ' << c.digits;
        EXPECT_EQ(std::pair(c.edges.front(), c.edges.back()), span_of(s.rng));
        EXPECT_EQ(c_rng_type_log, vx_rng_scale_get_rng_type(s.rng));
        EXPECT_EQ(c.edges.size() + 1, static_cast<std::size_t>(range_scale_classify_log::estimate_nranges(
                                          stat.get(), c.base, c.two_sided, c.digits)));
    }
    // Ends whatever it is given.
    for (double const maximum : {c_inf, c_max, 0.0})
        for (int const digits :
             {std::numeric_limits<int>::min(), c_no_rounding, std::numeric_limits<int>::max()})
            EXPECT_LT(range_scale_classify_log::estimate_nranges(make_stat(-maximum, maximum).get(), 0, true,
                                                                 digits),
                      4100);
}

TEST(log_space, has_equal_steps_of_the_logarithm)
{
    scales s;
    range_scale_classify_log_space(2, 5, -5, c_no_rounding).execute(s.rng);
    expect_near({-5, std::exp(std::log(11) / 2) - 6, 5}, edges(s.rng));
    range_scale_classify_log_space(3, 1, 1000, -2).execute(s.rng);
    EXPECT_EQ((std::vector<double>{1, 10, 100, 1000}), edges(s.rng));
    EXPECT_EQ(c_rng_type_log_space, vx_rng_scale_get_rng_type(s.rng));
    range_scale_classify_log_space(0, 1, 1000, -2).execute(s.rng);
    EXPECT_EQ(bounds_list{}, bounds_of(s.rng));
    EXPECT_EQ(std::pair(0.0, 0.0), span_of(s.rng));

    // By the formula with its shift, in wide arithmetic.
    struct
    {
        double minimum, maximum;
    } const spans[] = {{0.001, 7}, {-3, 1e6}, {0, 1}, {-1e17, 1e17}, {3, 3}, {-2.5, -1.25}};
    for (auto const &[minimum, maximum] : spans) {
        constexpr unsigned n = 7;
        long double const shift = minimum <= 0 ? 1 - static_cast<long double>(minimum) : 0;
        long double const a = std::log(minimum + shift);
        long double const d = (std::log(maximum + shift) - a) / n;
        std::vector<double> wanted;
        for (unsigned i = 0; i <= n; ++i)
            wanted.push_back(static_cast<double>(std::exp(i * d + a) - shift));
        range_scale_classify_log_space(n, minimum, maximum, c_no_rounding).execute(s.rng);
        expect_near(wanted, edges(s.rng));
        // The least and the greatest value fall in a row of their own right.
        EXPECT_EQ(minimum, edges(s.rng).front());
        EXPECT_EQ(maximum, edges(s.rng).back());
    }
    for (double const wild : {c_nan, c_inf, -c_inf, c_max}) {
        range_scale_classify_log_space(3, -wild, wild, -2).execute(s.rng);
        EXPECT_EQ(3U, vx_rng_scale_get_size(s.rng));
    }
}

TEST(equal_area, shares_the_counts)
{
    scales s;
    auto const flat = make_histogram(0, 10, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
    range_scale_classify_equal_area(flat.get(), 4, 10, 0, -2).execute(s.rng);
    EXPECT_EQ((std::vector<double>{0, 2.5, 5, 7.5, 10}), edges(s.rng));
    EXPECT_EQ(c_rng_type_equal_area, vx_rng_scale_get_rng_type(s.rng));
    // All in one bin: bounds lie evenly inside it.
    range_scale_classify_equal_area(make_histogram(0, 10, {0, 0, 8, 0, 0}).get(), 4, 0, 10, -2)
        .execute(s.rng);
    EXPECT_EQ((std::vector<double>{0, 4.5, 5, 5.5, 10}), edges(s.rng));
    // Part of the histogram, and a bound where the curve begins to rise again.
    range_scale_classify_equal_area(make_histogram(0, 4, {2, 0, 0, 2}).get(), 2, 0, 4, -2).execute(s.rng);
    EXPECT_EQ((std::vector<double>{0, 3, 4}), edges(s.rng));
    range_scale_classify_equal_area(flat.get(), 2, 4, 8, -2).execute(s.rng);
    EXPECT_EQ((std::vector<double>{4, 6, 8}), edges(s.rng));
    // Empty and no histogram: number and span alone.
    auto const empty = make_histogram(0, 1, {});
    for (Tvx_histogramm_data const *none : {empty.get(), decltype(empty.get()){}}) {
        fill_ranges(s.rng, {{1, 2}, {2, 3}});
        range_scale_classify_equal_area(none, 3, 7, 9, -2).execute(s.rng);
        EXPECT_EQ((bounds_list{{1, 2}, {2, 3}, {0, 0}}), bounds_of(s.rng));
        EXPECT_EQ(std::pair(7.0, 9.0), span_of(s.rng));
    }
    range_scale_classify_equal_area(flat.get(), 0, 7, 9, -2).execute(s.rng);
    EXPECT_EQ(0U, vx_rng_scale_get_size(s.rng));
    // Counts that are none.
    range_scale_classify_equal_area(make_histogram(0, 4, {2, c_nan, -7, 2}).get(), 2, 0, 4, -2)
        .execute(s.rng);
    EXPECT_EQ((std::vector<double>{0, 3, 4}), edges(s.rng));
}

TEST(equal_area, bounds_hold_the_same_share_of_any_histogram)
{
    std::vector<double> counts;
    unsigned state = 1;
    for (int i = 0; i < 50; ++i)
        counts.push_back((state = state * 1664525 + 1013904223) >> 24);
    auto const histogram = make_histogram(-3, 22, counts);
    scales s;
    range_scale_classify_equal_area(histogram.get(), 6, -3, 22, c_no_rounding).execute(s.rng);
    double const total = std::accumulate(counts.begin(), counts.end(), 0.0);
    for (auto const &[lower, upper] : bounds_of(s.rng)) {
        double share = 0;
        for (std::size_t i = 0; i < counts.size(); ++i) { // what of each bin lies in the range
            double const left = -3 + 0.5 * static_cast<double>(i);
            share += counts[i] * std::max(0.0, std::min(upper, left + 0.5) - std::max(lower, left)) / 0.5;
        }
        EXPECT_NEAR(total / 6, share, 1e-9 * total);
    }
    range_scale_classify_equal_area::linear_spline curve;
    EXPECT_EQ(0, curve.evaluate(1));
    range_scale_classify_equal_area::make_histogram_cumulative_integral(histogram.get(), curve);
    EXPECT_EQ(51U, curve.points().size());
    EXPECT_EQ(0, curve.evaluate(-100));
    EXPECT_EQ(total, curve.evaluate(22));
    EXPECT_EQ(-3, curve.inverse(-1));
    EXPECT_EQ(22, curve.inverse(total));
}
} // namespace
