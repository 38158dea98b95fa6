#pragma once

#include "host/canvas_view.h"

#include "platform/base/closure.h"

#include <vector>

class QImage;
struct Ivx_layer;

struct Ivx_labels;
struct Tvx_labelled_layer;
struct Tvx_map_unit;

enum Tvx_drawing_result
{
    c_drawing_done,
    c_drawing_cancelled,
    /// The layer's data could not be read to the end; what was read is drawn.
    c_drawing_failed,
};

enum Tvx_reading_result
{
    c_reading_goes_on,
    c_reading_ended,
    /// Not all of the layer's data could be read.
    c_reading_failed,
};

/// Reads what drawing the layer may need and has not read so far, for about so many milliseconds.
[[nodiscard]] Tvx_reading_result vx_layer_read_on(Ivx_layer *layer, int milliseconds);

/// Draws the layer with its own styles over what the image holds: as large as the view times its device pixel
/// ratio, of the premultiplied 32-bit kind. `cancelled` is asked now and then and ends the drawing with true.
/// Layers of kinds that are not drawn leave the image as it is.
[[nodiscard]] Tvx_drawing_result vx_layer_draw(Ivx_layer *layer, Tvx_canvas_view const &view, QImage &image,
                                               closure<bool()> cancelled = {});

/// Draws the labels of the layers, from the top, over what the image holds, at the places that `labels` knows
/// or finds. False when it was cancelled.
[[nodiscard]] bool vx_labels_draw_on(Ivx_labels *labels, std::vector<Tvx_labelled_layer> const &layers,
                                     Tvx_map_unit unit, Tvx_canvas_view const &view, QImage &image,
                                     closure<bool()> cancelled = {});
