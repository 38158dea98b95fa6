#pragma once

#include <numeric>

/// The middle of two numbers, also where their sum is out of range.
[[nodiscard]] constexpr double vx_halfway(double a, double b)
{
    return std::midpoint(a, b);
}
