#include "scale_engine/value/detail/table_values.h"

#include "data/source/generic_datasource.h"

#include <algorithm>
#include <limits>

namespace vx::task::detail {
namespace {
constexpr int c_for_reading = 1;
}

std::uint64_t source_limit(std::uint64_t limit)
{
    constexpr std::uint64_t most = std::numeric_limits<int>::max();
    return limit > most ? vx::data::c_no_limit : std::max<std::uint64_t>(limit, 1);
}

table_column::table_column(Ivx_entity *entity, std::wstring const &field, std::wstring const *caption_field)
    : f_table(vx_table_files_open(entity, c_for_reading))
{
    f_column = vx_table_files_get_column_index_w(f_table.get(), field.c_str());
    if (caption_field)
        f_caption_column = vx_table_files_get_column_index_w(f_table.get(), caption_field->c_str());
    if (f_caption_column < 0)
        f_caption_column = f_column;
}

bool table_column::read_text(int column, unsigned row, std::wstring_view &value)
{
    bool has_value = false;
    vx_table_files_get_wstring(f_table.get(), column, row, &has_value, f_receiver, 0);
    value = trimmed(f_text);
    return has_value;
}

bool table_column::read_number(int column, unsigned row, int &value)
{
    bool has_value = false;
    value = vx_table_files_get_int(f_table.get(), column, row, &has_value);
    return has_value;
}

bool table_column::read_number(int column, unsigned row, double &value)
{
    bool has_value = false;
    value = vx_table_files_get_dbl(f_table.get(), column, row, &has_value);
    return has_value;
}
} // namespace vx::task::detail
