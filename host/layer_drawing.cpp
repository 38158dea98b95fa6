#include "host/layer_drawing.h"

#include "host/layer_info.h"
#include "host/map_unit.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_options.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_labels.h"
#include "platform/render/vx_render_layer.h"

#include <QImage>

namespace {
/// Remembers that the drawing was cancelled: the renderer's answer does not tell it from a failure.
struct cancel_watch
{
    closure<bool()> ask;
    bool cancelled = false;

    bool is_cancelled()
    {
        cancelled = cancelled || ask();
        return cancelled;
    }
};

Tvx_map_view picture_of(Tvx_canvas_view const &view, QImage const &image)
{
    double const ratio = image.devicePixelRatio();
    return {view.box(), image.width(), image.height(), vx_options_get_mm2px_x() * ratio,
            vx_options_get_mm2px_y() * ratio};
}

vx::owned<void, &vx_bmp_dc_destroy> device_on(QImage &image)
{
    vx::owned<void, &vx_bmp_dc_destroy> device(vx_bmp_dc_create());
    vx_bmp_dc_set_pixels(device.get(), image.bits(), image.width(), image.height(),
                         int(image.bytesPerLine()));
    return device;
}
} // namespace

Tvx_reading_result vx_layer_read_on(Ivx_layer *layer, int milliseconds)
{
    vx::owned<Ivx_shape_files, &vx_shape_files_close> const shapes(
        vx_shape_files_begin(vx_shp_lr2d_get_attr_data_ptr(layer)));
    if (!shapes || vx_shape_files_is_whole(shapes.get()))
        return c_reading_ended;
    if (vx_shape_files_read_on(shapes.get(), milliseconds))
        return c_reading_goes_on;
    return vx_shape_files_is_damaged(shapes.get()) ? c_reading_failed : c_reading_ended;
}

Tvx_drawing_result vx_layer_draw(Ivx_layer *layer, Tvx_canvas_view const &view, QImage &image,
                                 closure<bool()> cancelled)
{
    if (!vx_layer_is_drawn(layer))
        return c_drawing_done;
    Tvx_map_view const picture = picture_of(view, image);
    vx::owned<void, &vx_bmp_dc_destroy> const device = device_on(image);
    cancel_watch watch{cancelled};
    if (vx_render_layer(layer, picture, device.get(), make_closure<&cancel_watch::is_cancelled>(&watch)))
        return c_drawing_done;
    return watch.cancelled ? c_drawing_cancelled : c_drawing_failed;
}

bool vx_labels_draw_on(Ivx_labels *labels, std::vector<Tvx_labelled_layer> const &layers, Tvx_map_unit unit,
                       Tvx_canvas_view const &view, QImage &image, closure<bool()> cancelled)
{
    Tvx_map_view const picture = picture_of(view, image);
    cancel_watch watch{cancelled};
    auto const ask = make_closure<&cancel_watch::is_cancelled>(&watch);
    double const scale = vx_map_scale(view, unit, vx_options_get_mm2px_x());
    // What cannot be read leaves its mark when its layer is drawn.
    vx_labels_place(labels, layers.data(), unsigned(layers.size()), picture, scale, ask);
    if (!watch.cancelled)
        vx_labels_draw(labels, picture, device_on(image).get(), ask);
    return !watch.cancelled;
}
