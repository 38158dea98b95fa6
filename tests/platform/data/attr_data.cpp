#include "support/comma_locale.h"
#include "support/memory_source.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"
#include "platform/data/vx_table.h"
#include "platform/winapi/file.h"

#include <climits>
#include <gtest/gtest.h>

namespace {
using attr_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using attr_files = vx::owned<Ivx_attr_files, &vx_attr_files_close>;

constexpr double c_huge = 1e300;
constexpr unsigned c_text = 0;
constexpr unsigned c_number = 1;
constexpr unsigned c_integer = 2;
constexpr unsigned c_bigint = 3;
constexpr unsigned c_date = 4;
constexpr unsigned c_binary = 5;

vx_test::memory_table sample_table()
{
    vx_test::memory_table table;
    table.fields = {{L"Имя", 1}, {L"number", 2}, {L"whole", 3},
                    {L"Big", 4}, {L"day", 1, 2}, {L"bytes", 1, 5}};
    table.features = {
        {{std::wstring(L"один"), 1.5, 7, 1LL << 40, std::wstring(L"2024-02-29"), std::wstring(L"x")}},
        {{}, 1, {{{2, 3}}}},
        {{std::wstring(L" -2.5e1 "), c_huge, INT_MIN, LLONG_MIN, std::wstring(L""), {}}},
        {{std::wstring(L"1,5"), 0.1, INT_MAX, -3LL, std::wstring(L"один"), {}}},
    };
    table.features[1].cells.resize(6);
    return table;
}

class attr_table : public testing::Test
{
protected:
    void open() { f_files.reset(vx_attr_files_open(f_data.get(), 1, 0)); }
    std::wstring text(unsigned field, unsigned record, bool &ok)
    {
        return vx_attr_files_get_wstr(f_files.get(), field, record, &ok);
    }

    vx_test::memory_table f_table = sample_table();
    vx_test::memory_driver f_driver{L"memory:", f_table};
    attr_data f_data{vx_attr_data_create(L"*memory:a|layer=b")};
    attr_files f_files;
};

struct cell_case
{
    unsigned field;
    unsigned record;
    std::optional<std::wstring> text;
    std::optional<double> number;
    std::optional<int> integer;
};
cell_case const cells[] = {
    {c_text, 0, L"один", {}, {}},
    {c_text, 1, {}, {}, {}},
    {c_text, 2, L" -2.5e1 ", -25, -25},
    {c_text, 3, L"1,5", {}, {}}, // the decimal separator is the point, in every locale
    {c_number, 0, L"1.5", 1.5, 1},
    {c_number, 1, {}, {}, {}},
    {c_number, 2, L"1e+300", c_huge, INT_MAX},
    {c_number, 3, L"0.1", 0.1, 0},
    {c_integer, 0, L"7", 7, 7},
    {c_integer, 1, {}, {}, {}},
    {c_integer, 2, L"-2147483648", INT_MIN, INT_MIN},
    {c_integer, 3, L"2147483647", INT_MAX, INT_MAX},
    {c_bigint, 0, L"1099511627776", 1099511627776.0, INT_MAX},
    {c_bigint, 1, {}, {}, {}},
    {c_bigint, 2, L"-9223372036854775808", -9223372036854775808.0, INT_MIN},
    {c_bigint, 3, L"-3", -3, -3},
    {c_date, 0, L"2024-02-29", {}, {}},
    {c_date, 2, L"", {}, {}}, // an empty text is a value
    {c_binary, 0, {}, {}, {}},
    {c_text, 4, {}, {}, {}},
    {6, 0, {}, {}, {}},
};
} // namespace

TEST_F(attr_table, gives_cells_as_text_and_number)
{
    vx_test::comma_locale const locale;
    open();
    ASSERT_TRUE(f_files);
    for (auto const &c : cells) {
        SCOPED_TRACE(testing::Message() << "field " << c.field << " record " << c.record);
        bool ok = !c.text;
        EXPECT_EQ(c.text.value_or(L""), text(c.field, c.record, ok));
        EXPECT_EQ(c.text.has_value(), ok);
        ok = !c.text;
        EXPECT_EQ(vx::text::wide_to_utf8(c.text.value_or(L"")),
                  vx_attr_files_get_str(f_files.get(), c.field, c.record, &ok));
        EXPECT_EQ(c.text.has_value(), ok);
        ok = !c.number;
        EXPECT_EQ(c.number.value_or(0), vx_attr_files_get_dbl(f_files.get(), c.field, c.record, &ok));
        EXPECT_EQ(c.number.has_value(), ok);
        ok = !c.integer;
        EXPECT_EQ(c.integer.value_or(0), vx_attr_files_get_int(f_files.get(), c.field, c.record, &ok));
        EXPECT_EQ(c.integer.has_value(), ok);
        (void)vx_attr_files_get_dbl(f_files.get(), c.field, c.record, nullptr);
    }
}

