#pragma once

#include "platform/base/color.h"
#include "platform/base/color_format.h"
#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/types.h"

struct Ivx_entity;
class vx_fnt_type;

/// The common dialogs. All are modal and run on the main thread.
///
/// `parent` is the window that a dialog belongs to; null stands for the application's window. (`x`, `y`) is
/// the point of the screen where the dialog's upper left corner comes; where it does not fit it stands to the
/// left of the point, or above it. (0, 0) is the middle of the screen. The result is true when the user
/// accepted, and only then is the value behind the pointer changed; a null pointer gives false at once. A
/// host may put its own dialogs in their place, see `vx_dlg_table.h`.

/// `format` is a `Tvx_color_format`; any number other than 0 offers opacity.
[[nodiscard]] VX_API bool vx_color_dialog(HWND parent, int x, int y, Tvx_color *color, int format);
/// Family and style. The chosen font becomes the current one (`vx_fnt_type_set_current_font`). A character
/// set stays while its family does; a new family has the default one.
[[nodiscard]] VX_API bool vx_font_dialog(HWND parent, int x, int y, vx_fnt_type *font);
/// A character of a font, found by sight, by its Unicode name or by its code point ("U+2302", "2302",
/// "0x2302") or itself. The family of the font can be changed too. `symbol` is a code point; of a symbol font
/// it may be given as a byte, and then stands for U+F000 and up if the font has its characters there.
[[nodiscard]] VX_API bool vx_charmap_dialog(HWND parent, int x, int y, vx_fnt_type *font, int *symbol);

/// The short forms, for files of one kind. `suffix` is an extension without its point, L"dbf", or all that
/// the names end in, with the point, L".dbf" or L"_.sn"; null or "" offers all files. A null title is the
/// usual one; `file_name` is what the dialog starts with, null for none. They give the chosen name with its
/// path, empty when the user cancelled. The save dialog adds the suffix to a name that lacks it and asks
/// before an existing file is taken.
[[nodiscard]] VX_API UnicodeString vx_open_file_dialog(HWND parent, int x, int y, wchar_t const *suffix,
                                                       wchar_t const *title, wchar_t const *file_name);
[[nodiscard]] VX_API UnicodeString vx_save_file_dialog(HWND parent, int x, int y, wchar_t const *suffix,
                                                       wchar_t const *title, wchar_t const *file_name);

/// Edits a filter (`vx_calc_filter_create`): conditions on the fields of the vector data object `data`, with
/// the values that its table holds and the number of objects that match. Without data, and with data that
/// cannot be read, fields and values are typed. In the middle of the screen.
[[nodiscard]] VX_API bool vx_attr_filter_dialog(void *filter, Ivx_entity *data);

/// Edits a list of palettes (vx_palette.h): makes, renames, orders and deletes palettes and their colours.
/// `title` is minus the number of the window's caption; 0 is the usual one. In the middle of the screen.
[[nodiscard]] VX_API bool vx_clr_palettes_dialog(void *palettes, int title);

/// What a style manager has beside its styles: whether symbols, spots or hatches turn by the angle in a
/// numeric field, where an angle of 0 points and in which direction larger ones turn. The fields are those of
/// the vector data set behind the file name or connection string, or the properties of a property file; null,
/// "" and what cannot be read: the field is typed. In the middle of the screen. False at once for a manager
/// whose styles do not turn.
VX_API bool vx_style_advansed_setting_dialog(void *mngr, wchar_t const *file_name);
