#pragma once

#include "platform/base/export.h"

#include <cmath>
#include <limits>

namespace vx {
/// Whether a cell of a grid holds a value, beside a number that means that it holds none.
///
/// With a number that is finite, a cell has no value when its distance from that number is at most the
/// greater of 0.000001 and 0.00001 times the greater of the two absolute values: the number may have been
/// stored in a shorter type than the cells. That makes an infinite cell one without a value. With a number
/// that is not finite, every cell that is not finite has no value.
///
/// The formula is evaluated once, when the test is made: the cells without a value are those between two
/// bounds, and the infinities.
class VX_API no_data_test
{
public:
    /// Every cell counts.
    no_data_test() = default;
    explicit no_data_test(double no_data);

    [[nodiscard]] bool counts(double cell) const
    {
        return !(cell >= f_low && cell <= f_high) && !(f_is_finite_only && std::isinf(cell)) &&
               !(f_is_number_only && std::isnan(cell));
    }

    /// The first and the last finite cell without a value. Where there is none, as with a number that is not
    /// finite, the first lies above the last.
    [[nodiscard]] double low() const { return f_low; }
    [[nodiscard]] double high() const { return f_high; }
    /// An infinite cell has no value.
    [[nodiscard]] bool is_finite_only() const { return f_is_finite_only; }
    /// What is not a number has no value.
    [[nodiscard]] bool is_number_only() const { return f_is_number_only; }

private:
    double f_low = std::numeric_limits<double>::infinity();
    double f_high = -std::numeric_limits<double>::infinity();
    bool f_is_finite_only = false;
    bool f_is_number_only = false;
};
} // namespace vx
