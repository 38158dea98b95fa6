#include "platform/base/strutil.h"

#include "platform/base/owned.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <locale.h>

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
} // namespace

double to_double(char const *text, char **end)
{
    return kept_if_small(strtod_l(text, end, c_locale()));
}

double to_double(wchar_t const *text, wchar_t **end)
{
    return kept_if_small(wcstod_l(text, end, c_locale()));
}

std::wstring format(wchar_t const *format, ...)
{
    // A stream in memory measures and keeps the text in one pass.
    wchar_t *buffer = nullptr;
    std::size_t length = 0;
    std::FILE *const stream = open_wmemstream(&buffer, &length);
    if (!stream)
        return {};
    va_list arguments;
    va_start(arguments, format);
    bool const good = std::vfwprintf(stream, format, arguments) > 0;
    va_end(arguments);
    std::fclose(stream);
    vx::owned<wchar_t, &std::free> const owned(buffer);
    return good && buffer ? std::wstring(buffer, length) : std::wstring();
}
} // namespace vx::strutil
