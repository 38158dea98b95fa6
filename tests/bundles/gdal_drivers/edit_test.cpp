#include "extension/binding/bytes_visitor.h"
#include "extension/binding/dict.h"
#include "source.h"
#include "support/temp_dir.h"
#include "writing.h"

#include "platform/basic/vx_fault.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <sqlite3.h>

using namespace vx_test;
namespace fs = std::filesystem;

namespace {
constexpr int c_shapefile = 1;
constexpr int c_geopackage = 2;

std::wstring wide(fs::path const &path)
{
    return vx::text::utf8_to_wide(path.string());
}

std::vector<std::wstring> column(source const &from, int field)
{
    std::vector<std::wstring> texts;
    from.forward.reset_reading();
    for (keeper k; from.forward.with_next_feature(k);) {
        bool not_null = false;
        k.item.get_string(field, &not_null, {});
        texts.push_back(not_null ? k.text(field) : L"null");
    }
    return texts;
}

vertex_list rings(std::vector<std::vector<Tvx_vtx_d2>> const &parts)
{
    vertex_list list(vx_ov_d2_create());
    vx_ov_d2_set_size(list.get(), parts.size());
    for (std::size_t p = 0; p < parts.size(); ++p) {
        auto *const part = vx_ov_d2_get_pv_ptr(list.get(), p);
        vx_pv_d2_set_size(part, parts[p].size());
        for (std::size_t i = 0; i < parts[p].size(); ++i)
            vx_pv_d2_set_vtx(part, i, &parts[p][i]);
    }
    return list;
}

class gdal_edit : public testing::TestWithParam<int>
{
protected:
    [[nodiscard]] std::wstring path(char const *stem) const
    {
        return wide(f_dir / (std::string(stem) + (GetParam() == c_shapefile ? ".shp" : ".gpkg")));
    }
    temp_dir f_dir;
};

TEST_P(gdal_edit, polygons_sort_their_rings)
{
    // An island in a lake in a country, given in no order and all in one direction.
    auto const square = [](double low, double high) {
        return std::vector<Tvx_vtx_d2>{{low, low}, {high, low}, {high, high}, {low, high}};
    };
    auto const list = rings({square(2, 8), square(0, 10), square(4, 6), square(20, 21)});
    {
        source const made(path("lands"), GetParam());
        definition const none({{L"a", 3}});
        ASSERT_TRUE(made.table.create_vector(L"lands", 5, 0, definition({{L"a", 3}})));
        EXPECT_TRUE(add(made, [&](vx::feature f) {
            EXPECT_TRUE(f.set_polygon(list.get()));
            EXPECT_FALSE(f.set_polygon(rings({{{0, 0}, {1, 1}}}).get())) << "two points make no ring";
            EXPECT_FALSE(f.set_polygon(rings({}).get()));
        }));
    }
    source const again(path("lands"));
    keeper k;
    ASSERT_TRUE(again.forward.with_next_feature(k));
    EXPECT_EQ(k.item.geom_type(), 5);
    vertex_list const found(vx_ov_d2_create());
    ASSERT_TRUE(k.item.get_polypoint(found.get()));
    ASSERT_EQ(vx_ov_d2_get_size(found.get()), 4u);
    double area =
        0; // outer rings and holes turn in opposite directions, so that their areas take off each other
    for (std::size_t p = 0; p < 4; ++p) {
        auto const *const part = vx_ov_d2_get_pv_ptr(found.get(), p);
        auto const *const v = vx_pv_d2_get_data(part);
        EXPECT_EQ(vx_pv_d2_get_size(part), 5u);
        for (std::size_t i = 0; i + 1 < vx_pv_d2_get_size(part); ++i)
            area += (v[i].x * v[i + 1].y - v[i + 1].x * v[i].y) / 2;
    }
    EXPECT_NEAR(std::fabs(area), 100 - 36 + 4 + 1, 1e-9);
}

TEST_P(gdal_edit, changes_are_stored_when_the_feature_ends_or_the_source_is_asked)
{
    {
        source const made(path("t"), GetParam());
        ASSERT_TRUE(made.table.create_vector(L"t", 1, 0, definition({{L"a", 3}})));
        for (int i = 0; i < 3; ++i)
            ASSERT_TRUE(add(made, [&](vx::feature f) { EXPECT_TRUE(f.set_integer(0, i)); }));
    }
    {
        source const s(path("t"), false);
        ASSERT_TRUE(s.is_open());
        EXPECT_TRUE(s.data.has_capability(2) && s.data.has_capability(3));
        keeper k;
        ASSERT_TRUE(s.forward.with_next_feature(k));
        Tvx_vtx_d2 place;
        EXPECT_EQ(k.item.geom_type(), 0) << "a feature needs no place";
        EXPECT_FALSE(k.item.get_point(&place));
        double value = 0;
        EXPECT_TRUE(s.stat.maximum(0, &value));
        EXPECT_EQ(value, 2);
        EXPECT_TRUE(k.item.set_integer(0, 10));
        EXPECT_EQ(column(s, 0), (std::vector<std::wstring>{L"10", L"1", L"2"})) << "reading sees the change";
        EXPECT_TRUE(s.stat.maximum(0, &value));
        EXPECT_EQ(value, 10) << "and so does counting";
        long long const first = k.item.fid();
        keeper other;
        ASSERT_TRUE(s.random.with_feature(first + 1, other));
        EXPECT_TRUE(other.item.set_undef(0));
        other.end();
        EXPECT_TRUE(s.table.delete_feature(first + 2));
        EXPECT_FALSE(s.table.delete_feature(first + 99));
        EXPECT_TRUE(s.table.flush_changes());
    }
    source const again(path("t"));
    EXPECT_EQ(column(again, 0), (std::vector<std::wstring>{L"10", L"null"}));
}

TEST_P(gdal_edit, fields_come_go_and_move)
{
    {
        source const made(path("t"), GetParam());
        ASSERT_TRUE(
            made.table.create_vector(L"t", 1, 0, definition({{L"a", 3}, {L"b", 1, 0, 10}, {L"c", 2}})));
        ASSERT_TRUE(add(made, [](vx::feature f) {
            EXPECT_TRUE(f.set_integer(0, 1) && f.set_string(1, L"two") && f.set_numeric(2, 3));
        }));
    }
    {
        source const s(path("t"), false);
        ASSERT_TRUE(s.table.create_field(definition({{L"d", 4}})));
        EXPECT_FALSE(s.table.create_field(definition({})));
        int const twice[] = {0, 0, 1, 2};
        EXPECT_FALSE(s.table.reorder_fields(const_cast<int *>(twice)));
        EXPECT_NE(s.error(), L"");
        int order[] = {3, 2, 1, 0};
        ASSERT_TRUE(s.table.reorder_fields(order)) << vx::text::wide_to_utf8(s.error());
        ASSERT_TRUE(s.table.alter_field(2, definition({{L"renamed", 1, 0, 20}})));
        ASSERT_TRUE(s.table.delete_field(s.field(L"c")));
        EXPECT_FALSE(s.table.delete_field(17));
    }
    source const again(path("t"));
    std::vector<std::wstring> names;
    for (int i = 0; i < again.data.field_count(); ++i)
        names.push_back(text_of([&](vx::string_visitor v) { again.data.field_name(i, v); }));
    EXPECT_EQ(names, (std::vector<std::wstring>{L"d", L"renamed", L"a"}));
    EXPECT_EQ(column(again, 1), std::vector<std::wstring>{L"two"});
    EXPECT_EQ(column(again, 2), std::vector<std::wstring>{L"1"});
}

TEST_P(gdal_edit, a_feature_kept_over_a_change_of_fields_is_a_copy)
{
    {
        source const made(path("t"), GetParam());
        ASSERT_TRUE(made.table.create_vector(L"t", 1, 0, definition({{L"a", 3}, {L"b", 1, 0, 10}})));
        ASSERT_TRUE(add(made, [](vx::feature f) { EXPECT_TRUE(f.set_integer(0, 1)); }));
    }
    source const s(path("t"), false);
    keeper before;
    ASSERT_TRUE(s.forward.with_next_feature(before));
    EXPECT_TRUE(before.item.set_string(1, L"stored"));
    ASSERT_TRUE(s.table.create_field(definition({{L"c", 3}})));
    bool not_null = true;
    EXPECT_EQ(before.item.get_integer(2, &not_null), 0);
    EXPECT_FALSE(not_null);
    EXPECT_FALSE(before.item.set_integer(0, 9)) << "it belongs to no table any more";
    ASSERT_TRUE(s.table.delete_field(1));
    EXPECT_EQ(before.text(1), L"stored");
    EXPECT_EQ(before.item.field_type(1), 1);
    EXPECT_EQ(column(s, 0), std::vector<std::wstring>{L"1"});
    EXPECT_EQ(s.field(L"c"), 1);
}

TEST_P(gdal_edit, columns_are_counted_without_their_nulls)
{
    // More rows than a batch of columns holds; every third cell is null.
    constexpr int c_rows = 70000;
    {
        source const made(path("t"), GetParam());
        ASSERT_TRUE(made.table.create_vector(
            L"t", 1, 0, definition({{L"n", 3}, {L"big", 4}, {L"x", 2}, {L"s", 1, 0, 10}, {L"flag", 3, 1}})));
        (void)made.table.transaction_start();
        for (int i = 0; i < c_rows; ++i)
            ASSERT_TRUE(add(made, [&](vx::feature f) {
                if (i % 3 == 0)
                    return;
                EXPECT_TRUE(f.set_integer(0, i % 10) && f.set_bigint(1, 4000000000LL + i) &&
                            f.set_numeric(2, i * 0.5) && f.set_integer(4, i % 2));
                EXPECT_TRUE(f.set_string(3, (L"s" + std::to_wstring(i % 7)).c_str()));
            }));
        EXPECT_TRUE(made.table.transaction_commit());
    }
    source const s(path("t"));
    long long cells = 0;
    double sum = 0;
    for (int i = 0; i < c_rows; ++i)
        if (i % 3 != 0) {
            ++cells;
            sum += i * 0.5;
        }
    for (int field = 0; field < 5; ++field) {
        long long count = 0;
        EXPECT_TRUE(s.stat.count_nonnull(field, &count));
        EXPECT_EQ(count, cells) << field;
    }
    double value = 0;
    EXPECT_TRUE(s.stat.sum(2, &value));
    EXPECT_NEAR(value, sum, 1e-3);
    EXPECT_TRUE(s.stat.minimum(1, &value));
    EXPECT_EQ(value, 4000000001.0);
    EXPECT_TRUE(s.stat.maximum(1, &value));
    EXPECT_EQ(value, 4000069998.0);
    EXPECT_TRUE(s.stat.average(4, &value));
    EXPECT_NEAR(value, 0.5, 1e-4);
    long long count = 0;
    EXPECT_TRUE(s.stat.count_distinct(3, &count));
    EXPECT_EQ(count, 7);
    EXPECT_TRUE(s.stat.count_distinct(0, &count));
    EXPECT_EQ(count, 10);
    EXPECT_EQ(texts_of([&](vx::string_visitor v) { (void)s.stat.with_unique_strings(3, -1, v); }),
              (std::vector<std::wstring>{L"s0", L"s1", L"s2", L"s3", L"s4", L"s5", L"s6"}));
    EXPECT_EQ(rest_of(s).size(), static_cast<std::size_t>(c_rows)) << "counting leaves the reading alone";
}

INSTANTIATE_TEST_SUITE_P(formats, gdal_edit, testing::Values(c_shapefile, c_geopackage),
                         [](auto const &info) {
                             return info.param == c_shapefile ? "shapefile" : "geopackage";
                         });

TEST(gdal_edit_refusals, a_table_that_cannot_be_made_leaves_nothing)
{
    static std::vector<std::wstring> told;
    told.clear();
    auto *const former = vx_reason_set_handler([](wchar_t const *reason) { told.emplace_back(reason); });
    temp_dir const dir;
    struct
    {
        char const *name;
        int driver;
        bool minds_case;
    } const cases[] = {{"t.gpkg", 2, false},   {"t.sqlite", 7, false}, {"t.shp", 1, false},
                       {"t.geojson", 3, true}, {"t.csv", 5, false},    {"t.gml", 9, true}};
    for (auto const &c : cases) {
        SCOPED_TRACE(c.name);
        std::wstring const path = wide(dir / c.name);
        {
            source const s(path, c.driver);
            EXPECT_FALSE(
                s.table.create_vector(L"twice", 1, 0, definition({{L"n", 3}, {L"m", 3}, {L"n", 1}})));
            EXPECT_NE(s.error().find(L"“n”"), std::wstring::npos);
            EXPECT_EQ(s.data.vector_count(), 0);
            EXPECT_TRUE(s.table.create_vector(L"good", 1, 0, definition({{L"n", 3}})));
            EXPECT_FALSE(s.table.create_field(definition({{L"k", 3}, {L"n", 3}})));
            EXPECT_EQ(s.data.field_count(), 1) << "all of them or none";
            EXPECT_EQ(s.table.create_field(definition({{L"N", 3}})), c.minds_case);
            EXPECT_TRUE(add(s, [](vx::feature f) { EXPECT_TRUE(f.set_integer(0, 5)); }));
            EXPECT_TRUE(s.table.flush_changes()) << vx::text::wide_to_utf8(s.error());
        }
        EXPECT_TRUE(told.empty()) << vx::text::wide_to_utf8(told.front());
        told.clear();
        source const again(path);
        EXPECT_EQ(again.data.vector_count(), 1);
        EXPECT_EQ(rest_of(again).size(), 1u);
    }
    source const s(wide(dir / "one.geojson"), 3);
    EXPECT_TRUE(s.table.create_vector(L"a", 1, 0, definition({{L"n", 3}})));
    EXPECT_FALSE(s.table.create_vector(L"b", 1, 0, definition({{L"n", 3}})));
    EXPECT_EQ(s.error().find(L'\n'), std::wstring::npos) << "the reason is a sentence of ours";
    EXPECT_FALSE(source(wide(dir / "x"), 999).is_open());
    EXPECT_FALSE(source::refusal().empty()) << "of a kind that no driver makes";
    vx_reason_set_handler(former);
}

TEST(gdal_edit_refusals, tables_without_fields_have_their_shapes)
{
    temp_dir const dir;
    std::pair<char const *, int> const cases[] = {{"t.shp", 1}, {"t.gpkg", 2}, {"t.geojson", 3},
                                                  {"t.fgb", 4}, {"t.csv", 5},  {"t.sqlite", 7},
                                                  {"t.kml", 8}, {"t.gml", 9}};
    for (auto const &[name, driver] : cases) {
        SCOPED_TRACE(name);
        {
            source const s(wide(dir / name), driver);
            ASSERT_TRUE(s.table.create_vector(L"t", 1, 0, definition({})));
            EXPECT_EQ(s.data.field_count(), 0);
            for (int i = 0; i < 3; ++i)
                EXPECT_TRUE(add(s, [&](vx::feature f) {
                    Tvx_vtx_d2 place{1.0 * i, 2};
                    EXPECT_TRUE(f.set_point(&place));
                }));
            EXPECT_TRUE(s.table.flush_changes()) << vx::text::wide_to_utf8(s.error());
        }
        source const s(wide(dir / name));
        EXPECT_EQ(s.table.feature_count(true), 3u);
        double sum = 0;
        for (keeper k; s.forward.with_next_feature(k);) {
            Tvx_vtx_d2 place;
            EXPECT_TRUE(k.item.get_point(&place));
            sum += place.x;
        }
        EXPECT_EQ(sum, 3);
        Tvx_box_d2 box;
        EXPECT_TRUE(s.data.with_extent(&box, true));
        double value = 0;
        EXPECT_FALSE(s.stat.minimum(99, &value));
    }
}

TEST(gdal_edit_refusals, a_data_set_in_the_way_stays)
{
    temp_dir const dir;
    write_file(dir / "t.gpkg", "mine");
    EXPECT_FALSE(source(wide(dir / "t.gpkg"), c_geopackage).is_open());
    EXPECT_EQ(read_file(dir / "t.gpkg"), "mine");
    EXPECT_FALSE(source(wide(dir / "u.gpkg"), 12345).is_open());
    EXPECT_FALSE(source(wide(dir / "no" / "folder.gpkg"), c_geopackage).is_open());
    EXPECT_NE(source::refusal(), L"");

    fs::copy(VX_EXAMPLE_DATA "/nc.shp", dir / "nc.shp");
    fs::copy(VX_EXAMPLE_DATA "/nc.shx", dir / "nc.shx");
    fs::copy(VX_EXAMPLE_DATA "/nc.dbf", dir / "nc.dbf");
    source const s(wide(dir / "nc.shp"));
    EXPECT_FALSE(add(s, [](vx::feature) {}));
    EXPECT_NE(s.error(), L"");
    EXPECT_FALSE(s.table.delete_feature(0) || s.table.delete_field(0) ||
                 s.table.create_field(definition({{L"x", 3}})));
    EXPECT_FALSE(s.table.transaction_start());
    EXPECT_EQ(read_file(dir / "nc.dbf"), read_file(VX_EXAMPLE_DATA "/nc.dbf"));
}

TEST(gdal_dict, the_codes_of_a_field)
{
    temp_dir const dir;
    std::wstring const path = wide(dir / "t.gpkg");
    {
        source const s(path, c_geopackage);
        ASSERT_TRUE(s.table.create_vector(L"t", 1, 0, definition({{L"use", 3}, {L"b", 3}})));
    }
    sqlite3 *base = nullptr;
    ASSERT_EQ(sqlite3_open((dir / "t.gpkg").c_str(), &base), SQLITE_OK);
    char const *const sql = R"(
        CREATE TABLE gpkg_data_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL, name TEXT, title TEXT,
            description TEXT, mime_type TEXT, constraint_name TEXT, PRIMARY KEY (table_name, column_name));
        CREATE TABLE gpkg_data_column_constraints (constraint_name TEXT NOT NULL, constraint_type TEXT NOT NULL,
            value TEXT, min NUMERIC, min_is_inclusive BOOLEAN, max NUMERIC, max_is_inclusive BOOLEAN, description TEXT);
        CREATE TABLE IF NOT EXISTS gpkg_extensions (table_name TEXT, column_name TEXT, extension_name TEXT NOT NULL,
            definition TEXT NOT NULL, scope TEXT NOT NULL);
        INSERT INTO gpkg_extensions VALUES ('gpkg_data_columns', NULL, 'gpkg_schema', 'x', 'read-write');
        INSERT INTO gpkg_extensions VALUES ('gpkg_data_column_constraints', NULL, 'gpkg_schema', 'x', 'read-write');
        INSERT INTO gpkg_data_columns VALUES ('t', 'use', 'Land use', NULL, NULL, NULL, 'uses');
        INSERT INTO gpkg_data_column_constraints VALUES ('uses', 'enum', '1', NULL, NULL, NULL, NULL, 'forest');
        INSERT INTO gpkg_data_column_constraints VALUES ('uses', 'enum', '2', NULL, NULL, NULL, NULL, 'field');
    )";
    char *message = nullptr;
    ASSERT_EQ(sqlite3_exec(base, sql, nullptr, nullptr, &message), SQLITE_OK) << message;
    sqlite3_close(base);

    class dict_keeper final : public vx::dict_visitor_impl
    {
    public:
        ~dict_keeper() { dict.detach(); }
        void visit(vx::dict values) override { dict = values; }
        vx::dict dict;
    };
    class item_list final : public vx::dict_item_visitor_impl
    {
    public:
        std::vector<std::pair<std::wstring, std::wstring>> items;
        void visit(wchar_t const *key, wchar_t const *value) override { items.emplace_back(key, value); }
    };
    dict_keeper codes;
    {
        source const s(path);
        ASSERT_TRUE(s.is_open());
        ASSERT_TRUE(s.data.field_dict(0, codes));
        dict_keeper none;
        EXPECT_FALSE(s.data.field_dict(1, none));
        EXPECT_FALSE(s.data.field_dict(5, none));
    }
    item_list list;
    codes.dict.with_items(list);
    EXPECT_EQ(list.items,
              (std::vector<std::pair<std::wstring, std::wstring>>{{L"1", L"forest"}, {L"2", L"field"}}));
    EXPECT_EQ(texts_of([&](vx::string_visitor v) { codes.dict.with_keys(v); }),
              (std::vector<std::wstring>{L"1", L"2"}));
    EXPECT_EQ(text_of([&](vx::string_visitor v) { EXPECT_TRUE(codes.dict.get_value(L"2", v)); }), L"field");
    EXPECT_FALSE(codes.dict.get_value(L"3", {}));
}

