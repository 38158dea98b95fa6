#include "block_driver.h"
#include "data/grid/grid_io.h"
#include "data/grid/grid_iterator.h"

#include <gtest/gtest.h>
#include <numeric>
#include <random>

using namespace vx::data;

namespace {
constexpr int c_columns = 13;
constexpr int c_rows = 11;
constexpr auto c_cells = std::uint64_t{c_columns} * c_rows;

/// Cell n holds 3 n + 1.
std::vector<std::int32_t> numbered()
{
    std::vector<std::int32_t> cells(c_cells);
    for (std::size_t i = 0; i < cells.size(); ++i)
        cells[i] = static_cast<std::int32_t>(3 * i + 1);
    return cells;
}

struct opened
{
    opened(unsigned long long across, unsigned long long down) : driver(c_columns, c_rows, across, down)
    {
        driver.fields.push_back(block_driver::make_field(data_type::int32, numbered()));
        EXPECT_TRUE(grid.from_handle(driver.handle()) && grid.fetch_block(0, block));
    }
    block_driver::source driver;
    grid_datasource grid;
    grid_block block;
};

constexpr std::pair<unsigned long long, unsigned long long> c_shapes[] = {
    {c_columns, 1}, {c_columns, 3}, {c_columns, c_rows}, {4, 4}, {7, 5}, {1, 1}, {3, c_rows}, {64, 64}};
} // namespace

TEST(assembling, lines_over_the_ends_of_rows_and_blocks)
{
    auto const expected = numbered();
    for (auto const &[across, down] : c_shapes) {
        SCOPED_TRACE(std::to_string(across) + " by " + std::to_string(down));
        opened o(across, down);
        for (std::uint64_t offset = 0; offset < c_cells; ++offset)
            for (std::uint64_t count = 1; count <= c_cells - offset; count += 1 + count / 3) {
                std::vector<std::int32_t> line(count + 1, -7);
                o.driver.reads.clear();
                ASSERT_EQ(o.block.read(offset, count, line.data(), data_type::int32),
                          (result_type{read_done, count}));
                ASSERT_TRUE(std::equal(line.begin(), line.end() - 1,
                                       expected.begin() + static_cast<std::ptrdiff_t>(offset)))
                    << offset << ' ' << count;
                ASSERT_EQ(line.back(), -7) << "nothing is written behind the line";
                for (auto const &[where, times] : o.driver.reads)
                    ASSERT_EQ(times, 1);
            }
    }
}

TEST(assembling, windows_with_strides_and_conversion)
{
    auto const expected = numbered();
    std::mt19937 random(5);
    auto const draw = [&](int low, int high) {
        return static_cast<std::uint64_t>(std::uniform_int_distribution<int>(low, high)(random));
    };
    for (auto const &[across, down] : c_shapes) {
        SCOPED_TRACE(std::to_string(across) + " by " + std::to_string(down));
        opened o(across, down);
        for (int round = 0; round < 200; ++round) {
            data_size const size{draw(1, c_columns), draw(1, c_rows)};
            data_offset const offset{draw(0, c_columns - static_cast<int>(size.x)),
                                     draw(0, c_rows - static_cast<int>(size.y))};
            std::int64_t const pixel = round % 3; // 0 is dense
            std::int64_t const step = std::max<std::int64_t>(pixel, 1);
            std::int64_t const line = round % 2 ? 0 : step * static_cast<std::int64_t>(size.x) + round % 5;
            std::int64_t const row = line ? line : step * static_cast<std::int64_t>(size.x);
            bool const is_converted = round % 7 < 3;
            std::vector<std::int32_t> same(4000, -7);
            std::vector<std::int16_t> shorter(4000, -7);
            o.driver.reads.clear();
            ASSERT_EQ(o.block.read2d(offset, size,
                                     is_converted ? static_cast<void *>(shorter.data()) : same.data(), size,
                                     is_converted ? data_type::int16 : data_type::int32, {pixel, line}),
                      (result_type{read_done, size.x * size.y}));
            std::vector<std::int32_t> wanted(4000, -7);
            for (std::uint64_t j = 0; j < size.y; ++j)
                for (std::uint64_t i = 0; i < size.x; ++i)
                    wanted[static_cast<std::size_t>(row) * j + static_cast<std::size_t>(step) * i] =
                        expected[(offset.y + j) * c_columns + offset.x + i];
            if (is_converted)
                ASSERT_TRUE(std::equal(wanted.begin(), wanted.end(), shorter.begin())) << round;
            else
                ASSERT_EQ(same, wanted) << round;
            for (auto const &[where, times] : o.driver.reads)
                ASSERT_EQ(times, 1);
        }
    }
}

