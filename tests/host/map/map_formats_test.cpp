#include "bundles/gdal_drivers/writing.h"
#include "host/map_scene.h"
#include "map_fixture.h"
#include "support/temp_dir.h"

#include "platform/base/text_codec.h"
#include "platform/layers/layer_keys.h"

#include <QStatusBar>

#include <sys/stat.h>

using namespace vx_test;

namespace {
class map_formats : public map_fixture
{
protected:
    static QString path_of(std::filesystem::path const &path)
    {
        return QString::fromStdString(path.string());
    }

    temp_dir folder;
};

/// A table of towns, the northernmost at 59.9.
void write_towns(std::filesystem::path const &path, int driver, wchar_t const *table)
{
    // The bar ends the name, which may hold other signs of a connection.
    source const made(vx::text::utf8_to_wide(path.string()) + L"|", driver);
    ASSERT_TRUE(made.is_open()) << vx::text::wide_to_utf8(source::refusal());
    ASSERT_TRUE(made.table.create_vector(
        table, 1, 0,
        definition({{L"name", 1, 0, 40}, {L"people", 3}}, L"+proj=longlat +datum=WGS84 +no_defs")))
        << vx::text::wide_to_utf8(made.error());
    Tvx_vtx_d2 const places[] = {{30.3, 59.9}, {37.6, 55.7}, {20.5, 54.7}};
    for (Tvx_vtx_d2 place : places)
        ASSERT_TRUE(add(made, [&](vx::feature f) {
            EXPECT_TRUE(f.set_point(&place) && f.set_string(0, L"Город \"N\"") && f.set_integer(1, 7));
        }));
}

/// An archive of files that are not packed smaller.
std::string archive_of(std::vector<std::pair<std::string, std::string>> const &files)
{
    std::string packed, directory;
    auto const number = [](std::size_t value, int bytes) {
        std::string text;
        for (; bytes > 0; --bytes, value >>= 8)
            text += static_cast<char>(value & 0xff);
        return text;
    };
    for (auto const &[name, bytes] : files) {
        std::string const head = number(20, 14) + number(bytes.size(), 4) + number(bytes.size(), 4) +
                                 number(name.size(), 2) + number(0, 2);
        directory += "PK\1\2" + number(20, 2) + head + number(0, 10) + number(packed.size(), 4) + name;
        packed += "PK\3\4" + head + name + bytes;
    }
    return packed + directory + "PK\5\6" + number(0, 4) + number(files.size(), 2) + number(files.size(), 2) +
           number(directory.size(), 4) + number(packed.size(), 4) + number(0, 2);
}

TEST_F(map_formats, what_is_in_an_archive_is_shown)
{
    auto const example = [](char const *name) { return read_file(std::string(VX_EXAMPLE_DATA "/") + name); };
    struct
    {
        std::vector<std::pair<std::string, std::string>> files;
        QStringList layers;
    } const cases[] = {
        {{{"in/nc.shp", example("nc.shp")}, {"in/nc.shx", example("nc.shx")}}, {"packed"}},
        {{{"nc.shp", example("nc.shp")},
          {"nc.shx", example("nc.shx")},
          {"__MACOSX/._nc.shp", "mine"},
          {"L7.tif", example("L7_ETMs.tif")},
          {"streets.shp", example("streets.shp")},
          {"streets.shx", example("streets.shx")}},
         {"streets", "nc"}},
        {{{"read.me", "read me"}, {"L7.tif", example("L7_ETMs.tif")}}, {"packed"}},
        {{{"read.me", "read me"}}, {}},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.files.front().first);
        write_file(folder / "packed.zip", archive_of(c.files));
        message_reader messages;
        EXPECT_EQ(window->open_files({path_of(folder / "packed.zip")}), c.layers.size());
        EXPECT_EQ(messages.texts.size(), c.layers.empty() ? 1 : 0);
        for (int row = 0; row < c.layers.size(); ++row)
            EXPECT_EQ(layers().name_at(row), c.layers[row]);
        EXPECT_EQ(folder.count(), 1);
        if (c.layers.empty())
            continue;
        select(0);
        run("zoom_to_layer");
        EXPECT_GT(drawn_part(picture()), 0.01);
        while (layers().count() > 0)
            layers().remove(0);
    }
}

