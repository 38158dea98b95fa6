#include "platform/render/detail/layout_canvas.h"

#include "captions/layout_drawing.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/render/detail/layout_text.h"
#include "platform/render/detail/style_painter.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QLineF>
#include <QtCore/QRectF>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace vx::render {
namespace {
constexpr Tvx_color c_grey = vx_clr_init_grey(128);

px_line ring_of(Tvx_box_d2 const &b)
{
    return {
        {b.min_x, b.min_y}, {b.max_x, b.min_y}, {b.max_x, b.max_y}, {b.min_x, b.max_y}, {b.min_x, b.min_y}};
}
} // namespace

layout_canvas::layout_canvas(bmp_dc &dc, Tvx_box_d2 const &page_box, closure<bool()> cancelled)
    : f_cancelled(cancelled), f_meter(closure<bool()>::bind<&layout_canvas::ask>(this)),
      f_target(dc.get_surface()), f_box(page_box)
{
    f_target.meter = &f_meter;
    f_target.px_per_mm_x = f_target.width / page_box.width();
    f_target.px_per_mm_y = f_target.height / page_box.height();
    f_target.origin = to_px(Tvx_pnt_d2{0, 0});
}

bool layout_canvas::is_valid() const
{
    constexpr double c_farthest = 1e9; // pixels
    Tvx_pnt_d2 const &at = f_target.origin;
    return f_target.painter && f_box.width() > 0 && f_box.height() > 0 && std::abs(at.x) < c_farthest &&
           std::abs(at.y) < c_farthest;
}

Tvx_pnt_d2 layout_canvas::to_px(Tvx_pnt_d2 mm) const
{
    return {(mm.x - f_box.min_x) * f_target.px_per_mm_x, (mm.y - f_box.min_y) * f_target.px_per_mm_y};
}

Tvx_box_d2 layout_canvas::to_px(Tvx_box_d2 const &mm) const
{
    Tvx_pnt_d2 const a = to_px(Tvx_pnt_d2{mm.min_x, mm.min_y});
    Tvx_pnt_d2 const b = to_px(Tvx_pnt_d2{mm.max_x, mm.max_y});
    return {a.x, a.y, b.x, b.y};
}

bool layout_canvas::shows(Tvx_box_d2 const &mm, double reach) const
{
    return grown(mm, reach).intersects(f_box);
}

bool layout_canvas::ask()
{
    f_is_cancelled = f_is_cancelled || f_cancelled();
    return f_is_cancelled;
}

bool layout_canvas::is_cancelled()
{
    constexpr double c_line_cost = 1e5; // a line of text, or an element
    return !f_meter.go_on(c_line_cost) || f_is_cancelled;
}

closure<bool()> layout_canvas::question()
{
    return closure<bool()>::bind<&layout_canvas::ask>(this);
}

/// On a grid of pixels, so that edges are sharp.
Tvx_box_d2 layout_canvas::snapped(Tvx_box_d2 const &px) const
{
    if (f_target.is_vector)
        return px;
    return {std::round(px.min_x), std::round(px.min_y), std::round(px.max_x), std::round(px.max_y)};
}

void layout_canvas::fill(styles::pgn_style const &style, Tvx_box_d2 const &mm)
{
    if (!style.pgn_visible)
        return;
    px_line const ring = ring_of(snapped(to_px(mm)));
    fill_painter(f_target, style.bpgn).draw({&ring, 1});
}

void layout_canvas::outline(styles::pgn_style const &style, Tvx_box_d2 const &mm)
{
    Tvx_box_d2 box = snapped(to_px(mm));
    if (style.pln_visible) {
        line_painter line(f_target, style.bpln);
        // A line whose width is an odd number of pixels has its middle in the middle of one.
        if (!f_target.is_vector && std::lround(line.thickness()) % 2 == 1)
            box = {box.min_x + 0.5, box.min_y + 0.5, box.max_x - 0.5, box.max_y - 0.5};
        line.draw(ring_of(box));
    }
    if (style.pnt_visible) {
        point_painter point(f_target, style.bpnt, use_of_painter::few);
        px_line const ring = ring_of(box);
        for (std::size_t i = 0; i + 1 < ring.size(); ++i)
            point.draw(ring[i]);
    }
}

void layout_canvas::draw_missing(Tvx_box_d2 const &mm, std::wstring const &text, bool is_crossed)
{
    constexpr double c_line_mm = 0.2, c_largest_mm = 3.5, c_smallest_mm = 1.5;
    {
        in_millimetres const lengths(*this);
        QPainter &p = *vx_qt_painter(f_target.painter);
        p.setPen(QPen(QColor(c_grey.r, c_grey.g, c_grey.b), c_line_mm));
        p.setBrush(Qt::NoBrush);
        QRectF const box(mm.min_x, mm.min_y, mm.width(), mm.height());
        p.drawRect(box);
        if (is_crossed) {
            p.drawLine(box.topLeft(), box.bottomRight());
            p.drawLine(box.topRight(), box.bottomLeft());
        }
    }
    text_look look;
    look.color = c_grey;
    constexpr double c_margin_mm = 1;
    double const width = mm.width() - 2 * c_margin_mm, height = mm.height() - 2 * c_margin_mm;
    look.size = std::min(c_largest_mm, height / 2);
    if (!(width > 0 && height > 0))
        return;
    // Words are not to be broken; but what cannot be read helps nobody.
    double longest = 0;
    std::wstring_view rest = text;
    while (!rest.empty()) {
        std::size_t const end = std::min(rest.find(L' '), rest.size());
        longest = std::max(longest, text_width(rest.substr(0, end), look));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (longest > width)
        look.size = std::max(look.size * width / longest * 0.99, std::min(look.size, c_smallest_mm));
    auto lines = wrapped(text, look, width);
    auto const room = static_cast<std::size_t>(std::max(1.0, height / line_height(look)));
    if (lines.size() > room) {
        lines.resize(room);
        lines.back() = elided(lines.back() + L" \u2026", look, width);
    }
    write_block(*this, mm, lines, look, 0, 0);
}

in_millimetres::in_millimetres(layout_canvas const &canvas) : f_painter(canvas.target().painter)
{
    QPainter &p = *vx_qt_painter(f_painter);
    p.save();
    Tvx_pnt_d2 const corner = canvas.to_px(Tvx_pnt_d2{0, 0});
    p.translate(corner.x, corner.y);
    p.scale(canvas.px_per_mm_x(), canvas.px_per_mm_y());
}

in_millimetres::~in_millimetres()
{
    vx_qt_painter(f_painter)->restore();
}

std::wstring element_caption(Ivx_layer const *element)
{
    std::wstring text;
    vx_lr2d_get_wcaption(element, Tvx_std_wstring_adapter(text));
    return text;
}

std::wstring element_file(Ivx_layer const *element)
{
    std::wstring text;
    vx_lr2d_get_wfilename(element, Tvx_std_wstring_adapter(text));
    return text;
}

std::wstring missing_text(int caption, std::wstring const &name)
{
    return name.empty() ? vx_res_get_wstr(c_draw_no_name) : vx_res_format_w(caption, name);
}

Ivx_layer *frame_of(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *element)
{
    std::wstring const name = element_file(element);
    Ivx_layer *const frame = vx_layout_find_frame_w(layout, name.c_str());
    if (!frame) {
        canvas.fail();
        canvas.draw_missing(vx_layout_lr2d_get_box(element), missing_text(c_draw_no_frame, name), false);
    }
    return frame;
}
} // namespace vx::render
