#include "platform/render/detail/vector_picture.h"

#include "platform/render/detail/work_meter.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QRect>
#include <QtCore/QRectF>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QRgb>

#include <algorithm>
#include <cmath>

namespace vx::render {
namespace {
/// Of a picture; a larger one is drawn coarser.
constexpr double c_most_pixels = 1.5e8;

/// The part of a picture that shows anything.
QRect inked(QImage const &image)
{
    int left = image.width(), right = -1, top = image.height(), bottom = -1;
    for (int y = 0; y < image.height(); ++y) {
        auto const *const row = reinterpret_cast<QRgb const *>(image.constScanLine(y));
        auto const *const end = row + image.width();
        auto const *const first = std::find_if(row, end, [](QRgb pixel) { return pixel != 0; });
        if (first == end)
            continue;
        auto const *last = end - 1;
        while (*last == 0)
            --last;
        left = std::min(left, static_cast<int>(first - row));
        right = std::max(right, static_cast<int>(last - row));
        top = std::min(top, y);
        bottom = y;
    }
    return {QPoint(left, top), QPoint(right, bottom)};
}
} // namespace

bool draw_as_picture(bool (*draw)(Ivx_layer *, Tvx_map_view const &, surface const &), Ivx_layer *layer,
                     Tvx_map_view const &view, surface const &target)
{
    if (!target.is_vector)
        return draw(layer, view, target);
    double const area = static_cast<double>(view.width) * view.height;
    double const k = std::min(target.picture_scale, std::sqrt(c_most_pixels / area));
    Tvx_map_view own = view;
    own.width = std::max(1, static_cast<int>(std::lround(view.width * k)));
    own.height = std::max(1, static_cast<int>(std::lround(view.height * k)));
    QImage image(own.width, own.height, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return false;
    image.fill(Qt::transparent);
    surface pixels;
    pixels.pixels = image.bits();
    pixels.bytes_per_line = static_cast<int>(image.bytesPerLine());
    pixels.width = own.width;
    pixels.height = own.height;
    pixels.meter = target.meter;
    pixels.clip.add(0, 0);
    pixels.clip.add(own.width, own.height);
    bool const done = draw(layer, own, pixels);
    if (target.meter && target.meter->stopped())
        return false;
    QRect const part = inked(image);
    if (part.isEmpty())
        return done;
    double const x = static_cast<double>(view.width) / own.width;
    double const y = static_cast<double>(view.height) / own.height;
    vx_qt_painter(target.painter)
        ->drawImage(QRectF(part.x() * x, part.y() * y, part.width() * x, part.height() * y), image, part);
    return done;
}
} // namespace vx::render
