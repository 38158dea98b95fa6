#include "data/vector/transacted_feature.h"

namespace vx::data {
bool transacted_feature::set_empty()
{
    return f_handle.set_empty();
}

bool transacted_feature::set_point2d(Tvx_vtx_d2 vertex)
{
    return f_handle.set_point(&vertex);
}

bool transacted_feature::set_point2d(Tvx_op2d *list)
{
    auto const *const part = vx_ov_d2_get_pv_ptr(static_cast<Tvx_op2d const *>(list), 0);
    return vx_pv_d2_get_size(part) != 0 && set_point2d(vx_pv_d2_get_data(part)[0]);
}

bool transacted_feature::set_point3d(Tvx_vtx_d3 vertex)
{
    return f_handle.set_point_z(&vertex);
}

bool transacted_feature::set_point3d(Tvx_ovtx_d3 *list)
{
    auto const *const part = vx_ov_d3_get_pv_ptr(static_cast<Tvx_ovtx_d3 const *>(list), 0);
    return vx_pv_d3_get_size(part) != 0 && set_point3d(vx_pv_d3_get_data(part)[0]);
}

bool transacted_feature::set_multipoint2d(Tvx_op2d *list)
{
    return f_handle.set_multipoint(list);
}

bool transacted_feature::set_multipoint3d(Tvx_ovtx_d3 *list)
{
    return f_handle.set_multipoint_z(list);
}

bool transacted_feature::set_polyline2d(Tvx_op2d *list)
{
    return f_handle.set_polyline(list);
}

bool transacted_feature::set_polyline3d(Tvx_ovtx_d3 *list)
{
    return f_handle.set_polyline_z(list);
}

bool transacted_feature::set_polygon2d(Tvx_op2d *list)
{
    return f_handle.set_polygon(list);
}

bool transacted_feature::set_polygon3d(Tvx_ovtx_d3 *list)
{
    return f_handle.set_polygon_z(list);
}

bool transacted_feature::set_geom2d(Tvx_op2d *list)
{
    return set_geom2d(list, vx_ov_d2_get_vector_type(list));
}

bool transacted_feature::set_geom3d(Tvx_ovtx_d3 *list)
{
    return set_geom3d(list, vx_ov_d3_get_vector_type(list));
}

bool transacted_feature::set_geom2d(Tvx_op2d *list, Tvx_vector_type type)
{
    switch (type) {
    case c_vector_polygon:
        return set_polygon2d(list);
    case c_vector_polyline:
        return set_polyline2d(list);
    case c_vector_points:
        return vx_ov_d2_get_vtx_count(list) >= 2 ? set_multipoint2d(list) : set_point2d(list);
    default:
        return false;
    }
}

bool transacted_feature::set_geom3d(Tvx_ovtx_d3 *list, Tvx_vector_type type)
{
    switch (type) {
    case c_vector_polygon:
        return set_polygon3d(list);
    case c_vector_polyline:
        return set_polyline3d(list);
    case c_vector_points:
        return vx_ov_d3_get_vtx_count(list) >= 2 ? set_multipoint3d(list) : set_point3d(list);
    default:
        return false;
    }
}

bool transacted_feature::set_geom2d(Tvx_op2d *list, vx::data::geom_type type)
{
    switch (type) {
    case vx::data::geom_type::point:
        return set_point2d(list);
    case vx::data::geom_type::polyline:
        return set_polyline2d(list);
    case vx::data::geom_type::polygon:
        return set_polygon2d(list);
    case vx::data::geom_type::multipoint:
        return set_multipoint2d(list);
    default:
        return false;
    }
}

bool transacted_feature::set_geom3d(Tvx_ovtx_d3 *list, vx::data::geom_type type)
{
    switch (type) {
    case vx::data::geom_type::point:
        return set_point3d(list);
    case vx::data::geom_type::polyline:
        return set_polyline3d(list);
    case vx::data::geom_type::polygon:
        return set_polygon3d(list);
    case vx::data::geom_type::multipoint:
        return set_multipoint3d(list);
    default:
        return false;
    }
}
} // namespace vx::data
