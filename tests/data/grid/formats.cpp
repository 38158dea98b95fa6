// What the data classes read of files is compared, cell by cell, with what GDAL reads of them.

#include "data/vxk_data.h"
#include "support/temp_dir.h"

#include "platform/base/text_codec.h"

#include <gdal_priv.h>

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

using namespace vx::data;
using vx_test::temp_dir;

namespace {
constexpr int c_width = 100;
constexpr int c_height = 67;
constexpr std::size_t c_cells = c_width * c_height;

struct cell_type
{
    data_type own;
    GDALDataType gdal;
    double low, high; ///< of the numbers in the files
};
constexpr cell_type c_types[] = {
    {data_type::uint8, GDT_Byte, 0, 255},
    {data_type::int8, GDT_Byte, -128, 127},
    {data_type::int16, GDT_Int16, -32768, 32767},
    {data_type::uint16, GDT_UInt16, 0, 65535},
    {data_type::int32, GDT_Int32, -2147483648.0, 2147483647},
    {data_type::uint32, GDT_UInt32, 0, 4294967295.0},
    {data_type::int64, GDT_Int64, -9e15, 9e15},
    {data_type::uint64, GDT_UInt64, 0, 9e15},
    {data_type::float32, GDT_Float32, -70000.75, 70000.75},
    {data_type::float64, GDT_Float64, -1e18, 1e18},
};

struct layout
{
    char const *name;
    std::vector<char const *> options;
    bool has_overviews = false;
};
std::vector<layout> const c_layouts = {
    {"striped", {"BLOCKYSIZE=7"}},
    {"tiled", {"TILED=YES", "BLOCKXSIZE=32", "BLOCKYSIZE=16"}},
    {"deflate", {"TILED=YES", "BLOCKXSIZE=16", "BLOCKYSIZE=48", "COMPRESS=DEFLATE"}},
    {"overviews", {"TILED=YES", "BLOCKXSIZE=32", "BLOCKYSIZE=32"}, true},
};

/// Numbers over the whole span of a type, small ones more often. For signed bytes GDAL sees their bits.
std::vector<double> numbers_of(cell_type const &type)
{
    std::mt19937 random(static_cast<unsigned>(type.own));
    std::uniform_real_distribution<double> span(-1, 1);
    std::vector<double> numbers(c_cells);
    bool const is_whole = !datatype_isfloating(type.own);
    for (double &n : numbers) {
        double const u = span(random);
        n = std::clamp(u * u * u * type.high, type.low, type.high);
        if (is_whole)
            n = std::floor(n);
    }
    return numbers;
}

std::string make_file(temp_dir const &dir, layout const &l, cell_type const &type)
{
    GDALAllRegister();
    std::string const path =
        (dir / (std::string(l.name) + std::to_string(static_cast<int>(type.own)) + ".tif")).string();
    std::vector<char const *> options = l.options;
    if (type.own == data_type::int8)
        options.push_back("PIXELTYPE=SIGNEDBYTE");
    options.push_back(nullptr);
    GDALDatasetUniquePtr set(GetGDALDriverManager()->GetDriverByName("GTiff")->Create(
        path.c_str(), c_width, c_height, 2, type.gdal, const_cast<char **>(options.data())));
    auto numbers = numbers_of(type);
    if (type.own == data_type::int8)
        for (double &n : numbers)
            n = n < 0 ? n + 256 : n;
    EXPECT_EQ(set->GetRasterBand(2)->RasterIO(GF_Write, 0, 0, c_width, c_height, numbers.data(), c_width,
                                              c_height, GDT_Float64, 0, 0, nullptr),
              CE_None);
    if (l.has_overviews) {
        int levels[] = {2, 4};
        EXPECT_EQ(set->BuildOverviews("AVERAGE", 2, levels, 0, nullptr, nullptr, nullptr), CE_None);
    }
    return path;
}

/// A window as GDAL reads it, in bytes of the wanted type; signed bytes by arithmetic from wider numbers.
std::vector<std::byte> plain(GDALRasterBand &band, cell_type const &file, cell_type const &wanted, int x,
                             int y, int w, int h, int to_w, int to_h, GDALRIOResampleAlg resampling)
{
    GDALRasterIOExtraArg extra;
    INIT_RASTERIO_EXTRA_ARG(extra);
    extra.eResampleAlg = resampling;
    auto const count = static_cast<std::size_t>(to_w) * static_cast<std::size_t>(to_h);
    auto const size = static_cast<std::size_t>(datatype_size_bytes(wanted.own));
    std::vector<std::byte> cells(count * size);
    auto const read = [&](void *buffer, GDALDataType type) {
        EXPECT_EQ(band.RasterIO(GF_Read, x, y, w, h, buffer, to_w, to_h, type, 0, 0, &extra), CE_None);
    };
    if (file.own != data_type::int8 && wanted.own != data_type::int8) {
        read(cells.data(), wanted.gdal);
        return cells;
    }
    std::vector<double> numbers(count);
    read(numbers.data(), GDT_Float64);
    for (std::size_t i = 0; i < count; ++i) {
        double n = file.own == data_type::int8 && numbers[i] > 127 ? numbers[i] - 256 : numbers[i];
        if (!datatype_isfloating(wanted.own)) {
            double const low = wanted.own == data_type::int8 ? -128 : wanted.low;
            double const high = wanted.own == data_type::int8 ? 127 : wanted.high;
            n = std::clamp(n < 0 ? std::ceil(n - 0.5) : std::floor(n + 0.5), low, high);
        }
        copy_words(cells.data() + i * size, wanted.own, &n, data_type::float64, 1);
    }
    return cells;
}

struct opened
{
    opened(std::string const &path)
        : set(GDALDataset::Open(path.c_str(), GDAL_OF_RASTER)), band(set->GetRasterBand(2))
    {
        EXPECT_TRUE(grid.open(vx::text::utf8_to_wide(path), access_read));
        EXPECT_TRUE(grid.fetch_block(1, block));
    }
    GDALDatasetUniquePtr set;
    GDALRasterBand *band;
    grid_datasource grid;
    grid_block block;
};

std::vector<std::byte> part(std::vector<std::byte> const &all, std::size_t from, std::size_t count)
{
    auto const first = all.begin() + static_cast<std::ptrdiff_t>(from);
    return {first, first + static_cast<std::ptrdiff_t>(count)};
}
} // namespace

