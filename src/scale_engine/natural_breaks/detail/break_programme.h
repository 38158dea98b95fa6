#pragma once

#include "platform/base/export.h"

#include <optional>
#include <vector>

/// The dynamic programme of natural breaks on sorted finite values.
///
/// Written plainly it is, with tables of rows 0 to n and columns 0 to k, the first two rows of `limit` being
/// 1 and those of `cost` 0, and all other costs of columns from 1 on the largest double:
///
///     for l = 2 .. n
///         s = q = 0
///         for m = 1 .. l
///             s += x[l-m];  q += x[l-m] * x[l-m];  v = q - s * s / m;  b = l - m
///             if b != 0: for j = 2 .. k
///                 if cost[l][j] >= v + cost[b][j-1]:  limit[l][j] = b;  cost[l][j] = v + cost[b][j-1]
///         limit[l][1] = 1;  cost[l][1] = v
///     r = n;  for j = k .. 2:  break[j-2] = x[limit[r][j] - 1];  r = limit[r][j] - 1
///
/// The walk goes on from the row before the break, as it always has: scales that were made so come out the
/// same again. Both roads here give its breaks bit for bit. Where squares overflow, so that a cell has no
/// limit, the first value stands in.
namespace vx::task::detail {
/// `k` - 1 breaks for 2 <= `k` < number of values.
[[nodiscard]] VX_API std::vector<double> find_breaks(std::vector<double> const &sorted, unsigned k);
/// In n log n. Nothing when some choice of the programme may hang on how its sums were rounded.
[[nodiscard]] VX_API std::optional<std::vector<double>> find_breaks_quickly(std::vector<double> const &sorted,
                                                                            unsigned k);
/// In n squared, with the roundings of the programme; for all values.
[[nodiscard]] VX_API std::vector<double> find_breaks_surely(std::vector<double> const &sorted, unsigned k);
} // namespace vx::task::detail
