#pragma once

#include "platform/base/export.h"

#include <string>
#include <string_view>
#include <vector>

class vx_fnt_type;
class TFont;

namespace vx::dialogs {
/// Families that are installed, in the order for people.
[[nodiscard]] std::vector<std::wstring> font_families();

/// Characters that the family itself has, ascending; without those that show nothing, but for the space.
[[nodiscard]] std::vector<char32_t> font_characters(std::wstring const &family);

/// Those that the text asks for: by code point ("U+2302", "0x2302", "2302"), as the character itself, or by
/// words that the Unicode name holds, in any order and case; a code point or character comes first. All of
/// them for a blank text.
[[nodiscard]] std::vector<char32_t> find_characters(std::vector<char32_t> const &characters,
                                                    std::wstring_view text);

/// "U+2302 HOUSE".
[[nodiscard]] std::wstring describe(char32_t character);

/// Family, character set and style; the size stays.
VX_API void assign_font(TFont *target, vx_fnt_type const &source);
} // namespace vx::dialogs
