#pragma once

#include "column.h"

class OGRLayer;

namespace vx::gdal {
/// Reads one column from the formats that keep or build columns natively: several times as fast as feature by
/// feature. Integer, real and text columns.
[[nodiscard]] column_result read_arrow_column(OGRLayer &layer, char const *field, column_sink const &sink);
} // namespace vx::gdal
