#include "extension/vxk_extension.h"
#include "source.h"
#include "support/temp_dir.h"
#include "writing.h"

#include "platform/data/vx_attr_data.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <optional>
#include <set>
#include <sqlite3.h>

using namespace vx_test;

namespace {
constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr int c_unlimited = -1;

/// Keeps a column as texts; numbers in full.
class column_keeper final : public vx::column_visitor_impl
{
public:
    std::vector<std::optional<std::wstring>> texts;
    std::vector<std::optional<double>> numbers;
    int runs = 0;
    int most_runs = std::numeric_limits<int>::max();

    bool visit_integers(unsigned long long count, int const *values, unsigned char const *defined) override
    {
        return take(count, values, defined);
    }
    bool visit_bigints(unsigned long long count, long long const *values,
                       unsigned char const *defined) override
    {
        return take(count, values, defined);
    }
    bool visit_floatings(unsigned long long count, double const *values,
                         unsigned char const *defined) override
    {
        return take(count, values, defined);
    }
    bool visit_texts(unsigned long long count, char const *bytes, int const *starts,
                     unsigned char const *defined) override
    {
        for (std::size_t i = 0; i < count; ++i)
            texts.push_back(
                is_defined(defined, i)
                    ? std::optional(vx::text::utf8_to_wide(
                          {bytes + starts[i], static_cast<std::size_t>(starts[i + 1] - starts[i])}))
                    : std::nullopt);
        return ++runs < most_runs;
    }

private:
    static bool is_defined(unsigned char const *defined, std::size_t i)
    {
        return !defined || (defined[i / 8] >> (i % 8) & 1) != 0;
    }
    template <class T>
    bool take(unsigned long long count, T const *values, unsigned char const *defined)
    {
        for (std::size_t i = 0; i < count; ++i)
            numbers.push_back(is_defined(defined, i) ? std::optional(static_cast<double>(values[i]))
                                                     : std::nullopt);
        return ++runs < most_runs;
    }
};

vx::column_source columns_of(source const &s)
{
    return vx_column_source_interface_specialize(vx_data_source_interface_generalize(s.data));
}

/// The column of a field by a reading of it.
class reading_keeper final : public vx::column_reading_visitor_impl
{
public:
    vx::column_reading reading;
    column_keeper column;
    int state = vx::codes::plain::reading_goes_on;

