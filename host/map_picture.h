#pragma once

#include "host/canvas_view.h"

#include "platform/base/closure.h"

#include <QImage>

#include <vector>

class Tvx_layer_list;

/// The picture of the map, drawn layer by layer so that the window can serve the user in between.
///
/// Each layer is drawn once for a view and kept: showing, hiding and reordering layers only puts the kept
/// pictures together again. While a new view is being drawn the picture of the one before stays at hand.
class Tvx_map_picture
{
public:
    /// The list must outlive the picture.
    explicit Tvx_map_picture(Tvx_layer_list const &layers) : f_layers(layers) {}

    /// What is to be drawn: the view in logical pixels and the number of device pixels in one of them.
    void request(Tvx_canvas_view const &view, double device_pixel_ratio);
    /// The list has changed: what has to be drawn is decided anew.
    void invalidate();

    /// Draws the next layer that has no picture yet, or puts the whole together. True while more is left.
    /// `cancelled` is asked now and then within a layer; true leaves that layer for another time.
    bool step(closure<bool()> cancelled = {});
    [[nodiscard]] bool is_complete() const { return f_complete; }
    /// Puts together what there is now; layers that are still to come are shown from their last view.
    void compose();

    /// The last picture that was put together, null before the first, and the view that it shows.
    [[nodiscard]] QImage const &image() const { return f_image; }
    [[nodiscard]] Tvx_canvas_view const &image_view() const { return f_image_view; }
    [[nodiscard]] Tvx_canvas_view const &requested_view() const { return f_view; }
    /// Layers whose drawing failed since the last call.
    [[nodiscard]] std::vector<int> take_failed_ids();

    /// Draws a kept picture where the map that it shows lies in `view`.
    static void paint(class QPainter &painter, QImage const &image, Tvx_canvas_view const &image_view,
                      Tvx_canvas_view const &view);

private:
    struct layer_picture
    {
        int id = -1;
        int revision = -1;
        Tvx_canvas_view view;
        double ratio = 0;
        /// Null for a layer that lies outside the view, or whose picture was given up to save memory.
        QImage image;
        bool outside = false;
    };
    [[nodiscard]] layer_picture *find(int id);
    [[nodiscard]] bool is_current(layer_picture const &picture, int revision) const;
    void draw(int row, closure<bool()> cancelled);
    void drop_removed();
    void drop_over_budget();

    Tvx_layer_list const &f_layers;
    Tvx_canvas_view f_view;
    double f_ratio = 1;
    bool f_complete = true;
    std::vector<layer_picture> f_pictures;
    std::vector<int> f_failed;
    QImage f_image;
    Tvx_canvas_view f_image_view;
};
