#pragma once

#include "platform/layers/vx_lr2d.h"

struct Ivx_attr_data;
struct t_vx_data_source_interface;

/// Vector layers: keys "shp_pnt_lr2d", "shp_pln_lr2d", "shp_pgn_lr2d" and their sub-layers with z. On other
/// layers the getters give null.

// Plain functions in the full sense: hosts in other languages find them by name.
extern "C" {
/// A layer of one of the three keys over a connection string; null for another key. The file is not opened.
[[nodiscard]] VX_API Ivx_layer *vx_shp_lr2d_create(char const *key, wchar_t const *source);
/// Opens the source and makes a layer of the kind that its geometry calls for, with the file's base name as
/// caption. Null, with one sentence in `error` (may be null), when it cannot be opened or has no vector part.
[[nodiscard]] VX_API Ivx_layer *vx_shp_lr2d_open(wchar_t const *source, Ivx_string_adp *error);
/// The same over a data set that is open already for reading; the handle is taken over, also when it fails.
[[nodiscard]] VX_API Ivx_layer *
vx_shp_lr2d_take(wchar_t const *source, t_vx_data_source_interface const *opened, Ivx_string_adp *error);
[[nodiscard]] VX_API bool vx_lr2d_is_shp(Ivx_layer const *layer);

[[nodiscard]] VX_API Ivx_attr_data *vx_shp_lr2d_get_attr_data_ptr(Ivx_layer *layer);
/// The dynamic text layer of the layer, its own; cloned with it.
[[nodiscard]] VX_API Ivx_layer *vx_shp_lr2d_get_text_layer_ptr(Ivx_layer *layer);

/// The layer's style managers, a list of the style type "pnt_style", "pln_style" or "pgn_style"; the layer's
/// own.
[[nodiscard]] VX_API void *vx_shp_lr2d_get_style_mngr_list_ptr(Ivx_layer *layer);
/// The active manager of the list. Each of the typed functions gives null for a layer of another geometry.
[[nodiscard]] VX_API void *vx_shp_lr2d_get_stl_mngr_ptr(Ivx_layer *layer);
[[nodiscard]] VX_API void *vx_shp_pnt_lr2d_get_stl_mngr_ptr(Ivx_layer *layer);
[[nodiscard]] VX_API void *vx_shp_pln_lr2d_get_stl_mngr_ptr(Ivx_layer *layer);
[[nodiscard]] VX_API void *vx_shp_pgn_lr2d_get_stl_mngr_ptr(Ivx_layer *layer);
/// The text settings, of the text style type of the geometry; the layer's own.
[[nodiscard]] VX_API void *vx_shp_lr2d_get_txt_settings(Ivx_layer *layer);
} // extern "C"
