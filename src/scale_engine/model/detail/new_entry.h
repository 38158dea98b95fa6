#pragma once

#include "platform/styles/vx_val_scale.h"

namespace vx::task::detail {
/// A blank entry behind the active one, or at the end when none is active; its index.
[[nodiscard]] inline unsigned add_entry(void *scale)
{
    int const active = vx_val_scale_get_active_idx(scale);
    if (active >= 0 && static_cast<unsigned>(active) < vx_val_scale_get_size(scale))
        return vx_val_scale_ins(scale, static_cast<unsigned>(active) + 1);
    return vx_val_scale_add(scale) - 1;
}
} // namespace vx::task::detail
