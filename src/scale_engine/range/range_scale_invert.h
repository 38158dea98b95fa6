#pragma once

#include "platform/base/export.h"

namespace vx::task {
/// Turns the styles of a range scale end for end: the min entry's goes to the max entry, and so on inward.
/// Bounds and captions stay.
struct VX_API range_scale_invert
{
    /// `only_marked` turns those of the marked rows among themselves; `selection` means the selection styles.
    static void execute(void *scale, bool only_marked, bool selection);
};
} // namespace vx::task
