#pragma once

#include "platform/base/export.h"

struct Ivx_attr_data;
/// The rows of a manager over a table, for questions about single objects.
struct Ivx_scale_rows;

/// Rows of the scale that a style manager has in force, and how many objects fall in each. They are the rows
/// by which a layer is drawn: one row for a simple style; the entries and, last, the other entry for value
/// and rule scales; the min entry, the ranges, the max entry and, last, the other entry for range scales.

/// Number of rows; 0 for null.
[[nodiscard]] VX_API unsigned vx_scale_rows_get_count(void const *stl_mngr);
/// Writes the number of objects of each row, `size` of them at most; rows past the last one get 0. Every
/// object counts in exactly one row, whether the row is visible or not. False, with the counts as they were,
/// if the table cannot be read.
VX_API bool vx_scale_rows_count_objects(void const *stl_mngr, Ivx_attr_data *data, unsigned *counts,
                                        unsigned size);

/// Null when the manager is null or the table cannot be read. The manager must stay as it is for as long.
[[nodiscard]] VX_API Ivx_scale_rows *vx_scale_rows_open(void const *stl_mngr, Ivx_attr_data *data);
/// The same over the objects of a property file.
[[nodiscard]] VX_API Ivx_scale_rows *vx_scale_rows_open_file_w(void const *stl_mngr,
                                                               wchar_t const *property_file);
/// Null is accepted.
VX_API void vx_scale_rows_close(Ivx_scale_rows *rows);
/// The row that draws the object of this record, whether it is visible or not.
[[nodiscard]] VX_API unsigned vx_scale_rows_find(Ivx_scale_rows const *rows, unsigned record);
