#pragma once

#include "platform/base/export.h"

/// A list of style managers of one type, of which one is active; the objects of a layer are drawn by each in
/// turn, in list order. A list never falls below one manager. All functions accept null and indexes outside
/// the list.

/// A visible list with one manager, which is active. `type` as for `vx_stl_mngr_create`; null for another
/// key.
[[nodiscard]] VX_API void *vx_stl_mngr_list_create(char const *type);
[[nodiscard]] VX_API void *vx_stl_mngr_list_clone(void const *list);
VX_API void vx_stl_mngr_list_destroy(void *list);
/// Pointers to managers of the target stay good up to the number of managers in the source.
VX_API void vx_stl_mngr_list_assign(void *target, void const *source);

/// The manager key, such as "txt_pnt_mngr_style". Static text; null for null.
[[nodiscard]] VX_API char const *vx_stl_mngr_list_get_type(void const *list);
[[nodiscard]] VX_API unsigned vx_stl_mngr_list_get_count(void const *list);
/// Manager `index`, owned by the list, or null.
[[nodiscard]] VX_API void *vx_stl_mngr_list_get_mngr(void *list, unsigned index);

[[nodiscard]] VX_API unsigned vx_stl_mngr_list_get_active_idx(void const *list);
[[nodiscard]] VX_API void *vx_stl_mngr_list_get_active_mngr(void *list);
VX_API void vx_stl_mngr_list_set_active_by_idx(void *list, unsigned index);
VX_API void vx_stl_mngr_list_set_active_by_mngr(void *list, void const *mngr);

/// Appends a manager with default styles and returns it. The active one stays.
VX_API void *vx_stl_mngr_list_add(void *list);
/// Whether manager `index` exists and is not the last one left.
[[nodiscard]] VX_API bool vx_stl_mngr_list_can_erase(void const *list, unsigned index);
/// Destroys manager `index` if it may go. If it was active, the one that takes its place becomes active, or
/// the last.
VX_API void vx_stl_mngr_list_erase_by_idx(void *list, unsigned index);

/// Whether the list as a whole is drawn.
[[nodiscard]] VX_API bool vx_stl_mngr_list_get_visible(void const *list);
VX_API void vx_stl_mngr_list_set_visible(void *list, bool visible);
