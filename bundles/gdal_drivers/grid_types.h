#pragma once

#include "extension/binding/codes.h"

#include "platform/base/no_data.h"

#include <gdal.h>

class GDALRasterBand;

/// Numbers of the component interface for grids, and what they are in GDAL.
namespace vx::gdal {
using namespace codes::plain;

/// Signed bytes are a property of a band of bytes.
[[nodiscard]] bool has_signed_bytes(GDALRasterBand &band);
/// Takes a new band of bytes for a band of signed ones.
void set_signed_bytes(GDALRasterBand &band);
/// The type of a band's cells, complex ones by their real part; `cells_none` for no type.
[[nodiscard]] int cell_type_of(GDALRasterBand &band);
/// Bytes of one cell; 0 for a number that is no type.
[[nodiscard]] int cell_size(int type);
/// `GDT_Unknown` for a number that GDAL has no type for: int8, and all that is no type.
[[nodiscard]] GDALDataType gdal_type_of(int type);
/// A resampling by its number, which is GDAL's; nearest for what is none.
[[nodiscard]] GDALRIOResampleAlg resampling_of(int number);
/// Its name in the building of overviews.
[[nodiscard]] char const *resampling_name(int number);

/// The number of a band that means no value.
struct nodata
{
    double value = 0;
    bool has = false;

    [[nodiscard]] no_data_test test() const { return has ? no_data_test(value) : no_data_test(); }
    /// As it stands in a buffer of that type after a transfer; of the band's own for `cells_none`.
    [[nodiscard]] double in_type(int type) const;
};
[[nodiscard]] nodata nodata_of(GDALRasterBand &band);
/// False when the band's type does not hold the value.
[[nodiscard]] bool set_nodata_of(GDALRasterBand &band, double value);
} // namespace vx::gdal
