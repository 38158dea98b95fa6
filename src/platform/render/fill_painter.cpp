#include "platform/render/detail/style_painter.h"
#include "platform/render/detail/tangle.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QPointF>
#include <QtCore/QVarLengthArray>
#include <QtGui/QBrush>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>
#include <variant>
#include <vector>

namespace vx::render {
namespace {
using namespace vx::styles;

/// Bounds of the work that a pattern with tiny steps can ask for.
constexpr double c_min_hatch_step_px = 1;
constexpr double c_min_spot_step_px = 2;
/// Of the lines of a hatch: calls of the painter for a pixel of the area.
constexpr double c_max_calls_per_px = 0.25;
/// Symbols are put on the grid of pixels. Places on a net are often just between two, and which one is taken
/// may not hang on the last digits: so they all lie this much off.
constexpr double c_between_px = 1.0 / 256;
/// How far from its place a symbol may be drawn that is turned at random, unless it is large itself.
constexpr double c_max_random_reach_px = 250;
/// Nanoseconds that a line takes for a pixel of its length, cut out by an area.
constexpr double c_clipped_pixel = 100;
/// Of the vertices of an area from which on its pattern is drawn on a picture of its own: each line of it
/// would be cut out by all of them.
constexpr std::size_t c_many_vertices = 2000;
/// Areas of no more vertices are left to the painter, whatever they do.
constexpr std::size_t c_few_vertices = 256;
/// So are those that take it no longer, in nanoseconds.
constexpr double c_most_at_once = 8e6;

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

Tvx_color plain_color(QColor const &c)
{
    return vx_clr_init_rgba(c.red(), c.green(), c.blue(), c.alpha());
}

/// The rest of a division that is finite for all numbers.
double wrapped(double v, double period)
{
    double const rest = std::fmod(v, period);
    return std::isfinite(rest) ? rest : 0;
}

/// Parallel lines. The pattern belongs to the surface, not to the area: areas that touch share it.
struct hatch
{
    double step;  ///< `delta`: from line to line
    double angle; ///< of the lines
    double shift; ///< of the first line from the surface's origin, to the right of its direction
    line_painter line;

    void draw(surface const &target, Tvx_box_d2 const &box, double turn)
    {
        // Lines by their distance from the origin along the normal of their direction.
        double const a = (angle + turn) * std::numbers::pi / 180;
        Tvx_pnt_d2 const dir{std::cos(a), -std::sin(a)};
        Tvx_pnt_d2 const normal{-dir.y, dir.x};
        auto const [n0, n1] = extent(box, normal);
        auto const [d0, d1] = extent(box, dir);
        double const reach = std::min(line.reach(), c_max_reach_px);
        double const first = std::fmod(along(target.origin, normal) + shift, step);
        // What goes by the length along a line is fixed to the map too.
        double const start = d0 - reach - along(target.origin, dir);
        for (double i = std::ceil((n0 - reach - first) / step); i * step + first <= n1 + reach; ++i) {
            double const n = i * step + first;
            px_line const ends{{normal.x * n + dir.x * (d0 - reach), normal.y * n + dir.y * (d0 - reach)},
                               {normal.x * n + dir.x * (d1 + reach), normal.y * n + dir.y * (d1 + reach)}};
            if (!go_on(target, cost::c_path + (box.width() + box.height()) * c_clipped_pixel))
                return;
            line.draw(ends, start);
        }
    }

private:
    static double along(Tvx_pnt_d2 at, Tvx_pnt_d2 axis) { return at.x * axis.x + at.y * axis.y; }
    /// Of the box along an axis.
    static std::pair<double, double> extent(Tvx_box_d2 const &box, Tvx_pnt_d2 axis)
    {
        return {std::min(axis.x * box.min_x, axis.x * box.max_x) +
                    std::min(axis.y * box.min_y, axis.y * box.max_y),
                std::max(axis.x * box.min_x, axis.x * box.max_x) +
                    std::max(axis.y * box.min_y, axis.y * box.max_y)};
    }
};

/// A number from 0 to 1 that belongs to a cell of the net and to nothing else, so that a picture repeats.
/// (The finalizer of SplitMix64, Steele and others 2014.)
double cell_random(long long column, long long row, unsigned salt)
{
    std::uint64_t h = static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15u;
    h ^= static_cast<std::uint64_t>(row) * 0xC2B2AE3D27D4EB4Fu + salt * 0x165667B19E3779F9u;
    h = (h ^ h >> 30) * 0xBF58476D1CE4E5B9u;
    h = (h ^ h >> 27) * 0x94D049BB133111EBu;
    h ^= h >> 31;
    return static_cast<double>(h >> 11) / 9007199254740992.0;
}

/// Points on a net that belongs to the surface, as a hatch does.
struct spots
{
    pgn_spot_lr const *layer;
    double dx; ///< steps of the net
    double dy;
    double x0; ///< place of a first point, to the right and down from the surface's origin
    double y0;
    point_painter point;

