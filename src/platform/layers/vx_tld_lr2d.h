#pragma once

#include "platform/layers/vx_lr2d.h"

/// Text layers: "tld_lr2d" and the dynamic one, "dyn_tld_lr2d", which writes a property at the objects of
/// another layer. How it does is told by its text classes (platform/data/vx_tld_data.h), of which one is
/// current and there is always one; each of them labels all objects.
///
/// A vector layer and a layer of two coordinates have one of their own, which is not visible before somebody
/// switches it on. On other layers the getters give null, 0 or -1.

/// A dynamic text layer for another layer, which is not held: the caller owns what comes back, visible and
/// with one class. Null for a parent that has no objects to label, and for null.
[[nodiscard]] VX_API Ivx_layer *vx_dtld_lr2d_create(Ivx_layer *parent);
/// The layer that a dynamic text layer belongs to; null when it stands by itself or is of another kind, and
/// from the end of that layer on. A clone has the parent of its source; one that is cloned inside its parent
/// has the clone of that.
[[nodiscard]] VX_API Ivx_layer *vx_dtld_lr2d_get_parent_lr2d_ptr(Ivx_layer *layer);
/// Gives a dynamic text layer another parent. Null is accepted; a parent without objects to label counts as
/// none.
VX_API void vx_dtld_lr2d_set_parent(Ivx_layer *layer, Ivx_layer *parent);

/// The current text class, the layer's own. The pointer is good until the class goes.
[[nodiscard]] VX_API void *vx_dtld_lr2d_get_text_class(Ivx_layer *layer);
[[nodiscard]] VX_API int vx_dtld_lr2d_count_text_class(Ivx_layer const *layer);
[[nodiscard]] VX_API int vx_dtld_lr2d_get_text_class_index(Ivx_layer const *layer);
/// Indexes outside the list are ignored.
VX_API void vx_dtld_lr2d_set_text_class_index(Ivx_layer *layer, int index);
/// Class `index`; null outside the list.
[[nodiscard]] VX_API void *vx_dtld_lr2d_get_text_class_by_index(Ivx_layer *layer, int index);
/// Appends a class with defaults and makes it current. The name may be null.
VX_API void vx_dtld_lr2d_add_text_class(Ivx_layer *layer, wchar_t const *name);
/// Ends the current class unless it is the last one left. The one that takes its place becomes current, or
/// the last.
VX_API void vx_dtld_lr2d_remove_text_class(Ivx_layer *layer);
/// Takes over classes and current class of another text layer; the hints stay those of the target.
VX_API void vx_dtld_lr2d_assign_text_classes(Ivx_layer *target, Ivx_layer const *source);
