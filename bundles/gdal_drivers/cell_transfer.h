#pragma once

#include "grid_types.h"

#include <gdal_priv.h>

namespace vx::gdal {
/// A window of a band and the buffer that its cells go to or come from.
struct cell_window
{
    int x, y, width, height; ///< inside the band
    void *buffer;
    int buffer_width, buffer_height;
    int type;             ///< of the buffer's cells: a `cell_type`
    GSpacing pixel, line; ///< strides of the buffer in bytes

    [[nodiscard]] bool is_exact() const { return width == buffer_width && height == buffer_height; }
};

/// Moves cells by GDAL's rules: numbers that the target's type does not hold become its nearest one,
/// fractions are rounded. Types that GDAL has not are converted here in the same way. Errors are GDAL's.
[[nodiscard]] transfer_status transfer_cells(GDALRasterBand &band, GDALRWFlag way, cell_window const &window,
                                             GDALRIOResampleAlg resampling);
} // namespace vx::gdal