    void draw(surface const &target, Tvx_box_d2 const &box, double turn)
    {
        Tvx_box_d2 const ink = grown(symbol_box(turn), 1); // points may be put on the grid of pixels
        double const left = target.origin.x + x0 + c_between_px;
        double const top = target.origin.y + y0 + c_between_px;
        long long const first_row = cell(box.min_y - ink.max_y, top, dy) - 1;
        long long const last_row = cell(box.max_y - ink.min_y, top, dy) + 2;
        long long const first_col = cell(box.min_x - ink.max_x, left, dx) - 1;
        long long const last_col = cell(box.max_x - ink.min_x, left, dx) + 2;
        for (long long row = first_row; row <= last_row; ++row) {
            // With spot type 1 every other row is moved by half a step.
            double const moved = layer->spot_type == 1 && (row & 1) ? dx / 2 : 0;
            for (long long col = first_col; col <= last_col; ++col) {
                double x = left + static_cast<double>(col) * dx + moved;
                double y = top + static_cast<double>(row) * dy;
                // A random place is one in the point's own cell, with the place on the net as its middle.
                if (layer->random_x)
                    x += (cell_random(col, row, 1) - 0.5) * dx;
                if (layer->random_y)
                    y += (cell_random(col, row, 2) - 0.5) * dy;
                double const angle = turn + (layer->random_angle ? cell_random(col, row, 3) * 360 : 0);
                if (!go_on(target, cost::c_object))
                    return;
                if (layer->random_angle || shows({x, y}, ink, box))
                    point.draw({x, y}, angle);
            }
        }
    }

private:
    [[nodiscard]] static bool shows(Tvx_pnt_d2 at, Tvx_box_d2 const &ink, Tvx_box_d2 const &box)
    {
        return at.x + ink.max_x >= box.min_x && at.x + ink.min_x <= box.max_x &&
               at.y + ink.max_y >= box.min_y && at.y + ink.min_y <= box.max_y;
    }
    /// Round a point's place, what may be drawn of it.
    [[nodiscard]] Tvx_box_d2 symbol_box(double turn) const
    {
        if (!layer->random_angle)
            return point.box(turn);
        Tvx_box_d2 const own = point.box(0);
        double const large = std::hypot(own.width(), own.height());
        double const reach = std::min(point.reach(), std::max(large, c_max_random_reach_px));
        return {-reach, -reach, reach, reach};
    }
    static long long cell(double at, double origin, double step)
    {
        return static_cast<long long>(std::floor((at - origin) / step));
    }
};

/// Whether the ring is a level rectangle round all that shows: a sample, or a map far inside an area.
bool covers(std::span<Tvx_pnt_d2 const> ring, Tvx_box_d2 const &shown)
{
    std::size_t const corners = ring.size() - (ring.size() > 1 && ring.front() == ring.back() ? 1 : 0);
    if (corners != 4)
        return false;
    for (std::size_t i = 0; i < 4; ++i) {
        Tvx_pnt_d2 const a = ring[i];
        Tvx_pnt_d2 const b = ring[(i + 1) % 4];
        if ((i % 2 == 0) == (ring[0].x == ring[1].x) ? a.x != b.x : a.y != b.y)
            return false;
    }
    return holds(box_of(ring), shown);
}

/// A hatch whose line style has no layers.
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
    cpx_style const *style = l.cpx_pln.find();
    bool const own = style && !style->lrs.empty();
    line_painter line = own ? line_painter(s, *style) : line_painter(s, default_hatch_line());
    double step = std::clamp(std::abs(l.delta) * k, c_min_hatch_step_px, c_max_length_px);
    step *= thinning(line.thickness() / step);
    step *= std::max(1.0, std::ceil(line.calls_per_px() / (step * c_max_calls_per_px)));
    return hatch{step, l.angle, wrapped(l.shift * k, step), std::move(line)};
}

point_painter spot_point(surface const &s, pgn_spot_lr const &l)
{
    static cpx_style const empty(style_kind::pnt);
    cpx_style const *symbol = l.cpx_pnt.find();
    if (l.use_cpx_pnt)
        return point_painter(s, symbol ? *symbol : empty);
    bpnt_style plain; // a disc
    plain.color = l.point_clr;
    plain.size = l.point_size;
    return point_painter(s, plain);
}

spots make_spots(surface const &s, pgn_spot_lr const &l)
{
    point_painter point = spot_point(s, l);
    double dx = std::clamp(std::abs(l.dx) * s.px_per_mm_x, c_min_spot_step_px, c_max_length_px);
    double dy = std::clamp(std::abs(l.dy) * s.px_per_mm_y, c_min_spot_step_px, c_max_length_px);
    Tvx_box_d2 const ink = point.box(0);
    double const thinned = std::ceil(std::sqrt(thinning(ink.width() * ink.height() / (dx * dy))));
    dx *= thinned;
    dy *= thinned;
    return spots{&l,
                 dx,
                 dy,
                 std::clamp(l.x0 * s.px_per_mm_x, -c_max_length_px, c_max_length_px),
                 std::clamp(l.y0 * s.px_per_mm_y, -c_max_length_px, c_max_length_px),
                 std::move(point)};
}

/// What pictures of patterns take in all, in bytes; main thread only.
qsizetype &kept_bytes()
{
    static qsizetype bytes = 0;
    return bytes;
}

/// A pattern over the whole surface, from which areas are filled. That is much less work for many small areas
/// than to draw the pattern in each, cut to its outline.
class pattern_page
{
public:
    pattern_page() = default;
    pattern_page(pattern_page const &) = delete;
    pattern_page(pattern_page &&other) noexcept
        : f_image(std::exchange(other.f_image, {})), f_spent(other.f_spent)
    {
    }
    pattern_page &operator=(pattern_page &&) = delete;
    ~pattern_page() { kept_bytes() -= f_image.sizeInBytes(); }

