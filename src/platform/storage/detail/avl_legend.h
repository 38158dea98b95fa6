#pragma once

#include "platform/base/export.h"

#include <string_view>

namespace vx::avl {
/// Reads the text of a legend into the manager, which is not null. One of the `c_gp_*` results; at any but
/// `c_gp_ok` the manager is as it was.
[[nodiscard]] int read_legend(std::string_view text, void *mngr);

/// Longest legend that is taken, in bytes.
inline constexpr std::size_t c_longest_file = std::size_t{1} << 24;
} // namespace vx::avl
