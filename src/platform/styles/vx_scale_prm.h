#pragma once

#include "platform/base/export.h"

/// Scale parameters of one entry: whether its objects are drawn, and its style parameters. All functions
/// accept null.

/// Free-standing parameters; scales own those of their entries.
[[nodiscard]] VX_API void *vx_scale_prm_create(char const *type);
[[nodiscard]] VX_API void *vx_scale_prm_clone(void const *scale_prm);
VX_API void vx_scale_prm_destroy(void *scale_prm);
/// Copies everything, styles and visibility. Between style types only the visibility is taken over.
VX_API void vx_scale_prm_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_scale_prm_equal(void const *a, void const *b);

[[nodiscard]] VX_API void *vx_scale_prm_get_stl_prm_ptr(void *scale_prm);
[[nodiscard]] VX_API bool vx_scale_prm_get_visible(void const *scale_prm);
VX_API void vx_scale_prm_set_visible(void *scale_prm, bool visible);
