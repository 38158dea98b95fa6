#include "platform/render/detail/style_painter.h"
#include "platform/render/detail/tangle.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QList>
#include <QtCore/QPointF>
#include <QtCore/QVarLengthArray>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vx::render {
namespace {
using namespace vx::styles;

constexpr double c_max_width_px = 4000;
constexpr double c_thin_px = 1.5;
/// The thinnest line of a device of vectors, whose units are finer than what paper shows.
constexpr double c_hairline_mm = 0.08;
/// Patterns that are finer than this do not show; they are drawn as a full stroke, or not at all.
constexpr double c_min_pattern_px = 1;
constexpr double c_max_elements_per_px = 2;
/// A line of so few points is drawn at once, whatever it does; one of so many never.
constexpr std::size_t c_few_points = 256;
constexpr std::size_t c_many_points = 1U << 14;
/// Round joins take so many times as long as plain ones.
constexpr std::size_t c_round_factor = 8;
constexpr double c_stroked_pixel = 10; ///< nanoseconds

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

double to_px(surface const &s, double mm)
{
    return std::clamp(mm * s.px_per_mm(), -c_max_length_px, c_max_length_px);
}

/// A line is `width` millimetres wide, and at least one pixel or hairline.
QPen plain_pen(surface const &s, Tvx_color color, double width)
{
    double const least = s.is_vector ? std::max(1.0, to_px(s, c_hairline_mm)) : 1.0;
    QPen pen(qt_color(color), std::clamp(to_px(s, width), least, c_max_width_px));
    pen.setCapStyle(Qt::FlatCap);
    // The joins of thin lines do not show, and plain ones are much faster.
    pen.setJoinStyle(pen.widthF() <= c_thin_px ? Qt::BevelJoin : Qt::RoundJoin);
    return pen;
}

bool is_ring(std::span<Tvx_pnt_d2 const> line)
{
    return line.size() > 3 && line.front() == line.back();
}

/// Strokes the line with the painter's pen; a ring gets a join where it closes. `start` is where the line
/// begins along the one that it is a piece of.
void stroke_line(surface const &target, std::span<Tvx_pnt_d2 const> line, double start = 0)
{
    QPainter &painter = *vx_qt_painter(target.painter);
    if (line.size() > c_few_points && !target.is_vector) {
        crossings work(target.clip);
        work.add(line);
        bool const is_round = painter.pen().joinStyle() == Qt::RoundJoin;
        if (line.size() * (is_round ? c_round_factor : 1) > c_many_points || work.are_many()) {
            stroke_in_runs(target, line, start);
            return;
        }
    }
    bool const ring = is_ring(line);
    if (ring)
        line = line.first(line.size() - 1);
    QVarLengthArray<QPointF, 64> points;
    points.reserve(static_cast<qsizetype>(line.size()));
    for (Tvx_pnt_d2 const &p : line)
        points.append(QPointF(p.x, p.y));
    if (ring)
        painter.drawPolygon(points.constData(), static_cast<int>(points.size()));
    else
        painter.drawPolyline(points.constData(), static_cast<int>(points.size()));
}

/// Places along a line, asked for in rising order.
class line_walk
{
public:
    explicit line_walk(std::span<Tvx_pnt_d2 const> line) : f_line(line)
    {
        for (std::size_t i = 1; i < line.size(); ++i)
            f_length += distance(i);
    }
    [[nodiscard]] double length() const { return f_length; }

