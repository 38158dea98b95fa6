#pragma once

#include "platform/base/vertex_list.h"

#include <memory>

class OGRGeometry;

/// Geometries of GDAL as vertex lists and back. A getter gives false for a geometry of another kind, and
/// leaves an empty list.
namespace vx::gdal {
/// Number of the kind as it crosses, with z where the geometry has it; 0 for null.
[[nodiscard]] int geom_type_of_geometry(OGRGeometry const *geometry);

[[nodiscard]] bool get_point(OGRGeometry const *geometry, Tvx_vtx_d3 &vertex);
[[nodiscard]] bool get_multipoint(OGRGeometry const *geometry, Tvx_op2d *list);
[[nodiscard]] bool get_multipoint(OGRGeometry const *geometry, Tvx_ovtx_d3 *list);
/// Lines and rings; curves are replaced by lines.
[[nodiscard]] bool get_polypoint(OGRGeometry const *geometry, Tvx_op2d *list);
[[nodiscard]] bool get_polypoint(OGRGeometry const *geometry, Tvx_ovtx_d3 *list);

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
