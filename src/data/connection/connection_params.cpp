#include "data/connection/connection_params.h"

#include "data/filesystem/filesystem.h"
#include "data/filesystem/strutil.h"

namespace vx::data {
namespace {
// Tried one after the other: the second serves only where the first is absent.
constexpr std::wstring_view c_option_separators = L"|&";

constexpr wchar_t const *c_layer_key = L"layer";
constexpr wchar_t const *c_geom_key = L"geom";
constexpr wchar_t const *c_geom_type_key = L"geom_type";
constexpr wchar_t const *c_fid_key = L"fid";

/// Removes the option and gives its value; empty when there is none.
std::wstring taken(std::map<std::wstring, std::wstring> &params, wchar_t const *key)
{
    auto node = params.extract(key);
    return node ? std::move(node.mapped()) : std::wstring();
}

void set_if_filled(connection_params &target, wchar_t const *key, std::wstring const &value)
{
    if (!value.empty())
        target.params[key] = value;
}
} // namespace

std::pair<std::wstring, std::wstring> split_connection(std::wstring const &connection)
{
    for (wchar_t const separator : c_option_separators)
        if (auto const at = connection.find(separator); at != connection.npos)
            return {connection.substr(0, at), connection.substr(at + 1)};
    return {connection, {}};
}

connection_params::connection_params(std::wstring const &connection)
{
    auto const [head, tail] = split_connection(connection);
    source = filesystem::from_virtual(head);
    is_virtual = filesystem::is_virtual(head);
    for (auto const &piece : strutil::split_any(tail, L"&", strutil::split_skip_empty)) {
        auto const equals = piece.find(L'=');
        std::wstring key = piece.substr(0, equals);
        if (!key.empty())
            params[std::move(key)] = equals == piece.npos ? std::wstring() : piece.substr(equals + 1);
    }
}

std::wstring connection_params::make_connection() const
{
    std::wstring out = is_virtual ? filesystem::make_virtual(source) : source;
    wchar_t separator = L'|';
    for (auto const &[key, value] : params) {
        out += separator;
        out += key + L"=" + value;
        separator = L'&';
    }
    return out;
}

vector_connection_params::vector_connection_params(std::wstring const &connection)
    : connection_params(connection)
{
    layer = taken(params, c_layer_key);
    geom_type = geomtype_parse_string(taken(params, c_geom_type_key));
    geom = taken(params, c_geom_key);
    fid = taken(params, c_fid_key);
}

options::~options() = default;

std::wstring options::alter_source(std::wstring const &source) const
{
    connection_params target;
    target.source = source;
    apply(target);
    return target.make_connection();
}

std::wstring make_connection(connection_params const &params)
{
    return params.make_connection();
}

std::wstring make_vector_connection(std::wstring const &source, std::wstring const &layer, geom_type type)
{
    return make_vector_connection(source, layer, {}, type, {});
}

std::wstring make_vector_connection(std::wstring const &source, std::wstring const &layer,
                                    std::wstring const &geom, geom_type type, std::wstring const &fid)
{
    connection_params target;
    target.source = source;
    set_if_filled(target, c_layer_key, layer);
    set_if_filled(target, c_geom_key, geom);
    if (type != geom_type::unknown)
        target.params[c_geom_type_key] = geomtype_tostring(type);
    set_if_filled(target, c_fid_key, fid);
    return target.make_connection();
}
} // namespace vx::data
