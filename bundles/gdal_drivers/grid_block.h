#pragma once

#include "dataset.h"
#include "extension/binding/grid_block.h"
#include "extension/binding/grid_palette.h"
#include "grid_types.h"

#include "platform/base/color.h"

#include <memory>
#include <vector>

namespace vx::gdal {
[[nodiscard]] nodata nodata_of(GDALRasterBand &band);

/// The cells of one field, or of one of its overviews. It keeps the data set open. Ended by its `detach`.
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
    int read2d(unsigned long long const *offset, unsigned long long const *size, void *buffer,
               unsigned long long const *buffer_size, int datatype, long long const *space,
               unsigned long long *done) override;
    int write2d(unsigned long long const *offset, unsigned long long const *size, void const *buffer,
                unsigned long long const *buffer_size, int datatype, long long const *space,
                unsigned long long *done) override;
    int read_block2d(unsigned long long column, unsigned long long row, void *buffer) override;
    int write_block2d(unsigned long long column, unsigned long long row, void const *buffer) override;

private:
    ~band_block() = default;
    [[nodiscard]] int transfer(GDALRWFlag way, unsigned long long offset, unsigned long long count,
                               void *buffer, int datatype, unsigned long long *done);
    [[nodiscard]] int transfer2d(GDALRWFlag way, unsigned long long const *offset,
                                 unsigned long long const *size, void *buffer,
                                 unsigned long long const *buffer_size, int datatype, long long const *space,
                                 unsigned long long *done);
    [[nodiscard]] bool is_block(unsigned long long column, unsigned long long row) const;
    [[nodiscard]] bool may_write(error_guard &guard) const;

    std::shared_ptr<dataset> f_set;
    GDALRasterBand &f_band;
    int f_resampling = 0;
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
