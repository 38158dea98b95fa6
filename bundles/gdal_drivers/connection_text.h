#pragma once

#include <map>
#include <string>

namespace vx::gdal {
/// A connection string taken apart: `source|key=value&key=value`. The separator is the first "|"; only a text
/// without one is split at its first "&". A leading virtual mark "*" is dropped. The last of two equal keys
/// wins.
class connection_text
{
public:
    std::wstring source;
    /// The options of the drivers' own; those of a vector table are taken out into the fields below.
    std::map<std::wstring, std::wstring> options;
    std::wstring layer;
    /// All that stands behind "layer=": the name of a table with an "&" in it.
    std::wstring layer_tail;
    std::wstring geom;
    std::wstring geom_type;
    std::wstring fid;
    /// The option "network=yes": a file on the disk may ask the servers that it names.
    bool allows_network = false;

    explicit connection_text(std::wstring const &text) : connection_text(text, first_separator(text)) {}
    /// Split at the character `separator`; npos: all of it is the source.
    connection_text(std::wstring const &text, std::size_t separator);
    /// What stands behind "layer=" is one name, and no options follow it.
    void take_layer_tail();

private:
    [[nodiscard]] static std::size_t first_separator(std::wstring const &text);

    std::map<std::wstring, std::wstring> f_options_before_layer;
};

/// The connection string that opens the table `layer` as `connection` opens its own.
[[nodiscard]] std::wstring make_connection_text(connection_text const &connection, std::wstring const &layer);
} // namespace vx::gdal
