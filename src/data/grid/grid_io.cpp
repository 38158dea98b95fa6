#include "data/grid/grid_io.h"

#include "data/grid/copy_words.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vx::data {
int grid_cache::read2d(vx::grid_block const &handle, std::uint64_t column, std::uint64_t row,
                       std::byte **cells)
{
    if (std::byte *const known = try_buffer(column, row)) {
        *cells = known;
        return read_done;
    }
    return read_buffer(handle, column, row, cells);
}

std::byte *grid_cache::try_buffer(std::uint64_t column, std::uint64_t row) const
{
    auto const found = f_blocks.find({row, column});
    return found == f_blocks.end() ? nullptr : found->second.get();
}

int grid_cache::read_buffer(vx::grid_block const &handle, std::uint64_t column, std::uint64_t row,
                            std::byte **cells)
{
    memory_buffer buffer(static_cast<std::byte *>(std::malloc(f_block_bytes)));
    if (!buffer)
        return read_failed;
    int const status = handle.read_block2d(column, row, buffer.get());
    if (status != read_done)
        return status;
    *cells = buffer.get();
    f_blocks[{row, column}] = std::move(buffer);
    return read_done;
}

void grid_cache::leave_rows_above(std::uint64_t row)
{
    f_blocks.erase(f_blocks.begin(), f_blocks.lower_bound({row, 0}));
}

/// A window of the grid and the buffer that it goes to.
struct grid_io::window
{
    std::uint64_t x, y, w, h;
    std::byte *buffer;
    std::uint64_t buffer_w, buffer_h;
    data_type type;
    std::ptrdiff_t pixel, line; ///< strides in bytes

    [[nodiscard]] std::byte *line_at(std::uint64_t row) const
    {
        return buffer + static_cast<std::ptrdiff_t>(row) * line;
    }
};

bool grid_io::prepare(data_type buffer_type)
{
    if (!f_handle)
        return false;
    f_type = static_cast<data_type>(f_handle.datatype());
    f_cell = static_cast<std::size_t>(datatype_size_bytes(f_type));
    unsigned long long counts[3] = {0, 0, 0};
    f_handle.block_size(counts);
    f_block_x = counts[0];
    f_block_y = counts[1];
    std::size_t bytes = 0;
    bool const is_too_large = __builtin_mul_overflow(f_block_x, f_block_y, &bytes) ||
                              __builtin_mul_overflow(bytes, f_cell, &bytes) || bytes > PTRDIFF_MAX;
    if (f_cell == 0 || datatype_size_bytes(buffer_type) == 0 || bytes == 0 || is_too_large)
        return false;
    f_cache = grid_cache(bytes);
    return true;
}

result_type grid_io::read(std::uint64_t offset, std::uint64_t count, void *buffer, data_type type)
{
    std::uint64_t cells = 0;
    if (__builtin_mul_overflow(f_dims.x, f_dims.y, &cells) || count == 0 || offset > cells ||
        count > cells - offset)
        return {read_failed, 0};
    auto const cell = static_cast<std::uint64_t>(datatype_size_bytes(type));
    auto *at = static_cast<std::byte *>(buffer);
    // The end of the first row, then whole rows, then the start of the last row.
    for (std::uint64_t left = count; left > 0;) {
        std::uint64_t const column = offset % f_dims.x;
        std::uint64_t const whole_rows = column == 0 ? left / f_dims.x : 0;
        std::uint64_t const w = whole_rows > 0 ? f_dims.x : std::min(left, f_dims.x - column);
        std::uint64_t const h = std::max<std::uint64_t>(whole_rows, 1);
        result_type const part = read2d(column, offset / f_dims.x, w, h, at, w, h, type, 0, 0);
        if (!part.done())
            return {part.status, 0};
        at += w * h * cell;
        offset += w * h;
        left -= w * h;
    }
    return {read_done, count};
}

result_type grid_io::write(std::uint64_t /*offset*/, std::uint64_t /*count*/, void const * /*buffer*/,
                           data_type /*type*/)
{
    return {};
}

result_type grid_io::read2d(std::uint64_t x, std::uint64_t y, std::uint64_t w, std::uint64_t h, void *buffer,
                            std::uint64_t buffer_w, std::uint64_t buffer_h, data_type buffer_type,
                            std::int64_t pixel_space, std::int64_t line_space)
{
    bool const is_inside = w <= f_dims.x && x <= f_dims.x - w && h <= f_dims.y && y <= f_dims.y - h;
    if (!buffer || w == 0 || h == 0 || buffer_w == 0 || buffer_h == 0 || !is_inside ||
        (f_cell == 0 && !prepare(buffer_type)) || datatype_size_bytes(buffer_type) == 0)
        return {read_failed, 0};
    std::ptrdiff_t const cell = datatype_size_bytes(buffer_type);
    std::int64_t const step = pixel_space ? pixel_space : 1;
    window to{x, y, w, h, static_cast<std::byte *>(buffer), buffer_w, buffer_h, buffer_type, 0, 0};
    std::ptrdiff_t dense_line = 0;
    if (__builtin_mul_overflow(step, cell, &to.pixel) ||
        __builtin_mul_overflow(to.pixel, buffer_w, &dense_line) ||
        (line_space && __builtin_mul_overflow(line_space, cell, &to.line)))
        return {read_failed, 0};
    if (line_space == 0)
        to.line = dense_line;
    bool const is_exact = w == buffer_w && h == buffer_h;
    bool const is_dense = to.pixel == cell && to.line == cell * static_cast<std::ptrdiff_t>(w);
    int const status = !is_exact                           ? read2d_arbitrary(to)
                       : is_dense && f_block_x == f_dims.x ? read2d_exact_forward(to)
                                                           : read2d_exact_mixed(to);
    return {status, status == read_done ? buffer_w * buffer_h : 0};
}

