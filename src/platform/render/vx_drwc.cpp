#include "platform/render/vx_drwc.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/render/dc_priv.h"
#include "platform/render/detail/text_path.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtGui/QBrush>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPen>
#include <QtGui/QPolygonF>
#include <QtGui/QRgb>

#include <algorithm>
#include <cmath>
#include <string_view>

using namespace vx::render;

namespace {
/// Side of a check in logical pixels.
constexpr int c_check_px = 4;
constexpr double c_max_outline_px = 10000;

QPainter *painter_of(void *dc)
{
    auto *native = dc ? static_cast<bmp_dc *>(dc)->painter() : nullptr;
    return native ? vx_qt_painter(native) : nullptr;
}

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

QRectF px_rect(void *dc, Tvx_box_d2 const &box)
{
    Tvx_box_d2 const px = static_cast<bmp_dc *>(dc)->to_px(box);
    return {px.min_x, px.min_y, px.width(), px.height()};
}

/// Two checks by two. The density makes the checks of the first colour larger or smaller.
QImage check_tile(Tvx_fill const &fill, int scale)
{
    int const check = c_check_px * scale;
    int const side = 2 * check;
    QRgb const color1 = qPremultiply(qt_color(fill.color1).rgba());
    QRgb const color2 = qPremultiply(qt_color(fill.color2).rgba());
    int const part =
        std::clamp(static_cast<int>(std::lround(check * std::sqrt(fill.density / 50.0))), 1, side);
    QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        auto *row = reinterpret_cast<QRgb *>(tile.scanLine(y));
        for (int x = 0; x < side; ++x) {
            bool const upper = x < part && y < part;
            bool const lower = x >= check && y >= check && x - check < part && y - check < part;
            row[x] = upper || lower ? color1 : color2;
        }
    }
    return tile;
}

std::vector<std::wstring_view> lines_of(wchar_t const *text, int length)
{
    std::wstring_view rest = text ? std::wstring_view(text) : std::wstring_view();
    if (length >= 0)
        rest = rest.substr(0, static_cast<std::size_t>(length));
    std::vector<std::wstring_view> lines;
    for (;;) {
        auto const end = rest.find(L'\n');
        lines.push_back(rest.substr(0, end));
        if (end == std::wstring_view::npos)
            return lines;
        rest.remove_prefix(end + 1);
    }
}

vx_fnt_type const &font_of(Tvx_txt_params const &params)
{
    static vx_fnt_type const fallback;
    return params.font ? *params.font : fallback;
}

Tvx_pnt_d2 extent_of(std::vector<std::wstring_view> const &lines, Tvx_txt_params const &params)
{
    Tvx_pnt_d2 size;
    for (auto const line : lines) {
        text_extent const e = measure_text(line, font_of(params), params.size);
        size.x = std::max(size.x, e.width);
        size.y += e.ascent + e.descent;
    }
    return size;
}
} // namespace

void vx_drwc_fill_pgn_rect(void *dc, Tvx_fill const &fill, Tvx_box_d2 const &box)
{
    QPainter *p = painter_of(dc);
    if (!p || box.is_empty())
        return;
    QRectF const rect = px_rect(dc, box);
    if (fill.density <= 0 || fill.density >= 100) {
        p->fillRect(rect, qt_color(fill.density <= 0 ? fill.color2 : fill.color1));
        return;
    }
    QBrush const brush(check_tile(fill, static_cast<bmp_dc *>(dc)->pixel_scale()));
    p->save();
    p->setBrushOrigin(rect.topLeft());
    p->fillRect(rect, brush);
    p->restore();
}

void vx_drwc_draw_pgn_rect(void *dc, Tvx_color color, Tvx_box_d2 const &box)
{
    QPainter *p = painter_of(dc);
    if (p && !box.is_empty())
        p->fillRect(px_rect(dc, box), qt_color(color));
}

void vx_drwc_draw_pln_rect(void *dc, Tvx_pen const &pen, Tvx_box_d2 const &box)
{
    QPainter *p = painter_of(dc);
    if (!p || box.is_empty() || !(pen.width > 0))
        return;
    QRectF const outer = px_rect(dc, box);
    if (pen.style < 1 || pen.style > 3) {
        // Without a pen, which would cut the corners of thin lines off.
        QRectF const inner = outer.adjusted(pen.width, pen.width, -pen.width, -pen.width);
        QPainterPath border;
        border.addRect(outer);
        if (inner.width() > 0 && inner.height() > 0)
            border.addRect(inner);
        p->fillPath(border, qt_color(pen.color));
        return;
    }
    constexpr Qt::PenStyle styles[] = {Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
    QPen const dashes(qt_color(pen.color), pen.width, styles[pen.style - 1], Qt::FlatCap, Qt::MiterJoin);
    double const half = pen.width / 2;
    p->save();
    p->setPen(dashes);
    p->setBrush(Qt::NoBrush);
    p->drawRect(outer.adjusted(half, half, -half, -half));
    p->restore();
}

void vx_drwc_get_txt_extent_w(Tvx_pnt_d2 *result, void *dc, Tvx_txt_params const &params, wchar_t const *text,
                              int length, int flags)
{
    if (result)
        *result = extent_of(lines_of(text, length), params);
}

void vx_drwc_draw_txt_w(void *dc, Tvx_txt_params const &params, wchar_t const *text, int length, int flags)
{
    QPainter *p = painter_of(dc);
    if (!p)
        return;
    auto const lines = lines_of(text, length);
    Tvx_pnt_d2 const size = extent_of(lines, params);
    double const left = params.align_x < 0 ? -size.x : params.align_x > 0 ? 0 : -size.x / 2;
    double y = params.align_y < 0 ? 0 : params.align_y > 0 ? -size.y : -size.y / 2;
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (auto const line : lines) {
        text_extent const e = measure_text(line, font_of(params), params.size);
        // Short lines are centred in the block.
        double const x = left + (size.x - e.width) / 2;
        for (px_line const &ring : text_outlines(line, font_of(params), params.size)) {
            QPolygonF polygon;
            for (Tvx_pnt_d2 const &v : ring)
                polygon << QPointF(v.x + x, v.y + y + e.ascent);
            path.addPolygon(polygon);
            path.closeSubpath();
        }
        y += e.ascent + e.descent;
    }
    Tvx_pnt_d2 const at = static_cast<bmp_dc *>(dc)->to_px(params.center.x, params.center.y);
    p->save();
    p->translate(at.x, at.y);
    p->rotate(-params.angle);
    if (params.outline.on && params.outline.size > 0) {
        QPen pen(qt_color(params.outline.color),
                 std::min(params.outline.size, c_max_outline_px) * 2); // half of it lies under the letters
        pen.setJoinStyle(Qt::RoundJoin);
        p->strokePath(path, pen);
    }
    p->fillPath(path, qt_color(params.color));
    p->restore();
}
