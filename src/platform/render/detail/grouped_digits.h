#pragma once

#include <string>

namespace vx::render {
/// A whole number, not below 0, with thin spaces between thousands.
[[nodiscard]] inline std::wstring grouped_digits(long long number)
{
    constexpr wchar_t c_thin_space = 0x2009;
    std::wstring digits = std::to_wstring(number);
    for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > 0; at -= 3)
        digits.insert(static_cast<std::size_t>(at), 1, c_thin_space);
    return digits;
}
} // namespace vx::render
