#pragma once

#include "host/layer_drawing.h"

#include "platform/base/owned.h"
#include "platform/render/vx_labels.h"

#include <QImage>

#include <utility>
#include <vector>

class Tvx_layer_list;

/// The picture of the map, drawn layer by layer so that the window can serve the user in between.
///
/// Each layer is drawn once for a view and kept: showing, hiding and reordering layers only puts the kept
/// pictures together again; the labels of all of them are drawn last and lie over all. While a new view is
/// being drawn the picture of the one before stays at hand.
class Tvx_map_picture
{
public:
    /// What a step did: drew a layer and more may be left, was told to stop within one, or left nothing.
    enum step_result
    {
        c_step_more,
        c_step_cancelled,
        c_step_done
    };
    /// Draws one layer; see `vx_layer_draw`, which draws them unless another is set.
    using drawer = closure<Tvx_drawing_result(Ivx_layer *layer, Tvx_canvas_view const &view, QImage &image,
                                              closure<bool()> cancelled)>;

    /// The list must outlive the picture.
    explicit Tvx_map_picture(Tvx_layer_list const &layers) : f_layers(layers) {}

    void set_drawer(drawer draw) { f_drawer = draw; }

    /// What is to be drawn: the view in logical pixels and the number of device pixels in one of them.
    void request(Tvx_canvas_view const &view, double device_pixel_ratio);
    /// The list has changed: what has to be drawn is decided anew.
    void invalidate();

    /// Draws the next layer that has no picture yet, or puts the whole together. `cancelled` is asked now and
    /// then within a layer; true gives up what was drawn of it.
    step_result step(closure<bool()> cancelled = {});
    [[nodiscard]] bool is_complete() const { return f_complete; }
    /// Puts together what there is now. Layers that are still to come are shown from their last view; over it
    /// lies what has been drawn of the one that is in work.
    void compose();

    /// The layer that is being drawn was removed, replaced or hidden meanwhile.
    [[nodiscard]] bool is_work_in_vain() const;

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
    /// False when it was cancelled.
    [[nodiscard]] bool draw(int row, closure<bool()> cancelled);
    /// What labels are made of: the visible layers that have some, by id and revision, the upper first.
    using label_key = std::vector<std::pair<int, int>>;
    [[nodiscard]] label_key labelled_layers() const;
    [[nodiscard]] bool has_current_labels() const;
    /// Draws the labels of all layers, which lie over all of them. False when it was cancelled.
    [[nodiscard]] bool draw_labels(closure<bool()> cancelled);
    void drop_removed();
    void drop_over_budget();

    Tvx_layer_list const &f_layers;
    Tvx_canvas_view f_view;
    double f_ratio = 1;
    bool f_complete = true;
    std::vector<layer_picture> f_pictures;
    layer_picture *f_in_work = nullptr; ///< while a layer is being drawn
    drawer f_drawer;
    /// The labels of the map; null while they are being placed.
    vx::owned<Ivx_labels, &vx_labels_destroy> f_labels{vx_labels_create()};
    label_key f_labelled;
    label_key const *f_labelled_in_work = nullptr;
    layer_picture f_label_picture;
    std::vector<int> f_failed;
    QImage f_image;
    Tvx_canvas_view f_image_view;
};
