#pragma once

#include <algorithm>
#include <cmath>

namespace vx {
/// How many classes of equal width a histogram of whole numbers between two bounds gets, at most `most`: so
/// many that none holds more numbers than its neighbours just because of where it begins. Each holds one
/// where `most` is enough, else as many as the others, but for a few. The last class holds the upper bound.
[[nodiscard]] inline int whole_number_classes(double low, double high, int most)
{
    double const numbers = std::max(std::floor(high) - std::ceil(low) + 1, std::ceil(high - low));
    double const in_each = std::max(std::ceil(numbers / most), 1.0);
    return static_cast<int>(std::clamp(std::ceil(numbers / in_each), 1.0, static_cast<double>(most)));
}
} // namespace vx
