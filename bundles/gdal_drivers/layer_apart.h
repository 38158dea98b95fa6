#pragma once

#include <memory>

class GDALDataset;
class OGRLayer;

namespace vx::gdal {
class dataset;

/// A table of a data set that nobody else uses.
struct layer_apart
{
    std::shared_ptr<GDALDataset> set;
    OGRLayer *layer = nullptr; ///< null: it cannot be had
};

constexpr int c_no_field = -1;
/// Opens the source once more. Of the table only one field is read or, without one, the geometry.
[[nodiscard]] layer_apart open_apart(dataset const &set, char const *name, int field);
} // namespace vx::gdal
