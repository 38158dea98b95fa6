#pragma once

#include "platform/storage/detail/xml_element.h"
#include "platform/styles/detail/style_model.h"

#include <memory>
#include <unordered_map>
#include <vector>

/// Styles in files.
namespace vx::storage {
/// Writes the parts of a style into an element of its own.
void write_style(xml_out &to, styles::style_kind kind, styles::any_style const &style);
/// A style of the kind; what the element does not have stays as in a default base style.
[[nodiscard]] std::unique_ptr<styles::any_style> read_style(xml_in &from, styles::style_kind kind);

/// A composed style that lies elsewhere, as its plain object (`styles::pnt_style` and so on).
void write_style_object(xml_out &to, styles::style_kind kind, void const *object);
void read_style_object(xml_in &from, styles::style_kind kind, void *object);
void assign_style_object(styles::style_kind kind, void *target, void const *source);

/// The styles of a scale, each of them written once. Entries name them by their place in the table.
class style_table_out
{
public:
    explicit style_table_out(xml_out table) : f_table(table) {}
    /// Writes the places of the entry's styles into its element, and the styles that are new into the table.
    void write(xml_out &entry, styles::stl_prm const &prm);

private:
    [[nodiscard]] unsigned place(styles::style_kind kind, styles::any_style const &style);

    xml_out f_table;
    unsigned f_size = 0;
    std::unordered_map<styles::any_style const *, unsigned> f_known;
    struct written
    {
        styles::any_style const *style;
        unsigned place;
    };
    std::unordered_multimap<std::uint64_t, written> f_written;
};

class style_table_in
{
public:
    /// Reads all children of the table's element.
    style_table_in(xml_in table, styles::style_kind kind);
    /// Gives the entry its styles. Styles that are the default ones are not stored.
    void read(xml_in &entry, styles::stl_prm &prm) const;

private:
    struct item
    {
        std::unique_ptr<styles::any_style> style;
        bool is_default[2]; ///< as base and as selection style
    };
    void read(xml_in &entry, char const *name, styles::stl_prm &prm, styles::variant_of_style variant) const;

    std::vector<item> f_items;
};
} // namespace vx::storage
