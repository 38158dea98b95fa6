#include "extension/binding/grid_source.h"
#include "source.h"
#include "support/temp_dir.h"

#include <cmath>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <numeric>
#include <sys/resource.h>

using namespace vx_test;

namespace {
constexpr int c_uint8 = 1, c_int8 = 2, c_int16 = 3, c_int32 = 5, c_int64 = 7, c_float32 = 9, c_float64 = 10;
constexpr int c_geotiff = 10, c_memory_grid = 12;

class block_keeper final : public vx::grid_block_visitor_impl
{
public:
    ~block_keeper() { block.detach(); }
    void visit(vx::grid_block visited) override { block = visited; }
    void end()
    {
        block.detach();
        block = {};
    }
    vx::grid_block block;
};

class histogram_keeper final : public vx::histogram_visitor_impl
{
public:
    double low = 0, high = 0;
    std::vector<long long> counts;
    void visit(double minimum, double maximum, int count, long long *values) override
    {
        low = minimum;
        high = maximum;
        counts.assign(values, values + count);
    }
};

class numbers_keeper final : public vx::floatings_visitor_impl
{
public:
    std::vector<double> numbers;
    void visit(unsigned long long count, double *values) override { numbers.assign(values, values + count); }
};

/// A data set with a grid, made or opened.
struct gridded
{
    gridded(std::wstring const &path, bool read_only) : s(path, read_only), grid(grid_of()) {}
    gridded(std::wstring const &path, int driver, std::array<int, 2> size, int fields, int type,
            std::wstring const &options = L"")
        : s(path, driver), grid(grid_of())
    {
        int counts[3] = {size[0], size[1], 1};
        EXPECT_TRUE(grid.create_grid((L"x|" + options).c_str(), 0, counts, fields, type))
            << vx::text::wide_to_utf8(s.error());
    }
    [[nodiscard]] vx::grid_source grid_of() const
    {
        return vx_grid_source_interface_specialize(vx_data_source_interface_generalize(s.data));
    }
    template <class T>
    bool write(int field, int type, std::vector<T> const &cells) const
    {
        block_keeper k;
        return grid.with_block(field, k) && k.block.write(0, cells.size(), cells.data(), type, nullptr) == 1;
    }
    template <class T>
    std::vector<T> read(int field, int type, std::size_t count) const
    {
        std::vector<T> cells(count);
        block_keeper k;
        EXPECT_TRUE(grid.with_block(field, k));
        EXPECT_EQ(k.block.read(0, count, cells.data(), type, nullptr), 1);
        return cells;
    }
    source s;
    vx::grid_source grid;
};

class gdal_cells : public testing::Test
{
protected:
    [[nodiscard]] std::wstring path(char const *name) const
    {
        return vx::text::utf8_to_wide((f_dir / name).string());
    }
    [[nodiscard]] std::wstring put(char const *name, std::string_view bytes) const
    {
        write_file(f_dir / name, bytes);
        return path(name);
    }
    temp_dir f_dir;
};

TEST_F(gdal_cells, blocks_and_windows_see_each_others_writing)
{
    gridded const g(path("a.tif"), c_geotiff, {40, 20}, 1, c_int32, L"TILED=YES&BLOCKXSIZE=16&BLOCKYSIZE=16");
    block_keeper k;
    ASSERT_TRUE(g.grid.with_block(0, k));
    std::vector<int> cells(800);
    std::iota(cells.begin(), cells.end(), 1);
    // A part of the first block that is not stored yet.
    ASSERT_EQ(k.block.write(0, 10, cells.data(), c_int32, nullptr), 1);
    std::vector<int> block(256, -1);
    ASSERT_EQ(k.block.read_block2d(0, 0, block.data()), 1);
    EXPECT_EQ(block[9], 10);
    std::iota(block.begin(), block.end(), 1000);
    ASSERT_EQ(k.block.write_block2d(0, 0, block.data()), 1);
    ASSERT_EQ(k.block.write_block2d(2, 1, block.data()), 1) << "a block that the grid cuts on both sides";
    EXPECT_EQ(k.block.write_block2d(3, 0, block.data()), 2);
    std::vector<int> row(40);
    ASSERT_EQ(k.block.read(0, 40, row.data(), c_int32, nullptr), 1);
    EXPECT_EQ(row[9], 1009);
    EXPECT_EQ(row[16], 0);
    ASSERT_EQ(k.block.read(19 * 40, 40, row.data(), c_int32, nullptr), 1);
    EXPECT_EQ(row[39], 1000 + 3 * 16 + 7);
    // Every other cell of a buffer into a line.
    std::vector<int> wide{1, -1, 2, -1, 3, -1};
    ASSERT_EQ(k.block.write1d(38, 3, wide.data(), 3, c_int32, 2, nullptr), 1) << "over the end of a row";
    ASSERT_EQ(k.block.read(38, 3, row.data(), c_int32, nullptr), 1);
    EXPECT_EQ(std::vector<int>(row.begin(), row.begin() + 3), (std::vector<int>{1, 2, 3}));
    unsigned long long done = 0;
    ASSERT_EQ(k.block.read1d(0, 40, row.data(), 4, c_int32, 0, &done), 1);
    EXPECT_EQ(done, 4u);
    EXPECT_EQ(row[0], 1005) << "the cell in the middle of each tenth";
    EXPECT_EQ(k.block.read1d(30, 20, row.data(), 4, c_int32, 0, nullptr), 2) << "not resampled over rows";
    unsigned long long const level[] = {0, 0, 1}, one[] = {1, 1, 1};
    EXPECT_EQ(k.block.read3d(level, one, row.data(), one, c_int32, nullptr, nullptr), 2);
}

TEST_F(gdal_cells, signed_bytes_and_complex_numbers)
{
    std::vector<double> const numbers{-128, -1, 0, 1, 127, 300, -300, 2.5};
    for (int const driver : {c_geotiff, c_memory_grid}) {
        gridded const g(driver == c_geotiff ? path("s.tif") : L"memory", driver, {4, 2}, 1, c_int8);
        EXPECT_EQ(g.grid.field_datatype(0), c_int8);
        ASSERT_TRUE(g.write(0, c_float64, numbers));
        EXPECT_EQ(g.read<signed char>(0, c_int8, 8),
                  (std::vector<signed char>{-128, -1, 0, 1, 127, 127, -128, 3}));
        EXPECT_EQ(g.read<float>(0, c_float32, 8), (std::vector<float>{-128, -1, 0, 1, 127, 127, -128, 3}));
        double value = 0;
        EXPECT_TRUE(g.s.stat.minimum(0, &value));
        EXPECT_EQ(value, -128);
        histogram_keeper h;
        ASSERT_TRUE(g.s.stat.with_default_histogram(0, true, h));
        EXPECT_EQ(h.low, -128.5);
        EXPECT_EQ(h.counts.front(), 2);
        EXPECT_EQ(h.counts[127], 1);
    }
    {
        gridded const bytes(L"memory", c_memory_grid, {4, 2}, 1, c_uint8);
        ASSERT_TRUE(bytes.write(0, c_int8, std::vector<signed char>{-128, -1, 0, 1, 127, 5, 6, 7}));
        EXPECT_EQ(bytes.read<double>(0, c_float64, 8), (std::vector<double>{0, 0, 0, 1, 127, 5, 6, 7}));
    }
    // The block of a complex band has twice the bytes of its real part, which is what crosses.
    gridded const c(put("c.vrt", R"(<VRTDataset rasterXSize="4" rasterYSize="4">
        <VRTRasterBand dataType="CInt16" band="1"/></VRTDataset>)"),
                    true);
    block_keeper k;
    ASSERT_TRUE(c.grid.with_block(0, k));
    EXPECT_EQ(k.block.datatype(), c_int16);
    unsigned long long size[3];
    ASSERT_TRUE(k.block.block_size(size));
    std::vector<short> block(size[0] * size[1] + 1, 7);
    ASSERT_EQ(k.block.read_block2d(0, 0, block.data()), 1);
    EXPECT_EQ(block.front(), 0);
    EXPECT_EQ(block.back(), 7);
    double value = 1;
    EXPECT_TRUE(c.s.stat.maximum(0, &value));
    EXPECT_EQ(value, 0);
}

TEST_F(gdal_cells, what_means_no_value)
{
    gridded const g(L"memory", c_memory_grid, {3, 1}, 2, c_int64);
    block_keeper k;
    ASSERT_TRUE(g.grid.with_block(0, k));
    double value = 0;
    EXPECT_FALSE(k.block.with_nodata(c_float64, &value));
    EXPECT_FALSE(k.block.set_nodata(c_int64, 0.5)) << "no whole number";
    EXPECT_FALSE(k.block.set_nodata(c_int64, 1e300) || k.block.set_nodata(c_int64, std::nan("")));
    EXPECT_TRUE(k.block.set_nodata(c_int64, -9999));
    ASSERT_TRUE(k.block.with_nodata(c_float64, &value));
    EXPECT_EQ(value, -9999);
    // As the cells without a value stand in a buffer of another type.
    ASSERT_TRUE(g.write(0, c_int64, std::vector<long long>{-9999, 5, -9999}));
    for (auto const &[type, wanted] : {std::pair{c_uint8, 0.0}, {c_int8, -128.0}, {c_int16, -9999.0}}) {
        ASSERT_TRUE(k.block.with_nodata(type, &value));
        EXPECT_EQ(value, wanted);
    }
    EXPECT_EQ(g.read<signed char>(0, c_int8, 3).front(), -128);
    long long count = 0;
    EXPECT_TRUE(g.s.stat.count_nonnull(0, &count));
    EXPECT_EQ(count, 1);
}

TEST_F(gdal_cells, statistics_follow_what_is_written)
{
    gridded const g(path("a.tif"), c_geotiff, {3, 2}, 1, c_float64);
    ASSERT_TRUE(g.write(0, c_float64, std::vector<double>{1, 2, 3, 4, 5, 6}));
    double value = 0;
    histogram_keeper h;
    EXPECT_TRUE(g.s.stat.maximum(0, &value) && g.s.stat.with_default_histogram(0, true, h));
    EXPECT_EQ(value, 6);
    EXPECT_EQ(h.high, 6);
    ASSERT_TRUE(g.write(0, c_float64, std::vector<double>{7}));
    EXPECT_TRUE(g.s.stat.maximum(0, &value) && g.s.stat.with_default_histogram(0, true, h));
    EXPECT_EQ(value, 7);
    EXPECT_EQ(h.high, 7);
    block_keeper k;
    ASSERT_TRUE(g.grid.with_block(0, k));
    EXPECT_TRUE(k.block.set_nodata(c_float64, 7));
    EXPECT_TRUE(g.s.stat.maximum(0, &value));
    EXPECT_EQ(value, 6);
}

TEST_F(gdal_cells, statistics_that_cannot_be_are_not_believed)
{
    struct
    {
        char const *minimum, *maximum, *mean, *deviation;
        double wanted_maximum;
    } const cases[] = {
        {"0", "9", "5", "1", 9}, // taken over
        {"0", "9", "10", "1", 0},  {"0", "9", "-1", "1", 0},  {"9", "0", "5", "1", 0},
        {"nan", "9", "5", "1", 0}, {"0", "inf", "5", "1", 0}, {"0", "9", "5", "-1", 0},
    };
    for (auto const &c : cases) {
        auto const item = [](char const *name, char const *text) {
            return std::string("<MDI key=\"STATISTICS_") + name + "\">" + text + "</MDI>";
        };
        source const s(put(
            "a.vrt",
            R"(<VRTDataset rasterXSize="4" rasterYSize="4"><VRTRasterBand dataType="Int16" band="1"><Metadata>)" +
                item("MINIMUM", c.minimum) + item("MAXIMUM", c.maximum) + item("MEAN", c.mean) +
                item("STDDEV", c.deviation) + "</Metadata></VRTRasterBand></VRTDataset>"));
        double value = -7;
        EXPECT_TRUE(s.stat.maximum(0, &value));
        EXPECT_EQ(value, c.wanted_maximum) << c.minimum << ' ' << c.maximum << ' ' << c.mean;
        // All cells are 0: the histogram tells the truth whatever was stored.
        histogram_keeper h;
        EXPECT_TRUE(s.stat.with_default_histogram(0, true, h));
        EXPECT_EQ(std::accumulate(h.counts.begin(), h.counts.end(), 0LL), 16);
    }
}

TEST_F(gdal_cells, stored_bounds_are_cells)
{
    source const s(put("a.vrt", R"(<VRTDataset rasterXSize="4" rasterYSize="4">
        <VRTRasterBand dataType="Float32" band="1"><Metadata><MDI key="STATISTICS_MINIMUM">-247.10000610352</MDI>
        <MDI key="STATISTICS_MAXIMUM">0.1</MDI><MDI key="STATISTICS_MEAN">-5</MDI>
        <MDI key="STATISTICS_STDDEV">1</MDI></Metadata></VRTRasterBand></VRTDataset>)"));
    double value = 0;
    EXPECT_TRUE(s.stat.minimum(0, &value));
    EXPECT_EQ(value, -247.1f) << "the text has fewer digits than the cell";
    EXPECT_TRUE(s.stat.maximum(0, &value));
    EXPECT_EQ(value, 0.1f);
}

TEST_F(gdal_cells, cells_that_are_no_numbers)
{
    double const nan = std::nan(""), infinity = INFINITY;
    gridded const g(L"memory", c_memory_grid, {4, 2}, 2, c_float64);
    ASSERT_TRUE(g.write(0, c_float64, std::vector<double>{nan, -0.0, 0.0, 5e-324, 3, nan, 3, -1}));
    double value = 0;
    long long count = 0;
    EXPECT_TRUE(g.s.stat.count_nonnull(0, &count) && g.s.stat.average(0, &value));
    EXPECT_EQ(count, 6) << "what is no number is no value";
    EXPECT_NEAR(value, 5.0 / 6, 1e-15);
    numbers_keeper n;
    EXPECT_TRUE(g.s.stat.with_unique_numerics(0, -1, n));
    EXPECT_EQ(n.numbers, (std::vector<double>{-1, 0, 5e-324, 3}));
    EXPECT_TRUE(g.s.stat.with_unique_numerics(0, 0, n));
    EXPECT_EQ(n.numbers, (std::vector<double>{0})) << "a limit of 0 stops after the first value";
    long long counts[4] = {};
    EXPECT_TRUE(g.s.stat.with_custom_histogram(0, -1, 3, 4, counts, true));
    EXPECT_EQ(std::vector<long long>(counts, counts + 4), (std::vector<long long>{1, 3, 0, 2}));
    EXPECT_TRUE(g.s.stat.with_custom_histogram(0, 0, 5e-324, 4, counts, true)) << "a span of one step";
    EXPECT_EQ(std::vector<long long>(counts, counts + 4), (std::vector<long long>{2, 0, 0, 1}));
    EXPECT_TRUE(g.s.stat.with_custom_histogram(0, -1.7e308, 1.7e308, 4, counts, true))
        << "wider than any number";
    EXPECT_EQ(std::vector<long long>(counts, counts + 4), (std::vector<long long>{0, 0, 6, 0}));
    for (auto const &[low, high] :
         {std::pair{nan, 1.0}, {0.0, nan}, {1.0, 0.0}, {-infinity, 1.0}, {0.0, infinity}})
        EXPECT_FALSE(g.s.stat.with_custom_histogram(0, low, high, 4, counts, true));
    EXPECT_FALSE(g.s.stat.with_custom_histogram(0, 0, 1, 0, counts, true));

    ASSERT_TRUE(g.write(1, c_float64, std::vector<double>{1, 2, infinity, -infinity, 3, 4, 5, 6}));
    EXPECT_TRUE(g.s.stat.maximum(1, &value));
    EXPECT_EQ(value, infinity);
    histogram_keeper h;
    EXPECT_FALSE(g.s.stat.with_default_histogram(1, true, h)) << "no classes of equal width";
    block_keeper k;
    ASSERT_TRUE(g.grid.with_block(1, k));
    ASSERT_TRUE(k.block.set_nodata(c_float64, 3));
    EXPECT_TRUE(g.s.stat.maximum(1, &value) && g.s.stat.count_nonnull(1, &count));
    EXPECT_EQ(value, 6) << "beside a number that means no value, infinities have none";
    EXPECT_EQ(count, 5);
}

TEST_F(gdal_cells, one_walk_by_several_threads)
{
    // Enough cells for threads; cell n holds (n mod 1,000) / 4, each 1,000th has no value.
    constexpr int c_width = 2300, c_height = 2000;
    constexpr long long c_count = 4'600'000;
    std::vector<float> cells(c_count);
    for (std::size_t i = 0; i < cells.size(); ++i)
        cells[i] = static_cast<float>(i % 1000) / 4;
    for (std::wstring const options : {L"COMPRESS=DEFLATE&TILED=YES", L"BLOCKYSIZE=3"}) {
        std::wstring const file = path(options.size() > 20 ? "packed.tif" : "raw.tif");
        {
            gridded const g(file, c_geotiff, {c_width, c_height}, 1, c_float32, options);
            block_keeper k;
            ASSERT_TRUE(g.grid.with_block(0, k));
            ASSERT_TRUE(k.block.set_nodata(c_float32, 0));
            ASSERT_TRUE(g.write(0, c_float32, cells));
        }
        gridded const g(file, true);
        double value = 0;
        long long count = 0;
        EXPECT_TRUE(g.s.stat.count_nonnull(0, &count));
        EXPECT_EQ(count, c_count / 1000 * 999);
        EXPECT_TRUE(g.s.stat.minimum(0, &value));
        EXPECT_EQ(value, 0.25);
        EXPECT_TRUE(g.s.stat.maximum(0, &value));
        EXPECT_EQ(value, 999 / 4.0);
        EXPECT_TRUE(g.s.stat.sum(0, &value));
        EXPECT_EQ(value, 4600.0 * (999 * 1000 / 2) / 4);
        EXPECT_TRUE(g.s.stat.average(0, &value));
        EXPECT_NEAR(value, 125, 1e-12);
        EXPECT_TRUE(g.s.stat.stdev(0, &value));
        // Whole numbers from 1 to 999 deviate by (999 squared - 1) / 12, in quarters.
        double const n = static_cast<double>(count);
        EXPECT_NEAR(value, std::sqrt((999.0 * 999 - 1) / 12 / 16 * n / (n - 1)), 1e-9);
        histogram_keeper h;
        ASSERT_TRUE(g.s.stat.with_default_histogram(0, true, h));
        std::vector<long long> wanted(256);
        for (int v = 1; v < 1000; ++v)
            wanted[static_cast<std::size_t>(std::min(255.0, std::floor((v / 4.0 - 0.25) * (256 / 249.5))))] +=
                4600;
        EXPECT_EQ(h.counts, wanted);
    }
    // A file that is cut: the walk fails as a whole.
    std::string const whole = read_file(f_dir / "raw.tif");
    source const cut(put("cut.tif", std::string_view(whole).substr(0, whole.size() / 2)));
    if (cut.is_open()) {
        double value = 0;
        EXPECT_FALSE(cut.stat.sum(0, &value));
        EXPECT_NE(cut.error(), L"");
    }
}

TEST_F(gdal_cells, overviews_come_and_go)
{
    std::wstring const file = path("a.tif");
    std::vector<double> cells(200 * 100);
    std::iota(cells.begin(), cells.end(), 0);
    {
        gridded const g(file, c_geotiff, {200, 100}, 2, c_float32, L"TILED=YES");
        ASSERT_TRUE(g.write(0, c_float64, cells));
        int levels[] = {2, 4}, wrong[] = {1}, first[] = {0}, all[] = {1, 0};
        class stopper final : public vx::monitor_impl
        {
        public:
            bool has_stopped() override { return true; }
        } stopped;
        EXPECT_FALSE(g.grid.create_overviews(0, wrong, 1, nullptr, 0, {}));
        EXPECT_FALSE(g.grid.create_overviews(0, nullptr, 0, nullptr, 0, {}));
        EXPECT_FALSE(g.grid.create_overviews(0, levels, 2, nullptr, 0, stopped)) << "stopped by the caller";
        ASSERT_TRUE(g.grid.create_overviews(5, levels, 2, nullptr, 0, {}))
            << vx::text::wide_to_utf8(g.s.error());
        block_keeper k;
        ASSERT_TRUE(g.grid.with_block(0, k));
        EXPECT_EQ(k.block.overview_count(), 2);
        EXPECT_FALSE(g.grid.delete_overviews(first, 1)) << "those of one field alone";
        EXPECT_NE(g.s.error(), L"");
        k.end();
        ASSERT_TRUE(g.grid.delete_overviews(all, 2)) << vx::text::wide_to_utf8(g.s.error());
        ASSERT_TRUE(g.grid.with_block(0, k));
        EXPECT_EQ(k.block.overview_count(), 0);
        k.end();
        ASSERT_TRUE(g.grid.create_overviews(5, levels, 1, all, 2, {}));
    }
    gridded const again(file, true);
    block_keeper k, half;
    ASSERT_TRUE(again.grid.with_block(0, k));
    ASSERT_EQ(k.block.overview_count(), 1);
    ASSERT_TRUE(k.block.with_overview(0, half));
    double value = 0;
    ASSERT_EQ(half.block.read(101, 1, &value, c_float64, nullptr), 1);
    EXPECT_EQ(value, (402 + 403 + 602 + 603) / 4.0) << "cell (1, 1) is the average of four";
    EXPECT_FALSE(again.grid.delete_overviews(nullptr, 0)) << "opened for reading";
}

TEST_F(gdal_cells, grids_in_memory)
{
    gridded const g(L"memory", c_memory_grid, {5, 4}, 1, c_int16);
    EXPECT_EQ(g.s.data.driver_id(), c_memory_grid);
    EXPECT_EQ(g.grid.create_field(L"more", c_float64), 1);
    EXPECT_EQ(g.grid.create_field(L"signed", c_int8), 2);
    EXPECT_EQ(g.grid.create_field(L"none", 0), -1);
    EXPECT_EQ(g.s.field(L"more"), 1);
    EXPECT_EQ(g.grid.field_datatype(2), c_int8);
    std::vector<double> cells(20);
    std::iota(cells.begin(), cells.end(), 0.5);
    ASSERT_TRUE(g.write(1, c_float64, cells));
    EXPECT_EQ(g.read<double>(1, c_float64, 20), cells);
    double spacing[3] = {2, -2, 1}, origin[3] = {1, 1, 0};
    EXPECT_TRUE(g.grid.set_spacing(spacing) && g.grid.set_origin(origin));
    // Nobody opens the memory of the process by a text.
    EXPECT_FALSE(source(L"MEM:::DATAPOINTER=1,PIXELS=1,LINES=1").is_open());
    EXPECT_NE(source::refusal(), L"");
    // A file cannot grow by a field.
    gridded const file(path("a.tif"), c_geotiff, {5, 4}, 1, c_int16);
    EXPECT_EQ(file.grid.create_field(L"more", c_int16), -1);
    EXPECT_NE(file.s.error(), L"");
}

TEST_F(gdal_cells, a_full_disk_is_told)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    std::vector<float> cells(1000 * 1000, 1.5f);
    {
        gridded const g(path("full.tif"), c_geotiff, {1000, 1000}, 1, c_float32);
        block_keeper k;
        ASSERT_TRUE(g.grid.with_block(0, k));
        rlimit const small{1 << 20, before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
        EXPECT_EQ(k.block.write(0, cells.size(), cells.data(), c_float32, nullptr), 2);
        EXPECT_NE(g.s.error(), L"");
    }
    {
        // A part of a block is kept until the block ends; that it could not be stored is told then.
        rlimit const small{1 << 14, before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        gridded const g(path("tiles.tif"), c_geotiff, {1000, 1000}, 1, c_float32, L"TILED=YES");
        block_keeper k;
        ASSERT_TRUE(g.grid.with_block(0, k));
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
        int const status = k.block.write(0, 1000, cells.data(), c_float32, nullptr);
        k.end();
        EXPECT_TRUE(status == 2 || !g.s.error().empty());
    }
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, SIG_DFL);
}
} // namespace
