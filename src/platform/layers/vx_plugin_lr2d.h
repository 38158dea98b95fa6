#pragma once

#include "platform/layers/vx_lr2d.h"

/// The interface of the plug-in that serves the layer, or null. The layer keeps the pointer, hands it on to
/// its clones and never looks into it; it stays the plug-in's.
[[nodiscard]] VX_API void *vx_lr2d_get_plugin_interface(Ivx_layer const *layer);
VX_API void vx_lr2d_set_plugin_interface(Ivx_layer *layer, void *plugin);
