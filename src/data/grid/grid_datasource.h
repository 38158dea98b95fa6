#pragma once

#include "data/grid/grid_block.h"
#include "data/grid/grid_palette.h"
#include "data/grid/grid_types.h"
#include "data/source/generic_datasource.h"
#include "extension/binding/grid_source.h"
#include "extension/binding/monitor.h"

namespace vx::data {
/// A data set with a grid. Its fields are layers of cells of one type each, kept by the driver in blocks.
/// Columns count along x, rows along y. A null handle answers 0, false or a zero value.
///
/// A cell has a value unless it is the field's no-data number; see `nodata_info`. Walks hold one block at a
/// time and end quietly at the first block that cannot be read.
class VX_API grid_datasource : public generic_datasource
{
public:
    ~grid_datasource() override;

    bool open_data(std::wstring const &source, access_mode mode) override;
    void close_data() override;
    bool compute_stat_common(field_index_type field, statistic &stat) override;
    bool compute_stat_stdev(field_index_type field, statistic &stat) override;
    bool compute_stat_distinct(field_index_type field, statistic &stat) override;
    /// The numbers with 15 digits. Values are added to what the list holds.
    bool fetch_values(field_index_type field, std::vector<std::wstring> &values) override;
    bool fetch_values(field_index_type field, std::vector<double> &values) override;
    bool fetch_unique_values(field_index_type field, std::uint64_t limit,
                             std::set<std::wstring> &values) override;
    /// The limit is looked at after each whole block, so that there may be more values. They are added to
    /// what the set holds. What is not a number is left out, and negative zero is zero. False when a block
    /// could not be read; the values of those before it are in the set.
    bool fetch_unique_values(field_index_type field, std::uint64_t limit, std::set<double> &values) override;
    /// Of the listed fields those cells that have a value, in the order of the list; a key for which there is
    /// none is left out.
    bool fetch_unique_values(field_index_type key, std::vector<field_index_type> const &fields,
                             std::uint64_t limit,
                             std::map<std::wstring, std::vector<std::wstring>> &values) override;
    using generic_datasource::compute_stat_common;
    using generic_datasource::compute_stat_distinct;
    using generic_datasource::compute_stat_stdev;
    using generic_datasource::field_unique_values;
    /// `fetch_unique_values`: the driver is not asked.
    bool field_unique_values(field_index_type field, std::uint64_t limit, std::set<double> &values);

    /// Works on the handle of another object, which stays its owner's; false, with nothing taken, when that
    /// has no grid.
    bool from_generic(generic_datasource const &source);
    bool from_generic(vx::data_source source);
    bool from_handle(t_vx_data_source_interface handle);

    // ---- the source

    bool select_source(std::wstring const &name);
    /// Makes the grid of a new data set. Counts have to fit 32 bits.
    bool create_grid(std::wstring const &name, grid_type type, grid_dims const &dims,
                     field_index_type field_count, data_type cells);
    bool create_grid(std::wstring const &name, options const &o, grid_type type, grid_dims const &dims,
                     field_index_type field_count, data_type cells);

    /// From column and row of a cell's corner to coordinates.
    bool geotransform(Tvx_matrix3x3 &matrix) const;
    /// The plane's, widened, where the driver has none of space.
    bool geotransform(Tvx_matrix4x4 &matrix) const;
    bool set_geotransform(Tvx_matrix3x3 const &matrix);
    bool set_geotransform(Tvx_matrix4x4 const &matrix);
    [[nodiscard]] grid_type gridtype() const;
    bool set_gridtype(grid_type type);
    [[nodiscard]] grid_origin origin() const;
    bool set_origin(grid_origin const &place);
    /// (1, 1, 1) on a null handle.
    [[nodiscard]] grid_spacing spacing() const;
    bool set_spacing(grid_spacing const &distance);
    /// The centre of the last cell on each axis.
    [[nodiscard]] grid_origin ending() const;
    /// Moves the grid so that it ends there; spacing and counts stay.
    bool set_ending(grid_origin const &place);
    /// In degrees.
    [[nodiscard]] double azimuth() const;
    bool set_azimuth(double angle);
    [[nodiscard]] std::uint64_t xcount() const;
    [[nodiscard]] std::uint64_t ycount() const;
    [[nodiscard]] std::uint64_t zcount() const;
    /// Cells of a field: x times y times z.
    [[nodiscard]] std::uint64_t obj_count() const;
    [[nodiscard]] grid_dims dimensions() const;
    /// Three counts: x, y, z.
    bool dimensions(unsigned long long *counts) const;
    /// Each level is a divisor of the counts. An empty list of fields means all.
    bool create_overviews(resampling method, std::vector<int> &levels,
                          std::vector<field_index_type> const &fields, vx::monitor progress);
    bool delete_overviews(std::vector<field_index_type> const &fields);

    // ---- fields

    /// Index of the new field, `c_no_field` on failure.
    field_index_type create_field(std::wstring const &name, data_type cells);
    using generic_datasource::field_index;
    /// The first field of that colour, `c_no_field` when there is none.
    [[nodiscard]] field_index_type field_index(color_interp color) const;
    [[nodiscard]] data_type field_datatype(field_index_type i) const;
    [[nodiscard]] cell_kind field_datakind(field_index_type i) const;
    [[nodiscard]] color_interp field_color(field_index_type i) const;
    /// False, with `palette` null, for a field without one.
    bool field_palette(field_index_type i, grid_palette &palette) const;
    /// True when a block came.
    bool fetch_block(field_index_type field, grid_block &block);
    /// The cells that tell which of them exist, for drivers that keep such.
    bool fetch_index(grid_block &block);

private:
    bool take_grid_handle();

    vx::grid_source f_grid;
};
} // namespace vx::data
