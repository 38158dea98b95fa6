#include "platform/data/detail/shape_set.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vx::attr {
namespace {
/// A block is full with so many.
constexpr std::size_t c_block_points = 1 << 16;
constexpr std::size_t c_block_shapes = 1 << 14;
constexpr double c_none = std::numeric_limits<double>::quiet_NaN();

/// The box of so many is found as soon as it would be looked up.
constexpr unsigned c_few_points = 16;

constexpr std::size_t c_large_run = 1 << 12; ///< points that are worth a block of their own

bool is_number(Tvx_pnt_d2 const &p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

/// The box of some points; not a box when one of them is no number.
bool find_box(std::span<Tvx_pnt_d2 const> points, Tvx_box_d2 &box)
{
    // What is no number, or infinite, less itself is no number, and stays so in any sum.
    double rest = 0;
    for (Tvx_pnt_d2 const &p : points) {
        box.min_x = p.x < box.min_x ? p.x : box.min_x;
        box.min_y = p.y < box.min_y ? p.y : box.min_y;
        box.max_x = p.x > box.max_x ? p.x : box.max_x;
        box.max_y = p.y > box.max_y ? p.y : box.max_y;
        rest += (p.x - p.x) + (p.y - p.y);
    }
    return rest == 0;
}
} // namespace

shape_set::shape_set() = default;
shape_set::~shape_set() = default;

std::size_t shape_set::hidden_count() const
{
    return f_coming.size();
}

void shape_set::leave_plain()
{
    if (!f_coming.is_plain)
        return;
    publish_block();
    f_coming.is_plain = false;
}

void shape_set::append(Tvx_shape_kind kind, std::span<unsigned const> part_sizes, Tvx_pnt_d2 const *points)
{
    leave_plain();
    coming &to = f_coming;
    shape next;
    next.kind = kind;
    next.first_part = static_cast<unsigned>(to.part_starts.size());
    for (unsigned const size : part_sizes) {
        std::size_t const begin = to.points.size();
        Tvx_box_d2 box;
        if (find_box({points, size}, box)) {
            to.points.insert(to.points.end(), points, points + size);
            next.box.add(box);
        } else {
            std::copy_if(points, points + size, std::back_inserter(to.points), is_number);
            for (std::size_t i = begin; i < to.points.size(); ++i)
                next.box.add(to.points[i].x, to.points[i].y);
        }
        points += size;
        // A multipoint is one part of many points: nothing tells its points apart but their place.
        if (to.points.size() == begin || (kind == c_shape_point && next.part_count > 0))
            continue;
        to.part_starts.push_back(static_cast<unsigned>(begin));
        ++next.part_count;
    }
    if (next.part_count == 0)
        next.kind = c_shape_none;
    to.shapes.push_back(next);
    f_box.add(next.box);
    if (to.points.size() >= c_block_points || to.shapes.size() >= c_block_shapes)
        publish_block();
}

bool shape_set::append_block(std::span<Tvx_shape_kind const> kinds, unsigned const *part_counts,
                             unsigned const *part_sizes, std::span<Tvx_pnt_d2 const> points)
{
    auto made = std::make_unique<block>();
    made->is_plain = false;
    std::vector<shape> shapes;
    shapes.reserve(kinds.size());
    Tvx_box_d2 whole;
    std::size_t parts = 0;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        shape next{{}, static_cast<unsigned>(parts), part_counts[i], kinds[i]};
        std::size_t end = begin;
        bool has_gap = (part_counts[i] == 0) != (kinds[i] == c_shape_none);
        for (unsigned const size : std::span(part_sizes + parts, part_counts[i])) {
            has_gap = has_gap || size == 0;
            end += size;
        }
        // The parts of a multipoint become one.
        if (has_gap || (kinds[i] == c_shape_point && part_counts[i] > 1) ||
            !find_box(points.subspan(begin, end - begin), next.box))
            return false;
        whole.add(next.box);
        parts += part_counts[i];
        begin = end;
        shapes.push_back(next);
    }
    made->part_starts.reserve(parts + 1);
    unsigned start = 0;
    for (std::size_t p = 0; p < parts; start += part_sizes[p++])
        made->part_starts.push_back(start);
    made->part_starts.push_back(start);
    made->points.assign(points.begin(), points.end());
    made->pack(shapes);
    publish_block();
    f_box.add(whole);
    take(std::move(made));
    return true;
}

