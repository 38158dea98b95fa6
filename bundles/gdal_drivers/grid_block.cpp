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

void band_block::detach()
{
    {
        std::wstring failure;
        {
            error_guard const guard(failure);
            if (f_has_written)
                f_set->gdal().FlushCache();
        }
        if (!failure.empty())
            f_set->error() = failure;
    }
    // The last block of a source that is gone closes the file.
    std::wstring ignored;
    error_guard const guard(ignored);
    delete this;
}

int band_block::datatype()
{
    return cell_type_of(f_band);
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

bool band_block::with_nodata(int datatype, double *value)
{
    nodata const found = nodata_of(f_band);
    if (found.has && value)
        *value = found.in_type(datatype);
    return found.has && value;
}

bool band_block::set_nodata(int, double value)
{
    error_guard guard(f_set->error());
    if (!may_write(guard))
        return false;
    if (!set_nodata_of(f_band, value)) {
        guard.add(c_drv_cell_number);
        return false;
    }
    note_change();
    return true;
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
        guard.add(c_drv_read_only);
    return !f_set->read_only();
}

void band_block::note_change()
{
    f_set->note_change();
    // Statistics that lie in the file are of the cells as they were.
    for (char const *name : {"STATISTICS_MINIMUM", "STATISTICS_MAXIMUM", "STATISTICS_MEAN",
                             "STATISTICS_STDDEV", "STATISTICS_VALID_PERCENT", "STATISTICS_APPROXIMATE"})
        if (f_band.GetMetadataItem(name))
            f_band.SetMetadataItem(name, nullptr);
}

bool band_block::store_filled(cell_window const &window)
{
    int across = 0;
    int down = 0;
    f_band.GetBlockSize(&across, &down);
    auto const first_full = [](int start, int block) { return (start - 1LL + block) / block; };
    // A block at the end of the grid is filled by what there is of it.
    auto const end_of_full = [](int end, int block, int whole) {
        return end == whole ? (end - 1LL + block) / block : end / block;
    };
    for (long long row = first_full(window.y, down);
         row < end_of_full(window.y + window.height, down, f_band.GetYSize()); ++row)
        for (long long column = first_full(window.x, across);
             column < end_of_full(window.x + window.width, across, f_band.GetXSize()); ++column)
            // Some bands keep no cache, and cannot be told to empty it.
            if (GDALRasterBlock *const block =
                    f_band.TryGetLockedBlockRef(static_cast<int>(column), static_cast<int>(row))) {
                block->DropLock();
                if (f_band.FlushBlock(static_cast<int>(column), static_cast<int>(row)) != CE_None)
                    return false;
            }
    return true;
}

int band_block::transfer_window(GDALRWFlag way, cell_window const &window)
{
    if (way == GF_Write && !f_has_written) {
        f_has_written = true;
        note_change();
    }
    transfer_status const status = transfer_cells(f_band, way, window, resampling_of(f_resampling));
    if (way == GF_Read || status != transfer_done)
        return status;
    f_set->note_change();
    return store_filled(window) ? transfer_done : transfer_failed;
}

int band_block::transfer(GDALRWFlag way, unsigned long long offset, unsigned long long count, void *buffer,
                         unsigned long long buffer_count, int datatype, long long space,
                         unsigned long long *done)
{
    auto const width = static_cast<unsigned long long>(f_band.GetXSize());
    auto const cells = width * static_cast<unsigned long long>(f_band.GetYSize());
    int const size = cell_size(datatype);
    if (size == 0)
        return transfer_not_offered;
    error_guard guard(f_set->error());
    GSpacing pixel = 0;
    if (!buffer || offset > cells || count > cells - offset || !stride(space ? space : 1, size, pixel) ||
        (way == GF_Write && !may_write(guard)))
        return transfer_failed;
    if (buffer_count != count) {
        if (count == 0 || buffer_count == 0 || buffer_count > INT_MAX || count > width - offset % width)
            return transfer_failed;
        cell_window const run{static_cast<int>(offset % width),
                              static_cast<int>(offset / width),
                              static_cast<int>(count),
                              1,
                              buffer,
                              static_cast<int>(buffer_count),
                              1,
                              datatype,
                              pixel,
                              0};
        int const status = transfer_window(way, run);
        if (done && status == transfer_done)
            *done = buffer_count;
        return status;
    }
    auto *at = static_cast<char *>(buffer);
    // The end of the first row, then whole rows at once, then the start of the last row.
    for (unsigned long long left = count; left > 0;) {
        unsigned long long const column = offset % width;
        unsigned long long const rows = column == 0 ? left / width : 0;
        auto const across = static_cast<int>(rows > 0 ? width : std::min(left, width - column));
        auto const down = static_cast<int>(std::max(rows, 1ULL));
        cell_window const part{static_cast<int>(column),
                               static_cast<int>(offset / width),
                               across,
                               down,
                               at,
                               across,
                               down,
                               datatype,
                               pixel,
                               pixel * across};
        if (int const status = transfer_window(way, part); status != transfer_done)
            return status;
        auto const moved = static_cast<unsigned long long>(across) * static_cast<unsigned long long>(down);
        at += static_cast<GSpacing>(moved) * pixel;
        offset += moved;
        left -= moved;
    }
    if (done)
        *done = count;
    return transfer_done;
}

int band_block::read(unsigned long long offset, unsigned long long count, void *buffer, int datatype,
                     unsigned long long *done)
{
    return transfer(GF_Read, offset, count, buffer, count, datatype, 0, done);
}

int band_block::write(unsigned long long offset, unsigned long long count, void const *buffer, int datatype,
                      unsigned long long *done)
{
    return transfer(GF_Write, offset, count, const_cast<void *>(buffer), count, datatype, 0, done);
}

int band_block::read1d(unsigned long long offset, unsigned long long count, void *buffer,
                       unsigned long long buffer_count, int datatype, long long space,
                       unsigned long long *done)
{
    return transfer(GF_Read, offset, count, buffer, buffer_count, datatype, space, done);
}

int band_block::write1d(unsigned long long offset, unsigned long long count, void const *buffer,
                        unsigned long long buffer_count, int datatype, long long space,
                        unsigned long long *done)
{
    return transfer(GF_Write, offset, count, const_cast<void *>(buffer), buffer_count, datatype, space, done);
}

int band_block::transfer2d(GDALRWFlag way, unsigned long long const *offset, unsigned long long const *size,
                           void *buffer, unsigned long long const *buffer_size, int datatype,
                           long long const *space, unsigned long long *done)
{
    if (cell_size(datatype) == 0)
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
    cell_window window{static_cast<int>(offset[0]),
                       static_cast<int>(offset[1]),
                       static_cast<int>(size[0]),
                       static_cast<int>(size[1]),
                       buffer,
                       static_cast<int>(buffer_size[0]),
                       static_cast<int>(buffer_size[1]),
                       datatype,
                       0,
                       0};
    if (!stride(pixel_cells, cell_size(datatype), window.pixel) ||
        !stride(line_cells, cell_size(datatype), window.line))
        return transfer_failed;
    int const status = transfer_window(way, window);
    if (done && status == transfer_done)
        *done = buffer_size[0] * buffer_size[1];
    return status;
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

int band_block::transfer3d(GDALRWFlag way, unsigned long long const *offset, unsigned long long const *size,
                           void *buffer, unsigned long long const *buffer_size, int datatype,
                           long long const *space, unsigned long long *done)
{
    if (cell_size(datatype) == 0)
        return transfer_not_offered;
    if (!offset || !size || !buffer_size || offset[2] != 0 || size[2] != 1 || buffer_size[2] != 1)
        return transfer_failed;
    return transfer2d(way, offset, size, buffer, buffer_size, datatype, space, done);
}

int band_block::read3d(unsigned long long const *offset, unsigned long long const *size, void *buffer,
                       unsigned long long const *buffer_size, int datatype, long long const *space,
                       unsigned long long *done)
{
    return transfer3d(GF_Read, offset, size, buffer, buffer_size, datatype, space, done);
}

int band_block::write3d(unsigned long long const *offset, unsigned long long const *size, void const *buffer,
                        unsigned long long const *buffer_size, int datatype, long long const *space,
                        unsigned long long *done)
{
    return transfer3d(GF_Write, offset, size, const_cast<void *>(buffer), buffer_size, datatype, space, done);
}

bool band_block::block_window(unsigned long long column, unsigned long long row, void *buffer,
                              cell_window &window) const
{
    int across = 0;
    int down = 0;
    f_band.GetBlockSize(&across, &down);
    auto const blocks = [](int cells, int block) {
        return static_cast<unsigned long long>((cells + static_cast<long long>(block) - 1) / block);
    };
    if (!buffer || across <= 0 || down <= 0 || column >= blocks(f_band.GetXSize(), across) ||
        row >= blocks(f_band.GetYSize(), down))
        return false;
    int const x = static_cast<int>(column) * across;
    int const y = static_cast<int>(row) * down;
    int const type = cell_type_of(f_band);
    GSpacing const pixel = cell_size(type);
    window = {x,
              y,
              std::min(across, f_band.GetXSize() - x),
              std::min(down, f_band.GetYSize() - y),
              buffer,
              0,
              0,
              type,
              pixel,
              pixel * across};
    window.buffer_width = window.width;
    window.buffer_height = window.height;
    return window.type != cells_none;
}

// A set that may be written goes through GDAL's cache, in which blocks may lie that the file has not got yet.
// The cells of complex types cross as their real part.

int band_block::read_block2d(unsigned long long column, unsigned long long row, void *buffer)
{
    error_guard const guard(f_set->error());
    cell_window window{};
    if (!block_window(column, row, buffer, window))
        return transfer_failed;
    if (!f_set->read_only() || GDALDataTypeIsComplex(f_band.GetRasterDataType()))
        return transfer_cells(f_band, GF_Read, window, GRIORA_NearestNeighbour);
    bool const good = f_band.ReadBlock(static_cast<int>(column), static_cast<int>(row), buffer) == CE_None;
    return good ? transfer_done : transfer_failed;
}

int band_block::write_block2d(unsigned long long column, unsigned long long row, void const *buffer)
{
    error_guard guard(f_set->error());
    cell_window window{};
    if (!block_window(column, row, const_cast<void *>(buffer), window) || !may_write(guard))
        return transfer_failed;
    return transfer_window(GF_Write, window);
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