TEST_F(attr_table, reads_a_column_once)
{
    open();
    EXPECT_EQ(0, f_table.walks) << "opening reads no feature";
    for (int i = 0; i < 3; ++i)
        for (unsigned record = 0; record < 4; ++record)
            (void)vx_attr_files_get_dbl(f_files.get(), c_number, record, nullptr);
    EXPECT_EQ(1, f_table.walks);
    attr_files const again(vx_attr_files_open(f_data.get(), 1, 0));
    (void)vx_attr_files_get_wstr(again.get(), c_number, 0, nullptr);
    EXPECT_EQ(1, f_table.walks) << "tables of one data object share the columns";
    (void)vx_attr_files_get_wstr(again.get(), c_binary, 0, nullptr);
    EXPECT_EQ(1, f_table.walks) << "what is not offered is not read";
    EXPECT_EQ(0, f_table.held_features) << "each feature is ended";
    EXPECT_EQ(1, f_table.opened);
}

TEST_F(attr_table, is_read_in_slices_beside_shapes_and_single_records)
{
    using shape_files = vx::owned<Ivx_shape_files, &vx_shape_files_close>;
    constexpr unsigned count = 300;
    constexpr unsigned c_page = 64;
    f_table.stores_extent = true;
    f_table.delay_us = 200;
    f_table.features.resize(count, f_table.features[1]);
    for (unsigned i = 4; i < count; ++i)
        f_table.features[i] = {{std::to_wstring(i), 0.5 * i, int(i), {}, {}, {}}, 1, {{{1.0 * i, 3}}}};
    open();
    shape_files const shapes(vx_shape_files_begin(f_data.get()));
    int slices = 0;
    for (bool is_on = true; is_on; ++slices) {
        is_on = vx_attr_files_read_on(f_files.get(), c_number, 20);
        is_on = (slices % 4 == 0 && vx_shape_files_read_on(shapes.get(), 40)) || is_on;
        if (slices == 2) {
            EXPECT_STREQ(vx_attr_files_peek_wstr(f_files.get(), c_text, c_page, nullptr), L"64");
        }
    }
    EXPECT_GT(slices, 2);
    while (vx_shape_files_read_on(shapes.get(), 10)) {
    }
    int const walks = f_table.walks;
    for (unsigned i = 4; i < count; ++i)
        EXPECT_EQ(vx_attr_files_get_dbl(f_files.get(), c_number, i, nullptr), 0.5 * i);
    EXPECT_EQ(vx_shape_files_get_count(shapes.get()), count);
    Tvx_shape_view view;
    EXPECT_TRUE(vx_shape_files_get(shapes.get(), count - 1, &view));
    EXPECT_EQ(view.points[view.part_starts[0]].x, count - 1);
    EXPECT_EQ(f_table.walks, walks) << "what was read stays";
    EXPECT_FALSE(vx_attr_files_read_on(f_files.get(), c_number, 10));
    EXPECT_FALSE(vx_attr_files_read_on(f_files.get(), c_binary, 10));
    EXPECT_FALSE(vx_attr_files_read_on(f_files.get(), 6, 10));
    EXPECT_TRUE(vx_attr_files_read_on(f_files.get(), c_integer, 1));
    EXPECT_EQ(vx_attr_files_get_int(f_files.get(), c_integer, 7, nullptr), 7) << "the rest at once";
    EXPECT_EQ(0, f_table.held_features);
}

TEST_F(attr_table, an_exact_name_comes_before_one_that_differs_in_case)
{
    f_table.fields[0].name = L"BIG";
    open();
    EXPECT_EQ(3, vx_attr_files_get_field_index_w(f_files.get(), L"Big"));
    EXPECT_EQ(0, vx_attr_files_get_field_index_w(f_files.get(), L"big"));
}

TEST_F(attr_table, a_driver_that_counts_wrong)
{
    f_table.missing_features = 3;
    open();
    EXPECT_EQ(7u, vx_attr_files_get_no(f_files.get()));
    bool ok = true;
    EXPECT_EQ(0, vx_attr_files_get_dbl(f_files.get(), c_number, 6, &ok));
    EXPECT_FALSE(ok);
    f_files.reset();
    vx_attr_data_reload(f_data.get());
    f_table.missing_features = -2;
    open();
    EXPECT_EQ(2u, vx_attr_files_get_no(f_files.get()));
    EXPECT_EQ(L"", text(c_number, 3, ok));
    EXPECT_FALSE(ok);
}

