#pragma once

#include "styles/complex/cpx_items_grid.h"

#include <string>

/// The elements of a line template, a character each: "0" gap, "1" dash, "3" dash at 90 degrees, "2" point,
/// "4" symbol, "5" dash at 45, "6" dash at 135 degrees. Other characters stay in the string and show as
/// themselves.
class VX_API Tvx_pln_template_grid : public Tvx_cpx_items_grid
{
public:
    explicit Tvx_pln_template_grid(TComponent *owner);

    void load_res() override;

    [[nodiscard]] std::string const &get_template_str() const { return f_template; }
    /// Fires nothing.
    void set_template_str(std::string const &text);
    /// The character of the active row; 0 without one.
    [[nodiscard]] char get_active_elem() const;

protected:
    [[nodiscard]] int item_count() const override { return static_cast<int>(f_template.size()); }
    char const *item_text(int row) override;
    void delete_item() override;
    /// Swaps the two elements; those between stay.
    void move_item(int from, int to) override;
    void move_up() override;
    void move_down() override;

private:
    void on_gap_menu_click(TObject *sender) { add_elem('0'); }
    void on_dash_menu_click(TObject *sender) { add_elem('1'); }
    void on_dash90_menu_click(TObject *sender) { add_elem('3'); }
    void on_point_menu_click(TObject *sender) { add_elem('2'); }
    void on_symbol_menu_click(TObject *sender) { add_elem('4'); }
    void on_dash45_menu_click(TObject *sender) { add_elem('5'); }
    void on_dash135_menu_click(TObject *sender) { add_elem('6'); }
    void add_elem(char elem);
    [[nodiscard]] bool holds(int row) const { return row >= 0 && row < item_count(); }
    void swap(int a, int b);
    void list_changed();

    std::string f_template;
    std::string f_text; ///< the last one that was asked for
};
