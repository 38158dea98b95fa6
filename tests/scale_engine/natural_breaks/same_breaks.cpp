#include "scale_engine/natural_breaks/detail/break_programme.h"
#include "scale_engine/natural_breaks/plain_breaks.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

/// The breaks of both roads against those of the plain programme, bit for bit.
namespace {
using namespace vx::task::detail;

bool same_bits(std::vector<double> const &a, std::vector<double> const &b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

/// Few distinct values, ties, symmetric ones, wide spans, offsets, whole numbers, denormals.
std::vector<double> make_values(int kind, std::size_t count, std::mt19937 &random)
{
    auto const uniform = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    auto const below = [&](int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random); };
    double const offset = std::pow(10.0, uniform(-3, 12)) * (below(2) ? 1 : -1);
    double const scale = std::pow(10.0, uniform(-3, 3));
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i)
        switch (kind) {
        case 0:
            values[i] = uniform(0, 1000);
            break;
        case 1:
            values[i] = below(5);
            break;
        case 2:
            values[i] = offset + scale * below(4);
            break;
        case 3:
            values[i] = (i % 2 ? 1 : -1) * static_cast<double>(i / 2) * scale;
            break;
        case 4:
            values[i] = std::pow(10.0, uniform(-150, 150)) * (below(2) ? 1 : -1);
            break;
        case 5:
            values[i] = offset + uniform(0, 1);
            break;
        case 6:
            values[i] = below(100) * 0.1;
            break;
        case 7:
            values[i] = i < count / 2 ? 7 : uniform(7, 8);
            break;
        case 8:
            values[i] = below(1000) * 5e-324;
            break;
        default:
            values[i] = std::normal_distribution<double>(offset, scale)(random);
            break;
        }
    std::sort(values.begin(), values.end());
    return values;
}

TEST(same_breaks, of_100000_small_inputs)
{
    std::mt19937 random(20);
    int quick = 0;
    for (int i = 0; i < 100'000; ++i) {
        std::size_t const count = i % 1000 == 0 ? 150 : 3 + random() % 22;
        auto const k = static_cast<unsigned>(2 + random() % std::min<std::size_t>(count - 2, 9));
        auto const values = make_values(i % 10, count, random);
        auto const plain = plain_breaks(values, k);
        ASSERT_TRUE(same_bits(plain, find_breaks_surely(values, k))) << i;
        auto const found = find_breaks_quickly(values, k);
        quick += found.has_value();
        ASSERT_TRUE(!found || same_bits(plain, *found)) << i;
    }
    EXPECT_GT(quick, 40'000);
    EXPECT_LT(quick, 90'000);
}

TEST(same_breaks, of_whole_samples)
{
    std::mt19937 random(7);
    for (int const kind : {0, 6, 9}) {
        auto const values = make_values(kind, 700, random);
        for (unsigned const k : {2U, 5U, 10U, 60U}) {
            auto const plain = plain_breaks(values, k);
            EXPECT_TRUE(same_bits(plain, find_breaks(values, k))) << kind << ' ' << k;
            EXPECT_TRUE(same_bits(plain, find_breaks_surely(values, k))) << kind << ' ' << k;
        }
    }
    // Values that differ are told apart without the long way.
    std::vector<double> values(3000);
    for (auto &value : values)
        value = std::uniform_real_distribution<double>(0, 1000)(random);
    std::sort(values.begin(), values.end());
    EXPECT_TRUE(find_breaks_quickly(values, 10).has_value());
}

TEST(same_breaks, squares_that_overflow_are_survived)
{
    std::vector<double> values(20);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = 1e300 * static_cast<double>(i + 1);
    EXPECT_FALSE(find_breaks_quickly(values, 4).has_value());
    for (double const value : find_breaks(values, 4))
        EXPECT_TRUE(std::isfinite(value));
}
} // namespace
