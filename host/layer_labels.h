#pragma once

#include <QIcon>
#include <QString>

struct Ivx_layer;

/// Whether the objects of the layer can be labelled.
[[nodiscard]] bool vx_layer_can_label(Ivx_layer *layer);
/// What the user has said is written at the objects, each of them listed below the layer: labels by text
/// classes, and texts by text managers.
[[nodiscard]] unsigned vx_layer_labels_count(Ivx_layer *layer);
/// The names of the properties that are written, or of what else is.
[[nodiscard]] QString vx_layer_labels_caption(Ivx_layer *layer, unsigned index);
[[nodiscard]] bool vx_layer_labels_visible(Ivx_layer *layer, unsigned index);
void vx_layer_labels_set_visible(Ivx_layer *layer, unsigned index, bool visible);
/// Shows or hides in `layer` what is number `index` of `like`, a layer that was once its equal.
void vx_layer_labels_take_visible(Ivx_layer *layer, Ivx_layer *like, unsigned index);
[[nodiscard]] QIcon vx_layer_labels_symbol();
/// Whether two layers of one kind are labelled alike, by text classes and by text managers.
[[nodiscard]] bool vx_layer_has_labels_of(Ivx_layer *layer, Ivx_layer *like);
void vx_layer_copy_labels(Ivx_layer *layer, Ivx_layer *like);

/// Lets the user say how objects are labelled, at a point of the screen; true when he did. Labels that nobody
/// has asked for before are switched on by it, with a white rim.
[[nodiscard]] bool vx_layer_labels_dialog(Ivx_layer *layer, int x, int y);
