#include "data/property_import/property_import.h"

#include "data/grid/grid_datasource.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/data/vx_shape_files.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {
using outcome = vx::data::property_import::outcome;
using file_ptr = vx::owned<Ivx_tos4_file, &vx_tos4_file_close>;
using prop_ptr = vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close>;

std::wstring wide(std::filesystem::path const &path)
{
    return vx::text::utf8_to_wide(path.string());
}

std::wstring example(char const *name)
{
    return wide(std::filesystem::path(VX_EXAMPLE_DATA) / name);
}

/// Goes on until it is asked for the n-th time.
struct patience
{
    int left = -1;
    double last = 0;
    bool ask(double done)
    {
        EXPECT_GE(done, last);
        EXPECT_LE(done, 1);
        last = done;
        return left-- != 0;
    }
};

class import : public testing::Test
{
protected:
    outcome run(std::vector<std::wstring> const &sources, int patience_left = -1)
    {
        patience waits{patience_left};
        vx::data::property_import work;
        auto const result = work.execute(sources, wide(f_target), make_closure<&patience::ask>(&waits));
        f_error = work.error();
        EXPECT_EQ(result == outcome::failed, !f_error.empty());
        f_file.reset(vx_tos4_file_open_w(wide(f_target).c_str(), true));
        return result;
    }
    std::wstring text_file(char const *name, std::string_view bytes)
    {
        vx_test::write_file(f_dir / name, bytes);
        return wide(f_dir / name);
    }
    [[nodiscard]] std::wstring names() const
    {
        std::wstring all;
        for (unsigned i = 0; i < vx_tos4_get_prop_count(f_file.get()); ++i) {
            std::wstring name;
            vx_tos4_get_prop_name_w(f_file.get(), i, Tvx_std_wstring_adapter(name));
            all += (i ? L"|" : L"") + name;
        }
        return all;
    }
    [[nodiscard]] std::vector<double> values(unsigned property) const
    {
        std::vector<double> all(vx_tos4_get_object_count_64(f_file.get()));
        prop_ptr const prop(vx_tos4_prop_open(f_file.get(), property));
        EXPECT_EQ(vx_tos4_prop_get_values(prop.get(), 0, all.size(), all.data()), all.size());
        return all;
    }
    /// Numbers with blanks between; "-" is no value.
    [[nodiscard]] std::string value_text(unsigned property) const
    {
        std::string text;
        for (double const v : values(property))
            text += (std::isnan(v) ? "-" : std::to_string(v).substr(0, 4)) + " ";
        return text;
    }

    vx_test::temp_dir f_dir;
    std::filesystem::path f_target = f_dir / "made.tos4";
    std::wstring f_error;
    file_ptr f_file;
};
} // namespace

TEST_F(import, rasters_give_a_property_for_each_channel)
{
    for (char const *const name : {"L7_ETMs.tif", "olinda_dem_utm25s.tif"}) {
        ASSERT_EQ(run({example(name)}), outcome::done) << vx::text::wide_to_utf8(f_error);
        vx::data::grid_datasource grid;
        ASSERT_TRUE(grid.open(example(name), vx::data::access_read));
        ASSERT_EQ(vx_tos4_get_prop_count(f_file.get()), grid.field_count());
        Tvx_tos4_grid place;
        vx_tos4_get_grid(f_file.get(), &place);
        EXPECT_EQ(place.dimensions, 2);
        EXPECT_TRUE(place.count[0] == grid.xcount() && place.count[1] == grid.ycount() &&
                    place.count[2] == 1);
        EXPECT_TRUE(place.origin[0] == grid.origin().x && place.origin[1] == grid.origin().y);
        EXPECT_TRUE(place.spacing[0] == grid.spacing().x && place.spacing[1] == grid.spacing().y);
        std::wstring proj4;
        vx_tos4_get_proj4(f_file.get(), Tvx_std_wstring_adapter(proj4));
        EXPECT_EQ(proj4, grid.projection());
        for (unsigned i = 0; i < grid.field_count(); ++i) {
            std::vector<double> wanted;
            ASSERT_TRUE(grid.field_values(i, wanted));
            EXPECT_EQ(values(i), wanted) << name << i;
            prop_ptr const prop(vx_tos4_prop_open(f_file.get(), i));
            EXPECT_NEAR(vx_tos4_prop_get_statistic_stddev(prop.get()), grid.field_stdev(i), 1e-9);
            EXPECT_EQ(vx_tos4_prop_get_statistic_max(prop.get()), grid.field_maximum(i));
            EXPECT_TRUE(vx_tos4_prop_get_histogram_exist(prop.get()));
        }
    }
    EXPECT_EQ(f_dir.count(), 1);
}

