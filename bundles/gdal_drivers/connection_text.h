#pragma once

#include <map>
#include <string>

namespace vx::gdal {
/// A connection string taken apart: `source|key=value&key=value`. The separator is the first "|"; only a text
/// without one is split at its first "&". A leading virtual mark "*" is dropped. The last of two equal keys
/// wins.
struct connection_text
{
    std::wstring source;
    /// The options of the drivers' own; those of a vector table are taken out into the fields below.
    std::map<std::wstring, std::wstring> options;
    std::wstring layer;
    std::wstring geom;
    std::wstring geom_type;
    std::wstring fid;

    explicit connection_text(std::wstring const &text);
};

/// The connection string that opens `layer` of `source` (and its geometry field `geom`, when not empty).
[[nodiscard]] std::wstring make_connection_text(std::wstring const &source, std::wstring const &layer,
                                                std::wstring const &geom);
} // namespace vx::gdal
