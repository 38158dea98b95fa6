#pragma once

#include "platform/base/color.h"
#include "platform/base/geometry.h"

#include <QIcon>
#include <QString>

#include <vector>

struct Ivx_layer;

/// What the window shows about a layer. All accept null and then give neutral values.

[[nodiscard]] QString vx_layer_name(Ivx_layer *layer);
/// File, kind and number of features, for the hint over the layer's line.
[[nodiscard]] QString vx_layer_tip(Ivx_layer *layer);
/// What a person should know about a layer before looking for it on the map.
enum Tvx_layer_mark
{
    c_mark_none,
    c_mark_undrawn, ///< of a kind that the map lists without drawing it
    c_mark_damaged, ///< not all of its data can be read
    c_mark_missing, ///< its data cannot be opened
};
/// A sample of how the layer is drawn, in the size of a list icon, with the mark in its corner.
[[nodiscard]] QIcon vx_layer_symbol(Ivx_layer *layer, Tvx_layer_mark mark = c_mark_none);
/// The same for one style: a `stl_prm` of points, lines or areas; null gives an empty frame.
[[nodiscard]] QIcon vx_style_symbol(void *stl_prm);
/// The same for colours that go from one into the next; one fills it.
[[nodiscard]] QIcon vx_colors_symbol(std::vector<Tvx_color> const &colors);
/// The sentence for the mark; empty for none.
[[nodiscard]] QString vx_layer_mark_text(Tvx_layer_mark mark);
/// Extent in map units; empty when the layer has nothing that has a place.
[[nodiscard]] Tvx_box_d2 vx_layer_extent(Ivx_layer *layer);
/// False for kinds that the map lists without drawing them.
[[nodiscard]] bool vx_layer_is_drawn(Ivx_layer *layer);