    struct place
    {
        Tvx_pnt_d2 at;
        double angle; ///< of the direction, degrees counter-clockwise
    };
    [[nodiscard]] place at(double d)
    {
        while (f_segment + 1 < f_line.size() && f_passed + distance(f_segment) < d) {
            f_passed += distance(f_segment);
            ++f_segment;
        }
        Tvx_pnt_d2 const a = f_line[f_segment - 1];
        Tvx_pnt_d2 const b = f_line[f_segment];
        double const own = distance(f_segment);
        double const t = own > 0 ? std::clamp((d - f_passed) / own, 0.0, 1.0) : 0;
        return {{std::lerp(a.x, b.x, t), std::lerp(a.y, b.y, t)},
                std::atan2(a.y - b.y, b.x - a.x) * 180 / std::numbers::pi};
    }
    /// The line from `from` to `to`.
    [[nodiscard]] px_line cut(double from, double to)
    {
        px_line out{at(from).at};
        while (f_segment + 1 < f_line.size() && f_passed + distance(f_segment) < to) {
            f_passed += distance(f_segment);
            out.push_back(f_line[f_segment]);
            ++f_segment;
        }
        out.push_back(at(to).at);
        return out;
    }

private:
    [[nodiscard]] double distance(std::size_t i) const
    {
        return std::hypot(f_line[i].x - f_line[i - 1].x, f_line[i].y - f_line[i - 1].y);
    }
    std::span<Tvx_pnt_d2 const> f_line;
    double f_length = 0;
    double f_passed = 0;
    std::size_t f_segment = 1;
};

// ---- full strokes and strokes with dashes of any lengths
struct stroke
{
    QPen pen;
    /// Of the dashes, which go by the length along the whole line, in pixels; 0 without dashes.
    double period = 0;

    /// `start` is where the piece begins along its line, so that dashes do not move when the view does.
    void draw(surface const &target, std::span<Tvx_pnt_d2 const> piece, double start)
    {
        QPainter &painter = *vx_qt_painter(target.painter);
        if (period > 0)
            pen.setDashOffset(std::fmod(start, period) / pen.widthF());
        painter.setPen(pen);
        stroke_line(target, piece, start);
    }
    [[nodiscard]] double reach() const { return pen.widthF() * 2; }
    [[nodiscard]] double thickness() const { return pen.widthF(); }
    /// Whether what is drawn goes by the length along the line.
    [[nodiscard]] bool needs_lengths() const { return period > 0; }
    /// Qt makes one path of all dashes.
    [[nodiscard]] double calls_per_px() const
    {
        return period > 0 ? static_cast<double>(pen.dashPattern().size()) / period : 0;
    }
};

// ---- strokes by a template
/// What a template draws in one period, with its places in pixels from the period's begin.
struct pattern_elements
{
    struct dash
    {
        double from;
        double to;
    };
    struct mark
    {
        double at;
        char what;
    };
    std::vector<dash> dashes;
    std::vector<mark> marks;
    double period = 0;
    bool full = false; ///< one dash without end

    /// A dash ("1") goes on by `dash_px`, a gap ("0") by `gap_px`. All else stands where the pattern has got
    /// to and takes no room; in a template without dashes and gaps each of them is followed by a gap.
    pattern_elements(std::string_view tplt, double dash_px, double gap_px)
    {
        auto const moves = [](char c) { return c == '0' || c == '1'; };
        bool const marks_only = std::none_of(tplt.begin(), tplt.end(), moves);
        for (char const c : tplt) {
            if (c == '1')
                add_dash(dash_px);
            else if (c != '0')
                add_mark(c);
            if (c == '0' || (marks_only && c != '1'))
                period += gap_px;
        }
        join_ends();
    }

private:
    void add_dash(double length)
    {
        if (!(length > 0))
            return;
        // Dashes without a gap between them are one.
        if (!dashes.empty() && dashes.back().to == period)
            dashes.back().to += length;
        else
            dashes.push_back({period, period + length});
        period += length;
    }
    void add_mark(char what)
    {
        // The same thing twice at one place is drawn once.
        for (auto it = marks.rbegin(); it != marks.rend() && it->at == period; ++it)
            if (it->what == what)
                return;
        marks.push_back({period, what});
    }
    /// The dash at the end of a period goes on in the next one.
    void join_ends()
    {
        if (dashes.empty() || dashes.front().from > 0 || dashes.back().to < period)
            return;
        full = dashes.size() == 1;
        if (full)
            return;
        dashes.back().to += dashes.front().to;
        dashes.erase(dashes.begin());
    }
};

struct pattern
{
    QPen pen; ///< `width` and colour, of dashes and of points
    double mark_px;
    double shift_px; ///< less than a period
    pattern_elements elements;
    point_painter symbol;

