#include "platform/basic/vx_attrib_any_data.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {
/// What lies at an address, as one who knows nothing of our types reads it.
template <class T>
T at(void const *address, std::size_t offset)
{
    T value;
    std::memcpy(&value, static_cast<char const *>(address) + offset, sizeof value);
    return value;
}

struct any_data : testing::Test
{
    ~any_data() override { attrib_any_data_destroy(data); }
    Tvx_attrib_any_data *data = attrib_any_data_create();
};
} // namespace

TEST_F(any_data, lies_in_memory_as_plug_ins_know_it)
{
    EXPECT_EQ(at<std::uint32_t>(data, 0), 5U);
    EXPECT_EQ(at<std::uint64_t>(data, 4), 0U) << "a tuple without elements";
    tuple_resize(data, 4);
    any_assign_string(tuple_get(data, 0), "text \xD1\x8F");
    any_assign_integer(tuple_get(data, 1), -2);
    any_assign_floating(tuple_get(data, 2), 0.5);
    Tvx_any_table table;
    table_init(&table);
    table_resize(&table, 2);
    tuple_resize(&table.rows[1], 1);
    any_assign_integer(tuple_get(&table.rows[1], 0), 7);
    any_assign_table(tuple_get(data, 3), &table);
    EXPECT_EQ(table.count, 0U) << "the rows went over";

    auto const *const elements = at<char const *>(data, 4);
    EXPECT_EQ(at<std::uint32_t>(elements, 0), 2U);
    EXPECT_STREQ(at<char const *>(elements, 4), "text \xD1\x8F");
    EXPECT_EQ(at<std::uint32_t>(elements, 12), 3U);
    EXPECT_EQ(at<std::int64_t>(elements, 16), -2);
    EXPECT_EQ(at<std::uint32_t>(elements, 24), 4U);
    EXPECT_EQ(at<double>(elements, 28), 0.5);
    EXPECT_EQ(at<std::uint32_t>(elements, 36), 6U);
    auto const *const record = at<char const *>(elements, 40);
    EXPECT_EQ(at<std::uint32_t>(record, 0), 2U);
    auto const *const rows = at<char const *>(record, 4);
    EXPECT_EQ(at<std::uint32_t>(rows, 0), 0U) << "a row that nothing was put into";
    EXPECT_EQ(at<std::uint32_t>(rows, 12), 5U);
    EXPECT_EQ(at<std::int64_t>(at<char const *>(rows, 16), 4), 7);
}

TEST_F(any_data, grows_shrinks_and_is_overwritten)
{
    tuple_resize(data, 2);
    any_assign_string(tuple_get(data, 0), "kept");
    any_assign_string(tuple_get(data, 1), nullptr);
    tuple_resize(data, 1000);
    EXPECT_STREQ(reinterpret_cast<char const *>(tuple_get(data, 0)->value), "kept");
    EXPECT_STREQ(reinterpret_cast<char const *>(tuple_get(data, 1)->value), "");
    EXPECT_EQ(tuple_get(data, 999)->tag, c_any_none);
    EXPECT_EQ(tuple_get(data, 1000), nullptr);
    // Over a text, a tuple, a table: what was there goes (the sanitizer sees to that).
    auto *const cell = tuple_get(data, 0);
    tuple_resize(cell, 3);
    any_assign_string(tuple_get(cell, 2), "below");
    Tvx_any_table table;
    table_init(&table);
    table_resize(&table, 3);
    any_assign_string(&table.rows[2], "row");
    any_assign_string(&table.rows[0], "row");
    table_resize(&table, 1);
    any_assign_table(cell, &table);
    EXPECT_EQ(any_get_table(cell)->count, 1U);
    EXPECT_EQ(any_get_table(data), nullptr);
    any_assign_floating(cell, 1);
    any_clear(cell);
    EXPECT_EQ(cell->tag, c_any_none);
    tuple_resize(data, 1);
    EXPECT_EQ(tuple_get_size(data), 1U);
    EXPECT_EQ(tuple_get_size(tuple_get(data, 0)), 0U);
}
