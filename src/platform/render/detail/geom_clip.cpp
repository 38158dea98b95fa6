#include "platform/render/detail/geom_clip.h"

#include <algorithm>
#include <cmath>

namespace vx::render {
namespace {
/// The span of parameters of the segment a-b inside the box; false if it passes outside. (Liang, Barsky
/// 1984.)
bool segment_span(Tvx_pnt_d2 a, Tvx_pnt_d2 b, Tvx_box_d2 const &box, double &t0, double &t1)
{
    t0 = 0;
    t1 = 1;
    auto const cut = [&](double p, double q) {
        if (p == 0)
            return q >= 0;
        double const t = q / p;
        if (p < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        return t0 <= t1;
    };
    double const dx = b.x - a.x;
    double const dy = b.y - a.y;
    return cut(-dx, a.x - box.min_x) && cut(dx, box.max_x - a.x) && cut(-dy, a.y - box.min_y) &&
           cut(dy, box.max_y - a.y);
}

Tvx_pnt_d2 between(Tvx_pnt_d2 a, Tvx_pnt_d2 b, double t)
{
    return {std::lerp(a.x, b.x, t), std::lerp(a.y, b.y, t)};
}

/// One pass of the polygon clipping of Sutherland and Hodgman, 1974.
template <class Inside, class Cross>
px_line clip_side(px_line const &ring, Inside inside, Cross cross)
{
    px_line out;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        Tvx_pnt_d2 const a = ring[i ? i - 1 : ring.size() - 1];
        Tvx_pnt_d2 const b = ring[i];
        if (inside(a) != inside(b))
            out.push_back(cross(a, b));
        if (inside(b))
            out.push_back(b);
    }
    return out;
}
} // namespace

std::vector<line_piece> clip_line(std::span<Tvx_pnt_d2 const> line, Tvx_box_d2 const &box, bool lengths)
{
    std::vector<line_piece> pieces;
    bool open = false;
    double along = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        Tvx_pnt_d2 const a = line[i - 1];
        Tvx_pnt_d2 const b = line[i];
        double const length = lengths ? std::hypot(b.x - a.x, b.y - a.y) : 0;
        double t0;
        double t1;
        if (segment_span(a, b, box, t0, t1)) {
            if (!open) {
                pieces.emplace_back();
                pieces.back().start = along + length * t0;
                pieces.back().points.push_back(between(a, b, t0));
            }
            pieces.back().points.push_back(t1 < 1 ? between(a, b, t1) : b);
            open = t1 == 1;
        } else {
            open = false;
        }
        along += length;
    }
    return pieces;
}

px_line clip_ring(std::span<Tvx_pnt_d2 const> ring, Tvx_box_d2 const &box)
{
    px_line out(ring.begin(), ring.end());
    auto const at_x = [](double x) {
        return [x](Tvx_pnt_d2 a, Tvx_pnt_d2 b) {
            return Tvx_pnt_d2{x, std::lerp(a.y, b.y, (x - a.x) / (b.x - a.x))};
        };
    };
    auto const at_y = [](double y) {
        return [y](Tvx_pnt_d2 a, Tvx_pnt_d2 b) {
            return Tvx_pnt_d2{std::lerp(a.x, b.x, (y - a.y) / (b.y - a.y)), y};
        };
    };
    out = clip_side(
        out, [&](Tvx_pnt_d2 p) { return p.x >= box.min_x; }, at_x(box.min_x));
    out = clip_side(
        out, [&](Tvx_pnt_d2 p) { return p.x <= box.max_x; }, at_x(box.max_x));
    out = clip_side(
        out, [&](Tvx_pnt_d2 p) { return p.y >= box.min_y; }, at_y(box.min_y));
    return clip_side(
        out, [&](Tvx_pnt_d2 p) { return p.y <= box.max_y; }, at_y(box.max_y));
}

px_line offset_line(std::span<Tvx_pnt_d2 const> line, double distance)
{
    constexpr double c_mitre_limit = 4;
    px_line clean;
    for (Tvx_pnt_d2 const p : line)
        if (clean.empty() || clean.back() != p)
            clean.push_back(p);
    if (clean.size() < 2 || distance == 0)
        return clean;
    std::size_t const strokes = clean.size() - 1;
    bool const ring = strokes > 2 && clean.front() == clean.back();
    // Left of the direction of travel, with y downwards: (dy, -dx).
    auto const normal = [&](std::size_t i) {
        double const dx = clean[i + 1].x - clean[i].x;
        double const dy = clean[i + 1].y - clean[i].y;
        double const length = std::hypot(dx, dy);
        return Tvx_pnt_d2{dy / length, -dx / length};
    };
    // The strokes before and behind a vertex.
    auto const before = [&](std::size_t i) { return i ? i - 1 : ring ? strokes - 1 : 0; };
    auto const behind = [&](std::size_t i) { return i < strokes ? i : ring ? 0 : strokes - 1; };
    px_line out;
    out.reserve(clean.size());
    for (std::size_t i = 0; i < clean.size(); ++i) {
        Tvx_pnt_d2 const a = normal(before(i));
        Tvx_pnt_d2 const b = normal(behind(i));
        Tvx_pnt_d2 const sum{a.x + b.x, a.y + b.y};
        // |sum| is twice the cosine of half the turn; the mitre is as long as one over that cosine.
        double const square = sum.x * sum.x + sum.y * sum.y;
        if (square > 4 / (c_mitre_limit * c_mitre_limit)) {
            out.push_back(
                {clean[i].x + sum.x * 2 / square * distance, clean[i].y + sum.y * 2 / square * distance});
        } else {
            out.push_back({clean[i].x + a.x * distance, clean[i].y + a.y * distance});
            out.push_back({clean[i].x + b.x * distance, clean[i].y + b.y * distance});
        }
    }
    if (ring)
        out.back() = out.front(); // also when the corner in which it closes was cut off
    return out;
}

Tvx_box_d2 box_of(std::span<Tvx_pnt_d2 const> points)
{
    Tvx_box_d2 box;
    for (Tvx_pnt_d2 const &p : points)
        box.add(p.x, p.y);
    return box;
}

Tvx_box_d2 grown(Tvx_box_d2 box, double by)
{
    box.min_x -= by;
    box.min_y -= by;
    box.max_x += by;
    box.max_y += by;
    return box;
}

bool holds(Tvx_box_d2 const &outer, Tvx_box_d2 const &inner)
{
    return inner.min_x >= outer.min_x && inner.max_x <= outer.max_x && inner.min_y >= outer.min_y &&
           inner.max_y <= outer.max_y;
}
} // namespace vx::render
