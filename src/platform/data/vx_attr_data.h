#pragma once

#include "platform/base/export.h"
#include "platform/base/geometry.h"
#include "platform/base/string_adp.h"

#include <string_view>

struct Ivx_entity;
struct t_vx_data_source_interface;

/// A vector data set behind a layer: a connection string and what has been read of it. Counted: clones of a
/// layer hold one object together. Main thread only.
struct Ivx_attr_data;
/// An open attribute table. It holds its data object.
struct Ivx_attr_files;

/// Field type codes of `vx_attr_files_get_field_type`. Text and dates are offered as text, the numeric ones
/// as numbers; 0 and what is above 7 are not offered at all.
enum Tvx_attr_field_type : int
{
    c_attr_unknown = 0,
    c_attr_string = 1,
    c_attr_integer = 2,
    c_attr_date = 3,
    c_attr_time = 4,
    c_attr_date_time = 5,
    c_attr_numeric = 6,
    c_attr_bigint = 7,
    c_attr_binary = 8,
};

/// A data object for a connection string, with a count of one. Nothing is opened yet, so the file need not
/// exist. The source of a data object never changes.
[[nodiscard]] VX_API Ivx_attr_data *vx_attr_data_create(wchar_t const *source);
/// A data object for a data set that is open already, by that connection string and for reading; the handle
/// is taken over, and ended where it cannot be used: then null, with one sentence in `error` (may be null).
[[nodiscard]] VX_API Ivx_attr_data *vx_attr_data_create_open(wchar_t const *source,
                                                             t_vx_data_source_interface const *opened,
                                                             Ivx_string_adp *error);
/// Counts once more and gives the object back; null gives null.
VX_API Ivx_attr_data *vx_attr_data_retain(Ivx_attr_data *data);
/// Counts once less; at none the object goes. Null is accepted.
VX_API void vx_attr_data_release(Ivx_attr_data *data);
[[nodiscard]] VX_API Ivx_attr_data *vx_attr_data_safe_downcast(Ivx_entity *entity);
[[nodiscard]] VX_API Ivx_entity *vx_attr_data_safe_upcast(Ivx_attr_data *data);

/// The connection string, and the file part of it (without virtual mark and options).
VX_API void vx_attr_data_get_wsource(Ivx_attr_data const *data, Ivx_string_adp *source);
VX_API void vx_attr_data_get_wfilename(Ivx_attr_data const *data, Ivx_string_adp *file_name);
/// Why the last attempt to open failed; empty when it did not fail or there was none.
VX_API void vx_attr_data_get_werror(Ivx_attr_data const *data, Ivx_string_adp *error);
/// True when a source that names a file has that file no more. A source that is no path on disk is never
/// missing.
[[nodiscard]] VX_API bool vx_attr_data_is_missing(Ivx_attr_data const *data);
/// Opens the data set if it is not open. False when it cannot be opened; each call tries again.
[[nodiscard]] VX_API bool vx_attr_data_open(Ivx_attr_data *data);
/// Forgets what was read, so that the next use reads the file again. Open tables and shapes keep what they
/// have.
VX_API void vx_attr_data_reload(Ivx_attr_data *data);

/// Of the open data set; 0, empty or false when it cannot be opened. Geometry types as in a connection's
/// "geom_type": 1 point, 3 polyline, 5 polygon, 8 multipoint, 11 to 18 the same with z, 100 unknown.
[[nodiscard]] VX_API int vx_attr_data_get_geom_type(Ivx_attr_data *data);
[[nodiscard]] VX_API int vx_attr_data_get_grid_count(Ivx_attr_data *data);
/// The coordinate system in PROJ.4 form.
VX_API void vx_attr_data_get_proj4(Ivx_attr_data *data, Ivx_string_adp *text);
[[nodiscard]] VX_API bool vx_attr_data_get_extent(Ivx_attr_data *data, Tvx_box_d2 *box);
/// The extent as far as it is known at once; false when all shapes would have to be read for it.
[[nodiscard]] VX_API bool vx_attr_data_get_known_extent(Ivx_attr_data *data, Tvx_box_d2 *box);

/// Opens the table. `read_only` must be 1: writing has no form here yet. `flags` is 0. Null when the data
/// object is null, its data set cannot be opened, or has no vector table.
[[nodiscard]] VX_API Ivx_attr_files *vx_attr_files_open(Ivx_attr_data *data, int read_only, int flags);
/// Null is accepted.
VX_API void vx_attr_files_close(Ivx_attr_files *files);

