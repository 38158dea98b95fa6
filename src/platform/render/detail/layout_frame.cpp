#include "captions/layout_drawing.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/render/detail/layout_canvas.h"
#include "platform/render/vx_labels.h"
#include "platform/render/vx_render_layer.h"
#include "platform/styles/detail/style_model.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QRectF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace vx::render {
namespace {
/// A frame on the grid of pixels: the view of all of it, where it lies, and what of it the device shows.
struct frame_window
{
    Tvx_map_view whole;
    int left = 0;
    int top = 0;
    Tvx_map_view shown;
    int shown_left = 0;
    int shown_top = 0;

    /// Of what lies so far from the corner of the frame.
    [[nodiscard]] Tvx_map_view part(int x, int y, int width, int height) const
    {
        double const step_x = whole.world.width() / whole.width, step_y = whole.world.height() / whole.height;
        Tvx_map_view view = whole;
        view.width = width;
        view.height = height;
        view.world = {};
        view.world.min_x = whole.world.min_x + x * step_x;
        view.world.max_x = view.world.min_x + width * step_x;
        view.world.max_y = whole.world.max_y - y * step_y;
        view.world.min_y = view.world.max_y - height * step_y;
        return view;
    }
};

std::optional<frame_window> window_of(layout_canvas const &canvas, Ivx_layer *frame)
{
    constexpr double c_farthest = 1e9;
    Tvx_box_d2 const px = canvas.to_px(vx_layout_lr2d_get_box(frame));
    Tvx_box_d2 const world = vx_layout_scene_frame_lr2d_get_world(frame);
    for (double const at : {px.min_x, px.min_y, px.max_x, px.max_y})
        if (!(std::abs(at) < c_farthest))
            return {};
    frame_window w;
    auto const whole = [](double at) { return static_cast<int>(std::lround(at)); };
    w.left = whole(px.min_x);
    w.top = whole(px.min_y);
    w.whole.width = whole(px.max_x) - w.left;
    w.whole.height = whole(px.max_y) - w.top;
    w.whole.mm2px_x = canvas.px_per_mm_x();
    w.whole.mm2px_y = canvas.px_per_mm_y();
    // The map keeps its exact place and scale; the edges of the frame move to the grid.
    double const step_x = world.width() / px.width(), step_y = world.height() / px.height();
    w.whole.world.min_x = world.min_x + (w.left - px.min_x) * step_x;
    w.whole.world.max_x = w.whole.world.min_x + w.whole.width * step_x;
    w.whole.world.max_y = world.max_y - (w.top - px.min_y) * step_y;
    w.whole.world.min_y = w.whole.world.max_y - w.whole.height * step_y;
    surface const &target = canvas.target();
    w.shown_left = std::max(w.left, 0);
    w.shown_top = std::max(w.top, 0);
    int const width = std::min(w.left + w.whole.width, target.width) - w.shown_left;
    int const height = std::min(w.top + w.whole.height, target.height) - w.shown_top;
    if (width <= 0 || height <= 0 || !w.whole.is_valid())
        return {};
    w.shown = w.part(w.shown_left - w.left, w.shown_top - w.top, width, height);
    return w;
}

/// The canvas' painter, moved to a corner and cut to a frame, as a device of its own.
class painter_part
{
public:
    painter_part(surface const &target, frame_window const &w, int left, int top, Tvx_map_view const &view)
        : f_painter(*vx_qt_painter(target.painter))
    {
        f_painter.save();
        f_painter.setClipRect(QRectF(w.shown_left, w.shown_top, w.shown.width, w.shown.height),
                              Qt::IntersectClip);
        f_painter.translate(left, top);
        f_dc.lend_painter(target.painter, view.width, view.height,
                          target.is_vector ? target.picture_scale : 0);
    }
    painter_part(painter_part const &) = delete;
    painter_part &operator=(painter_part const &) = delete;
    ~painter_part() { f_painter.restore(); }
    [[nodiscard]] void *dc() { return &f_dc; }

private:
    QPainter &f_painter;
    bmp_dc f_dc;
};

void draw_layers(layout_canvas &canvas, Ivx_scn_2d *scene, Tvx_map_view const &view, void *dc)
{
    for (int i = 0; i < vx_scn_2d_get_count(scene); ++i) {
        bool const done = vx_render_layer(vx_scn_2d_get_layer(scene, i), view, dc, canvas.question());
        if (canvas.is_cancelled())
            return;
        if (!done)
            canvas.fail();
    }
}

void draw_labels(layout_canvas &canvas, Ivx_scn_2d *scene, frame_window const &w, double scale)
{
    std::vector<Tvx_labelled_layer> layers;
    for (int i = vx_scn_2d_get_count(scene) - 1; i >= 0; --i)
        if (Ivx_layer *const layer = vx_scn_2d_get_layer(scene, i);
            vx_lr2d_get_visible(layer) && vx_labels_has_any(layer))
            layers.push_back({layer, 0});
    if (layers.empty())
        return;
    vx::owned<Ivx_labels, &vx_labels_destroy> const labels(vx_labels_create());
    // All of the frame is looked at, whatever shows of it: its edge alone decides what is left out.
    bool done = vx_labels_place(labels.get(), layers.data(), static_cast<unsigned>(layers.size()), w.whole,
                                scale, canvas.question());
    if (canvas.is_cancelled())
        return;
    painter_part part(canvas.target(), w, w.left, w.top, w.whole);
    done = vx_labels_draw(labels.get(), w.whole, part.dc(), canvas.question()) && done;
    if (!done)
        canvas.fail();
}
} // namespace

void draw_layout_frame(layout_canvas &canvas, Ivx_layer *frame)
{
    auto const &style = *static_cast<styles::pgn_style const *>(vx_layout_lr2d_get_pgn_style_ptr(frame));
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(frame);
    canvas.fill(style, box);
    if (Ivx_scn_2d *const scene = vx_layout_scene_frame_lr2d_get_scene(frame)) {
        if (auto const w = window_of(canvas, frame)) {
            surface const &target = canvas.target();
            if (target.pixels) {
                // The window's own pixels, which cut the map to the frame.
                bmp_dc dc;
                dc.lend(target.pixels + static_cast<std::ptrdiff_t>(w->shown_top) * target.bytes_per_line +
                            static_cast<std::ptrdiff_t>(w->shown_left) * 4,
                        w->shown.width, w->shown.height, target.bytes_per_line);
                draw_layers(canvas, scene, w->shown, &dc);
            } else {
                painter_part part(target, *w, w->shown_left, w->shown_top, w->shown);
                draw_layers(canvas, scene, w->shown, part.dc());
            }
            double x = 0, y = 0;
            vx_layout_scene_frame_lr2d_get_scale(frame, &x, &y);
            if (!canvas.is_cancelled())
                draw_labels(canvas, scene, *w, x);
        }
    } else {
        canvas.fail();
        canvas.draw_missing(box, missing_text(c_draw_no_scene, element_file(frame)), false);
    }
    if (!canvas.is_cancelled())
        canvas.outline(style, box);
}
} // namespace vx::render
