#include "platform/render/detail/style_painter.h"
#include "platform/toolkit/bridge/qt_graphics.h"

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

/// Bounds of the work that a pattern with tiny steps or huge elements can ask for.
constexpr double c_min_hatch_step_px = 1;
constexpr double c_min_spot_step_px = 2;
constexpr double c_max_reach_px = 1000;

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

/// The rest of a division that is finite for all numbers.
double wrapped(double v, double period)
{
    double const rest = std::fmod(v, period);
    return std::isfinite(rest) ? rest : 0;
}

/// Parallel lines. The pattern belongs to the page, not to the area: areas that touch share it.
struct hatch
{
    double step;  ///< `delta`: from line to line
    double angle; ///< of the lines
    double shift; ///< of the first line from the page's upper left corner, to the right of its direction
    line_painter line;

    void draw(Tvx_box_d2 const &box, double turn)
    {
        // Lines by their distance from the origin along the normal of their direction.
        double const a = (angle + turn) * std::numbers::pi / 180;
        Tvx_pnt_d2 const dir{std::cos(a), -std::sin(a)};
        Tvx_pnt_d2 const normal{-dir.y, dir.x};
        auto const [n0, n1] = extent(box, normal);
        auto const [d0, d1] = extent(box, dir);
        double const reach = std::min(line.reach(), c_max_reach_px);
        for (double i = std::ceil((n0 - reach - shift) / step); i * step + shift <= n1 + reach; ++i) {
            double const n = i * step + shift;
            px_line const ends{{normal.x * n + dir.x * (d0 - reach), normal.y * n + dir.y * (d0 - reach)},
                               {normal.x * n + dir.x * (d1 + reach), normal.y * n + dir.y * (d1 + reach)}};
            line.draw(ends);
        }
    }

private:
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

/// Points on a net that belongs to the page, as a hatch does.
struct spots
{
    pgn_spot_lr const *layer;
    double dx; ///< steps of the net
    double dy;
    double x0; ///< place of a first point, to the right and down from the page's upper left corner
    double y0;
    point_painter point;

    void draw(Tvx_box_d2 const &box, double turn)
    {
        double const reach = std::min(point.reach(), c_max_reach_px);
        long long const first_row = cell(box.min_y - reach, y0, dy) - 1;
        long long const last_row = cell(box.max_y + reach, y0, dy) + 2;
        long long const first_col = cell(box.min_x - reach, x0, dx) - 1;
        long long const last_col = cell(box.max_x + reach, x0, dx) + 2;
        for (long long row = first_row; row <= last_row; ++row) {
            // With spot type 1 every other row is moved by half a step.
            double const moved = layer->spot_type == 1 && (row & 1) ? dx / 2 : 0;
            for (long long col = first_col; col <= last_col; ++col) {
                double x = x0 + static_cast<double>(col) * dx + moved;
                double y = y0 + static_cast<double>(row) * dy;
                // A random place is one in the point's own cell, with the place on the net as its middle.
                if (layer->random_x)
                    x += (cell_random(col, row, 1) - 0.5) * dx;
                if (layer->random_y)
                    y += (cell_random(col, row, 2) - 0.5) * dy;
                double const angle = turn + (layer->random_angle ? cell_random(col, row, 3) * 360 : 0);
                point.draw({x, y}, angle);
            }
        }
    }

private:
    static long long cell(double at, double origin, double step)
    {
        return static_cast<long long>(std::floor((at - origin) / step));
    }
};

using fill_item = std::variant<QColor, hatch, spots>;

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
    double const step = std::max(c_min_hatch_step_px, std::abs(l.delta) * k);
    cpx_style const *line = l.cpx_pln.find();
    bool const own = line && !line->lrs.empty();
    return hatch{step, l.angle, wrapped(l.shift * k, step),
                 own ? line_painter(s, *line) : line_painter(s, default_hatch_line())};
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
    double const dx = std::max(c_min_spot_step_px, std::abs(l.dx) * s.px_per_mm_x);
    double const dy = std::max(c_min_spot_step_px, std::abs(l.dy) * s.px_per_mm_y);
    return spots{&l,
                 dx,
                 dy,
                 wrapped(l.x0 * s.px_per_mm_x, dx),
                 wrapped(l.y0 * s.px_per_mm_y, 2 * dy), // two rows, of which one may be moved
                 spot_point(s, l)};
}
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
            items.emplace_back(make_hatch(target, *htch));
        else if (auto const *spot = std::get_if<pgn_spot_lr>(&lr.data))
            items.emplace_back(make_spots(target, *spot));
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
        path.moveTo(points[0].x, points[0].y);
        for (std::size_t i = 1; i < points.size(); ++i)
            path.lineTo(points[i].x, points[i].y);
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
            h->draw(box, hatch_angle);
        else
            std::get<spots>(it).draw(box, spot_angle);
        painter.restore();
    }
}
} // namespace vx::render
