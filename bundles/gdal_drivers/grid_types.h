#pragma once

#include <gdal.h>

/// Numbers of the component interface for grids, and what they are in GDAL.
namespace vx::gdal {
/// Answer of every transfer of cells.
enum transfer_status : int
{
    transfer_not_offered = 0,
    transfer_done = 1,
    transfer_failed = 2,
};

/// Kind of the cells of a field.
enum cell_kind : int
{
    cells_measured = 0, ///< numbers of a scale
    cells_coded = 1,    ///< numbers of classes: the field has a palette or names for its values
};

/// The type that crosses, 1 to 10; complex cells count as their real part. 0 for no type.
[[nodiscard]] int data_type_of(GDALDataType type);
/// `GDT_Unknown` for a number that GDAL has no type for: int8, and all that is no type.
[[nodiscard]] GDALDataType gdal_type_of(int type);
/// A resampling by its number, which is GDAL's; nearest for what is none.
[[nodiscard]] GDALRIOResampleAlg resampling_of(int number);
/// Its name in the building of overviews.
[[nodiscard]] char const *resampling_name(int number);

/// The value of a field that means no value.
struct nodata
{
    double value = 0;
    bool has = false;

    /// A number close to it is it: the value may have been stored in a shorter type. With one that is not
    /// finite, all that is not finite has no value.
    [[nodiscard]] bool counts(double cell) const;
};
} // namespace vx::gdal
