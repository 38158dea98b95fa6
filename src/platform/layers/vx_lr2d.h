#pragma once

#include "platform/layers/vx_lr.h"

/// 2-D layers of every kind.

// Plain functions in the full sense: hosts in other languages find them by name.
extern "C" {
/// A new layer of the type key, without file and with empty caption; null for a null or empty key. A key that
/// is not one of layer_keys.h or layout_keys.h gives a layer that has only what all layers have: keys of
/// plug-ins.
[[nodiscard]] VX_API Ivx_layer *vx_lr2d_create(char const *key);
/// A new layer of the same type, all of its own: caption, file name, visibility, styles, text layer, with a
/// channel of its own. The data object behind it, which nobody edits here, is held together. The caller
/// destroys the clone. Null for null.
[[nodiscard]] VX_API Ivx_layer *vx_lr2d_clone(Ivx_layer const *layer);
/// Ends a layer that stands by itself, not one inside another such as a text layer. Null is accepted.
VX_API void vx_lr2d_destroy(Ivx_layer *layer);
[[nodiscard]] VX_API char const *vx_lr2d_get_lr_type(Ivx_layer const *layer);

/// Display name: the caption, or the base name of the file while the caption is empty.
VX_API void vx_lr2d_get_wcaption(Ivx_layer const *layer, Ivx_string_adp *caption);
VX_API void vx_lr2d_set_wcaption(Ivx_layer *layer, wchar_t const *caption);
/// The layer's file, or the connection string of its data; null counts as empty. A new name drops the data
/// object.
VX_API void vx_lr2d_get_wfilename(Ivx_layer const *layer, Ivx_string_adp *file_name);
VX_API void vx_lr2d_set_wfilename(Ivx_layer *layer, wchar_t const *file_name);
/// True unless set.
[[nodiscard]] VX_API bool vx_lr2d_get_visible(Ivx_layer const *layer);
VX_API void vx_lr2d_set_visible(Ivx_layer *layer, bool visible);

/// The data object behind the layer, made on first use from the file name; stays the layer's. Null for kinds
/// without one and for an empty file name.
[[nodiscard]] VX_API Ivx_entity *vx_lr2d_get_data_ptr(Ivx_layer *layer);
} // extern "C"
