#include "scale_engine/real_files.h"
#include "scale_engine/scale_fixture.h"
#include "scale_engine/vxk_task.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

/// Default scales and resets on files of each kind.
namespace {
using namespace scale_fixture;
using namespace vx::task;
using vx::data::connection;

enum class kind
{
    shapefile,
    geopackage,
    geotiff,
};

class real_data : public testing::TestWithParam<kind>
{
protected:
    void SetUp() override
    {
        if (GetParam() == kind::geotiff)
            f_source = real_files::raster(f_dir, "olinda_dem_utm25s.tif");
        else
            f_source = real_files::shapefile(f_dir, "world");
        if (GetParam() == kind::geopackage)
            f_source = real_files::geopackage(f_dir, f_source);
        vx::data::generic_datasource source;
        ASSERT_TRUE(source.open(f_source, vx::data::access_read));
        f_field = GetParam() == kind::geotiff ? source.field_name(0) : L"lifeExp";
        ASSERT_TRUE(source.field_values(source.field_index(f_field), f_values));
        ASSERT_FALSE(f_values.empty());
        f_minimum = *std::min_element(f_values.begin(), f_values.end());
        f_maximum = *std::max_element(f_values.begin(), f_values.end());
    }
    [[nodiscard]] std::filesystem::path scale_file() const
    {
        auto const name = std::filesystem::path(f_source).stem().wstring() + L"." + f_field + L"._rg";
        return f_dir.path() / name;
    }

