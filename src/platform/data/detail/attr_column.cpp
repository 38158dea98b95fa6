#include "platform/data/detail/attr_column.h"

#include "platform/base/shown_number.h"
#include "platform/base/text_codec.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace vx::attr {
namespace {
// Past this many different texts a number for each is no gain over the texts themselves.
constexpr std::size_t c_most_texts = 1 << 16;
constexpr std::size_t c_first_look = 4096; ///< records after which repetition is judged
constexpr int c_half_bits = 32;            ///< of a start that are kept for each record
constexpr std::string_view c_blanks = " \t\n\r\v\f";

template <class T>
std::string_view number_text(T value, text::number_buffer &buffer)
{
    if constexpr (std::is_floating_point_v<T>)
        return text::shown_number(value + 0.0, buffer); // both zeros are one value
    else
        return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

bool parse_number(std::string_view text, double &value)
{
    auto const first = text.find_first_not_of(c_blanks);
    if (first == std::string_view::npos)
        return false;
    text = text.substr(first, text.find_last_not_of(c_blanks) - first + 1);
    char const *begin = text.data();
    char const *const end = begin + text.size();
    if (*begin == '+' && end - begin > 1 && begin[1] != '-')
        ++begin;
    auto const [stop, code] = std::from_chars(begin, end, value);
    return code == std::errc() && stop == end && std::isfinite(value);
}

int cut_to_int(double value)
{
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    return static_cast<int>(value); // towards zero, as data sets read a whole number
}

int cut_to_int(std::int64_t value)
{
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

template <class... F>
struct overloaded : F...
{
    using F::operator()...;
};
template <class... F>
overloaded(F...) -> overloaded<F...>;
} // namespace

wchar_t const *wide_buffer::widened(std::string_view utf8)
{
    constexpr std::size_t c_step = 8;
    constexpr std::uint64_t c_high_bits = 0x8080808080808080u;
    std::size_t const size = utf8.size();
    if (f_room.size() <= size)
        f_room.resize(2 * size + c_step);
    wchar_t *const room = f_room.data();
    std::uint64_t all_bits = 0;
    auto const take = [&]<class Bytes>(std::size_t at, Bytes bytes) {
        std::memcpy(&bytes, utf8.data() + at, sizeof bytes);
        all_bits |= bytes;
#pragma GCC unroll 8
        for (std::size_t i = 0; i < sizeof bytes; ++i)
            room[at + i] = static_cast<unsigned char>(utf8[at + i]);
    };
    std::size_t at = 0;
    for (; at + c_step <= size; at += c_step)
        take(at, std::uint64_t{});
    std::size_t const rest = size - at;
    constexpr std::size_t c_half_step = c_step / 2;
    // The last bytes are taken together with some of those that are done already.
    if (rest > c_half_step && size >= c_step)
        take(size - c_step, std::uint64_t{});
    else if (rest > 0 && rest <= c_half_step && size >= c_half_step)
        take(size - c_half_step, std::uint32_t{});
    else
        for (; at < size; ++at)
            take(at, std::uint8_t{});
    room[size] = L'\0';
    if (all_bits & c_high_bits) {
        auto const whole = vx::text::utf8_to_wide(utf8);
        std::copy_n(whole.c_str(), whole.size() + 1, room); // never longer than its bytes
    }
    return room;
}

void defined_bits::append_bit(bool is_defined)
{
    f_bits.resize(f_size, true); // so far all had one
    f_bits.push_back(is_defined);
    ++f_size;
}

void text_cells::append(std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    f_defined.append(true);
    if (f_is_plain)
        return append_plain(text);
    auto at = f_known.find(text);
    if (at == f_known.end()) {
        f_texts.emplace_back(text);
        at = f_known.emplace(f_texts.back(), static_cast<std::uint32_t>(f_texts.size() - 1)).first;
    }
    f_numbers.push_back(at->second);
    if (is_better_plain())
        make_plain();
}

void text_cells::append_none()
{
    f_defined.append(false);
    if (f_is_plain)
        return append_plain({});
    if (f_texts.empty())
        f_texts.emplace_back(); // so that every record has a place to point to
    f_numbers.push_back(0);
}

bool text_cells::is_better_plain() const
{
    return f_texts.size() > c_most_texts ||
           (f_numbers.size() == c_first_look && f_texts.size() > c_first_look / 2);
}

void text_cells::append_plain(std::string_view text)
{
    while (f_bytes.size() >> c_half_bits > f_wraps.size())
        f_wraps.push_back(f_numbers.size());
    f_numbers.push_back(static_cast<std::uint32_t>(f_bytes.size()));
    f_bytes.insert(f_bytes.end(), text.begin(), text.end());
}

std::size_t text_cells::wrapped(std::size_t record) const
{
    auto const wraps = std::upper_bound(f_wraps.begin(), f_wraps.end(), record) - f_wraps.begin();
    return static_cast<std::size_t>(wraps) << c_half_bits;
}

void text_cells::make_plain()
{
    std::vector<std::uint32_t> const places = std::move(f_numbers);
    f_numbers = {};
    f_numbers.reserve(std::max(f_records, places.size()) + 1);
    std::size_t bytes = 0;
    for (auto const place : places)
        bytes += f_texts[place].size();
    // The texts to come are taken to be as long as those that came, and a little longer.
    std::size_t const expected = bytes / places.size() * f_records;
    f_bytes.reserve(expected + expected / 16);
    f_is_plain = true;
    for (auto const place : places)
        append_plain(f_texts[place]);
    f_texts = {};
    f_known = {};
}

void text_cells::finish()
{
    if (f_is_plain)
        append_plain({}); // where the last one ends
    f_known = {};
    for (auto const &text : f_texts)
        f_wide_texts.push_back(vx::text::utf8_to_wide(text));
    if (f_bytes.capacity() > f_bytes.size() + f_bytes.size() / 8)
        f_bytes.shrink_to_fit();
    f_numbers.shrink_to_fit();
}

bool has_value(column const &cells, std::size_t record)
{
    return std::visit(
        overloaded{[](std::monostate) { return false; },
                   [&](text_cells const &c) { return record < c.size() && c.has(record); },
                   [&](auto const &c) { return record < c.values.size() && c.defined[record]; }},
        cells);
}

bool text_of(column const &cells, std::size_t record, std::string &buffer)
{
    buffer.clear();
    if (!has_value(cells, record))
        return false;
    text::number_buffer digits;
    buffer = std::visit(overloaded{[](std::monostate) { return std::string_view(); },
                                   [&](text_cells const &c) { return c.get(record); },
                                   [&](auto const &c) { return number_text(c.values[record], digits); }},
                        cells);
    return true;
}

wchar_t const *wide_text_of(column const &cells, std::size_t record, wide_buffer &buffer, bool &has)
{
    if (auto const *const texts = std::get_if<text_cells>(&cells)) {
        has = record < texts->size() && texts->has(record);
        return has ? texts->get_wide(record, buffer) : L"";
    }
    std::string digits;
    has = text_of(cells, record, digits);
    return buffer.widened(digits);
}

bool number_of(column const &cells, std::size_t record, double &value)
{
    return std::visit(overloaded{[](std::monostate) { return false; },
                                 [&](text_cells const &c) {
                                     return record < c.size() && c.has(record) &&
                                            parse_number(c.get(record), value);
                                 },
                                 [&](auto const &c) {
                                     if (record >= c.values.size() || !c.defined[record])
                                         return false;
                                     value = static_cast<double>(c.values[record]);
                                     return true;
                                 }},
                      cells);
}

bool integer_of(column const &cells, std::size_t record, int &value)
{
    if (auto const *const whole = std::get_if<number_cells<std::int64_t>>(&cells)) {
        if (!has_value(cells, record))
            return false;
        value = cut_to_int(whole->values[record]);
        return true;
    }
    double number = 0;
    if (!number_of(cells, record, number) || std::isnan(number))
        return false;
    value = cut_to_int(number);
    return true;
}
} // namespace vx::attr
