#pragma once

#include <vector>

namespace vx::task::detail {
/// Ranges from `minval` over the breaks to `maxval`, one more than there are breaks.
void write_breaks(void *scale, std::vector<double> const &breaks, double minval, double maxval);
/// Leaves the values from `minval` to `maxval`; what is no number is none of them.
void keep_within(std::vector<double> &values, double minval, double maxval);
} // namespace vx::task::detail
