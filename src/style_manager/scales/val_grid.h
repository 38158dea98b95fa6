#pragma once

#include "controls/forms/grids.h"
#include "style_manager/api/style_events.h"

#include "platform/toolkit/core/action.h"

#include <memory>
#include <string>

class TCustomImageList;
class TPopupMenu;
class Tvx_style_samples;

/// What a gradient between two rows changes.
enum Tvx_gradient_kind
{
    c_gradient_none = 0,
    c_gradient_color = 1,
    c_gradient_transparency = 3,
    c_gradient_size = 4
};

/// The entries of a value scale or, with the rule flag, of a rule scale: mark, text, caption, visibility,
/// style, style of selected objects. It works on the scale itself and has no rows of its own: row 0 is the
/// header, entry i stands in row i + 1, and an empty scale shows one blank row.
class VX_API Tvx_val_grid : public Tvx_custom_grid
{
public:
    Tvx_val_grid(TComponent *owner, bool rule);
    ~Tvx_val_grid() override;

    void create();
    void load_res();
    /// Takes the number of rows from the scale and paints anew. Fires nothing.
    void update_controls();

    /// The manager, not owned. Another one closes the in-place editor.
    void set_stl_mngr(void *mngr);
    [[nodiscard]] void *get_scale() const { return f_scale; }
    [[nodiscard]] bool is_rule() const { return f_rule; }
    /// Shows the column of the styles of selected objects.
    void enable_selection_style(bool enabled);
    [[nodiscard]] TAction *get_ins_action() const { return f_ins_action; }
    [[nodiscard]] TAction *get_del_action() const { return f_del_action; }
    void call_changed() { on_changed(this); }
    /// Takes the text that is being edited over, if there is one.
    void apply_edited_text();
    /// Closes the in-place editor: with `taken` its text goes into the scale, else it is dropped.
    void end_edit(bool taken);

    /// The menus of the headers, at a point of the screen. A menu that there is not opens nothing.
    void call_select_menu(int x, int y);
    void call_name_menu(int x, int y, bool caption);
    void call_style_menu(int x, int y, bool sel);
    void call_visible_menu(int x, int y);
    /// Lets the user edit the filter of an entry.
    virtual void call_value_click(unsigned entry);

    /// Starts to pick a gradient at the current row, if that holds an entry: the next click on a cell of the
    /// same style column ends it there, any other click ends it without effect.
    void start_gradient(Tvx_gradient_kind kind, bool sel);
    [[nodiscard]] bool get_grad_mode() const { return f_grad_mode; }

    Tvx_draw_style_event on_draw_style;
    Tvx_edit_style_event on_edit_style;
    Tvx_lib_symbol_style_event on_lib_symbol_style;
    Tvx_edit_value_item_event on_edit_value_item;
    /// The user changed the scale. Marks are no change.
    TNotifyEvent on_changed;

protected:
    bool SelectCell(int col, int row) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void DrawCell(int col, int row, TRect const &rect, TGridDrawState state) override;
    void RowMoved(int from, int to) override;
    bool CanEditShow() override;
    UnicodeString GetEditText(int col, int row) override;
    void SetEditText(int col, int row, UnicodeString const &text) override;
    void DoExit() override;
    void WMSize() override;

private:
    [[nodiscard]] unsigned size() const;
    /// The entry of a grid row; -1 for none.
    [[nodiscard]] int entry_of(int row) const;
    [[nodiscard]] bool is_on_header_edge(int x, TGridCoord cell) const;
    void size_columns();

    void call_click(int col, int row, TShiftState shift);
    void header_click(int col);
    void mark_click(int entry, TShiftState shift);
    void visible_click(int entry, TShiftState shift);
    void style_click(int entry, int row, bool sel);
    void end_gradient();
    void apply_gradient(int entry, bool sel);

    void draw_header(int col, TRect const &rect);
    void draw_entry_cell(int col, int row, TRect const &rect);
    void draw_mark(int entry, TRect const &rect);
    void draw_marked_active_rect(TRect const &rect, bool marked, bool active);
    void draw_style(int entry, TRect const &rect, bool sel);
    void draw_gradient_start(TRect const &rect);
    [[nodiscard]] std::wstring shown_text(int entry) const;
    [[nodiscard]] std::wstring caption_of(int entry) const;

    void on_double_click(TObject *sender);
    void on_ins_action_execute(TObject *sender);
    void on_del_action_execute(TObject *sender);
    void on_del_action_update(TObject *sender);

    bool f_rule;
    UnicodeString f_title_value;
    UnicodeString f_title_caption;
    TActionList *f_actions = nullptr;
    TAction *f_ins_action = nullptr;
    TAction *f_del_action = nullptr;
    TCustomImageList *f_images = nullptr;
    /// The menus of the headers; null where there is none.
    TPopupMenu *f_name_menu = nullptr;
    TPopupMenu *f_rule_import_menu = nullptr;
    TPopupMenu *f_select_menu = nullptr;
    TPopupMenu *f_style_menu = nullptr;
    TPopupMenu *f_visible_menu = nullptr;
    void *f_stl_mngr = nullptr;
    void *f_scale = nullptr;
    bool f_pressed = false;
    TGridCoord f_pressed_cell;
    TShiftState f_pressed_shift;
    bool f_edited = false;
    TGridCoord f_edit_cell;
    std::string f_edit_text; ///< in the system code page
    bool f_grad_mode = false;
    Tvx_gradient_kind f_grad_kind = c_gradient_none;
    int f_grad_row = 0;
    bool f_grad_sel = false;
    int f_mark_anchor = -1;
    int f_active_row;
    int f_prev_active_row;
    bool f_selection_style = true;
    std::unique_ptr<Tvx_style_samples> f_samples;
};
