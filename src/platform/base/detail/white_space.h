#pragma once

#include <string_view>

/// White space as people type it round values and in filters: the blanks and line ends of ASCII, and the
/// no-break space.
namespace vx::text {
[[nodiscard]] constexpr bool is_space(wchar_t c)
{
    return c == L' ' || (c >= L'\t' && c <= L'\r') || c == 0xA0;
}

/// The text without white space at its ends.
[[nodiscard]] constexpr std::wstring_view trimmed(std::wstring_view text)
{
    while (!text.empty() && is_space(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_space(text.back()))
        text.remove_suffix(1);
    return text;
}

/// The same for UTF-8.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view utf8)
{
    constexpr std::string_view no_break = "\xC2\xA0";
    auto const plain_space = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    for (;;) {
        if (utf8.starts_with(no_break))
            utf8.remove_prefix(no_break.size());
        else if (!utf8.empty() && plain_space(utf8.front()))
            utf8.remove_prefix(1);
        else
            break;
    }
    for (;;) {
        if (utf8.ends_with(no_break))
            utf8.remove_suffix(no_break.size());
        else if (!utf8.empty() && plain_space(utf8.back()))
            utf8.remove_suffix(1);
        else
            return utf8;
    }
}
} // namespace vx::text
