#include "extension/binding/grid_source.h"
#include "source.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>
#include <numeric>

using namespace vx_test;

namespace {
/// Five columns, four rows; cell (c, r) is 10 r + c, and the last one has no value.
constexpr char c_ascii_grid[] =
    "ncols 5\nnrows 4\nxllcorner 100\nyllcorner 200\ncellsize 10\nNODATA_value -9999\n"
    "0 1 2 3 4\n10 11 12 13 14\n20 21 22 23 24\n30 31 32 33 -9999\n";

class block_keeper final : public vx::grid_block_visitor_impl
{
public:
    ~block_keeper() { block.detach(); }
    void visit(vx::grid_block visited) override
    {
        block.detach();
        block = visited;
    }
    vx::grid_block block;
};

class palette_keeper final : public vx::grid_palette_visitor_impl
{
public:
    ~palette_keeper() { palette.detach(); }
    void visit(vx::grid_palette visited) override { palette = visited; }
    vx::grid_palette palette;
};

class gdal_grid : public testing::Test
{
protected:
    [[nodiscard]] std::wstring put(char const *name, std::string_view bytes) const
    {
        write_file(f_dir / name, bytes);
        return vx::text::utf8_to_wide((f_dir / name).string());
    }
    [[nodiscard]] static vx::grid_source grid_of(source const &s)
    {
        return vx_grid_source_interface_specialize(vx_data_source_interface_generalize(s.data));
    }
    temp_dir f_dir;
};

TEST_F(gdal_grid, reads_cells_in_lines_and_windows)
{
    block_keeper k;
    {
        source const s(put("a.asc", c_ascii_grid));
        vx::grid_source const grid = grid_of(s);
        ASSERT_TRUE(grid.with_block(0, k));
        block_keeper none;
        EXPECT_FALSE(grid.with_block(1, none));
        EXPECT_FALSE(grid.with_index(none));
    }
    // The block keeps the file open.
    constexpr int c_float64 = 10;
    std::vector<double> cells(20, -1);
    unsigned long long done = 0;
    ASSERT_EQ(k.block.read(0, 20, cells.data(), c_float64, &done), 1);
    EXPECT_EQ(done, 20u);
    EXPECT_EQ(cells[13], 23);
    EXPECT_EQ(cells[19], -9999);
    for (unsigned long long offset = 0; offset < 20; ++offset)
        for (unsigned long long count = 1; count <= 20 - offset; ++count) {
            std::vector<float> run(count, -1);
            ASSERT_EQ(k.block.read(offset, count, run.data(), 9, nullptr), 1);
            for (unsigned long long i = 0; i < count; ++i)
                ASSERT_EQ(run[i], static_cast<float>(cells[offset + i])) << offset << ' ' << count;
        }
    EXPECT_EQ(k.block.read(15, 6, cells.data(), c_float64, nullptr), 2) << "past the end";
    EXPECT_EQ(k.block.read(~0ULL, 2, cells.data(), c_float64, nullptr), 2);
    EXPECT_EQ(k.block.read(0, 1, cells.data(), 0, nullptr), 0) << "no such type";
    EXPECT_EQ(k.block.write(0, 1, cells.data(), c_float64, nullptr), 2) << "opened for reading";

    unsigned long long const offset[2] = {1, 1}, size[2] = {3, 2}, buffer_size[2] = {3, 2};
    std::vector<int> window(20, 7);
    long long const space[2] = {2, 8}; // every other cell of the buffer, lines of eight
    ASSERT_EQ(k.block.read2d(offset, size, window.data(), buffer_size, 5, space, &done), 1);
    EXPECT_EQ(done, 6u);
    EXPECT_EQ(window, (std::vector<int>{11, 7, 12, 7, 13, 7, 7, 7, 21, 7, 22, 7, 23, 7, 7, 7, 7, 7, 7, 7}));
    unsigned long long const far[2] = {3, 3};
    EXPECT_EQ(k.block.read2d(far, size, window.data(), buffer_size, 5, nullptr, nullptr), 2);
    unsigned long long const huge[2] = {~0ULL, ~0ULL};
    EXPECT_EQ(k.block.read2d(offset, huge, window.data(), buffer_size, 5, nullptr, nullptr), 2);
    EXPECT_EQ(k.block.read2d(offset, size, window.data(), huge, 5, nullptr, nullptr), 2);

    unsigned long long block_size[3] = {};
    ASSERT_TRUE(k.block.block_size(block_size));
    EXPECT_EQ(block_size[0] * block_size[1] % 5, 0u);
    EXPECT_EQ(k.block.datatype(), 5);
    std::vector<int> raw(block_size[0] * block_size[1]);
    ASSERT_EQ(k.block.read_block2d(0, 0, raw.data()), 1);
    EXPECT_EQ(raw[1], 1);
    EXPECT_EQ(k.block.read_block2d(0, 4, raw.data()), 2);
    EXPECT_EQ(k.block.read_block2d(~0ULL, 0, raw.data()), 2);
    double value = 0;
    ASSERT_TRUE(k.block.with_nodata(c_float64, &value));
    EXPECT_EQ(value, -9999);
}

TEST_F(gdal_grid, colours_and_statistics_that_the_file_brings_along)
{
    source const s(put("a.vrt", R"(<VRTDataset rasterXSize="4" rasterYSize="4">
        <VRTRasterBand dataType="Byte" band="1"><ColorInterp>Palette</ColorInterp>
        <ColorTable><Entry c1="1" c2="2" c3="3" c4="255"/><Entry c1="4" c2="5" c3="6" c4="0"/></ColorTable>
        <Metadata><MDI key="STATISTICS_MINIMUM">3</MDI><MDI key="STATISTICS_MAXIMUM">9</MDI>
        <MDI key="STATISTICS_MEAN">5</MDI><MDI key="STATISTICS_STDDEV">1</MDI></Metadata>
        </VRTRasterBand></VRTDataset>)"));
    ASSERT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
    vx::grid_source const grid = grid_of(s);
    EXPECT_EQ(grid.field_kind(0), 1);
    EXPECT_EQ(grid.field_color(0), 2);
    EXPECT_EQ(grid.field_datatype(0), 1);
    palette_keeper k;
    ASSERT_TRUE(grid.field_palette(0, k));
    ASSERT_EQ(k.palette.color_count(), 2);
    Tvx_color color;
    ASSERT_TRUE(k.palette.with_color(1, &color));
    EXPECT_EQ(color, (Tvx_color{4, 5, 6, 0}));
    EXPECT_FALSE(k.palette.with_color(2, &color));
    EXPECT_TRUE(s.stat.has_stat(0));
    double value = 0;
    EXPECT_TRUE(s.stat.maximum(0, &value));
    EXPECT_EQ(value, 9) << "taken over, not counted";
}

TEST_F(gdal_grid, a_new_grid_is_written_and_read_again)
{
    std::wstring const path = put("x", "") + L".tif";
    constexpr int c_float32 = 9;
    {
        source const made(path, 10);
        ASSERT_TRUE(made.is_open());
        vx::grid_source const grid = grid_of(made);
        int counts[3] = {4, 3, 1};
        EXPECT_EQ(made.data.field_count(), 0);
        EXPECT_FALSE(grid.create_grid(L"x", 0, counts, 2, 0)) << "no such type";
        int none[3] = {0, 3, 1};
        EXPECT_FALSE(grid.create_grid(L"x", 0, none, 2, c_float32));
        EXPECT_EQ(f_dir.count(), 1) << "no file yet";
        ASSERT_TRUE(grid.create_grid(L"x", 0, counts, 2, c_float32)) << vx::text::wide_to_utf8(made.error());
        EXPECT_FALSE(grid.create_grid(L"x", 0, counts, 2, c_float32)) << "one is enough";
        double spacing[3] = {2, -2, 1}, origin[3] = {11, 39, 0};
        EXPECT_TRUE(grid.set_spacing(spacing) && grid.set_origin(origin));
        block_keeper k;
        ASSERT_TRUE(grid.with_block(1, k));
        std::vector<double> cells(12);
        std::iota(cells.begin(), cells.end(), 0.5);
        unsigned long long done = 0;
        EXPECT_EQ(k.block.write(0, 12, cells.data(), 10, &done), 1);
        EXPECT_EQ(done, 12u);
        EXPECT_TRUE(k.block.set_nodata(10, 3.5));
        EXPECT_FALSE(source(path, 10).is_open()) << "a file in the way stays";
    }
    source const again(path);
    Tvx_box_d2 box;
    ASSERT_TRUE(again.data.with_extent(&box, false));
    EXPECT_EQ(box, (Tvx_box_d2{10, 34, 18, 40}));
    EXPECT_EQ(grid_of(again).field_datatype(1), c_float32);
    double sum = 0;
    long long count = 0;
    EXPECT_TRUE(again.stat.sum(1, &sum) && again.stat.count_nonnull(1, &count));
    EXPECT_EQ(count, 11);
    EXPECT_EQ(sum, 12 * 0.5 + 66 - 3.5);
}

TEST_F(gdal_grid, broken_files_give_failures)
{
    std::string const whole = read_file(VX_EXAMPLE_DATA "/L7_ETMs.tif");
    source const s(put("cut.tif", std::string_view(whole).substr(0, whole.size() / 2)));
    double value = 0;
    long long count = 0;
    if (s.is_open()) {
        EXPECT_FALSE(s.stat.sum(5, &value) && s.stat.count_nonnull(5, &count) && count == 349 * 352);
    } else
        EXPECT_NE(source::refusal(), L"");
    // A grid of a claimed size that no memory holds is read in pieces or refused.
    source const wide(put("wide.vrt", R"(<VRTDataset rasterXSize="2147483647" rasterYSize="1">
        <VRTRasterBand dataType="Byte" band="1"/></VRTDataset>)"));
    if (wide.is_open()) {
        class numbers final : public vx::floatings_visitor_impl
        {
        } sink;
        EXPECT_TRUE(wide.stat.with_unique_numerics(0, 1, sink));
    }
}
} // namespace
