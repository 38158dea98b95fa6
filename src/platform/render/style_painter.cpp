#include "platform/render/style_painter.h"

#include "platform/render/figures.h"
#include "platform/render/point_mask.h"
#include "platform/render/text_path.h"
#include "platform/toolkit/qt_bridge.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

namespace vx::render {
namespace {
using namespace vx::styles;

/// Symbols up to this size are kept as a picture.
constexpr double c_max_stamp_px = 256;
/// Bounds of the work that a pattern with tiny steps can ask for.
constexpr double c_min_hatch_step_px = 1;
constexpr double c_min_spot_step_px = 2;
constexpr double c_min_pattern_px = 1;
/// Outline of figures that have no line width of their own.
constexpr double c_figure_line_mm = 0.25;

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

QPainterPath path_of(std::span<Tvx_pnt_d2 const> line)
{
    QPainterPath path;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (i)
            path.lineTo(line[i].x, line[i].y);
        else
            path.moveTo(line[i].x, line[i].y);
    }
    return path;
}

double pen_px(surface const &s, double width_mm)
{
    return std::max(1.0, width_mm * s.px_per_mm());
}

/// Line or area of a symbol, in pixels round its anchor.
struct item
{
    QPainterPath path;
    QColor color;
    double pen = 0; ///< width of the line; 0 for an area
};

QTransform placement(surface const &s, double dx, double dy, double angle)
{
    QTransform t;
    t.translate(dx * s.px_per_mm_x, -dy * s.px_per_mm_y);
    t.rotate(-angle);
    return t;
}

item shape_item(surface const &s, figure const &shape, double size_x, double size_y, Tvx_color color,
                double line_mm)
{
    item it;
    it.color = qt_color(color);
    double const kx = size_x * s.px_per_mm_x;
    double const ky = size_y * s.px_per_mm_y;
    if (!shape.filled)
        it.pen = std::min(pen_px(s, line_mm), std::max(1.0, std::max(kx, ky) / 2));
    // The outline lies inside the figure's size.
    double const in_x = std::max(0.0, kx - it.pen);
    double const in_y = std::max(0.0, ky - it.pen);
    it.path.setFillRule(Qt::OddEvenFill);
    for (auto const &part : shape.parts) {
        px_line scaled;
        for (Tvx_pnt_d2 const &p : part)
            scaled.push_back({p.x * in_x, -p.y * in_y});
        it.path.addPath(path_of(scaled));
        if (shape.closed)
            it.path.closeSubpath();
    }
    return it;
}

item text_item(surface const &s, std::wstring_view text, vx_fnt_type const &font, double size,
               Tvx_color color)
{
    item it;
    it.color = qt_color(color);
    it.path.setFillRule(Qt::WindingFill);
    for (px_line const &ring : text_outlines(text, font, size * s.px_per_mm())) {
        it.path.addPath(path_of(ring));
        it.path.closeSubpath();
    }
    QRectF const box = it.path.boundingRect();
    it.path.translate(-box.center());
    return it;
}

std::wstring symbol_text(unsigned code)
{
    bool const scalar = code > 0 && code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF);
    return scalar ? std::wstring(1, static_cast<wchar_t>(code)) : std::wstring();
}

void add_items(std::vector<item> &items, surface const &s, cpx_style const &style)
{
    for (auto const &lr : style.lrs) {
        std::optional<item> it;
        QTransform place;
        auto const placed = [&](auto const &l) { place = placement(s, l.dx, l.dy, l.angle); };
        if (auto const *figr = std::get_if<pnt_figr_lr>(&lr->data)) {
            it = shape_item(s, get_figure(figr->figure), figr->size_x, figr->size_y, figr->color,
                            figr->line_width);
            placed(*figr);
        } else if (auto const *geom = std::get_if<pnt_geom_lr>(&lr->data)) {
            figure shape{geom->parts, geom->fill, geom->fill};
            it = shape_item(s, shape, geom->size, geom->size, geom->color, geom->line_width);
            placed(*geom);
        } else if (auto const *symb = std::get_if<pnt_symb_lr>(&lr->data)) {
            it = text_item(s, symbol_text(symb->symbol), symb->font, symb->size, symb->color);
            placed(*symb);
        } else if (auto const *text = std::get_if<pnt_text_lr>(&lr->data)) {
            it = text_item(s, text->text, text->font, text->size, text->color);
            placed(*text);
        }
        if (!it || it->path.isEmpty())
            continue;
        it->path = place.map(it->path);
        items.push_back(std::move(*it));
    }
}

