#include "platform/styles/vx_round_digits.h"

#include "platform/base/shown_number.h"
#include "platform/styles/detail/round_digits.h"

#include <array>
#include <charconv>
#include <cmath>

namespace vx::styles {
double round_to(int digits, double value)
{
    // Powers of ten up to 22 are exact; dividing by one keeps what multiplying by its inverse would lose.
    double const power = std::pow(10.0, std::abs(digits));
    double const size = std::abs(value);
    double const units = std::floor((digits < 0 ? size * power : size / power) + 0.5);
    double const rounded = digits < 0 ? units / power : units * power;
    return std::isfinite(rounded) ? std::copysign(rounded, value) : value;
}

/// The number beside the value that is written with fewer digits; the value itself where there is none.
static double round_neighbour(double value)
{
    if (std::nextafter(0.0, value) == value)
        return 0;
    text::number_buffer buffer;
    auto const text = text::shown_number(value, buffer);
    double round = value;
    std::from_chars(text.data(), text.data() + text.size(), round);
    return std::nextafter(round, value) == value ? round : value;
}

std::wstring format_number(int digits, double value)
{
    std::array<char, 400> text;
    std::to_chars_result end{};
    if (digits == c_no_rounding) {
        double const shown = round_neighbour(value);
        end = std::to_chars(text.data(), text.data() + text.size(), shown == 0 ? 0.0 : shown);
    } else {
        if (digits < -10 || digits > 10)
            digits = -2;
        double const rounded = round_to(digits, value);
        end = std::to_chars(text.data(), text.data() + text.size(), rounded == 0 ? 0.0 : rounded,
                            std::chars_format::fixed, digits < 0 ? -digits : 0);
    }
    return std::wstring(text.data(), end.ptr);
}
} // namespace vx::styles

void vx_round_digits_format_number(int digits, double value, Ivx_string_adp *adp)
{
    vx_string_adp_feed(adp, vx::styles::format_number(digits, value).c_str());
}

double vx_round_digits_round(int digits, double value)
{
    return vx::styles::round_to(digits, value);
}
