#pragma once

#include "host/canvas_view.h"

#include <QImage>

class QPainter;
class Tvx_layer_list;
class Tvx_map_canvas;
class Tvx_map_selection;

/// Paints the selected objects over the map, with the selection styles of their layer. Their picture is made
/// anew when the map has come to rest, and is moved and stretched with it until then.
class Tvx_selection_overlay
{
public:
    /// All three must outlive the overlay.
    Tvx_selection_overlay(Tvx_layer_list const &layers, Tvx_map_canvas const &canvas,
                          Tvx_map_selection const &selection)
        : f_layers(layers), f_canvas(canvas), f_selection(selection)
    {
    }
    void paint(QPainter &painter, Tvx_canvas_view const &view);

private:
    void draw(Tvx_canvas_view const &view, double ratio, int row);

    Tvx_layer_list const &f_layers;
    Tvx_map_canvas const &f_canvas;
    Tvx_map_selection const &f_selection;
    QImage f_image;
    Tvx_canvas_view f_view;
    int f_layer_revision = -1;
    int f_selection_revision = -1;
};