TEST_F(import, a_stack_of_rasters_gives_slices)
{
    char const head[] = "ncols 3\nnrows 2\nxllcorner 10\nyllcorner 20\ncellsize 2\nNODATA_value -9\n";
    auto const low = text_file("low.asc", std::string(head) + "1 2 -9\n4 5 6\n");
    auto const high = text_file("high.asc", std::string(head) + "11 12 13\n-9 15 16\n");
    auto const other =
        text_file("other.asc", "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 1\n1 2\n3 4\n");
    auto const row =
        text_file("row.asc", "ncols 4\nnrows 1\nxllcorner 0\nyllcorner 0\ncellsize 1\n7.5 8 9 10\n");
    ASSERT_EQ(run({low, high, low}), outcome::done) << vx::text::wide_to_utf8(f_error);
    Tvx_tos4_grid place;
    vx_tos4_get_grid(f_file.get(), &place);
    EXPECT_TRUE(place.dimensions == 3 && place.count[0] == 3 && place.count[1] == 2 && place.count[2] == 3);
    EXPECT_TRUE(place.origin[0] == 11 && place.origin[1] == 23 && place.spacing[1] == -2);
    EXPECT_EQ(value_text(0),
              "1.00 2.00 - 4.00 5.00 6.00 11.0 12.0 13.0 - 15.0 16.0 1.00 2.00 - 4.00 5.00 6.00 ");
    // What is no slice leaves the former file as it was.
    for (auto const &wrong : {other, example("L7_ETMs.tif"), example("nc.shp"), wide(f_dir / "absent.asc")}) {
        EXPECT_EQ(run({low, wrong}), outcome::failed);
        EXPECT_NE(f_error.find(wrong), std::wstring::npos);
        EXPECT_EQ(vx_tos4_get_object_count_64(f_file.get()), 18U);
    }
    ASSERT_EQ(run({row}), outcome::done);
    vx_tos4_get_grid(f_file.get(), &place);
    EXPECT_TRUE(place.dimensions == 1 && place.count[0] == 4);
    EXPECT_EQ(value_text(0), "7.50 8.00 9.00 10.0 ");
}

TEST_F(import, tables_and_points_give_a_property_for_each_field_of_numbers)
{
    auto const table =
        text_file("t.csv", "name,depth,temp,mixed,none\na,1.5,10,1,\nb,,11,x,\nc,2.5,-12,3,\n");
    ASSERT_EQ(run({table}), outcome::done) << vx::text::wide_to_utf8(f_error);
    EXPECT_EQ(names(), L"depth|temp");
    EXPECT_EQ(value_text(0) + value_text(1), "1.50 - 2.50 10.0 11.0 -12. ");
    Tvx_tos4_grid place;
    vx_tos4_get_grid(f_file.get(), &place);
    EXPECT_TRUE(place.dimensions == 0 && place.count[0] == 3);

    auto const points = text_file(
        "p.geojson",
        R"({"type":"FeatureCollection","features":[)"
        R"({"type":"Feature","properties":{"n":4},"geometry":{"type":"Point","coordinates":[1,2]}},)"
        R"({"type":"Feature","properties":{"n":null},"geometry":null},)"
        R"({"type":"Feature","properties":{"n":6},"geometry":{"type":"Point","coordinates":[3,4]}}]})");
    ASSERT_EQ(run({points}), outcome::done) << vx::text::wide_to_utf8(f_error);
    EXPECT_EQ(names(), L"X|Y|n");
    EXPECT_EQ(value_text(0) + value_text(1) + value_text(2), "1.00 - 3.00 2.00 - 4.00 4.00 - 6.00 ");

    auto const places = text_file("xy.csv", "x,y,v\n1,2,3\n4,5,6\n");
    ASSERT_EQ(run({places}), outcome::done) << vx::text::wide_to_utf8(f_error);
    EXPECT_EQ(names(), L"x|y|v") << "no coordinates twice";
    for (auto const &wrong : {example("nc.shp"), example("streets.shp"), text_file("w.csv", "name\na\nb\n"),
                              wide(f_dir / "absent.csv")}) {
        EXPECT_EQ(run({wrong}), outcome::failed);
        EXPECT_EQ(names(), L"x|y|v") << "the former file stays";
    }
    ASSERT_EQ(run({example("large_cities.shp")}), outcome::done);
    vx::owned<Ivx_attr_data, &vx_attr_data_release> const data(
        vx_attr_data_create(example("large_cities.shp").c_str()));
    vx::owned<Ivx_shape_files, &vx_shape_files_close> const shapes(vx_shape_files_open(data.get()));
    auto const xs = values(0);
    ASSERT_EQ(xs.size(), vx_shape_files_get_count(shapes.get()));
    for (unsigned i = 0; i < xs.size(); ++i) {
        Tvx_shape_view view;
        ASSERT_TRUE(vx_shape_files_get(shapes.get(), i, &view));
        EXPECT_EQ(xs[i], view.points[0].x);
    }
}

TEST_F(import, can_be_given_up_and_takes_nobody_elses_place)
{
    auto const table = text_file("t.csv", "v,w\n1,a\n");
    ASSERT_EQ(run({table}), outcome::done);
    EXPECT_EQ(run({example("L7_ETMs.tif")}, 0), outcome::given_up);
    EXPECT_EQ(names(), L"v");
    EXPECT_EQ(run({}), outcome::failed);
    EXPECT_EQ(f_dir.count(), 2);
    f_target = f_dir / "t.csv";
    EXPECT_EQ(run({table}), outcome::failed) << "the source itself";
    EXPECT_EQ(vx_test::read_file(f_target), "v,w\n1,a\n");
    f_target = f_dir / "no folder" / "a.tos4";
    EXPECT_EQ(run({table}), outcome::failed);
}