void paint(QPainter &p, item const &it)
{
    if (it.pen > 0) {
        QPen pen(it.color, it.pen);
        pen.setJoinStyle(Qt::MiterJoin);
        p.strokePath(it.path, pen);
    } else {
        p.fillPath(it.path, it.color);
    }
}
} // namespace

// ---- points
struct point_painter::impl
{
    surface const *target = nullptr;
    std::optional<mask_key> plain; ///< of a style without layers, whose items are made when they are needed
    Tvx_color color{};
    std::vector<item> items;
    std::shared_ptr<point_mask const> mask;
    QImage stamp;
    QPoint stamp_at; ///< of the stamp's corner, from the anchor
    double reach = 0;

    void make_items()
    {
        if (!items.empty() || !plain)
            return;
        if (plain->use_figure)
            items.push_back(shape_item(*target, get_figure(plain->figure), plain->size, plain->size, color,
                                       c_figure_line_mm));
        else
            items.push_back(text_item(*target, symbol_text(plain->symbol), plain->font, plain->size, color));
    }

    /// Room for all items, and one pixel round them for the smooth edges.
    [[nodiscard]] QRectF bounds() const
    {
        QRectF all;
        for (item const &it : items) {
            double const by = it.pen / 2 * 1.5 + 1;
            all |= it.path.boundingRect().adjusted(-by, -by, by, by);
        }
        return all;
    }

    void set_reach(QRectF const &b)
    {
        reach = std::hypot(std::max(-b.left(), b.right()), std::max(-b.top(), b.bottom()));
    }

