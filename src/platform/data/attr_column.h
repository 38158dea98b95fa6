#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

/// One column of an attribute table, read whole: a value or none for each record.
namespace vx::attr {
/// Texts in one block, each with its zero; equal ones once, as long as they are few.
class text_cells
{
public:
    void append(std::wstring_view text);
    void append_none();
    [[nodiscard]] std::size_t size() const { return f_starts.size(); }
    [[nodiscard]] bool has(std::size_t record) const { return f_starts[record] != c_none; }
    [[nodiscard]] wchar_t const *get(std::size_t record) const { return f_text.data() + f_starts[record]; }
    /// Frees what only appending needs.
    void finish();

private:
    static constexpr std::size_t c_none = static_cast<std::size_t>(-1);

    std::vector<wchar_t> f_text;
    std::vector<std::size_t> f_starts;
    std::unordered_map<std::wstring, std::size_t> f_known;
};

template <class T>
struct number_cells
{
    std::vector<T> values; ///< 0 where there is none
    std::vector<bool> defined;

    void append(T value, bool is_defined)
    {
        values.push_back(is_defined ? value : T{});
        defined.push_back(is_defined);
    }
};

/// The kinds of column; the first stands for a field whose cells are not offered.
using column = std::variant<std::monostate, text_cells, number_cells<std::int32_t>,
                            number_cells<std::int64_t>, number_cells<double>>;

/// Past the end and in a column without cells there is no value.
[[nodiscard]] bool has_value(column const &cells, std::size_t record);
/// The cell as text; numbers with "." and at most 15 digits. Writes into `buffer` when the text is made here.
[[nodiscard]] wchar_t const *text_of(column const &cells, std::size_t record, std::wstring &buffer);
/// The cell as number; false when it has none, or its text spells none.
[[nodiscard]] bool number_of(column const &cells, std::size_t record, double &value);
/// As `number_of`, cut to whole numbers of the type without a detour through `double`.
[[nodiscard]] bool integer_of(column const &cells, std::size_t record, int &value);
} // namespace vx::attr
