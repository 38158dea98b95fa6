#pragma once

#include <string_view>

/// White space round values and in filters: space, tab, newline, return, vertical tab and form feed. All
/// others count, the no-break space too.
namespace vx::text {
template <class Char>
[[nodiscard]] constexpr bool is_space(Char c)
{
    return c == Char(' ') || (c >= Char('\t') && c <= Char('\r'));
}

/// The text without white space at its ends.
template <class Char>
[[nodiscard]] constexpr std::basic_string_view<Char> trimmed_ends(std::basic_string_view<Char> text)
{
    while (!text.empty() && is_space(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_space(text.back()))
        text.remove_suffix(1);
    return text;
}
[[nodiscard]] constexpr std::wstring_view trimmed(std::wstring_view text)
{
    return trimmed_ends(text);
}
/// The same for UTF-8.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view utf8)
{
    return trimmed_ends(utf8);
}
} // namespace vx::text
