#pragma once

#include <string>
#include <string_view>

/// Between the wide form, one code point a unit, and UTF-16 as ICU has it. What is no Unicode scalar value
/// becomes U+FFFD; surrogate pairs in wide text are joined.
namespace vx::text {
[[nodiscard]] std::u16string wide_to_utf16(std::wstring_view text);
[[nodiscard]] std::wstring utf16_to_wide(std::u16string_view text);
} // namespace vx::text
