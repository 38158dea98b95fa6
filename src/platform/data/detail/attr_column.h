#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

/// One column of an attribute table, read whole: a value or none for each record.
namespace vx::attr {
/// Room is made at once for so many records and no more: how many will come is what a file or a driver says.
inline constexpr std::size_t c_most_expected_cells = 1U << 22;

/// Which records have a value. Takes no room while all have one.
class defined_bits
{
public:
    void append(bool is_defined)
    {
        if (is_defined && f_bits.empty())
            ++f_size;
        else
            append_bit(is_defined);
    }
    [[nodiscard]] bool operator[](std::size_t record) const { return f_bits.empty() || f_bits[record]; }
    [[nodiscard]] std::size_t size() const { return f_size; }

private:
    void append_bit(bool is_defined);

    std::size_t f_size = 0;
    std::vector<bool> f_bits;
};

/// Room for one text in wide form.
class wide_buffer
{
public:
    /// Zero-terminated; valid until the next call.
    [[nodiscard]] wchar_t const *widened(std::string_view utf8);

private:
    std::vector<wchar_t> f_room;
};

/// Texts in UTF-8, one after the other. Where they repeat, each is kept once and the records hold its number.
class text_cells
{
public:
    /// `records` is the number of texts that will come, as far as it is known.
    explicit text_cells(std::size_t records) : f_records(std::min(records, c_most_expected_cells)) {}
    text_cells(text_cells &&) = default;
    text_cells &operator=(text_cells &&) = default;

    /// A text with a zero in it ends there.
    void append(std::string_view text);
    void append_none();
    /// To be called after the last text and before the first is read.
    void finish();

    [[nodiscard]] std::size_t size() const { return f_defined.size(); }
    [[nodiscard]] bool has(std::size_t record) const { return f_defined[record]; }
    /// Number of a cell's text among the different texts of the column, from 0 in the order in which they
    /// came; -1 where texts are not kept by number and where there is none.
    [[nodiscard]] int number(std::size_t record) const
    {
        return f_is_plain || !has(record) ? -1 : static_cast<int>(f_numbers[record]);
    }
    [[nodiscard]] std::string_view get(std::size_t record) const
    {
        return f_is_plain ? plain_text(record) : std::string_view(f_texts[f_numbers[record]]);
    }
    /// Of a finished column.
    [[nodiscard]] wchar_t const *get_wide(std::size_t record, wide_buffer &buffer) const
    {
        return f_is_plain ? buffer.widened(plain_text(record)) : f_wide_texts[f_numbers[record]].c_str();
    }

private:
    [[nodiscard]] std::size_t start_of(std::size_t record) const
    {
        std::size_t const start = f_numbers[record];
        return f_wraps.empty() ? start : start + wrapped(record);
    }
    [[nodiscard]] std::size_t wrapped(std::size_t record) const;
    [[nodiscard]] std::string_view plain_text(std::size_t record) const
    {
        std::size_t const start = start_of(record);
        return {f_bytes.data() + start, start_of(record + 1) - start};
    }
    void append_plain(std::string_view text);
    [[nodiscard]] bool is_better_plain() const;
    void make_plain();

    std::size_t f_records; ///< that are taken to come
    defined_bits f_defined;
    bool f_is_plain = false;
    /// Plain: the lower half of the start of each text, and of the end of the last; else places in `f_texts`.
    std::vector<std::uint32_t> f_numbers;
    std::vector<std::size_t> f_wraps; ///< plain: records at which the upper half grows by one
    std::vector<char> f_bytes;        ///< plain: all texts
    std::deque<std::string> f_texts;  ///< not plain: the different texts, which never move
    std::vector<std::wstring> f_wide_texts;
    std::unordered_map<std::string_view, std::uint32_t> f_known;
};

template <class T>
struct number_cells
{
    std::vector<T> values; ///< 0 where there is none
    defined_bits defined;

    explicit number_cells(std::size_t records) { values.reserve(std::min(records, c_most_expected_cells)); }
    void append(T value, bool is_defined)
    {
        values.push_back(is_defined ? value : T{});
        defined.append(is_defined);
    }
};

/// The kinds of column; the first stands for a field whose cells are not offered.
using column = std::variant<std::monostate, text_cells, number_cells<std::int32_t>,
                            number_cells<std::int64_t>, number_cells<double>>;

/// Past the end and in a column without cells there is no value.
[[nodiscard]] bool has_value(column const &cells, std::size_t record);
/// The cell as text in UTF-8, made in `buffer`; numbers with "." and at most 15 digits. False, and an empty
/// text, when there is none.
bool text_of(column const &cells, std::size_t record, std::string &buffer);
/// As `text_of`, wide. The text is valid until the buffer's next use and while the column is; never null.
[[nodiscard]] wchar_t const *wide_text_of(column const &cells, std::size_t record, wide_buffer &buffer,
                                          bool &has);
/// The cell as number; false when it has none, or its text spells none.
[[nodiscard]] bool number_of(column const &cells, std::size_t record, double &value);
/// As `number_of`, cut to whole numbers of the type without a detour through `double`.
[[nodiscard]] bool integer_of(column const &cells, std::size_t record, int &value);
} // namespace vx::attr
