#include "platform/base/strutil.h"

#include "platform/base/owned.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <locale.h>
#include <string_view>

namespace vx::strutil {
namespace {
locale_t c_locale()
{
    static locale_t const locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// A number so small that digits are lost is one all the same.
double kept_if_small(double value)
{
    if (errno == ERANGE && value != 0 && std::isfinite(value))
        errno = 0;
    return value;
}

/// The system's printf takes the argument of "%s" for bytes, in wide formats too.
std::wstring with_wide_texts(wchar_t const *format)
{
    std::wstring_view const text = format;
    std::wstring result;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at + 1;
        if (text[at] == L'%')
            end = std::min(text.find_first_not_of(L"-+ #0123456789.*", end), text.size() - 1) + 1;
        result += text.substr(at, end - at);
        if (text[at] == L'%' && result.back() == L's')
            result.insert(result.size() - 1, 1, L'l');
        at = end;
    }
    return result;
}

/// Behind the 0 of a hexadecimal number, of which no other file or table of ours is read as one; null for
/// other texts.
template <class Char>
Char const *end_of_hexadecimal(Char const *text)
{
    while (*text == Char(' ') || (*text >= Char('\t') && *text <= Char('\r')))
        ++text;
    if (*text == Char('-') || *text == Char('+'))
        ++text;
    return text[0] == Char('0') && (text[1] == Char('x') || text[1] == Char('X')) ? text + 1 : nullptr;
}

template <class Char, class Function>
double read(Char const *text, Char **end, Function function)
{
    Char const *const stop = end_of_hexadecimal(text);
    if (!stop)
        return kept_if_small(function(text, end, c_locale()));
    if (end)
        *end = const_cast<Char *>(stop);
    return 0;
}
} // namespace

double to_double(char const *text, char **end)
{
    return read(text, end, &strtod_l);
}

double to_double(wchar_t const *text, wchar_t **end)
{
    return read(text, end, &wcstod_l);
}

std::wstring format(wchar_t const *format, ...)
{
    std::wstring const wide = with_wide_texts(format);
    // A stream in memory measures and keeps the text in one pass.
    wchar_t *buffer = nullptr;
    std::size_t length = 0;
    std::FILE *const stream = open_wmemstream(&buffer, &length);
    if (!stream)
        return {};
    va_list arguments;
    va_start(arguments, format);
    bool const good = std::vfwprintf(stream, wide.c_str(), arguments) > 0;
    va_end(arguments);
    std::fclose(stream);
    vx::owned<wchar_t, &std::free> const owned(buffer);
    return good && buffer ? std::wstring(buffer, length) : std::wstring();
}
} // namespace vx::strutil
