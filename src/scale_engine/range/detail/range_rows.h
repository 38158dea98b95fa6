#pragma once

#include "scale_engine/model/detail/entry_styles.h"

#include <vector>

/// The rows of a range scale that take part in an operation.
namespace vx::task::detail {
/// A row of a range scale: 0 the min entry, i + 1 range i, size + 1 the max entry.
using range_row = unsigned;

/// All rows, or the marked ones, in ascending order.
[[nodiscard]] std::vector<range_row> range_rows(void const *scale, bool only_marked);
/// Scale parameters of a row.
[[nodiscard]] void *range_row_prm(void *scale, range_row row);
[[nodiscard]] prm_list range_row_prms(void *scale, bool only_marked);
void set_range_row_style(void *scale, range_row row, void const *stl_prm, bool selection);
} // namespace vx::task::detail
