#include "data/grid/grid_iterator.h"

#include <algorithm>

namespace vx::data {
grid_iterator::grid_iterator(grid_datasource &source, field_index_type field)
    : f_total(source.obj_count()), f_valid(source.fetch_block(field, *this))
{
}

bool grid_iterator::init(void *buffer, std::uint64_t step, data_type type)
{
    f_buffer = buffer;
    f_step = step;
    f_type = type;
    f_position = 0;
    return f_valid;
}

std::uint64_t grid_iterator::block_size() const
{
    grid_dims const size = grid_block::block_size();
    return size.x * size.y * size.z;
}

std::uint64_t grid_iterator::next_count() const
{
    return f_position >= f_total ? 0 : std::min(f_step, f_total - f_position);
}

result_type grid_iterator::fetch()
{
    std::uint64_t const count = next_count();
    if (count == 0)
        return {read_done, 0};
    int const status = read(f_position, count, f_buffer, f_type).status;
    f_position += f_step;
    return {status, count};
}

result_type grid_iterator::commit()
{
    std::uint64_t const count = next_count();
    if (count == 0)
        return {read_done, 0};
    int const status = write(f_position, count, f_buffer, f_type).status;
    f_position += f_step;
    return {status, count};
}

grid1d_iterator::grid1d_iterator(grid_datasource &source, field_index_type field)
    : f_total(source.obj_count()), f_valid(source.fetch_block(field, *this))
{
}

bool grid1d_iterator::init(void *buffer, std::uint64_t step, data_type type)
{
    f_buffer = buffer;
    f_step = step;
    f_type = type;
    f_position = 0;
    return f_valid;
}

result_type grid1d_iterator::fetch()
{
    if (f_position >= f_total)
        return {read_done, 0};
    f_step = std::min(f_step, f_total - f_position);
    int const status = read1d(f_position, f_step, f_buffer, f_step, f_type, 0).status;
    f_position += f_step;
    return {status, f_step};
}

bool grid1d_iterator::fetch(result_type &result)
{
    result = fetch();
    return result.done() && result.count > 0;
}

grid2d_iterator::grid2d_iterator(grid_datasource &source, field_index_type field)
    : f_width(source.xcount()), f_height(1), f_rows(source.ycount()),
      f_valid(source.fetch_block(field, *this))
{
}

bool grid2d_iterator::init(void *buffer, std::uint64_t step, data_type type)
{
    f_buffer = buffer;
    f_buffer_width = step;
    f_buffer_height = 1;
    f_type = type;
    f_y = 0;
    return f_valid;
}

result_type grid2d_iterator::fetch()
{
    if (f_y >= f_rows)
        return {read_done, 0};
    int const status = read2d(data_offset{f_x, f_y}, data_size{f_width, f_height}, f_buffer,
                              data_size{f_buffer_width, f_buffer_height}, f_type)
                           .status;
    ++f_y;
    return {status, f_width};
}

bool grid2d_iterator::fetch(result_type &result)
{
    result = fetch();
    return result.done() && result.count > 0;
}
} // namespace vx::data
