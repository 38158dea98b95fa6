#pragma once

#include "column.h"

#include <memory>

class GDALDataset;
class OGRLayer;

namespace vx::gdal {
/// Reads one column from the formats that keep or build columns natively: several times as fast as feature by
/// feature. Integer, real and text columns.
[[nodiscard]] column_result read_arrow_column(OGRLayer &layer, char const *field, column_sink const &sink);
/// The same, some cells at a time, by a data set that nobody else uses; null where it is not offered.
[[nodiscard]] std::unique_ptr<column_walk> walk_arrow_column(std::shared_ptr<GDALDataset> set,
                                                             OGRLayer &layer, char const *field);
} // namespace vx::gdal
