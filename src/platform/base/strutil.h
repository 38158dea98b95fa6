#pragma once

#include "platform/base/export.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// Templates for narrow and wide text.
namespace vx::strutil {
/// What `split_any` does with empty pieces.
enum split_mode
{
    split_keep_empty = 0,
    split_skip_empty = 1,
};

template <class Char>
void trim_inplace(std::basic_string<Char> &text, std::type_identity_t<std::basic_string_view<Char>> set)
{
    auto const first = text.find_first_not_of(set);
    if (first == text.npos) {
        text.clear();
        return;
    }
    text.erase(text.find_last_not_of(set) + 1);
    text.erase(0, first);
}

/// The text without leading and trailing characters of the set.
template <class Char>
[[nodiscard]] std::basic_string<Char> trim(std::basic_string<Char> text,
                                           std::type_identity_t<std::basic_string_view<Char>> set)
{
    trim_inplace(text, set);
    return text;
}

/// Splits at every character of the set. A text without any gives itself as the only piece.
template <class Char>
[[nodiscard]] std::vector<std::basic_string<Char>>
split_any(std::basic_string<Char> const &text, std::type_identity_t<std::basic_string_view<Char>> separators,
          int mode = split_keep_empty)
{
    std::vector<std::basic_string<Char>> pieces;
    std::size_t at = 0;
    while (true) {
        auto const end = text.find_first_of(separators, at);
        auto piece = text.substr(at, end == text.npos ? text.npos : end - at);
        if (mode != split_skip_empty || !piece.empty())
            pieces.push_back(std::move(piece));
        if (end == text.npos)
            return pieces;
        at = end + 1;
    }
}

/// Runs a conversion of the form of `strtod` on the text, in which the first "," stands for ".".
///
/// `ok`, if given, becomes true when the function took at least one character, stopped at the end of the text
/// and did not report a value out of range through `errno`. The result is the function's own in all cases.
template <class Char, class Function>
auto to_numeric_safe(Function function, Char const *text, bool *ok)
{
    std::basic_string<Char> copy;
    if (auto const comma = std::basic_string_view<Char>(text).find(Char(',')); comma != copy.npos) {
        copy = text;
        copy[comma] = Char('.');
        text = copy.c_str();
    }
    Char *end = nullptr;
    errno = 0;
    auto const result = function(text, &end);
    if (ok)
        *ok = end != text && end && *end == Char(0) && errno != ERANGE;
    return result;
}

/// `strtod` and `wcstod` in the "C" locale, whatever the locale of the process: leading blanks are skipped,
/// `*end` is set behind the last character taken, a value out of range sets `errno` to `ERANGE` and gives
/// plus or minus infinity, or 0 when it is too small. Of a hexadecimal number only the first 0 is taken.
VX_API double to_double(char const *text, char **end);
VX_API double to_double(wchar_t const *text, wchar_t **end);

/// What the wide `printf` makes of the format and the arguments; empty when it makes nothing. "%s" stands for
/// a wide text, as "%ls" does: so a template serves the 8-bit `printf` with texts of its kind as well.
[[nodiscard]] VX_API std::wstring format(wchar_t const *format, ...);
} // namespace vx::strutil
