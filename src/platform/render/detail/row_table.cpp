#include "platform/render/detail/row_table.h"

#include "platform/data/vx_attr_data.h"

namespace vx::render {
int attr_table::field_index(std::wstring const &name) const
{
    return f_files ? vx_attr_files_get_field_index_w(f_files, name.c_str()) : -1;
}

bool attr_table::read_on(int field, int milliseconds)
{
    return vx_attr_files_read_on(f_files, static_cast<unsigned>(field), milliseconds);
}

double attr_table::number(int field, unsigned record, bool &known)
{
    return vx_attr_files_get_dbl(f_files, static_cast<unsigned>(field), record, &known);
}

std::string_view attr_table::text(int field, unsigned record, bool &known)
{
    return vx_attr_files_get_utf8(f_files, static_cast<unsigned>(field), record, &known);
}

int attr_table::text_number(int field, unsigned record)
{
    return vx_attr_files_get_text_number(f_files, static_cast<unsigned>(field), record);
}

Ivx_calc_row &attr_table::row_of(unsigned record)
{
    f_row.go_to(record);
    return f_row;
}
} // namespace vx::render