TEST_F(map_formats, are_opened_whatever_the_files_are_called)
{
    struct
    {
        char const *file;
        int driver;
        wchar_t const *table;
        char const *name;
    } const cases[] = {
        {"two words.shp", 1, L"two words", "two words"},
        {"Города & сёла.shp", 1, L"Города & сёла", "Города & сёла"},
        {"it's \"quoted\".gpkg", 2, L"Table 'x' \"y\"", "it's \"quoted\""},
        {"Города.GeoJSON", 3, L"t", "Города"},
        {"100% [x] #1.fgb", 4, L"t", "100% [x] #1"},
        {"«Таблица», 'a'.csv", 5, L"t|GEOMETRY=AS_WKT", "«Таблица», 'a'"},
        {"%1 и %20.sqlite", 7, L"Мои города", "%1 и %20"},
        {"a&layer=b.gpkg", 2, L"t", "a&layer=b"},
    };
    int count = 0;
    for (auto const &c : cases) {
        SCOPED_TRACE(c.file);
        ASSERT_NO_FATAL_FAILURE(write_towns(folder / c.file, c.driver, c.table));
        // May only be read.
        ::chmod((folder / c.file).c_str(), 0444);
        int const files = folder.count();
        message_reader messages;
        testing::internal::CaptureStderr();
        EXPECT_EQ(window->open_files({path_of(folder / c.file)}), 1);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        ASSERT_EQ(messages.texts, QStringList());
        ASSERT_EQ(layers().count(), ++count);
        EXPECT_EQ(layers().name_at(0), c.name);
        EXPECT_TRUE(layers().map_unit().is_degree);
        EXPECT_NEAR(layers().extent_at(0).max_y, 59.9, 1e-6);
        QString const tip = layers().data(layers().index(0), Qt::ToolTipRole).toString();
        EXPECT_TRUE(tip.contains(c.file) && tip.contains("3 features")) << tip.toStdString();
        EXPECT_GT(drawn_part(picture()), 1e-4);
        run("hide_all");
        EXPECT_EQ(drawn_part(picture()), 0);
        EXPECT_EQ(folder.count(), files) << "no files appear beside one that is read";
    }
}

TEST_F(map_formats, a_file_that_was_cut_is_drawn_as_far_as_it_goes_and_that_is_said)
{
    std::filesystem::copy(VX_EXAMPLE_DATA "/nc.shx", folder.path());
    for (auto const &[shapes, table] : {std::pair{30000, 0}, {46000, 0}, {-1, 3000}}) {
        write_file(folder / "nc.shp", read_file(VX_EXAMPLE_DATA "/nc.shp").substr(0, std::size_t(shapes)));
        if (table > 0)
            write_file(folder / "nc.dbf", read_file(VX_EXAMPLE_DATA "/nc.dbf").substr(0, std::size_t(table)));
        ASSERT_EQ(window->open_files({path_of(folder / "nc.shp")}), 1);
        EXPECT_TRUE(hand::wait_until([&] { return canvas().is_settled(); }));
        EXPECT_GT(drawn_part(picture()), 0.01);
        EXPECT_TRUE(window->statusBar()->currentMessage().startsWith("Not all of the layer \"nc\""))
            << window->statusBar()->currentMessage().toStdString();
        EXPECT_EQ(layers().mark_at(0), c_mark_damaged) << "when the message is gone, too";
    }
    layers().add(Tvx_layer_list::layer_ptr(vx_lr2d_create(c_lr_key_tld)));
    ASSERT_EQ(open({"nc.shp"}), 1);
    EXPECT_EQ(layers().mark_at(0), c_mark_none);
    EXPECT_EQ(layers().mark_at(1), c_mark_undrawn);
    QVariant const sample = layers().data(layers().index(1), Qt::DecorationRole);
    EXPECT_NE(sample.value<QIcon>().pixmap(32, 20).toImage(),
              vx_layer_symbol(layers().layer_at(1)).pixmap(32, 20).toImage());
    for (int row = 0; row < layers().count(); ++row) {
        QString const tip = layers().data(layers().index(row), Qt::ToolTipRole).toString();
        EXPECT_TRUE(tip.endsWith(vx_layer_mark_text(layers().mark_at(row)))) << tip.toStdString();
    }
}

