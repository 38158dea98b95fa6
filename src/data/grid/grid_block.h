#pragma once

#include "data/connection/data_types.h"
#include "data/grid/grid_types.h"
#include "data/source/generic_datasource.h"
#include "extension/binding/grid_block.h"

namespace vx::data {
class VX_API grid_datasource;

/// The cells of one field of a grid, or of one of its overviews. Null until `init`.
///
/// Cells count from 0, row after row; windows are given by column and row. A buffer may hold cells of any of
/// the ten types, whatever the type of the field; the driver converts. Reading by lines and windows works
/// even with a driver that only hands out whole blocks: the window is then put together here, see `grid_io`.
///
/// It owns its handle and detaches it, but only points to the source, which has to outlive it.
class VX_API grid_block
{
public:
    grid_block() = default;
    grid_block(grid_block const &) = delete;
    grid_block &operator=(grid_block const &) = delete;
    ~grid_block();

    /// Detaches what is held and takes the handle; true if it is not null.
    bool init(grid_datasource *source, field_index_type field, vx::grid_block handle);
    [[nodiscard]] bool valid() const { return static_cast<bool>(f_handle); }
    [[nodiscard]] t_vx_grid_block_interface handle() const { return f_handle.handle(); }
    [[nodiscard]] grid_datasource *source() const { return f_source; }
    /// `c_no_field` for a block that is no field's.
    [[nodiscard]] field_index_type field() const { return f_field; }

    /// Of the source's grid, for an overview as well.
    [[nodiscard]] grid_dims dimensions() const;
    [[nodiscard]] data_type datatype() const;
    [[nodiscard]] cell_kind datakind() const;
    [[nodiscard]] nodata_info nodata() const;
    /// As it stands in a buffer of that type.
    [[nodiscard]] nodata_info nodata(data_type type) const;
    /// For transfers whose buffer has another size than the window.
    bool set_resampling(resampling method);
    [[nodiscard]] int overview_count() const;
    /// True if an overview came; it belongs to the same field and source.
    bool fetch_overview(int i, grid_block &overview) const;
    /// Cells of the driver's own pieces; (1, 1, 1) on a null handle.
    [[nodiscard]] grid_dims block_size() const;

    // ---- transfers; `count` and all offsets and sizes are in cells

    [[nodiscard]] result_type read(std::uint64_t offset, std::uint64_t count, void *buffer,
                                   data_type type) const;
    /// There is no putting together of writes: a driver without this slot gives `read_not_offered`.
    [[nodiscard]] result_type write(std::uint64_t offset, std::uint64_t count, void const *buffer,
                                    data_type type) const;

    [[nodiscard]] result_type read1d(std::uint64_t offset, std::uint64_t count, void *buffer,
                                     std::uint64_t buffer_count, data_type type, std::int64_t space) const;
    [[nodiscard]] result_type write1d(std::uint64_t offset, std::uint64_t count, void const *buffer,
                                      std::uint64_t buffer_count, data_type type, std::int64_t space) const;

    [[nodiscard]] result_type read2d(std::uint64_t const offset[2], std::uint64_t const size[2], void *buffer,
                                     std::uint64_t const buffer_size[2], data_type type,
                                     std::int64_t const space[2]) const;
    [[nodiscard]] result_type write2d(std::uint64_t const offset[2], std::uint64_t const size[2],
                                      void const *buffer, std::uint64_t const buffer_size[2], data_type type,
                                      std::int64_t const space[2]) const;
    [[nodiscard]] result_type read2d(data_offset offset, data_size size, void *buffer, data_size buffer_size,
                                     data_type type, data_space space = {}) const;
    [[nodiscard]] result_type write2d(data_offset offset, data_size size, void const *buffer,
                                      data_size buffer_size, data_type type, data_space space = {}) const;

    [[nodiscard]] result_type read3d(std::uint64_t const offset[3], std::uint64_t const size[3], void *buffer,
                                     std::uint64_t const buffer_size[3], data_type type,
                                     std::int64_t const space[3]) const;
    [[nodiscard]] result_type write3d(std::uint64_t const offset[3], std::uint64_t const size[3],
                                      void const *buffer, std::uint64_t const buffer_size[3], data_type type,
                                      std::int64_t const space[3]) const;

private:
    vx::grid_block f_handle;
    grid_datasource *f_source = nullptr;
    field_index_type f_field = c_no_field;
};

/// Hands the visited cells to a `grid_block`, and knows whether there were any.
class VX_API grid_block_visitor final : public vx::grid_block_visitor_impl
{
public:
    grid_block_visitor(grid_datasource *source, field_index_type field, grid_block &target)
        : f_source(source), f_field(field), f_target(target)
    {
    }
    void visit(vx::grid_block handle) override { f_was_called = f_target.init(f_source, f_field, handle); }
    [[nodiscard]] bool was_called() const { return f_was_called; }

private:
    grid_datasource *f_source;
    field_index_type f_field;
    grid_block &f_target;
    bool f_was_called = false;
};
} // namespace vx::data