    /// The items drawn on a picture that just holds them; null for none and for large ones.
    [[nodiscard]] QImage picture(QRectF const &room, QPoint &corner) const
    {
        if (room.isEmpty() || room.width() > c_max_stamp_px || room.height() > c_max_stamp_px)
            return {};
        QRect const box = room.toAlignedRect();
        QImage image(box.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        corner = box.topLeft();
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        p.translate(-corner);
        for (item const &it : items)
            paint(p, it);
        return image;
    }

    void finish_plain(bpnt_style const &style)
    {
        plain = mask_key{style.use_figure, style.figure, style.symbol, style.size, style.font};
        color = style.color;
        if (target->pixels && target->masks)
            mask = target->masks->find(*plain);
        if (mask) {
            set_reach(QRectF(mask->left, mask->top, mask->width, mask->height));
            return;
        }
        make_items();
        QRectF const room = bounds();
        set_reach(room);
        if (target->pixels)
            make_mask(room);
        else
            stamp = picture(room, stamp_at);
    }

    void make_mask(QRectF const &room)
    {
        items.front().color = Qt::black; // coverage only
        QPoint corner;
        QImage const image = picture(room, corner);
        items.front().color = qt_color(color);
        if (image.isNull())
            return;
        auto made = std::make_shared<point_mask>();
        made->left = corner.x();
        made->top = corner.y();
        made->width = image.width();
        made->height = image.height();
        made->coverage.reserve(static_cast<std::size_t>(image.width()) *
                               static_cast<std::size_t>(image.height()));
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                made->coverage.push_back(static_cast<std::uint8_t>(qAlpha(image.pixel(x, y))));
        mask = made;
        if (target->masks)
            target->masks->add(*plain, mask);
    }

    void finish_complex(cpx_style const &style)
    {
        add_items(items, *target, style);
        QRectF const room = bounds();
        set_reach(room);
        stamp = picture(room, stamp_at);
    }
};

point_painter::point_painter(surface const &target, bpnt_style const &style)
    : f_impl(std::make_unique<impl>())
{
    f_impl->target = &target;
    if (!style.use_complex) {
        f_impl->finish_plain(style);
    } else if (cpx_style const *cpx = style.complex.find()) {
        f_impl->finish_complex(*cpx);
    }
}

point_painter::point_painter(surface const &target, cpx_style const &style) : f_impl(std::make_unique<impl>())
{
    f_impl->target = &target;
    f_impl->finish_complex(style);
}

point_painter::point_painter(point_painter &&) noexcept = default;
point_painter::~point_painter() = default;

double point_painter::reach() const
{
    return f_impl->reach;
}

point_mask const *point_painter::mask() const
{
    return f_impl->mask.get();
}

Tvx_color point_painter::color() const
{
    return f_impl->color;
}

void point_painter::draw(Tvx_pnt_d2 at, double angle)
{
    impl &d = *f_impl;
    Tvx_box_d2 const &clip = d.target->clip;
    double const by = d.reach;
    if (!(at.x >= clip.min_x - by && at.x <= clip.max_x + by && at.y >= clip.min_y - by &&
          at.y <= clip.max_y + by))
        return;
    QPoint const px(static_cast<int>(std::lround(at.x)), static_cast<int>(std::lround(at.y)));
    if (angle == 0 && d.mask)
        d.mask->blend(*d.target, px.x(), px.y(), d.color);
    else if (angle == 0 && !d.stamp.isNull())
        vx_qt_painter(d.target->painter)->drawImage(px + d.stamp_at, d.stamp);
    else
        draw_items(at, angle);
}

void point_painter::draw_items(Tvx_pnt_d2 at, double angle)
{
    f_impl->make_items();
    QPainter &p = *vx_qt_painter(f_impl->target->painter);
    QTransform const before = p.transform();
    p.translate(at.x, at.y);
    p.rotate(-angle);
    for (item const &it : f_impl->items)
        paint(p, it);
    p.setTransform(before);
}

// ---- lines
namespace {
/// The place at `distance` along the line; `segment` and `passed`, where that segment begins, go forward
/// only.
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

/// A stroke with a pen, `delta` pixels to the left.
struct stroke
{
    QPen pen;
    double delta = 0;
    /// Dashes go by the length along the whole line.
    bool dashed = false;
};

/// A repeating template; see `pln_tplt_lr`.
struct pattern
{
    QPen pen;
    double dash;
    double gap;
    double shift;
    double delta;
    std::string tplt;
    double period;
    point_painter symbol;
};

using stroke_item = std::variant<stroke, pattern>;

QPen plain_pen(surface const &s, Tvx_color color, double width)
{
    QPen pen(qt_color(color), pen_px(s, width));
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

bool moves(char c)
{
    return c == '0' || c == '1';
}

double advance(pattern const &p, char c, bool marks_only)
{
    if (c == '1')
        return p.dash;
    return c == '0' || marks_only ? p.gap : 0;
}

bool is_marks_only(std::string_view tplt)
{
    return std::none_of(tplt.begin(), tplt.end(), moves);
}

pattern make_pattern(surface const &s, pln_tplt_lr const &l)
{
    static cpx_style const empty(style_kind::pnt);
    double const k = s.px_per_mm();
    cpx_style const *symbol = l.cpx_pnt.find();
    pattern p{plain_pen(s, l.color, l.width),
              l.dash * k,
              l.gap * k,
              l.shift * k,
              l.delta * k,
              l.tplt,
              0,
              point_painter(s, symbol ? *symbol : empty)};
    p.dash = std::max(0.0, p.dash);
    p.gap = std::max(0.0, p.gap);
    bool const marks = is_marks_only(p.tplt);
    for (char const c : p.tplt)
        p.period += advance(p, c, marks);
    return p;
}

void add_cart(std::vector<stroke_item> &items, surface const &s, pln_cart_lr const &l)
{
    double const k = s.px_per_mm();
    QPen pen = plain_pen(s, l.color, l.width);
    pen.setCapStyle(l.cap == 1 ? Qt::SquareCap : l.cap == 2 ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(l.join == 0 ? Qt::MiterJoin : l.join == 2 ? Qt::BevelJoin : Qt::RoundJoin);
    if (l.casing_width > 0) {
        QPen casing = pen;
        casing.setColor(qt_color(l.casing_color));
        casing.setWidthF(pen.widthF() + 2 * l.casing_width * k);
        items.push_back(stroke{casing, l.delta * k, false});
    }
    QList<qreal> dashes;
    double sum = 0;
    for (double const d : l.dashes) {
        dashes.push_back(d * k / pen.widthF()); // in units of the pen's width
        sum += d * k;
    }
    if (dashes.size() % 2)
        dashes.push_back(dashes.back());
    bool const dashed = sum >= c_min_pattern_px;
    if (dashed)
        pen.setDashPattern(dashes);
    items.push_back(stroke{pen, l.delta * k, dashed});
}

std::vector<stroke_item> stroke_items(surface const &s, cpx_style const &style)
{
    std::vector<stroke_item> items;
    for (auto const &lr : style.lrs) {
        if (auto const *line = std::get_if<pln_line_lr>(&lr->data))
            items.push_back(
                stroke{plain_pen(s, line->color, line->width), line->delta * s.px_per_mm(), false});
        else if (auto const *tplt = std::get_if<pln_tplt_lr>(&lr->data))
            items.push_back(make_pattern(s, *tplt));
        else if (auto const *cart = std::get_if<pln_cart_lr>(&lr->data))
            add_cart(items, s, *cart);
    }
    return items;
}

double reach_of(stroke_item const &it)
{
    if (auto const *p = std::get_if<pattern>(&it))
        return std::abs(p->delta) + std::max({p->pen.widthF(), p->dash, p->symbol.reach()});
    auto const &s = std::get<stroke>(it);
    return std::abs(s.delta) * 4 + s.pen.widthF() * 2;
}

void draw_mark(QPainter &painter, pattern &p, char c, line_walk::place const &place)
{
    auto const slanted = [&](double turn) {
        double const a = (place.angle + turn) * std::numbers::pi / 180;
        double const dx = std::cos(a) * p.dash / 2;
        double const dy = -std::sin(a) * p.dash / 2;
        painter.drawLine(QPointF(place.at.x - dx, place.at.y - dy),
                         QPointF(place.at.x + dx, place.at.y + dy));
    };
    switch (c) {
    case '2': {
        double const r = p.pen.widthF() / 2;
        QPainterPath dot;
        dot.addEllipse(QPointF(place.at.x, place.at.y), r, r);
        painter.fillPath(dot, p.pen.color());
        return;
    }
    case '3':
        return slanted(90);
    case '4':
        return p.symbol.draw(place.at, place.angle);
    case '5':
        return slanted(45);
    case '6':
        return slanted(135);
    default: // an unknown element draws nothing
        return;
    }
}

/// `start` is where the piece begins along its line, so that the pattern does not move when the view does.
void draw_pattern(QPainter &painter, pattern &p, std::span<Tvx_pnt_d2 const> piece, double start)
{
    if (p.tplt.empty() || p.period < c_min_pattern_px)
        return;
    px_line const line = offset_line(piece, p.delta);
    if (line.size() < 2)
        return;
    line_walk walk(line);
    bool const marks = is_marks_only(p.tplt);
    // Distance along the piece at which the period in force began, at or before its start.
    double at = p.shift - start;
    at -= std::ceil(at / p.period) * p.period;
    painter.setPen(p.pen);
    while (at < walk.length()) {
        for (char const c : p.tplt) {
            double const step = advance(p, c, marks);
            if (c == '1') {
                double const from = std::max(at, 0.0);
                double const to = std::min(at + step, walk.length());
                if (from < to)
                    painter.strokePath(path_of(walk.cut(from, to)), p.pen);
            } else if (c != '0' && at >= 0 && at <= walk.length()) {
                draw_mark(painter, p, c, walk.at(at));
                painter.setPen(p.pen);
            }
            at += step;
        }
    }
}

void draw_stroke(QPainter &painter, stroke const &s, std::span<Tvx_pnt_d2 const> piece, double start)
{
    px_line moved;
    if (s.delta != 0) {
        moved = offset_line(piece, s.delta);
        piece = moved;
    }
    if (piece.size() < 2)
        return;
    QPen pen = s.pen;
    if (s.dashed)
        pen.setDashOffset(start / pen.widthF());
    if (pen.widthF() <= 1.5 && !s.dashed) {
        // Thin lines need no joins: much faster.
        pen.setJoinStyle(Qt::BevelJoin);
    }
    painter.strokePath(path_of(piece), pen);
}
} // namespace

struct line_painter::impl
{
    surface target;
    std::vector<stroke_item> items;
    double reach = 0;

    impl(surface const &s, std::vector<stroke_item> strokes) : target(s), items(std::move(strokes))
    {
        for (auto const &it : items)
            reach = std::max(reach, reach_of(it));
    }
};

line_painter::line_painter(surface const &target, bpln_style const &style)
{
    std::vector<stroke_item> items;
    if (!style.use_complex)
        items.push_back(stroke{plain_pen(target, style.color, style.width), 0, false});
    else if (cpx_style const *cpx = style.complex.find())
        items = stroke_items(target, *cpx);
    f_impl = std::make_unique<impl>(target, std::move(items));
}

line_painter::line_painter(surface const &target, cpx_style const &style)
    : f_impl(std::make_unique<impl>(target, stroke_items(target, style)))
{
}

line_painter::line_painter(line_painter &&) noexcept = default;
line_painter::~line_painter() = default;

double line_painter::reach() const
{
    return f_impl->reach;
}

void line_painter::draw(std::span<Tvx_pnt_d2 const> line)
{
    impl &d = *f_impl;
    if (line.size() < 2)
        return;
    QPainter &painter = *vx_qt_painter(d.target.painter);
    auto const draw_piece = [&](std::span<Tvx_pnt_d2 const> piece, double start) {
        for (auto &it : d.items) {
            if (auto *p = std::get_if<pattern>(&it))
                draw_pattern(painter, *p, piece, start);
            else
                draw_stroke(painter, std::get<stroke>(it), piece, start);
        }
    };
    Tvx_box_d2 const clip = grown(d.target.clip, d.reach + 2);
    Tvx_box_d2 const box = box_of(line);
    if (!clip.intersects(box))
        return;
    if (holds(clip, box)) {
        draw_piece(line, 0);
        return;
    }
    for (line_piece const &piece : clip_line(line, clip))
        draw_piece(piece.points, piece.start);
}

// ---- areas
namespace {
struct hatch
{
    double step;
    double angle;
    double shift;
    line_painter line;
};

struct spots
{
    pgn_spot_lr const *layer;
    double dx;
    double dy;
    double x0;
    double y0;
    point_painter point;
};

using fill_item = std::variant<QColor, hatch, spots>;

bpln_style const &default_hatch_line()
{
    static bpln_style const line = [] {
        bpln_style s;
        s.color = vx_clr_init_rgb(0, 0, 0);
        s.width = 0.1;
        return s;
    }();
    return line;
}

hatch make_hatch(surface const &s, pgn_htch_lr const &l)
{
    double const k = s.px_per_mm();
    cpx_style const *line = l.cpx_pln.find();
    bool const own = line && !line->lrs.empty();
    return hatch{std::max(c_min_hatch_step_px, std::abs(l.delta) * k), l.angle, l.shift * k,
                 own ? line_painter(s, *line) : line_painter(s, default_hatch_line())};
}

spots make_spots(surface const &s, pgn_spot_lr const &l)
{
    static cpx_style const empty(style_kind::pnt);
    bpnt_style plain;
    plain.color = l.point_clr;
    plain.size = l.point_size;
    cpx_style const *symbol = l.cpx_pnt.find();
    return spots{&l,
                 std::max(c_min_spot_step_px, std::abs(l.dx) * s.px_per_mm_x),
                 std::max(c_min_spot_step_px, std::abs(l.dy) * s.px_per_mm_y),
                 l.x0 * s.px_per_mm_x,
                 l.y0 * s.px_per_mm_y,
                 l.use_cpx_pnt ? point_painter(s, symbol ? *symbol : empty) : point_painter(s, plain)};
}

/// A number from 0 to 1 that belongs to a cell of the net and to nothing else, so that a picture repeats.
double cell_random(long long column, long long row, unsigned salt)
{
    std::uint64_t h = static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15u;
    h ^= static_cast<std::uint64_t>(row) * 0xC2B2AE3D27D4EB4Fu + salt * 0x165667B19E3779F9u;
    h ^= h >> 29;
    h *= 0xBF58476D1CE4E5B9u;
    h ^= h >> 32;
    return static_cast<double>(h >> 11) / 9007199254740992.0;
}

void draw_hatch(QPainter &, hatch &h, Tvx_box_d2 const &box, double turn)
{
    // Lines by their distance from the origin along the normal of their direction.
    double const a = (h.angle + turn) * std::numbers::pi / 180;
    Tvx_pnt_d2 const dir{std::cos(a), -std::sin(a)};
    Tvx_pnt_d2 const normal{-dir.y, dir.x};
    auto const span = [&](Tvx_pnt_d2 axis, double &low, double &high) {
        low = std::min(axis.x * box.min_x, axis.x * box.max_x) +
              std::min(axis.y * box.min_y, axis.y * box.max_y);
        high = std::max(axis.x * box.min_x, axis.x * box.max_x) +
               std::max(axis.y * box.min_y, axis.y * box.max_y);
    };
    double n0;
    double n1;
    double d0;
    double d1;
    span(normal, n0, n1);
    span(dir, d0, d1);
    double const reach = h.line.reach();
    for (double i = std::ceil((n0 - reach - h.shift) / h.step); i * h.step + h.shift <= n1 + reach; ++i) {
        double const n = i * h.step + h.shift;
        px_line const line{{normal.x * n + dir.x * (d0 - reach), normal.y * n + dir.y * (d0 - reach)},
                           {normal.x * n + dir.x * (d1 + reach), normal.y * n + dir.y * (d1 + reach)}};
        h.line.draw(line);
    }
}

void draw_spots(spots &s, Tvx_box_d2 const &box, double turn)
{
    double const reach = s.point.reach();
    auto const first = [&](double low, double origin, double step) {
        return static_cast<long long>(std::floor((low - reach - origin) / step)) - 1;
    };
    auto const last = [&](double high, double origin, double step) {
        return static_cast<long long>(std::ceil((high + reach - origin) / step)) + 1;
    };
    for (long long row = first(box.min_y, s.y0, s.dy); row <= last(box.max_y, s.y0, s.dy); ++row) {
        double const moved = s.layer->spot_type == 1 && (row & 1) ? s.dx / 2 : 0;
        for (long long col = first(box.min_x, s.x0, s.dx); col <= last(box.max_x, s.x0, s.dx); ++col) {
            double x = s.x0 + static_cast<double>(col) * s.dx + moved;
            double y = s.y0 + static_cast<double>(row) * s.dy;
            if (s.layer->random_x)
                x += (cell_random(col, row, 1) - 0.5) * s.dx;
            if (s.layer->random_y)
                y += (cell_random(col, row, 2) - 0.5) * s.dy;
            double const angle = turn + (s.layer->random_angle ? cell_random(col, row, 3) * 360 : 0);
            s.point.draw({x, y}, angle);
        }
    }
}
} // namespace

struct fill_painter::impl
{
    surface target;
    std::vector<fill_item> items;
    bool patterns = false;
};

fill_painter::fill_painter(surface const &target, bpgn_style const &style) : f_impl(std::make_unique<impl>())
{
    impl &d = *f_impl;
    d.target = target;
    d.target.pixels = nullptr; // patterns are clipped to the area: they go through the painter
    if (!style.use_complex) {
        d.items.emplace_back(qt_color(style.color));
        return;
    }
    cpx_style const *cpx = style.complex.find();
    if (!cpx)
        return;
    for (auto const &lr : cpx->lrs) {
        if (auto const *fill = std::get_if<pgn_fill_lr>(&lr->data))
            d.items.emplace_back(qt_color(fill->color));
        else if (auto const *htch = std::get_if<pgn_htch_lr>(&lr->data))
            d.items.emplace_back(make_hatch(d.target, *htch));
        else if (auto const *spot = std::get_if<pgn_spot_lr>(&lr->data))
            d.items.emplace_back(make_spots(d.target, *spot));
        d.patterns |= !std::holds_alternative<QColor>(d.items.back());
    }
}

fill_painter::fill_painter(fill_painter &&) noexcept = default;
fill_painter::~fill_painter() = default;

void fill_painter::draw(std::span<px_line const> rings, double hatch_angle, double spot_angle)
{
    impl &d = *f_impl;
    Tvx_box_d2 const clip = grown(d.target.clip, 2);
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    Tvx_box_d2 box;
    for (px_line const &ring : rings) {
        Tvx_box_d2 const ring_box = box_of(ring);
        if (!clip.intersects(ring_box))
            continue;
        px_line clipped;
        std::span<Tvx_pnt_d2 const> points = ring;
        if (!holds(clip, ring_box)) {
            clipped = clip_ring(ring, clip);
            points = clipped;
        }
        if (points.size() < 3)
            continue;
        path.addPath(path_of(points));
        path.closeSubpath();
        box.add(box_of(points));
    }
    if (path.isEmpty())
        return;
    QPainter &painter = *vx_qt_painter(d.target.painter);
    for (auto &it : d.items) {
        if (auto const *color = std::get_if<QColor>(&it)) {
            painter.fillPath(path, *color);
            continue;
        }
        painter.save();
        painter.setClipPath(path, Qt::IntersectClip);
        if (auto *h = std::get_if<hatch>(&it))
            draw_hatch(painter, *h, box, hatch_angle);
        else
            draw_spots(std::get<spots>(it), box, spot_angle);
        painter.restore();
    }
}
} // namespace vx::render
