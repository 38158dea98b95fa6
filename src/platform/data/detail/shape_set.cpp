#include "platform/data/detail/shape_set.h"

#include "platform/base/vertex_list.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vx::attr {
namespace {
/// Room is made beforehand for as many shapes as a stranger's file may claim without harm.
constexpr std::size_t c_most_expected = std::size_t{1} << 24;
constexpr double c_none = std::numeric_limits<double>::quiet_NaN();
} // namespace

shape_set::shape_set(std::size_t expected) : f_expected(std::min(expected, c_most_expected))
{
}

void shape_set::leave_plain()
{
    if (!f_is_plain)
        return;
    f_is_plain = false;
    auto const points = std::exchange(f_points, {});
    for (Tvx_pnt_d2 const &point : points) {
        begin(c_shape_point);
        add_point(point.x, point.y);
        end_part();
        end();
    }
}

void shape_set::begin(Tvx_shape_kind kind)
{
    shape next;
    next.kind = kind;
    next.first_part = static_cast<unsigned>(f_part_starts.size());
    f_shapes.push_back(next);
    f_part_starts.push_back(static_cast<unsigned>(f_points.size()));
}

void shape_set::add_point(double x, double y)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return;
    f_points.push_back({x, y});
    f_shapes.back().box.add(x, y);
}

void shape_set::end_part()
{
    auto const end = static_cast<unsigned>(f_points.size());
    if (f_part_starts.back() == end)
        return;
    f_part_starts.push_back(end);
    ++f_shapes.back().part_count;
}

void shape_set::end()
{
    if (f_shapes.back().part_count == 0)
        f_shapes.back().kind = c_shape_none;
    f_box.add(f_shapes.back().box);
}

void shape_set::append(Tvx_shape_kind kind, Tvx_op2d const *list)
{
    leave_plain();
    begin(kind);
    for (std::size_t p = 0; p < vx_ov_d2_get_size(list); ++p) {
        auto const *const part = vx_ov_d2_get_pv_ptr(list, p);
        auto const *const vertices = vx_pv_d2_get_data(part);
        for (std::size_t v = 0; v < vx_pv_d2_get_size(part); ++v)
            add_point(vertices[v].x, vertices[v].y);
        // A multipoint is one part of many points: nothing tells its points apart but their place.
        if (kind != c_shape_point)
            end_part();
    }
    end_part();
    end();
}

void shape_set::append_point(Tvx_pnt_d2 point)
{
    if (!f_is_plain) {
        begin(c_shape_point);
        add_point(point.x, point.y);
        end_part();
        return end();
    }
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return append_none();
    if (f_points.empty())
        f_points.reserve(f_expected);
    f_points.push_back(point);
    f_box.add(point.x, point.y);
}

void shape_set::append_none()
{
    if (f_is_plain)
        f_points.push_back({c_none, c_none});
    else
        begin(c_shape_none);
}

void shape_set::finish()
{
    f_points.shrink_to_fit();
    f_part_starts.shrink_to_fit();
    f_shapes.shrink_to_fit();
}

Tvx_box_d2 shape_set::box_of(std::size_t index) const
{
    if (!f_is_plain)
        return f_shapes[index].box;
    Tvx_pnt_d2 const &p = f_points[index];
    return std::isnan(p.x) ? Tvx_box_d2{} : Tvx_box_d2{p.x, p.y, p.x, p.y};
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
        f_grid.build(f_box, size(), [this](std::size_t i) { return box_of(i); });
    return f_grid.count(window) <= size() / c_small_part;
}

Tvx_shape_view shape_set::view(std::size_t index) const
{
    static constexpr unsigned c_one_part[] = {0, 1};
    if (f_is_plain) {
        bool const is_there = !std::isnan(f_points[index].x);
        return {is_there ? c_shape_point : c_shape_none, is_there ? 1 : 0, c_one_part, &f_points[index],
                box_of(index)};
    }
    auto const &s = f_shapes[index];
    return {s.kind, static_cast<int>(s.part_count), f_part_starts.data() + s.first_part, f_points.data(),
            s.box};
}
} // namespace vx::attr
