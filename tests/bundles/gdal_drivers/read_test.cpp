#include "run_sql.h"
#include "source.h"
#include "support/comma_locale.h"
#include "support/temp_dir.h"
#include "writing.h"

#include "platform/data/vx_dbf.h"

#include <climits>
#include <filesystem>
#include <gtest/gtest.h>

using namespace vx_test;
namespace fs = std::filesystem;

namespace {
// The expected numbers were counted from the bytes of the files.

struct example_case
{
    char const *file;
    unsigned long long features;
    int fields;
    int geom_type;
    Tvx_box_d2 box;
};
constexpr example_case c_examples[] = {
    {"nc.shp", 100, 14, 5, {-84.3238525390625, 33.88199234008789, -75.45697784423828, 36.58964920043945}},
    {"streets.shp", 293, 2, 3, {723414.3683108028, 875929.0396895551, 728644.987172764, 881276.8174424708}},
    {"world.shp", 177, 10, 5, {-180.0, -89.9, 179.99999, 83.64513000000001}},
    {"naturalearth_cities.shp", 243, 1, 1, {-175.2205645, -41.2920679923151, 179.2166471, 64.14345946317033}},
};

TEST(gdal_read, tells_what_a_table_is)
{
    for (auto const &c : c_examples) {
        SCOPED_TRACE(c.file);
        source const s(example(c.file));
        ASSERT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
        ASSERT_TRUE(s.table && s.forward && s.random && s.stat);
        EXPECT_EQ(s.table.feature_count(false), c.features);
        EXPECT_EQ(s.data.field_count(), c.fields);
        EXPECT_EQ(s.table.geom_type(), c.geom_type);
        EXPECT_EQ(s.data.vector_count(), 1);
        EXPECT_EQ(s.data.grid_count(), 0);
        Tvx_box_d2 box;
        EXPECT_TRUE(s.data.with_extent(&box, false));
        EXPECT_EQ(box, c.box);
        EXPECT_EQ(rest_of(s).size(), c.features);
        EXPECT_GE(texts_of([&](vx::string_visitor v) { s.data.with_files(v); }).size(), 3u);
        EXPECT_TRUE(s.data.has_capability(0)) << "single records are found by their number";
        EXPECT_FALSE(s.data.has_capability(2)) << "opened for reading";
        EXPECT_EQ(s.error(), L"");
    }
}

TEST(gdal_read, fields)
{
    source const s(example("nc.shp"));
    auto const name = [&](int i) { return text_of([&](vx::string_visitor v) { s.data.field_name(i, v); }); };
    EXPECT_EQ(name(0), L"AREA");
    EXPECT_EQ(name(4), L"NAME");
    EXPECT_EQ(name(14), L"");
    EXPECT_EQ(name(-1), L"");
    EXPECT_EQ(s.data.field_type(0), 2);
    EXPECT_EQ(s.data.field_type(4), 1);
    EXPECT_EQ(s.data.field_type(7), 3);
    EXPECT_EQ(s.data.field_type(99), 0);
    EXPECT_EQ(s.table.field_width(4), 80);
    EXPECT_EQ(s.table.field_precision(0), 15);
    EXPECT_TRUE(s.data.field_readonly(0));
    EXPECT_EQ(s.field(L"SID74"), 9);
    EXPECT_EQ(s.field(L"no such"), -1);
    auto const free_name = [&](wchar_t const *wanted) {
        return text_of([&](vx::string_visitor v) { EXPECT_TRUE(s.data.make_field_name(wanted, v)); });
    };
    EXPECT_EQ(free_name(L"sid74"), L"sid741");
    EXPECT_EQ(free_name(L"a_rather_long_name"), L"a_rather_l") << "the format keeps ten characters";
}

TEST(gdal_read, geometry)
{
    vertex_list const list(vx_ov_d2_create());
    {
        source const s(example("nc.shp"));
        std::size_t parts = 0;
        keeper k;
        while (s.forward.with_next_feature(k)) {
            ASSERT_EQ(k.item.geom_type(), 5);
            ASSERT_TRUE(k.item.get_polypoint(list.get()));
            EXPECT_EQ(vx_ov_d2_get_vector_type(list.get()), c_vector_polygon);
            Tvx_box_d2 box, around;
            for (std::size_t p = 0; p < vx_ov_d2_get_size(list.get()); ++p, ++parts) {
                auto const *const part = vx_ov_d2_get_pv_ptr(list.get(), p);
                auto const *const data = vx_pv_d2_get_data(part);
                std::size_t const count = vx_pv_d2_get_size(part);
                ASSERT_GE(count, 4u);
                EXPECT_EQ(data[0], data[count - 1]);
                for (std::size_t i = 0; i < count; ++i)
                    around.add(data[i].x, data[i].y);
            }
            ASSERT_TRUE(k.item.with_extent(&box));
            EXPECT_EQ(box, around);
        }
        EXPECT_EQ(parts, 108u) << "five counties have islands";
        Tvx_vtx_d2 vertex{1, 2};
        EXPECT_FALSE(k.item.get_point(&vertex));
        EXPECT_FALSE(k.item.get_multipoint(list.get()));
        EXPECT_EQ(vx_ov_d2_get_size(list.get()), 0u) << "a wrong kind leaves the list empty";
    }
    source const cities(example("naturalearth_cities.shp"));
    keeper k;
    ASSERT_TRUE(cities.random.with_feature(0, k));
    EXPECT_EQ(k.text(0), L"Vatican City");
    Tvx_vtx_d2 vertex;
    ASSERT_TRUE(k.item.get_point(&vertex));
    EXPECT_NEAR(vertex.x, 12.4533865, 1e-6);
    EXPECT_NEAR(vertex.y, 41.9032822, 1e-6);
    Tvx_vtx_d3 high{0, 0, 9};
    ASSERT_TRUE(k.item.get_point_z(&high));
    EXPECT_EQ(high.z, 0);
    EXPECT_TRUE(k.item.get_multipoint(list.get())) << "a point is a list of one";
    EXPECT_EQ(vx_ov_d2_get_vtx_count(list.get()), 1u);
    EXPECT_NE(text_of([&](vx::string_visitor v) { cities.data.with_proj4(v); }).find(L"+proj=longlat"),
              std::wstring::npos);
}

TEST(gdal_read, questions_in_between_leave_the_reading_where_it_is)
{
    source const s(example("nc.shp"));
    keeper k;
    for (int i = 0; i < 10; ++i)
        s.forward.with_next_feature(k);
    double value = 0;
    EXPECT_TRUE(s.stat.maximum(9, &value));
    EXPECT_EQ(s.table.feature_count(true), 100u);
    EXPECT_FALSE(s.random.with_feature(100, k));
    EXPECT_EQ(k.item.fid(), 9) << "nothing was visited";
    ASSERT_TRUE(s.forward.with_next_feature(k));
    EXPECT_EQ(k.item.fid(), 10);
}

TEST(gdal_read, features_outlive_their_source)
{
    keeper k;
    {
        source const s(example("nc.shp"));
        ASSERT_TRUE(s.forward.with_next_feature(k));
    }
    EXPECT_EQ(k.text(4), L"Ashe");
    EXPECT_EQ(k.item.geom_type(), 5);
}

struct filter_case
{
    wchar_t const *text;
    bool is_taken;
    std::vector<long long> fids; ///< of the features that pass
};

TEST(gdal_read, attribute_filters)
{
    std::vector<filter_case> const cases{
        {L"NAME = 'Ashe'", true, {0}},
        {L"CRESS_ID <= 2", true, {}}, // filled in below
        {L"FID >= 0 LIMIT 3 OFFSET 97", true, {97, 98, 99}},
        {L"FID >= 0 LIMIT 50 OFFSET 98", true, {98, 99}},
        {L"FID >= 0 LIMIT 0 OFFSET 0", true, {}},
        {L"FID >= 0 LIMIT 2 OFFSET 100", true, {}},
        {L"fid >= 10 limit 2 offset 1", true, {11, 12}},
        {L"LIMIT 2", true, {0, 1}},
        {L"NAME = 'x LIMIT 5'", true, {}},
        {L"FID >= 98 OFFSET 99999999999999999999999", true, {}},
        {L"no such thing ((", false, {}},
        {L"NO_FIELD = 3", false, {}},
    };
    source const s(example("nc.shp"));
    for (auto const &c : cases) {
        SCOPED_TRACE(vx::text::wide_to_utf8(c.text));
        ASSERT_TRUE(s.forward.set_attribute_filter(nullptr));
        EXPECT_EQ(s.forward.set_attribute_filter(c.text), c.is_taken);
        if (!c.is_taken) {
            EXPECT_NE(s.error(), L"");
            EXPECT_EQ(s.table.feature_count(true), 100u) << "a refused filter changes nothing";
            continue;
        }
        auto const found = rest_of(s);
        EXPECT_EQ(s.table.feature_count(true), found.size());
        if (std::wstring(c.text).find(L"CRESS") != std::wstring::npos)
            EXPECT_EQ(found.size(), 2u);
        else
            EXPECT_EQ(found, c.fids);
    }
    EXPECT_EQ(text_of([&](vx::string_visitor v) { s.table.fid_field_name(v); }), L"FID");
    s.forward.set_attribute_filter(L"FID >= 0 LIMIT 5 OFFSET 10");
    ASSERT_TRUE(s.random.moveto_index(3));
    EXPECT_EQ(rest_of(s), (std::vector<long long>{13, 14})) << "positions count within the page";
}

TEST(gdal_read, connection_options)
{
    std::wstring const folder = vx::text::utf8_to_wide(VX_EXAMPLE_DATA);
    source const all(folder);
    ASSERT_TRUE(all.is_open());
    constexpr int c_count = 6; // the layers, and a legend's table
    EXPECT_EQ(all.data.vector_count(), c_count);
    for (int i = 0; i < c_count; ++i) {
        source const one(text_of([&](vx::string_visitor v) { all.data.vector_source(i, v); }));
        ASSERT_TRUE(one.is_open());
        EXPECT_EQ(text_of([&](vx::string_visitor v) { one.data.with_name(v); }),
                  text_of([&](vx::string_visitor v) { all.data.vector_name(i, v); }));
    }
    EXPECT_TRUE(all.table.select_vector(L"streets"));
    EXPECT_EQ(all.table.feature_count(true), 293u);
    EXPECT_FALSE(all.table.select_vector(L"nowhere"));
    EXPECT_EQ(all.table.feature_count(true), 293u);

    EXPECT_FALSE(source(example("nc.shp|layer=other")).is_open());
    EXPECT_NE(source::refusal().find(L"other"), std::wstring::npos);
    EXPECT_TRUE(source(L"*" + example("nc.shp|geom_type=POLYGON&layer=nc")).is_open());
    source const points(example("nc.shp|geom_type=point"));
    EXPECT_EQ(points.table.feature_count(true), 0u);
    EXPECT_EQ(points.table.feature_count(false), ULLONG_MAX) << "not known without a look";
    EXPECT_TRUE(rest_of(points).empty());
}

TEST(gdal_read, numbers_do_not_depend_on_the_locale)
{
    comma_locale const comma;
    source const s(example("nc.shp"));
    keeper k;
    ASSERT_TRUE(s.forward.with_next_feature(k));
    EXPECT_EQ(k.text(0), L"0.114");
    EXPECT_TRUE(s.forward.set_attribute_filter(L"AREA < 0.05"));
    EXPECT_FALSE(rest_of(s).empty());
}
} // namespace

