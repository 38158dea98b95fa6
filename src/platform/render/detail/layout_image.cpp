#include "captions/layout_drawing.h"

#include "platform/layers/vx_layout_lr2d.h"
#include "platform/render/detail/layout_canvas.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/winapi/file.h"

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtGui/QImage>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace vx::render {
namespace {
/// Of a file; larger ones are no pictures for a page.
constexpr std::size_t c_most_bytes = std::size_t{512} << 20;
constexpr std::size_t c_most_svg_bytes = std::size_t{16} << 20;
/// Of a picture after unpacking, in pixels along a side and in all.
constexpr int c_most_side = 60'000;
constexpr double c_most_pixels = 2e8;

QRectF place_of(layout_canvas const &canvas, Ivx_layer *image, QSizeF const &size)
{
    Tvx_box_d2 const px = canvas.to_px(vx_layout_lr2d_get_box(image));
    QRectF const all(px.min_x, px.min_y, px.width(), px.height());
    if (!vx_layout_image_lr2d_get_keep_ratio(image) || size.isEmpty())
        return all;
    // In millimetres, since a pixel need not be square.
    double const kx = canvas.px_per_mm_x(), ky = canvas.px_per_mm_y();
    double const k = std::min(all.width() / kx / size.width(), all.height() / ky / size.height());
    QRectF place(0, 0, size.width() * k * kx, size.height() * k * ky);
    place.moveCenter(all.center());
    return place;
}

bool is_svg(std::string const &bytes)
{
    constexpr std::size_t c_head = 4096;
    std::string const head = bytes.substr(0, c_head);
    return head.find("<svg") != std::string::npos &&
           head.find_first_not_of(" \t\r\n\xEF\xBB\xBF") != std::string::npos &&
           head[head.find_first_not_of(" \t\r\n\xEF\xBB\xBF")] == '<';
}

bool draw_svg(layout_canvas &canvas, Ivx_layer *image, QByteArray const &bytes)
{
    if (static_cast<std::size_t>(bytes.size()) > c_most_svg_bytes)
        return false;
    QSvgRenderer renderer(bytes);
    if (!renderer.isValid())
        return false;
    QPainter &painter = *vx_qt_painter(canvas.target().painter);
    painter.save();
    renderer.render(&painter, place_of(canvas, image, renderer.viewBoxF().size()));
    painter.restore();
    return true;
}

bool draw_pixels(layout_canvas &canvas, Ivx_layer *image, QByteArray &bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    auto const formats = {"png", "jpeg", "jpg", "tiff", "tif", "bmp", "gif", "webp"};
    if (std::ranges::none_of(formats, [&](char const *format) { return reader.format() == format; }))
        return false;
    QSize const size = reader.size();
    if (size.isEmpty() || size.width() > c_most_side || size.height() > c_most_side ||
        double(size.width()) * size.height() > c_most_pixels)
        return false;
    bool const is_turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    QRectF const place = place_of(canvas, image, is_turned ? size.transposed() : size);
    // Not more pixels than the device shows, where the format can leave some out.
    double const k = canvas.target().is_vector ? canvas.target().picture_scale : 1;
    QSizeF const shown = is_turned ? place.size().transposed() : place.size();
    if (double const ratio = std::max(shown.width() / size.width(), shown.height() / size.height()) * k;
        ratio < 0.5)
        reader.setScaledSize((QSizeF(size) * std::max(ratio, 1e-3)).toSize().expandedTo(QSize(1, 1)));
    QImage picture = reader.read();
    if (picture.isNull())
        return false;
    // What shrinks is averaged first: the painter would leave pixels out.
    QSize const wanted = (place.size() * k).toSize().expandedTo(QSize(1, 1));
    if (wanted.width() < picture.width() && wanted.height() < picture.height())
        picture = picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter &painter = *vx_qt_painter(canvas.target().painter);
    bool const was_smooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, was_smooth);
    return true;
}
} // namespace

void draw_layout_image(layout_canvas &canvas, Ivx_layer *image)
{
    std::wstring const name = element_file(image);
    vx::fault fault;
    if (auto const bytes = vx_file_read(name, fault, c_most_bytes)) {
        QByteArray data = QByteArray::fromRawData(bytes->data(), static_cast<qsizetype>(bytes->size()));
        if (is_svg(*bytes) ? draw_svg(canvas, image, data) : draw_pixels(canvas, image, data))
            return;
    }
    canvas.fail();
    std::wstring const base = name.substr(name.find_last_of(L"/\\") + 1);
    canvas.draw_missing(vx_layout_lr2d_get_box(image), missing_text(c_draw_no_picture, base), true);
}
} // namespace vx::render