    /// To be filled with; null until so much was spent on areas of that size that the page is worth it.
    /// `make` makes the pattern for a surface.
    template <class Make>
    [[nodiscard]] QImage const *for_area(surface const &target, Tvx_box_d2 const &area, Make make)
    {
        if (!f_image.isNull())
            return &f_image;
        double const page = double(target.width) * target.height;
        f_spent += c_clip_px + area.width() * area.height();
        qsizetype const bytes = qsizetype(page) * 4;
        if (f_spent < page || kept_bytes() + bytes > c_max_bytes)
            return nullptr;
        f_image = QImage(target.width, target.height, QImage::Format_ARGB32_Premultiplied);
        if (f_image.isNull())
            return nullptr;
        kept_bytes() += f_image.sizeInBytes();
        f_image.fill(Qt::transparent);
        QPainter painter(&f_image);
        painter.setRenderHint(QPainter::Antialiasing);
        surface whole = target;
        whole.painter = vx_native(&painter);
        make(whole).draw(whole, target.clip, 0);
        return &f_image;
    }

private:
    /// What it costs to cut to an outline, in pixels that could be filled meanwhile.
    static constexpr double c_clip_px = 3000;
    static constexpr qsizetype c_max_bytes = qsizetype(192) << 20;

    QImage f_image;
    double f_spent = 0;
};

struct hatch_item
{
    pgn_htch_lr const *layer;
    hatch pattern;
    pattern_page page = {};
};

struct spots_item
{
    pgn_spot_lr const *layer;
    spots pattern;
    pattern_page page = {};
};

using fill_item = std::variant<QColor, hatch_item, spots_item>;
} // namespace