TEST_F(map_formats, a_table_of_coordinates_is_one_of_points)
{
    struct
    {
        char const *text;
        char const *key;
    } const cases[] = {
        {"name,Longitude,Latitude\nx,1,2\ny,,\nz,far,7\n", c_lr_key_shp_pnt},
        {"X,Y\n1,2\n", c_lr_key_shp_pnt},
        {"y,a,x\n1,2,3\n", c_lr_key_shp_pnt},
        {"lon,lat,WKT\n1,2,\"LINESTRING(0 0,5 5)\"\n", c_lr_key_shp_pln},
    };
    for (auto const &c : cases) {
        write_file(folder / "t.csv", c.text);
        ASSERT_EQ(window->open_files({path_of(folder / "t.csv")}), 1) << c.text;
        EXPECT_STREQ(vx_lr2d_get_lr_type(layers().layer_at(0)), c.key);
    }
    // Who is refused learns what the columns have to be called.
    write_file(folder / "t.csv", "east,north\n1,2\n");
    for (char const *const language : {"en", "ru"}) {
        vx_options_set_language(language);
        message_reader messages;
        EXPECT_EQ(window->open_files({path_of(folder / "t.csv")}), 0);
        ASSERT_EQ(messages.texts.size(), 1);
        EXPECT_EQ(messages.texts.front().count(path_of(folder / "t.csv")), 1);
        for (char const *const name : {"longitude", "latitude", "x", "y", "WKT"})
            EXPECT_TRUE(messages.texts.front().contains(name)) << messages.texts.front().toStdString();
    }
}

TEST_F(map_formats, a_table_of_mixed_shapes_is_a_layer_for_each_kind)
{
    auto const feature = [](char const *type, char const *coordinates) {
        return std::string(R"({"type":"Feature","properties":{"n":1},"geometry":{"type":")") + type +
               R"(","coordinates":)" + coordinates + "}}";
    };
    write_file(folder / "a&b.geojson",
               R"({"type":"FeatureCollection","features":[)" + feature("LineString", "[[0,0],[9,9]]") + "," +
                   feature("Point", "[5,1]") + "," + feature("Polygon", "[[[0,4],[4,9],[0,9],[0,4]]]") + "," +
                   feature("MultiPoint", "[[6,1],[7,1]]") + "]}");
    ASSERT_EQ(window->open_files({path_of(folder / "a&b.geojson")}), 3);
    QString const map = path_of(folder / "mixed.sn");
    ASSERT_TRUE(vx_map_scene_save(map, layers(), canvas().view()));
    for (bool const is_reopened : {false, true}) {
        if (is_reopened) {
            window = std::make_unique<Tvx_map_window>();
            ASSERT_EQ(window->open_files({map}), 3);
        }
        struct
        {
            char const *name, *key, *count;
        } const expected[] = {{"a&b (points)", c_lr_key_shp_pnt, "2 features"},
                              {"a&b (lines)", c_lr_key_shp_pln, "1 feature"},
                              {"a&b (polygons)", c_lr_key_shp_pgn, "1 feature"}};
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(layers().name_at(row), expected[row].name);
            EXPECT_STREQ(vx_lr2d_get_lr_type(layers().layer_at(row)), expected[row].key);
            EXPECT_TRUE(
                layers().data(layers().index(row), Qt::ToolTipRole).toString().contains(expected[row].count));
        }
    }
}

TEST_F(map_formats, parts_of_a_collection_are_in_the_layers_of_their_kinds)
{
    std::string const polygon = R"({"type":"Polygon","coordinates":[[[0,40],[40,90],[0,90],[0,40]]]})";
    std::string const line = R"({"type":"LineString","coordinates":[[0,0],[90,90]]})";
    std::string const point = R"({"type":"Point","coordinates":[50,10]})";
    auto const of = [](std::string const &parts) {
        return R"({"type":"GeometryCollection","geometries":[)" + parts + "]}";
    };
    std::string text = R"({"type":"FeatureCollection","features":[)";
    for (std::string const &shape :
         {of(polygon + "," + of(point + "," + point)), of(line + "," + point), polygon, of(line), of("")})
        text += R"({"type":"Feature","properties":{"n":1},"geometry":)" + shape + "},";
    text.back() = ']';
    write_file(folder / "t.geojson", text + "}");
    ASSERT_EQ(window->open_files({path_of(folder / "t.geojson")}), 3);
    QString const map = path_of(folder / "t.sn");
    ASSERT_TRUE(vx_map_scene_save(map, layers(), canvas().view()));
    QImage shown[3];
    for (bool const is_reopened : {false, true}) {
        if (is_reopened) {
            map_fixture::SetUp();
            ASSERT_EQ(window->open_files({map}), 3);
        }
        // Each has the object without a shape too.
        char const *const counts[] = {"3 features", "3 features", "3 features"};
        for (int row = 0; row < 3; ++row) {
            EXPECT_TRUE(layers().data(layers().index(row), Qt::ToolTipRole).toString().contains(counts[row]));
            run("hide_all");
            layers().set_layer_visible(row, true);
            EXPECT_GT(drawn_part(picture()), 1e-5) << row;
            if (!is_reopened)
                shown[row] = picture();
            EXPECT_EQ(picture(), shown[row]) << row;
        }
    }
}

