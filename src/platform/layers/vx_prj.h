#pragma once

#include "platform/layers/vx_scn_2d.h"

/// The project: the scenes and the page layouts that the program works with. One for the process, made when
/// it is first asked for. Main thread only; every function takes null and gives a neutral value for it.
struct Ivx_prj;

/// Never null.
[[nodiscard]] VX_API Ivx_prj *vx_prj_get_instance();
/// The scenes of the project, which owns the list.
[[nodiscard]] VX_API Ivx_scns_2d *vx_prj_get_scns_2d_ptr(Ivx_prj *project);
/// The layouts of the project, which owns the list: each a scene whose layers are the elements of one page,
/// the lowest first; the caption is the layout's name. The active one is that which the user works on.
[[nodiscard]] VX_API Ivx_scns_2d *vx_prj_get_layouts_data_ptr(Ivx_prj *project);

/// Lists of scenes that plug-ins add. They stay their owners', who take them away before they end.
[[nodiscard]] VX_API int vx_prj_get_plugin_scns_2d_count(Ivx_prj const *project);
/// Null outside.
[[nodiscard]] VX_API Ivx_scns_2d *vx_prj_get_plugin_scns_2d_ptr(Ivx_prj *project, int index);
/// Null and a list that is there already are ignored.
VX_API void vx_prj_add_plugin_scns_2d(Ivx_prj *project, Ivx_scns_2d *scenes);
VX_API void vx_prj_remove_plugin_scns_2d(Ivx_prj *project, Ivx_scns_2d *scenes);

/// The first scene of this caption, of the project's own and then of the plug-ins' lists; null for none, and
/// for the empty name.
[[nodiscard]] VX_API Ivx_scn_2d *vx_prj_find_scn_2d_w(Ivx_prj *project, wchar_t const *name);