TEST_F(attr_table, outlives_a_reload_and_its_data_object)
{
    open();
    vx_attr_data_reload(f_data.get());
    f_table.features.clear();
    f_data.reset();
    EXPECT_EQ(4u, vx_attr_files_get_no(f_files.get()));
    f_files.reset();
    EXPECT_EQ(0, f_table.opened) << "the source is ended with its last user";
}

TEST_F(attr_table, texts_of_a_long_column)
{
    constexpr int c_records = 200'000; // past the number of texts that are compared with each other
    f_table.fields = {{L"text", 1}};
    f_table.features.clear();
    for (int i = 0; i < c_records; ++i)
        f_table.features.push_back({{std::wstring(i % 3 ? L"same" : std::to_wstring(i))}});
    open();
    bool ok = false;
    for (unsigned i = 0; i < c_records; i += 37)
        ASSERT_EQ(i % 3 ? L"same" : std::to_wstring(i), text(0, i, ok));
    EXPECT_TRUE(ok);
}

TEST(attr_data, names_its_file)
{
    vx_test::temp_dir const dir;
    auto const with_mark = (dir / "a&b.shp").wstring();
    vx_test::write_file(dir / "a&b.shp", "");
    struct
    {
        std::wstring source;
        std::wstring file;
    } const cases[] = {
        {L"/d/a.shp", L"/d/a.shp"},
        {L"/d/a.gpkg|layer=x&fid=y", L"/d/a.gpkg"},
        {L"*/d/a.gpkg|layer=x", L"/d/a.gpkg"},
        {L"/d/a.gpkg&layer=x", L"/d/a.gpkg"},
        {with_mark, with_mark},
        {L"", L""},
    };
    for (auto const &c : cases) {
        attr_data const data(vx_attr_data_create(c.source.c_str()));
        std::wstring name;
        vx_attr_data_get_wfilename(data.get(), Tvx_std_wstring_adapter(name));
        EXPECT_EQ(c.file, name);
        vx_attr_data_get_wsource(data.get(), Tvx_std_wstring_adapter(name));
        EXPECT_EQ(c.source, name);
    }
}

TEST(attr_data, tells_when_its_file_is_gone)
{
    vx_test::temp_dir const dir;
    auto const file = dir / "a.memory";
    vx_test::write_file(file, "x");
    vx_test::memory_table table = sample_table();
    vx_test::memory_driver const driver(file.wstring(), table);
    attr_data const data(vx_attr_data_create(file.wstring().c_str()));
    EXPECT_FALSE(vx_attr_data_is_missing(data.get()));
    ASSERT_TRUE(vx_attr_data_open(data.get()));
    std::filesystem::remove(file);
    EXPECT_TRUE(vx_attr_data_is_missing(data.get()));
    attr_data const nowhere(vx_attr_data_create(L"/no/such/file.shp"));
    EXPECT_TRUE(vx_attr_data_is_missing(nowhere.get()));
    attr_data const server(vx_attr_data_create(L"server: database"));
    EXPECT_FALSE(vx_attr_data_is_missing(server.get()));
}

TEST(attr_data, what_cannot_be_opened)
{
    attr_data const data(vx_attr_data_create(L"no driver has this"));
    EXPECT_FALSE(vx_attr_data_open(data.get()));
    EXPECT_EQ(nullptr, vx_attr_files_open(data.get(), 1, 0));
    EXPECT_EQ(0, vx_attr_data_get_geom_type(data.get()));
    std::wstring error;
    vx_attr_data_get_werror(data.get(), Tvx_std_wstring_adapter(error));
    EXPECT_NE(L"", error);

    vx_test::memory_table table = sample_table();
    table.vector_count = 0;
    vx_test::memory_driver const driver(L"memory:", table);
    attr_data const empty(vx_attr_data_create(L"memory:"));
    EXPECT_FALSE(vx_attr_data_open(empty.get())) << "neither vector nor grid";
    EXPECT_EQ(0, table.opened);
    table.grid_count = 2;
    EXPECT_TRUE(vx_attr_data_open(empty.get()));
    EXPECT_EQ(2, vx_attr_data_get_grid_count(empty.get()));
    EXPECT_EQ(nullptr, vx_attr_files_open(empty.get(), 1, 0)) << "a grid has no table";
}
