#pragma once

#include "platform/base/export.h"

#include <string>
#include <string_view>

/// Text conversion between the wide form (`wchar_t`, one code point a unit) and 8-bit code pages.
///
/// UTF-8 is built in. Other code pages are answered by a converter that the module `platform/winapi` installs
/// when it is loaded; without one they are treated as UTF-8.
namespace vx::text {
inline constexpr unsigned c_cp_system = 0; ///< the system code page, see `system_code_page`
inline constexpr unsigned c_cp_utf8 = 65001;

/// Converters for code pages other than UTF-8. Bytes or characters that the page does not have become '?'.
struct codec
{
    std::wstring (*to_wide)(std::string_view text, unsigned code_page);
    std::string (*to_bytes)(std::wstring_view text, unsigned code_page);
};
VX_API void set_codec(codec const &c);

/// What code page 0 stands for; UTF-8 unless the host chose another.
[[nodiscard]] VX_API unsigned system_code_page();
VX_API void set_system_code_page(unsigned code_page);

/// Never fails: an ill-formed UTF-8 sequence becomes U+FFFD, one for each maximal ill-formed part.
[[nodiscard]] VX_API std::wstring utf8_to_wide(std::string_view text);
/// Never fails: what is no Unicode scalar value becomes U+FFFD. UTF-16 surrogate pairs are joined.
[[nodiscard]] VX_API std::string wide_to_utf8(std::wstring_view text);
/// The same, but surrogates without a partner are kept, each in the three bytes that its number would have:
/// texts that differ stay different.
[[nodiscard]] VX_API std::string wide_to_whole_utf8(std::wstring_view text);
[[nodiscard]] VX_API std::wstring whole_utf8_to_wide(std::string_view text);

[[nodiscard]] VX_API std::wstring to_wide(std::string_view text, unsigned code_page = c_cp_system);
[[nodiscard]] VX_API std::string to_bytes(std::wstring_view text, unsigned code_page = c_cp_system);
} // namespace vx::text
