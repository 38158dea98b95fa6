#include "platform/base/no_data.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace vx {
namespace {
constexpr double c_absolute = 0.000001;
constexpr double c_relative = 0.00001;
constexpr double c_largest = std::numeric_limits<double>::max();

bool is_close(double cell, double no_data)
{
    return std::fabs(cell - no_data) <=
           std::max(c_absolute, c_relative * std::max(std::fabs(cell), std::fabs(no_data)));
}

/// Finite numbers in their order as whole numbers, so that neighbours differ by one.
std::int64_t place_of(double number)
{
    auto const bits = std::bit_cast<std::int64_t>(std::fabs(number));
    return std::signbit(number) ? -bits : bits;
}

double number_at(std::int64_t place)
{
    double const number = std::bit_cast<double>(place < 0 ? -place : place);
    return place < 0 ? -number : number;
}

/// The last number from `no_data` towards `end` that is close to it. What is close is one run of numbers: the
/// distance grows by a whole step from one number to the next where the tolerance grows by a hundred
/// thousandth of one, and rounding keeps the order of both; differences of numbers within a factor of two of
/// each other are exact.
double last_close(double no_data, double end)
{
    std::int64_t close = place_of(no_data);
    std::int64_t far = place_of(end);
    if (is_close(end, no_data))
        return end;
    for (;;) {
        // Halves before the sum, which may not fit.
        std::int64_t const middle = close / 2 + far / 2 + (close % 2 + far % 2) / 2;
        if (middle == close || middle == far)
            return number_at(close);
        (is_close(number_at(middle), no_data) ? close : far) = middle;
    }
}
} // namespace

no_data_test::no_data_test(double no_data) : f_is_finite_only(true), f_is_number_only(!std::isfinite(no_data))
{
    if (!std::isfinite(no_data))
        return;
    f_low = last_close(no_data, -c_largest);
    f_high = last_close(no_data, c_largest);
}
} // namespace vx
