#include "host/selection_overlay.h"

#include "host/layer_list.h"
#include "host/map_canvas.h"
#include "host/map_selection.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_options.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_render_layer.h"

#include <QPainter>

#include <cmath>

void Tvx_selection_overlay::paint(QPainter &painter, Tvx_canvas_view const &view)
{
    int const row = f_layers.row_of(f_selection.layer_id());
    if (row < 0 || !f_layers.is_visible(row))
        return;
    double const ratio = painter.device()->devicePixelRatioF();
    bool const is_other = f_selection_revision != f_selection.revision() ||
                          f_layer_revision != f_layers.revision_at(row) ||
                          f_image.devicePixelRatio() != ratio;
    if (is_other || (f_view != view && f_canvas.is_settled()))
        draw(view, ratio, row);
    Tvx_map_picture::paint(painter, f_image, f_view, view);
}

void Tvx_selection_overlay::draw(Tvx_canvas_view const &view, double ratio, int row)
{
    f_selection_revision = f_selection.revision();
    f_layer_revision = f_layers.revision_at(row);
    f_view = view;
    f_image = QImage(int(std::lround(view.width() * ratio)), int(std::lround(view.height() * ratio)),
                     QImage::Format_ARGB32_Premultiplied);
    if (f_image.isNull())
        return;
    f_image.setDevicePixelRatio(ratio);
    f_image.fill(Qt::transparent);
    Tvx_map_view const picture{view.box(), f_image.width(), f_image.height(),
                               vx_options_get_mm2px_x() * ratio, vx_options_get_mm2px_y() * ratio};
    vx::owned<void, &vx_bmp_dc_destroy> const device(vx_bmp_dc_create());
    vx_bmp_dc_set_pixels(device.get(), f_image.bits(), f_image.width(), f_image.height(),
                         int(f_image.bytesPerLine()));
    // Damaged data are told of by the map itself.
    (void)vx_render_layer_selection(f_layers.layer_at(row), picture, device.get(),
                                    make_closure<&Tvx_map_selection::contains>(&f_selection));
}
