#pragma once

#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/detail/attr_row.h"

#include <set>
#include <string>
#include <string_view>

struct Ivx_attr_files;

namespace vx::render {
/// Records with the properties that a manager's rows go by.
class row_table
{
public:
    row_table() = default;
    row_table(row_table const &) = delete;
    row_table &operator=(row_table const &) = delete;
    virtual ~row_table() = default;

    /// -1 when there is none.
    [[nodiscard]] virtual int field_index(std::wstring const &name) const = 0;
    /// Reads the field for about so many milliseconds; false when nothing is left to read.
    virtual bool read_on(int field, int milliseconds) = 0;
    /// 0 without a value.
    [[nodiscard]] virtual double number(int field, unsigned record, bool &known) = 0;
    /// Valid until the next call.
    [[nodiscard]] virtual std::string_view text(int field, unsigned record, bool &known) = 0;
    /// Number of a text among the different ones of its field; -1 where texts have none.
    [[nodiscard]] virtual int text_number(int field, unsigned record) = 0;
    /// The record as filters see it, and the fields that they asked for.
    [[nodiscard]] virtual Ivx_calc_row &row_of(unsigned record) = 0;
    [[nodiscard]] virtual std::set<int> const &filter_fields() const = 0;
};

/// Of an attribute table, which may be null: it has no fields then.
class attr_table final : public row_table
{
public:
    explicit attr_table(Ivx_attr_files *files) : f_files(files), f_row(files) {}
    [[nodiscard]] int field_index(std::wstring const &name) const override;
    bool read_on(int field, int milliseconds) override;
    [[nodiscard]] double number(int field, unsigned record, bool &known) override;
    [[nodiscard]] std::string_view text(int field, unsigned record, bool &known) override;
    [[nodiscard]] int text_number(int field, unsigned record) override;
    [[nodiscard]] Ivx_calc_row &row_of(unsigned record) override;
    [[nodiscard]] std::set<int> const &filter_fields() const override { return f_row.fields(); }

private:
    Ivx_attr_files *f_files;
    attr::attr_row f_row;
};
} // namespace vx::render
