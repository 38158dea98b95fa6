#pragma once

#include "platform/base/no_data.h"

#include <cmath>
#include <cstdint>

/// Values of grids: a grid is a regular lattice of cells with one or more fields.
namespace vx::data {
/// Numbers that go to the driver unchanged; their meaning is the driver's.
using grid_type = int;
using resampling = int;
using color_interp = int;
using cell_kind = int;

/// Outcome of every transfer of cells.
enum read_status : int
{
    read_not_offered = 0, ///< the driver has no such operation
    read_done = 1,
    read_failed = 2,
};

/// Counts of cells.
struct grid_dims
{
    std::uint64_t x = 0;
    std::uint64_t y = 0;
    std::uint64_t z = 0;
    friend constexpr bool operator==(grid_dims const &, grid_dims const &) = default;
};

/// Place of the first cell's centre.
struct grid_origin
{
    double x = 0;
    double y = 0;
    double z = 0;
    friend constexpr bool operator==(grid_origin const &, grid_origin const &) = default;
};

/// Distance of neighbouring cells' centres; negative where the axis counts against the coordinate.
struct grid_spacing
{
    double x = 0;
    double y = 0;
    double z = 0;
    friend constexpr bool operator==(grid_spacing const &, grid_spacing const &) = default;
};

/// First column and first row of a window.
struct data_offset
{
    std::uint64_t x = 0;
    std::uint64_t y = 0;
};

/// Columns and rows of a window.
struct data_size
{
    std::uint64_t x = 0;
    std::uint64_t y = 0;
};

/// Distance of neighbouring cells of a row, and of neighbouring rows, in cells of the buffer; 0 is dense.
struct data_space
{
    std::int64_t x = 0;
    std::int64_t y = 0;
};

struct result_type
{
    int status = read_not_offered; ///< a `read_status`
    std::uint64_t count = 0;       ///< cells of the buffer that were transferred

    [[nodiscard]] constexpr bool done() const { return status == read_done; }
    friend constexpr bool operator==(result_type const &, result_type const &) = default;
};

/// What a field says of the number that means no value.
struct nodata_info
{
    double value = 0;
    bool has = false;    ///< the field has such a number
    bool finite = false; ///< and it is finite

    /// What tells the cells that have a value; see `vx::no_data_test` for how close counts as equal.
    [[nodiscard]] no_data_test test() const { return has ? no_data_test(value) : no_data_test(); }
};
} // namespace vx::data
