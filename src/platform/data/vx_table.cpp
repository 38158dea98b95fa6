#include "platform/data/vx_table.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"

namespace {
constexpr int c_read_only = 1;

// A negative column becomes one past every table.
unsigned column_index(int column)
{
    return static_cast<unsigned>(column);
}
} // namespace

/// The table of a vector data object is its attribute table.
struct Ivx_table_files
{
    vx::owned<Ivx_attr_files, &vx_attr_files_close> attributes;
};

Ivx_table_files *vx_table_files_open(Ivx_entity *entity, int /*mode*/)
{
    auto *const attributes = vx_attr_files_open(vx_attr_data_safe_downcast(entity), c_read_only, 0);
    return attributes ? new Ivx_table_files{vx::owned<Ivx_attr_files, &vx_attr_files_close>(attributes)}
                      : nullptr;
}

void vx_table_files_close(Ivx_table_files *table)
{
    delete table;
}

int vx_table_files_get_columns_count(Ivx_table_files const *table)
{
    return table ? static_cast<int>(vx_attr_files_get_np(table->attributes.get())) : 0;
}

unsigned vx_table_files_get_rows_count(Ivx_table_files const *table)
{
    return table ? vx_attr_files_get_no(table->attributes.get()) : 0;
}

void vx_table_files_get_column_name_w(Ivx_table_files const *table, int column, Ivx_string_adp *name)
{
    vx_string_adp_feed(name,
                       table ? vx_attr_files_get_field_name_w(table->attributes.get(), column_index(column))
                             : nullptr);
}

int vx_table_files_get_column_index_w(Ivx_table_files const *table, wchar_t const *name)
{
    return table ? vx_attr_files_get_field_index_w(table->attributes.get(), name) : -1;
}

void vx_table_files_get_wstring(Ivx_table_files *table, int column, unsigned row, bool *ok,
                                Ivx_string_adp *text, int /*flags*/)
{
    auto *const attributes = table ? table->attributes.get() : nullptr;
    vx_string_adp_feed(text, vx_attr_files_get_wstr(attributes, column_index(column), row, ok));
}

int vx_table_files_get_int(Ivx_table_files *table, int column, unsigned row, bool *ok)
{
    return vx_attr_files_get_int(table ? table->attributes.get() : nullptr, column_index(column), row, ok);
}

double vx_table_files_get_dbl(Ivx_table_files *table, int column, unsigned row, bool *ok)
{
    return vx_attr_files_get_dbl(table ? table->attributes.get() : nullptr, column_index(column), row, ok);
}
