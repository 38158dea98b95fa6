#pragma once

#include "platform/base/export.h"
#include "platform/base/owned.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/detail/attr_row.h"
#include "platform/data/vx_attr_data.h"

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace vx::dialogs {
/// An attribute table as one who makes a filter sees it.
class filter_table
{
public:
    struct field
    {
        std::wstring name;
        unsigned index; ///< among all fields of the table
        bool numeric;
    };
    /// More different values than these are offered by their beginning.
    static constexpr std::size_t c_most_values = 1000;

    /// Null, and what cannot be opened, is a table without fields.
    explicit filter_table(Ivx_entity *data);

    [[nodiscard]] bool is_open() const { return f_files != nullptr; }
    [[nodiscard]] unsigned get_size() const { return vx_attr_files_get_no(f_files.get()); }
    /// The fields that a filter can ask for, in the order of the table.
    [[nodiscard]] std::vector<field> const &get_fields() const { return f_fields; }
    /// By the name as a filter finds it; null for none.
    [[nodiscard]] field const *find(std::wstring const &name) const;
    /// The different values of a field, in order: numbers by value, texts as people sort them. Of a field
    /// with more than `c_most_values` those that begin with the text, and of them no more than that many.
    /// None when the user has stopped the reading, which the next call takes up.
    [[nodiscard]] std::vector<std::wstring> values(std::wstring const &name, std::wstring const &beginning);

    [[nodiscard]] Ivx_attr_files *get_files() const { return f_files.get(); }

private:
    [[nodiscard]] std::vector<std::wstring> read(field const &field, std::wstring const *beginning,
                                                 std::size_t most) const;

    vx::owned<Ivx_attr_files, &vx_attr_files_close> f_files;
    std::vector<field> f_fields;
    std::map<unsigned, std::vector<std::wstring>> f_values; ///< of the fields that were asked for
};

/// Counts the objects that a filter selects, a piece at a time.
class match_counter
{
public:
    /// The table must outlive the counter.
    explicit match_counter(filter_table &table) : f_table(table), f_row(table.get_files()) {}

    /// Begins anew.
    void start(void const *filter);
    /// Counts on for about that long; true when all objects are counted.
    bool step(std::chrono::milliseconds time);
    [[nodiscard]] unsigned get_matches() const { return f_matches; }
    [[nodiscard]] bool is_done() const { return f_next >= f_table.get_size(); }

private:
    filter_table &f_table;
    attr::attr_row f_row;
    vx::owned<void, &vx_calc_prepared_destroy> f_prepared;
    unsigned f_next = 0;
    unsigned f_matches = 0;
};
} // namespace vx::dialogs