void shape_set::append_run(std::span<Tvx_shape_kind const> kinds, unsigned const *part_counts,
                           unsigned const *part_sizes, Tvx_pnt_d2 const *points)
{
    std::size_t parts = 0;
    for (std::size_t i = 0; i < kinds.size(); ++i)
        parts += part_counts[i];
    std::size_t total = 0;
    for (std::size_t p = 0; p < parts; ++p)
        total += part_sizes[p];
    leave_plain();
    if (total >= c_large_run && append_block(kinds, part_counts, part_sizes, {points, total}))
        return;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        append(kinds[i], {part_sizes, part_counts[i]}, points);
        for (unsigned p = 0; p < part_counts[i]; ++p)
            points += *part_sizes++;
    }
}

void shape_set::append_points(std::span<Tvx_pnt_d2 const> points)
{
    if (!f_coming.is_plain) {
        static constexpr unsigned c_one[] = {1};
        for (Tvx_pnt_d2 const &p : points)
            append(c_shape_point, c_one, &p);
        return;
    }
    for (Tvx_pnt_d2 const &p : points) {
        bool const is_there = is_number(p);
        f_coming.points.push_back(is_there ? p : Tvx_pnt_d2{c_none, c_none});
        if (is_there)
            f_box.add(p.x, p.y);
        if (f_coming.points.size() == c_block_points)
            publish_block();
    }
}

void shape_set::append_none()
{
    if (f_coming.is_plain)
        append_points({{Tvx_pnt_d2{c_none, c_none}}});
    else
        append(c_shape_none, {}, nullptr);
}

/// The arrays get just the room that they need; those that are being filled keep theirs.
void shape_set::publish_block()
{
    if (f_coming.size() == 0)
        return;
    auto made = std::make_unique<block>();
    made->is_plain = f_coming.is_plain;
    if (!made->is_plain)
        f_coming.part_starts.push_back(static_cast<unsigned>(f_coming.points.size()));
    if (f_coming.points.size() > 2 * c_block_points) // a shape of its own, which is not to be there twice
        made->points = std::exchange(f_coming.points, {});
    else
        made->points.assign(f_coming.points.begin(), f_coming.points.end());
    made->part_starts.assign(f_coming.part_starts.begin(), f_coming.part_starts.end());
    if (made->is_plain)
        made->size = made->points.size();
    else
        made->pack(f_coming.shapes);
    f_coming.points.clear();
    f_coming.part_starts.clear();
    f_coming.shapes.clear();
    take(std::move(made));
}

void shape_set::take(std::unique_ptr<block> made)
{
    made->first = f_size;
    f_size += made->size;
    f_firsts.push_back(made->first);
    f_blocks.push_back(std::move(made));
}

void shape_set::publish()
{
    publish_block();
}

void shape_set::finish()
{
    publish_block();
    bool const was_plain = f_coming.is_plain;
    f_coming = {};
    f_coming.is_plain = was_plain;
    f_is_finished = true;
}

std::size_t shape_set::block_of(std::size_t index) const
{
    return static_cast<std::size_t>(std::upper_bound(f_firsts.begin(), f_firsts.end(), index) -
                                    f_firsts.begin()) -
           1;
}

bool shape_set::is_small_part(Tvx_box_d2 const &window) const
{
    constexpr std::size_t c_few = 1024; // shapes that are looked at sooner than found
    constexpr double c_small_area = 1.0 / 10;
    constexpr std::size_t c_small_part = 16;
    if (size() < c_few || f_box.is_empty() || window.is_empty())
        return false;
    // Of a data set without extent in a direction the other one counts.
    double const width = f_box.width() > 0 ? window.width() / f_box.width() : 1;
    double const height = f_box.height() > 0 ? window.height() / f_box.height() : 1;
    if (!(width * height <= c_small_area))
        return false;
    if (!f_grid.is_built())
        f_grid.build(f_box, size(), [this](std::size_t i) { return view(i).box; });
    return f_grid.count(window) <= size() / c_small_part;
}

