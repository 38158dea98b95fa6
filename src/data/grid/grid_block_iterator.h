#pragma once

#include "data/grid/grid_iterator.h"

#include <memory>
#include <vector>

namespace vx::data {
/// Walks a field in steps of one block of the driver, with a buffer of its own. `T` is the type of its cells.
template <class T>
class grid_block_iterator;

template <>
class VX_API grid_block_iterator<double> : public grid_iterator
{
public:
    /// Not valid when there is no such field, when its blocks have no cells, or no memory holds one. A `step`
    /// other than 0 is taken in place of the cells of a block.
    grid_block_iterator(grid_datasource &source, field_index_type field, std::uint64_t step = 0);

    [[nodiscard]] bool valid() const { return f_valid; }
    [[nodiscard]] field_index_type field() const { return f_of; }
    /// The cells of the last fetch, as many as it counted.
    [[nodiscard]] std::vector<double> const &cells() const { return f_cells; }

private:
    std::vector<double> f_cells;
    field_index_type f_of;
    bool f_valid = false;
};

/// Walks several fields side by side, in steps of a block of the first.
template <class T>
class grid_block_multi_iterator;

template <>
class VX_API grid_block_multi_iterator<double>
{
public:
    /// Iterators in the order of the list. A field that occurs twice has one iterator; `c_no_field` leaves
    /// its place empty.
    grid_block_multi_iterator(grid_datasource &source, std::vector<field_index_type> const &fields);

    [[nodiscard]] std::size_t size() const { return f_places.size(); }
    /// Null for an empty place.
    [[nodiscard]] grid_block_iterator<double> *at(std::size_t place) const { return f_places[place]; }
    /// All iterators are valid.
    [[nodiscard]] bool valid() const;
    /// Fetches each field once, in the order of the list. The first result that is not one of whole cells,
    /// else that of the first field.
    result_type fetch();

private:
    std::vector<std::unique_ptr<grid_block_iterator<double>>> f_iterators;
    std::vector<grid_block_iterator<double> *> f_places;
};
} // namespace vx::data
