#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/render/vx_map_view.h"

struct Ivx_layer;

/// Draws a vector layer on a device (`vx_bmp_dc.h`) as its style managers say, through `view`: simple style,
/// value scale, range scale by the manager's mode; a raster by its draw type; or a grid of a property file,
/// or a slice of one, by its colour manager or its channels. Pixels of the latter have the colour of the cell
/// under their middle. The device has the size of the
/// view, and keeps what it shows around the layer's objects. Layers of other kinds and layers switched off
/// draw nothing.
///
/// `cancelled` is asked at the start and then about every 20 milliseconds, inside the pattern of a large area
/// too; true ends the drawing. The result is false if the layer's data cannot be read, or not all of them
/// (the rest is drawn), the view is not valid, or the drawing was cancelled.
///
///     QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
///     vx::owned<void, &vx_bmp_dc_destroy> dc(vx_bmp_dc_create());
///     vx_bmp_dc_set_pixels(dc.get(), image.bits(), w, h, int(image.bytesPerLine()));
///     vx_render_layer(layer, vx_map_view_fit(extent, w, h), dc.get());
VX_API bool vx_render_layer(Ivx_layer *layer, Tvx_map_view const &view, void *dc,
                            closure<bool()> cancelled = {});

/// The objects that stand out: as `vx_render_layer`, but only those that `selected` names, with the selection
/// styles.
VX_API bool vx_render_layer_selection(Ivx_layer *layer, Tvx_map_view const &view, void *dc,
                                      closure<bool(unsigned long long)> selected,
                                      closure<bool()> cancelled = {});
