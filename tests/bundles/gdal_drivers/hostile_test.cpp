#include "source.h"
#include "support/temp_dir.h"
#include "writing.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sqlite3.h>
#include <sys/stat.h>

using namespace vx_test;
namespace fs = std::filesystem;

namespace {
std::wstring wide(fs::path const &path)
{
    return vx::text::utf8_to_wide(path.string());
}

/// Every file of a folder with its bytes.
std::map<std::string, std::string> content(fs::path const &folder)
{
    std::map<std::string, std::string> files;
    for (auto const &entry : fs::recursive_directory_iterator(folder))
        files[entry.path().string()] = entry.is_regular_file() ? read_file(entry.path()) : "";
    return files;
}

TEST(gdal_hostile, what_is_no_data_set_is_refused_with_one_reason)
{
    temp_dir const dir;
    ASSERT_EQ(mkfifo((dir / "pipe.shp").c_str(), 0600), 0);
    write_file(dir / "empty.shp", "");
    write_file(dir / "text.gpkg", "this is no database\n");
    write_file(dir / "noise.tif", std::string("II*\0\xff\xff\xff\xff", 8) + std::string(100, '\xee'));
    fs::create_directory(dir / "folder");
    write_file(dir / "secret.csv", "a,b\n1,2\n");
    fs::permissions(dir / "secret.csv", fs::perms::none);
    std::vector<std::wstring> cases{wide(dir / "pipe.shp"),
                                    wide(dir / "empty.shp"),
                                    wide(dir / "text.gpkg"),
                                    wide(dir / "noise.tif"),
                                    wide(dir / "folder"),
                                    wide(dir / "none.shp"),
                                    L"/dev/zero",
                                    L"/dev/tty",
                                    L"PG:host=127.0.0.1 port=1",
                                    L"|layer=x",
                                    L"*",
                                    L"*|",
                                    std::wstring(5000, L'x')};
    if (geteuid() != 0)
        cases.push_back(wide(dir / "secret.csv"));
    for (auto const &text : cases) {
        SCOPED_TRACE(vx::text::wide_to_utf8(text));
        source const s(text);
        EXPECT_FALSE(s.is_open());
        EXPECT_NE(source::refusal(), L"");
    }
}

TEST(gdal_hostile, cut_and_bent_files_lose_features_but_nothing_else)
{
    std::string const shp = read_file(VX_EXAMPLE_DATA "/nc.shp");
    std::string const shx = read_file(VX_EXAMPLE_DATA "/nc.shx");
    std::string const dbf = read_file(VX_EXAMPLE_DATA "/nc.dbf");
    struct damage
    {
        char const *name;
        std::string shp, shx, dbf;
    };
    auto const bent = [](std::string text, std::size_t at, std::string const &bytes) {
        text.replace(at, bytes.size(), bytes);
        return text;
    };
    std::string const huge("\x7f\xff\xff\xff", 4);
    damage const cases[] = {
        {"cut shapes", shp.substr(0, 3000), shx, dbf},
        {"only the head", shp.substr(0, 100), shx, dbf},
        {"cut table", shp, shx, dbf.substr(0, 900)},
        {"no index", shp, "", dbf},
        {"cut index", shp, shx.substr(0, 150), dbf},
        {"a record of two gigabytes", bent(shp, 104, huge), bent(shx, 104, huge), dbf},
        {"parts without end", bent(shp, 144, std::string("\xff\xff\xff\x7f", 4)), shx, dbf},
        {"points without end", bent(shp, 148, std::string("\xff\xff\xff\x7f", 4)), shx, dbf},
        {"part behind the end", bent(shp, 152, std::string("\xff\xff\xff\x7f", 4)), shx, dbf},
        {"records without end", shp, shx, bent(dbf, 4, std::string("\xff\xff\xff\x7f", 4))},
        {"a field of no width", shp, shx, bent(dbf, 48, std::string(1, '\0'))},
        {"fields wider than the record", shp, shx, bent(dbf, 10, std::string("\x05\0", 2))},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.name);
        temp_dir const dir;
        write_file(dir / "bad.shp", c.shp);
        if (!c.shx.empty())
            write_file(dir / "bad.shx", c.shx);
        write_file(dir / "bad.dbf", c.dbf);
        auto const before = content(dir.path());
        {
            source const s(wide(dir / "bad.shp"));
            EXPECT_TRUE(s.is_open() || !source::refusal().empty());
            vertex_list const list(vx_ov_d2_create());
            int features = 0;
            for (keeper k; features < 1000 && s.forward.with_next_feature(k); ++features) {
                (void)k.item.get_polypoint(list.get());
                for (int i = 0; i < s.data.field_count(); ++i)
                    (void)k.text(i);
            }
            EXPECT_LE(features, 100);
            double value = 0;
            (void)s.stat.minimum(0, &value);
            (void)s.table.feature_count(true);
        }
        EXPECT_EQ(content(dir.path()), before) << "reading changes nothing";
    }
}

