#pragma once

#include "cell_transfer.h"
#include "dataset.h"
#include "extension/binding/grid_block.h"
#include "extension/binding/grid_palette.h"
#include "grid_types.h"

#include "platform/base/color.h"

#include <memory>
#include <vector>

namespace vx::gdal {
/// The cells of one field, or of one of its overviews. It keeps the data set open. Ended by its `detach`.
///
/// What is written is stored at once where it fills whole pieces of the file; the rest is stored when the
/// block ends, so that pieces are not packed again for each line of theirs. What fails then is the data set's
/// error.
class band_block final : public grid_block_impl
{
public:
    band_block(std::shared_ptr<dataset> set, GDALRasterBand &band) : f_set(std::move(set)), f_band(band) {}

    void detach() override;
    int datatype() override;
    int kind() override;
    bool block_size(unsigned long long *counts) override;
    bool with_nodata(int datatype, double *value) override;
    bool set_nodata(int datatype, double value) override;
    int resampling() override { return f_resampling; }
    bool set_resampling(int method) override;
    int overview_count() override { return f_band.GetOverviewCount(); }
    bool with_overview(int index, vx::grid_block_visitor visitor) override;
    int read(unsigned long long offset, unsigned long long count, void *buffer, int datatype,
             unsigned long long *done) override;
    int write(unsigned long long offset, unsigned long long count, void const *buffer, int datatype,
              unsigned long long *done) override;
    /// A run inside one row may be resampled; one that goes on in the next row has a buffer of its own size.
    int read1d(unsigned long long offset, unsigned long long count, void *buffer,
               unsigned long long buffer_count, int datatype, long long space,
               unsigned long long *done) override;
    int write1d(unsigned long long offset, unsigned long long count, void const *buffer,
                unsigned long long buffer_count, int datatype, long long space,
                unsigned long long *done) override;
    int read2d(unsigned long long const *offset, unsigned long long const *size, void *buffer,
               unsigned long long const *buffer_size, int datatype, long long const *space,
               unsigned long long *done) override;
    int write2d(unsigned long long const *offset, unsigned long long const *size, void const *buffer,
                unsigned long long const *buffer_size, int datatype, long long const *space,
                unsigned long long *done) override;
    /// There is one level.
    int read3d(unsigned long long const *offset, unsigned long long const *size, void *buffer,
               unsigned long long const *buffer_size, int datatype, long long const *space,
               unsigned long long *done) override;
    int write3d(unsigned long long const *offset, unsigned long long const *size, void const *buffer,
                unsigned long long const *buffer_size, int datatype, long long const *space,
                unsigned long long *done) override;
    int read_block2d(unsigned long long column, unsigned long long row, void *buffer) override;
    int write_block2d(unsigned long long column, unsigned long long row, void const *buffer) override;

private:
    ~band_block() = default;
    [[nodiscard]] int transfer(GDALRWFlag way, unsigned long long offset, unsigned long long count,
                               void *buffer, unsigned long long buffer_count, int datatype, long long space,
                               unsigned long long *done);
    [[nodiscard]] int transfer2d(GDALRWFlag way, unsigned long long const *offset,
                                 unsigned long long const *size, void *buffer,
                                 unsigned long long const *buffer_size, int datatype, long long const *space,
                                 unsigned long long *done);
    [[nodiscard]] int transfer3d(GDALRWFlag way, unsigned long long const *offset,
                                 unsigned long long const *size, void *buffer,
                                 unsigned long long const *buffer_size, int datatype, long long const *space,
                                 unsigned long long *done);
    /// Cells of a window that was checked.
    [[nodiscard]] int transfer_window(GDALRWFlag way, cell_window const &window);
    /// The part of a block that lies in the grid; false for a block that is none.
    [[nodiscard]] bool block_window(unsigned long long column, unsigned long long row, void *buffer,
                                    cell_window &window) const;
    [[nodiscard]] bool may_write(error_guard &guard) const;
    /// Nothing that was known of the cells holds any longer.
    void note_change();
    /// Stores the blocks that the window fills.
    [[nodiscard]] bool store_filled(cell_window const &window);

    std::shared_ptr<dataset> f_set;
    GDALRasterBand &f_band;
    int f_resampling = 0;
    bool f_has_written = false;
};

/// The colours of a field. A copy: it outlives the source. Ended by its `detach`.
class band_palette final : public grid_palette_impl
{
public:
    explicit band_palette(GDALColorTable const &table);

    void detach() override { delete this; }
    int color_count() override { return static_cast<int>(f_colors.size()); }
    bool with_color(int index, Tvx_color *color) override;

private:
    ~band_palette() = default;

    std::vector<Tvx_color> f_colors;
};
} // namespace vx::gdal