TEST(grid_formats, lines_windows_and_blocks_in_every_type)
{
    temp_dir const dir;
    for (layout const &l : c_layouts)
        for (cell_type const &file : c_types) {
            opened o(make_file(dir, l, file));
            ASSERT_EQ(o.block.datatype(), file.own);
            ASSERT_EQ(o.grid.field_datatype(1), file.own);
            ASSERT_EQ(o.block.dimensions(), (grid_dims{c_width, c_height, 1}));
            auto const own = plain(*o.band, file, file, 0, 0, c_width, c_height, c_width, c_height,
                                   GRIORA_NearestNeighbour);
            for (cell_type const &to : c_types) {
                SCOPED_TRACE(std::string(l.name) + " of type " + std::to_string(static_cast<int>(file.own)) +
                             " to " + std::to_string(static_cast<int>(to.own)));
                auto const size = static_cast<std::size_t>(datatype_size_bytes(to.own));
                auto const all = plain(*o.band, file, to, 0, 0, c_width, c_height, c_width, c_height,
                                       GRIORA_NearestNeighbour);
                // The whole as one line, a line over the ends of rows, and one inside a row.
                for (auto const &[offset, count] :
                     {std::pair<std::size_t, std::size_t>{0, c_cells}, {333, 1234}, {250, 17}}) {
                    std::vector<std::byte> line(count * size);
                    ASSERT_EQ(o.block.read(offset, count, line.data(), to.own),
                              (result_type{read_done, count}));
                    ASSERT_EQ(line, part(all, offset * size, count * size));
                    std::vector<std::byte> again(count * size);
                    ASSERT_TRUE(o.block.read1d(offset, count, again.data(), count, to.own, 0).done());
                    ASSERT_EQ(again, line);
                }
                std::vector<std::byte> window(41 * 29 * size);
                ASSERT_TRUE(o.block.read2d({23, 31}, {41, 29}, window.data(), {41, 29}, to.own).done());
                ASSERT_EQ(window, plain(*o.band, file, to, 23, 31, 41, 29, 41, 29, GRIORA_NearestNeighbour));
                std::uint64_t const from[] = {23, 31, 0}, extent[] = {41, 29, 1};
                std::vector<std::byte> level(window.size());
                ASSERT_TRUE(o.block.read3d(from, extent, level.data(), extent, to.own, nullptr).done());
                ASSERT_EQ(level, window);
                // Put together here from the driver's blocks, by plain casts.
                std::vector<std::byte> cast(c_cells * size);
                copy_words(cast.data(), to.own, own.data(), file.own, c_cells);
                std::vector<std::byte> assembled(c_cells * size);
                grid_io io(o.block.handle(), o.grid.dimensions());
                ASSERT_TRUE(io.read(0, c_cells, assembled.data(), to.own).done());
                ASSERT_EQ(assembled, cast);
            }
        }
}

