#pragma once

#include "platform/base/export.h"

namespace vx::task {
/// Turns the styles of a value or rule scale end for end: the first entry's goes to the last, and so on
/// inward. Texts and captions stay.
struct VX_API value_scale_invert
{
    /// `only_marked` turns those of the marked entries among themselves; `selection` means the selection
    /// styles.
    static void execute(void *scale, bool only_marked, bool selection);
};
} // namespace vx::task
