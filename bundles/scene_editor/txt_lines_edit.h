#pragma once

#include "controls/forms/caption_panels.h"
#include "controls/forms/lists.h"
#include "controls/forms/order_buttons.h"
#include "controls/forms/panels.h"

#include <string>
#include <vector>

/// Edits the lines of a text: a list of them, buttons that add, delete and move them, and a box in which the
/// current one is typed or chosen from the properties of the data. A line that is the name of a property
/// stands for its value.
class Tvx_txt_lines_edit final : public Tvx_basic_pnl
{
public:
    explicit Tvx_txt_lines_edit(TComponent *owner);

    void load_res();
    /// A `vx_wstrings` list, which is read at once; null has none. To be set before the lines are read.
    void set_properties(void const *properties);
    /// The lines go in and out by value, out of and into a text style. Shows them; fires nothing.
    void read_lines(void *txt_style);
    void write_lines(void *txt_style) const;
    /// All lines, parted by line feeds.
    [[nodiscard]] std::wstring get_text() const;

    [[nodiscard]] Tvx_list_box *get_list() const { return f_list; }
    [[nodiscard]] Tvx_combo_box *get_box() const { return f_box; }
    [[nodiscard]] Tvx_order_buttons *get_buttons() const { return f_buttons; }

private:
    [[nodiscard]] bool is_property(std::wstring const &text) const;
    [[nodiscard]] UnicodeString item_text(std::wstring const &line) const;
    [[nodiscard]] int current() const { return f_list->GetItemIndex(); }
    void show_lines(int current);
    void show_current();
    void on_list_click(TObject *sender);
    void on_box_change(TObject *sender);
    void on_add_click(TObject *sender);
    void on_delete_click(TObject *sender);
    void on_move_click(TObject *sender, int by);

    std::vector<std::wstring> f_properties;
    std::vector<std::wstring> f_lines;
    Tvx_list_box *f_list;
    Tvx_order_buttons *f_buttons;
    Tvx_combo_box_panel *f_box_panel;
    Tvx_combo_box *f_box;
};
