#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/base/string_adp.h"

struct Ivx_layer;

/// What a layer is drawn by: its managers, and the classes of a legend, which are the rows (vx_scale_rows.h)
/// of the scales that the managers have in force, manager after manager as lists of layers show them. A layer
/// with one manager that draws all objects alike has no classes; among several managers such a one is a class
/// of its own. What is drawn by the palette of a raster or by channels has classes without managers: colours.
/// Null and other layers have neither; places outside give neutral values.

/// All of a vector layer, one of a layer of a property file; none of others, nor of a grid that is drawn by
/// channels.
[[nodiscard]] VX_API unsigned vx_layer_classes_get_mngr_count(Ivx_layer *layer);
/// The layer's own.
[[nodiscard]] VX_API void *vx_layer_classes_get_mngr_ptr(Ivx_layer *layer, unsigned index);

[[nodiscard]] VX_API unsigned vx_layer_classes_get_count(Ivx_layer *layer);
/// The row's caption, else what it is about: the value, the rule, the bounds, the band.
VX_API void vx_layer_classes_get_caption_w(Ivx_layer *layer, unsigned index, Ivx_string_adp *caption);
/// The style parameters (vx_stl_prm.h) of the class, the layer's own; null for one of colours.
[[nodiscard]] VX_API void *vx_layer_classes_get_stl_prm_ptr(Ivx_layer *layer, unsigned index);
/// How many colours the class has that is one of colours, and the first `size` of them: one, or several that
/// go from one into the next. 0 for classes with a style.
VX_API unsigned vx_layer_classes_get_colors(Ivx_layer *layer, unsigned index, Tvx_color *colors,
                                            unsigned size);
/// The entry (vx_scale_prm.h) of the class, which says whether its objects are drawn; null for a class that
/// is no row of a scale.
[[nodiscard]] VX_API void *vx_layer_classes_get_scale_prm_ptr(Ivx_layer *layer, unsigned index);
/// The entry in `layer` that is about the same value, rule or bounds as class `index` of `like`, a layer that
/// was once its equal, wherever it stands there and whether or not its scale is in force.
[[nodiscard]] VX_API void *vx_layer_classes_find_scale_prm_ptr(Ivx_layer *layer, Ivx_layer *like,
                                                               unsigned index);
/// Place of the class that is row `row` of the layer's manager `manager`; -1 when there is none.
[[nodiscard]] VX_API int vx_layer_classes_find(Ivx_layer *layer, unsigned manager, unsigned row);
