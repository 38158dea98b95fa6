#include "platform/render/detail/text_path.h"

#include "platform/base/color.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtGui/QFont>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>

#include <algorithm>

namespace vx::render {
namespace {
/// Text is laid out at this size and scaled, so that sizes need not be whole pixels and hinting does not
/// change widths.
constexpr int c_layout_px = 128;
/// Styles of strangers may hold any number.
constexpr double c_max_size_px = 20000;

QFont qt_font(vx_fnt_type const &font)
{
    vx_qt_ensure_application();
    QFont f(QString::fromWCharArray(font.wname()));
    f.setPixelSize(c_layout_px);
    f.setBold(font.bold);
    f.setItalic(font.italic);
    f.setUnderline(font.underline);
    f.setStrikeOut(font.strikeout);
    f.setHintingPreference(QFont::PreferNoHinting);
    return f;
}

QString qt_text(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}
} // namespace

std::vector<px_line> text_outlines(std::wstring_view text, vx_fnt_type const &font, double size_px)
{
    std::vector<px_line> outlines;
    if (text.empty() || !(size_px > 0))
        return outlines;
    QFont const f = qt_font(font);
    QPainterPath path;
    path.addText(0, 0, f, qt_text(text));
    if (font.underline || font.strikeout) {
        // A path of text has letters only.
        QFontMetricsF const metrics(f);
        double const thick = metrics.lineWidth();
        double const width = metrics.horizontalAdvance(qt_text(text));
        if (font.underline)
            path.addRect(0, metrics.underlinePos(), width, thick);
        if (font.strikeout)
            path.addRect(0, -metrics.strikeOutPos(), width, thick);
    }
    double const k = std::min(size_px, c_max_size_px) / c_layout_px;
    for (QPolygonF const &polygon : path.toSubpathPolygons()) {
        px_line &ring = outlines.emplace_back();
        ring.reserve(static_cast<std::size_t>(polygon.size()));
        for (QPointF const &p : polygon)
            ring.push_back({p.x() * k, p.y() * k});
    }
    return outlines;
}

text_extent measure_text(std::wstring_view text, vx_fnt_type const &font, double size_px)
{
    if (!(size_px > 0))
        return {};
    QFontMetricsF const metrics(qt_font(font));
    double const k = std::min(size_px, c_max_size_px) / c_layout_px;
    return {metrics.horizontalAdvance(qt_text(text)) * k, metrics.ascent() * k, metrics.descent() * k};
}

void write_text(vx_native_painter *painter, std::wstring_view text, vx_fnt_type const &font, double size_px,
                Tvx_color color)
{
    if (text.empty() || !(size_px > 0))
        return;
    double const k = std::min(size_px, c_max_size_px) / c_layout_px;
    QPainter &p = *vx_qt_painter(painter);
    p.save();
    p.scale(k, k);
    p.setFont(qt_font(font));
    p.setPen(QColor(color.r, color.g, color.b, color.a));
    p.drawText(QPointF(), qt_text(text));
    p.restore();
}
} // namespace vx::render