void shape_set::packed_boxes::pack(std::vector<shape> const &shapes)
{
    for (shape const &s : shapes)
        f_whole.add(s.box);
    f_per_x = f_whole.width() > 0 ? c_steps / f_whole.width() : 0;
    f_per_y = f_whole.height() > 0 ? c_steps / f_whole.height() : 0;
    auto const step = [](double from, double to, double per) {
        double const steps = (to - from) * per;
        return static_cast<std::uint16_t>(steps > 0 ? std::min(steps, c_steps) : 0);
    };
    f_boxes.reserve(shapes.size());
    for (auto const &[box, first_part, part_count, kind] : shapes)
        f_boxes.push_back({step(f_whole.min_x, box.min_x, f_per_x), step(f_whole.min_y, box.min_y, f_per_y),
                           step(f_whole.min_x, box.max_x, f_per_x), step(f_whole.min_y, box.max_y, f_per_y)});
}

/// A step larger on all sides, which is more than rounding takes away.
shape_set::packed_window shape_set::packed_boxes::window(Tvx_box_d2 const &box) const
{
    if (!box.intersects(f_whole))
        return {1, 1, -1, -1}; // before all boxes
    auto const low = [](double from, double to, double per) {
        double const steps = (to - from) * per - 1;
        return steps > -1 ? static_cast<int>(std::min(steps, c_steps)) - 1 : -1;
    };
    auto const high = [](double from, double to, double per) {
        double const steps = (to - from) * per + 1;
        return steps < c_steps ? static_cast<int>(std::max(steps, 0.0)) + 1 : static_cast<int>(c_steps);
    };
    return {low(f_whole.min_x, box.min_x, f_per_x), low(f_whole.min_y, box.min_y, f_per_y),
            high(f_whole.min_x, box.max_x, f_per_x), high(f_whole.min_y, box.max_y, f_per_y)};
}

void shape_set::block::pack(std::vector<shape> const &shapes)
{
    size = shapes.size();
    boxes.pack(shapes);
    bool is_single = true;
    bool is_one_kind = true;
    for (shape const &s : shapes) {
        is_single = is_single && s.part_count == 1;
        if (kind == c_shape_none)
            kind = s.kind;
        is_one_kind = is_one_kind && (s.kind == kind || s.part_count == 0);
    }
    if (!is_single) {
        first_parts.reserve(size + 1);
        for (shape const &s : shapes)
            first_parts.push_back(s.first_part);
        first_parts.push_back(static_cast<unsigned>(part_starts.size() - 1));
    }
    if (!is_one_kind) {
        kinds.reserve(size);
        for (shape const &s : shapes)
            kinds.push_back(static_cast<unsigned char>(s.kind));
    }
    auto const is_large = [this](shape const &s) {
        return part_starts[s.first_part + s.part_count] - part_starts[s.first_part] > c_few_points;
    };
    auto const count = static_cast<std::size_t>(std::ranges::count_if(shapes, is_large));
    large.reserve(count);
    large_boxes.reserve(count);
    for (std::size_t i = 0; i < size && large.size() < count; ++i)
        if (is_large(shapes[i])) {
            large.push_back(static_cast<unsigned>(i));
            large_boxes.push_back(shapes[i].box);
        }
}

Tvx_shape_view shape_set::block::view(std::size_t index) const
{
    static constexpr unsigned c_one_part[] = {0, 1};
    if (is_plain) {
        Tvx_pnt_d2 const &p = points[index];
        if (std::isnan(p.x))
            return {c_shape_none, 0, c_one_part, &p, {}};
        return {c_shape_point, 1, c_one_part, &p, {p.x, p.y, p.x, p.y}};
    }
    std::size_t const part = first_parts.empty() ? index : first_parts[index];
    unsigned const parts = first_parts.empty() ? 1 : first_parts[index + 1] - first_parts[index];
    unsigned const *const starts = part_starts.data() + part;
    Tvx_shape_view found{parts == 0      ? c_shape_none
                         : kinds.empty() ? kind
                                         : static_cast<Tvx_shape_kind>(kinds[index]),
                         static_cast<int>(parts),
                         starts,
                         points.data(),
                         {}};
    if (starts[parts] - starts[0] > c_few_points)
        found.box = large_boxes[static_cast<std::size_t>(
            std::ranges::lower_bound(large, static_cast<unsigned>(index)) - large.begin())];
    else
        (void)find_box({points.data() + starts[0], starts[parts] - starts[0]}, found.box);
    return found;
}

Tvx_shape_view shape_set::view(std::size_t index) const
{
    block const &in = *f_blocks[block_of(index)];
    return in.view(index - in.first);
}
} // namespace vx::attr
