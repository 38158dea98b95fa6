#include "platform/render/detail/tos_table.h"

#include "platform/base/shown_number.h"
#include "platform/base/text_codec.h"

#include <algorithm>

namespace vx::render {
Ivx_tos4_prop *tos_row::property(int field)
{
    if (field < 0)
        return nullptr;
    auto const place = static_cast<unsigned>(field);
    if (place >= f_props.size())
        f_props.resize(place + 1);
    if (!f_props[place])
        f_props[place].reset(vx_tos4_prop_open(f_file, place));
    return f_props[place].get();
}

bool tos_row::is_damaged() const
{
    return std::ranges::any_of(f_props, [](auto const &p) { return vx_tos4_prop_is_damaged(p.get()); });
}

int tos_row::field_index(std::wstring_view name) const
{
    return vx_tos4_find_prop_w(f_file, std::wstring(name).c_str());
}

Tvx_calc_cell tos_row::cell(int field, bool text_needed)
{
    Tvx_calc_cell cell;
    if (field < 0)
        return cell;
    cell.known = cell.is_number = vx_tos4_prop_get_value_double(property(field), f_object, &cell.number);
    if (cell.known && text_needed) {
        text::number_buffer buffer;
        f_text = text::utf8_to_wide(text::shown_number(cell.number, buffer));
        cell.text = f_text;
    }
    return cell;
}

int tos_table::field_index(std::wstring const &name) const
{
    return f_row.field_index(name);
}

double tos_table::number(int field, unsigned record, bool &known)
{
    double value = 0;
    known = vx_tos4_prop_get_value_double(f_row.property(field), record, &value);
    return value;
}

std::string_view tos_table::text(int field, unsigned record, bool &known)
{
    text::number_buffer buffer;
    f_text = text::shown_number(number(field, record, known), buffer);
    return known ? std::string_view(f_text) : std::string_view();
}

Ivx_calc_row &tos_table::row_of(unsigned record)
{
    f_row.go_to(record);
    return f_row;
}
} // namespace vx::render
