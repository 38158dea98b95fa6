#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What is kept with each property of a property file beside its values.
namespace vx::tos {
inline constexpr unsigned c_classes = 256;

/// Of the cells that have a value.
struct cell_stat
{
    std::uint64_t count = 0; ///< the rest means nothing while it is 0
    double minimum = 0;
    double maximum = 0;
    double average = 0;
    double squares = 0; ///< sum of the squared distances from the average

    /// What is no number has no value.
    void add(double const *cells, std::size_t size);
    /// The statistics of both sets of cells together.
    void add(cell_stat const &other);
    /// Of the sample.
    [[nodiscard]] double deviation() const;
};

/// Classes of equal width; both bounds belong to them, and what lies outside is in none. Where the bounds are
/// one value, all of it is in the first.
class cell_histogram
{
public:
    /// `low` is not above `high`, and both are finite.
    cell_histogram(double low, double high);
    void add(double const *cells, std::size_t size);

    double low;
    double high;
    std::array<std::uint64_t, c_classes> counts{};

private:
    double f_factor;
    double f_scale; ///< classes to a unit, of bounds times `f_factor`
};

struct record
{
    std::optional<cell_stat> stat; ///< of all cells; unknown until somebody has looked
    std::optional<cell_histogram> histogram;

    [[nodiscard]] bool has_values() const { return stat && stat->count > 0; }
};

/// A record as it lies in the file: so many bytes, with the number of the save and a checksum.
inline constexpr std::size_t c_record_bytes = 4 + 4 + 8 + 5 * 8 + 2 * 8 + c_classes * 8;
[[nodiscard]] std::string write_record(record const &r, std::uint64_t save);
/// Nothing for a record that is not whole or says what cannot be of `objects` cells.
struct read_result
{
    record r;
    std::uint64_t save = 0;
};
[[nodiscard]] std::optional<read_result> read_record(std::string_view bytes, std::uint64_t objects);
} // namespace vx::tos
