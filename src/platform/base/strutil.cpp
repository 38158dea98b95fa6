#include "platform/base/strutil.h"

#include <cmath>
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
} // namespace vx::strutil
