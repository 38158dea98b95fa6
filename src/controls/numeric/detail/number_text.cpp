#include "controls/numeric/detail/number_text.h"

#include "data/filesystem/strutil.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace {
constexpr int c_double_digits = 15;
constexpr int c_most_digits = 18;
constexpr int c_most_exponent_digits = 4;
/// Numbers from 10 to this power on are written without an exponent.
constexpr int c_least_fixed_exponent = -5;
/// Sign, digits before the point and the point of the largest double.
constexpr std::size_t c_longest_whole = std::numeric_limits<double>::max_exponent10 + 3;

bool is_blank(wchar_t c)
{
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

bool is_digit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

std::size_t skip_blanks(std::wstring_view text, std::size_t at)
{
    while (at < text.size() && is_blank(text[at]))
        ++at;
    return at;
}

std::wstring widened(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// A number found in a text.
struct found_float
{
    std::size_t end = 0; ///< behind its last character
    double value = 0.0;
    bool too_large = false; ///< `value` is then the largest double of its sign
};

/// Takes the number that begins at `at`, a sign first. False if none does.
bool find_float(std::wstring_view text, std::size_t at, found_float &found)
{
    bool const negative = at < text.size() && text[at] == L'-';
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+'))
        ++at;
    std::string number;
    bool digits = false;
    bool point = false;
    for (; at < text.size() && (is_digit(text[at]) || (text[at] == L'.' && !point)); ++at) {
        number += static_cast<char>(text[at]);
        (text[at] == L'.' ? point : digits) = true;
    }
    if (!digits)
        return false;
    std::size_t exponent_end = at;
    if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
        std::size_t e = at + 1;
        if (e < text.size() && (text[e] == L'-' || text[e] == L'+'))
            ++e;
        std::size_t const first = e;
        while (e < text.size() && is_digit(text[e]))
            ++e;
        if (e > first)
            exponent_end = e;
    }
    for (; at < exponent_end; ++at)
        number += static_cast<char>(text[at]);
    found.end = exponent_end;
    double value = vx::strutil::to_double(number.c_str(), nullptr);
    found.too_large = std::isinf(value);
    if (found.too_large)
        value = std::numeric_limits<double>::max();
    found.value = negative ? -value : value;
    return true;
}
} // namespace

namespace vx {
bool str_to_int(std::wstring_view text, int &value)
{
    std::size_t at = 0;
    while (at < text.size() && text[at] == L' ')
        ++at;
    bool const negative = at < text.size() && text[at] == L'-';
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+'))
        ++at;
    std::string number;
    bool hexadecimal = false;
    if (at < text.size() && text[at] == L'$') {
        hexadecimal = true;
        ++at;
    } else if (at + 1 < text.size() && text[at] == L'0' && (text[at + 1] == L'x' || text[at + 1] == L'X')) {
        hexadecimal = true;
        at += 2;
    }
    for (; at < text.size(); ++at) {
        if (text[at] > L'z')
            return false;
        number += static_cast<char>(text[at]);
    }
    if (number.empty() || number.front() == '-')
        return false;
    char const *const begin = number.data();
    char const *const end = begin + number.size();
    if (hexadecimal) {
        std::uint32_t bits = 0;
        auto const [stop, error] = std::from_chars(begin, end, bits, 16);
        if (error != std::errc() || stop != end)
            return false;
        value = static_cast<int>(negative ? 0U - bits : bits);
        return true;
    }
    std::int64_t whole = 0;
    auto const [stop, error] = std::from_chars(begin, end, whole);
    if (error != std::errc() || stop != end)
        return false;
    whole = negative ? -whole : whole;
    if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max())
        return false;
    value = static_cast<int>(whole);
    return true;
}

bool str_to_float(std::wstring_view text, double &value)
{
    found_float found;
    if (!find_float(text, skip_blanks(text, 0), found) || found.too_large ||
        skip_blanks(text, found.end) != text.size())
        return false;
    value = found.value;
    return true;
}

double read_float(std::wstring_view text)
{
    found_float found;
    return find_float(text, skip_blanks(text, 0), found) ? found.value : 0.0;
}

std::wstring float_to_str(double value)
{
    return float_to_str(value, c_double_digits, 0);
}

std::wstring float_to_str(double value, int precision, int digits)
{
    if (std::isnan(value))
        return L"NAN";
    if (std::isinf(value))
        return value < 0 ? L"-INF" : L"INF";
    if (value == 0.0)
        return L"0";
    precision = std::clamp(precision, 1, c_most_digits);
    char text[48];
    auto const written = std::to_chars(std::begin(text), std::end(text), std::abs(value),
                                       std::chars_format::scientific, precision - 1);
    std::string_view const whole(text, static_cast<std::size_t>(written.ptr - text));
    auto const e = whole.find('e');
    std::string mantissa(whole.substr(0, e));
    std::erase(mantissa, '.');
    mantissa.erase(mantissa.find_last_not_of('0') + 1);
    int exponent = 0;
    std::size_t const first = e + (whole[e + 1] == '+' ? 2 : 1);
    std::from_chars(whole.data() + first, whole.data() + whole.size(), exponent);

    std::string result = value < 0 ? "-" : "";
    auto const count = static_cast<int>(mantissa.size());
    if (exponent < precision && exponent >= c_least_fixed_exponent) {
        if (exponent < 0) {
            result += "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + mantissa;
        } else if (count <= exponent + 1) {
            result += mantissa + std::string(static_cast<std::size_t>(exponent + 1 - count), '0');
        } else {
            mantissa.insert(static_cast<std::size_t>(exponent + 1), 1, '.');
            result += mantissa;
        }
        return widened(result);
    }
    if (count > 1)
        mantissa.insert(1, 1, '.');
    std::string const power = std::to_string(std::abs(exponent));
    auto const padding = (digits <= c_most_exponent_digits ? digits : 0) - static_cast<int>(power.size());
    result += mantissa + (exponent < 0 ? "E-" : "E");
    result += std::string(static_cast<std::size_t>(std::max(padding, 0)), '0') + power;
    return widened(result);
}

std::wstring float_to_fixed(double value, int decimals)
{
    if (std::isnan(value))
        return L"nan";
    if (std::isinf(value))
        return value < 0 ? L"-inf" : L"inf";
    decimals = std::max(decimals, 0);
    std::string text(c_longest_whole + static_cast<std::size_t>(decimals), '\0');
    auto const written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    text.resize(static_cast<std::size_t>(written.ptr - text.data()));
    return widened(text);
}
} // namespace vx
