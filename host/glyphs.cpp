#include "host/glyphs.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

static void load_drawings()
{
    Q_INIT_RESOURCE(vx_map_glyphs);
}

namespace {
/// Sizes that menus, buttons and toolbars ask for, up to twice as many pixels.
constexpr int c_sizes[] = {16, 20, 22, 24, 32, 40, 48, 64};

QPixmap draw(QByteArray drawing, QColor color, int size)
{
    QSvgRenderer renderer(drawing.replace("currentColor", color.name().toLatin1()));
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter);
    return pixmap;
}
} // namespace

QIcon vx_host_glyph(char const *name)
{
    load_drawings();
    QFile file(QStringLiteral(":/vx_map/map_%1.svg").arg(QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray const drawing = file.readAll();
    QPalette const palette = QGuiApplication::palette();
    QIcon icon;
    for (int const size : c_sizes) {
        icon.addPixmap(draw(drawing, palette.color(QPalette::Active, QPalette::ButtonText), size),
                       QIcon::Normal);
        icon.addPixmap(draw(drawing, palette.color(QPalette::Disabled, QPalette::ButtonText), size),
                       QIcon::Disabled);
    }
    return icon;
}
