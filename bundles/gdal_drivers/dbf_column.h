#pragma once

#include "column.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class OGRLayer;

namespace vx::gdal {
/// Reads one column of a shapefile straight from its dBase table, whose records have a fixed width: many
/// times as fast as feature by feature. The cells are those that GDAL gives, in its order: deleted records
/// are left out, text is converted by the encoding that the layer tells, blanks round a cell are cut off.
/// Only number and character fields, and only tables whose header fits the file and the layer; all else is
/// not offered. `path` is the name of the shapefile, of its table, or of the folder that both are in.
/// `deleted` becomes what `read_deleted_records` gives where it is empty and the whole table was read.
[[nodiscard]] column_result read_dbf_column(std::string const &path, OGRLayer &layer, int field,
                                            column_sink const &sink,
                                            std::optional<std::vector<long long>> &deleted);
/// The same, some cells at a time; null where it is not offered. The layer must outlive it.
[[nodiscard]] std::unique_ptr<column_walk> walk_dbf_column(std::string const &path, OGRLayer &layer,
                                                           int field);
/// Numbers of the records of the layer's table that are marked as deleted, ascending.
[[nodiscard]] std::vector<long long> read_deleted_records(std::string const &path, OGRLayer &layer);
} // namespace vx::gdal
