#pragma once

#include <QIcon>
#include <QString>

struct Ivx_layer;

/// Whether the objects of the layer can be labelled.
[[nodiscard]] bool vx_layer_can_label(Ivx_layer *layer);
/// Whether the user has said what is written: the layer is listed with its labels then.
[[nodiscard]] bool vx_layer_has_labels(Ivx_layer *layer);
/// The names of the properties that are written.
[[nodiscard]] QString vx_layer_labels_caption(Ivx_layer *layer);
[[nodiscard]] bool vx_layer_labels_visible(Ivx_layer *layer);
void vx_layer_labels_set_visible(Ivx_layer *layer, bool visible);
[[nodiscard]] QIcon vx_layer_labels_symbol();
/// Whether two layers of one kind are labelled alike, by text classes and by text managers.
[[nodiscard]] bool vx_layer_has_labels_of(Ivx_layer *layer, Ivx_layer *like);
void vx_layer_copy_labels(Ivx_layer *layer, Ivx_layer *like);

/// Lets the user say how objects are labelled, at a point of the screen; true when he did. Labels that nobody
/// has asked for before are switched on by it, with a white rim.
[[nodiscard]] bool vx_layer_labels_dialog(Ivx_layer *layer, int x, int y);