TEST(assembling, the_nearest_cell_where_sizes_differ)
{
    block_driver::source driver(100, 2, 16, 2);
    std::vector<double> cells(200);
    std::iota(cells.begin(), cells.end(), 0);
    driver.fields.push_back(block_driver::make_field(data_type::float64, cells));
    grid_datasource grid;
    grid_block block;
    ASSERT_TRUE(grid.from_handle(driver.handle()) && grid.fetch_block(0, block));
    std::vector<std::uint8_t> tenth(10);
    ASSERT_EQ(block.read2d({0, 0}, {100, 1}, tenth.data(), {10, 1}, data_type::uint8),
              (result_type{read_done, 10}));
    EXPECT_EQ(tenth, (std::vector<std::uint8_t>{5, 15, 25, 35, 45, 55, 65, 75, 85, 95}));
    // Any window into any buffer, by the place of each cell's centre.
    for (std::uint64_t w = 1; w <= 20; ++w)
        for (std::uint64_t to = 1; to <= 30; ++to) {
            if (to == w)
                continue;
            std::vector<float> row(to);
            ASSERT_TRUE(block.read2d({37, 1}, {w, 1}, row.data(), {to, 1}, data_type::float32).done());
            for (std::uint64_t i = 0; i < to; ++i) // (i + 1/2) w / to, in whole numbers
                ASSERT_EQ(row[i], static_cast<float>(137 + (2 * i + 1) * w / (2 * to))) << w << ' ' << to;
        }
    // More cells than are gathered at a time.
    std::vector<double> wide(3000);
    ASSERT_TRUE(block.read2d({0, 0}, {100, 2}, wide.data(), {1500, 2}, data_type::float64).done());
    for (std::size_t i = 0; i < 1500; ++i)
        ASSERT_EQ(wide[1500 + i], 100 + static_cast<double>(i / 15));
}

TEST(assembling, what_cannot_be_read)
{
    opened o(4, 4);
    std::vector<double> cells(200);
    auto const window = [&](data_offset offset, data_size size, data_size buffer) {
        return o.block.read2d(offset, size, cells.data(), buffer, data_type::float64).status;
    };
    EXPECT_EQ(window({0, 0}, {0, 1}, {0, 1}), read_failed);
    EXPECT_EQ(window({0, 0}, {1, 1}, {0, 1}), read_failed);
    EXPECT_EQ(window({c_columns, 0}, {1, 1}, {1, 1}), read_failed);
    EXPECT_EQ(window({c_columns - 1, 0}, {2, 1}, {2, 1}), read_failed) << "in the block, not in the grid";
    EXPECT_EQ(window({0, ~0ULL}, {1, 1}, {1, 1}), read_failed);
    EXPECT_EQ(window({0, 0}, {~0ULL, 1}, {1, 1}), read_failed);
    EXPECT_EQ(o.block.read(0, 0, cells.data(), data_type::float64).status, read_failed);
    EXPECT_EQ(o.block.read(c_cells - 1, 2, cells.data(), data_type::float64).status, read_failed);
    EXPECT_EQ(o.block.read(~0ULL, 2, cells.data(), data_type::float64).status, read_failed);
    EXPECT_EQ(o.block.read(0, 1, cells.data(), data_type::none).status, read_failed);
    EXPECT_EQ(o.block.read(0, 1, nullptr, data_type::float64).status, read_failed);
    EXPECT_EQ(o.block.write(0, 1, cells.data(), data_type::float64), result_type{});
    EXPECT_EQ(o.block.read1d(0, 1, cells.data(), 1, data_type::float64, 0), result_type{});

    grid_block none;
    EXPECT_EQ(none.read(0, 1, cells.data(), data_type::float64).status, read_failed);
    EXPECT_EQ(none.read2d({0, 0}, {1, 1}, cells.data(), {1, 1}, data_type::float64).status, read_failed);
    EXPECT_EQ(none.write2d({0, 0}, {1, 1}, cells.data(), {1, 1}, data_type::float64), result_type{});
    EXPECT_EQ(none.block_size(), (grid_dims{1, 1, 1}));
    EXPECT_EQ(grid_io({}, {4, 4, 1}).read(0, 1, cells.data(), data_type::float64).status, read_failed);
    EXPECT_EQ(grid_io(o.block.handle(), {}).read(0, 1, cells.data(), data_type::float64).status, read_failed);

    // The driver's own status for the block that it could not read ends the read.
    for (int const status : {0, 2, 17}) {
        o.driver.failure = status;
        o.driver.fails_at = o.driver.total_reads + 2;
        EXPECT_EQ(o.block.read2d({0, 0}, {c_columns, 1}, cells.data(), {c_columns, 1}, data_type::float64),
                  (result_type{status, 0}));
    }
    // Blocks of no size, and of more than there is memory for.
    for (auto const &[across, down] :
         {std::pair{0ULL, 4ULL}, std::pair{4ULL, 0ULL}, std::pair{1ULL << 40, 1ULL << 21},
          std::pair{1ULL << 62, 1ULL << 62}}) {
        o.driver.across = across;
        o.driver.down = down;
        EXPECT_EQ(o.block.read(0, 1, cells.data(), data_type::float64).status, read_failed) << across;
        EXPECT_EQ(window({0, 0}, {2, 2}, {1, 1}), read_failed) << across;
    }
}

