#include "grid_types.h"

#include <algorithm>
#include <cmath>

namespace vx::gdal {
namespace {
constexpr double c_nodata_absolute = 0.000001;
constexpr double c_nodata_relative = 0.00001;
} // namespace

int data_type_of(GDALDataType type)
{
    switch (type) {
    case GDT_Byte:
        return 1;
    case GDT_Int16:
    case GDT_CInt16:
        return 3;
    case GDT_UInt16:
        return 4;
    case GDT_Int32:
    case GDT_CInt32:
        return 5;
    case GDT_UInt32:
        return 6;
    case GDT_Int64:
        return 7;
    case GDT_UInt64:
        return 8;
    case GDT_Float32:
    case GDT_CFloat32:
        return 9;
    case GDT_Float64:
    case GDT_CFloat64:
        return 10;
    default:
        return 0;
    }
}

GDALDataType gdal_type_of(int type)
{
    constexpr GDALDataType c_types[] = {GDT_Unknown, GDT_Byte,    GDT_Unknown, GDT_Int16,
                                        GDT_UInt16,  GDT_Int32,   GDT_UInt32,  GDT_Int64,
                                        GDT_UInt64,  GDT_Float32, GDT_Float64};
    return type >= 0 && type <= 10 ? c_types[type] : GDT_Unknown;
}

GDALRIOResampleAlg resampling_of(int number)
{
    return number >= GRIORA_NearestNeighbour && number <= GRIORA_Mode
               ? static_cast<GDALRIOResampleAlg>(number)
               : GRIORA_NearestNeighbour;
}

char const *resampling_name(int number)
{
    constexpr char const *c_names[] = {"NEAREST", "BILINEAR", "CUBIC", "CUBICSPLINE",
                                       "LANCZOS", "AVERAGE",  "MODE"};
    return c_names[resampling_of(number)];
}

bool nodata::counts(double cell) const
{
    if (!has)
        return true;
    if (!std::isfinite(value))
        return std::isfinite(cell);
    double const close =
        std::max(c_nodata_absolute, c_nodata_relative * std::max(std::fabs(cell), std::fabs(value)));
    return !(std::fabs(cell - value) <= close);
}
} // namespace vx::gdal
