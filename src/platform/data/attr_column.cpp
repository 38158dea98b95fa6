#include "platform/data/attr_column.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace vx::attr {
namespace {
// Past this many different texts equal ones are rare, and looking for them costs more than it saves.
constexpr std::size_t c_known_limit = 1 << 16;
constexpr int c_number_digits = 15;
constexpr std::wstring_view c_blanks = L" \t\n\r\v\f";

template <class T>
std::wstring number_text(T value)
{
    char buffer[40];
    char *end = nullptr;
    if constexpr (std::is_floating_point_v<T>)
        end =
            std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, c_number_digits)
                .ptr;
    else
        end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return {buffer, end};
}

bool parse_number(std::wstring_view text, double &value)
{
    auto const first = text.find_first_not_of(c_blanks);
    if (first == std::wstring_view::npos)
        return false;
    text = text.substr(first, text.find_last_not_of(c_blanks) - first + 1);
    std::string narrow;
    for (auto const c : text) {
        if (c > 0x7F)
            return false;
        narrow.push_back(static_cast<char>(c));
    }
    char const *begin = narrow.data();
    char const *const end = begin + narrow.size();
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
    return static_cast<int>(std::lround(value));
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

void text_cells::append(std::wstring_view text)
{
    if (auto const zero = text.find(L'\0'); zero != std::wstring_view::npos)
        text = text.substr(0, zero);
    if (f_known.size() < c_known_limit) {
        auto const [at, is_new] = f_known.try_emplace(std::wstring(text), f_text.size());
        f_starts.push_back(at->second);
        if (!is_new)
            return;
    } else
        f_starts.push_back(f_text.size());
    f_text.insert(f_text.end(), text.begin(), text.end());
    f_text.push_back(L'\0');
}

void text_cells::append_none()
{
    f_starts.push_back(c_none);
}

void text_cells::finish()
{
    f_known = {};
    f_text.shrink_to_fit();
    f_starts.shrink_to_fit();
}

bool has_value(column const &cells, std::size_t record)
{
    return std::visit(
        overloaded{[](std::monostate) { return false; },
                   [&](text_cells const &c) { return record < c.size() && c.has(record); },
                   [&](auto const &c) { return record < c.values.size() && c.defined[record]; }},
        cells);
}

wchar_t const *text_of(column const &cells, std::size_t record, std::wstring &buffer)
{
    if (!has_value(cells, record))
        return L"";
    return std::visit(overloaded{[](std::monostate) { return L""; },
                                 [&](text_cells const &c) { return c.get(record); },
                                 [&](auto const &c) {
                                     buffer = number_text(c.values[record]);
                                     return buffer.c_str();
                                 }},
                      cells);
}

bool number_of(column const &cells, std::size_t record, double &value)
{
    if (!has_value(cells, record))
        return false;
    return std::visit(overloaded{[](std::monostate) { return false; },
                                 [&](text_cells const &c) { return parse_number(c.get(record), value); },
                                 [&](auto const &c) {
                                     value = static_cast<double>(c.values[record]);
                                     return true;
                                 }},
                      cells);
}

bool integer_of(column const &cells, std::size_t record, int &value)
{
    if (!has_value(cells, record))
        return false;
    if (auto const *const whole = std::get_if<number_cells<std::int64_t>>(&cells)) {
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