    void visit(vx::column_reading item) override { reading = item; }
    void step() { state = reading.next(0, column); }
    [[nodiscard]] bool is_on() const { return reading && state == vx::codes::plain::reading_goes_on; }
    ~reading_keeper()
    {
        if (reading)
            reading.detach();
    }
};

/// Also where both are no number.
void expect_same(std::vector<std::optional<double>> const &found,
                 std::vector<std::optional<double>> const &wanted)
{
    ASSERT_EQ(found.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_TRUE(found[i] == wanted[i] ||
                    (wanted[i] && found[i] && std::isnan(*wanted[i]) && std::isnan(*found[i])))
            << i << ": " << wanted[i].value_or(-99) << ", " << found[i].value_or(-99);
}

/// Readings of all fields that offer one, and a walk, step by step in turn: none minds the others. Gives how
/// many there are.
int expect_readings_as_columns(source const &s)
{
    auto const count = static_cast<std::size_t>(s.data.field_count());
    std::vector<reading_keeper> readings(count);
    int offered = 0;
    for (std::size_t i = 0; i < count; ++i)
        offered += columns_of(s).read_column(static_cast<int>(i), readings[i]);
    s.forward.reset_reading();
    std::size_t walked = 0;
    for (bool is_on = true; is_on;) {
        is_on = false;
        for (reading_keeper &r : readings)
            if (r.is_on()) {
                r.step();
                is_on = true;
            }
        keeper k;
        walked += s.forward.with_next_feature(k);
    }
    EXPECT_EQ(rest_of(s).size() + walked, s.table.feature_count(true));
    for (std::size_t i = 0; i < count; ++i) {
        if (!readings[i].reading)
            continue;
        SCOPED_TRACE(i);
        column_keeper whole;
        EXPECT_TRUE(columns_of(s).with_column(static_cast<int>(i), whole));
        EXPECT_EQ(readings[i].state, vx::codes::plain::reading_ended);
        EXPECT_EQ(readings[i].column.texts, whole.texts);
        expect_same(readings[i].column.numbers, whole.numbers);
    }
    return offered;
}

class number_list final : public vx::floatings_visitor_impl
{
public:
    std::vector<double> values;
    void visit(unsigned long long count, double *numbers) override
    {
        values.insert(values.end(), numbers, numbers + count);
    }
};

/// The column of each field is what a walk over the features finds in it.
void expect_columns_as_walked(source const &s)
{
    for (int field = 0; field < s.data.field_count(); ++field) {
        SCOPED_TRACE(field);
        column_keeper column;
        ASSERT_TRUE(columns_of(s).with_column(field, column));
        bool const is_text = s.data.field_type(field) < 2;
        std::vector<std::optional<std::wstring>> texts;
        std::vector<std::optional<double>> numbers;
        s.forward.reset_reading();
        for (keeper k; s.forward.with_next_feature(k);) {
            bool not_null = false;
            double const number = k.item.get_numeric(field, &not_null);
            if (is_text)
                texts.push_back(not_null ? std::optional(k.text(field)) : std::nullopt);
            else
                numbers.push_back(not_null ? std::optional(number) : std::nullopt);
        }
        EXPECT_EQ(column.texts, texts);
        expect_same(column.numbers, numbers);
    }
}

/// A dBase table made byte by byte.
struct table_maker
{
    struct field
    {
        char type;
        unsigned char width;
        unsigned char decimals;
    };
    std::vector<field> fields;
    std::vector<std::vector<std::string>> records; ///< cells are filled with blanks
    std::set<std::size_t> deleted;
    char language = 0;

    [[nodiscard]] std::string bytes() const
    {
        auto const number = [](std::size_t value, int count) {
            std::string text;
            for (; count > 0; --count, value >>= 8)
                text += static_cast<char>(value & 0xFF);
            return text;
        };
        std::size_t size = 1;
        std::string descriptions;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            std::string name = "F" + std::to_string(i);
            name.resize(11, '\0');
            descriptions += name + fields[i].type + std::string(4, '\0') +
                            static_cast<char>(fields[i].width) + static_cast<char>(fields[i].decimals) +
                            std::string(14, '\0');
            size += fields[i].width;
        }
        std::string text = std::string("\x03\x18\x01\x01", 4) + number(records.size(), 4) +
                           number(33 + descriptions.size(), 2) + number(size, 2) + std::string(17, '\0') +
                           language + std::string(2, '\0') + descriptions + '\r';
        for (std::size_t r = 0; r < records.size(); ++r) {
            text += deleted.count(r) ? '*' : ' ';
            for (std::size_t i = 0; i < fields.size(); ++i) {
                std::string cell = records[r][i];
                cell.resize(fields[i].width, ' ');
                text += cell;
            }
        }
        return text + '\x1a';
    }
};

TEST(gdal_column, of_a_dbase_table_is_what_gdal_reads)
{
    std::string const zeros(12, '\0');
    std::vector<std::string> const cells{
        "",          "0",          "-0",        "   7",       "7   ",       "+5",
        "-12",       "007",        "1.5",       ".5",         "5.",         "-.25",
        ".",         "-",          "+",         "1e3",        "1E-2",       "12abc",
        "abc",       "nan",        "inf",       "-1.#INF",    "1 2",        "1,5",
        "********",  "*1",         "999999999", "-999999999", "2147483647", "0.1",
        "123.456",   "4294967296", zeros,       "5" + zeros,  "\t8",        "123456789012",
        "0.0000001", "1..2",       "--3",       "0x10"};
    for (char const language : {'\0', '\x57', '\xc9'}) {
        table_maker table;
        table.language = language;
        table.fields = {{'C', 12, 0}, {'N', 12, 0}, {'N', 9, 0}, {'N', 12, 3},
                        {'F', 12, 5}, {'D', 8, 0},  {'L', 1, 0}, {'N', 12, 11}};
        for (std::string const &cell : cells)
            table.records.push_back({cell, cell, cell, cell, cell, "20240229", "T", cell});
        table.records.push_back({"\xcc\xee\xf1\xea\xe2\xe0", "1", "1", "1", "1", "", "?", "1"});
        table.records.push_back({"  inside  x ", "1", "1", "1", "1", "00000000", "", "1"});
        table.deleted = {3, 10};
        temp_dir const dir;
        write_file(dir / "t.dbf", table.bytes());
        source const s(vx::text::utf8_to_wide((dir / "t.dbf").string()));
        ASSERT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
        expect_columns_as_walked(s);
        long long count = 0;
        EXPECT_TRUE(s.stat.count_nonnull(0, &count));
        EXPECT_EQ(count, static_cast<long long>(cells.size()) - 4 + 2) << "without empty and deleted ones";
        EXPECT_EQ(expect_readings_as_columns(s), 6) << "all but the date and the flag";
    }
}

TEST(gdal_column, of_every_format_is_what_a_walk_finds)
{
    temp_dir const dir;
    struct
    {
        char const *name;
        int driver;
        wchar_t const *options;
    } const cases[] = {{"t.shp", 1, L"t"},
                       {"t.gpkg", 2, L"t"},
                       {"t.geojson", 3, L"t"},
                       {"t.fgb", 4, L"t|SPATIAL_INDEX=NO"},
                       {"t.csv", 5, L"t|CREATE_CSVT=YES&GEOMETRY=AS_WKT"},
                       {"t.sqlite", 7, L"t"}};
    for (auto const &c : cases) {
        SCOPED_TRACE(c.name);
        auto const path = vx::text::utf8_to_wide((dir / c.name).string());
        {
            source const made(path, c.driver);
            ASSERT_TRUE(made.table.create_vector(c.options, 1, 0,
                                                 definition({{L"s", 1, 0, 30},
                                                             {L"x", 2, 0, 24, 15},
                                                             {L"n", 3},
                                                             {L"b", 4, 0, 18},
                                                             {L"day", 1, 2},
                                                             {L"flag", 3, 1}})))
                << vx::text::wide_to_utf8(made.error());
            (void)made.table.transaction_start();
            for (int i = 0; i < 100; ++i)
                ASSERT_TRUE(add(made, [&](vx::feature f) {
                    Tvx_vtx_d2 place{1.0 * i, 2};
                    EXPECT_TRUE(f.set_point(&place));
                    if (i % 3) {
                        EXPECT_TRUE(f.set_string(0, (L"Жук " + std::to_wstring(i % 8)).c_str()));
                    }
                    if (i % 4) {
                        EXPECT_TRUE(f.set_numeric(1, i / 7.0) && f.set_integer(2, -i) &&
                                    f.set_bigint(3, 1LL << (i % 53)));
                    }
                    EXPECT_TRUE(f.set_string(4, L"2024-02-29") && f.set_integer(5, i % 2));
                }));
        }
        source const s(path);
        ASSERT_TRUE(s.is_open());
        keeper k;
        for (int i = 0; i < 5; ++i)
            ASSERT_TRUE(s.forward.with_next_feature(k));
        long long const fifth = k.item.fid();
        column_keeper column;
        EXPECT_TRUE(columns_of(s).with_column(0, column));
        ASSERT_TRUE(s.forward.with_next_feature(k));
        EXPECT_NE(k.item.fid(), fifth);
        EXPECT_EQ(rest_of(s).size(), 94u) << "the reading position stays";
        expect_columns_as_walked(s);
        bool const has_readings = c.driver == 1 || c.driver == 2 || c.driver == 4;
        EXPECT_GE(expect_readings_as_columns(s), has_readings ? 4 : 0);

        column_keeper few;
        few.most_runs = 1;
        EXPECT_TRUE(columns_of(s).with_column(0, few)) << "who stops has what he wants";
        EXPECT_EQ(few.runs, 1);
        EXPECT_FALSE(columns_of(s).with_column(s.data.field_count(), few));
        EXPECT_FALSE(columns_of(s).with_column(-1, few));
        EXPECT_FALSE(columns_of(s).with_column(0, {}));
        ASSERT_TRUE(s.forward.set_attribute_filter(L"n < -50"));
        EXPECT_FALSE(columns_of(s).with_column(0, few)) << "a column is a whole one";
        EXPECT_EQ(few.runs, 1);
        reading_keeper none;
        EXPECT_FALSE(columns_of(s).read_column(0, none));
        EXPECT_FALSE(columns_of(s).read_column(-1, none));
    }
}

TEST(gdal_column, a_cell_of_another_kind_damages_a_reading)
{
    temp_dir const dir;
    auto const path = dir / "t.gpkg";
    {
        source const made(vx::text::utf8_to_wide(path.string()), 2);
        ASSERT_TRUE(
            made.table.create_vector(L"t|SPATIAL_INDEX=NO", 1, 0, definition({{L"n", 3}, {L"s", 1}})));
        for (int i = 0; i < 10; ++i)
            ASSERT_TRUE(add(made, [&](vx::feature f) { EXPECT_TRUE(f.set_integer(0, i)); }));
    }
    sqlite3 *base = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &base), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(base,
                           "UPDATE t SET n = 4000000000 WHERE fid = 4; UPDATE t SET s = x'41' WHERE fid = 2",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(base);
    source const s(vx::text::utf8_to_wide(path.string()));
    for (int field = 0; field < 2; ++field) {
        reading_keeper reading;
        ASSERT_TRUE(columns_of(s).read_column(field, reading));
        while (reading.is_on())
            reading.step();
        EXPECT_EQ(reading.state, vx::codes::plain::reading_damaged) << field;
    }
}

TEST(gdal_column, what_is_no_number_has_no_part_in_statistics)
{
    temp_dir const dir;
    struct
    {
        char const *name;
        int driver;
    } const cases[] = {{"t.gpkg", 2}, {"t.fgb", 4}, {"t.sqlite", 7}};
    for (auto const &c : cases) {
        SCOPED_TRACE(c.name);
        auto const path = vx::text::utf8_to_wide((dir / c.name).string());
        {
            source const made(path, c.driver);
            ASSERT_TRUE(
                made.table.create_vector(L"t", 1, 0, definition({{L"x", 2}, {L"y", 2}, {L"none", 2}})));
            for (double const value : {2.0, c_nan, -4.0, c_nan, 8.0})
                ASSERT_TRUE(add(made, [&](vx::feature f) {
                    Tvx_vtx_d2 place{1, 2};
                    double const bound = value == 8 ? c_infinity : value == -4 ? -c_infinity : value;
                    // The databases have no such number, and none in its place.
                    bool const is_kept = c.driver == 4 || !std::isnan(value);
                    EXPECT_TRUE(f.set_point(&place));
                    EXPECT_EQ(f.set_numeric(0, value) && f.set_numeric(1, bound), is_kept);
                }));
        }
        source const s(path);
        double value = 0;
        long long count = 0;
        EXPECT_TRUE(s.stat.minimum(0, &value));
        EXPECT_EQ(value, -4);
        EXPECT_TRUE(s.stat.average(0, &value));
        EXPECT_DOUBLE_EQ(value, 2);
        EXPECT_TRUE(s.stat.stdev(0, &value));
        EXPECT_DOUBLE_EQ(value, 6); // 0, -6 and 6 from the mean; 72 divided by 2
        EXPECT_TRUE(s.stat.count_nonnull(0, &count));
        EXPECT_EQ(count, 3);
        number_list unique;
        EXPECT_TRUE(s.stat.with_unique_numerics(0, c_unlimited, unique));
        EXPECT_EQ(unique.values, (std::vector<double>{-4, 2, 8}));
        EXPECT_TRUE(s.stat.minimum(1, &value));
        EXPECT_EQ(value, -c_infinity);
        EXPECT_TRUE(s.stat.maximum(1, &value));
        EXPECT_EQ(value, c_infinity);
        number_list bounds;
        EXPECT_TRUE(s.stat.with_unique_numerics(1, c_unlimited, bounds));
        EXPECT_EQ(bounds.values, (std::vector<double>{-c_infinity, 2, c_infinity}));
        long long classes[2] = {};
        EXPECT_TRUE(s.stat.with_custom_histogram(1, 0, 10, 2, classes, true));
        EXPECT_EQ(classes[0], 1);
        EXPECT_TRUE(s.stat.count_nonnull(2, &count) && s.stat.average(2, &value));
        EXPECT_EQ(count, 0);
        EXPECT_EQ(value, 0);
    }
}

TEST(gdal_column, several_of_a_text_format_are_read_by_one_walk)
{
    temp_dir const dir;
    std::pair<char const *, int> const cases[] = {{"t.geojson", 3}, {"t.csv", 5}, {"t.kml", 8}, {"t.gml", 9}};
    for (auto const &[name, driver] : cases) {
        SCOPED_TRACE(name);
        auto const path = vx::text::utf8_to_wide((dir / name).string());
        {
            source const made(path, driver);
            ASSERT_TRUE(made.table.create_vector(
                L"t", 1, 0, definition({{L"whole", 3}, {L"real", 2}, {L"text", 1}, {L"more", 3}})));
            for (int i = 0; i < 5000; ++i)
                ASSERT_TRUE(add(made, [&](vx::feature f) {
                    Tvx_vtx_d2 place{1.0 * i, 2};
                    EXPECT_TRUE(f.set_point(&place) && f.set_integer(0, 7000 + i % 9));
                    if (i % 4 != 0) {
                        EXPECT_TRUE(f.set_numeric(1, i / 8.0) &&
                                    f.set_string(2, std::to_wstring(i % 11).c_str()) &&
                                    f.set_integer(3, 7100 + i));
                    }
                }));
        }
        auto const column = [](source const &s, wchar_t const *field) {
            column_keeper kept;
            EXPECT_TRUE(columns_of(s).with_column(s.field(field), kept));
            return std::pair(kept.texts, kept.numbers);
        };
        std::vector<wchar_t const *> const fields{L"whole", L"real", L"text", L"more"};
        std::vector<decltype(column(source(path), L""))> alone;
        for (wchar_t const *const field : fields)
            alone.push_back(column(source(path), field));
        source const s(path);
        EXPECT_EQ(column(s, L"whole"), alone[0]);
        EXPECT_EQ(column(s, L"real"), alone[1]);
        // What no walk looks at any more may be gone.
        std::string bytes = read_file(dir / name);
        std::replace(bytes.begin(), bytes.end(), '7', '8');
        std::ofstream(dir / name, std::ios::binary | std::ios::in) << bytes;
        for (std::size_t i = 0; i < fields.size(); ++i)
            EXPECT_EQ(column(s, fields[i]), alone[i]) << i;
        double highest = 0;
        EXPECT_TRUE(s.stat.maximum(s.field(L"whole"), &highest));
        EXPECT_EQ(highest, 7008);
    }
}

TEST(gdal_column, of_a_text_table_is_one_of_numbers_where_nothing_else_is_in_it)
{
    temp_dir const dir;
    write_file(dir / "t.csv", "whole,wide,real,code,mixed,empty,id\n"
                              "1,12345678901,1.50,007,1,,12345678901234567890\n"
                              "-2,5,,12,x,,1\n"
                              "0,-1,-2e3,0,2,,2\n");
    source const s((dir / "t.csv").wstring());
    using namespace vx::codes::plain;
    int const types[] = {field_integer, field_bigint, field_numeric, field_string,
                         field_string,  field_string, field_string};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(s.data.field_type(i), types[i]) << i;
    // Unless a file beside it says what they are.
    write_file(dir / "t.csvt",
               "\"String\",\"String\",\"String\",\"String\",\"String\",\"String\",\"String\"\n");
    EXPECT_EQ(source((dir / "t.csv").wstring()).data.field_type(0), field_string);
}

TEST(gdal_column, numbers_at_the_ends_of_their_range)
{
    temp_dir const dir;
    struct
    {
        char const *name;
        int driver;
    } const cases[] = {{"t.gpkg", 2}, {"t.fgb", 4}, {"t.sqlite", 7}, {"t.geojson", 3}};
    struct
    {
        std::vector<double> values;
        double mean, deviation;
    } const columns[] = {{{1, 1e300, 2}, 1e300 / 3, 1e300 / std::sqrt(3.0)},
                         {{1e300, -1e300, 1e300}, 1e300 / 3, 1e300 * std::sqrt(4.0 / 3)},
                         {{1.7e308, 1.7e308, 1.7e308}, 1.7e308, 0},
                         {{0, -0.0, 3.63}, 1.21, 3.63 / std::sqrt(3.0)}};
    for (auto const &c : cases) {
        SCOPED_TRACE(c.name);
        auto const path = vx::text::utf8_to_wide((dir / c.name).string());
        {
            source const made(path, c.driver);
            ASSERT_TRUE(made.table.create_vector(L"t", 1, 0,
                                                 definition({{L"a", 2}, {L"b", 2}, {L"c", 2}, {L"d", 2}})));
            for (std::size_t row = 0; row < 3; ++row)
                ASSERT_TRUE(add(made, [&](vx::feature f) {
                    Tvx_vtx_d2 place{1, 2};
                    EXPECT_TRUE(f.set_point(&place));
                    for (int field = 0; field < 4; ++field)
                        EXPECT_TRUE(f.set_numeric(field, columns[field].values[row]));
                }));
        }
        source const s(path);
        for (int field = 0; field < 4; ++field) {
            double mean = 0, deviation = 0;
            EXPECT_TRUE(s.stat.average(field, &mean) && s.stat.stdev(field, &deviation));
            EXPECT_DOUBLE_EQ(mean, columns[field].mean) << field;
            EXPECT_DOUBLE_EQ(deviation, columns[field].deviation) << field;
        }
        // Both zeros are one value in every form, and a whole number is what stands before the point.
        EXPECT_EQ(texts_of([&](vx::string_visitor v) { EXPECT_TRUE(s.stat.with_unique_strings(3, -1, v)); }),
                  (std::vector<std::wstring>{L"0", L"3.63"}));
        std::vector<std::wstring> cells;
        std::vector<int> whole;
        for (keeper k; s.forward.with_next_feature(k);) {
            cells.push_back(k.text(3));
            whole.push_back(k.item.get_integer(3, nullptr));
        }
        std::sort(cells.begin(), cells.end()); // one of the formats has an order of its own
        EXPECT_EQ(cells, (std::vector<std::wstring>{L"0", L"0", L"3.63"}));
        EXPECT_EQ(std::accumulate(whole.begin(), whole.end(), 0), 3);
        vx::owned<Ivx_attr_data, &vx_attr_data_release> const data(vx_attr_data_create(path.c_str()));
        vx::owned<Ivx_attr_files, &vx_attr_files_close> const files(vx_attr_files_open(data.get(), 1, 0));
        int of_table = 0;
        for (unsigned row = 0; row < 3; ++row) {
            of_table += vx_attr_files_get_int(files.get(), 3, row, nullptr);
            EXPECT_STRNE(vx_attr_files_get_wstr(files.get(), 3, row, nullptr), L"-0");
        }
        EXPECT_EQ(of_table, 3);
    }
}

TEST(gdal_column, a_database_counts_without_losing_digits)
{
    temp_dir const dir;
    auto const path = vx::text::utf8_to_wide((dir / "t.sqlite").string());
    {
        source const made(path, 7);
        ASSERT_TRUE(made.table.create_vector(L"t \"x\"|LAUNDER=NO", 1, 0,
                                             definition({{L"far", 2}, {L"high", 2}, {L"a \"b\"", 3}})));
        ASSERT_TRUE(made.table.transaction_start());
        for (int i = 0; i < 1000; ++i)
            ASSERT_TRUE(add(made, [&](vx::feature f) {
                EXPECT_TRUE(f.set_numeric(0, i == 0 ? 1e9 : i % 2) && f.set_numeric(1, 1e9 + i % 3) &&
                            f.set_integer(2, i % 4 == 0 ? 1 : 2));
            }));
    }
    // Of the first value the others lie far away; the second ones are large beside their spread.
    auto const stdev = [](std::vector<double> const &values) {
        long double mean = 0;
        for (double const v : values)
            mean += v;
        mean /= static_cast<long double>(values.size());
        long double squares = 0;
        for (double const v : values)
            squares += (v - mean) * (v - mean);
        return static_cast<double>(std::sqrt(squares / static_cast<long double>(values.size() - 1)));
    };
    std::vector<double> far, high;
    for (int i = 0; i < 1000; ++i) {
        far.push_back(i == 0 ? 1e9 : i % 2);
        high.push_back(1e9 + i % 3);
    }
    {
        source const s(path);
        double value = 0;
        ASSERT_TRUE(s.stat.stdev(0, &value));
        EXPECT_NEAR(value / stdev(far), 1, 1e-10);
        ASSERT_TRUE(s.stat.stdev(1, &value));
        EXPECT_NEAR(value / stdev(high), 1, 1e-12);
        ASSERT_TRUE(s.stat.sum(2, &value));
        EXPECT_EQ(value, 250 + 2 * 750);
    }
    // A column of this format takes text too; GDAL reads a number from it.
    sqlite3 *base = nullptr;
    ASSERT_EQ(sqlite3_open((dir / "t.sqlite").c_str(), &base), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(base, "UPDATE \"t \"\"x\"\"\" SET far = '12 and more' WHERE ogc_fid = 1", nullptr,
                           nullptr, nullptr),
              SQLITE_OK)
        << sqlite3_errmsg(base);
    sqlite3_close(base);
    source const s(path);
    double value = 0;
    keeper k;
    ASSERT_TRUE(s.forward.with_next_feature(k));
    double const read = k.item.get_numeric(0, nullptr);
    ASSERT_TRUE(s.stat.maximum(0, &value));
    EXPECT_EQ(value, std::max(read, 1.0));
}

TEST(gdal_column, many_different_values)
{
    // Past the number of values up to which a table is kept, with each value several times.
    constexpr int c_records = 120'000;
    constexpr long long c_large = 1LL << 60;
    source const made(L"numbers", 11);
    ASSERT_TRUE(
        made.table.create_vector(L"t", 0, 0, definition({{L"x", 2}, {L"n", 3}, {L"b", 4}, {L"s", 1}})));
    std::set<double> reals;
    std::set<double> wholes;
    std::set<std::wstring> larges;
    std::set<std::wstring> texts;
    for (int i = 0; i < c_records; ++i) {
        double const real = (i * 7919LL % 100'003 - 50'000) * 0.1;
        int const whole = static_cast<int>(i * 7919LL % 100'003 - 50'000) * (i % 2 ? 1 : 1000);
        long long const large = c_large + i % 70'000;
        std::wstring const text = (i % 2 ? L"Ключ " : L"key ") + std::to_wstring(i * 31LL % 80'000);
        reals.insert(real);
        wholes.insert(whole);
        larges.insert(std::to_wstring(large));
        texts.insert(text);
        ASSERT_TRUE(add(made, [&](vx::feature f) {
            (void)(f.set_numeric(0, real) && f.set_integer(1, whole) && f.set_bigint(2, large) &&
                   f.set_string(3, text.c_str()));
        }));
    }
    number_list found;
    ASSERT_TRUE(made.stat.with_unique_numerics(0, c_unlimited, found));
    EXPECT_EQ(found.values, std::vector<double>(reals.begin(), reals.end()));
    found.values.clear();
    ASSERT_TRUE(made.stat.with_unique_numerics(1, c_unlimited, found));
    EXPECT_EQ(found.values, std::vector<double>(wholes.begin(), wholes.end()));
    found.values.clear();
    ASSERT_TRUE(made.stat.with_unique_numerics(1, 90'000, found));
    EXPECT_EQ(found.values.size(), 90'000u);
    auto const unique = [&](int field) {
        return texts_of(
            [&](vx::string_visitor v) { EXPECT_TRUE(made.stat.with_unique_strings(field, c_unlimited, v)); });
    };
    EXPECT_EQ(unique(2), std::vector<std::wstring>(larges.begin(), larges.end())) << "to the last digit";
    EXPECT_EQ(unique(3), std::vector<std::wstring>(texts.begin(), texts.end())) << "in the order of a set";
    long long count = 0;
    EXPECT_TRUE(made.stat.count_distinct(0, &count));
    EXPECT_EQ(count, static_cast<long long>(reals.size()));
}
} // namespace
