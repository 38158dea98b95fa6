#include "bundles/gdal_drivers/writing.h"
#include "data/vector/memory_driver.h"
#include "extension/binding/column_source.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_bundle.h"
#include "platform/data/vx_attr_data.h"

#include <gtest/gtest.h>
#include <numeric>

using namespace vx_test;

namespace {
using attr_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using attr_files = vx::owned<Ivx_attr_files, &vx_attr_files_close>;

struct format
{
    char const *name;
    int driver;
    wchar_t const *table;
    int date_type = c_attr_date;
    wchar_t const *date = L"2024-02-29";
};

/// A driver whose columns are not what its fields promise.
struct wrong_columns final : memory_driver::source, vx::polymorphic<vx::column_source_impl>
{
    enum manner
    {
        another_kind,
        none_at_all,
        broken_off
    } way = another_kind;

    bool with_column(int, vx::column_visitor visitor) override
    {
        int const whole[] = {5, 6};
        if (way == another_kind)
            return visitor.visit_integers(2, whole, nullptr), true;
        if (way == broken_off) {
            double const number = 77;
            visitor.visit_floatings(1, &number, nullptr);
        }
        return false;
    }
};
} // namespace

TEST(format_tables, types_and_texts_as_stored)
{
    constexpr format c_formats[] = {
        {"t.shp", 1, L"t"},
        {"t.gpkg", 2, L"t"},
        {"t.geojson", 3, L"t"},
        {"t.fgb", 4, L"t|SPATIAL_INDEX=NO", c_attr_date_time, L"2024-02-29T00:00:00"},
        {"t.csv", 5, L"t|CREATE_CSVT=YES&GEOMETRY=AS_WKT"},
        {"t.sqlite", 7, L"t"}};
    constexpr int c_rows = 5000; // more than a run of cells
    wchar_t const *const texts[] = {L"007", L"Ґанок", L"a\"b", L"1e3"};
    for (auto const &f : c_formats) {
        SCOPED_TRACE(f.name);
        temp_dir const dir;
        auto const path = vx::text::utf8_to_wide((dir / f.name).string());
        {
            source const made(path, f.driver);
            ASSERT_TRUE(made.table.create_vector(
                f.table, 1, 0,
                definition(
                    {{L"s", 1, 0, 30}, {L"x", 2, 0, 20, 4}, {L"n", 3}, {L"b", 4, 0, 18}, {L"d", 1, 2}})));
            (void)made.table.transaction_start();
            for (int i = 0; i < c_rows; ++i)
                ASSERT_TRUE(add(made, [&](vx::feature feature) {
                    Tvx_vtx_d2 place{1.0 * i, 2};
                    (void)feature.set_point(&place);
                    (void)feature.set_string(0, texts[i % 4]);
                    if (i % 3)
                        (void)(feature.set_numeric(1, i / 4.0) && feature.set_integer(2, i) &&
                               feature.set_bigint(3, 5'000'000'000LL + i) &&
                               feature.set_string(4, L"2024-02-29"));
                }));
        }
        attr_data const data(vx_attr_data_create(path.c_str()));
        attr_files const files(vx_attr_files_open(data.get(), 1, 0));
        ASSERT_TRUE(files);
        ASSERT_EQ(vx_attr_files_get_no(files.get()), static_cast<unsigned>(c_rows));
        auto const at = [&](wchar_t const *name) {
            return static_cast<unsigned>(vx_attr_files_get_field_index_w(files.get(), name));
        };
        EXPECT_EQ(vx_attr_files_get_field_type(files.get(), at(L"s")), c_attr_string);
        EXPECT_EQ(vx_attr_files_get_field_type(files.get(), at(L"x")), c_attr_numeric);
        EXPECT_EQ(vx_attr_files_get_field_type(files.get(), at(L"n")), c_attr_integer);
        EXPECT_EQ(vx_attr_files_get_field_type(files.get(), at(L"b")), c_attr_bigint);
        EXPECT_EQ(vx_attr_files_get_field_type(files.get(), at(L"d")), f.date_type);
        // Some formats change the order of the features, but of whole records only.
        std::vector<int> seen;
        for (unsigned record = 0; record < c_rows; ++record) {
            bool ok = false;
            int const n = vx_attr_files_get_int(files.get(), at(L"n"), record, &ok);
            if (!ok) {
                (void)vx_attr_files_get_dbl(files.get(), at(L"x"), record, &ok);
                EXPECT_FALSE(ok);
                EXPECT_STREQ(vx_attr_files_get_wstr(files.get(), at(L"b"), record, &ok), L"");
                EXPECT_FALSE(ok);
                continue;
            }
            seen.push_back(n);
            ASSERT_STREQ(vx_attr_files_get_wstr(files.get(), at(L"s"), record, &ok), texts[n % 4]);
            ASSERT_TRUE(ok);
            ASSERT_EQ(vx_attr_files_get_dbl(files.get(), at(L"x"), record, &ok), n / 4.0);
            ASSERT_EQ(vx_attr_files_get_str(files.get(), at(L"b"), record, &ok),
                      std::to_string(5'000'000'000LL + n));
            ASSERT_STREQ(vx_attr_files_get_wstr(files.get(), at(L"d"), record, &ok), f.date);
        }
        EXPECT_EQ(seen.size(), 3333u);
        EXPECT_EQ(std::accumulate(seen.begin(), seen.end(), 0LL), 4999LL * 5000 / 2 - 3LL * 1666 * 1667 / 2);

        attr_data const other(vx_attr_data_create(path.c_str()));
        attr_files const window(vx_attr_files_open(other.get(), 1, 0));
        for (unsigned const record : {4999u, 0u, 1234u, 63u, 64u, 4999u, 5000u})
            for (unsigned field = 0; field < vx_attr_files_get_np(files.get()); ++field) {
                bool known = false;
                bool peeked = true;
                std::wstring const cell = vx_attr_files_get_wstr(files.get(), field, record, &known);
                EXPECT_EQ(vx_attr_files_peek_wstr(window.get(), field, record, &peeked), cell)
                    << record << ", " << field;
                EXPECT_EQ(peeked, known);
            }
        bool still = false;
        EXPECT_STREQ(vx_attr_files_get_wstr(window.get(), at(L"s"), 1, &still),
                     vx_attr_files_get_wstr(files.get(), at(L"s"), 1, &still))
            << "a page leaves no filter behind";
        EXPECT_EQ(vx_attr_files_get_no(window.get()), 5000u);

        EXPECT_FALSE(vx_attr_data_is_missing(data.get()));
        std::filesystem::remove(dir / f.name);
        EXPECT_TRUE(vx_attr_data_is_missing(data.get()));
        bool ok = false;
        EXPECT_STRNE(vx_attr_files_get_wstr(files.get(), at(L"s"), 0, &ok), L"") << "what was read stays";
    }
}

TEST(format_tables, columns_that_break_their_promise_are_walked_instead)
{
    wrong_columns source;
    source.fields = {{L"x", vx::data::field_type::numeric}};
    source.rows = {{memory_driver::cell(1.5)}, {memory_driver::cell()}, {memory_driver::cell(-2.0)}};
    Tvx_datasource_driver driver{
        "wrong",
        1000,
        &source,
        nullptr,
        [](void *context, wchar_t const *, bool, t_vx_data_source_interface *result, Ivx_string_adp *) {
            *result = static_cast<wrong_columns *>(context)->handle();
        },
        nullptr};
    ASSERT_TRUE(vx_datasource_add_driver(&driver));
    for (auto const way :
         {wrong_columns::another_kind, wrong_columns::none_at_all, wrong_columns::broken_off}) {
        SCOPED_TRACE(way);
        source.way = way;
        attr_data const data(vx_attr_data_create(L"wrong:"));
        attr_files const files(vx_attr_files_open(data.get(), 1, 0));
        ASSERT_TRUE(files);
        bool ok = false;
        EXPECT_EQ(vx_attr_files_get_dbl(files.get(), 0, 0, &ok), 1.5);
        EXPECT_EQ(vx_attr_files_get_dbl(files.get(), 0, 1, &ok), 0);
        EXPECT_FALSE(ok);
        EXPECT_EQ(vx_attr_files_get_dbl(files.get(), 0, 2, &ok), -2);
    }
    vx_datasource_remove_driver(&driver);
}
