#include "grid_types.h"

#include <gdal_priv.h>

#include <array>
#include <cmath>
#include <limits>

namespace vx::gdal {
namespace {
/// The signed form of a type that GDAL takes for unsigned bytes.
constexpr char c_signed_bytes[] = "SIGNEDBYTE";

template <class T>
double clamped(double value)
{
    constexpr auto c_low = static_cast<double>(std::numeric_limits<T>::lowest());
    constexpr auto c_high = static_cast<double>(std::numeric_limits<T>::max());
    return std::isnan(value) ? 0 : std::floor(std::min(std::max(value, c_low), c_high) + 0.5);
}

/// The value is one of the type's.
template <class T>
bool is_whole(double value)
{
    // The greatest number of a wide type is rounded up as a double.
    constexpr auto c_end = static_cast<double>(std::numeric_limits<T>::max() / 2 + 1) * 2;
    return value == std::floor(value) && value >= static_cast<double>(std::numeric_limits<T>::lowest()) &&
           value < c_end;
}
} // namespace

bool has_signed_bytes(GDALRasterBand &band)
{
    if (band.GetRasterDataType() != GDT_Byte)
        return false;
    char const *const kind = band.GetMetadataItem("PIXELTYPE", "IMAGE_STRUCTURE");
    return kind && EQUAL(kind, c_signed_bytes);
}

void set_signed_bytes(GDALRasterBand &band)
{
    band.SetMetadataItem("PIXELTYPE", c_signed_bytes, "IMAGE_STRUCTURE");
}

int cell_type_of(GDALRasterBand &band)
{
    switch (band.GetRasterDataType()) {
    case GDT_Byte:
        return has_signed_bytes(band) ? cells_int8 : cells_uint8;
    case GDT_Int16:
    case GDT_CInt16:
        return cells_int16;
    case GDT_UInt16:
        return cells_uint16;
    case GDT_Int32:
    case GDT_CInt32:
        return cells_int32;
    case GDT_UInt32:
        return cells_uint32;
    case GDT_Int64:
        return cells_int64;
    case GDT_UInt64:
        return cells_uint64;
    case GDT_Float32:
    case GDT_CFloat32:
        return cells_float32;
    case GDT_Float64:
    case GDT_CFloat64:
        return cells_float64;
    default:
        return cells_none;
    }
}

int cell_size(int type)
{
    return type == cells_int8 ? 1 : GDALGetDataTypeSizeBytes(gdal_type_of(type));
}

GDALDataType gdal_type_of(int type)
{
    constexpr std::array c_types{GDT_Unknown, GDT_Byte,  GDT_Unknown, GDT_Int16,   GDT_UInt16, GDT_Int32,
                                 GDT_UInt32,  GDT_Int64, GDT_UInt64,  GDT_Float32, GDT_Float64};
    return type >= 0 && type < static_cast<int>(c_types.size()) ? c_types[static_cast<std::size_t>(type)]
                                                                : GDT_Unknown;
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

double nodata::in_type(int type) const
{
    switch (type) {
    case cells_uint8:
        return clamped<std::uint8_t>(value);
    case cells_int8:
        return clamped<std::int8_t>(value);
    case cells_int16:
        return clamped<std::int16_t>(value);
    case cells_uint16:
        return clamped<std::uint16_t>(value);
    case cells_int32:
        return clamped<std::int32_t>(value);
    case cells_uint32:
        return clamped<std::uint32_t>(value);
    case cells_int64:
        return clamped<std::int64_t>(value);
    case cells_uint64:
        return clamped<std::uint64_t>(value);
    case cells_float32: {
        // Numbers beyond the type become its greatest.
        constexpr auto c_most = static_cast<double>(std::numeric_limits<float>::max());
        return std::isfinite(value)
                   ? static_cast<double>(static_cast<float>(std::min(std::max(value, -c_most), c_most)))
                   : value;
    }
    default:
        return value;
    }
}

nodata nodata_of(GDALRasterBand &band)
{
    nodata result;
    int has = FALSE;
    // The wide integer types have functions of their own for it.
    if (band.GetRasterDataType() == GDT_Int64)
        result.value = static_cast<double>(band.GetNoDataValueAsInt64(&has));
    else if (band.GetRasterDataType() == GDT_UInt64)
        result.value = static_cast<double>(band.GetNoDataValueAsUInt64(&has));
    else
        result.value = band.GetNoDataValue(&has);
    result.has = has != FALSE;
    return result;
}

bool set_nodata_of(GDALRasterBand &band, double value)
{
    if (band.GetRasterDataType() == GDT_Int64)
        return is_whole<std::int64_t>(value) &&
               band.SetNoDataValueAsInt64(static_cast<std::int64_t>(value)) == CE_None;
    if (band.GetRasterDataType() == GDT_UInt64)
        return is_whole<std::uint64_t>(value) &&
               band.SetNoDataValueAsUInt64(static_cast<std::uint64_t>(value)) == CE_None;
    return band.SetNoDataValue(value) == CE_None;
}
} // namespace vx::gdal
