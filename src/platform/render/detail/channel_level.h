#pragma once

#include <algorithm>
#include <cmath>

namespace vx::render {
/// How much of a channel's colour a value has, from 0 to 255: none of it up to `low`, all of it from `high`
/// on.
[[nodiscard]] inline int channel_level(double value, double low, double high)
{
    // By halves, since the difference of two doubles may be beyond all doubles.
    double const part = low < high ? (value / 2 - low / 2) / (high / 2 - low / 2) : value > high ? 1 : 0;
    return static_cast<int>(std::lround(255 * std::clamp(part, 0.0, 1.0)));
}
} // namespace vx::render
