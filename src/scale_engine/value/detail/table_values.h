#pragma once

#include "scale_engine/value/detail/seen_texts.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/data/vx_table.h"

#include <cmath>
#include <string>
#include <unordered_set>

/// The different values of a table's column, and of data sets, as the value caches share them.
namespace vx::task::detail {
inline constexpr std::wstring_view c_white_space = L" \t\n\r\v\f";

[[nodiscard]] inline std::wstring_view trimmed(std::wstring_view text)
{
    auto const first = text.find_first_not_of(c_white_space);
    return first == text.npos ? std::wstring_view()
                              : text.substr(first, text.find_last_not_of(c_white_space) - first + 1);
}

/// A limit as data sets take it: 0 means one value there too, and what their interface cannot count is none.
[[nodiscard]] std::uint64_t source_limit(std::uint64_t limit);

/// One column of an entity's table, open while the object lives.
class table_column
{
public:
    /// `caption_field`, which may be null, falls back to the field itself.
    table_column(Ivx_entity *entity, std::wstring const &field, std::wstring const *caption_field);
    /// Whether table and column are there.
    [[nodiscard]] explicit operator bool() const { return f_table && f_column >= 0; }
    [[nodiscard]] unsigned rows() const { return vx_table_files_get_rows_count(f_table.get()); }
    [[nodiscard]] bool is_own_caption() const { return f_column == f_caption_column; }

    /// False when the cell has no value. The text is good until the next one is asked for.
    bool read(unsigned row, std::wstring_view &value) { return read_text(f_column, row, value); }
    bool read(unsigned row, int &value) { return read_number(f_column, row, value); }
    bool read(unsigned row, double &value) { return read_number(f_column, row, value) && !std::isnan(value); }
    /// Of the caption's column; a cell without a value gives what such a cell gives.
    void read_caption(unsigned row, std::wstring_view &value) { read_text(f_caption_column, row, value); }
    void read_caption(unsigned row, int &value) { read_number(f_caption_column, row, value); }
    void read_caption(unsigned row, double &value) { read_number(f_caption_column, row, value); }

private:
    bool read_text(int column, unsigned row, std::wstring_view &value);
    bool read_number(int column, unsigned row, int &value);
    bool read_number(int column, unsigned row, double &value);

    vx::owned<Ivx_table_files, &vx_table_files_close> f_table;
    int f_column = -1;
    int f_caption_column = -1;
    std::wstring f_text;
    Tvx_std_wstring_adapter f_receiver{f_text};
};

/// Walks the rows until there are `limit` values. `visit(row, value)` gives whether the value is new, and the
/// number of values then is asked of `count()`.
template <class Value, class Visit, class Count>
void walk_column(table_column &column, std::uint64_t limit, Visit visit, Count count)
{
    unsigned const rows = column.rows();
    for (unsigned row = 0; row < rows; ++row) {
        Value value{};
        if (column.read(row, value) && visit(row, value) && count() >= limit)
            return;
    }
}
} // namespace vx::task::detail
