#pragma once

#include "extension/binding/style_editor_data_source.h"

#include <string>
#include <vector>

struct Ivx_attr_data;
struct Ivx_attr_files;

/// The fields of a layer by which something can be told apart: texts with a few different values, numbers
/// that are no running numbers. Fields of one value, identifiers and names that occur once are left out,
/// unless all are asked for. It is what the desk's editors offer as their data.
///
/// A field is judged by its first records, when the fields are first asked for.
class field_table final : public vx::style_editor_data_source_impl
{
public:
    ~field_table();

    /// Null for a layer without a table. What was open is closed.
    void set_data(Ivx_attr_data *data);
    void set_only_telling(bool only);
    [[nodiscard]] bool get_only_telling() const { return f_only_telling; }

    [[nodiscard]] unsigned record_count();
    [[nodiscard]] unsigned field_count();
    [[nodiscard]] unsigned telling_count();

    int property_count() override;
    int item_count() override { return static_cast<int>(record_count()); }
    bool property_used(int) override { return true; }
    bool property_floating(int property) override;
    void with_property_name(int property, vx::string_visitor visitor) override;
    void with_property_caption(int property, vx::string_visitor visitor) override;
    bool item_property_defined(int item, int property) override;
    void with_item_property_text(int item, int property, vx::string_visitor visitor) override;
    double item_property_value(int item, int property) override;
    bool property_stats(int property, double *min, double *max, double *mean, double *deviation) override;

private:
    struct field
    {
        unsigned index; ///< in the table
        bool is_number;
        bool is_telling;
        std::wstring caption;
    };

    void open();
    [[nodiscard]] field judge(unsigned index, bool is_number);
    /// The field behind a property; null for a number outside.
    [[nodiscard]] field const *shown(int property);

    Ivx_attr_data *f_data = nullptr;
    Ivx_attr_files *f_files = nullptr;
    bool f_is_open = false; ///< as far as it can be opened
    bool f_only_telling = true;
    std::vector<field> f_fields; ///< those that can be offered at all
};
