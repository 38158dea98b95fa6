#pragma once

namespace vx::gdal {
/// What one pass over a field tells.
struct field_stat
{
    double minimum = 0;
    double maximum = 0;
    double mean = 0;
    double sum = 0;
    double squares = 0;   ///< sum of the squared distances from the mean; may be infinite
    double deviation = 0; ///< of a sample
    long long count = 0;
};
} // namespace vx::gdal
