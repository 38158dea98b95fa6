#include "support/foreign_words.h"

#include <algorithm>
#include <array>

namespace vx_test {
namespace {
constexpr std::array<std::wstring_view, 7> c_names = {L"GDAL",   L"CSV", L"PNG", L"GeoPackage",
                                                      L"SQLite", L"OK",  L"XML"};

bool is_latin(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

/// Without what stands in quotation marks of the language.
std::wstring unquoted(std::wstring_view text)
{
    std::wstring out;
    int depth = 0;
    for (wchar_t const c : text) {
        depth += c == L'\u00ab' || c == L'\u201c';
        if (depth == 0)
            out += c;
        depth -= c == L'\u00bb' || c == L'\u201d';
    }
    return out;
}
} // namespace

std::wstring latin_words(std::wstring_view text)
{
    std::wstring found, word;
    for (wchar_t const c : unquoted(text) + L' ') {
        if (is_latin(c)) {
            word += c;
            continue;
        }
        if (!word.empty() && std::find(c_names.begin(), c_names.end(), word) == c_names.end())
            found += (found.empty() ? L"" : L" ") + word;
        word.clear();
    }
    return found;
}
} // namespace vx_test
