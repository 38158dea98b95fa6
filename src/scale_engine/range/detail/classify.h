#pragma once

#include "platform/base/export.h"

/// What the classifications share.
namespace vx::task::detail {
/// The number of ranges that is made when more are asked for.
inline constexpr unsigned c_most_ranges = 100'000;

/// Writes type and round digits.
void begin_classify(void *scale, int type, int digits);
/// Rounds the bounds and makes the captions anew.
void finish_classify(void *scale, int digits);
/// Sets the number of ranges; gives what was set.
unsigned set_range_count(void *scale, unsigned nranges);
void set_range(void *scale, unsigned index, double min_bound, double max_bound);
void set_span(void *scale, double min_value, double max_value);
/// `nranges` ranges of one width, at least one, that lie next to each other from `minval` on.
/// Where their span is beyond all numbers they have no width.
void equal_ranges(void *scale, unsigned nranges, double minval, double maxval);
/// The same with a width for any two numbers.
void equal_ranges_of_any_span(void *scale, unsigned nranges, double minval, double maxval);
/// The greatest number or the least one in place of infinities.
[[nodiscard]] double within_numbers(double value);
} // namespace vx::task::detail
