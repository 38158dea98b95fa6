#pragma once

#include "extension/binding/codes.h"

#include <ogr_core.h>

#include <string_view>

class OGRFieldDefn;
class OGRGeometry;

/// The numbers that cross the component interface, and what they are in GDAL.
namespace vx::gdal {
using namespace codes::plain;

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
