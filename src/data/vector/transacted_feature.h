#pragma once

#include "data/vector/vector_feature.h"

namespace vx::data {
/// A feature whose geometry can be changed. Setters give false when the source refuses the geometry, and for
/// an empty list where a vertex is needed.
class VX_API transacted_feature : public vector_feature
{
public:
    bool set_empty();
    bool set_point2d(Tvx_vtx_d2 vertex);
    /// Vertex 0 of part 0.
    bool set_point2d(Tvx_op2d *list);
    bool set_point3d(Tvx_vtx_d3 vertex);
    bool set_point3d(Tvx_ovtx_d3 *list);
    bool set_multipoint2d(Tvx_op2d *list);
    bool set_multipoint3d(Tvx_ovtx_d3 *list);
    bool set_polyline2d(Tvx_op2d *list);
    bool set_polyline3d(Tvx_ovtx_d3 *list);
    bool set_polygon2d(Tvx_op2d *list);
    bool set_polygon3d(Tvx_ovtx_d3 *list);

    /// By the vector type that the list names.
    bool set_geom2d(Tvx_op2d *list);
    bool set_geom3d(Tvx_ovtx_d3 *list);
    /// Points make a multipoint from two vertices on, else a point.
    bool set_geom2d(Tvx_op2d *list, Tvx_vector_type type);
    bool set_geom3d(Tvx_ovtx_d3 *list, Tvx_vector_type type);
    /// Only the four flat types: flatten one with z first (`geomtype_flatten`).
    bool set_geom2d(Tvx_op2d *list, vx::data::geom_type type);
    bool set_geom3d(Tvx_ovtx_d3 *list, vx::data::geom_type type);
};
} // namespace vx::data
