#pragma once

#include "platform/styles/detail/scale_model.h"

#include <string>
#include <string_view>

namespace vx::storage {
/// The colour map of a range scale as a file; empty when the scale has no finite bound.
[[nodiscard]] std::string color_map_bytes(styles::rng_scale const &scale, std::wstring_view name);
} // namespace vx::storage
