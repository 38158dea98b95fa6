#include "platform/basic/vx_dib.h"

#include <QtCore/QByteArray>
#include <QtCore/QRectF>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <algorithm>
#include <cstddef>

// Draws the pictures that `platform/basic` keeps as SVG.

namespace {
bool paint_svg(char const *svg, int length, Ivx_dib *dib)
{
    QSvgRenderer renderer(QByteArray(svg, length));
    if (!renderer.isValid() || vx_dib_get_width(dib) == 0)
        return false;
    QImage image(vx_dib_get_width(dib), vx_dib_get_height(dib), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(image.rect()));
    painter.end();
    image = image.convertToFormat(QImage::Format_RGBA8888);
    for (int row = 0; row < image.height(); ++row)
        std::copy_n(image.constScanLine(row), static_cast<std::size_t>(image.width()) * 4,
                    vx_dib_get_row(dib, row));
    return true;
}

[[maybe_unused]] bool const g_installed = [] {
    vx::res::set_svg_painter(&paint_svg);
    return true;
}();
} // namespace