    [[nodiscard]] bool too_fine() const
    {
        std::size_t const count = elements.dashes.size() + elements.marks.size();
        return elements.period < c_min_pattern_px ||
               static_cast<double>(count) > elements.period * c_max_elements_per_px;
    }
    [[nodiscard]] double reach() const { return std::max({pen.widthF(), mark_px, symbol.reach()}); }
    [[nodiscard]] double thickness() const { return std::max({pen.widthF(), mark_px, symbol_extent()}); }
    [[nodiscard]] bool needs_lengths() const { return !elements.full || !elements.marks.empty(); }
    [[nodiscard]] double calls_per_px() const
    {
        return too_fine()
                   ? 0
                   : static_cast<double>(elements.dashes.size() + elements.marks.size()) / elements.period;
    }

    /// `start` as for a stroke.
    void draw(surface const &target, std::span<Tvx_pnt_d2 const> piece, double start)
    {
        QPainter &painter = *vx_qt_painter(target.painter);
        painter.setPen(pen);
        bool const fine = too_fine();
        if (elements.full || (fine && !elements.dashes.empty()))
            stroke_line(target, piece);
        if (fine)
            return;
        // The pattern begins `shift` along the line and repeats both ways: a dash may come into the first
        // period from the one before.
        double const first = std::fmod(shift_px - start, elements.period) - 2 * elements.period;
        if (!elements.full)
            draw_dashes(target, piece, first);
        draw_marks(target, piece, first);
    }

private:
    [[nodiscard]] bool has_symbols() const
    {
        return std::ranges::any_of(elements.marks, [](auto const &mark) { return mark.what == '4'; });
    }
    [[nodiscard]] double symbol_extent() const
    {
        if (!has_symbols())
            return 0;
        Tvx_box_d2 const box = symbol.box(0);
        return std::max(box.width(), box.height());
    }
    void draw_dashes(surface const &target, std::span<Tvx_pnt_d2 const> piece, double first) const
    {
        if (elements.dashes.empty())
            return;
        line_walk walk(piece);
        // A period may be longer than many lines: only the elements on this one are looked at.
        auto const &dashes = elements.dashes;
        for (double at = first; at < walk.length(); at += elements.period) {
            auto dash = std::ranges::upper_bound(dashes, -at, {}, &pattern_elements::dash::to);
            for (; dash != dashes.end() && at + dash->from < walk.length(); ++dash) {
                double const from = std::max(at + dash->from, 0.0);
                double const to = std::min(at + dash->to, walk.length());
                if (from >= to)
                    continue;
                if (!go_on(target, cost::c_path))
                    return;
                stroke_line(target, walk.cut(from, to));
            }
        }
    }
    void draw_marks(surface const &target, std::span<Tvx_pnt_d2 const> piece, double first)
    {
        if (elements.marks.empty())
            return;
        QPainter &painter = *vx_qt_painter(target.painter);
        double const step =
            elements.period * thinning(std::max(pen.widthF(), symbol_extent()) / elements.period);
        line_walk walk(piece);
        // Where a ring closes, the mark of its beginning is enough.
        double const last = is_ring(piece) ? std::nextafter(walk.length(), 0.0) : walk.length();
        auto const &marks = elements.marks;
        for (double at = first; at <= last; at += step) {
            auto mark = std::ranges::lower_bound(marks, -at, {}, &pattern_elements::mark::at);
            for (; mark != marks.end() && at + mark->at <= last; ++mark) {
                if (!go_on(target, cost::c_path))
                    return;
                draw_mark(painter, mark->what, walk.at(at + mark->at));
            }
        }
    }
    /// A point ("2") is as large as the stroke is wide. Dashes at 90 ("3"), 45 ("5") and 135 degrees ("6") to
    /// the line are as long as a dash and stand with their middle on it. A symbol ("4") is turned with the
    /// line.
    void draw_mark(QPainter &painter, char what, line_walk::place const &place)
    {
        switch (what) {
        case '2': {
            double const r = pen.widthF() / 2;
            QPainterPath dot;
            dot.addEllipse(QPointF(place.at.x, place.at.y), r, r);
            return painter.fillPath(dot, pen.color());
        }
        case '3':
            return draw_dash(painter, place, 90);
        case '4':
            return symbol.draw(place.at, place.angle);
        case '5':
            return draw_dash(painter, place, 45);
        case '6':
            return draw_dash(painter, place, 135);
        default: // an unknown element draws nothing
            return;
        }
    }
    void draw_dash(QPainter &painter, line_walk::place const &place, double turn) const
    {
        double const a = (place.angle + turn) * std::numbers::pi / 180;
        double const dx = std::cos(a) * mark_px / 2;
        double const dy = -std::sin(a) * mark_px / 2;
        painter.drawLine(QPointF(place.at.x - dx, place.at.y - dy),
                         QPointF(place.at.x + dx, place.at.y + dy));
    }
};

/// A style layer made ready: what it draws, `delta` pixels to the left of the line.
struct stroke_item
{
    double delta = 0;
    std::variant<stroke, pattern> what;

