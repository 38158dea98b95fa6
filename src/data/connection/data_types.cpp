#include "data/connection/data_types.h"

#include <algorithm>
#include <iterator>

namespace vx::data {
namespace {
struct named_type
{
    geom_type type;
    wchar_t const *name;
};

constexpr named_type c_geom_types[] = {
    {geom_type::none, L"none"},
    {geom_type::point, L"point"},
    {geom_type::polyline, L"polyline"},
    {geom_type::polygon, L"polygon"},
    {geom_type::multipoint, L"multipoint"},
    {geom_type::point_z, L"point_z"},
    {geom_type::polyline_z, L"polyline_z"},
    {geom_type::polygon_z, L"polygon_z"},
    {geom_type::multipoint_z, L"multipoint_z"},
    {geom_type::multipatch, L"multipatch"},
    {geom_type::unknown, L"unknown"},
};

// By the number of the type; 0 and everything past the end have no size.
constexpr int c_data_type_sizes[] = {0, 1, 1, 2, 2, 4, 4, 8, 8, 4, 8};

/// The names are ASCII, so a plain mapping of ASCII letters decides.
bool same_name(std::wstring const &text, std::wstring_view name)
{
    auto const lower = [](wchar_t c) {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    };
    return std::equal(text.begin(), text.end(), name.begin(), name.end(),
                      [&](wchar_t a, wchar_t b) { return lower(a) == b; });
}
} // namespace

geom_type geomtype_flatten(geom_type t)
{
    switch (t) {
    case geom_type::point_z:
        return geom_type::point;
    case geom_type::polyline_z:
        return geom_type::polyline;
    case geom_type::polygon_z:
        return geom_type::polygon;
    case geom_type::multipoint_z:
        return geom_type::multipoint;
    default:
        return t;
    }
}

bool geomtype_has_zcoord(geom_type t)
{
    return geomtype_flatten(t) != t || t == geom_type::multipatch;
}

std::wstring geomtype_tostring(geom_type t)
{
    auto const found = std::find_if(std::begin(c_geom_types), std::end(c_geom_types),
                                    [&](named_type const &n) { return n.type == t; });
    return found == std::end(c_geom_types) ? L"" : found->name;
}

geom_type geomtype_parse_string(std::wstring const &s)
{
    auto const found = std::find_if(std::begin(c_geom_types), std::end(c_geom_types),
                                    [&](named_type const &n) { return same_name(s, n.name); });
    return found == std::end(c_geom_types) ? geom_type::unknown : found->type;
}

bool fieldtype_isnumber(field_type t)
{
    return t == field_type::numeric || t == field_type::integer || t == field_type::bigint;
}

bool datatype_isfloating(data_type t)
{
    return t == data_type::float32 || t == data_type::float64;
}

bool datatype_isintegral(data_type t)
{
    return datatype_size_bytes(t) != 0 && !datatype_isfloating(t);
}

int datatype_size_bytes(data_type t)
{
    int const number = static_cast<int>(t);
    return number < 0 || number >= static_cast<int>(std::size(c_data_type_sizes)) ? 0
                                                                                  : c_data_type_sizes[number];
}

int datatype_size_bits(data_type t)
{
    return 8 * datatype_size_bytes(t);
}
} // namespace vx::data