    vx_test::temp_dir f_dir;
    std::wstring f_source;
    std::wstring f_field;
    std::vector<double> f_values;
    double f_minimum = 0;
    double f_maximum = 0;
};

TEST_P(real_data, a_default_scale_is_made_saved_and_found_again)
{
    scales s;
    range_scale_default const task(connection(f_source), f_field, c_palette_rainbow);
    ASSERT_TRUE(task.execute(s.mngr.get(), 5));
    ASSERT_TRUE(std::filesystem::exists(scale_file()));
    EXPECT_EQ(c_stl_mngr_mode_range, vx_stl_mngr_get_mode(s.mngr.get()));
    EXPECT_EQ(f_field, scale_text(&vx_stl_mngr_get_rng_prop_name_w, s.mngr.get()));
    auto const round = [](double value) { return range_scale_round_digits::round_digits(value, -2); };
    ASSERT_EQ(5U, vx_rng_scale_get_size(s.rng));
    EXPECT_EQ(std::pair(round(f_minimum), round(f_maximum)), span_of(s.rng));
    EXPECT_EQ(round(f_minimum + 2 * ((f_maximum - f_minimum) / 5)), bounds_of(s.rng)[2].first);
    std::vector<Tvx_color> colors(7);
    vx_clr_arrays_generate(c_palette_rainbow, 7, colors.data());
    for (std::size_t i = 0; i < colors.size(); ++i)
        EXPECT_EQ(colors[i], color_of(range_prms(s.rng)[i])) << i;

    // Found again, as it was saved, whatever is asked for now.
    range_scale_make_colors::execute(s.rng, c_palette_red, false);
    EXPECT_TRUE(task.save_scale(s.mngr.get()));
    scales other;
    EXPECT_TRUE(
        range_scale_default(connection(f_source), f_field, c_palette_blue).execute(other.mngr.get(), 9));
    EXPECT_TRUE(vx_rng_scale_equal(s.rng, other.rng));

    // A file that cannot be read is replaced.
    vx_test::write_file(scale_file(), "no scale");
    EXPECT_TRUE(
        range_scale_default(connection(f_source), f_field, c_palette_blue).execute(other.mngr.get(), 9));
    EXPECT_EQ(9U, vx_rng_scale_get_size(other.rng));
    EXPECT_TRUE(task.load_scale(s.mngr.get()));
    EXPECT_TRUE(vx_rng_scale_equal(s.rng, other.rng));
}

TEST_P(real_data, virtual_sources_and_missing_fields)
{
    scales s;
    int const before = f_dir.count();
    struct shown
    {
        static void open(wchar_t const *, bool read_only, void *context, t_vx_data_source_interface *result)
        {
            auto const &source = *static_cast<std::wstring *>(context);
            vx::data::datasource_open(source.c_str(), read_only, nullptr, result);
        }
    };
    connection const hidden(L"*" + f_source, &shown::open, &f_source);
    EXPECT_FALSE(range_scale_default(hidden, f_field, c_palette_rainbow).execute(s.mngr.get(), 4));
    EXPECT_EQ(4U, vx_rng_scale_get_size(s.rng)) << "the scale is made all the same";
    EXPECT_EQ(before, f_dir.count());

    // Without a span the scale stays as it is, uncoloured, and is saved.
    scales plain;
    number_by_color(range_prms(plain.rng));
    EXPECT_TRUE(
        range_scale_default(connection(f_source), L"no such", c_palette_red).execute(plain.mngr.get(), 4));
    EXPECT_EQ(0U, vx_rng_scale_get_size(plain.rng));
    EXPECT_EQ((std::vector{0, 1, 2}), numbers_by_color(range_prms(plain.rng)));
    EXPECT_EQ(before + 1, f_dir.count());
    EXPECT_FALSE(range_scale_reset(connection(f_source), L"no such").execute(s.rng, 3));
    EXPECT_FALSE(range_scale_reset(connection(L"/no/such.shp"), f_field).execute(s.rng, 3));
    EXPECT_EQ(4U, vx_rng_scale_get_size(s.rng));
}

TEST_P(real_data, reset_goes_by_the_type_of_the_scale)
{
    scales s;
    range_scale_reset const task(connection(f_source), f_field);
    auto const reset = [&](int type, unsigned nranges) {
        vx_rng_scale_set_rng_type(s.rng, type);
        vx_rng_scale_set_round_digits(s.rng, -1);
        return task.execute(s.rng, nranges);
    };
    fill_ranges(s.rng, bounds_list(7, {1, 2}));
    for (int const type : {c_rng_type_stdev, c_rng_type_log, c_rng_type_equal_area, 77}) {
        EXPECT_TRUE(reset(type, 3));
        EXPECT_EQ(bounds_list(7, {1, 2}), bounds_of(s.rng)) << type;
    }
    EXPECT_TRUE(reset(c_rng_type_equal_ranges, 0));
    EXPECT_EQ(7U, vx_rng_scale_get_size(s.rng)) << "as many as there are";

    EXPECT_TRUE(reset(c_rng_type_log_space, 3));
    bool const shifted = f_minimum <= 0;
    double const shift = shifted ? 1 - f_minimum : 0;
    double const first = std::log(f_minimum + shift);
    double const bound = std::exp(first + (std::log(f_maximum + shift) - first) / 3) - shift;
    EXPECT_NEAR(bound, bounds_of(s.rng)[0].second, 0.051);

    EXPECT_TRUE(reset(c_rng_type_natural_breaks, 4));
    auto const bounds = bounds_of(s.rng);
    ASSERT_EQ(4U, bounds.size());
    EXPECT_NEAR(f_minimum, bounds.front().first, 0.051);
    EXPECT_NEAR(f_maximum, bounds.back().second, 0.051);
    for (std::size_t i = 0; i + 1 < bounds.size(); ++i) {
        EXPECT_EQ(bounds[i].second, bounds[i + 1].first);
        bool const is_value = std::any_of(f_values.begin(), f_values.end(), [&](double value) {
            return range_scale_round_digits::round_digits(value, -1) == bounds[i].second;
        });
        EXPECT_TRUE(is_value) << "a break is a value of the field";
    }

    // A span without a data set serves the types that need no data.
    EXPECT_TRUE(range_scale_reset(5, 9).execute(s.rng, 2));
    EXPECT_EQ(bounds, bounds_of(s.rng));
    vx_rng_scale_set_rng_type(s.rng, c_rng_type_equal_ranges);
    EXPECT_TRUE(range_scale_reset(5, 9).execute(s.rng, 2));
    EXPECT_EQ((bounds_list{{5, 7}, {7, 9}}), bounds_of(s.rng));
}

INSTANTIATE_TEST_SUITE_P(files, real_data, testing::Values(kind::shapefile, kind::geopackage, kind::geotiff),
                         [](auto const &p) {
                             return std::string(p.param == kind::shapefile    ? "shapefile"
                                                : p.param == kind::geopackage ? "geopackage"
                                                                              : "geotiff");
                         });
} // namespace