/// A receiver of bytes made by hand, from the table alone, as a module built otherwise would make it.
struct byte_receiver
{
    std::string bytes;

    static void visit(void const *, void *self, unsigned long long count, char const *data)
    {
        static_cast<byte_receiver *>(self)->bytes.assign(data, count);
    }
    static t_vx_interface *generalize(t_vx_interface *result, void const *, void *)
    {
        *result = {};
        return result;
    }
    static constexpr vx_bytes_visitor_interface_table c_table{&generalize, &visit};
    operator vx::bytes_visitor() { return t_vx_bytes_visitor_interface{&c_table, this}; }
};

TEST(gdal_binary, bytes_go_through_unchanged)
{
    temp_dir const dir;
    source const s(wide(dir / "t.gpkg"), c_geopackage);
    ASSERT_TRUE(s.table.create_vector(L"t", 0, 0, definition({{L"raw", 0, 5}, {L"text", 1}})));
    std::string raw("\0\x01\xff\0z", 5);
    ASSERT_TRUE(add(s, [&](vx::feature f) {
        EXPECT_TRUE(f.set_binary(0, 5, raw.data()));
        EXPECT_FALSE(f.set_binary(0, -1, raw.data()));
        EXPECT_TRUE(f.set_string(1, L"\u00e9"));
    }));
    EXPECT_EQ(s.data.field_type(0), 0);
    EXPECT_EQ(s.data.field_subtype(0), 5);
    keeper k;
    ASSERT_TRUE(s.forward.with_next_feature(k));
    byte_receiver receiver;
    bool not_null = false;
    k.item.get_binary(0, &not_null, receiver);
    EXPECT_TRUE(not_null);
    EXPECT_EQ(receiver.bytes, raw);
    k.item.get_binary(1, &not_null, receiver);
    EXPECT_EQ(receiver.bytes, "\xc3\xa9");
}
} // namespace