    void draw(surface const &target, std::span<Tvx_pnt_d2 const> piece, double start)
    {
        std::visit([&](auto &w) { w.draw(target, piece, start); }, what);
    }
    [[nodiscard]] double reach() const
    {
        return std::visit([](auto const &w) { return w.reach(); }, what);
    }
    [[nodiscard]] double thickness() const
    {
        return std::visit([](auto const &w) { return w.thickness(); }, what);
    }
    [[nodiscard]] double calls_per_px() const
    {
        return std::visit([](auto const &w) { return w.calls_per_px(); }, what);
    }
    [[nodiscard]] bool needs_lengths() const
    {
        return std::visit([](auto const &w) { return w.needs_lengths(); }, what);
    }
};

pattern make_pattern(surface const &s, pln_tplt_lr const &l)
{
    static cpx_style const empty(style_kind::pnt);
    double const dash = std::max(0.0, to_px(s, l.dash));
    double const gap = std::max(0.0, to_px(s, l.gap));
    cpx_style const *symbol = l.cpx_pnt.find();
    pattern_elements elements(l.tplt, dash, gap);
    double const shift = std::fmod(l.shift * s.px_per_mm(), elements.period);
    return pattern{plain_pen(s, l.color, l.width), dash, std::isfinite(shift) ? shift : 0,
                   std::move(elements), point_painter(s, symbol ? *symbol : empty)};
}

/// A casing is drawn first, `casing_width` wider on both sides and without dashes.
void add_cart(std::vector<stroke_item> &items, surface const &s, pln_cart_lr const &l)
{
    QPen pen = plain_pen(s, l.color, l.width);
    pen.setCapStyle(l.cap == 1 ? Qt::SquareCap : l.cap == 2 ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(l.join == 0 ? Qt::MiterJoin : l.join == 2 ? Qt::BevelJoin : Qt::RoundJoin);
    double const delta = to_px(s, l.delta);
    if (l.casing_width > 0) {
        QPen casing = pen;
        casing.setColor(qt_color(l.casing_color));
        casing.setWidthF(pen.widthF() + 2 * std::min(to_px(s, l.casing_width), c_max_width_px));
        items.push_back({delta, stroke{casing}});
    }
    QList<qreal> dashes;
    double sum = 0;
    for (double const mm : l.dashes) {
        double const px = std::max(0.0, to_px(s, mm));
        dashes.push_back(px / pen.widthF()); // in units of the pen's width
        sum += px;
    }
    if (dashes.size() % 2) {
        sum += dashes.back() * pen.widthF();
        dashes.push_back(dashes.back());
    }
    bool const dashed =
        sum >= c_min_pattern_px && static_cast<double>(dashes.size()) <= sum * c_max_elements_per_px;
    if (dashed)
        pen.setDashPattern(dashes);
    items.push_back({delta, stroke{pen, dashed ? sum : 0}});
}

std::vector<stroke_item> stroke_items(surface const &s, cpx_style const &style)
{
    std::vector<stroke_item> items;
    for (auto const &lr : style.lrs) {
        if (auto const *line = std::get_if<pln_line_lr>(&lr->data))
            items.push_back({to_px(s, line->delta), stroke{plain_pen(s, line->color, line->width)}});
        else if (auto const *tplt = std::get_if<pln_tplt_lr>(&lr->data))
            items.push_back({to_px(s, tplt->delta), make_pattern(s, *tplt)});
        else if (auto const *cart = std::get_if<pln_cart_lr>(&lr->data))
            add_cart(items, s, *cart);
    }
    return items;
}
} // namespace

struct line_painter::impl
{
    surface target;
    std::vector<stroke_item> items;
    double reach = 0;

    explicit impl(surface const &s) : target(s) {}

