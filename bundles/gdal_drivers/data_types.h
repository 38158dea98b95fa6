#pragma once

#include <ogr_core.h>

#include <string_view>

class OGRFieldDefn;
class OGRGeometry;

/// The numbers that cross the component interface, and what they are in GDAL.
namespace vx::gdal {
enum geom_type : int
{
    geom_none = 0,
    geom_point = 1,
    geom_polyline = 3,
    geom_polygon = 5,
    geom_multipoint = 8,
    geom_point_z = 11,
    geom_polyline_z = 13,
    geom_polygon_z = 15,
    geom_multipoint_z = 18,
    geom_multipatch = 31,
    geom_unknown = 100,
};

enum field_type : int
{
    field_none = 0,
    field_string = 1,
    field_numeric = 2,
    field_integer = 3,
    field_bigint = 4,
};

enum field_subtype : int
{
    subtype_none = 0,
    subtype_boolean = 1,
    subtype_date = 2,
    subtype_time = 3,
    subtype_date_time = 4,
    subtype_binary = 5,
    subtype_list = 6,
    subtype_structured = 7, ///< structured text: JSON
};

/// What `has_capability` is asked for. The first number is fixed; the others are this driver's.
enum capability : int
{
    can_read_by_index = 0, ///< single features by index, fast; their identifiers count from 0
    can_create_features = 1,
    can_change_features = 2,
    can_delete_features = 3,
    can_create_fields = 4,
    can_delete_fields = 5,
    can_alter_fields = 6,
    can_reorder_fields = 7,
    can_roll_back = 8, ///< transactions are real; elsewhere changes are stored as they come
    can_create_vectors = 9,
    can_count_fast = 10,
    can_filter_by_box_fast = 11,
};

/// A kind of data set, for `driver_id` and for creation; 0 is any other.
enum driver_id : int
{
    driver_other = 0,
    driver_shapefile = 1,
    driver_geopackage = 2,
    driver_geojson = 3,
    driver_flatgeobuf = 4,
    driver_csv = 5,
    driver_mapinfo = 6,
    driver_sqlite = 7,
    driver_kml = 8,
    driver_gml = 9,
    driver_geotiff = 10,
    driver_memory = 11,
    driver_memory_grid = 12, ///< a grid in memory, which ends with its source
};

/// `geom_unknown` for a mixed or unknown type. Curves count as the lines that they are drawn by.
[[nodiscard]] int geom_type_of(OGRwkbGeometryType type);
/// The type to create a table or a geometry field of; polylines and polygons as multi types.
[[nodiscard]] OGRwkbGeometryType ogr_type_of(int type);
/// 100 for a name that is none.
[[nodiscard]] int geom_type_of_name(std::wstring_view name);
/// Without the z: 11 gives 1, and so on.
[[nodiscard]] int flat(int type);

[[nodiscard]] int field_type_of(OGRFieldDefn const &field);
[[nodiscard]] int field_subtype_of(OGRFieldDefn const &field);

[[nodiscard]] int driver_id_of(char const *name);
/// Null for a number that stands for no kind.
[[nodiscard]] char const *driver_name_of(int id);
} // namespace vx::gdal
