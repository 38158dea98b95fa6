#include "data_types.h"

#include <ogr_feature.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <cwctype>

namespace vx::gdal {
namespace {
struct named_geom_type
{
    int type;
    wchar_t const *name;
};
constexpr std::array c_geom_types{
    named_geom_type{geom_none, L"none"},
    named_geom_type{geom_point, L"point"},
    named_geom_type{geom_polyline, L"polyline"},
    named_geom_type{geom_polygon, L"polygon"},
    named_geom_type{geom_multipoint, L"multipoint"},
    named_geom_type{geom_point_z, L"point_z"},
    named_geom_type{geom_polyline_z, L"polyline_z"},
    named_geom_type{geom_polygon_z, L"polygon_z"},
    named_geom_type{geom_multipoint_z, L"multipoint_z"},
    named_geom_type{geom_multipatch, L"multipatch"},
};

struct named_driver
{
    int id;
    char const *name;
};
/// Where two names share a number, the first is the one to create with.
constexpr std::array c_drivers{
    named_driver{driver_shapefile, "ESRI Shapefile"},
    named_driver{driver_geopackage, "GPKG"},
    named_driver{driver_geojson, "GeoJSON"},
    named_driver{driver_flatgeobuf, "FlatGeobuf"},
    named_driver{driver_csv, "CSV"},
    named_driver{driver_mapinfo, "MapInfo File"},
    named_driver{driver_sqlite, "SQLite"},
    named_driver{driver_kml, "KML"},
    named_driver{driver_kml, "LIBKML"},
    named_driver{driver_gml, "GML"},
    named_driver{driver_geotiff, "GTiff"},
    named_driver{driver_memory, "Memory"},
    named_driver{driver_memory_grid, "MEM"},
};

int flat_geom_type_of(OGRwkbGeometryType type)
{
    switch (wkbFlatten(type)) {
    case wkbNone:
        return geom_none;
    case wkbPoint:
        return geom_point;
    case wkbMultiPoint:
        return geom_multipoint;
    case wkbLineString:
    case wkbMultiLineString:
    case wkbCircularString:
    case wkbCompoundCurve:
    case wkbMultiCurve:
        return geom_polyline;
    case wkbPolygon:
    case wkbMultiPolygon:
    case wkbCurvePolygon:
    case wkbMultiSurface:
    case wkbTriangle:
        return geom_polygon;
    case wkbPolyhedralSurface:
    case wkbTIN:
        return geom_multipatch;
    default:
        return geom_unknown;
    }
}
} // namespace

int geom_type_of(OGRwkbGeometryType type)
{
    int const result = flat_geom_type_of(type);
    bool const has_z_form = result == flat(result + 10) && result != geom_none;
    return wkbHasZ(type) && has_z_form ? result + 10 : result;
}

OGRwkbGeometryType ogr_type_of(int type)
{
    switch (type) {
    case geom_none:
        return wkbNone;
    case geom_point:
        return wkbPoint;
    case geom_point_z:
        return wkbPoint25D;
    case geom_polyline:
        return wkbMultiLineString;
    case geom_polyline_z:
        return wkbMultiLineString25D;
    case geom_polygon:
        return wkbMultiPolygon;
    case geom_polygon_z:
        return wkbMultiPolygon25D;
    case geom_multipoint:
        return wkbMultiPoint;
    case geom_multipoint_z:
        return wkbMultiPoint25D;
    case geom_multipatch:
        return wkbTINZ;
    default:
        return wkbUnknown;
    }
}

int geom_type_of_name(std::wstring_view name)
{
    auto const lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? c + (L'a' - L'A') : c; };
    for (auto const &entry : c_geom_types) {
        std::wstring_view const known = entry.name;
        if (std::equal(name.begin(), name.end(), known.begin(), known.end(),
                       [&](wchar_t a, wchar_t b) { return lower(a) == b; }))
            return entry.type;
    }
    return geom_unknown;
}

int flat(int type)
{
    switch (type) {
    case geom_point_z:
    case geom_polyline_z:
    case geom_polygon_z:
    case geom_multipoint_z:
        return type - 10;
    default:
        return type;
    }
}

int field_type_of(OGRFieldDefn const &field)
{
    switch (field.GetType()) {
    case OFTInteger:
        return field_integer;
    case OFTInteger64:
        return field_bigint;
    case OFTReal:
        return field_numeric;
    case OFTBinary:
        return field_none;
    default:
        return field_string;
    }
}

int field_subtype_of(OGRFieldDefn const &field)
{
    if (field.GetSubType() == OFSTBoolean)
        return subtype_boolean;
    if (field.GetSubType() == OFSTJSON)
        return subtype_structured;
    switch (field.GetType()) {
    case OFTDate:
        return subtype_date;
    case OFTTime:
        return subtype_time;
    case OFTDateTime:
        return subtype_date_time;
    case OFTBinary:
        return subtype_binary;
    case OFTIntegerList:
    case OFTInteger64List:
    case OFTRealList:
    case OFTStringList:
        return subtype_list;
    default:
        return subtype_none;
    }
}

int driver_id_of(char const *name)
{
    auto const found = std::find_if(c_drivers.begin(), c_drivers.end(),
                                    [&](named_driver const &d) { return std::strcmp(d.name, name) == 0; });
    return found == c_drivers.end() ? driver_other : found->id;
}

char const *driver_name_of(int id)
{
    auto const found =
        std::find_if(c_drivers.begin(), c_drivers.end(), [&](named_driver const &d) { return d.id == id; });
    return found == c_drivers.end() ? nullptr : found->name;
}
} // namespace vx::gdal
