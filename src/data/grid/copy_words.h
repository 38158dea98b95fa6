#pragma once

#include "data/connection/data_types.h"

#include "platform/base/export.h"

#include <cstddef>
#include <cstdint>

namespace vx::data {
/// Copies `count` cells, each converted as a plain cast does it: whole numbers are widened by their sign and
/// narrowed by cutting high bits, floating numbers are cut towards zero to 64 bits and then narrowed in the
/// same way; nothing is clamped. A floating number beyond 64 bits, and what is not a number, becomes the
/// lowest 64-bit number, cut to the width of the target. A type that is none copies nothing.
///
/// Strides are in bytes, may be negative, and need not keep cells aligned. Source and target do not overlap.
VX_API void copy_words(void *target, data_type target_type, std::ptrdiff_t target_stride, void const *source,
                       data_type source_type, std::ptrdiff_t source_stride, std::uint64_t count);
/// The same for cells that lie side by side.
VX_API void copy_words(void *target, data_type target_type, void const *source, data_type source_type,
                       std::uint64_t count);
} // namespace vx::data
