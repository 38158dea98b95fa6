#pragma once

#include <algorithm>
#include <string>
#include <string_view>

/// Case of the ASCII letters, for the words of formats: all other bytes stay, and no locale counts.
namespace vx::text {
[[nodiscard]] constexpr char ascii_lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
[[nodiscard]] constexpr char ascii_upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
[[nodiscard]] inline std::string ascii_lower(std::string text)
{
    for (char &c : text)
        c = ascii_lower(c);
    return text;
}
[[nodiscard]] inline std::string ascii_upper(std::string text)
{
    for (char &c : text)
        c = ascii_upper(c);
    return text;
}
/// Equal but for case.
[[nodiscard]] inline bool ascii_same(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, [](char x, char y) { return ascii_lower(x) == ascii_lower(y); });
}
} // namespace vx::text