TEST(grid_formats, resampled_as_gdal_does_it)
{
    temp_dir const dir;
    for (layout const &l : c_layouts)
        for (cell_type const &file : {c_types[0], c_types[1], c_types[2], c_types[8]}) {
            opened o(make_file(dir, l, file));
            for (auto const &[w, to] :
                 {std::pair{100, 10}, std::pair{100, 40}, std::pair{64, 16}, std::pair{10, 40}})
                for (int const method : {0, 1, 2, 5, 6}) {
                    SCOPED_TRACE(std::string(l.name) + " of type " +
                                 std::to_string(static_cast<int>(file.own)) + ' ' + std::to_string(w) +
                                 " to " + std::to_string(to) + " by " + std::to_string(method));
                    ASSERT_TRUE(o.block.set_resampling(method));
                    bool const is_mixed_bytes = file.own == data_type::int8 && method != 0;
                    std::vector<std::byte> cells(static_cast<std::size_t>(to) * 8 * sizeof(float));
                    auto const width = static_cast<std::uint64_t>(w);
                    auto const buffer = static_cast<std::uint64_t>(to);
                    ASSERT_TRUE(
                        o.block.read2d({0, 8}, {width, 32}, cells.data(), {buffer, 8}, data_type::float32)
                            .done());
                    // GDAL 3.6 does not know of the sign of bytes: what is not the nearest cell is put
                    // together here.
                    auto const wanted = plain(*o.band, file, c_types[8], 0, 8, w, 32, to, 8,
                                              is_mixed_bytes ? GRIORA_NearestNeighbour
                                                             : static_cast<GDALRIOResampleAlg>(method));
                    if (!(is_mixed_bytes && l.has_overviews)) {
                        ASSERT_EQ(cells, wanted);
                    }
                    if (method == 0 && !l.has_overviews) {
                        std::vector<std::byte> assembled(cells.size());
                        grid_io io(o.block.handle(), o.grid.dimensions());
                        ASSERT_TRUE(
                            io.read2d(0, 8, width, 32, assembled.data(), buffer, 8, data_type::float32, 0, 0)
                                .done());
                        ASSERT_EQ(assembled, wanted);
                    }
                }
            EXPECT_FALSE(o.block.set_resampling(7));
        }
}

TEST(grid_formats, overviews_rows_and_statistics)
{
    temp_dir const dir;
    cell_type const &file = c_types[8];
    opened o(make_file(dir, c_layouts[3], file));
    ASSERT_EQ(o.block.overview_count(), 2);
    grid_block half;
    EXPECT_FALSE(o.block.fetch_overview(2, half));
    ASSERT_TRUE(o.block.fetch_overview(0, half));
    EXPECT_EQ(half.field(), 1u);
    std::vector<float> cells(50 * 34), wanted(50 * 34);
    ASSERT_TRUE(half.read2d({0, 0}, {50, 34}, cells.data(), {50, 34}, data_type::float32).done());
    ASSERT_EQ(o.band->GetOverview(0)->RasterIO(GF_Read, 0, 0, 50, 34, wanted.data(), 50, 34, GDT_Float32, 0,
                                               0, nullptr),
              CE_None);
    EXPECT_EQ(cells, wanted);

    auto const numbers = [&] {
        std::vector<double> all(c_cells);
        EXPECT_EQ(o.band->RasterIO(GF_Read, 0, 0, c_width, c_height, all.data(), c_width, c_height,
                                   GDT_Float64, 0, 0, nullptr),
                  CE_None);
        return all;
    }();
    std::vector<double> row(c_width);
    grid2d_iterator rows(o.grid, 1);
    ASSERT_TRUE(rows.init(row.data(), c_width, data_type::float64));
    result_type result;
    std::size_t seen = 0;
    for (; rows.fetch(result); seen += c_width)
        ASSERT_TRUE(std::equal(row.begin(), row.end(), numbers.begin() + static_cast<std::ptrdiff_t>(seen)));
    EXPECT_EQ(seen, c_cells);

    // The driver's statistics, and those of the walk.
    double minimum = 0, maximum = 0, mean = 0, deviation = 0;
    ASSERT_EQ(o.band->ComputeStatistics(FALSE, &minimum, &maximum, &mean, &deviation, nullptr, nullptr),
              CE_None);
    deviation *= std::sqrt(static_cast<double>(c_cells) / (c_cells - 1)); // of the sample
    EXPECT_EQ(o.grid.field_minimum(1), minimum);
    EXPECT_EQ(o.grid.field_maximum(1), maximum);
    EXPECT_NEAR(o.grid.field_average(1), mean, 1e-9 * deviation);
    EXPECT_NEAR(o.grid.field_stdev(1), deviation, 1e-9 * deviation);
    EXPECT_EQ(o.grid.field_quantity(1), c_cells);
    statistic const &walked = o.grid.compute_stat_stdev(1);
    EXPECT_EQ(walked.minimum, minimum);
    EXPECT_NEAR(walked.average, mean, 1e-9 * deviation);
    EXPECT_NEAR(walked.stdev, deviation, 1e-9 * deviation);
    std::set<double> const different(numbers.begin(), numbers.end());
    EXPECT_EQ(o.grid.field_distinct(1), different.size());
}

