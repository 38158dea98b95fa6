#include "data/vector/memory_driver.h"
#include "scale_engine/natural_breaks/range_scale_classify_exact_breaks.h"
#include "scale_engine/natural_breaks/range_scale_classify_natural_breaks.h"
#include "scale_engine/scale_fixture.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <random>

namespace {
using namespace scale_fixture;
using namespace vx::task;

constexpr double c_lowest = std::numeric_limits<double>::lowest();
constexpr double c_largest = std::numeric_limits<double>::max();

/// A table of one field of numbers; opened by a callback.
struct numbers
{
    memory_driver::source source;

    explicit numbers(std::vector<memory_driver::cell> const &cells)
    {
        source.fields = {{L"x", vx::data::field_type::numeric}};
        for (auto const &cell : cells)
            source.rows.push_back({cell});
    }
    [[nodiscard]] vx::data::connection connection()
    {
        return {[](wchar_t const *, bool, void *context, t_vx_data_source_interface *result) {
                    *result = static_cast<memory_driver::source *>(context)->handle();
                },
                &source};
    }
};
vx::data::connection const c_nowhere([](wchar_t const *, bool, void *, t_vx_data_source_interface *) {},
                                     nullptr);

std::vector<memory_driver::cell> cells_of(std::vector<double> const &values)
{
    return {values.begin(), values.end()};
}

range_scale_classify_natural_breaks natural(unsigned n)
{
    return {L"x", n, -100, 100, -2};
}

TEST(natural_breaks, are_the_greatest_values_of_their_classes)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const inf = std::numeric_limits<double>::infinity();
    struct
    {
        unsigned n;
        std::vector<double> values;
        std::vector<double> breaks;
    } const cases[] = {
        {3, {22, 1, 10, 2, 12, 20, 3, 21, 11}, {3, 12}},
        {1, {1, 2, 3}, {}},
        {0, {1, 2, 3}, {}},
        {5, {}, {}},
        {5, {4, 3}, {3, 4}},
        {3, {2, 2, 2}, {2, 2, 2}},
        {2, {nan, 1, inf, 2, 50, -inf, 51}, {2}},
        {std::numeric_limits<unsigned>::max(), {2, 1}, {1, 2}},
    };
    for (auto const &c : cases) {
        auto values = c.values;
        EXPECT_EQ(c.breaks, natural(c.n).build_breaks(values)) << c.n;
        EXPECT_TRUE(c.n < 2 || std::is_sorted(values.begin(), values.end()));
    }
}

TEST(natural_breaks, divide_the_span_of_a_scale)
{
    scales s;
    numbers nine(cells_of({1, 2, 3, 10, 11, 12, 20, 21, 22}));
    // The ends of the span may come in either order; what lies outside is left out.
    range_scale_classify_natural_breaks(L"x", 3, 22.5, 0.5, 0).execute(s.rng, nine.connection());
    EXPECT_EQ((bounds_list{{1, 3}, {3, 12}, {12, 23}}), bounds_of(s.rng));
    EXPECT_EQ(c_rng_type_natural_breaks, vx_rng_scale_get_rng_type(s.rng));
    EXPECT_EQ(L"3 - 12", captions_of(s.rng)[2]);
    range_scale_classify_natural_breaks(L"x", 2, 9, 13, 0).execute(s.rng, nine.connection());
    EXPECT_EQ((bounds_list{{9, 10}, {10, 13}}), bounds_of(s.rng));
    range_scale_classify_natural_breaks(L"x", 5, 40, 50, 0).execute(s.rng, nine.connection());
    EXPECT_EQ((bounds_list{{40, 50}}), bounds_of(s.rng));
    range_scale_classify_natural_breaks(L"y", 5, 0, 1, 0).execute(s.rng, nine.connection());
    EXPECT_EQ((bounds_list{{0, 1}}), bounds_of(s.rng));
    numbers two(cells_of({4, 3}));
    range_scale_classify_natural_breaks(L"x", 5, 0, 9, 0).execute(s.rng, two.connection());
    EXPECT_EQ((bounds_list{{0, 3}, {3, 4}, {4, 9}}), bounds_of(s.rng));

    // A source that does not open: bounds stay, rounding and captions come all the same.
    fill_ranges(s.rng, {{0.26, 1.04}});
    vx_rng_scale_set_rng_type(s.rng, c_rng_type_equal_ranges);
    range_scale_classify_natural_breaks(L"x", 3, 0, 9, -1).execute(s.rng, c_nowhere);
    EXPECT_EQ((bounds_list{{0.3, 1}}), bounds_of(s.rng));
    EXPECT_EQ(c_rng_type_natural_breaks, vx_rng_scale_get_rng_type(s.rng));
    EXPECT_EQ(L"0.3 - 1.0", captions_of(s.rng)[1]);
}

