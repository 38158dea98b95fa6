#pragma once

#include "platform/base/export.h"

namespace vx::task {
struct VX_API value_scale_append_value
{
    /// Inserts a blank entry behind the active one, or at the end when none is active; gives its index.
    static unsigned execute(void *scale);
};
} // namespace vx::task
