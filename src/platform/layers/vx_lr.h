#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

struct Ivx_entity;
struct Ivx_event_channel;

/// A layer of a map. Main thread only; every function takes a null layer and gives a neutral value for it.
struct Ivx_layer;

/// The layer's type key, 8-bit. Valid while the layer lives; null for a null layer.
[[nodiscard]] VX_API char const *vx_lr_get_lr_type(Ivx_layer const *layer);
[[nodiscard]] VX_API Ivx_layer *vx_lr_safe_downcast(Ivx_entity *entity);
[[nodiscard]] VX_API Ivx_entity *vx_lr_safe_upcast(Ivx_layer *layer);
VX_API void vx_lr_get_wfilename(Ivx_layer const *layer, Ivx_string_adp *file_name);

/// Channel of the layer's update events: made with the layer, gone with it, never shared with a clone. A
/// client removes itself before the layer goes. The layer's setters post nothing; `vx_lr_post_update` does.
[[nodiscard]] VX_API Ivx_event_channel *vx_lr_get_update_event_channel(Ivx_layer *layer);
/// Tells the clients of the channel that the layer changed by other hands than theirs.
VX_API void vx_lr_post_update(Ivx_layer *layer);

/// True when the layer draws selected objects with styles of its own. False unless set.
[[nodiscard]] VX_API bool vx_lr_get_own_selected_style_flag(Ivx_layer const *layer);
VX_API void vx_lr_set_own_selected_style_flag(Ivx_layer *layer, bool own);