struct fill_painter::impl
{
    surface target;
    std::vector<fill_item> items;

    explicit impl(surface const &s) : target(s)
    {
        target.pixels = nullptr; // patterns are clipped to the area: they go through the painter
    }

    void add(style_lr const &lr)
    {
        if (auto const *fill = std::get_if<pgn_fill_lr>(&lr.data))
            items.emplace_back(qt_color(fill->color));
        else if (auto const *htch = std::get_if<pgn_htch_lr>(&lr.data))
            items.emplace_back(hatch_item{htch, make_hatch(target, *htch)});
        else if (auto const *spot = std::get_if<pgn_spot_lr>(&lr.data))
            items.emplace_back(spots_item{spot, make_spots(target, *spot)});
    }
    [[nodiscard]] bool has_patterns() const
    {
        return std::ranges::any_of(items,
                                   [](auto const &item) { return !std::holds_alternative<QColor>(item); });
    }

    void draw_pattern(fill_item &item, Tvx_box_d2 const &box, double hatch_angle, double spot_angle)
    {
        if (auto *h = std::get_if<hatch_item>(&item))
            h->pattern.draw(target, box, hatch_angle);
        else
            std::get<spots_item>(item).pattern.draw(target, box, spot_angle);
    }
    /// What the area can be filled from in one go; null if there is nothing.
    QImage const *pattern_picture(fill_item &item, Tvx_box_d2 const &box, double hatch_angle,
                                  double spot_angle)
    {
        if (target.is_vector)
            return nullptr;
        if (auto *h = std::get_if<hatch_item>(&item))
            return hatch_angle != 0 ? nullptr : h->page.for_area(target, box, [h](surface const &whole) {
                return make_hatch(whole, *h->layer);
            });
        auto &s = std::get<spots_item>(item);
        return spot_angle != 0 ? nullptr : s.page.for_area(target, box, [&s](surface const &whole) {
            return make_spots(whole, *s.layer);
        });
    }
    /// The pattern on a picture of its own, of which the area can be cut out.
    QImage pattern_of(fill_item &item, QRect const &where, Tvx_box_d2 const &box, double hatch_angle,
                      double spot_angle)
    {
        if (QImage const *page = pattern_picture(item, box, hatch_angle, spot_angle))
            return page->copy(where);
        QImage picture(where.size(), QImage::Format_ARGB32_Premultiplied);
        if (picture.isNull())
            return picture;
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-where.topLeft());
        surface own = target;
        own.painter = vx_native(&painter);
        if (auto const *h = std::get_if<hatch_item>(&item))
            make_hatch(own, *h->layer).draw(own, box, hatch_angle);
        else
            make_spots(own, *std::get<spots_item>(item).layer).draw(own, box, spot_angle);
        return picture;
    }
    /// By its cover: what the painter would do in one long call.
    void draw_large(px_rings rings, Tvx_box_d2 const &box, crossings const &work, double hatch_angle,
                    double spot_angle)
    {
        area_cover const area(target, rings, box, work);
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (!go_on(target, box.width() * box.height() * cost::c_pixel))
                return;
            if (auto const *color = std::get_if<QColor>(&items[i])) {
                area.fill(target, plain_color(*color));
                continue;
            }
            QImage picture = pattern_of(items[i], QRect(area.left(), area.top(), area.width(), area.height()),
                                        box, hatch_angle, spot_angle);
            if (picture.isNull())
                return;
            area.lay(target, picture.bits(), static_cast<int>(picture.bytesPerLine()));
        }
    }
};

fill_painter::fill_painter(surface const &target, bpgn_style const &style)
    : f_impl(std::make_unique<impl>(target))
{
    if (!style.use_complex)
        f_impl->items.emplace_back(qt_color(style.color));
    else if (cpx_style const *cpx = style.complex.find())
        for (auto const &lr : cpx->lrs)
            f_impl->add(*lr);
}

fill_painter::fill_painter(fill_painter &&) noexcept = default;
fill_painter::~fill_painter() = default;

