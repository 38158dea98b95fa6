#pragma once

#include "platform/base/geometry.h"

#include <QIcon>
#include <QString>

struct Ivx_layer;

/// What the window shows about a layer. All accept null and then give neutral values.

[[nodiscard]] QString vx_layer_name(Ivx_layer *layer);
/// File, kind and number of features, for the hint over the layer's line.
[[nodiscard]] QString vx_layer_tip(Ivx_layer *layer);
/// A sample of how the layer is drawn, in the size of a list icon.
[[nodiscard]] QIcon vx_layer_symbol(Ivx_layer *layer);
/// Extent in map units; empty when the layer has nothing that has a place.
[[nodiscard]] Tvx_box_d2 vx_layer_extent(Ivx_layer *layer);
/// False for kinds that the map lists without drawing them.
[[nodiscard]] bool vx_layer_is_drawn(Ivx_layer *layer);
