#pragma once

#include "platform/layers/vx_lr2d.h"

/// Text layers: "tld_lr2d" and the dynamic one, "dyn_tld_lr2d".

/// The layer that a dynamic text layer belongs to; null when it stands by itself or is of another kind.
[[nodiscard]] VX_API Ivx_layer *vx_dtld_lr2d_get_parent_lr2d_ptr(Ivx_layer *layer);
