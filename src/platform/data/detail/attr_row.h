#pragma once

#include "platform/calculator/vx_calc_filter.h"

#include <cstdint>
#include <optional>
#include <set>

struct Ivx_attr_files;

namespace vx::attr {
/// A record of an attribute table as filters see it.
class attr_row final : public Ivx_calc_row
{
public:
    /// Null is a table without fields. The table must outlive the row.
    explicit attr_row(Ivx_attr_files *files) : f_files(files) {}
    void go_to(unsigned record) { f_record = record; }
    /// Those that were looked up.
    [[nodiscard]] std::set<int> const &fields() const { return f_fields; }

    [[nodiscard]] int field_index(std::wstring_view name) const override;
    [[nodiscard]] Tvx_calc_cell cell(int field, bool text_needed) override;

private:
    [[nodiscard]] std::optional<std::int64_t> whole_number(unsigned field, double number);

    Ivx_attr_files *f_files;
    mutable std::set<int> f_fields;
    unsigned f_record = 0;
};
} // namespace vx::attr
