#pragma once

#include "platform/layers/vx_lr2d.h"

/// Layers of a page layout: as `vx_lr2d_get_plugin_interface`, for the interface under which a layout element
/// is served.
[[nodiscard]] VX_API void *vx_layout_lr2d_get_plugin_interface(Ivx_layer const *layer);
VX_API void vx_layout_lr2d_set_plugin_interface(Ivx_layer *layer, void *plugin);
