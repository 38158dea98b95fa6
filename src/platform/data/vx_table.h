#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

struct Ivx_entity;

/// The table of an entity, whatever its kind: a data object with attributes has one. All functions accept
/// null and take indexes outside the table as cells without a value. Main thread only.
struct Ivx_table_files;

/// Opens the table for reading. `mode` is 1. Null when the entity is null, has no table, or its data cannot
/// be opened.
[[nodiscard]] VX_API Ivx_table_files *vx_table_files_open(Ivx_entity *entity, int mode);
VX_API void vx_table_files_close(Ivx_table_files *table);

[[nodiscard]] VX_API int vx_table_files_get_columns_count(Ivx_table_files const *table);
[[nodiscard]] VX_API unsigned vx_table_files_get_rows_count(Ivx_table_files const *table);
VX_API void vx_table_files_get_column_name_w(Ivx_table_files const *table, int column, Ivx_string_adp *name);
/// Index of the column of this name: the exact name first, else one that differs only in case; -1 when there
/// is none.
[[nodiscard]] VX_API int vx_table_files_get_column_index_w(Ivx_table_files const *table, wchar_t const *name);

/// A cell; `*ok` (may be null) tells whether it has a value. Without one the text is empty and the number 0.
/// `flags` is 0.
VX_API void vx_table_files_get_wstring(Ivx_table_files *table, int column, unsigned row, bool *ok,
                                       Ivx_string_adp *text, int flags);
[[nodiscard]] VX_API int vx_table_files_get_int(Ivx_table_files *table, int column, unsigned row, bool *ok);
[[nodiscard]] VX_API double vx_table_files_get_dbl(Ivx_table_files *table, int column, unsigned row,
                                                   bool *ok);
