#pragma once

#include "platform/base/export.h"

#include <string>
#include <string_view>

/// Order of texts for people: negative, 0 or positive. Case does not count, accents do, digits are compared
/// as text; the order is that of the Unicode collation root, whatever the locale of the process. Null counts
/// as less than any text, and equal to null. 8-bit text is in the system code page. Texts that differ only in
/// code points which carry no weight are equal. Callable from any thread.
[[nodiscard]] VX_API int lstrcmpiW(wchar_t const *a, wchar_t const *b);
[[nodiscard]] VX_API int lstrcmpiA(char const *a, char const *b);
[[nodiscard]] VX_API int vx_compare_text(std::wstring_view a, std::wstring_view b);
/// Bytes that compare as `vx_compare_text` compares their texts, for who compares a text many times.
[[nodiscard]] VX_API std::string vx_text_sort_key(std::wstring_view text);
