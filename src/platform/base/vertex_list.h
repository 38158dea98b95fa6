#pragma once

#include "platform/base/export.h"

#include <cstddef>

/// A vertex of the plane, in the units of its data set.
struct Tvx_vtx_d2
{
    double x = 0;
    double y = 0;
    friend constexpr bool operator==(Tvx_vtx_d2 const &, Tvx_vtx_d2 const &) = default;
};

/// A vertex in space.
struct Tvx_vtx_d3
{
    double x = 0;
    double y = 0;
    double z = 0;
    friend constexpr bool operator==(Tvx_vtx_d3 const &, Tvx_vtx_d3 const &) = default;
};

constexpr void vx_vtx_d2_init_xy(Tvx_vtx_d2 *vertex, double x, double y)
{
    *vertex = {x, y};
}

/// What a vertex list describes.
enum Tvx_vector_type : int
{
    c_vector_none = -1,
    c_vector_points = 0,   ///< one vertex a part
    c_vector_polyline = 1, ///< a part is a line
    c_vector_polygon = 2,  ///< a part is a ring; what lies in an odd number of rings is inside
};

/// A vertex list: parts of vertices, with the geometry class that they form. Opaque; all functions accept
/// null, which counts as an empty list. Setting a size keeps what fits and fills up with zeros.
struct Tvx_op2d;
/// One part of a list, owned by the list and valid until the number of parts changes.
struct Tvx_pv_d2;
/// The same in space.
struct Tvx_ovtx_d3;
struct Tvx_pv_d3;

[[nodiscard]] VX_API Tvx_op2d *vx_ov_d2_create();
VX_API void vx_ov_d2_destroy(Tvx_op2d *list);
/// No parts, and `c_vector_none`.
VX_API void vx_ov_d2_clear(Tvx_op2d *list);
VX_API void vx_ov_d2_set_size(Tvx_op2d *list, std::size_t parts);
[[nodiscard]] VX_API std::size_t vx_ov_d2_get_size(Tvx_op2d const *list);
/// Null past the end.
[[nodiscard]] VX_API Tvx_pv_d2 *vx_ov_d2_get_pv_ptr(Tvx_op2d *list, std::size_t part);
[[nodiscard]] VX_API Tvx_pv_d2 const *vx_ov_d2_get_pv_ptr(Tvx_op2d const *list, std::size_t part);
VX_API void vx_ov_d2_set_vector_type(Tvx_op2d *list, Tvx_vector_type type);
[[nodiscard]] VX_API Tvx_vector_type vx_ov_d2_get_vector_type(Tvx_op2d const *list);
/// Vertices of all parts together.
[[nodiscard]] VX_API std::size_t vx_ov_d2_get_vtx_count(Tvx_op2d const *list);
VX_API void vx_pv_d2_set_size(Tvx_pv_d2 *part, std::size_t vertices);
[[nodiscard]] VX_API std::size_t vx_pv_d2_get_size(Tvx_pv_d2 const *part);
/// Past the end it does nothing.
VX_API void vx_pv_d2_set_vtx(Tvx_pv_d2 *part, std::size_t index, Tvx_vtx_d2 const *vertex);
/// The vertices as an array of `vx_pv_d2_get_size` entries, null for none; valid until the size changes.
[[nodiscard]] VX_API Tvx_vtx_d2 *vx_pv_d2_get_data(Tvx_pv_d2 *part);
[[nodiscard]] VX_API Tvx_vtx_d2 const *vx_pv_d2_get_data(Tvx_pv_d2 const *part);

[[nodiscard]] VX_API Tvx_ovtx_d3 *vx_ov_d3_create();
VX_API void vx_ov_d3_destroy(Tvx_ovtx_d3 *list);
VX_API void vx_ov_d3_clear(Tvx_ovtx_d3 *list);
VX_API void vx_ov_d3_set_size(Tvx_ovtx_d3 *list, std::size_t parts);
[[nodiscard]] VX_API std::size_t vx_ov_d3_get_size(Tvx_ovtx_d3 const *list);
[[nodiscard]] VX_API Tvx_pv_d3 *vx_ov_d3_get_pv_ptr(Tvx_ovtx_d3 *list, std::size_t part);
[[nodiscard]] VX_API Tvx_pv_d3 const *vx_ov_d3_get_pv_ptr(Tvx_ovtx_d3 const *list, std::size_t part);
VX_API void vx_ov_d3_set_vector_type(Tvx_ovtx_d3 *list, Tvx_vector_type type);
[[nodiscard]] VX_API Tvx_vector_type vx_ov_d3_get_vector_type(Tvx_ovtx_d3 const *list);
[[nodiscard]] VX_API std::size_t vx_ov_d3_get_vtx_count(Tvx_ovtx_d3 const *list);
VX_API void vx_pv_d3_set_size(Tvx_pv_d3 *part, std::size_t vertices);
[[nodiscard]] VX_API std::size_t vx_pv_d3_get_size(Tvx_pv_d3 const *part);
VX_API void vx_pv_d3_set_vtx(Tvx_pv_d3 *part, std::size_t index, Tvx_vtx_d3 const *vertex);
[[nodiscard]] VX_API Tvx_vtx_d3 *vx_pv_d3_get_data(Tvx_pv_d3 *part);
[[nodiscard]] VX_API Tvx_vtx_d3 const *vx_pv_d3_get_data(Tvx_pv_d3 const *part);
