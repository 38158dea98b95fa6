#pragma once

#include "platform/base/color.h"

#include <vector>

class TBitmap;
struct Ivx_layer;

/// The colours of a vector layer's simple style; alpha 0 for what the style does not draw.
struct Tvx_layer_colors
{
    Tvx_color fill;
    Tvx_color line;
    Tvx_color point;
};
/// All clear for other layers.
[[nodiscard]] Tvx_layer_colors vx_layer_get_colors(Ivx_layer *layer);
/// The managers that a layer is drawn by, the layer's own: all of a vector layer, one of a layer of a
/// property file; none of others, nor of a grid that is drawn by channels. Null outside.
[[nodiscard]] unsigned vx_layer_manager_count(Ivx_layer *layer);
[[nodiscard]] void *vx_layer_manager_at(Ivx_layer *layer, unsigned index);
/// Leading colours of the first entries of the scale by which the layer is drawn, `count` at most; none for
/// other layers.
[[nodiscard]] std::vector<Tvx_color> vx_layer_get_class_colors(Ivx_layer *layer, unsigned count);
/// True when the layer's manager draws all objects alike.
[[nodiscard]] bool vx_layer_is_drawn_simple(Ivx_layer *layer);

/// Style parameters of a layer that is drawn so, the layer's own; null for others.
[[nodiscard]] void *vx_layer_simple_style(Ivx_layer *layer);

/// Draws the sample of the simple style of a layer that is drawn so; false for others, and the bitmap is left
/// alone.
[[nodiscard]] bool vx_layer_draw_sample(Ivx_layer *layer, TBitmap *bitmap);
/// The same for one style, a `stl_prm`; false for styles that are none of points, lines, areas or
/// colours.
[[nodiscard]] bool vx_style_draw_sample(void *stl_prm, TBitmap *bitmap);
/// Whether the style dialog can be had for the layer.
[[nodiscard]] bool vx_layer_has_style_dialog(Ivx_layer *layer);
/// Lets the user edit that simple style at a point of the screen; true when it has changed.
[[nodiscard]] bool vx_layer_style_dialog(Ivx_layer *layer, int x, int y);

/// Whether a layer can be drawn like another: vector layers of one geometry, rasters, grids of property files
/// and their slices, other layers of property files of one kind.
[[nodiscard]] bool vx_layer_style_fits(Ivx_layer *layer, Ivx_layer *like);
/// Draws the layer like another from now on: all managers, texts and their order, the colours of a raster
/// or grid. What it shows of its data stays: slice, coordinates, height. False, with the layer as it was,
/// where it does not fit.
[[nodiscard]] bool vx_layer_copy_style(Ivx_layer *layer, Ivx_layer *like);

/// Whether two layers of one kind are drawn alike: all that `vx_layer_copy_style` copies but the texts, and
/// what they show of their data.
[[nodiscard]] bool vx_layer_has_style_of(Ivx_layer *layer, Ivx_layer *like);

/// Gives a newly opened vector layer a simple style of its own: quiet fills with a darker outline, strong
/// lines and points, the next of a set of colours that are told apart easily, also without full colour
/// vision. Other layers are left alone.
void vx_layer_set_default_style(Ivx_layer *layer);
/// Starts the set of colours anew, so that the same files give the same picture.
void vx_layer_restart_default_styles();
