#pragma once

#include <cstdint>

namespace vx::data {
/// Statistics of one field that were computed here rather than by the driver. A new entry is all zero and all
/// false.
struct statistic
{
    double minimum = 0;
    double maximum = 0;
    double average = 0;
    double stdev = 0;           ///< of the sample: the squares are divided by quantity - 1
    std::uint64_t quantity = 0; ///< values that are neither null nor no-data
    std::uint64_t distinct = 0; ///< different values
    bool common_done = false;   ///< minimum, maximum, average and quantity hold results
    bool stdev_done = false;
    bool distinct_done = false;
};
} // namespace vx::data
