#include "shape_run.h"

#include "data_types.h"
#include "geometry.h"

#include "platform/base/owned.h"
#include "platform/base/vertex_list.h"

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace vx::gdal {
namespace {
constexpr double c_none = std::numeric_limits<double>::quiet_NaN();
using vertex_list = vx::owned<Tvx_op2d, &vx_ov_d2_destroy>;
} // namespace

/// From here on each shape says what it is.
void shape_run::leave_points()
{
    if (f_says_kinds)
        return;
    f_says_kinds = true;
    f_place_count = 0;
    for (std::size_t i = 0; i < f_count; ++i) {
        bool const is_there = !std::isnan(f_places[2 * i]);
        f_kinds.push_back(is_there ? geom_point : geom_none);
        f_part_counts.push_back(is_there ? 1 : 0);
        if (!is_there)
            continue;
        f_vertex_counts.push_back(1);
        f_places[f_place_count++] = f_places[2 * i];
        f_places[f_place_count++] = f_places[2 * i + 1];
    }
}

void shape_run::grow(std::size_t kept)
{
    f_place_room = std::max(f_place_count, 2 * f_place_room);
    auto larger = std::make_unique_for_overwrite<double[]>(f_place_room);
    std::copy_n(f_places.get(), kept, larger.get());
    f_places = std::move(larger);
}

void shape_run::add_among_others(double x, double y, unsigned long long record)
{
    unsigned const one = 1;
    double *const place = add_shape(geom_point, &one, 1, record);
    place[0] = x;
    place[1] = y;
}

void shape_run::add_none(unsigned long long record)
{
    if (!f_says_kinds)
        return add_point(c_none, c_none, record);
    (void)add_shape(geom_none, nullptr, 0, record);
}

double *shape_run::add_shape(int kind, unsigned const *vertex_counts, std::size_t parts,
                             unsigned long long record)
{
    leave_points();
    f_kinds.push_back(kind);
    f_part_counts.push_back(static_cast<unsigned>(parts));
    f_vertex_counts.insert(f_vertex_counts.end(), vertex_counts, vertex_counts + parts);
    std::size_t const vertices = std::accumulate(vertex_counts, vertex_counts + parts, std::size_t{0});
    note(record);
    ++f_count;
    return room_for(vertices);
}

void shape_run::add_shape(int kind, std::vector<unsigned> const &vertex_counts, unsigned long long record,
                          std::unique_ptr<double[]> vertices, std::size_t count)
{
    if (f_count == 0 && f_place_room < 2 * count) {
        f_places = std::move(vertices);
        f_place_room = 2 * count;
        (void)add_shape(kind, vertex_counts.data(), vertex_counts.size(), record);
    } else {
        std::copy_n(vertices.get(), 2 * count,
                    add_shape(kind, vertex_counts.data(), vertex_counts.size(), record));
    }
}

void shape_run::add(OGRGeometry const *geometry, unsigned long long record)
{
    int kind = flat(geom_type_of_geometry(geometry));
    if (kind == geom_point) {
        if (geometry->IsEmpty())
            return add_none(record);
        return add_point(geometry->toPoint()->getX(), geometry->toPoint()->getY(), record);
    }
    vertex_list const list(vx_ov_d2_create());
    if (!(kind == geom_multipoint ? get_multipoint(geometry, list.get())
                                  : geometry && get_polypoint(geometry, list.get())))
        return add_none(record);
    // The areas or lines of a collection that has other parts as well.
    if (kind == geom_unknown)
        kind = vx_ov_d2_get_vector_type(list.get()) == c_vector_polygon ? -geom_polygon : -geom_polyline;
    std::vector<unsigned> counts;
    for (std::size_t part = 0; part < vx_ov_d2_get_size(list.get()); ++part)
        counts.push_back(static_cast<unsigned>(vx_pv_d2_get_size(vx_ov_d2_get_pv_ptr(list.get(), part))));
    double *place = add_shape(kind, counts.data(), counts.size(), record);
    for (std::size_t part = 0; part < counts.size(); ++part) {
        Tvx_vtx_d2 const *const vertices =
            vx_pv_d2_get_data(static_cast<Tvx_pv_d2 const *>(vx_ov_d2_get_pv_ptr(list.get(), part)));
        for (unsigned v = 0; v < counts[part]; ++v) {
            *place++ = vertices[v].x;
            *place++ = vertices[v].y;
        }
    }
}

void shape_run::flush(vx::shape_visitor visitor)
{
    if (f_count > 0 && !f_says_kinds)
        visitor.visit_points(f_count, f_places.get(), f_has_records ? f_records.data() : nullptr);
    else if (f_count > 0)
        visitor.visit_shapes(f_count, f_kinds.data(), f_part_counts.data(), f_vertex_counts.data(),
                             f_places.get(), f_has_records ? f_records.data() : nullptr);
    f_says_kinds = false;
    f_count = 0;
    f_kinds.clear();
    f_part_counts.clear();
    f_vertex_counts.clear();
    f_place_count = 0;
    f_records.clear();
}
} // namespace vx::gdal
