#pragma once

#include "data/grid/grid_block.h"
#include "data/grid/grid_datasource.h"

namespace vx::data {
/// Walks the cells of a field in steps of a fixed number of cells.
class VX_API grid_iterator : public grid_block
{
public:
    grid_iterator(grid_datasource &source, field_index_type field);

    /// Gives the iterator its buffer, which stays the caller's and holds `step` cells of that type, and
    /// begins at the first cell. False when the field's cells could not be had.
    bool init(void *buffer, std::uint64_t step, data_type type);
    [[nodiscard]] bool valid() const { return f_valid; }
    /// Cells of one block of the driver.
    [[nodiscard]] std::uint64_t block_size() const;
    /// As it stands in the buffer.
    [[nodiscard]] nodata_info nodata() const { return grid_block::nodata(f_type); }

    [[nodiscard]] std::uint64_t offset() const { return f_position; }
    void reset(std::uint64_t position) { f_position = position; }
    /// Forwards by `n` steps.
    void skip(std::uint64_t n) { f_position += n * f_step; }
    /// Reads the next step; a short one at the end, and then count 0 with status `read_done`.
    result_type fetch();
    /// Writes the buffer in the place of the next step.
    result_type commit();

private:
    [[nodiscard]] std::uint64_t next_count() const;

    std::uint64_t f_position = 0; ///< in cells
    std::uint64_t f_step = 0;     ///< cells of one fetch
    void *f_buffer = nullptr;
    std::uint64_t f_total = 0; ///< cells of the grid
    data_type f_type = data_type::none;
    bool f_valid = false;
};

/// The same over one-dimensional reading.
class VX_API grid1d_iterator : public grid_block
{
public:
    grid1d_iterator(grid_datasource &source, field_index_type field);

    bool init(void *buffer, std::uint64_t step, data_type type);
    [[nodiscard]] bool valid() const { return f_valid; }
    [[nodiscard]] std::uint64_t block_size() const { return grid_block::block_size().x; }
    [[nodiscard]] nodata_info nodata() const { return grid_block::nodata(f_type); }
    result_type fetch();
    /// True while cells come.
    bool fetch(result_type &result);

private:
    std::uint64_t f_position = 0;
    std::uint64_t f_step = 0;
    void *f_buffer = nullptr;
    std::uint64_t f_total = 0;
    data_type f_type = data_type::none;
    bool f_valid = false;
};

/// Walks a field row after row.
class VX_API grid2d_iterator : public grid_block
{
public:
    grid2d_iterator(grid_datasource &source, field_index_type field);

    /// The buffer holds one row of `step` cells; with another number than the grid has columns, rows are
    /// resampled.
    bool init(void *buffer, std::uint64_t step, data_type type);
    [[nodiscard]] bool valid() const { return f_valid; }
    [[nodiscard]] grid_dims block_size() const { return grid_block::block_size(); }
    [[nodiscard]] nodata_info nodata() const { return grid_block::nodata(f_type); }
    /// The count is the grid's columns; 0, with status `read_done`, behind the last row.
    result_type fetch();
    /// True while rows come.
    bool fetch(result_type &result);

private:
    std::uint64_t f_x = 0;
    std::uint64_t f_y = 0;
    std::uint64_t f_width = 0; ///< window of one fetch
    std::uint64_t f_height = 0;
    void *f_buffer = nullptr;
    std::uint64_t f_buffer_width = 0;
    std::uint64_t f_buffer_height = 0;
    std::uint64_t f_rows = 0; ///< of the grid
    data_type f_type = data_type::none;
    bool f_valid = false;
};
} // namespace vx::data
