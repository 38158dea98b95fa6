#pragma once

#include "extension/binding/codes.h"

#include "platform/base/export.h"

#include <cstdint>
#include <string>

/// Types of geometry, of attribute fields and of grid cells. The numbers cross the component interface and
/// are fixed.
namespace vx::data {
using codes::data_type;
using codes::field_type;
using codes::geom_type;

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
