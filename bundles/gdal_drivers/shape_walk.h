#pragma once

#include "column.h"
#include "shape_run.h"

#include <gdal_priv.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct sqlite3;
class OGRLayer;

namespace vx::gdal {
/// A way through the shapes of a table, some at a time.
class shape_walk
{
public:
    shape_walk() = default;
    shape_walk(shape_walk const &) = delete;
    shape_walk &operator=(shape_walk const &) = delete;
    virtual ~shape_walk() = default;

    enum step_result
    {
        c_more,
        c_end,
        c_broken, ///< the rest cannot be read
    };
    /// Adds what comes next to the run: what takes a fraction of a millisecond, or a single shape.
    [[nodiscard]] virtual step_result step(shape_run &run) = 0;
};

/// In the units of the table.
struct shape_window
{
    double min_x, min_y, max_x, max_y;
};

/// Shapes straight from a shapefile's records, in blocks. A record that is not just as it should be is left
/// to GDAL. Null for a table that does not fit its index; `path` is the name of one of its files, or of the
/// folder that they are in. `deleted` are the numbers of records that are none, ascending. With a window the
/// records are looked at for their boxes: null where taking them all is as fast, as of points, or where the
/// file is so large that it had better be read once.
[[nodiscard]] std::unique_ptr<shape_walk> walk_shapefile(std::string const &path, OGRLayer &layer,
                                                         std::vector<long long> deleted,
                                                         shape_window const *window);

/// Shapes straight from the rows of a GeoPackage's table, in the order of their identifiers, which is that in
/// which GDAL gives them. With a window those that its index finds: null where there is none, or identifiers
/// have gaps, so that it does not tell which record has which.
[[nodiscard]] std::unique_ptr<shape_walk> walk_geopackage(sqlite3 *base, OGRLayer &layer,
                                                          shape_window const *window);

/// The identifiers of a table's records.
struct fid_span
{
    long long first, last;
};

/// Those of a GeoPackage's table, where they have no gaps: records are found by them. Nothing elsewhere.
[[nodiscard]] std::optional<fid_span> consecutive_fids(sqlite3 *base, OGRLayer &layer);

/// The cells of a field straight from the rows of a GeoPackage's table, in the same order; null for what is
/// no number and no text. A cell of another kind than its column's breaks it: GDAL makes of it what it will.
[[nodiscard]] std::unique_ptr<column_walk> walk_geopackage_column(sqlite3 *base, OGRLayer &layer, int field);

/// GDAL's own way to the features, by a data set that nobody else uses. `numbers_records` says that features
/// are known by the numbers of their records.
[[nodiscard]] std::unique_ptr<shape_walk> walk_features(std::shared_ptr<GDALDataset> set, OGRLayer &layer,
                                                        bool numbers_records);

/// The geometries that the rows of a statement hold, over a connection that nobody else uses. With
/// `numbers_records` the first cell of a row is the number of its record.
[[nodiscard]] std::unique_ptr<shape_walk> walk_server(GDALDatasetUniquePtr connection, std::string statement,
                                                      bool numbers_records);
} // namespace vx::gdal
