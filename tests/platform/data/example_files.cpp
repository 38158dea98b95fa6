#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"

#include <gtest/gtest.h>

/// The example data through the real driver. The expected values are those of the files' own bytes.
namespace {
using attr_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using attr_files = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
using shape_files = vx::owned<Ivx_shape_files, &vx_shape_files_close>;

attr_data example(std::string const &name)
{
    return attr_data(vx_attr_data_create(vx::text::utf8_to_wide(VX_EXAMPLE_DATA "/" + name).c_str()));
}

std::wstring error_of(Ivx_attr_data *data)
{
    std::wstring error;
    vx_attr_data_get_werror(data, Tvx_std_wstring_adapter(error));
    return error;
}

struct file_case
{
    char const *name;
    unsigned records;
    unsigned fields;
    Tvx_shape_kind kind;
    int parts;
    unsigned points;
    Tvx_box_d2 box;
};
file_case const files[] = {
    {"nc.shp",
     100,
     14,
     c_shape_polygon,
     108,
     2529,
     {-84.3238525390625, 33.88199234008789, -75.45697784423828, 36.58964920043945}},
    {"world.shp", 177, 10, c_shape_polygon, 290, 10657, {-180.0, -89.9, 179.99999, 83.64513000000001}},
    {"streets.shp",
     293,
     2,
     c_shape_polyline,
     293,
     596,
     {723414.3683108028, 875929.0396895551, 728644.987172764, 881276.8174424708}},
    {"naturalearth_cities.shp",
     243,
     1,
     c_shape_point,
     243,
     243,
     {-175.2205645, -41.2920679923151, 179.2166471, 64.14345946317033}},
};
} // namespace

TEST(example_files, have_their_records_and_shapes)
{
    for (auto const &f : files) {
        SCOPED_TRACE(f.name);
        auto const data = example(f.name);
        attr_files const table(vx_attr_files_open(data.get(), 1, 0));
        ASSERT_TRUE(table) << vx::text::wide_to_utf8(error_of(data.get()));
        EXPECT_EQ(f.records, vx_attr_files_get_no(table.get()));
        EXPECT_EQ(f.fields, vx_attr_files_get_np(table.get()));
        shape_files const shapes(vx_shape_files_open(data.get()));
        EXPECT_EQ(f.records, vx_shape_files_get_count(shapes.get()));
        int parts = 0;
        unsigned points = 0;
        for (unsigned i = 0; i < f.records; ++i) {
            Tvx_shape_view view;
            ASSERT_TRUE(vx_shape_files_get(shapes.get(), i, &view));
            EXPECT_EQ(f.kind, view.kind);
            parts += view.part_count;
            points += view.part_starts[view.part_count] - view.part_starts[0];
        }
        EXPECT_EQ(f.parts, parts);
        EXPECT_EQ(f.points, points);
        EXPECT_EQ(f.box, vx_shape_files_get_box(shapes.get()));
        Tvx_box_d2 extent;
        EXPECT_TRUE(vx_attr_data_get_extent(data.get(), &extent));
        EXPECT_EQ(f.box, extent);
    }
}

TEST(example_files, bad_files_are_refused_with_a_reason)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "empty.shp", "");
    vx_test::write_file(dir / "noise.shp", std::string(5000, '\x5A'));
    vx_test::write_file(dir / "cut.shp", vx_test::read_file(VX_EXAMPLE_DATA "/nc.shp").substr(0, 90));
    for (auto const *name : {"empty.shp", "noise.shp", "cut.shp", "missing.shp", "."}) {
        SCOPED_TRACE(name);
        attr_data const data(vx_attr_data_create((dir / name).wstring().c_str()));
        EXPECT_FALSE(vx_attr_data_open(data.get()));
        EXPECT_NE(L"", error_of(data.get()));
        EXPECT_EQ(nullptr, vx_attr_files_open(data.get(), 1, 0));
        EXPECT_EQ(nullptr, vx_shape_files_open(data.get()));
    }
    EXPECT_EQ(3, dir.count()) << "looking leaves nothing behind";
}