TEST_F(map_formats, a_raster_whose_place_is_none_lies_in_cells_and_is_marked)
{
    for (char const *const place : {"nan,1,0,0,0,-1", "0,inf,0,0,0,-1", "0,0,0,0,0,0", "5,1,2,7,2,4",
                                    "0,1e308,0,0,0,-1", "3,2,0,9,0,-2"}) {
        write_file(folder / "r.vrt",
                   std::string(R"(<VRTDataset rasterXSize="20" rasterYSize="30"><GeoTransform>)") + place +
                       R"(</GeoTransform><VRTRasterBand dataType="Byte" band="1"/>)" + "</VRTDataset>");
        bool const is_place = place[0] == '3';
        for (char const *const file : {"r.vrt", "r.sn"}) {
            map_fixture::SetUp();
            ASSERT_EQ(window->open_files({path_of(folder / file)}), 1) << place;
            EXPECT_EQ(layers().mark_at(0), is_place ? c_mark_none : c_mark_damaged) << place;
            QString const tip = layers().data(layers().index(0), Qt::ToolTipRole).toString();
            EXPECT_EQ(tip.contains("lies in cells"), !is_place) << tip.toStdString();
            Tvx_box_d2 const box = layers().extent_at(0);
            EXPECT_EQ(box.max_x - box.min_x, is_place ? 40 : 20) << place;
            EXPECT_EQ(box.max_y, is_place ? 9 : 0) << place;
            run("show_all");
            EXPECT_GT(drawn_part(picture()), 0.01) << place;
            ASSERT_TRUE(vx_map_scene_save(path_of(folder / "r.sn"), layers(), canvas().view()));
        }
    }
}

TEST_F(map_formats, a_shapefile_without_its_index_is_read_and_nothing_appears_beside_it)
{
    for (char const *const name : {"nc.shp", "nc.dbf", "nc.prj"})
        if (std::filesystem::exists(std::string(VX_EXAMPLE_DATA "/") + name))
            std::filesystem::copy(std::string(VX_EXAMPLE_DATA "/") + name, folder.path());
    int const files = folder.count();
    ASSERT_EQ(window->open_files({path_of(folder / "nc.shp"), example_file("nc.shp")}), 2);
    auto const tip = [&](int row) {
        return layers().data(layers().index(row), Qt::ToolTipRole).toString().section('\n', 1);
    };
    EXPECT_EQ(tip(1), tip(0));
    layers().set_layer_visible(0, false);
    double const with_index = drawn_part(picture());
    layers().set_layer_visible(0, true);
    layers().set_layer_visible(1, false);
    EXPECT_EQ(drawn_part(picture()), with_index);
    EXPECT_EQ(folder.count(), files);
    // It cannot be changed, and one that is damaged too cannot be read: both are said in our own words.
    EXPECT_FALSE(source((folder / "nc.shp").wstring(), false).is_open());
    EXPECT_NE(source::refusal().find(L"“.shx”, is missing. It can be opened for reading"), std::wstring::npos)
        << vx::text::wide_to_utf8(source::refusal());
    write_file(folder / "nc.shp", read_file(folder / "nc.shp").substr(0, 50));
    EXPECT_FALSE(source((folder / "nc.shp").wstring()).is_open());
    EXPECT_NE(source::refusal().find(L"too damaged"), std::wstring::npos)
        << vx::text::wide_to_utf8(source::refusal());
    EXPECT_EQ(folder.count(), files);
}

TEST_F(map_formats, a_raster_does_not_give_its_unit_to_a_map_of_degrees)
{
    std::filesystem::copy(VX_EXAMPLE_DATA "/nc.shp", folder.path());
    std::filesystem::copy(VX_EXAMPLE_DATA "/nc.shx", folder.path());
    ASSERT_EQ(window->open_files({path_of(folder / "nc.shp"), example_file("olinda_dem_utm25s.tif")}), 2);
    EXPECT_TRUE(layers().map_unit().is_degree);
    EXPECT_TRUE(layers().is_of_other_unit(0));
}
} // namespace
