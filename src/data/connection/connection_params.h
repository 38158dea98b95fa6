#pragma once

#include "data/connection/data_types.h"

#include "platform/base/export.h"

#include <map>
#include <string>
#include <utility>

namespace vx::data {
/// A connection string taken apart: source, then optionally "|" and options `key=value` joined by "&". There
/// is no quoting and no escaping. A string without any "|" is split at its first "&" instead.
///
/// Of two equal keys the last wins; a piece without "=" is a key with an empty value; empty pieces and pieces
/// with an empty key are left out.
struct VX_API connection_params
{
    std::wstring source; ///< without the virtual mark
    std::map<std::wstring, std::wstring> params;
    bool is_virtual = false; ///< the source began with the mark "*"

    connection_params() = default;
    explicit connection_params(std::wstring const &connection);

    /// The connection string: source with its mark, and the options in the order of their keys.
    [[nodiscard]] std::wstring make_connection() const;
};

/// As `connection_params`, with the options of a vector layer taken out of `params`.
struct VX_API vector_connection_params : connection_params
{
    std::wstring layer;                                 ///< option "layer"
    std::wstring geom;                                  ///< option "geom": name of the geometry field
    std::wstring fid;                                   ///< option "fid": name of the field of feature ids
    vx::data::geom_type geom_type = geom_type::unknown; ///< option "geom_type"

    vector_connection_params() = default;
    explicit vector_connection_params(std::wstring const &connection);
};

/// Options for opening or making a data set, written by the subclasses of those who open.
class VX_API options
{
public:
    virtual ~options();
    /// Writes the options into `target.params`.
    virtual void apply(connection_params &target) const = 0;

    /// The connection string of `source`, taken as it stands, with these options.
    [[nodiscard]] std::wstring alter_source(std::wstring const &source) const;
};

[[nodiscard]] VX_API std::wstring make_connection(connection_params const &params);
/// The text before the separator and the text behind it; the second is empty without one.
[[nodiscard]] VX_API std::pair<std::wstring, std::wstring> split_connection(std::wstring const &connection);
/// `source` as it stands with the options that carry something; a type `unknown` carries nothing.
[[nodiscard]] VX_API std::wstring make_vector_connection(std::wstring const &source,
                                                         std::wstring const &layer, geom_type type);
[[nodiscard]] VX_API std::wstring make_vector_connection(std::wstring const &source,
                                                         std::wstring const &layer, std::wstring const &geom,
                                                         geom_type type, std::wstring const &fid);
} // namespace vx::data
