#pragma once

#include "platform/base/geometry.h"
#include "platform/layers/vx_lr2d.h"

struct Ivx_entities;

/// A scene: an ordered list of layers that are drawn one over the other, the first lowest. The scene owns its
/// layers. Main thread only; every function takes null and gives a neutral value for it.
struct Ivx_scn_2d;

[[nodiscard]] VX_API Ivx_scn_2d *vx_scn_2d_create(wchar_t const *caption);
/// A scene with clones of the layers.
[[nodiscard]] VX_API Ivx_scn_2d *vx_scn_2d_clone(Ivx_scn_2d const *scene);
/// Ends a scene that stands by itself, not one of a list of scenes.
VX_API void vx_scn_2d_destroy(Ivx_scn_2d *scene);
VX_API void vx_scn_2d_get_wcaption(Ivx_scn_2d const *scene, Ivx_string_adp *caption);
VX_API void vx_scn_2d_set_wcaption(Ivx_scn_2d *scene, wchar_t const *caption);
/// The whole path of the file that the scene was brought from, told by whoever did that; empty for a scene
/// that is in no file of its own.
VX_API void vx_scn_2d_get_wfilename(Ivx_scn_2d const *scene, Ivx_string_adp *file);
VX_API void vx_scn_2d_set_wfilename(Ivx_scn_2d *scene, wchar_t const *file);
/// True when both axes have one scale, as at the start.
[[nodiscard]] VX_API bool vx_scn_2d_get_izotropic(Ivx_scn_2d const *scene);
VX_API void vx_scn_2d_set_izotropic(Ivx_scn_2d *scene, bool izotropic);
/// The unit of the scene's coordinates: degrees of longitude and latitude, or metres in one unit, 1 at first.
/// Metres that are not above 0 or not finite are ignored.
VX_API void vx_scn_2d_set_unit(Ivx_scn_2d *scene, bool is_degree, double metres);
[[nodiscard]] VX_API bool vx_scn_2d_get_unit_is_degree(Ivx_scn_2d const *scene);
/// Metres on the ground in one unit along x near this point; degrees are measured along the parallel, and one
/// beyond 89 degrees as there. 1 for null.
[[nodiscard]] VX_API double vx_scn_2d_get_unit_metres(Ivx_scn_2d const *scene, Tvx_pnt_d2 at);
/// What is looked at: the point in the middle, in map units, and the size of a pixel in them. False, with
/// both as they were, for a scene that does not tell, as at the start. Numbers that are not finite, and a
/// size that is not above 0, take the view away.
[[nodiscard]] VX_API bool vx_scn_2d_get_view(Ivx_scn_2d const *scene, Tvx_pnt_d2 *center, double *pixel);
VX_API void vx_scn_2d_set_view(Ivx_scn_2d *scene, Tvx_pnt_d2 center, double pixel);

[[nodiscard]] VX_API int vx_scn_2d_get_count(Ivx_scn_2d const *scene);
/// Null outside the list.
[[nodiscard]] VX_API Ivx_layer *vx_scn_2d_get_layer(Ivx_scn_2d const *scene, int index);
/// -1 when the layer is not one of the scene's.
[[nodiscard]] VX_API int vx_scn_2d_get_index(Ivx_scn_2d const *scene, Ivx_layer const *layer);
/// Takes the layer over at `index`, cut to the list. A null layer and one that is in the list already are
/// refused.
VX_API bool vx_scn_2d_insert(Ivx_scn_2d *scene, int index, Ivx_layer *layer);
/// Takes the layer out and gives it to the caller; null outside the list.
[[nodiscard]] VX_API Ivx_layer *vx_scn_2d_extract(Ivx_scn_2d *scene, int index);
/// Moves a layer so that it stands at `to`, cut to the list. Indexes outside the list for `from` are ignored.
VX_API void vx_scn_2d_move(Ivx_scn_2d *scene, int from, int to);
/// Box of the data of all visible vector layers; false when there is none.
[[nodiscard]] VX_API bool vx_scn_2d_get_extent(Ivx_scn_2d *scene, Tvx_box_d2 *box);

/// The layers as a list of entities.
[[nodiscard]] VX_API Ivx_entities *vx_scn_2d_safe_upcast(Ivx_scn_2d *scene);

/// A list of scenes, of which one is active. It owns the scenes.
struct Ivx_scns_2d;

[[nodiscard]] VX_API Ivx_scns_2d *vx_scns_2d_create();
VX_API void vx_scns_2d_destroy(Ivx_scns_2d *scenes);
[[nodiscard]] VX_API int vx_scns_2d_get_count(Ivx_scns_2d const *scenes);
[[nodiscard]] VX_API Ivx_scn_2d *vx_scns_2d_get_scn(Ivx_scns_2d const *scenes, int index);
/// A new empty scene at the end of the list; the first one becomes active.
VX_API Ivx_scn_2d *vx_scns_2d_add(Ivx_scns_2d *scenes, wchar_t const *caption);
/// Ends a scene of the list. If it was active, the one that takes its place is, or the last.
VX_API void vx_scns_2d_erase(Ivx_scns_2d *scenes, int index);
/// Null when the list is empty.
[[nodiscard]] VX_API Ivx_scn_2d *vx_scns_2d_get_active_scn(Ivx_scns_2d const *scenes);
VX_API void vx_scns_2d_set_active_scn(Ivx_scns_2d *scenes, Ivx_scn_2d const *scene);
/// The scenes as a list of entities, and back.
[[nodiscard]] VX_API Ivx_entities *vx_scns_2d_safe_upcast(Ivx_scns_2d *scenes);
[[nodiscard]] VX_API Ivx_scns_2d *vx_scns_2d_safe_downcast(Ivx_entities *list);
