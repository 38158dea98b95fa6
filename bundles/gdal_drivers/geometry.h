#pragma once

#include "extension/binding/codes.h"

#include "platform/base/vertex_list.h"

#include <memory>

class OGRGeometry;

/// Geometries of GDAL as vertex lists and back. A getter gives false for a geometry of another kind, and
/// leaves an empty list.
namespace vx::gdal {
/// Number of the kind as it crosses, with z where the geometry has it; 0 for null. A collection is of the
/// kind of its parts: of `wanted`, a flat multi kind, where some are; 0 where there are none, and
/// `geom_unknown` where they are of several kinds.
[[nodiscard]] int geom_type_of_geometry(OGRGeometry const *geometry, int wanted = codes::plain::geom_unknown);

[[nodiscard]] bool get_point(OGRGeometry const *geometry, Tvx_vtx_d3 &vertex);
/// Of a collection its points.
[[nodiscard]] bool get_multipoint(OGRGeometry const *geometry, Tvx_op2d *list,
                                  int wanted = codes::plain::geom_unknown);
[[nodiscard]] bool get_multipoint(OGRGeometry const *geometry, Tvx_ovtx_d3 *list,
                                  int wanted = codes::plain::geom_unknown);
/// Lines or rings; curves are replaced by lines. Of a collection those of the kind that is wanted; where none
/// is and it has several, the rings or, without any, the lines.
[[nodiscard]] bool get_polypoint(OGRGeometry const *geometry, Tvx_op2d *list,
                                 int wanted = codes::plain::geom_unknown);
[[nodiscard]] bool get_polypoint(OGRGeometry const *geometry, Tvx_ovtx_d3 *list,
                                 int wanted = codes::plain::geom_unknown);

/// Null for a list that makes no such geometry: no vertices, a line of one vertex, a ring of fewer than
/// three.
[[nodiscard]] std::unique_ptr<OGRGeometry> make_multipoint(Tvx_op2d const *list);
[[nodiscard]] std::unique_ptr<OGRGeometry> make_multipoint(Tvx_ovtx_d3 const *list);
[[nodiscard]] std::unique_ptr<OGRGeometry> make_polyline(Tvx_op2d const *list);
[[nodiscard]] std::unique_ptr<OGRGeometry> make_polyline(Tvx_ovtx_d3 const *list);
/// Rings are closed and sorted into outer and inner ones by what lies in what.
[[nodiscard]] std::unique_ptr<OGRGeometry> make_polygon(Tvx_op2d const *list);
[[nodiscard]] std::unique_ptr<OGRGeometry> make_polygon(Tvx_ovtx_d3 const *list);
} // namespace vx::gdal
