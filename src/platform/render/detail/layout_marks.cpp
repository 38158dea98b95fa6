#include "captions/layout_drawing.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/render/detail/grouped_digits.h"
#include "platform/render/detail/layout_canvas.h"
#include "platform/render/detail/layout_text.h"
#include "platform/render/detail/text_path.h"
#include "platform/render/vx_map_view.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtGui/QPainter>
#include <QtGui/QPen>
#include <QtGui/QPolygonF>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

// What tells direction and size of a map: texts, north arrows, scale bars.

namespace vx::render {
namespace {
constexpr double c_thin_mm = 0.15;

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

Tvx_layout_writing writing_of(Ivx_layer *element)
{
    return vx_layout_lr2d_get_writing(element);
}

std::wstring text_in(Ivx_layer *text)
{
    std::wstring all;
    vx_layout_text_lr2d_get_wtext(text, Tvx_std_wstring_adapter(all));
    return all;
}
} // namespace

// ---- text

void draw_layout_text(layout_canvas &canvas, Ivx_layer *text)
{
    Tvx_layout_writing const writing = writing_of(text);
    write_block(canvas, vx_layout_lr2d_get_box(text), lines_of_text(text_in(text)), look_of(writing),
                writing.align_x, writing.align_y, vx_layout_text_lr2d_get_angle(text));
}

Tvx_pnt_d2 layout_text_size(Ivx_layer *text)
{
    text_look const look = look_of(writing_of(text));
    auto const lines = lines_of_text(text_in(text));
    double width = 0;
    for (std::wstring const &line : lines)
        width = std::max(width, text_width(line, look));
    double const height = line_height(look) * static_cast<double>(lines.size());
    double const a = vx_layout_text_lr2d_get_angle(text) * std::numbers::pi / 180;
    return {std::abs(width * std::cos(a)) + std::abs(height * std::sin(a)),
            std::abs(width * std::sin(a)) + std::abs(height * std::cos(a))};
}

void draw_layout_scale_text(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *text)
{
    Ivx_layer *const frame = frame_of(canvas, layout, text);
    if (!frame)
        return;
    double x = 0, y = 0;
    vx_layout_scene_frame_lr2d_get_scale(frame, &x, &y);
    std::wstring line;
    vx_map_scale_get_text_w(x, Tvx_std_wstring_adapter(line));
    if (x != y) {
        std::wstring other;
        vx_map_scale_get_text_w(y, Tvx_std_wstring_adapter(other));
        line += L" / " + other;
    }
    Tvx_layout_writing const writing = writing_of(text);
    write_block(canvas, vx_layout_lr2d_get_box(text), {line}, look_of(writing), writing.align_x,
                writing.align_y);
}

// ---- north arrow

namespace {
/// Shapes of arrows that are one high and point up, their middle at the origin.
constexpr double c_arrow_widths[] = {0.42, 0.36, 1.0};

void draw_needle(QPainter &p, QColor const &ink, double pen)
{
    QPointF const tip(0, -0.5), left(-0.21, 0.5), notch(0, 0.3), right(0.21, 0.5);
    p.setPen(QPen(ink, pen, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.setBrush(Qt::white);
    p.drawPolygon(QPolygonF{tip, notch, right});
    p.setBrush(ink);
    p.drawPolygon(QPolygonF{tip, left, notch});
}

void draw_plain(QPainter &p, QColor const &ink)
{
    p.setPen(Qt::NoPen);
    p.setBrush(ink);
    p.drawPolygon(QPolygonF{QPointF(0, -0.5), QPointF(0.18, -0.08), QPointF(0.035, -0.16),
                            QPointF(0.035, 0.5), QPointF(-0.035, 0.5), QPointF(-0.035, -0.16),
                            QPointF(-0.18, -0.08)});
}

void draw_rose(QPainter &p, QColor const &ink, double pen)
{
    constexpr double c_inner = 0.11, c_short = 0.3;
    p.setPen(QPen(ink, pen, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
    auto const star = [&](double reach, double first) {
        for (int i = 0; i < 4; ++i) {
            p.save();
            p.rotate(first + 90 * i);
            QPointF const tip(0, -reach), left(-c_inner, -c_inner), right(c_inner, -c_inner);
            p.setBrush(ink);
            p.drawPolygon(QPolygonF{tip, left, QPointF()});
            p.setBrush(Qt::white);
            p.drawPolygon(QPolygonF{tip, right, QPointF()});
            p.restore();
        }
    };
    star(c_short, 45);
    star(0.5, 0);
}
} // namespace

void draw_layout_arrow(layout_canvas &canvas, Ivx_layer *arrow)
{
    constexpr double c_gap = 0.2;         // between letter and tip, of the letter's height
    constexpr double c_most_letter = 0.3; // of the element's height
    constexpr double c_capital = 0.72;    // height of a capital, of that of the letters
    Tvx_layout_north_arrow const what = vx_layout_north_arrow_lr2d_get(arrow);
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(arrow);
    text_look look = look_of(writing_of(arrow));
    std::wstring const letter = what.has_letter ? vx_res_get_wstr(c_draw_north) : std::wstring();
    look.size = std::min({look.size, box.height() * c_most_letter / c_capital, box.width() / c_capital});
    double const above = letter.empty() ? 0 : look.size * (c_capital + c_gap);
    // As large as it can be for the turned arrow with its letter to stay in the box.
    double const a = what.angle * std::numbers::pi / 180;
    double const sine = std::abs(std::sin(a)), cosine = std::abs(std::cos(a));
    double const broad = c_arrow_widths[std::clamp(static_cast<int>(what.kind), 0, 2)];
    double const letter_width = letter.empty() ? 0 : text_width(letter, look);
    auto const fits = [&](double size) {
        double const w = std::max(broad * size, letter_width), h = size + above;
        return w * cosine + h * sine <= box.width() && w * sine + h * cosine <= box.height();
    };
    double low = 0, high = box.width() + box.height();
    for (int i = 0; i < 40; ++i) {
        double const middle = (low + high) / 2;
        (fits(middle) ? low : high) = middle;
    }
    if (!(low > 0))
        return;
    in_millimetres const lengths(canvas);
    QPainter &p = *vx_qt_painter(canvas.target().painter);
    p.translate((box.min_x + box.max_x) / 2, (box.min_y + box.max_y) / 2);
    p.rotate(what.angle);
    p.translate(0, above / 2);
    p.save();
    p.scale(low, low);
    QColor const ink = qt_color(look.color);
    double const pen = std::max(c_thin_mm, low / 100) / low;
    if (what.kind == c_layout_arrow_plain)
        draw_plain(p, ink);
    else if (what.kind == c_layout_arrow_rose)
        draw_rose(p, ink, pen);
    else
        draw_needle(p, ink, pen);
    p.restore();
    if (letter.empty())
        return;
    p.translate(-letter_width / 2, -low / 2 - look.size * c_gap);
    write_text(canvas.target().painter, letter, look.font, look.size, look.color);
}

// ---- scale bar

namespace {
struct bar_unit
{
    int caption;
    double metres;
};
constexpr bar_unit c_metre{c_draw_unit_m, 1};
constexpr bar_unit c_kilometre{c_draw_unit_km, 1000};

bar_unit unit_of(Tvx_layout_unit unit)
{
    switch (unit) {
    case c_layout_unit_km:
        return c_kilometre;
    case c_layout_unit_ft:
        return {c_draw_unit_ft, 0.3048};
    case c_layout_unit_mi:
        return {c_draw_unit_mi, 1609.344};
    case c_layout_unit_nmi:
        return {c_draw_unit_nmi, 1852};
    default:
        return c_metre;
    }
}

/// 1, 2 or 5 times a power of ten, or 25 times one that leaves it whole, not above the number.
double round_below(double number)
{
    constexpr double c_slack = 1 + 1e-9;
    double const power = std::pow(10, std::floor(std::log10(number * c_slack)));
    for (double const digit : {5.0, 2.5, 2.0})
        if (digit * power <= number * c_slack && (digit != 2.5 || power >= 10))
            return digit * power;
    return power;
}

std::wstring number_text(double number)
{
    constexpr int c_digits = 6;
    constexpr double c_grouped = 1e4, c_most = 1e15;
    if (number >= c_grouped && number < c_most && number == std::floor(number))
        return grouped_digits(static_cast<long long>(number));
    char text[32];
    auto const end = std::to_chars(text, std::end(text), number, std::chars_format::general, c_digits);
    return {text, end.ptr};
}

/// A scale bar as it stands on paper.
struct bar_plan
{
    bar_unit unit = c_metre;
    double step = 1;    ///< of a division, in units
    double step_mm = 1; ///< and on paper
    int divisions = 1;
    double left = 0; ///< how far texts stand out of the bar
    double right = 0;

    [[nodiscard]] std::wstring number(int i) const { return number_text(step * i); }
    [[nodiscard]] std::wstring unit_text() const
    {
        return L" " + std::wstring(vx_res_get_wstr(unit.caption));
    }
    [[nodiscard]] double length() const { return step_mm * divisions; }
    [[nodiscard]] double width() const { return left + length() + right; }
    void set_step(double units, double scale, text_look const &look)
    {
        step = units;
        step_mm = units * unit.metres * 1000 / scale;
        left = text_width(number(0), look) / 2;
        right = text_width(number(divisions), look) / 2 + text_width(unit_text(), look);
    }
};

/// The division that the element asks for, or the largest round one with which the bar fits in the width.
bar_plan plan_bar(Tvx_layout_scale_bar const &bar, bar_unit unit, double scale, double width,
                  text_look const &look)
{
    bar_plan plan;
    plan.unit = unit;
    plan.divisions = bar.divisions;
    if (bar.length > 0) {
        plan.set_step(bar.length, scale, look);
        return plan;
    }
    double const most = round_below(width / bar.divisions / 1000 * scale / unit.metres);
    double units = most;
    for (int tries = 0; tries < 12; ++tries, units = round_below(units * 0.99)) {
        plan.set_step(units, scale, look);
        if (plan.width() <= width)
            return plan;
    }
    // The numbers alone are too wide: the bar at least stays in the element.
    plan.set_step(most, scale, look);
    return plan;
}

bar_plan plan_bar(Tvx_layout_scale_bar const &bar, double scale, double width, text_look const &look)
{
    bar_plan plan = plan_bar(bar, unit_of(bar.unit), scale, width, look);
    if (bar.unit != c_layout_unit_automatic || plan.step * plan.divisions < c_kilometre.metres)
        return plan;
    Tvx_layout_scale_bar in_kilometres = bar;
    in_kilometres.length /= c_kilometre.metres;
    return plan_bar(in_kilometres, c_kilometre, scale, width, look);
}

void draw_boxes(QPainter &p, bar_plan const &plan, QColor const &ink, double x, double y, double height,
                int rows)
{
    p.setPen(Qt::NoPen);
    for (int row = 0; row < rows; ++row)
        for (int i = 0; i < plan.divisions; ++i) {
            QRectF const box(x + i * plan.step_mm, y + row * height / rows, plan.step_mm, height / rows);
            p.fillRect(box, (i + row) % 2 == 0 ? ink : QColor(Qt::white));
        }
    // The line lies within, so that the bar is as long as it says.
    double const half = c_thin_mm / 2;
    p.setPen(QPen(ink, c_thin_mm, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(x, y, plan.length(), height).adjusted(half, half, -half, -half));
}

void draw_ticks(QPainter &p, bar_plan const &plan, QColor const &ink, double x, double y, double height)
{
    constexpr double c_line_mm = 0.25;
    double const half = c_line_mm / 2;
    p.fillRect(QRectF(x, y + height - c_line_mm, plan.length(), c_line_mm), ink);
    for (int i = 0; i <= plan.divisions; ++i) {
        // Those at the ends lie within.
        double const at = std::clamp(i * plan.step_mm - half, 0.0, plan.length() - c_line_mm);
        p.fillRect(QRectF(x + at, y, c_line_mm, height), ink);
    }
}
} // namespace

void draw_layout_bar(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *bar)
{
    constexpr double c_gap_mm = 0.6, c_most_mm = 1e5;
    Ivx_layer *const frame = frame_of(canvas, layout, bar);
    if (!frame)
        return;
    double scale = 0, other = 0;
    vx_layout_scene_frame_lr2d_get_scale(frame, &scale, &other);
    Tvx_layout_scale_bar const what = vx_layout_scale_bar_lr2d_get(bar);
    Tvx_layout_writing const writing = writing_of(bar);
    text_look const look = look_of(writing);
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(bar);
    bar_plan const plan = plan_bar(what, scale, box.width(), look);
    if (!(plan.step_mm > 0 && plan.length() <= c_most_mm))
        return canvas.fail();
    double const text_height = line_height(look);
    double const height = text_height + c_gap_mm + what.height;
    double const free_x = box.width() - plan.width(), free_y = box.height() - height;
    double const x = box.min_x + plan.left + free_x * (writing.align_x + 1) / 2.0;
    double const y = box.min_y + free_y * (writing.align_y + 1) / 2.0;
    {
        in_millimetres const lengths(canvas);
        QPainter &p = *vx_qt_painter(canvas.target().painter);
        double const top = y + text_height + c_gap_mm;
        if (what.kind == c_layout_bar_ticks)
            draw_ticks(p, plan, qt_color(look.color), x, top, what.height);
        else
            draw_boxes(p, plan, qt_color(look.color), x, top, what.height,
                       what.kind == c_layout_bar_double ? 2 : 1);
    }
    // Of numbers that would touch every second one, or fewer, are written; the last one always is.
    double const room = text_width(plan.number(plan.divisions) + L" ", look);
    int const every = static_cast<int>(std::clamp(std::ceil(room / plan.step_mm), 1.0, 1e6));
    double const base = y + text_ascent(look);
    for (int i = 0; i <= plan.divisions; ++i) {
        bool const is_last = i == plan.divisions;
        if (!is_last && (i % every != 0 || plan.divisions - i < every))
            continue;
        std::wstring const number = plan.number(i);
        double const left = x + i * plan.step_mm - text_width(number, look) / 2;
        write_line(canvas, {left, base}, is_last ? number + plan.unit_text() : number, look);
    }
}
} // namespace vx::render
