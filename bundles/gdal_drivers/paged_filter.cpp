#include "paged_filter.h"

#include <climits>
#include <string_view>

namespace vx::gdal {
namespace {
bool is_blank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r';
}

std::wstring_view trimmed(std::wstring_view text)
{
    while (!text.empty() && is_blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool same_word(std::wstring_view text, std::wstring_view upper)
{
    if (text.size() != upper.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        wchar_t const c = text[i] >= L'a' && text[i] <= L'z' ? text[i] - (L'a' - L'A') : text[i];
        if (c != upper[i])
            return false;
    }
    return true;
}

std::wstring_view last_word(std::wstring_view text)
{
    std::size_t at = text.size();
    while (at > 0 && !is_blank(text[at - 1]))
        --at;
    return text.substr(at);
}

/// Takes `WORD number` off the end of the text. The number goes to the bound of its type when it is larger; a
/// negative one counts as 0.
bool take_tail(std::wstring_view &text, std::wstring_view word, long long &number)
{
    std::wstring_view const last = last_word(text);
    bool const is_negative = last.size() > 1 && last.front() == L'-';
    std::wstring_view const digits = last.substr(is_negative);
    if (digits.empty() || digits.find_first_not_of(L"0123456789") != std::wstring_view::npos)
        return false;
    std::wstring_view const rest = trimmed(text.substr(0, text.size() - last.size()));
    if (!same_word(last_word(rest), word))
        return false;
    number = 0;
    for (wchar_t c : is_negative ? std::wstring_view() : digits)
        number = number > (LLONG_MAX - 9) / 10 ? LLONG_MAX : number * 10 + (c - L'0');
    text = trimmed(rest.substr(0, rest.size() - word.size()));
    return true;
}
} // namespace

paged_filter::paged_filter(std::wstring const &text)
{
    std::wstring_view rest = trimmed(text);
    take_tail(rest, L"OFFSET", offset);
    take_tail(rest, L"LIMIT", limit);
    expression = rest;
}

bool selects_all_identifiers(std::wstring const &expression, std::wstring_view name)
{
    auto const bare = [](std::wstring_view text) {
        std::wstring result;
        for (wchar_t const c : text)
            if (!is_blank(c))
                result += c >= L'a' && c <= L'z' ? c - (L'a' - L'A') : c;
        return result;
    };
    return bare(expression) == bare(name) + L">=0";
}
} // namespace vx::gdal