    void measure()
    {
        constexpr double c_mitre = 4; // what a moved line may stick out at its corners
        for (stroke_item const &it : items)
            reach = std::max(reach, std::abs(it.delta) * c_mitre + it.reach());
    }
    /// The whole line, or the pieces of it that show.
    void draw_item(stroke_item &it, std::span<Tvx_pnt_d2 const> line, double start,
                   Tvx_box_d2 const &box) const
    {
        double const seen = std::min(box.width() + box.height(), target.clip.width() + target.clip.height());
        if (!go_on(target, cost::c_path + static_cast<double>(line.size()) * cost::c_vertex +
                               seen * it.thickness() * c_stroked_pixel))
            return;
        Tvx_box_d2 const clip = grown(target.clip, it.reach() + 2);
        if (holds(clip, box)) {
            it.draw(target, line, start);
            return;
        }
        line_clipper pieces(line, clip, it.needs_lengths(), target.meter);
        while (pieces.next()) {
            line_piece const &piece = pieces.piece();
            Tvx_box_d2 const own = box_of(piece.points);
            if (!go_on(target, cost::c_path + static_cast<double>(piece.points.size()) * cost::c_vertex +
                                   (own.width() + own.height()) * it.thickness() * c_stroked_pixel))
                return;
            if (piece.points.size() > 1)
                it.draw(target, piece.points, start + piece.start);
        }
    }
    void draw(std::span<stroke_item> what, std::span<Tvx_pnt_d2 const> line, double start) const
    {
        if (line.size() < 2)
            return;
        Tvx_box_d2 const box = box_of(line);
        if (!grown(target.clip, reach + 2).intersects(box))
            return;
        vx_qt_painter(target.painter)->setBrush(Qt::NoBrush);
        for (stroke_item &it : what) {
            if (it.delta == 0) {
                draw_item(it, line, start, box);
                continue;
            }
            // Moved before it is cut, so that the pattern stays when the view moves.
            px_line const moved = offset_line(line, it.delta, target.meter);
            if (moved.size() > 1)
                draw_item(it, moved, start, box_of(moved));
        }
    }
};

line_painter::line_painter(surface const &target, bpln_style const &style)
    : f_impl(std::make_unique<impl>(target))
{
    if (!style.use_complex)
        f_impl->items.push_back({0, stroke{plain_pen(target, style.color, style.width)}});
    else if (cpx_style const *cpx = style.complex.find())
        f_impl->items = stroke_items(target, *cpx);
    f_impl->measure();
}

line_painter::line_painter(surface const &target, cpx_style const &style)
    : f_impl(std::make_unique<impl>(target))
{
    f_impl->items = stroke_items(target, style);
    f_impl->measure();
}

line_painter::line_painter(line_painter &&) noexcept = default;
line_painter::~line_painter() = default;

double line_painter::reach() const
{
    return f_impl->reach;
}

double line_painter::thickness() const
{
    double widest = 0;
    for (stroke_item const &it : f_impl->items)
        widest = std::max(widest, it.thickness());
    return widest;
}

bool line_painter::needs_lengths() const
{
    return std::ranges::any_of(f_impl->items, [](stroke_item const &it) { return it.needs_lengths(); });
}

double line_painter::calls_per_px() const
{
    double calls = 0;
    for (stroke_item const &it : f_impl->items)
        calls += it.calls_per_px();
    return calls;
}

bool line_painter::lend_pen(Tvx_box_d2 const &box) const
{
    impl const &d = *f_impl;
    if (d.items.size() != 1 || d.items.front().delta != 0)
        return false;
    auto const *const full = std::get_if<stroke>(&d.items.front().what);
    if (!full || full->needs_lengths() || !holds(grown(d.target.clip, full->reach() + 2), box))
        return false;
    vx_qt_painter(d.target.painter)->setPen(full->pen);
    return true;
}

void line_painter::draw(std::span<Tvx_pnt_d2 const> line, double start)
{
    f_impl->draw(f_impl->items, line, start);
}

unsigned line_painter::level_count() const
{
    return static_cast<unsigned>(f_impl->items.size());
}

void line_painter::draw_level(std::span<Tvx_pnt_d2 const> line, unsigned level)
{
    f_impl->draw(std::span(f_impl->items).subspan(level, 1), line, 0);
}
} // namespace vx::render
