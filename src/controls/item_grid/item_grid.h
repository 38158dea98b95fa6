#pragma once

#include "controls/forms/grids.h"
#include "controls/item_grid/item_columns.h"

#include <memory>
#include <vector>

class Tvx_item_grid_action;

/// A list of items, one a row, that belongs to somebody else: the grid shows it in columns of given types and
/// reaches it by events only. A fixed row holds the captions; rows in all events count items from 0.
///
/// The owner makes columns, says how many items there are by `set_item_count`, and calls `update_controls`
/// after each change of the count, the items or the columns. Fixed columns stand at the left; by them the
/// user drags rows, which `on_move_item` reports.
///
/// A check frame turns by a click or Space while its cell is the current one. In a column of marks Shift
/// marks all rows from the former current one to that which is chosen, and Alt unmarks them; on the current
/// cell they set or clear the one mark without reporting a change, and a bit with one. Esc and Enter lead
/// from an open combo box back to the grid, where Space, or a click, opens it again.
///
/// The grid uses its own `OnKeyPress`.
class VX_API Tvx_item_grid : public Tvx_custom_grid
{
public:
    /// Without items and columns, and with its events unset.
    explicit Tvx_item_grid(TComponent *owner);
    ~Tvx_item_grid() override;

    /// Takes over columns and count, asks for the active row and paints anew. A grid without items is an
    /// empty area in the colour of button faces, which Tab passes over. Fires nothing but questions.
    void update_controls();
    [[nodiscard]] int get_item_count() const { return f_item_count; }
    /// For the next `update_controls`; below 0 is 0. Rows beyond it are neither drawn nor asked for from now
    /// on.
    void set_item_count(int count);
    /// What `on_get_active` says; without that event the current row, -1 if it is none of an item.
    [[nodiscard]] int get_active();
    /// Hands a row of an item to the owner by `on_set_active` if it is not the active one yet, and makes it
    /// the current one.
    void set_active(int row);
    /// Whether rows can be dragged; they can at first.
    [[nodiscard]] bool get_row_moving() const { return GetOptions().Contains(goRowMoving); }
    void set_row_moving(bool value);
    /// Whether an item may be added: neither the grid's event nor one of a column says no.
    [[nodiscard]] bool can_add_element();

    /// At the left of the others.
    [[nodiscard]] Tvx_item_columns *get_fixed_cols() const { return f_fixed_cols.get(); }
    [[nodiscard]] Tvx_item_columns *get_columns() const { return f_columns.get(); }
    /// The combo box that cells of type 7 are painted with. Null once it was freed by others, as the next.
    [[nodiscard]] Tvx_combo_box *get_draw_cbx() const { return f_draw_cbx; }
    /// The combo box that lies over the current cell of type 7 or 8, beside the grid on its parent.
    [[nodiscard]] Tvx_combo_box *get_edit_cbx() const { return f_edit_cbx; }

    /// Each runs its event, then `update_controls`.
    void call_del_item();
    void call_add_item();
    void call_open_item();
    void call_save_item();
    void call_parm_3d_item();
    void call_up_item();
    void call_down_item();
    void call_changed();
    [[nodiscard]] bool call_get_sel(int row);
    void call_set_sel(int row, bool value);
    [[nodiscard]] bool call_get_error(int row);
    /// Whether one item is marked at least.
    [[nodiscard]] bool has_marked();

    closure<int(TObject *sender)> on_get_active;
    /// The user went to another row.
    closure<void(TObject *sender, int row)> on_set_active;
    TNotifyEvent on_del_item;
    TNotifyEvent on_add_item;
    TNotifyEvent on_save_item;
    TNotifyEvent on_open_item;
    TNotifyEvent on_parm_3d_item;
    TNotifyEvent on_up_item;
    TNotifyEvent on_down_item;
    /// The user changed a mark, a bit, or a text with a drop button. Texts and numbers that are edited in
    /// place, and combo boxes of type 7, tell by the events of their columns only.
    TNotifyEvent on_changed;
    closure<bool(TObject *sender)> on_can_add_element;
    /// Before the grid paints another current cell than the last time. Columns count all of the grid; at the
    /// first time the old row is -1.
    closure<void(TObject *sender, int col, int row, int old_col, int old_row)> on_change_cell;
    /// The user dragged an item to another place. The owner moves it; the current row has gone along.
    closure<void(TObject *sender, int from, int to)> on_move_item;
    /// Whether an item is marked. A mark is the owner's: a set of items, or simply the active one.
    closure<bool(TObject *sender, int row)> on_get_sel;
    closure<void(TObject *sender, int row, bool value)> on_set_sel;
    /// Whether something is wrong with an item; its row stands on red.
    closure<bool(TObject *sender, int row)> on_get_error;

protected:
    void Paint() override;
    void DrawCell(int col, int row, TRect const &rect, TGridDrawState state) override;
    bool SelectCell(int col, int row) override;
    UnicodeString GetEditText(int col, int row) override;
    void SetEditText(int col, int row, UnicodeString const &text) override;
    bool CanEditShow() override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void KeyDown(Word &key, TShiftState shift) override;
    void RowMoved(int from, int to) override;
    void TopLeftChanged() override;
    void WMSize() override;
    void Notification(TComponent *component, TOperation operation) override;

private:
    friend class Tvx_item_column;
    friend class Tvx_item_grid_action;

    /// The column that a column of the grid shows; null for none.
    [[nodiscard]] Tvx_item_column *column_at(int col) const;
    /// The item that a row of the grid shows; -1 for none.
    [[nodiscard]] int item_at(int row) const;
    /// Whether a cell shows an item in a column that is not fixed.
    [[nodiscard]] bool is_item_cell(int col, int row) const;
    [[nodiscard]] int fixed_count() const { return f_fixed_cols->get_count(); }
    void size_columns();
    void show_empty(bool empty);
    void make_current(int row);
    void set_editing(bool editing);
    bool refuse_cell(int col, int row);
    void open_cbx(Tvx_item_column *column, TGridCoord cell);
    void close_cbx();
    void run_command(TNotifyEvent const &command);
    void update_actions();
    void on_type_prop_change(Tvx_item_columns *sender);
    void on_grid_key_press(TObject *sender, wchar_t &key);
    void on_cbx_exit(TObject *sender);
    void on_cbx_key_down(TObject *sender, Word &key, TShiftState shift);

    int f_item_count = 0;
    int f_last_row = -1; ///< item and column of the current cell at the last paint
    int f_last_col = 0;
    std::unique_ptr<Tvx_item_columns> f_fixed_cols;
    std::unique_ptr<Tvx_item_columns> f_columns;
    Tvx_combo_box *f_draw_cbx;
    Tvx_combo_box *f_edit_cbx;
    TGridCoord f_cbx_cell;  ///< the cell that `f_edit_cbx` lies over
    TColor f_color;         ///< of the grid with items
    bool f_tab_stop = true; ///< whether Tab stops at it then
    bool f_empty = false;   ///< it has looked empty since the last `update_controls`
    std::vector<Tvx_item_grid_action *> f_actions;
    bool f_updating = false; ///< what becomes current now was not chosen by the user
    bool f_by_key = false;
};
