#include "block_driver.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace vx::data;

namespace {
double const c_nan = std::numeric_limits<double>::quiet_NaN();
double const c_infinity = std::numeric_limits<double>::infinity();

/// A grid of one row whose driver knows no statistics.
struct row
{
    row(std::vector<double> const &cells, std::optional<double> nodata = std::nullopt,
        unsigned long long across = 3)
        : driver(static_cast<int>(cells.size()), 1, across, 1)
    {
        add(cells, nodata);
        EXPECT_TRUE(grid.from_handle(driver.handle()));
    }
    void add(std::vector<double> const &cells, std::optional<double> nodata = std::nullopt)
    {
        driver.fields.push_back(block_driver::make_field(data_type::float64, cells, nodata));
    }
    block_driver::source driver;
    grid_datasource grid;
};
} // namespace

TEST(grid_statistics, what_counts)
{
    struct
    {
        char const *what;
        std::vector<double> cells;
        std::optional<double> nodata;
        double minimum, maximum, average, stdev;
        std::uint64_t quantity;
    } const cases[] = {
        {"all cells", {1, 2, 3, 6}, std::nullopt, 1, 6, 3, std::sqrt(14.0 / 3), 4},
        {"a number for no value", {1, -9999, 3, -9999.00000001}, -9999, 1, 3, 2, std::sqrt(2.0), 2},
        {"near zero", {0.0000009, 0.0000011, 2}, 0, 0.0000011, 2, 1.00000055, std::sqrt(2.0) * 0.99999945, 2},
        {"infinities beside a finite number",
         {1, c_infinity, 3, -c_infinity},
         -9999,
         1,
         3,
         2,
         std::sqrt(2.0),
         2},
        {"no number means no value", {1, c_nan, 3, c_infinity}, c_nan, 1, 3, 2, std::sqrt(2.0), 2},
        {"what is no number spoils the average", {1, c_nan, 3}, std::nullopt, 1, 3, c_nan, c_nan, 3},
        {"nothing but that", {c_nan, c_nan}, std::nullopt, 0, 0, c_nan, c_nan, 2},
        {"no values", {-9999, -9999}, -9999, 0, 0, 0, 0, 0},
        {"one value", {-9999, 5}, -9999, 5, 5, 5, 0, 1},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.what);
        row r(c.cells, c.nodata);
        auto const same = [](double a, double b) {
            return std::isnan(b) ? std::isnan(a) : std::fabs(a - b) <= 1e-12 * std::max(1.0, std::fabs(b));
        };
        EXPECT_EQ(r.grid.field_minimum(0), c.minimum);
        EXPECT_EQ(r.grid.field_maximum(0), c.maximum);
        EXPECT_PRED2(same, r.grid.field_average(0), c.average);
        EXPECT_EQ(r.grid.field_quantity(0), c.quantity);
        int const reads = r.driver.total_reads;
        EXPECT_PRED2(same, r.grid.field_stdev(0), c.stdev);
        EXPECT_EQ(r.driver.total_reads, 2 * reads) << "one walk more, no matter what was asked before";
    }
    // A source of unknown kind has its cells walked as well.
    row r({1, 2, 3, 6});
    generic_datasource generic;
    ASSERT_TRUE(generic.from_handle(r.driver.handle()));
    EXPECT_EQ(generic.field_maximum(0), 6);
    EXPECT_EQ(generic.field_distinct(0), 4u);
    std::vector<std::wstring> texts;
    EXPECT_TRUE(generic.field_values(0, texts));
    EXPECT_EQ(texts, (std::vector<std::wstring>{L"1", L"2", L"3", L"6"}));
    EXPECT_EQ(r.driver.alive, 0);
}

TEST(grid_statistics, values_and_different_values)
{
    row r({0.1, -0.0, c_nan, 0.0, 5e-324, -1, 1e300, -9999, 0.1}, -9999);
    std::vector<double> values{42};
    EXPECT_TRUE(r.grid.field_values(0, values));
    EXPECT_EQ(values.size(), 9u) << "behind what the list held";
    std::set<double> numbers;
    EXPECT_TRUE(r.grid.field_unique_values(0, c_no_limit, numbers));
    EXPECT_EQ(numbers, (std::set<double>{-1, 0, 5e-324, 0.1, 1e300}));
    EXPECT_FALSE(std::signbit(*numbers.find(0))) << "the two zeros are one number";
    std::set<std::wstring> texts;
    EXPECT_TRUE(r.grid.field_unique_values(0, c_no_limit, texts));
    EXPECT_EQ(texts, (std::set<std::wstring>{L"-1", L"0", L"4.94065645841247e-324", L"0.1", L"1e+300"}));
    EXPECT_EQ(r.grid.field_distinct(0), 5u);
    // The limit is looked at after each block of three.
    for (std::uint64_t const limit : {0, 1, 2}) {
        numbers.clear();
        EXPECT_TRUE(r.grid.field_unique_values(0, limit, numbers));
        EXPECT_EQ(numbers, (std::set<double>{0, 0.1})) << limit;
    }
    EXPECT_FALSE(r.grid.field_unique_values(1, c_no_limit, numbers)) << "no such field";
}

