#pragma once

#include "data/grid/grid_datasource.h"
#include "data/vector/vector_datasource.h"

namespace vx::data {
/// `count` numbers drawn from the closed interval, with replacement and with equal chances, from a generator
/// that is seeded anew on every call. Empty when `low` is above `high`.
[[nodiscard]] VX_API std::vector<std::uint64_t> make_random_indicies(std::uint64_t count, std::uint64_t low,
                                                                     std::uint64_t high);

/// Draws a sample of the numbers of one field, to classify by. What has no value, or lies outside the closed
/// interval from the least to the greatest value, is not taken. A small source gives all or each of its
/// values a chance; where single values are read at random, some may come twice, and there may be up to twice
/// as many as were asked for.
class VX_API random_sample_task
{
public:
    explicit random_sample_task(std::uint64_t size, double minval = std::numeric_limits<double>::lowest(),
                                double maxval = std::numeric_limits<double>::max())
        : f_size(size), f_minval(minval), f_maxval(maxval)
    {
    }

    /// Of a source of any kind. Empty when there is no such field, and on failure.
    [[nodiscard]] std::vector<double> execute(generic_datasource &source, std::wstring const &field) const;
    [[nodiscard]] std::vector<double> execute(vector_datasource &source, std::wstring const &field) const;
    [[nodiscard]] std::vector<double> execute(grid_datasource &source, std::wstring const &field) const;

private:
    [[nodiscard]] bool is_taken(double value) const { return value >= f_minval && value <= f_maxval; }
    /// The numbers of a field by what the source answers itself (false: nothing), by index or in the order of
    /// the features; see the source file.
    [[nodiscard]] bool draw_by_source(vector_datasource const &source, field_index_type field,
                                      std::vector<double> &sample) const;
    [[nodiscard]] std::vector<double> draw_by_index(vector_datasource &source, field_index_type field,
                                                    std::uint64_t total) const;
    [[nodiscard]] std::vector<double> draw_from_all(vector_datasource &source, field_index_type field) const;
    [[nodiscard]] std::vector<double> draw_in_order(vector_datasource &source, field_index_type field) const;

    std::uint64_t f_size; ///< values that are wanted
    double f_minval;
    double f_maxval;
};
} // namespace vx::data
