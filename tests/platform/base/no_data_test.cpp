#include "platform/base/matrix.h"
#include "platform/base/no_data.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <tuple>

namespace {
double const c_infinity = std::numeric_limits<double>::infinity();

/// The formula itself.
bool has_value(double cell, double no_data)
{
    return !(std::fabs(cell - no_data) <=
             std::max(0.000001, 0.00001 * std::max(std::fabs(cell), std::fabs(no_data))));
}
} // namespace

TEST(no_data_test, bounds_say_what_the_formula_says)
{
    std::vector<double> numbers{0.0,
                                -0.0,
                                -9999,
                                1e-6,
                                1e-7,
                                5e-324,
                                0.1,
                                -32768,
                                255,
                                -3.4028234663852886e38,
                                1.7976931348623157e308,
                                -1.7976931348623157e308,
                                9.2e18};
    std::mt19937_64 random(3);
    for (int i = 0; i < 20000; ++i)
        numbers.push_back(
            std::ldexp(std::uniform_real_distribution<double>(-1, 1)(random),
                       std::uniform_int_distribution<int>(i % 2 ? -1073 : -30, i % 2 ? 1024 : 30)(random)));
    for (double const no_data : numbers) {
        vx::no_data_test const test(no_data);
        ASSERT_FALSE(test.counts(no_data));
        ASSERT_TRUE(test.low() <= no_data && no_data <= test.high());
        // Both ends, what lies beside them, and other cells far and near.
        for (double const end : {test.low(), test.high()}) {
            double up = end, down = end;
            for (int step = 0; step < 5; ++step) {
                for (double const cell : {up, down})
                    ASSERT_EQ(test.counts(cell), has_value(cell, no_data)) << cell << ' ' << no_data;
                up = std::nextafter(up, c_infinity);
                down = std::nextafter(down, -c_infinity);
            }
        }
        for (double const factor : {-1.0, 0.0, 0.5, 0.99999, 0.999991, 1.000009, 1.00001, 2.0, 1e5, 1e300})
            ASSERT_EQ(test.counts(no_data * factor), has_value(no_data * factor, no_data)) << factor;
        for (double const cell : {c_infinity, -c_infinity, std::nan(""), 0.0, 1e-6, -1e-6})
            ASSERT_EQ(test.counts(cell), has_value(cell, no_data)) << cell << ' ' << no_data;
    }
}

TEST(no_data_test, no_number_and_none_at_all)
{
    for (double const no_data : {std::nan(""), c_infinity, -c_infinity}) {
        vx::no_data_test const test(no_data);
        EXPECT_TRUE(test.counts(0) && test.counts(-1e308));
        EXPECT_FALSE(test.counts(c_infinity) || test.counts(-c_infinity) || test.counts(std::nan("")));
    }
    vx::no_data_test const none;
    EXPECT_TRUE(none.counts(0) && none.counts(c_infinity) && none.counts(-c_infinity) &&
                none.counts(std::nan("")));
}

TEST(matrix, the_plane_in_space)
{
    Tvx_matrix3x3 const plane{{{2, 3, 5}, {7, 11, 13}, {0.5, 0.25, 1}}};
    Tvx_matrix4x4 space;
    vx_matrix4x4_init_matrix3x3(&space, &plane);
    auto const apply = [](auto const &m, auto const &v) {
        std::array<double, std::tuple_size_v<std::decay_t<decltype(v)>>> out{};
        for (std::size_t i = 0; i < out.size(); ++i)
            for (std::size_t j = 0; j < out.size(); ++j)
                out[i] += m.m[i][j] * v[j];
        return out;
    };
    auto const flat = apply(plane, std::array{17.0, 19.0, 1.0});
    auto const high = apply(space, std::array{17.0, 19.0, 23.0, 1.0});
    EXPECT_EQ(high, (std::array{flat[0], flat[1], 23.0, flat[2]}));
    vx_matrix4x4_init_matrix3x3(nullptr, &plane);
    vx_matrix4x4_init_matrix3x3(&space, nullptr);
}
