#include "platform/render/detail/label_geometry.h"

#include <queue>

#include <algorithm>
#include <cmath>

namespace vx::render {
namespace {
double dot(Tvx_pnt_d2 a, Tvx_pnt_d2 b)
{
    return a.x * b.x + a.y * b.y;
}
Tvx_pnt_d2 minus(Tvx_pnt_d2 a, Tvx_pnt_d2 b)
{
    return {a.x - b.x, a.y - b.y};
}
Tvx_pnt_d2 across(Tvx_pnt_d2 along)
{
    return {-along.y, along.x};
}

/// How far the quad reaches from its middle in a direction.
double reach(label_quad const &q, Tvx_pnt_d2 axis)
{
    return q.half_length * std::abs(dot(q.along, axis)) +
           q.half_height * std::abs(dot(across(q.along), axis));
}

bool parted(label_quad const &a, label_quad const &b, Tvx_pnt_d2 axis)
{
    return std::abs(dot(minus(a.middle, b.middle), axis)) >= reach(a, axis) + reach(b, axis);
}

double squared_distance(Tvx_pnt_d2 p, Tvx_pnt_d2 a, Tvx_pnt_d2 b)
{
    Tvx_pnt_d2 const d = minus(b, a);
    double const length = dot(d, d);
    double const t = length > 0 ? std::clamp(dot(minus(p, a), d) / length, 0.0, 1.0) : 0;
    Tvx_pnt_d2 const to = {a.x + t * d.x - p.x, a.y + t * d.y - p.y};
    return dot(to, to);
}

/// Distance from the border, below 0 outside.
double depth(label_rings const &rings, Tvx_pnt_d2 p)
{
    bool inside = false;
    double nearest = std::numeric_limits<double>::infinity();
    for (auto const &ring : rings)
        for (std::size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
            Tvx_pnt_d2 const a = ring[j];
            Tvx_pnt_d2 const b = ring[i];
            if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
                inside = !inside;
            nearest = std::min(nearest, squared_distance(p, a, b));
        }
    return (inside ? 1 : -1) * std::sqrt(nearest);
}

/// A square that may hold the place looked for.
struct square
{
    Tvx_pnt_d2 middle;
    double half;
    double depth;
    double best; ///< that any place of it may reach
    bool operator<(square const &other) const { return best < other.best; }
};

/// The deepest place of an area, to about a part of its size.
Tvx_pnt_d2 deepest(label_rings const &rings, Tvx_box_d2 const &box)
{
    constexpr double c_precision = 0.02;
    constexpr int c_most_steps = 400;
    double const size = std::min(box.width(), box.height());
    Tvx_pnt_d2 const middle{(box.min_x + box.max_x) / 2, (box.min_y + box.max_y) / 2};
    if (!(size > 0))
        return middle;
    auto const look = [&](Tvx_pnt_d2 at, double half) {
        double const d = depth(rings, at);
        return square{at, half, d, d + half * M_SQRT2};
    };
    std::priority_queue<square> open;
    double const half = size / 2;
    // Of a long area not more squares than it takes to find a good place.
    double const step = std::max({size, box.width() / 32, box.height() / 32});
    square best = look(middle, 0);
    for (double x = box.min_x; x < box.max_x; x += step)
        for (double y = box.min_y; y < box.max_y; y += step)
            open.push(look({x + step / 2, y + step / 2}, std::max(half, step / 2)));
    for (int i = 0; i < c_most_steps && !open.empty(); ++i) {
        square const s = open.top();
        open.pop();
        if (s.depth > best.depth)
            best = s;
        if (s.best - best.depth <= c_precision * size)
            break;
        double const h = s.half / 2;
        for (auto const &[dx, dy] : {std::pair{-h, -h}, {h, -h}, {-h, h}, {h, h}})
            open.push(look({s.middle.x + dx, s.middle.y + dy}, h));
    }
    return best.middle;
}
} // namespace

Tvx_box_d2 label_quad::box() const
{
    double const x = reach(*this, {1, 0});
    double const y = reach(*this, {0, 1});
    return {middle.x - x, middle.y - y, middle.x + x, middle.y + y};
}

Tvx_pnt_d2 label_quad::corner(int index) const
{
    double const l = index == 0 || index == 3 ? -half_length : half_length;
    double const h = index < 2 ? -half_height : half_height;
    return {middle.x + along.x * l - along.y * h, middle.y + along.y * l + along.x * h};
}

bool overlap(label_quad const &a, label_quad const &b)
{
    return !parted(a, b, a.along) && !parted(a, b, across(a.along)) && !parted(a, b, b.along) &&
           !parted(a, b, across(b.along));
}

// ---- index

template <class Visit>
bool quad_index::any_cell(Tvx_box_d2 const &box, Visit visit)
{
    auto const cell = [](double at) { return static_cast<std::int32_t>(std::floor(at / c_cell)); };
    for (std::int32_t y = cell(box.min_y), last_y = cell(box.max_y); y <= last_y; ++y)
        for (std::int32_t x = cell(box.min_x), last_x = cell(box.max_x); x <= last_x; ++x)
            if (visit(static_cast<std::uint64_t>(static_cast<std::uint32_t>(x)) << 32 |
                      static_cast<std::uint32_t>(y)))
                return true;
    return false;
}

void quad_index::add(label_quad const &quad)
{
    Tvx_box_d2 const box = quad.box();
    auto const number = static_cast<unsigned>(f_entries.size());
    f_entries.push_back({quad, box});
    any_cell(box, [&](std::uint64_t cell) {
        f_cells[cell].push_back(number);
        return false;
    });
}

bool quad_index::meets(label_quad const &quad) const
{
    Tvx_box_d2 const box = quad.box();
    return any_cell(box, [&](std::uint64_t cell) {
        auto const at = f_cells.find(cell);
        return at != f_cells.end() && std::ranges::any_of(at->second, [&](unsigned i) {
                   return f_entries[i].box.intersects(box) && overlap(f_entries[i].quad, quad);
               });
    });
}

// ---- areas

bool is_inside(label_rings const &rings, Tvx_pnt_d2 at)
{
    return depth(rings, at) > 0;
}

bool holds(label_rings const &rings, label_quad const &quad)
{
    if (!is_inside(rings, quad.middle))
        return false;
    // No edge may come into the rectangle: seen from its middle, along its sides.
    Tvx_pnt_d2 const up = across(quad.along);
    auto const to_quad = [&](Tvx_pnt_d2 p) {
        Tvx_pnt_d2 const d = minus(p, quad.middle);
        return Tvx_pnt_d2{dot(d, quad.along), dot(d, up)};
    };
    for (auto const &ring : rings)
        for (std::size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
            Tvx_pnt_d2 const a = to_quad(ring[j]);
            Tvx_pnt_d2 const d = minus(to_quad(ring[i]), a);
            double begin = 0;
            double end = 1;
            auto const cut = [&](double from, double by, double half) {
                if (by == 0)
                    return std::abs(from) < half;
                double const t0 = (-half - from) / by;
                double const t1 = (half - from) / by;
                begin = std::max(begin, std::min(t0, t1));
                end = std::min(end, std::max(t0, t1));
                return begin < end;
            };
            if (cut(a.x, d.x, quad.half_length) && cut(a.y, d.y, quad.half_height))
                return false;
        }
    return true;
}

Tvx_pnt_d2 place_inside(label_rings const &rings, Tvx_pnt_d2 along, double half_length, double half_height)
{
    if (rings.empty() || rings.front().empty() || !(half_length > 0) || !(half_height > 0))
        return {};
    Tvx_pnt_d2 const up = across(along);
    // Farther away than a part of the area's size two vertices are never one.
    Tvx_box_d2 box;
    label_rings scaled;
    scaled.reserve(rings.size());
    for (auto const &ring : rings) {
        auto &to = scaled.emplace_back();
        to.reserve(ring.size());
        for (Tvx_pnt_d2 const p : ring) {
            to.push_back({dot(p, along) / half_length, dot(p, up) / half_height});
            box.add(to.back().x, to.back().y);
        }
    }
    double const near = std::min(box.width(), box.height()) / 200;
    for (auto &ring : scaled) {
        std::size_t kept = 1;
        for (std::size_t i = 1; i < ring.size(); ++i) {
            Tvx_pnt_d2 const d = minus(ring[i], ring[kept - 1]);
            if (dot(d, d) > near * near)
                ring[kept++] = ring[i];
        }
        ring.resize(std::min(kept, ring.size()));
    }
    Tvx_pnt_d2 const at = deepest(scaled, box);
    double const l = at.x * half_length;
    double const h = at.y * half_height;
    return {along.x * l + up.x * h, along.y * l + up.y * h};
}

double ring_area(std::span<Tvx_pnt_d2 const> ring)
{
    double sum = 0;
    for (std::size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++)
        sum += (ring[j].x - ring[0].x) * (ring[i].y - ring[0].y) -
               (ring[i].x - ring[0].x) * (ring[j].y - ring[0].y);
    return std::abs(sum) / 2;
}

// ---- lines

measured_line::measured_line(std::vector<Tvx_pnt_d2> points) : f_points(std::move(points))
{
    f_lengths.reserve(f_points.size());
    double length = 0;
    for (std::size_t i = 0; i < f_points.size(); ++i) {
        if (i > 0)
            length += std::hypot(f_points[i].x - f_points[i - 1].x, f_points[i].y - f_points[i - 1].y);
        f_lengths.push_back(length);
    }
}

Tvx_pnt_d2 measured_line::at(double length) const
{
    if (f_points.size() < 2)
        return f_points.empty() ? Tvx_pnt_d2{} : f_points.front();
    auto const above = std::ranges::upper_bound(f_lengths, length);
    auto const i = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(
        above - f_lengths.begin(), 1, static_cast<std::ptrdiff_t>(f_points.size()) - 1));
    double const part = f_lengths[i] - f_lengths[i - 1];
    double const t = part > 0 ? (length - f_lengths[i - 1]) / part : 0;
    return {f_points[i - 1].x + t * (f_points[i].x - f_points[i - 1].x),
            f_points[i - 1].y + t * (f_points[i].y - f_points[i - 1].y)};
}

double measured_line::farthest_from_chord(double begin, double end) const
{
    Tvx_pnt_d2 const a = at(begin);
    Tvx_pnt_d2 const b = at(end);
    double farthest = 0;
    for (std::size_t i = 0; i < f_points.size(); ++i)
        if (f_lengths[i] > begin && f_lengths[i] < end)
            farthest = std::max(farthest, squared_distance(f_points[i], a, b));
    return std::sqrt(farthest);
}

void measured_line::reverse()
{
    std::ranges::reverse(f_points);
    double const whole = length();
    std::ranges::reverse(f_lengths);
    for (double &l : f_lengths)
        l = whole - l;
}
} // namespace vx::render
