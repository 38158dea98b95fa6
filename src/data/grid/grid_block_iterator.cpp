#include "data/grid/grid_block_iterator.h"

#include <algorithm>
#include <exception>

namespace vx::data {
grid_block_iterator<double>::grid_block_iterator(grid_datasource &source, field_index_type field,
                                                 std::uint64_t step)
    : grid_iterator(source, field), f_of(field)
{
    grid_dims const size = grid_block::block_size();
    std::uint64_t cells = step;
    if (step == 0 &&
        (__builtin_mul_overflow(size.x, size.y, &cells) || __builtin_mul_overflow(cells, size.z, &cells)))
        return;
    if (!grid_iterator::valid() || cells == 0)
        return;
    // A block may reach beyond the grid.
    cells = std::min(cells, std::max<std::uint64_t>(source.obj_count(), 1));
    try {
        f_cells.resize(cells);
    } catch (std::exception const &) { // no memory for it
        return;
    }
    f_valid = init(f_cells.data(), cells, data_type::float64);
}

grid_block_multi_iterator<double>::grid_block_multi_iterator(grid_datasource &source,
                                                             std::vector<field_index_type> const &fields)
{
    for (field_index_type const field : fields) {
        grid_block_iterator<double> *found = nullptr;
        for (auto const &known : f_iterators)
            if (known->field() == field)
                found = known.get();
        if (!found && field != c_no_field) {
            std::uint64_t const step = f_iterators.empty() ? 0 : f_iterators.front()->cells().size();
            f_iterators.push_back(std::make_unique<grid_block_iterator<double>>(source, field, step));
            found = f_iterators.back().get();
        }
        f_places.push_back(found);
    }
}

bool grid_block_multi_iterator<double>::valid() const
{
    return std::all_of(f_iterators.begin(), f_iterators.end(), [](auto const &it) { return it->valid(); });
}

result_type grid_block_multi_iterator<double>::fetch()
{
    result_type first{read_done, 0};
    for (auto const &iterator : f_iterators) {
        result_type const result = iterator->fetch();
        if (!result.done() || result.count == 0)
            return result;
        if (iterator == f_iterators.front())
            first = result;
    }
    return first;
}
} // namespace vx::data
