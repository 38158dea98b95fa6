#include "platform/styles/vx_round_digits.h"

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

std::wstring format_number(int digits, double value)
{
    std::array<char, 400> text;
    std::to_chars_result end{};
    if (digits == c_no_rounding) {
        end = std::to_chars(text.data(), text.data() + text.size(), value == 0 ? 0.0 : value);
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
