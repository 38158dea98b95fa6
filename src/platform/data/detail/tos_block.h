#pragma once

#include "platform/base/export.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The values of a property file lie in blocks of so many neighbouring objects, each packed by itself. A cell
/// without a value is no number here.
namespace vx::tos {
/// Of a full block; the last one of a property may have fewer. So many cells of 8, 4, 2 or 1 bytes fill pages
/// of the file well.
inline constexpr std::size_t c_block_cells = 976;
/// Bytes of the largest block: the mark, and the cells as they are.
inline constexpr std::size_t c_largest_block = 1 + 8 * c_block_cells;

/// Packs up to `c_block_cells` cells into the fewest bytes that keep every value to the last bit; what is not
/// finite has none, and negative zero is zero. Empty when no cell has a value.
[[nodiscard]] VX_API std::string pack_block(std::span<double const> cells);

enum class block_form : std::uint8_t;

/// A packed block, read cell by cell or whole. It holds its bytes.
class VX_API packed_block
{
public:
    /// False when that is no block of `count` cells; the block is then one without values.
    bool take(std::string_view bytes, std::size_t count);
    /// A block of so many cells without values.
    void clear(std::size_t count);

    [[nodiscard]] std::size_t count() const { return f_count; }
    /// `cell` is below `count`.
    [[nodiscard]] double value(std::size_t cell) const;
    /// Writes `count` values.
    void unpack(double *cells) const;

private:
    template <class Cell>
    void unpack_as(double *cells) const;

    /// A number of `f_width` bits from the bytes.
    [[nodiscard]] std::uint64_t code(std::size_t cell) const;
    [[nodiscard]] double number(std::uint64_t code) const;

    std::size_t f_count = 0;
    block_form f_form{};
    unsigned f_width = 0;
    double f_divisor = 1;
    std::uint64_t f_base = 0;
    std::uint64_t f_none = 0;            ///< the code of a cell without a value
    char f_bytes[c_largest_block + 8]{}; ///< behind the head; whole words can be read from everywhere
};
} // namespace vx::tos
