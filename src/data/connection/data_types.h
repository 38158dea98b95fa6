#pragma once

#include "platform/base/export.h"

#include <cstdint>
#include <string>

/// Types of geometry, of attribute fields and of grid cells. The numbers cross the component interface and
/// are fixed.
namespace vx::data {
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
    unknown = 100,
};

enum class field_type : int
{
    none = 0,
    string = 1,
    numeric = 2, ///< 64-bit floating
    integer = 3, ///< 32-bit signed
    bigint = 4,  ///< 64-bit signed
};

/// Unsigned comes first for 8 bits, signed first for the wider ones.
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

/// An index or a limit as the component interface takes it: cut to the low 32 bits.
[[nodiscard]] constexpr int interface_index(std::uint64_t number)
{
    return static_cast<int>(static_cast<std::uint32_t>(number));
}

/// Without the z coordinate; every type that has no such form comes back unchanged, `multipatch` too.
[[nodiscard]] VX_API geom_type geomtype_flatten(geom_type t);
[[nodiscard]] VX_API bool geomtype_has_zcoord(geom_type t);
/// The name of the type as connection strings hold it; empty for a number without a name.
[[nodiscard]] VX_API std::wstring geomtype_tostring(geom_type t);
/// Without regard to case; `unknown` for a text that is no name.
[[nodiscard]] VX_API geom_type geomtype_parse_string(std::wstring const &s);

/// True for the three types of numbers.
[[nodiscard]] VX_API bool fieldtype_isnumber(field_type t);

/// Any number outside the enumeration is no type: size 0, neither integral nor floating.
[[nodiscard]] VX_API bool datatype_isfloating(data_type t);
[[nodiscard]] VX_API bool datatype_isintegral(data_type t);
[[nodiscard]] VX_API int datatype_size_bytes(data_type t);
[[nodiscard]] VX_API int datatype_size_bits(data_type t);
} // namespace vx::data
