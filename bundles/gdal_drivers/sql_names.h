#pragma once

#include <string>

class OGRLayer;

/// Names and texts as the databases take them.
namespace vx::gdal {
[[nodiscard]] std::string quoted_name(std::string const &name);
[[nodiscard]] std::string text_literal(std::string const &text);
/// The table of the layer: of a server, whose layers are named "schema.table", with its schema.
[[nodiscard]] std::string table_name(OGRLayer &layer, bool is_server);
} // namespace vx::gdal