int grid_io::read2d_exact_forward(window const &to)
{
    std::byte *block = nullptr;
    std::uint64_t block_row = 0;
    for (std::uint64_t j = 0; j < to.h; ++j) {
        if (std::uint64_t const row = (to.y + j) / f_block_y; !block || row != block_row) {
            f_cache.leave_rows_above(row);
            if (int const status = f_cache.read2d(f_handle, 0, row, &block); status != read_done)
                return status;
            block_row = row;
        }
        std::byte const *const from =
            block + ((to.y + j - block_row * f_block_y) * f_block_x + to.x) * f_cell;
        if (f_type == to.type)
            std::memcpy(to.line_at(j), from, static_cast<std::size_t>(to.line));
        else
            copy_words(to.line_at(j), to.type, from, f_type, to.w);
    }
    return read_done;
}

int grid_io::read2d_exact_mixed(window const &to)
{
    std::uint64_t const last_row = (to.y + to.h - 1) / f_block_y;
    std::uint64_t const last_column = (to.x + to.w - 1) / f_block_x;
    for (std::uint64_t row = to.y / f_block_y; row <= last_row; ++row) {
        f_cache.leave_rows_above(row);
        std::uint64_t const top = std::max(to.y, row * f_block_y);
        std::uint64_t const bottom = std::min(to.y + to.h, (row + 1) * f_block_y);
        for (std::uint64_t column = to.x / f_block_x; column <= last_column; ++column) {
            std::byte *block = nullptr;
            if (int const status = f_cache.read2d(f_handle, column, row, &block); status != read_done)
                return status;
            std::uint64_t const left = std::max(to.x, column * f_block_x);
            std::uint64_t const right = std::min(to.x + to.w, (column + 1) * f_block_x);
            for (std::uint64_t y = top; y < bottom; ++y) {
                std::byte const *const from =
                    block + ((y - row * f_block_y) * f_block_x + (left - column * f_block_x)) * f_cell;
                std::byte *const target =
                    to.line_at(y - to.y) + static_cast<std::ptrdiff_t>(left - to.x) * to.pixel;
                if (f_type == to.type && to.pixel == static_cast<std::ptrdiff_t>(f_cell))
                    std::memcpy(target, from, (right - left) * f_cell);
                else
                    copy_words(target, to.type, to.pixel, from, f_type, static_cast<std::ptrdiff_t>(f_cell),
                               right - left);
            }
        }
    }
    return read_done;
}

int grid_io::read2d_arbitrary(window const &to)
{
    constexpr std::uint64_t c_run = 512; // cells that are gathered before they are converted
    std::array<std::byte, c_run * sizeof(double)> gathered;
    double const scale_x = static_cast<double>(to.w) / static_cast<double>(to.buffer_w);
    double const scale_y = static_cast<double>(to.h) / static_cast<double>(to.buffer_h);
    auto const x = static_cast<double>(to.x);
    auto const y = static_cast<double>(to.y);
    for (std::uint64_t j = 0; j < to.buffer_h; ++j) {
        auto const wanted = static_cast<std::uint64_t>((static_cast<double>(j) + 0.5) * scale_y + y);
        std::uint64_t const row = std::min(wanted, to.y + to.h - 1);
        std::uint64_t const block_row = row / f_block_y;
        f_cache.leave_rows_above(block_row);
        std::byte *block = nullptr;
        std::uint64_t block_column = 0;
        for (std::uint64_t first = 0; first < to.buffer_w; first += c_run) {
            std::uint64_t const count = std::min(c_run, to.buffer_w - first);
            for (std::uint64_t i = 0; i < count; ++i) {
                auto const place =
                    static_cast<std::uint64_t>(x + 0.5 * scale_x + static_cast<double>(first + i) * scale_x);
                std::uint64_t const column = std::min(place, to.x + to.w - 1);
                if (std::uint64_t const of = column / f_block_x; !block || of != block_column) {
                    if (int const status = f_cache.read2d(f_handle, of, block_row, &block);
                        status != read_done)
                        return status;
                    block_column = of;
                }
                std::uint64_t const cell =
                    (row - block_row * f_block_y) * f_block_x + (column - block_column * f_block_x);
                std::memcpy(gathered.data() + i * f_cell, block + cell * f_cell, f_cell);
            }
            copy_words(to.line_at(j) + static_cast<std::ptrdiff_t>(first) * to.pixel, to.type, to.pixel,
                       gathered.data(), f_type, static_cast<std::ptrdiff_t>(f_cell), count);
        }
    }
    return read_done;
}
} // namespace vx::data