namespace {
TEST(gdal_read, deleted_records_are_no_features)
{
    temp_dir const dir;
    std::wstring const path = vx::text::utf8_to_wide((dir / "t.shp").string());
    {
        source const s(path, 1);
        ASSERT_TRUE(s.table.create_vector(L"t", 1, 0, definition({{L"n", 3}})));
        for (int i = 0; i < 10; ++i)
            ASSERT_TRUE(add(s, [&](vx::feature f) {
                Tvx_vtx_d2 place{1.0 * i, 2};
                EXPECT_TRUE(f.set_point(&place) && f.set_integer(0, i));
            }));
        for (long long const fid : {0LL, 4LL, 5LL, 9LL})
            ASSERT_TRUE(s.table.delete_feature(fid));
        EXPECT_EQ(s.table.feature_count(true), 6u);
    }
    ASSERT_EQ(fs::file_size(dir / "t.shx"), 100u + 8 * 10) << "the records are still there";
    std::vector<long long> const all{1, 2, 3, 6, 7, 8};
    for (bool const read_only : {true, false}) {
        source const s(path, read_only);
        EXPECT_EQ(s.table.feature_count(true), 6u);
        EXPECT_EQ(s.table.feature_count(false), 6u);
        EXPECT_FALSE(s.data.has_capability(0)) << "identifiers are no positions";
        std::vector<long long> walked;
        for (keeper k; s.forward.with_next_feature(k);) {
            walked.push_back(k.item.fid());
            EXPECT_EQ(s.table.feature_count(true), 6u);
            double value = 0;
            EXPECT_TRUE(s.stat.maximum(0, &value));
            EXPECT_EQ(value, 8);
        }
        EXPECT_EQ(walked, all) << "counting on the way repeats nothing";
        for (std::size_t i = 0; i < all.size(); ++i) {
            ASSERT_TRUE(s.random.moveto_index(static_cast<long long>(i)));
            EXPECT_EQ(rest_of(s),
                      std::vector<long long>(all.begin() + static_cast<std::ptrdiff_t>(i), all.end()));
        }
        ASSERT_TRUE(s.forward.set_attribute_filter(L"FID >= 0 LIMIT 2 OFFSET 3"));
        EXPECT_EQ(rest_of(s), (std::vector<long long>{6, 7}));
        EXPECT_EQ(s.table.feature_count(true), 2u);
        ASSERT_TRUE(s.forward.set_attribute_filter(L"n > 2"));
        EXPECT_EQ(s.table.feature_count(true), 4u);
        ASSERT_TRUE(s.random.moveto_index(2));
        EXPECT_EQ(rest_of(s), (std::vector<long long>{7, 8}));
        ASSERT_TRUE(s.forward.set_attribute_filter(nullptr));
        Tvx_box_d2 box{3.5, 0, 7.5, 9};
        ASSERT_TRUE(s.forward.set_spatial_filter(&box));
        EXPECT_EQ(s.table.feature_count(true), 2u);
        EXPECT_EQ(rest_of(s), (std::vector<long long>{6, 7}));
    }
}

TEST(gdal_read, code_pages_are_those_of_the_table)
{
    temp_dir const dir;
    {
        source const s((dir / "t.shp").wstring() + L"|ENCODING=CP866", 1);
        ASSERT_TRUE(s.table.create_vector(L"t", 1, 0, definition({{L"s", 1, 0, 8}})));
        ASSERT_TRUE(add(s, [](vx::feature f) { EXPECT_TRUE(f.set_string(0, L"xy")); }));
    }
    std::string const table = read_file(dir / "t.dbf");
    std::size_t const cell = table.find("xy");
    ASSERT_NE(cell, std::string::npos);
    struct
    {
        char const *beside; ///< null: no such file
        unsigned char mark;
        char const *bytes;
        wchar_t const *expected;
    } const cases[] = {
        {"OEM 866", 0, "\x86\xA6", L"Жж"},   {"LDID/201", 0, "\xC6\xE6", L"Жж"},
        {"KOI8-R", 0, "\xF6\xD6", L"Жж"},    {"866", 0xC9, "\x86\xA6", L"Жж"},
        {"ANSI 1251", 0, "\xC6\xE6", L"Жж"}, {"ISO88595", 0, "\xB6\xD6", L"Жж"},
        {nullptr, 0xC9, "\xC6\xE6", L"Жж"},  {nullptr, 0x26, "\x86\xA6", L"Жж"},
        {"Shift_JIS", 0, "\x93\xFA", L"日"}, {"Big5", 0, "\xA4\xE9", L"日"},
        {"UTF-8", 0x57, "\xD0\x96", L"Ж"},   {nullptr, 0, "\xC6\xE6", L"Жж"},
        {nullptr, 0, "\x86\xA6", L"Жж"},     {"nonsense", 0, "\xD0\x96", L"Ж"},
        {nullptr, 0, "\xE9-", L"é-"},
    };
    for (auto const &[beside, mark, bytes, expected] : cases) {
        SCOPED_TRACE((beside ? beside : "no mark beside") + std::string(" ") + std::to_string(mark));
        fs::remove(dir / "t.cpg");
        if (beside)
            write_file(dir / "t.cpg", beside);
        std::string changed = table;
        changed[29] = static_cast<char>(mark);
        changed.replace(cell, 2, bytes);
        write_file(dir / "t.dbf", changed);
        vx::dbf_handle const dbf(vx_dbf_open_w((dir / "t.dbf").wstring().c_str(), 1, 0));
        EXPECT_STREQ(vx_dbf_get_wstr(dbf.get(), 0, 0, nullptr), expected);
        for (bool const read_only : {true, false}) {
            source const s((dir / "t.shp").wstring(), read_only);
            keeper k;
            ASSERT_TRUE(s.forward.with_next_feature(k));
            EXPECT_EQ(k.text(0), expected);
            EXPECT_EQ(texts_of([&](vx::string_visitor v) { s.stat.with_unique_strings(0, -1, v); }),
                      std::vector<std::wstring>{expected});
        }
    }
}

TEST(gdal_read, tables_of_text_are_read_in_the_page_that_they_look_like)
{
    temp_dir const dir;
    struct
    {
        char const *bytes;
        wchar_t const *expected;
    } const cases[] = {
        {"\xCC\xEE\xF1\xEA\xE2\xE0", L"Москва"},
        {"\x8A\xA0\xA7\xA0\xAD\xEC", L"Казань"},
        {"Z\xFCrich Gen\xE8ve", L"Zürich Genève"},
        {"Тверь", L"Тверь"},
    };
    for (auto const &[bytes, expected] : cases) {
        std::string const content = "x;y;" + std::string(bytes) + "\n1;2;" + bytes + "\n";
        write_file(dir / "t.csv", content);
        source const s((dir / "t.csv").wstring());
        EXPECT_EQ(s.field(expected), 2);
        keeper k;
        ASSERT_TRUE(s.forward.with_next_feature(k));
        EXPECT_EQ(k.text(2), expected);
        // What would be written in another page is not changed.
        bool const is_utf8 = std::wstring(expected) == L"Тверь";
        EXPECT_EQ(source((dir / "t.csv").wstring(), false).is_open(), is_utf8);
        EXPECT_EQ(source::refusal().find(L"not in UTF-8") == std::wstring::npos, is_utf8);
        EXPECT_EQ(read_file(dir / "t.csv"), content);
        EXPECT_EQ(dir.count(), 1);
    }
}

TEST(gdal_read, pages_by_identifiers_of_any_name)
{
    temp_dir const dir;
    for (std::string const name : {"my id", "a\"b", "select", "id;", "limit 3 offset 1", "x'y", "№"}) {
        SCOPED_TRACE(name);
        fs::path const path = dir / "t.gpkg";
        fs::remove(path);
        std::wstring const wide = vx::text::utf8_to_wide(path.string());
        {
            source const s(wide, 2);
            definition fields({{L"n", 3}});
            ASSERT_TRUE(s.table.create_vector(L"base", 1, 0, fields));
        }
        std::string quoted;
        for (char const c : name)
            quoted.append(c == '"' ? 2 : 1, c);
        run_sql(
            path,
            ("CREATE TABLE t (\"" + quoted +
             "\" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, n INTEGER); INSERT INTO gpkg_contents "
             "(table_name, data_type, identifier) VALUES ('t', 'attributes', 't'); INSERT INTO t (n) "
             "WITH RECURSIVE c(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM c WHERE x < 9) SELECT x FROM c")
                .c_str());
        source const s(wide + L"|layer=t");
        std::wstring const fid = text_of([&](vx::string_visitor v) { s.table.fid_field_name(v); });
        ASSERT_EQ(vx::text::wide_to_utf8(fid), name);
        ASSERT_TRUE(s.forward.set_attribute_filter((fid + L" >= 0 LIMIT 3 OFFSET 4").c_str()));
        EXPECT_EQ(rest_of(s), (std::vector<long long>{5, 6, 7}));

        // Without gaps a place is found by the identifier, else by walking there.
        ASSERT_TRUE(s.forward.set_attribute_filter(nullptr));
        EXPECT_TRUE(s.random.has_moveto_index());
        ASSERT_TRUE(s.random.moveto_index(7));
        EXPECT_EQ(rest_of(s), (std::vector<long long>{8, 9, 10}));
        EXPECT_FALSE(s.random.moveto_index(10));
        ASSERT_TRUE(s.forward.reset_reading());
        EXPECT_EQ(rest_of(s).size(), 10u);
        run_sql(path, "DELETE FROM t WHERE n = 2");
        ASSERT_TRUE(s.random.moveto_index(1));
        EXPECT_EQ(rest_of(s), (std::vector<long long>{2, 4, 5, 6, 7, 8, 9, 10})) << "one has gone meanwhile";
        source const with_gap(wide + L"|layer=t");
        EXPECT_FALSE(with_gap.random.has_moveto_index());
        ASSERT_TRUE(with_gap.random.moveto_index(7));
        EXPECT_EQ(rest_of(with_gap), (std::vector<long long>{9, 10}));
    }
}

TEST(gdal_read, names_that_the_connection_string_divides_by)
{
    temp_dir const dir;
    std::wstring const path = vx::text::utf8_to_wide((dir / "t.gpkg").string());
    {
        source const s(path, 2);
        for (wchar_t const *const name : {L"plain|", L"a&b|", L"a|"})
            ASSERT_TRUE(s.table.create_vector(name, 1, 0, definition({{L"n", 3}})));
    }
    source const s(path);
    ASSERT_EQ(s.data.vector_count(), 3);
    for (int i = 0; i < 3; ++i) {
        auto const name = text_of([&](vx::string_visitor v) { s.data.vector_name(i, v); });
        auto const again = text_of([&](vx::string_visitor v) { s.data.vector_source(i, v); });
        source const table(again);
        ASSERT_TRUE(table.is_open()) << vx::text::wide_to_utf8(again);
        EXPECT_EQ(text_of([&](vx::string_visitor v) { table.data.with_name(v); }), name);
        EXPECT_EQ(text_of([&](vx::string_visitor v) { table.data.vector_source(i, v); }), again);
    }

    // Options of opening go on to the tables; a path may have either separator; a file name may hold "|".
    write_file(dir / "p|q.csv", "x,y,label\n1,2,here\n");
    fs::create_directory(dir / "sub");
    write_file(dir / "sub" / "r.csv", "x,y,label\n1,2,here\n");
    std::wstring const folder = vx::text::utf8_to_wide(dir.path().string());
    source const piped(folder + L"/p|q.csv|X_POSSIBLE_NAMES=x&Y_POSSIBLE_NAMES=y");
    ASSERT_TRUE(piped.is_open()) << vx::text::wide_to_utf8(source::refusal());
    source const back(folder + L"\\sub\\r.csv|X_POSSIBLE_NAMES=x&Y_POSSIBLE_NAMES=y");
    ASSERT_TRUE(back.is_open()) << vx::text::wide_to_utf8(source::refusal());
    for (source const *const opened : {&piped, &back}) {
        EXPECT_EQ(opened->table.geom_type(), 1);
        source const again(text_of([&](vx::string_visitor v) { opened->data.vector_source(0, v); }));
        ASSERT_TRUE(again.is_open()) << vx::text::wide_to_utf8(source::refusal());
        EXPECT_EQ(again.table.geom_type(), 1);
    }
}
} // namespace
