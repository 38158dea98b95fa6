#include "platform/data/detail/attr_row.h"

#include "platform/data/vx_attr_data.h"

#include <charconv>
#include <cmath>
#include <string>

namespace vx::attr {
int attr_row::field_index(std::wstring_view name) const
{
    if (!f_files || name.empty())
        return -1;
    int const field = vx_attr_files_get_field_index_w(f_files, std::wstring(name).c_str());
    if (field >= 0)
        f_fields.insert(field);
    return field;
}

Tvx_calc_cell attr_row::cell(int field, bool text_needed)
{
    Tvx_calc_cell cell;
    if (!f_files || field < 0)
        return cell;
    auto const f = static_cast<unsigned>(field);
    int const type = vx_attr_files_get_field_type(f_files, f);
    cell.is_number = type == c_attr_integer || type == c_attr_numeric || type == c_attr_bigint;
    if (cell.is_number) {
        cell.number = vx_attr_files_get_dbl(f_files, f, f_record, &cell.known);
        cell.is_number = cell.known;
        if (cell.known && type != c_attr_numeric)
            cell.whole = whole_number(f, cell.number);
    }
    if (!cell.is_number || text_needed)
        cell.text = vx_attr_files_get_wstr(f_files, f, f_record, &cell.known);
    return cell;
}

/// Past 53 bits only the cell's text has all digits.
std::optional<std::int64_t> attr_row::whole_number(unsigned field, double number)
{
    constexpr double c_exact = 9007199254740992.0;
    if (std::abs(number) < c_exact)
        return static_cast<std::int64_t>(number);
    auto const digits = vx_attr_files_get_utf8(f_files, field, f_record, nullptr);
    std::int64_t value = 0;
    bool const good = std::from_chars(digits.data(), digits.data() + digits.size(), value).ec == std::errc();
    return good ? std::optional(value) : std::nullopt;
}
} // namespace vx::attr
