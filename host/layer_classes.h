#pragma once

#include <QIcon>
#include <QString>

#include <optional>

struct Ivx_layer;

/// The classes that a layer is drawn by: the rows of the scales that its managers (host/layer_style.h) have
/// in force, manager after manager, and last the labels and the texts that are written at its objects, each
/// as one class without a style. A raster has those of its palette or of its channels, without ticks. A layer
/// with one manager that draws all objects alike has none; among several managers such a one is a class
/// without a tick. Null and layers without managers have no classes; places outside give neutral values.

[[nodiscard]] unsigned vx_layer_classes_count(Ivx_layer *layer);
/// The row's caption, else what it is about: the value, the rule, the bounds.
[[nodiscard]] QString vx_layer_class_caption(Ivx_layer *layer, unsigned index);
/// Whether objects of the class are drawn; nothing for a class that has no such flag.
[[nodiscard]] std::optional<bool> vx_layer_class_visible(Ivx_layer *layer, unsigned index);
/// False, with nothing changed, for a class without a flag.
bool vx_layer_class_set_visible(Ivx_layer *layer, unsigned index, bool visible);
/// Shows or hides in `layer` the class that is number `index` of `like`, a layer that was once its equal: the
/// entry of the same value, rule or bounds, wherever it stands there and whether or not its scale is in
/// force.
void vx_layer_class_take_visible(Ivx_layer *layer, Ivx_layer *like, unsigned index);
/// How the class is drawn, in the size of a list icon.
[[nodiscard]] QIcon vx_layer_class_symbol(Ivx_layer *layer, unsigned index);
/// The style parameters of the class, the layer's own; null outside, and for the classes of a raster.
[[nodiscard]] void *vx_layer_class_style(Ivx_layer *layer, unsigned index);
/// Place of the class that is row `row` (platform/render/vx_scale_rows.h) of the layer's manager `manager`;
/// -1 when there is none.
[[nodiscard]] int vx_layer_class_of(Ivx_layer *layer, unsigned manager, unsigned row);
