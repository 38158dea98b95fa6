#include "grid_block.h"

#include <algorithm>
#include <climits>

namespace vx::gdal {
namespace {
/// Cells of the buffer in bytes; false when that cannot be an address.
bool stride(long long cells, int size, GSpacing &bytes)
{
    if (cells <= 0 || cells > LLONG_MAX / size)
        return false;
    bytes = cells * size;
    return true;
}
} // namespace

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

void band_block::detach()
{
    // The last block of a source that is gone closes the file.
    std::wstring ignored;
    error_guard const guard(ignored);
    delete this;
}

int band_block::datatype()
{
    return data_type_of(f_band.GetRasterDataType());
}

int band_block::kind()
{
    return f_band.GetColorTable() || f_band.GetCategoryNames() ? cells_coded : cells_measured;
}

bool band_block::block_size(unsigned long long *counts)
{
    if (!counts)
        return false;
    int width = 0;
    int height = 0;
    f_band.GetBlockSize(&width, &height);
    counts[0] = static_cast<unsigned long long>(width);
    counts[1] = static_cast<unsigned long long>(height);
    counts[2] = 1;
    return true;
}

bool band_block::with_nodata(int, double *value)
{
    nodata const found = nodata_of(f_band);
    if (found.has && value)
        *value = found.value;
    return found.has && value;
}

bool band_block::set_nodata(int, double value)
{
    error_guard guard(f_set->error());
    return may_write(guard) && f_band.SetNoDataValue(value) == CE_None;
}

bool band_block::set_resampling(int method)
{
    if (resampling_of(method) != method)
        return false;
    f_resampling = method;
    return true;
}

bool band_block::with_overview(int index, vx::grid_block_visitor visitor)
{
    GDALRasterBand *const band = index >= 0 && index < overview_count() ? f_band.GetOverview(index) : nullptr;
    if (!band || !visitor)
        return false;
    visitor.visit(*new band_block(f_set, *band));
    return true;
}

bool band_block::may_write(error_guard &guard) const
{
    if (f_set->read_only())
        guard.add(L"The data set is open for reading only.");
    return !f_set->read_only();
}

int band_block::transfer(GDALRWFlag way, unsigned long long offset, unsigned long long count, void *buffer,
                         int datatype, unsigned long long *done)
{
    auto const width = static_cast<unsigned long long>(f_band.GetXSize());
    auto const cells = width * static_cast<unsigned long long>(f_band.GetYSize());
    GDALDataType const type = gdal_type_of(datatype);
    if (type == GDT_Unknown)
        return transfer_not_offered;
    error_guard guard(f_set->error());
    if (!buffer || offset > cells || count > cells - offset || (way == GF_Write && !may_write(guard)))
        return transfer_failed;
    int const size = GDALGetDataTypeSizeBytes(type);
    auto *at = static_cast<char *>(buffer);
    // The end of the first row, then whole rows at once, then the start of the last row.
    for (unsigned long long left = count; left > 0;) {
        unsigned long long const column = offset % width;
        unsigned long long const rows = column == 0 ? left / width : 0;
        unsigned long long const across = rows > 0 ? width : std::min(left, width - column);
        unsigned long long const down = std::max(rows, 1ULL);
        if (f_band.RasterIO(way, static_cast<int>(column), static_cast<int>(offset / width),
                            static_cast<int>(across), static_cast<int>(down), at, static_cast<int>(across),
                            static_cast<int>(down), type, 0, 0, nullptr) != CE_None)
            return transfer_failed;
        at += across * down * static_cast<unsigned long long>(size);
        offset += across * down;
        left -= across * down;
    }
    if (done)
        *done = count;
    return transfer_done;
}

int band_block::read(unsigned long long offset, unsigned long long count, void *buffer, int datatype,
                     unsigned long long *done)
{
    return transfer(GF_Read, offset, count, buffer, datatype, done);
}

int band_block::write(unsigned long long offset, unsigned long long count, void const *buffer, int datatype,
                      unsigned long long *done)
{
    return transfer(GF_Write, offset, count, const_cast<void *>(buffer), datatype, done);
}

int band_block::transfer2d(GDALRWFlag way, unsigned long long const *offset, unsigned long long const *size,
                           void *buffer, unsigned long long const *buffer_size, int datatype,
                           long long const *space, unsigned long long *done)
{
    GDALDataType const type = gdal_type_of(datatype);
    if (type == GDT_Unknown)
        return transfer_not_offered;
    error_guard guard(f_set->error());
    if (!offset || !size || !buffer || !buffer_size || (way == GF_Write && !may_write(guard)))
        return transfer_failed;
    unsigned long long const whole[2] = {static_cast<unsigned long long>(f_band.GetXSize()),
                                         static_cast<unsigned long long>(f_band.GetYSize())};
    for (int axis = 0; axis < 2; ++axis)
        if (size[axis] == 0 || size[axis] > whole[axis] || offset[axis] > whole[axis] - size[axis] ||
            buffer_size[axis] == 0 || buffer_size[axis] > INT_MAX)
            return transfer_failed;
    long long const pixel_cells = space && space[0] ? space[0] : 1;
    long long const width = static_cast<long long>(buffer_size[0]);
    if (pixel_cells <= 0 || pixel_cells > LLONG_MAX / width)
        return transfer_failed;
    long long const line_cells = space && space[1] ? space[1] : pixel_cells * width;
    GSpacing pixel = 0;
    GSpacing line = 0;
    if (!stride(pixel_cells, GDALGetDataTypeSizeBytes(type), pixel) ||
        !stride(line_cells, GDALGetDataTypeSizeBytes(type), line))
        return transfer_failed;
    GDALRasterIOExtraArg extra;
    INIT_RASTERIO_EXTRA_ARG(extra);
    extra.eResampleAlg = resampling_of(f_resampling);
    if (f_band.RasterIO(way, static_cast<int>(offset[0]), static_cast<int>(offset[1]),
                        static_cast<int>(size[0]), static_cast<int>(size[1]), buffer,
                        static_cast<int>(buffer_size[0]), static_cast<int>(buffer_size[1]), type, pixel, line,
                        &extra) != CE_None)
        return transfer_failed;
    if (done)
        *done = buffer_size[0] * buffer_size[1];
    return transfer_done;
}

int band_block::read2d(unsigned long long const *offset, unsigned long long const *size, void *buffer,
                       unsigned long long const *buffer_size, int datatype, long long const *space,
                       unsigned long long *done)
{
    return transfer2d(GF_Read, offset, size, buffer, buffer_size, datatype, space, done);
}

int band_block::write2d(unsigned long long const *offset, unsigned long long const *size, void const *buffer,
                        unsigned long long const *buffer_size, int datatype, long long const *space,
                        unsigned long long *done)
{
    return transfer2d(GF_Write, offset, size, const_cast<void *>(buffer), buffer_size, datatype, space, done);
}

bool band_block::is_block(unsigned long long column, unsigned long long row) const
{
    int width = 0;
    int height = 0;
    f_band.GetBlockSize(&width, &height);
    auto const blocks = [](int cells, int block) {
        return static_cast<unsigned long long>((cells + static_cast<long long>(block) - 1) / block);
    };
    return width > 0 && height > 0 && column < blocks(f_band.GetXSize(), width) &&
           row < blocks(f_band.GetYSize(), height);
}

int band_block::read_block2d(unsigned long long column, unsigned long long row, void *buffer)
{
    error_guard const guard(f_set->error());
    if (!buffer || !is_block(column, row))
        return transfer_failed;
    bool const good = f_band.ReadBlock(static_cast<int>(column), static_cast<int>(row), buffer) == CE_None;
    return good ? transfer_done : transfer_failed;
}

int band_block::write_block2d(unsigned long long column, unsigned long long row, void const *buffer)
{
    error_guard guard(f_set->error());
    if (!buffer || !is_block(column, row) || !may_write(guard))
        return transfer_failed;
    bool const good = f_band.WriteBlock(static_cast<int>(column), static_cast<int>(row),
                                        const_cast<void *>(buffer)) == CE_None;
    return good ? transfer_done : transfer_failed;
}

band_palette::band_palette(GDALColorTable const &table)
{
    for (int i = 0; i < table.GetColorEntryCount(); ++i) {
        GDALColorEntry entry{};
        table.GetColorEntryAsRGB(i, &entry);
        f_colors.push_back(vx_clr_init_rgba(entry.c1, entry.c2, entry.c3, entry.c4));
    }
}

bool band_palette::with_color(int index, Tvx_color *color)
{
    if (!color || index < 0 || index >= color_count())
        return false;
    *color = f_colors[static_cast<std::size_t>(index)];
    return true;
}
} // namespace vx::gdal
