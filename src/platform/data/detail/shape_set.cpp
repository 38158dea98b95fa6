#include "platform/data/detail/shape_set.h"

#include "platform/base/vertex_list.h"

#include <cmath>

namespace vx::attr {
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
    begin(c_shape_point);
    add_point(point.x, point.y);
    end_part();
    end();
}

void shape_set::append_none()
{
    begin(c_shape_none);
}

void shape_set::finish()
{
    f_points.shrink_to_fit();
    f_part_starts.shrink_to_fit();
    f_shapes.shrink_to_fit();
}

Tvx_shape_view shape_set::view(std::size_t index) const
{
    auto const &s = f_shapes[index];
    return {s.kind, static_cast<int>(s.part_count), f_part_starts.data() + s.first_part, f_points.data(),
            s.box};
}
} // namespace vx::attr
