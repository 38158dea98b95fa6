#pragma once

#include "data/connection/data_types.h"
#include "data/grid/grid_types.h"
#include "extension/binding/grid_block.h"

#include "platform/base/export.h"

#include <cstddef>
#include <cstdlib>
#include <map>
#include <memory>
#include <utility>

namespace vx::data {
/// The blocks that one call has read so far.
class VX_API grid_cache
{
public:
    /// `block_bytes`: size of one block.
    explicit grid_cache(std::size_t block_bytes = 0) : f_block_bytes(block_bytes) {}

    /// Gives the block's cells, read from the driver when they are asked for the first time. The cells belong
    /// to the cache. A status other than `read_done` leaves `cells` as it was.
    [[nodiscard]] int read2d(vx::grid_block const &handle, std::uint64_t column, std::uint64_t row,
                             std::byte **cells);
    /// What is there already; null when the block has not been read.
    [[nodiscard]] std::byte *try_buffer(std::uint64_t column, std::uint64_t row) const;
    /// Lets go of the blocks above a row of blocks, which are not asked for again.
    void leave_rows_above(std::uint64_t row);

private:
    struct freer
    {
        void operator()(std::byte *p) const { std::free(p); }
    };
    using memory_buffer = std::unique_ptr<std::byte, freer>;

    [[nodiscard]] int read_buffer(vx::grid_block const &handle, std::uint64_t column, std::uint64_t row,
                                  std::byte **cells);

    std::map<std::pair<std::uint64_t, std::uint64_t>, memory_buffer> f_blocks; ///< by row, then by column
    std::size_t f_block_bytes;
};

/// Puts lines and windows together from whole blocks, for drivers that hand out nothing else, with conversion
/// (see `copy_words`) and resampling by the nearest cell. It lives for one call, in which a block is read at
/// most once. Failure is `read_failed`, or the driver's status for the block that could not be read.
class VX_API grid_io
{
public:
    /// The handle stays its owner's.
    grid_io(vx::grid_block handle, grid_dims const &dims) : f_handle(handle), f_dims(dims) {}

    /// Cells in their order from the grid's start, over the ends of rows where they go on so far.
    [[nodiscard]] result_type read(std::uint64_t offset, std::uint64_t count, void *buffer, data_type type);
    /// A window of `w` by `h` cells into a buffer of `buffer_w` by `buffer_h`; spaces are in cells of the
    /// buffer, 0 is dense. A window that leaves the grid fails.
    [[nodiscard]] result_type read2d(std::uint64_t x, std::uint64_t y, std::uint64_t w, std::uint64_t h,
                                     void *buffer, std::uint64_t buffer_w, std::uint64_t buffer_h,
                                     data_type buffer_type, std::int64_t pixel_space,
                                     std::int64_t line_space);
    /// Not offered.
    [[nodiscard]] result_type write(std::uint64_t offset, std::uint64_t count, void const *buffer,
                                    data_type type);

private:
    struct window;

    [[nodiscard]] bool prepare(data_type buffer_type);
    [[nodiscard]] int read2d_exact_forward(window const &to);
    [[nodiscard]] int read2d_exact_mixed(window const &to);
    [[nodiscard]] int read2d_arbitrary(window const &to);

    vx::grid_block f_handle;
    grid_dims f_dims;
    grid_cache f_cache;
    data_type f_type = data_type::none; ///< of the driver's cells
    std::size_t f_cell = 0;             ///< bytes of one
    std::uint64_t f_block_x = 0;
    std::uint64_t f_block_y = 0;
};
} // namespace vx::data