TEST(gdal_hostile, reading_leaves_no_files_behind)
{
    temp_dir const dir;
    write_file(dir / "a.gml",
               "<?xml version=\"1.0\"?><c xmlns:gml=\"http://www.opengis.net/gml\"><gml:featureMember><p>"
               "<g><gml:Point><gml:coordinates>1,2</gml:coordinates></gml:Point></g><n>3</n></p>"
               "</gml:featureMember></c>");
    write_file(dir / "b.csv", "x,name\n1.5,\"one, two\"\n2.5,three\n");
    write_file(dir / "c.geojson",
               R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"n":1},
        "geometry":{"type":"Point","coordinates":[1,2,3]}}]})");
    fs::copy(VX_EXAMPLE_DATA "/lc.tif", dir / "d.tif");
    // Databases that their writers left in write-ahead mode.
    struct
    {
        char const *name;
        int driver;
    } const bases[] = {{"e.gpkg", 2}, {"f.sqlite", 7}};
    for (auto const &b : bases) {
        {
            source const made(wide(dir / b.name), b.driver);
            ASSERT_TRUE(made.is_open());
            ASSERT_TRUE(made.table.create_vector(L"t", 1, 0, definition({{L"n", 3}})));
        }
        sqlite3 *base = nullptr;
        ASSERT_EQ(sqlite3_open((dir / b.name).c_str(), &base), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(base, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(base);
    }
    auto const before = content(dir.path());
    for (char const *const name : {"a.gml", "b.csv", "c.geojson", "d.tif", "e.gpkg", "f.sqlite"}) {
        SCOPED_TRACE(name);
        {
            source const s(wide(dir / name));
            EXPECT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
            (void)rest_of(s);
            Tvx_box_d2 box;
            (void)s.data.with_extent(&box, true);
            double value = 0;
            (void)s.stat.minimum(0, &value);
            s.forward.set_attribute_filter(L"FID >= 0 LIMIT 5");
            EXPECT_EQ(content(dir.path()), before) << "while it is open";
        }
        EXPECT_EQ(content(dir.path()), before);
    }
}
/// A small table in a file of the format; gives its bytes.
std::string made_file(fs::path const &path, int driver, wchar_t const *options)
{
    {
        source const made(wide(path), driver);
        EXPECT_TRUE(made.table.create_vector(options, 1, 0, definition({{L"n", 3}, {L"s", 1, 0, 20}})));
        (void)made.table.transaction_start();
        for (int i = 0; i < 60; ++i)
            EXPECT_TRUE(add(made, [&](vx::feature f) {
                Tvx_vtx_d2 place{1.0 * i, 2};
                EXPECT_TRUE(f.set_point(&place) && f.set_integer(0, i) && f.set_string(1, L"text"));
            }));
    }
    return read_file(path);
}

struct file_format
{
    char const *ending;
    int driver;
    wchar_t const *options;
};
constexpr file_format c_formats[] = {{".shp", 1, L"t"},
                                     {".gpkg", 2, L"t"},
                                     {".geojson", 3, L"t"},
                                     {".fgb", 4, L"t"},
                                     {".csv", 5, L"t|GEOMETRY=AS_WKT"},
                                     {".sqlite", 7, L"t"}};

TEST(gdal_hostile, cut_files_of_every_format)
{
    for (auto const &format : c_formats) {
        SCOPED_TRACE(format.ending);
        temp_dir const dir;
        auto const path = dir / (std::string("t") + format.ending);
        std::string const whole = made_file(path, format.driver, format.options);
        ASSERT_GT(whole.size(), 100u);
        for (int part = 0; part < 12; ++part) {
            write_file(path,
                       std::string_view(whole).substr(0, whole.size() * static_cast<unsigned>(part) / 12));
            source const s(wide(path));
            EXPECT_TRUE(s.is_open() || !source::refusal().empty());
            EXPECT_LE(rest_of(s).size(), 60u);
            double value = 0;
            for (int field = -1; field < 4; ++field) {
                (void)s.stat.maximum(field, &value);
                (void)texts_of([&](vx::string_visitor v) { (void)s.stat.with_unique_strings(field, 9, v); });
            }
            Tvx_box_d2 box;
            (void)s.data.with_extent(&box, true);
        }
    }
}

TEST(gdal_hostile, names_of_files_with_marks_and_other_letters)
{
    for (auto const &format : c_formats) {
        temp_dir const dir;
        for (char const *const name :
             {"with blanks  two", "it's \"quoted\"", "a&b=c", "Карта №1", "100%", "#hash"}) {
            auto const path = dir / (std::string(name) + format.ending);
            SCOPED_TRACE(path.string());
            std::string const bytes =
                made_file(dir / (std::string("t") + format.ending), format.driver, format.options);
            for (auto const &entry : fs::directory_iterator(dir.path()))
                if (entry.path().stem() == "t")
                    fs::rename(entry.path(), dir / (std::string(name) + entry.path().extension().string()));
            source const s(wide(path));
            ASSERT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
            EXPECT_EQ(rest_of(s).size(), 60u);
            long long count = 0;
            EXPECT_TRUE(s.stat.count_distinct(s.field(L"n"), &count));
            EXPECT_EQ(count, 60);
            // What the source names for its table opens it again. "|" begins the options everywhere.
            auto const again = text_of([&](vx::string_visitor v) { s.data.vector_source(0, v); });
            EXPECT_TRUE(source(again).is_open()) << vx::text::wide_to_utf8(again);
        }
    }
}

TEST(gdal_hostile, a_file_that_may_not_be_written)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "nothing is forbidden to this user";
    for (auto const &format : c_formats) {
        SCOPED_TRACE(format.ending);
        temp_dir const dir;
        auto const path = dir / (std::string("t") + format.ending);
        (void)made_file(path, format.driver, format.options);
        for (auto const &entry : fs::directory_iterator(dir.path()))
            fs::permissions(entry.path(), fs::perms::owner_read);
        auto const before = content(dir.path());
        EXPECT_FALSE(source(wide(path), false).is_open());
        EXPECT_NE(source::refusal(), L"");
        EXPECT_EQ(rest_of(source(wide(path))).size(), 60u);
        EXPECT_EQ(content(dir.path()), before);
    }
}
} // namespace
