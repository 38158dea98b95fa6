#include "data/grid/grid_block.h"

#include "data/grid/grid_datasource.h"
#include "data/grid/grid_io.h"

#include "platform/basic/vx_datasource.h"

namespace vx::data {
namespace {
/// Three numbers in the type of the component interface.
template <class Number>
struct three
{
    template <class From>
    explicit three(From const *from)
    {
        for (std::size_t i = 0; from && i < 3; ++i)
            values[i] = from[i];
    }
    operator Number const *() const { return values; }

    Number values[3] = {0, 0, 0};
};
using counts = three<unsigned long long>;
using spaces = three<long long>;

/// Runs a slot of the driver; what it counted is nothing unless it was done.
template <class Slot>
result_type transfer(Slot slot)
{
    unsigned long long done = 0;
    int const status = slot(&done);
    return {status, status == read_done ? done : 0};
}
} // namespace

grid_block::~grid_block()
{
    vx_datasource_end(f_handle);
}

bool grid_block::init(grid_datasource *source, field_index_type field, vx::grid_block handle)
{
    vx_datasource_end(f_handle);
    f_handle = handle;
    f_source = source;
    f_field = field;
    return valid();
}

grid_dims grid_block::dimensions() const
{
    return f_source ? f_source->dimensions() : grid_dims{};
}

data_type grid_block::datatype() const
{
    return static_cast<data_type>(f_handle.datatype());
}

cell_kind grid_block::datakind() const
{
    return f_source ? f_source->field_datakind(f_field) : 0;
}

nodata_info grid_block::nodata() const
{
    return nodata(datatype());
}

nodata_info grid_block::nodata(data_type type) const
{
    nodata_info info;
    info.has = f_handle.with_nodata(static_cast<int>(type), &info.value);
    info.finite = info.has && std::isfinite(info.value);
    return info;
}

bool grid_block::set_resampling(resampling method)
{
    return f_handle.set_resampling(method);
}

int grid_block::overview_count() const
{
    return f_handle.overview_count();
}

bool grid_block::fetch_overview(int i, grid_block &overview) const
{
    grid_block_visitor visitor(f_source, f_field, overview);
    return f_handle.with_overview(i, visitor) && visitor.was_called();
}

grid_dims grid_block::block_size() const
{
    unsigned long long sizes[3] = {1, 1, 1};
    f_handle.block_size(sizes);
    return {sizes[0], sizes[1], sizes[2]};
}

result_type grid_block::read(std::uint64_t offset, std::uint64_t count, void *buffer, data_type type) const
{
    result_type const own = transfer([&](unsigned long long *done) {
        return f_handle.read(offset, count, buffer, static_cast<int>(type), done);
    });
    return own.status != read_not_offered ? own
                                          : grid_io(f_handle, dimensions()).read(offset, count, buffer, type);
}

result_type grid_block::write(std::uint64_t offset, std::uint64_t count, void const *buffer,
                              data_type type) const
{
    result_type const own = transfer([&](unsigned long long *done) {
        return f_handle.write(offset, count, buffer, static_cast<int>(type), done);
    });
    return own.status != read_not_offered
               ? own
               : grid_io(f_handle, dimensions()).write(offset, count, buffer, type);
}

result_type grid_block::read1d(std::uint64_t offset, std::uint64_t count, void *buffer,
                               std::uint64_t buffer_count, data_type type, std::int64_t space) const
{
    return transfer([&](unsigned long long *done) {
        return f_handle.read1d(offset, count, buffer, buffer_count, static_cast<int>(type), space, done);
    });
}

result_type grid_block::write1d(std::uint64_t offset, std::uint64_t count, void const *buffer,
                                std::uint64_t buffer_count, data_type type, std::int64_t space) const
{
    return transfer([&](unsigned long long *done) {
        return f_handle.write1d(offset, count, buffer, buffer_count, static_cast<int>(type), space, done);
    });
}

result_type grid_block::read2d(std::uint64_t const offset[2], std::uint64_t const size[2], void *buffer,
                               std::uint64_t const buffer_size[2], data_type type,
                               std::int64_t const space[2]) const
{
    return read2d(data_offset{offset[0], offset[1]}, data_size{size[0], size[1]}, buffer,
                  data_size{buffer_size[0], buffer_size[1]}, type,
                  space ? data_space{space[0], space[1]} : data_space{});
}

result_type grid_block::write2d(std::uint64_t const offset[2], std::uint64_t const size[2],
                                void const *buffer, std::uint64_t const buffer_size[2], data_type type,
                                std::int64_t const space[2]) const
{
    return write2d(data_offset{offset[0], offset[1]}, data_size{size[0], size[1]}, buffer,
                   data_size{buffer_size[0], buffer_size[1]}, type,
                   space ? data_space{space[0], space[1]} : data_space{});
}

result_type grid_block::read2d(data_offset offset, data_size size, void *buffer, data_size buffer_size,
                               data_type type, data_space space) const
{
    unsigned long long const from[] = {offset.x, offset.y}, window[] = {size.x, size.y},
                             to[] = {buffer_size.x, buffer_size.y};
    long long const strides[] = {space.x, space.y};
    result_type const own = transfer([&](unsigned long long *done) {
        return f_handle.read2d(from, window, buffer, to, static_cast<int>(type), strides, done);
    });
    if (own.status != read_not_offered)
        return own;
    return grid_io(f_handle, dimensions())
        .read2d(offset.x, offset.y, size.x, size.y, buffer, buffer_size.x, buffer_size.y, type, space.x,
                space.y);
}

result_type grid_block::write2d(data_offset offset, data_size size, void const *buffer, data_size buffer_size,
                                data_type type, data_space space) const
{
    unsigned long long const to[] = {offset.x, offset.y}, window[] = {size.x, size.y},
                             from[] = {buffer_size.x, buffer_size.y};
    long long const strides[] = {space.x, space.y};
    return transfer([&](unsigned long long *done) {
        return f_handle.write2d(to, window, buffer, from, static_cast<int>(type), strides, done);
    });
}

result_type grid_block::read3d(std::uint64_t const offset[3], std::uint64_t const size[3], void *buffer,
                               std::uint64_t const buffer_size[3], data_type type,
                               std::int64_t const space[3]) const
{
    return transfer([&](unsigned long long *done) {
        return f_handle.read3d(counts(offset), counts(size), buffer, counts(buffer_size),
                               static_cast<int>(type), spaces(space), done);
    });
}

result_type grid_block::write3d(std::uint64_t const offset[3], std::uint64_t const size[3],
                                void const *buffer, std::uint64_t const buffer_size[3], data_type type,
                                std::int64_t const space[3]) const
{
    return transfer([&](unsigned long long *done) {
        return f_handle.write3d(counts(offset), counts(size), buffer, counts(buffer_size),
                                static_cast<int>(type), spaces(space), done);
    });
}
} // namespace vx::data
