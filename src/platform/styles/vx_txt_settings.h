#pragma once

#include "platform/base/export.h"

/// Text settings of a layer: the list of text style managers that say how labels are made from attributes.
/// All functions accept null and then give null.

/// `type` is a text style key, "txt_pnt_style" and so on, or its manager key; null for another key. The list
/// of new settings has one manager and is not visible.
[[nodiscard]] VX_API void *vx_txt_settings_create(char const *type);
[[nodiscard]] VX_API void *vx_txt_settings_clone(void const *settings);
VX_API void vx_txt_settings_destroy(void *settings);
VX_API void vx_txt_settings_assign(void *target, void const *source);
/// The list of managers, owned by the settings.
[[nodiscard]] VX_API void *vx_txt_settings_get_stl_mngr_list(void *settings);
