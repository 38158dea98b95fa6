#pragma once

#include "platform/base/export.h"

/// A list of ints. All functions accept null; an index outside the list reads 0 and writes nothing.
[[nodiscard]] VX_API void *vx_ints_create();
VX_API void vx_ints_destroy(void *ints);
VX_API void vx_ints_assign(void *target, void const *source);
VX_API void vx_ints_clear(void *ints);
[[nodiscard]] VX_API unsigned vx_ints_get_size(void const *ints);
/// New places hold 0.
VX_API void vx_ints_set_size(void *ints, unsigned size);
VX_API void vx_ints_add(void *ints, int value);
[[nodiscard]] VX_API int vx_ints_get_int(void const *ints, unsigned index);
VX_API void vx_ints_set_int(void *ints, unsigned index, int value);
VX_API void vx_ints_reverse(void *ints);
/// The values in a row, null for an empty list; good until the list changes.
[[nodiscard]] VX_API int const *vx_ints_get_data(void const *ints);

/// A set of ints. All functions accept null.
[[nodiscard]] VX_API void *vx_int_set_create();
VX_API void vx_int_set_destroy(void *set);
VX_API void vx_int_set_add(void *set, int value);
VX_API void vx_int_set_clear(void *set);
[[nodiscard]] VX_API bool vx_int_set_find(void const *set, int value);
[[nodiscard]] VX_API unsigned vx_int_set_get_size(void const *set);
