#pragma once

#include "platform/base/export.h"

#include <string>
#include <string_view>

inline constexpr unsigned CP_ACP = 0;
inline constexpr unsigned CP_UTF8 = 65001;

/// Conversion between bytes in a code page and wide text, with the calling rules of the historical functions.
///
/// Code pages: 0 (the system code page), 65001 (UTF-8), 866, 1250 to 1258, 20127 (ASCII), 1200 and 1201
/// (UTF-16, low and high byte first), 12000 and 12001 (UTF-32 likewise), and every other page that ICU knows
/// by its number. Bytes without a character become U+FFFD, characters without bytes '?'.
///
/// `length` is the number of units of `text`, or -1 for zero-terminated text, whose terminator is then
/// converted and counted too. With a capacity of 0 nothing is written, and the result is the capacity that
/// the text needs. Otherwise the result is the number of units written; 0 when the capacity is too small
/// (nothing past it is written), a pointer is null, the length is 0, or the code page is unknown.
VX_API int MultiByteToWideChar(unsigned code_page, unsigned flags, char const *text, int length,
                               wchar_t *target, int capacity);
VX_API int WideCharToMultiByte(unsigned code_page, unsigned flags, wchar_t const *text, int length,
                               char *target, int capacity, char const *default_char, bool *used_default);

/// Sets what code page 0 stands for. False, with nothing changed, for a page that is unknown or not of bytes
/// (1200 to 12001).
VX_API bool vx_set_system_code_page(unsigned code_page);
[[nodiscard]] VX_API unsigned vx_get_system_code_page();
[[nodiscard]] VX_API bool vx_is_code_page(unsigned code_page);

/// The whole text at once. An unknown page counts as UTF-8.
[[nodiscard]] VX_API std::wstring vx_bytes_to_wide(std::string_view text, unsigned code_page);
[[nodiscard]] VX_API std::string vx_wide_to_bytes(std::wstring_view text, unsigned code_page);

/// The code page of bytes that nothing is said about: UTF-8 where most of what is not ASCII reads as that,
/// the system's where that is another one, else a Cyrillic page where letters that are not ASCII stand side
/// by side, and the Western one where they stand alone.
[[nodiscard]] VX_API unsigned vx_guess_code_page(std::string_view text);