/// What the table was opened from; it stays as long as the table is open. Null for null.
[[nodiscard]] VX_API Ivx_attr_data *vx_attr_files_get_data(Ivx_attr_files const *files);

/// Number of fields and of records; 0 for null.
[[nodiscard]] VX_API unsigned vx_attr_files_get_np(Ivx_attr_files const *files);
[[nodiscard]] VX_API unsigned vx_attr_files_get_no(Ivx_attr_files const *files);
/// A `Tvx_attr_field_type`; `c_attr_unknown` past the end.
[[nodiscard]] VX_API int vx_attr_files_get_field_type(Ivx_attr_files const *files, unsigned field);
/// Name in the system code page, or wide; empty past the end. Valid while the table is open.
[[nodiscard]] VX_API char const *vx_attr_files_get_field_name(Ivx_attr_files const *files, unsigned field);
[[nodiscard]] VX_API wchar_t const *vx_attr_files_get_field_name_w(Ivx_attr_files const *files,
                                                                   unsigned field);
/// Index of the field of this name: the exact name first, else one that differs only in case; -1 when there
/// is none.
[[nodiscard]] VX_API int vx_attr_files_get_field_index_w(Ivx_attr_files const *files, wchar_t const *name);

/// Reads the column of a field for about so many milliseconds. False when there is nothing left to read: the
/// cells of the field are there at once then. What was read stays, also for other tables of the same data.
VX_API bool vx_attr_files_read_on(Ivx_attr_files *files, unsigned field, int milliseconds);
/// How much of the column of a field has been read, from 0 to 1.
[[nodiscard]] VX_API double vx_attr_files_get_read_part(Ivx_attr_files const *files, unsigned field);

/// A cell as text. `*ok` (may be null) tells whether the cell has a value; without one the text is empty. The
/// first cell of a field reads the whole column. The pointer is valid until the next call of the same
/// function on this table.
[[nodiscard]] VX_API char const *vx_attr_files_get_str(Ivx_attr_files *files, unsigned field, unsigned record,
                                                       bool *ok);
[[nodiscard]] VX_API wchar_t const *vx_attr_files_get_wstr(Ivx_attr_files *files, unsigned field,
                                                           unsigned record, bool *ok);
/// The same in UTF-8, whatever the system code page; the cell of a text field is not copied.
[[nodiscard]] VX_API std::string_view vx_attr_files_get_utf8(Ivx_attr_files *files, unsigned field,
                                                             unsigned record, bool *ok);
/// As `vx_attr_files_get_wstr`, for a window onto a long table: reads the records next to this one, of all
/// fields, and keeps the last of what it read. A column that has been read answers itself, and a source that
/// takes long to find a record is read by columns after all.
[[nodiscard]] VX_API wchar_t const *vx_attr_files_peek_wstr(Ivx_attr_files *files, unsigned field,
                                                            unsigned record, bool *ok);
/// Number of a text cell among the different texts of its field, from 0: cells of one number have one text.
/// -1 where the cell has no value, and for all cells of a field that is not kept so.
[[nodiscard]] VX_API int vx_attr_files_get_text_number(Ivx_attr_files *files, unsigned field,
                                                       unsigned record);
/// A cell as number; a text cell counts as the number that its whole text spells, with "." as decimal
/// separator, else as no value.
[[nodiscard]] VX_API double vx_attr_files_get_dbl(Ivx_attr_files *files, unsigned field, unsigned record,
                                                  bool *ok);
/// As above; the fraction is left out, as data sets do when they read a whole number, and what lies outside
/// the range of the type is cut to its end.
[[nodiscard]] VX_API int vx_attr_files_get_int(Ivx_attr_files *files, unsigned field, unsigned record,
                                               bool *ok);

/// How a text field is kept, by its name: its texts are as they should be read, or they were kept in the
/// Cyrillic code page 1251 and read as Latin-1, since the file does not tell its code page. The first records
/// are looked at for that. Both false for other fields and none.
[[nodiscard]] VX_API bool vx_attr_data_is_field_unicode(Ivx_attr_data *data, char const *field_name);
[[nodiscard]] VX_API bool vx_attr_data_is_field_morvel(Ivx_attr_data *data, char const *field_name);