TEST(assembling, blocks_that_are_passed_are_let_go)
{
    // A grid of 4 GB, whose blocks are rows, is thinned out; each block exists for a moment only.
    class rows final : public vx::grid_block_impl
    {
    public:
        int datatype() override { return static_cast<int>(data_type::uint8); }
        bool block_size(unsigned long long *counts) override
        {
            counts[0] = 1 << 22;
            counts[1] = 1;
            counts[2] = 1;
            return true;
        }
        int read_block2d(unsigned long long, unsigned long long row, void *buffer) override
        {
            std::memset(buffer, static_cast<int>(row % 251), 1 << 22);
            return read_done;
        }
    } driver;
    grid_io io(static_cast<vx::grid_block>(driver), {1 << 22, 4096, 1});
    std::vector<std::uint8_t> few(2048);
    ASSERT_TRUE(io.read2d(0, 0, 1 << 22, 4096, few.data(), 1, 2048, data_type::uint8, 0, 0).done());
    for (std::size_t i = 0; i < few.size(); ++i)
        ASSERT_EQ(few[i], (2 * i + 1) % 251);
}

TEST(grid_iterators, steps_with_a_short_last_one)
{
    auto const expected = numbered();
    opened o(4, 4);
    std::vector<float> buffer(50);
    {
        grid_iterator it(o.grid, 0);
        ASSERT_TRUE(it.init(buffer.data(), 50, data_type::float32));
        EXPECT_EQ(it.block_size(), 16u);
        std::uint64_t seen = 0;
        for (std::uint64_t const count : {50, 50, 43}) {
            EXPECT_EQ(it.fetch(), (result_type{read_done, count}));
            for (std::uint64_t i = 0; i < count; ++i)
                EXPECT_EQ(buffer[i], static_cast<float>(expected[seen + i]));
            seen += count;
        }
        EXPECT_EQ(it.fetch(), (result_type{read_done, 0}));
        it.reset(20);
        it.skip(2);
        EXPECT_EQ(it.offset(), 120u);
        EXPECT_EQ(it.fetch(), (result_type{read_done, 23}));
        it.reset(0);
        EXPECT_EQ(it.commit(), (result_type{read_not_offered, 50})) << "whole blocks are not written";
        EXPECT_EQ(it.offset(), 50u);
        grid_iterator none(o.grid, 1);
        EXPECT_FALSE(none.init(buffer.data(), 50, data_type::float32));
    }
    grid2d_iterator rows(o.grid, 0);
    ASSERT_TRUE(rows.init(buffer.data(), c_columns, data_type::float32));
    result_type result;
    int row = 0;
    for (; rows.fetch(result); ++row)
        for (int i = 0; i < c_columns; ++i)
            EXPECT_EQ(buffer[static_cast<std::size_t>(i)], static_cast<float>(3 * (row * c_columns + i) + 1));
    EXPECT_EQ(row, c_rows);
    EXPECT_EQ(result, (result_type{read_done, 0}));
    grid1d_iterator line(o.grid, 0);
    ASSERT_TRUE(line.init(buffer.data(), 50, data_type::float32));
    EXPECT_FALSE(line.fetch(result)) << "the driver has no such reading";
    EXPECT_EQ(result.status, read_not_offered);
}
