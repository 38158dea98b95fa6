#pragma once

#include "platform/base/export.h"

#include <string>

namespace vx::task {
enum class scale_caption : int
{
    interval = 1,
    minimum = 2,
    maximum = 3,
};

/// Captions of a range scale from its bounds, under its round digits. The other entry keeps its caption.
struct VX_API range_scale_update_caption
{
    /// A number that is no caption of the enumeration changes nothing.
    static void execute(void *scale, scale_caption caption);
    /// "up to 1", "1 - 2", "above 2", in the language of the captions.
    static void interval(void *scale);
    /// The lower bound alone; the min and max entries have the bounds of the whole scale.
    static void minimum(void *scale);
    /// The upper bound alone.
    static void maximum(void *scale);
    /// The text of a number under round digits, with "." as decimal separator.
    [[nodiscard]] static std::wstring format_number(double value, int digits);
};
} // namespace vx::task
