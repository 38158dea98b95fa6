#pragma once

#include "platform/base/export.h"

#include <cstddef>
#include <cstdint>
#include <memory>

/// dBase tables, read only and record by record: opening reads the header alone, and which records are
/// deleted, which is remembered while the file stays as it is. So a table may be opened for every repaint.
/// Main thread only.
///
/// Fields and records count from 0. Deleted records are passed over: a record number counts those that are
/// left, and moves when others are deleted. Texts are given in the system code page, or wide; the pointers
/// stay valid until the next call for the same table.
struct Ivx_dbf;

/// What a field holds. Types 2, 6 and 7 are numeric.
enum Tvx_dbf_type : int
{
    c_dbf_unknown = 0,
    c_dbf_character = 1,
    c_dbf_number = 2, ///< decimal digits, a point and a sign, as text
    c_dbf_logical = 3,
    c_dbf_date = 4, ///< year, month and day in eight digits
    c_dbf_memo = 5,
    c_dbf_integer = 6,   ///< four bytes
    c_dbf_double = 7,    ///< eight bytes, floating point or currency
    c_dbf_date_time = 8, ///< given as 2001-12-31 23:59:59
    c_dbf_binary = 9,    ///< pictures and other objects, kept in a file beside the table
};
[[nodiscard]] constexpr bool vx_dbf_is_numeric(int type)
{
    return type == c_dbf_number || type == c_dbf_integer || type == c_dbf_double;
}

/// Null when the file does not exist, is no regular file or no dBase table of a known version, or when its
/// header is damaged. `name` is in the system code page and taken as it stands. Tables are opened for reading
/// whatever `read_only` says.
///
/// The texts in the file are in code page 866 with `dos_flag`. Otherwise the mark of the file decides: the
/// .cpg file beside it, or the mark in its header. Without one the page is guessed (`vx_guess_code_page`),
/// and where that gives UTF-8, a text that is none counts as Windows 1252.
///
/// A file that ends early has the records that it holds wholly.
[[nodiscard]] VX_API Ivx_dbf *vx_dbf_open(char const *name, int read_only, int dos_flag);
[[nodiscard]] VX_API Ivx_dbf *vx_dbf_open_w(wchar_t const *name, int read_only, int dos_flag);
/// The code page that the mark of a table names, found as `vx_dbf_open` finds it, without a look at its
/// records. 0 when there is no file, or its mark says nothing, or nothing known.
[[nodiscard]] VX_API unsigned vx_dbf_find_code_page_w(wchar_t const *name);
/// Null is accepted, here and below: it has no fields and no records.
VX_API void vx_dbf_close(Ivx_dbf *table);

[[nodiscard]] VX_API int vx_dbf_get_nf(Ivx_dbf const *table);
/// Records that are not deleted.
[[nodiscard]] VX_API int vx_dbf_get_nr(Ivx_dbf const *table);
/// "" outside the table; the name lives as long as the handle.
[[nodiscard]] VX_API char const *vx_dbf_get_field_name(Ivx_dbf const *table, int field);
[[nodiscard]] VX_API wchar_t const *vx_dbf_get_field_wname(Ivx_dbf const *table, int field);
/// A `Tvx_dbf_type`; unknown outside the table.
[[nodiscard]] VX_API int vx_dbf_get_field_type(Ivx_dbf const *table, int field);
/// Characters that the field is wide in the file, and digits behind the point.
[[nodiscard]] VX_API int vx_dbf_get_field_width(Ivx_dbf const *table, int field);
[[nodiscard]] VX_API int vx_dbf_get_field_decimals(Ivx_dbf const *table, int field);

/// The cell as text without the blanks that fill the field; NUL ends a text. `ok`, which may be null, becomes
/// true when the cell has a value: false for a blank cell, an unknown logical value, a number too wide for
/// its field (asterisks), a memo, and for a cell outside the table or one that cannot be read. The text is
/// then "".
[[nodiscard]] VX_API char const *vx_dbf_get_str(Ivx_dbf *table, int field, int record, bool *ok);
[[nodiscard]] VX_API wchar_t const *vx_dbf_get_wstr(Ivx_dbf *table, int field, int record, bool *ok);
/// The cell as a number, cut towards zero; 0 with `ok` false for what is no number or does not fit.
/// Character cells that hold a number count; logical ones are 1 and 0.
[[nodiscard]] VX_API int vx_dbf_get_int(Ivx_dbf *table, int field, int record, bool *ok);
[[nodiscard]] VX_API double vx_dbf_get_dbl(Ivx_dbf *table, int field, int record, bool *ok);

/// Where the cells of one field lie in the file, for readers of whole columns.
struct Tvx_dbf_cells
{
    int fields = 0;  ///< of the table
    int records = 0; ///< that the file holds wholly, deleted ones too: those begin with "*"
    std::uint64_t first_record = 0;
    int record_length = 0;
    int used_length = 0; ///< of a record, up to the end of the last field
    int offset = 0;      ///< of the cell in its record
    int width = 0;
    char letter = 0;   ///< the file's for the field's type: C, N, F, ...
    bool wide = false; ///< character fields have widths of two bytes, which not all programs know
};
/// Reads it out of the first bytes of a table of `file_size` bytes: the first 65,535 or all. False, with
/// `cells` as it was, for a header that is no good, and for a field outside the table.
[[nodiscard]] VX_API bool vx_dbf_find_cells(void const *head, std::size_t head_size, std::uint64_t file_size,
                                            int field, Tvx_dbf_cells *cells);

namespace vx {
struct dbf_closer
{
    void operator()(Ivx_dbf *table) const { vx_dbf_close(table); }
};
using dbf_handle = std::unique_ptr<Ivx_dbf, dbf_closer>;
} // namespace vx
