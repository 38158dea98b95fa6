#pragma once

#include "platform/base/owned.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/render/detail/row_table.h"

#include <string>
#include <vector>

namespace vx::render {
using tos_file_ptr = vx::owned<Ivx_tos4_file, &vx_tos4_file_close>;
using tos_prop_ptr = vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close>;

/// An object of a property file with all its properties, as filters see it. The file must outlive it.
class tos_row final : public Ivx_calc_row
{
public:
    explicit tos_row(Ivx_tos4_file *file) : f_file(file) {}
    void go_to(unsigned long long object) { f_object = object; }
    /// Opened on first use.
    [[nodiscard]] Ivx_tos4_prop *property(int field);
    /// A value of those that were asked for could not be read.
    [[nodiscard]] bool is_damaged() const;
    [[nodiscard]] int field_index(std::wstring_view name) const override;
    [[nodiscard]] Tvx_calc_cell cell(int field, bool text_needed) override;

private:
    Ivx_tos4_file *f_file;
    std::vector<tos_prop_ptr> f_props;
    unsigned long long f_object = 0;
    std::wstring f_text;
};

/// The objects of a property file, which must outlive the table.
class tos_table final : public row_table
{
public:
    explicit tos_table(Ivx_tos4_file *file) : f_row(file) {}
    [[nodiscard]] bool is_damaged() const { return f_row.is_damaged(); }
    [[nodiscard]] int field_index(std::wstring const &name) const override;
    bool read_on(int, int) override { return false; }
    [[nodiscard]] double number(int field, unsigned record, bool &known) override;
    [[nodiscard]] std::string_view text(int field, unsigned record, bool &known) override;
    [[nodiscard]] int text_number(int, unsigned) override { return -1; }
    [[nodiscard]] Ivx_calc_row &row_of(unsigned record) override;
    [[nodiscard]] std::set<int> const &filter_fields() const override { return f_none; }

private:
    tos_row f_row;
    std::string f_text;
    std::set<int> f_none;
};
} // namespace vx::render
