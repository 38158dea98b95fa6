#pragma once

#include <array>
#include <charconv>
#include <string_view>

namespace vx::text {
/// Digits of a floating point number that tables show, files of scales hold and filters compare.
inline constexpr int c_shown_digits = 15;
using number_buffer = std::array<char, 40>;

/// The number as the format "%.15lg" of the "C" locale has it. The text lies in `buffer`.
[[nodiscard]] inline std::string_view shown_number(double value, number_buffer &buffer)
{
    auto const *const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::general, c_shown_digits)
                                .ptr;
    return {buffer.data(), end};
}
} // namespace vx::text