TEST(grid_statistics, keys_with_what_stands_beside_them)
{
    row r({2, 1, 2, 3, 0, 4}, 0);
    r.add({10, c_nan, 30, 50, 60, -1}, -1);
    r.add({7, 8, 9, -1, 5, -1}, -1);
    std::map<std::wstring, std::vector<std::wstring>> found;
    EXPECT_TRUE(r.grid.field_unique_values(0, {1, c_no_field, 2, 1}, c_no_limit, found));
    EXPECT_EQ(found, (std::map<std::wstring, std::vector<std::wstring>>{
                         {L"2", {L"10", L"7", L"10"}}, {L"1", {L"8"}}, {L"3", {L"50", L"50"}}}))
        << "a key with nothing beside it is left out";
    found.clear();
    EXPECT_TRUE(r.grid.field_unique_values(0, {1}, 1, found));
    EXPECT_EQ(found.size(), 1u);
    EXPECT_FALSE(r.grid.field_unique_values(0, {9}, c_no_limit, found));
    EXPECT_FALSE(r.grid.field_unique_values(c_no_field, {1}, c_no_limit, found));
    EXPECT_EQ(r.driver.alive, 0);
}

TEST(grid_statistics, a_driver_that_fails_at_a_block)
{
    std::vector<double> cells{1, 2, 3, 4, 5, 6, 7, 8, 9};
    for (int const failing : {0, 1, 2}) {
        row r(cells);
        r.driver.fails_at = failing;
        std::vector<double> values;
        EXPECT_TRUE(r.grid.field_values(0, values));
        EXPECT_EQ(values, std::vector<double>(cells.begin(), cells.begin() + 3 * failing))
            << "up to that block";
        r.driver.fails_at = r.driver.total_reads + failing;
        std::set<double> numbers;
        EXPECT_FALSE(r.grid.field_unique_values(0, c_no_limit, numbers));
        EXPECT_EQ(numbers.size(), static_cast<std::size_t>(3 * failing));
        r.driver.fails_at = r.driver.total_reads + failing;
        statistic stat;
        EXPECT_FALSE(r.grid.compute_stat_distinct(0, stat) || stat.distinct_done);
        r.driver.fails_at = r.driver.total_reads + failing;
        EXPECT_EQ(r.grid.field_maximum(0), 3 * failing);
    }
    // Blocks without cells, and blocks that no memory holds: the entry stays as it was made.
    for (auto const &[across, down] : {std::pair{0ULL, 1ULL}, std::pair{~0ULL, 16ULL}}) {
        row r(cells);
        r.driver.across = across;
        r.driver.down = down;
        statistic stat;
        EXPECT_FALSE(r.grid.compute_stat_common(0, stat) || stat.common_done);
        std::vector<double> values;
        EXPECT_FALSE(r.grid.field_values(0, values));
    }
}

TEST(grid_statistics, closed_and_foreign_sources)
{
    grid_datasource none;
    EXPECT_EQ(none.spacing(), (grid_spacing{1, 1, 1}));
    EXPECT_EQ(none.origin(), grid_origin{});
    EXPECT_EQ(none.obj_count(), 0u);
    EXPECT_EQ(none.create_field(L"x", data_type::uint8), c_no_field);
    EXPECT_EQ(none.field_index(3), c_no_field);
    grid_block block;
    EXPECT_FALSE(none.fetch_block(0, block) || none.fetch_index(block) || none.set_azimuth(3));
    class tables final : public vx::data_source_impl
    {
    } foreign;
    EXPECT_FALSE(none.from_handle(foreign));
    EXPECT_FALSE(none.is_open()) << "nothing was taken";

    row r({1, 2, 3});
    r.driver.columns = -3;
    EXPECT_EQ(r.grid.dimensions(), grid_dims{}) << "a driver that counts below zero";
    EXPECT_EQ(r.grid.field_quantity(0), 0u);
}
