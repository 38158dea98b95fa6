#pragma once

#include "platform/base/export.h"

#include <string>
#include <vector>

namespace vx::task {
/// Rounding of bounds. Digits are an exponent of ten: -2 keeps two decimals, 2 rounds to hundreds, -30 rounds
/// nothing. Users choose among 21 rows, row `i` standing for the digits `i - 10`.
struct VX_API range_scale_round_digits
{
    /// Rounds the whole span and all bounds.
    static void execute(void *scale, int digits);
    /// To a multiple of 10^digits, halves away from zero: the number that the decimal text reads as.
    [[nodiscard]] static double round_digits(double value, int digits);
    /// Digits outside -10 to 10 become -2.
    [[nodiscard]] static int clamp_digits(int digits);
    /// The texts of the rows: "d.dd" keeps two decimals, "ddd" rounds to hundreds.
    [[nodiscard]] static std::vector<std::wstring> generate();
    /// The row of the digits, of those outside -10 to 10 the row of -2.
    [[nodiscard]] static int to_index(int digits);
    [[nodiscard]] static int to_digits(int index);
    [[nodiscard]] static int default_index();
};
} // namespace vx::task
