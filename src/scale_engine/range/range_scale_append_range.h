#pragma once

#include "platform/base/export.h"

namespace vx::task {
/// Inserts one range with a style between those of its neighbours, and the caption of its bounds.
struct VX_API range_scale_append_range
{
    /// The new range becomes range `position`, which is cut to the scale. It fills what lies between its
    /// neighbours; where that is nothing, one of them gives up half of itself: the one below at the end of
    /// the scale, else the one above.
    static void execute(void *scale, int position);
};
} // namespace vx::task