TEST(grid_formats, places_both_ways)
{
    temp_dir const dir;
    std::wstring const path = vx::text::utf8_to_wide((dir / "turned.tif").string());
    constexpr int c_geotiff = 10;
    double const s = std::sin(0.3), c = std::cos(0.3);
    {
        grid_datasource made;
        ASSERT_TRUE(made.create(path, c_geotiff));
        ASSERT_TRUE(
            made.create_grid(L"turned|TILED=YES&COMPRESS=DEFLATE", 0, {40, 30, 1}, 1, data_type::uint16));
        EXPECT_FALSE(made.set_geotransform(Tvx_matrix3x3{{{1, 0, 0}, {0, 1, 0}, {1, 0, 1}}}))
            << "not of the plane";
        ASSERT_TRUE(made.set_spacing({10, -5, 1}) && made.set_origin({1000, 2000, 0}));
        EXPECT_EQ(made.ending(), (grid_origin{1390, 1855, 0}));
        ASSERT_TRUE(made.set_ending({1000, 2000, 0}));
        EXPECT_EQ(made.origin(), (grid_origin{610, 2145, 0}));
        EXPECT_EQ(made.spacing(), (grid_spacing{10, -5, 1}));
        ASSERT_TRUE(made.set_origin({1000, 2000, 0}) && made.set_azimuth(0.3 * 180 / 3.14159265358979323846));
        EXPECT_EQ(made.gridtype(), 0);
        EXPECT_TRUE(made.set_gridtype(1));
        EXPECT_FALSE(made.set_gridtype(2));
    }
    grid_datasource again;
    ASSERT_TRUE(again.open(path, access_update));
    EXPECT_EQ(again.gridtype(), 1);
    Tvx_matrix3x3 plane;
    ASSERT_TRUE(again.geotransform(plane));
    // The centre of cell (3, 2), from the centre of the first.
    double const x = plane.m[0][0] * 3.5 + plane.m[0][1] * 2.5 + plane.m[0][2];
    double const y = plane.m[1][0] * 3.5 + plane.m[1][1] * 2.5 + plane.m[1][2];
    EXPECT_NEAR(x, 1000 + 30 * c + 10 * s, 1e-9);
    EXPECT_NEAR(y, 2000 + 30 * s - 10 * c, 1e-9);
    EXPECT_NEAR(again.azimuth(), 0.3 * 180 / 3.14159265358979323846, 1e-12);
    EXPECT_NEAR(again.spacing().x, 10, 1e-12);
    EXPECT_NEAR(again.spacing().y, -5, 1e-12);
    // In space: the plane's, widened; heights stay as they are.
    Tvx_matrix4x4 space;
    ASSERT_TRUE(again.geotransform(space));
    EXPECT_EQ(space.m[0][1], plane.m[0][1]);
    EXPECT_EQ(space.m[1][3], plane.m[1][2]);
    EXPECT_EQ(space.m[2][2], 1);
    EXPECT_EQ(space.m[3][3], 1);
    EXPECT_EQ(space.m[0][2] + space.m[1][2] + space.m[2][0] + space.m[2][1] + space.m[2][3] + space.m[3][0],
              0);
    space.m[0][3] += 100;
    EXPECT_TRUE(again.set_geotransform(space));
    EXPECT_NEAR(again.origin().x, 1100, 1e-9);
    space.m[2][3] = 5;
    EXPECT_FALSE(again.set_geotransform(space)) << "the grid has no height";
    EXPECT_FALSE(again.set_spacing({0, 1, 1}));
    EXPECT_FALSE(again.set_origin({std::nan(""), 0, 0}));
    EXPECT_NEAR(again.origin().x, 1100, 1e-9);

    // A single cell ends where it begins.
    grid_datasource one;
    ASSERT_TRUE(one.create(vx::text::utf8_to_wide((dir / "one.tif").string()), c_geotiff));
    ASSERT_TRUE(one.create_grid(L"one", 0, {1, 1, 1}, 1, data_type::uint8));
    ASSERT_TRUE(one.set_spacing({3, -3, 1}) && one.set_origin({7, 8, 0}));
    EXPECT_EQ(one.ending(), one.origin());
}
