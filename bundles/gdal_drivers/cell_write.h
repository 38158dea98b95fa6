#pragma once

#include <ogr_feature.h>

#include <string>

/// Puts values into cells. A value that the field would keep as another one is refused: the cell stays what
/// it was.
namespace vx::gdal {
/// What the cells of a format cannot hold.
struct cell_rules
{
    bool keeps_nan = false;
    bool keeps_infinity = false;
    bool is_dbf = false;       ///< numbers and texts have a width in bytes
    bool bounds_texts = false; ///< the width of a text field is the most characters it takes
    std::string encoding;      ///< of texts in the file; empty: every character is kept
};

[[nodiscard]] bool put_text(OGRFeature &record, int field, std::string const &utf8, cell_rules const &rules);
[[nodiscard]] bool put_whole(OGRFeature &record, int field, long long value, cell_rules const &rules);
[[nodiscard]] bool put_number(OGRFeature &record, int field, double value, cell_rules const &rules);
[[nodiscard]] bool put_bytes(OGRFeature &record, int field, int size, char const *bytes,
                             cell_rules const &rules);
} // namespace vx::gdal
