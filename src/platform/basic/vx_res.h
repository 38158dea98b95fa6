#pragma once

#include "platform/base/export.h"

#include <initializer_list>
#include <string>
#include <string_view>

/// Captions by number, in the language of `vx_options_get_language`.
///
/// `resources/captions/catalogue.list` gives each number its name, and says whose it is; the texts lie beside
/// it, in `<language>.txt`, one `number<TAB>text` line each. They are built into the library, so a caption is
/// found wherever the library stands. "\n" and "\t" in a text stand for the characters; a number that the
/// language lacks is taken from the English catalogue. An unknown number gives "#<number>" in a debug build
/// and the empty text in a release build.
///
/// The pointers are never null and stay valid until the process ends, also when the language changes.
[[nodiscard]] VX_API wchar_t const *vx_res_get_wstr(int number);
/// The same text in the system code page.
[[nodiscard]] VX_API char const *vx_res_get_str(int number);
/// True when some catalogue holds the number.
[[nodiscard]] VX_API bool vx_res_has(int number);
/// The caption with each "%1" replaced by the first argument, "%2" by the second. What an argument holds is
/// not looked through again; a place without an argument stays as it is.
[[nodiscard]] VX_API std::wstring vx_res_format_w(int number,
                                                  std::initializer_list<std::wstring_view> arguments);
[[nodiscard]] VX_API std::wstring vx_res_format_w(int number, std::wstring_view argument);

/// Help context of a help number. The help module keeps them equal; a number below 0 gives 0, no help.
[[nodiscard]] VX_API int vx_help_mngr_find_help_id(int number);