TEST(natural_breaks, few_values_are_all_used_once)
{
    std::vector<memory_driver::cell> cells(6000); // every other one is null
    std::vector<double> wanted;
    for (int i = 0; i < 3000; ++i)
        wanted.push_back(i % 70);
    for (std::size_t i = 0; i < wanted.size(); ++i)
        cells[2 * i] = memory_driver::cell(wanted[i]);
    numbers table(cells);
    std::vector<double> values;
    ASSERT_TRUE(
        range_scale_classify_natural_breaks(L"x", 5, 0, 69, 0).load_values(table.connection(), values));
    EXPECT_EQ(wanted, values);
    ASSERT_TRUE(
        range_scale_classify_natural_breaks(L"x", 5, 3, 5, 0).load_values(table.connection(), values));
    std::erase_if(wanted, [](double value) { return value < 3 || value > 5; });
    EXPECT_EQ(wanted, values);
}

TEST(natural_breaks, a_sample_of_many_values_is_spread_evenly)
{
    constexpr int count = 20'000;
    constexpr int bins = 10;
    std::vector<double> all(count);
    for (int i = 0; i < count; ++i)
        all[static_cast<std::size_t>(i)] = i;
    numbers table(cells_of(all));
    std::vector<double> values;
    ASSERT_TRUE(
        range_scale_classify_natural_breaks(L"x", 5, 0, count, 0).load_values(table.connection(), values));
    // 6000 draws meet 20,000 (1 - exp(-0.3)) different values, with a deviation of 23.4; a tenth of them lie
    // in each bin, with a deviation of less than 21.7. 5.3 deviations fail less than one run in a million.
    EXPECT_NEAR(5183.6, static_cast<double>(values.size()), 5.3 * 23.4);
    std::vector<int> found(bins);
    for (double const value : values)
        ++found[static_cast<std::size_t>(value) * bins / count];
    for (int const share : found)
        EXPECT_NEAR(static_cast<double>(values.size()) / bins, share, 5.3 * 21.7);
}

/// The least cost of dividing sorted values into at most k classes, by trying everything in wide arithmetic.
long double least_cost(std::vector<double> const &x, unsigned k)
{
    auto const n = x.size();
    auto const cost = [&](std::size_t a, std::size_t b) {
        long double sum = 0;
        for (auto i = a; i < b; ++i)
            sum += x[i];
        long double const mean = sum / static_cast<long double>(b - a);
        long double squares = 0;
        for (auto i = a; i < b; ++i)
            squares += (x[i] - mean) * (x[i] - mean);
        return squares;
    };
    std::vector<long double> best(n + 1);
    for (std::size_t b = 1; b <= n; ++b)
        best[b] = cost(0, b);
    for (unsigned j = 2; j <= k; ++j) {
        auto next = best;
        for (std::size_t b = 1; b <= n; ++b)
            for (std::size_t a = 1; a < b; ++a)
                next[b] = std::min(next[b], best[a] + cost(a, b));
        best = next;
    }
    return best[n];
}

/// The cost of the classes that breaks make of sorted values.
long double cost_of(std::vector<double> const &x, std::vector<double> const &breaks)
{
    long double total = 0;
    auto from = x.begin();
    for (std::size_t i = 0; i <= breaks.size(); ++i) {
        auto const to = i < breaks.size() ? std::upper_bound(from, x.end(), breaks[i]) : x.end();
        total += least_cost({from, to}, 1);
        from = to;
    }
    return total;
}

