// Draws samples of 20 by 20 pixels of a plain point, line and polygon style, and the same strokes with a bare
// QPainter on a kept picture, and prints how many times the sample costs. Samples keep nothing between two
// calls, so the price of a device, a renderer and the copy is in.

#include "styles/preview/style_example.h"

#include "platform/basic/vx_options.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/bridge/qt_bridge.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

namespace {
constexpr int c_side = 20;
constexpr int c_draws = 200;
constexpr int c_runs = 400;

/// Microseconds for one drawing.
double cost(std::function<void()> const &draw)
{
    auto const start = std::chrono::steady_clock::now();
    for (int i = 0; i < c_draws; ++i)
        draw();
    std::chrono::duration<double, std::micro> const time = std::chrono::steady_clock::now() - start;
    return time.count() / c_draws;
}

QPolygonF zigzag()
{
    double const k = c_side / 100.0;
    double const low = c_side * 2 / 3.0;
    double const high = c_side / 3.0;
    return QPolygonF({{20 * k, low}, {40 * k, high}, {60 * k, low}, {80 * k, high}});
}

void plain_point(QPainter &p, double size)
{
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(56, 96, 152));
    p.drawEllipse(QPointF(c_side / 2.0, c_side / 2.0), size / 2, size / 2);
}

void plain_line(QPainter &p, double width)
{
    QPen pen(QColor(72, 72, 72), width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    p.setPen(pen);
    p.drawPolyline(zigzag());
}

void plain_polygon(QPainter &p, QBrush const &checks, double width)
{
    p.fillRect(0, 0, c_side, c_side, checks);
    p.fillRect(0, 0, c_side, c_side, QColor(208, 220, 236));
    plain_line(p, width);
}

/// The check pattern that lies under fills.
QBrush checks()
{
    QImage tile(8, 8, QImage::Format_ARGB32_Premultiplied);
    tile.fill(QColor(255, 255, 255, 127));
    QPainter p(&tile);
    p.setCompositionMode(QPainter::CompositionMode_Source);
    p.fillRect(0, 0, 4, 4, QColor(204, 204, 204, 127));
    p.fillRect(4, 4, 4, 4, QColor(204, 204, 204, 127));
    return QBrush(tile);
}

void report(char const *what, std::function<void()> const &sample,
            std::function<void(QPainter &)> const &plain)
{
    QImage kept(c_side, c_side, QImage::Format_RGB32);
    auto const draw_plain = [&] {
        QPainter p(&kept);
        p.fillRect(0, 0, c_side, c_side, Qt::white);
        p.setRenderHint(QPainter::Antialiasing);
        plain(p);
    };
    // The best of many short runs in turn: both meet the same machine.
    double plain_cost = 1e300;
    double sample_cost = 1e300;
    for (int run = 0; run < c_runs; ++run) {
        plain_cost = std::min(plain_cost, cost(draw_plain));
        sample_cost = std::min(sample_cost, cost(sample));
    }
    std::printf("%-8s sample %6.2f us, plain %6.2f us, %.2f times\n", what, sample_cost, plain_cost,
                sample_cost / plain_cost);
}
} // namespace

int main()
{
    vx_qt_ensure_application();
    double const mm = vx_options_get_mm2px_x();
    TBitmap bitmap(c_side, c_side);
    bitmap.SetTransparentColor(clWhite);
    void *pnt = vx_pnt_style_create();
    void *pln = vx_pln_style_create();
    void *pgn = vx_pgn_style_create();
    double const size = vx_bpnt_style_get_size(vx_pnt_style_get_bpnt_style_ptr(pnt)) * mm;
    double const width = std::max(1.0, vx_bpln_style_get_width(vx_pln_style_get_bpln_style_ptr(pln)) * mm);
    QBrush const under = checks();
    report(
        "point", [&] { vx_pnt_style_example_bmp(pnt, &bitmap); }, [&](QPainter &p) { plain_point(p, size); });
    report(
        "line", [&] { vx_pln_style_example_bmp(pln, &bitmap); }, [&](QPainter &p) { plain_line(p, width); });
    report(
        "polygon", [&] { vx_pgn_style_example_bmp(pgn, &bitmap); },
        [&](QPainter &p) { plain_polygon(p, under, width); });
    vx_pgn_style_destroy(pgn);
    vx_pln_style_destroy(pln);
    vx_pnt_style_destroy(pnt);
    return 0;
}
