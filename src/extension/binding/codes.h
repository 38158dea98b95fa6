#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

// The numbers that cross the component interface beside text and handles. They are fixed.

namespace vx::codes
{
/// How a reading of shapes stands.
enum class reading : int
{
    ended = 0,
    goes_on = 1,
    damaged = 2, ///< at its end; not all shapes could be read
};

/// Types of geometry.
enum class geom_type : int
{
    none = 0,
    point = 1,
    polyline = 3,
    polygon = 5,
    multipoint = 8,
    point_z = 11,
    polyline_z = 13,
    polygon_z = 15,
    multipoint_z = 18,
    multipatch = 31,
    unknown = 100, ///< mixed, or not known before the features are read
};

/// Types of attribute fields.
enum class field_type : int
{
    none = 0,
    string = 1,
    numeric = 2, ///< 64-bit floating
    integer = 3, ///< 32-bit signed
    bigint = 4, ///< 64-bit signed
};

/// What the text or number of a field stands for.
enum class field_subtype : int
{
    none = 0,
    boolean = 1,
    date = 2,
    time = 3,
    date_time = 4,
    binary = 5,
    list = 6,
    structured = 7, ///< structured text: JSON
};

/// Types of grid cells; unsigned comes first for 8 bits, signed first for the wider ones.
enum class data_type : int
{
    none = 0,
    uint8 = 1,
    int8 = 2,
    int16 = 3,
    uint16 = 4,
    int32 = 5,
    uint32 = 6,
    int64 = 7,
    uint64 = 8,
    float32 = 9,
    float64 = 10,
};

/// Kind of the cells of a field.
enum class cell_kind : int
{
    measured = 0, ///< numbers of a scale
    coded = 1, ///< numbers of classes: the field has a palette or names for its values
};

/// What a cell of a grid stands for.
enum class grid_kind : int
{
    areas = 0,
    points = 1, ///< the value is that of the cell's centre
};

/// Answer of every transfer of cells.
enum class transfer_status : int
{
    not_offered = 0,
    done = 1,
    failed = 2,
};

/// What has_capability is asked for; the first number is fixed, the others are those of our drivers.
enum class capability : int
{
    read_by_index = 0, ///< single features by index, fast; their identifiers count from 0
    create_features = 1,
    change_features = 2,
    delete_features = 3,
    create_fields = 4,
    delete_fields = 5,
    alter_fields = 6,
    reorder_fields = 7,
    roll_back = 8, ///< transactions are real; elsewhere changes are stored as they come
    create_vectors = 9,
    count_fast = 10,
    filter_by_box_fast = 11,
};

/// A kind of data set, for driver_id and for creation.
enum class driver_id : int
{
    other = 0,
    shapefile = 1,
    geopackage = 2,
    geojson = 3,
    flatgeobuf = 4,
    csv = 5,
    mapinfo = 6,
    sqlite = 7,
    kml = 8,
    gml = 9,
    geotiff = 10,
    memory = 11,
    memory_grid = 12, ///< a grid in memory, which ends with its source
};

}

namespace vx::codes::plain
{
enum reading : int
{
    reading_ended = 0,
    reading_goes_on = 1,
    reading_damaged = 2,
};

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
    subtype_structured = 7,
};

enum data_type : int
{
    cells_none = 0,
    cells_uint8 = 1,
    cells_int8 = 2,
    cells_int16 = 3,
    cells_uint16 = 4,
    cells_int32 = 5,
    cells_uint32 = 6,
    cells_int64 = 7,
    cells_uint64 = 8,
    cells_float32 = 9,
    cells_float64 = 10,
};

enum cell_kind : int
{
    cells_measured = 0,
    cells_coded = 1,
};

enum grid_kind : int
{
    grid_of_areas = 0,
    grid_of_points = 1,
};

enum transfer_status : int
{
    transfer_not_offered = 0,
    transfer_done = 1,
    transfer_failed = 2,
};

enum capability : int
{
    can_read_by_index = 0,
    can_create_features = 1,
    can_change_features = 2,
    can_delete_features = 3,
    can_create_fields = 4,
    can_delete_fields = 5,
    can_alter_fields = 6,
    can_reorder_fields = 7,
    can_roll_back = 8,
    can_create_vectors = 9,
    can_count_fast = 10,
    can_filter_by_box_fast = 11,
};

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
    driver_memory_grid = 12,
};

}