TEST(exact_breaks, have_the_least_cost)
{
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i) {
        auto const k = static_cast<unsigned>(2 + i % 5);
        std::vector<double> values(10 + static_cast<std::size_t>(i) % 30);
        for (auto &value : values)
            value = i % 3 == 0 ? random() % 12 : i % 3 == 1 ? random() % 100'000 * 1e-3 : random() % 50 + 1e9;
        range_scale_classify_exact_breaks task(L"x", k, c_lowest, c_largest, 0);
        std::vector<double> breaks;
        ASSERT_TRUE(task.build_breaks(values, breaks));
        std::sort(values.begin(), values.end());
        auto const total = static_cast<double>(least_cost(values, 1));
        auto const least = static_cast<double>(least_cost(values, k));
        EXPECT_NEAR(least, static_cast<double>(cost_of(values, breaks)), 1e-12 * total) << i;
        EXPECT_NEAR(1 - least / total, task.goodness_of_fit(), 1e-9) << i;
    }
}

TEST(exact_breaks, of_special_values)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    struct
    {
        unsigned n;
        std::vector<double> values;
        std::vector<double> breaks;
        double fit;
    } const cases[] = {
        {3, {22, 1, 10, 2, 12, 20, 3, 21, 11}, {3, 12}, 1 - 6 / 548.0},
        {2, {}, {}, 1},
        {2, {5, 5, 5}, {}, 1},
        {1, {1, 2}, {}, 0},
        {5, {1, 2, 2, nan, 3}, {1, 2}, 1},
        {2, {c_lowest, c_lowest, c_largest}, {c_lowest}, 1},
        {2, {0, 5e-324, 1e-3}, {5e-324}, 1},
        {2, {-0.0, 0.0, 1, 1.25}, {0.0}, 1 - 0.03125 / 1.296875},
    };
    for (auto const &c : cases) {
        range_scale_classify_exact_breaks task(L"x", c.n, c_lowest, c_largest, 0);
        auto values = c.values;
        std::vector<double> breaks{9};
        ASSERT_TRUE(task.build_breaks(values, breaks));
        EXPECT_EQ(c.breaks, breaks);
        EXPECT_NEAR(c.fit, task.goodness_of_fit(), 1e-12);
    }
}

TEST(exact_breaks, can_be_cancelled_and_refuse_what_no_memory_holds)
{
    std::vector<double> many(300'000);
    std::iota(many.begin(), many.end(), 0.0);
    std::shuffle(many.begin(), many.end(), std::mt19937(1));
    std::vector<double> breaks;
    range_scale_classify_exact_breaks large(L"x", 1000, c_lowest, c_largest, 0);
    EXPECT_FALSE(large.build_breaks(many, breaks));

    struct
    {
        int asked = 0;
        int most = 0;
        bool ask() { return ++asked > most; }
    } user;
    range_scale_classify_exact_breaks task(L"x", 4, c_lowest, c_largest, 0);
    user.most = 1'000'000;
    task.on_cancel = closure<bool()>::bind<&decltype(user)::ask>(&user);
    EXPECT_TRUE(task.build_breaks(many, breaks));
    EXPECT_EQ((std::vector<double>{74'999, 149'999, 224'999}), breaks);
    int const asked = user.asked;
    EXPECT_GT(asked, 5);
    for (int const most : {0, 2, asked - 1}) {
        user = {0, most};
        EXPECT_FALSE(task.build_breaks(many, breaks)) << most;
        EXPECT_EQ(most + 1, user.asked);
    }
}

TEST(exact_breaks, divide_the_span_of_a_scale)
{
    scales s;
    numbers table(cells_of({1, 2, 3, 10, 11, 12, 20, 21, 22, 90}));
    range_scale_classify_exact_breaks task(L"x", 3, 22, 1, 0);
    ASSERT_TRUE(task.execute(s.rng, table.connection()));
    EXPECT_EQ((bounds_list{{1, 3}, {3, 12}, {12, 22}}), bounds_of(s.rng));
    EXPECT_NEAR(1 - 6 / 548.0, task.goodness_of_fit(), 1e-12);
    EXPECT_FALSE(range_scale_classify_exact_breaks(L"y", 2, 1, 22, 0).execute(s.rng, table.connection()));
    EXPECT_FALSE(range_scale_classify_exact_breaks(L"x", 2, 1, 22, 0).execute(s.rng, c_nowhere));
    EXPECT_EQ(3U, vx_rng_scale_get_size(s.rng));
}
} // namespace
