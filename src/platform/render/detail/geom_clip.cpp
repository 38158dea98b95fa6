#include "platform/render/detail/geom_clip.h"

#include "platform/render/detail/work_meter.h"

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

/// Tells a meter of each so many vertices.
class vertex_count
{
public:
    explicit vertex_count(work_meter *meter) : f_meter(meter) {}
    /// One more vertex; false when the drawing is to end.
    [[nodiscard]] bool go_on()
    {
        if (--f_until_look > 0)
            return true;
        f_until_look = c_between_looks;
        return !f_meter || f_meter->go_on(c_between_looks * c_cost);
    }

private:
    static constexpr unsigned c_between_looks = 4096;
    static constexpr double c_cost = 10;
    work_meter *f_meter;
    unsigned f_until_look = c_between_looks;
};

Tvx_pnt_d2 between(Tvx_pnt_d2 a, Tvx_pnt_d2 b, double t)
{
    return {std::lerp(a.x, b.x, t), std::lerp(a.y, b.y, t)};
}

/// The polygon clipping of Sutherland and Hodgman, 1974, each vertex through all four sides at once.
class ring_clipper
{
public:
    explicit ring_clipper(Tvx_box_d2 const &box) : f_box(box) {}
    void add(Tvx_pnt_d2 p) { pass(0, p); }
    /// Closes the ring.
    px_line take()
    {
        for (std::size_t side = 0; side < c_sides; ++side)
            if (f_last[side].is_there)
                cross(side, f_last[side].first);
        return std::move(f_out);
    }

private:
    static constexpr std::size_t c_sides = 4;
    struct passed
    {
        bool is_there = false;
        Tvx_pnt_d2 first, last;
    };

    [[nodiscard]] bool is_inside(std::size_t side, Tvx_pnt_d2 p) const
    {
        switch (side) {
        case 0:
            return p.x >= f_box.min_x;
        case 1:
            return p.x <= f_box.max_x;
        case 2:
            return p.y >= f_box.min_y;
        default:
            return p.y <= f_box.max_y;
        }
    }
    void pass(std::size_t side, Tvx_pnt_d2 p)
    {
        if (side == c_sides)
            return f_out.push_back(p);
        passed &own = f_last[side];
        if (own.is_there)
            cross(side, p);
        else
            own.first = p;
        own.is_there = true;
        own.last = p;
        if (is_inside(side, p))
            pass(side + 1, p);
    }
    /// What the edge from the last vertex to this one has on the side.
    void cross(std::size_t side, Tvx_pnt_d2 b)
    {
        Tvx_pnt_d2 const a = f_last[side].last;
        if (is_inside(side, a) == is_inside(side, b))
            return;
        if (side < 2) {
            double const x = side == 0 ? f_box.min_x : f_box.max_x;
            return pass(side + 1, {x, std::lerp(a.y, b.y, (x - a.x) / (b.x - a.x))});
        }
        double const y = side == 2 ? f_box.min_y : f_box.max_y;
        pass(side + 1, {std::lerp(a.x, b.x, (y - a.y) / (b.y - a.y)), y});
    }

    Tvx_box_d2 f_box;
    passed f_last[c_sides];
    px_line f_out;
};
} // namespace

bool line_clipper::next()
{
    vertex_count count(f_meter);
    px_line &points = f_piece.points;
    points.clear();
    while (f_next < f_line.size() && count.go_on()) {
        Tvx_pnt_d2 const a = f_line[f_next - 1];
        Tvx_pnt_d2 const b = f_line[f_next];
        double t0;
        double t1;
        bool const shows = segment_span(a, b, f_box, t0, t1);
        if (!points.empty() && (!shows || t0 > 0))
            return true; // the segment is the next piece's
        double const length = f_lengths ? std::hypot(b.x - a.x, b.y - a.y) : 0;
        if (shows) {
            if (points.empty()) {
                f_piece.start = f_along + length * t0;
                points.push_back(between(a, b, t0));
            }
            points.push_back(t1 < 1 ? between(a, b, t1) : b);
        }
        f_along += length;
        ++f_next;
        if (shows && t1 < 1)
            return true;
    }
    return !points.empty();
}

px_line clip_ring(std::span<Tvx_pnt_d2 const> ring, Tvx_box_d2 const &box, work_meter *meter)
{
    vertex_count count(meter);
    ring_clipper clipper(box);
    for (Tvx_pnt_d2 const &p : ring) {
        clipper.add(p);
        if (!count.go_on())
            break;
    }
    return clipper.take();
}

px_line within_rows(std::span<Tvx_pnt_d2 const> ring, double top, double bottom)
{
    auto const side = [&](std::size_t i) { return ring[i].y < top ? -1 : ring[i].y > bottom ? 1 : 0; };
    px_line out;
    if (ring.empty())
        return out;
    int before = side(ring.size() - 1);
    int own = side(0);
    for (std::size_t i = 0; i < ring.size(); ++i) {
        int const behind = side(i + 1 < ring.size() ? i + 1 : 0);
        if (own == 0 || before != own || behind != own)
            out.push_back(ring[i]);
        before = own;
        own = behind;
    }
    return out;
}

px_line offset_line(std::span<Tvx_pnt_d2 const> line, double distance, work_meter *meter)
{
    constexpr double c_mitre_limit = 4;
    vertex_count count(meter);
    px_line clean;
    clean.reserve(line.size());
    for (Tvx_pnt_d2 const p : line) {
        if (!count.go_on())
            return {};
        if (clean.empty() || clean.back() != p)
            clean.push_back(p);
    }
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
        if (!count.go_on())
            return {};
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
