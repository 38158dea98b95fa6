#include "data/filesystem/strutil.h"

#include <charconv>
#include <limits>

namespace vx::strutil {
namespace {
bool is_blank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Whether a number that lies out of the range of `double` is too large, going by the power of ten of its
/// first digit that is not 0.
bool is_huge(std::string_view number)
{
    long long power = 0;
    bool point = false;
    bool nonzero = false;
    std::size_t at = 0;
    for (; at < number.size() && number[at] != 'e' && number[at] != 'E'; ++at) {
        if (number[at] == '.') {
            point = true;
        } else if (number[at] != '-') {
            if (nonzero && !point)
                ++power;
            else if (!nonzero && point)
                --power;
            nonzero = nonzero || number[at] != '0';
        }
    }
    if (!nonzero || at == number.size())
        return nonzero && power > 0;
    bool const negative = number[at + 1] == '-';
    auto const first = at + (negative || number[at + 1] == '+' ? 2 : 1);
    long long exponent = 0;
    if (std::from_chars(number.data() + first, number.data() + number.size(), exponent).ec != std::errc())
        exponent = std::numeric_limits<int>::max();
    return power + (negative ? -exponent : exponent) > 0;
}
} // namespace

double to_double(char const *text, char **end)
{
    char const *at = text;
    while (is_blank(*at))
        ++at;
    char const *digits = *at == '+' && at[1] != '-' ? at + 1 : at;
    char const *const last = digits + std::char_traits<char>::length(digits);
    double value = 0;
    auto const [stop, error] = std::from_chars(digits, last, value);
    if (error == std::errc::invalid_argument) {
        if (end)
            *end = const_cast<char *>(text);
        return 0;
    }
    if (end)
        *end = const_cast<char *>(stop);
    if (error != std::errc::result_out_of_range)
        return value;
    errno = ERANGE;
    if (!is_huge({digits, static_cast<std::size_t>(stop - digits)}))
        return 0;
    return *digits == '-' ? -std::numeric_limits<double>::infinity()
                          : std::numeric_limits<double>::infinity();
}

double to_double(wchar_t const *text, wchar_t **end)
{
    // Numbers are ASCII, so a narrow copy up to the first other character has the same positions.
    std::string narrow;
    for (wchar_t const *at = text; *at > 0 && *at < 128; ++at)
        narrow += static_cast<char>(*at);
    char *stop = nullptr;
    double const value = to_double(narrow.c_str(), &stop);
    if (end)
        *end = const_cast<wchar_t *>(text) + (stop - narrow.c_str());
    return value;
}
} // namespace vx::strutil
