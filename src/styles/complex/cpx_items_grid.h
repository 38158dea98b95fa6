#pragma once

#include "controls/forms/menus.h"
#include "controls/item_grid/item_panels.h"

/// Base of the two lists of the complex style editor: the number of a row, its text, and the commands. One
/// row is the active one, which is the marked one too.
class VX_API Tvx_cpx_items_grid : public Tvx_item_panel_adv
{
public:
    void load_res() override;
    /// Takes over how many items there are.
    void update_controls() override;

    /// From 0; may lie outside of the list.
    [[nodiscard]] int get_active() const { return f_active; }
    [[nodiscard]] Tvx_popup_menu *get_add_menu() const { return f_add_menu; }

    /// The user changed the list, or went to another row where that counts as a change.
    TNotifyEvent on_changed;

protected:
    /// `column_caption` is the number of the second column's caption.
    Tvx_cpx_items_grid(TComponent *owner, int column_caption);

    void call_changed() { on_changed(this); }
    /// A menu item behind those that there are; `on_click` unset: an item that does nothing.
    Tvx_menu_item *add_menu_item(TNotifyEvent on_click);
    void put_active(int row) { f_active = row; }

    [[nodiscard]] virtual int item_count() const = 0;
    /// In the system code page; good until the next call.
    [[nodiscard]] virtual char const *item_text(int row) = 0;
    /// Before the add menu opens.
    virtual void prepare_add_menu() {}
    virtual void delete_item() = 0;
    virtual void move_item(int from, int to) = 0;
    virtual void move_up() = 0;
    virtual void move_down() = 0;
    /// The user went to another row, which is the active one already.
    virtual void active_changed() {}

private:
    char const *on_get_str(Tvx_item_column *sender, int row);
    void on_add_item(TObject *sender);
    void on_del_item(TObject *sender);
    int on_get_active(TObject *sender);
    void on_set_active(TObject *sender, int row);
    bool on_get_sel(TObject *sender, int row);
    void on_move_item(TObject *sender, int from, int to);
    void on_up_item(TObject *sender);
    void on_down_item(TObject *sender);
    void on_grid_click(TObject *sender);

    Tvx_popup_menu *f_add_menu;
    int f_column_caption;
    int f_active = 0;
};
