#pragma once

#include "platform/base/export.h"

#include <string>

namespace vx::styles {
/// Rounds nothing.
inline constexpr int c_no_rounding = -30;

/// The value rounded to a multiple of 10^digits, halves away from zero; the value itself where that is out of
/// range.
[[nodiscard]] VX_API double round_to(int digits, double value);
/// See `vx_round_digits_format_number`.
[[nodiscard]] std::wstring format_number(int digits, double value);
} // namespace vx::styles
