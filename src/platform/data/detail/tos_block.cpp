#include "platform/data/detail/tos_block.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

static_assert(std::endian::native == std::endian::little,
              "blocks are copied from the file as they lie there");

namespace vx::tos {
/// The first byte of a block. The numbers stand in files.
enum class block_form : std::uint8_t
{
    none = 0, ///< of a block that is not in the file
    equal = 1,
    floating64 = 2,
    floating32 = 3,
    numbers = 4,           ///< whole numbers over a power of ten
    numbers_with_none = 5, ///< the same; the highest code is a cell without a value
};

namespace {
constexpr double c_no_value = std::numeric_limits<double>::quiet_NaN();
constexpr double c_whole_limit = 9007199254740992.0; ///< up to here doubles hold every whole number
constexpr unsigned c_most_bits = 53;
constexpr double c_tens[] = {1, 10, 100, 1000, 10000};
/// Form, width in bits, exponent of the divisor, base.
constexpr std::size_t c_numbers_head = 3 + sizeof(std::uint64_t);

double cleaned(double value)
{
    return std::isfinite(value) ? value + 0.0 : c_no_value; // a negative zero is zero
}

template <class T>
void append(std::string &bytes, T value)
{
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.append(raw, sizeof value);
}

struct whole_numbers
{
    std::int64_t low = 0;
    unsigned width = 0; ///< bits of a code
    unsigned tens = 0;  ///< exponent of the divisor
};

/// The cell as a whole number over the power of ten; false when it is none.
bool as_whole(double cell, double divisor, std::int64_t &number)
{
    double const scaled = std::nearbyint(cell * divisor);
    if (!(std::fabs(scaled) <= c_whole_limit) || scaled / divisor != cell)
        return false;
    number = static_cast<std::int64_t>(scaled);
    return true;
}

/// Whether all cells are whole numbers over one power of ten.
bool find_numbers(std::span<double const> cells, bool has_none, whole_numbers &found)
{
    for (found.tens = 0; found.tens < std::size(c_tens); ++found.tens) {
        std::int64_t low = std::numeric_limits<std::int64_t>::max();
        std::int64_t high = std::numeric_limits<std::int64_t>::min();
        bool const fits = std::ranges::all_of(cells, [&](double cell) {
            std::int64_t number = 0;
            if (std::isnan(cell))
                return true;
            if (!as_whole(cell, c_tens[found.tens], number))
                return false;
            low = std::min(low, number);
            high = std::max(high, number);
            return true;
        });
        if (!fits)
            continue;
        auto const most = static_cast<std::uint64_t>(high - low) + (has_none ? 1 : 0);
        found.low = low;
        found.width = std::max(1U, static_cast<unsigned>(std::bit_width(most)));
        return found.width <= c_most_bits;
    }
    return false;
}

std::size_t code_bytes(std::size_t count, unsigned width)
{
    return (count * width + 7) / 8;
}

void append_numbers(std::string &bytes, std::span<double const> cells, whole_numbers const &numbers)
{
    bytes.push_back(static_cast<char>(numbers.width));
    bytes.push_back(static_cast<char>(numbers.tens));
    append(bytes, numbers.low);
    std::uint64_t const none = (std::uint64_t{1} << numbers.width) - 1;
    std::uint64_t word = 0;
    unsigned filled = 0; // never more than 7 between two cells
    for (double const cell : cells) {
        std::int64_t number = 0;
        std::uint64_t const code = as_whole(cell, c_tens[numbers.tens], number)
                                       ? static_cast<std::uint64_t>(number - numbers.low)
                                       : none;
        word |= code << filled;
        for (filled += numbers.width; filled >= 8; filled -= 8, word >>= 8)
            bytes.push_back(static_cast<char>(word & 255));
    }
    if (filled > 0)
        bytes.push_back(static_cast<char>(word & 255));
}
} // namespace

std::string pack_block(std::span<double const> given)
{
    double cells[c_block_cells];
    std::size_t const count = std::min(given.size(), c_block_cells);
    std::transform(given.begin(), given.begin() + static_cast<std::ptrdiff_t>(count), cells, cleaned);
    std::span<double const> const all(cells, count);
    bool const has_none = std::ranges::any_of(all, [](double cell) { return std::isnan(cell); });
    bool const has_value = std::ranges::any_of(all, [](double cell) { return !std::isnan(cell); });
    if (!has_value)
        return {};
    using form = block_form;
    std::string bytes;
    if (!has_none && std::ranges::all_of(all, [&](double cell) { return cell == cells[0]; })) {
        bytes.push_back(static_cast<char>(form::equal));
        append(bytes, cells[0]);
        return bytes;
    }
    bool const is_single = std::ranges::all_of(all, [](double cell) {
        return std::isnan(cell) ||
               (std::fabs(cell) <= static_cast<double>(std::numeric_limits<float>::max()) &&
                static_cast<double>(static_cast<float>(cell)) == cell);
    });
    std::size_t const plain = 1 + count * (is_single ? sizeof(float) : sizeof(double));
    whole_numbers numbers;
    if (find_numbers(all, has_none, numbers) && c_numbers_head + code_bytes(count, numbers.width) < plain) {
        bytes.push_back(static_cast<char>(has_none ? form::numbers_with_none : form::numbers));
        append_numbers(bytes, all, numbers);
        return bytes;
    }
    bytes.reserve(plain);
    bytes.push_back(static_cast<char>(is_single ? form::floating32 : form::floating64));
    for (double const cell : all)
        if (is_single)
            append(bytes, static_cast<float>(cell));
        else
            append(bytes, cell);
    return bytes;
}

void packed_block::clear(std::size_t count)
{
    f_count = count;
    f_form = block_form::none;
}

bool packed_block::take(std::string_view bytes, std::size_t count)
{
    clear(count);
    if (bytes.empty() || bytes.size() > c_largest_block || count > c_block_cells)
        return false;
    using form = block_form;
    auto const wanted = static_cast<form>(bytes[0]);
    std::size_t head = 1;
    std::size_t body = 0;
    switch (wanted) {
    case form::equal:
        body = sizeof(double);
        break;
    case form::floating64:
        body = sizeof(double) * count;
        break;
    case form::floating32:
        body = sizeof(float) * count;
        break;
    case form::numbers:
    case form::numbers_with_none: {
        head = c_numbers_head;
        if (bytes.size() < head)
            return false;
        f_width = static_cast<unsigned char>(bytes[1]);
        auto const tens = static_cast<unsigned char>(bytes[2]);
        if (f_width == 0 || f_width > c_most_bits || tens >= std::size(c_tens))
            return false;
        f_divisor = c_tens[tens];
        std::memcpy(&f_base, bytes.data() + 3, sizeof f_base);
        f_none = wanted == form::numbers_with_none ? (std::uint64_t{1} << f_width) - 1 : ~std::uint64_t{0};
        body = code_bytes(count, f_width);
        break;
    }
    case form::none:
    default:
        return false;
    }
    if (bytes.size() != head + body)
        return false;
    std::memcpy(f_bytes, bytes.data() + head, body);
    f_form = wanted;
    return true;
}

std::uint64_t packed_block::code(std::size_t cell) const
{
    std::size_t const bit = cell * f_width;
    std::uint64_t word = 0;
    std::memcpy(&word, f_bytes + bit / 8, sizeof word);
    return word >> bit % 8 & ((std::uint64_t{1} << f_width) - 1);
}

double packed_block::number(std::uint64_t code) const
{
    return code == f_none ? c_no_value
                          : static_cast<double>(static_cast<std::int64_t>(f_base + code)) / f_divisor;
}

double packed_block::value(std::size_t cell) const
{
    using form = block_form;
    switch (f_form) {
    case form::numbers:
    case form::numbers_with_none:
        return number(code(cell));
    case form::floating32: {
        float single = 0;
        std::memcpy(&single, f_bytes + cell * sizeof single, sizeof single);
        return cleaned(static_cast<double>(single));
    }
    case form::equal:
    case form::floating64: {
        double value = 0;
        std::memcpy(&value, f_bytes + (f_form == form::equal ? 0 : cell * sizeof value), sizeof value);
        return cleaned(value);
    }
    case form::none:
        break;
    }
    return c_no_value;
}

template <class Cell>
void packed_block::unpack_as(double *cells) const
{
    for (std::size_t i = 0; i < f_count; ++i) {
        Cell cell;
        std::memcpy(&cell, f_bytes + i * sizeof cell, sizeof cell);
        cells[i] = cleaned(static_cast<double>(cell));
    }
}

void packed_block::unpack(double *cells) const
{
    using form = block_form;
    switch (f_form) {
    case form::floating64:
        return unpack_as<double>(cells);
    case form::floating32:
        return unpack_as<float>(cells);
    case form::numbers:
    case form::numbers_with_none:
        if (f_divisor == 1) {
            for (std::size_t i = 0; i < f_count; ++i) {
                std::uint64_t const c = code(i);
                cells[i] =
                    c == f_none ? c_no_value : static_cast<double>(static_cast<std::int64_t>(f_base + c));
            }
            return;
        }
        for (std::size_t i = 0; i < f_count; ++i)
            cells[i] = number(code(i));
        return;
    case form::equal:
    case form::none:
        break;
    }
    std::fill_n(cells, f_count, f_count > 0 ? value(0) : c_no_value);
}
} // namespace vx::tos