bool fill_painter::draw_with(line_painter const &outline, std::span<px_line const> rings)
{
    impl const &d = *f_impl;
    auto const *const color = d.items.size() == 1 ? std::get_if<QColor>(&d.items.front()) : nullptr;
    if (!color || rings.size() != 1)
        return false;
    std::span<Tvx_pnt_d2 const> ring = rings.front();
    // The painter closes it; the line is not a ring with fewer vertices.
    if (ring.size() > 1 && ring.front() == ring.back())
        ring = ring.first(ring.size() - 1);
    constexpr std::size_t c_most = 500; // a longer one may cross itself too often for the painter
    Tvx_box_d2 const box = box_of(ring);
    if (ring.size() < 3 || ring.size() > c_most || !holds(grown(d.target.clip, 2), box) ||
        !outline.lend_pen(box))
        return false;
    if (!go_on(d.target, 2 * (cost::c_path + static_cast<double>(ring.size()) * cost::c_vertex) +
                             box.width() * box.height() * cost::c_pixel))
        return true;
    QVarLengthArray<QPointF, 64> points;
    points.reserve(static_cast<qsizetype>(ring.size()));
    for (Tvx_pnt_d2 const &p : ring)
        points.append(QPointF(p.x, p.y));
    QPainter &painter = *vx_qt_painter(d.target.painter);
    painter.setBrush(*color);
    painter.drawPolygon(points.constData(), static_cast<int>(points.size()), Qt::OddEvenFill);
    return true;
}

void fill_painter::draw(std::span<px_line const> rings, double hatch_angle, double spot_angle)
{
    impl &d = *f_impl;
    Tvx_box_d2 const clip = grown(d.target.clip, 2);
    std::vector<px_line> clipped; // of rings that do not lie in the clip
    QVarLengthArray<std::span<Tvx_pnt_d2 const>, 8> shown;
    Tvx_box_d2 box;
    std::size_t vertices = 0;
    for (px_line const &ring : rings) {
        if (!go_on(d.target, static_cast<double>(ring.size()) * cost::c_vertex))
            return;
        Tvx_box_d2 ring_box = box_of(ring);
        if (!clip.intersects(ring_box))
            continue;
        std::span<Tvx_pnt_d2 const> points = ring;
        if (!holds(clip, ring_box)) {
            points = clipped.emplace_back(clip_ring(ring, clip, d.target.meter));
            ring_box = box_of(points);
        }
        if (points.size() < 3)
            continue;
        shown.append(points);
        box.add(ring_box);
        vertices += points.size();
    }
    if (shown.isEmpty())
        return;
    // A painter of vectors only writes down what it is given.
    if (vertices > c_few_vertices && !d.target.is_vector) {
        crossings work(clip);
        for (auto const &points : shown)
            work.add(points);
        if (!go_on(d.target, static_cast<double>(vertices) * cost::c_vertex / 4))
            return;
        if (work.cost() > c_most_at_once || (vertices > c_many_vertices && d.has_patterns()))
            return d.draw_large({shown.data(), std::size_t(shown.size())}, box, work, hatch_angle,
                                spot_angle);
    }
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (auto const &points : shown) {
        path.moveTo(points[0].x, points[0].y);
        for (std::size_t i = 1; i < points.size(); ++i)
            path.lineTo(points[i].x, points[i].y);
        path.closeSubpath();
    }
    QPainter &painter = *vx_qt_painter(d.target.painter);
    double const ahead = cost::c_path + static_cast<double>(path.elementCount()) * cost::c_vertex +
                         box.width() * box.height() * cost::c_pixel;
    bool const covering = shown.size() == 1 && covers(shown.front(), d.target.clip);
    for (auto &it : d.items) {
        if (!go_on(d.target, ahead))
            return;
        if (auto const *color = std::get_if<QColor>(&it)) {
            painter.fillPath(path, *color);
            continue;
        }
        if (covering) {
            d.draw_pattern(it, d.target.clip, hatch_angle, spot_angle);
            continue;
        }
        if (QImage const *picture = d.pattern_picture(it, box, hatch_angle, spot_angle)) {
            painter.fillPath(path, QBrush(*picture));
            continue;
        }
        painter.save();
        painter.setClipPath(path, Qt::IntersectClip);
        d.draw_pattern(it, box, hatch_angle, spot_angle);
        painter.restore();
    }
}
} // namespace vx::render
