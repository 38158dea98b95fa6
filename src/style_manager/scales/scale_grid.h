#pragma once

#include "controls/forms/grids.h"
#include "style_manager/api/style_events.h"

#include "platform/toolkit/core/action.h"

#include <memory>
#include <string>

class TCustomImageList;
class Tvx_name_menu;
class Tvx_scale_menu;
class Tvx_select_menu;
class Tvx_style_menu;
class Tvx_style_samples;
class Tvx_visible_menu;

/// What a gradient between two rows changes.
enum Tvx_gradient_kind
{
    c_gradient_none = 0,
    c_gradient_color = 1,
    c_gradient_transparency = 3,
    c_gradient_size = 4
};

/// What the grids of all scales share: a column of marks, columns of texts, visibility, style, style of
/// selected objects; marks, visibility and gradients by clicks, texts edited in place, rows dragged, samples
/// of styles. It works on the scale itself and has no rows of its own: grid row 0 is the header, row d of the
/// scale stands in grid row d + 1, and a scale without rows shows one blank row.
class VX_API Tvx_scale_grid : public Tvx_custom_grid
{
public:
    ~Tvx_scale_grid() override;

    /// Takes the number of rows from the scale and paints anew. Fires nothing.
    void update_controls();
    /// The manager, not owned. Another one closes the in-place editor.
    void set_stl_mngr(void *mngr);
    [[nodiscard]] void *get_stl_mngr() const { return f_stl_mngr; }
    /// Null without a manager.
    [[nodiscard]] void *get_scale() const { return f_scale; }
    /// Shows the column of the styles of selected objects.
    void enable_selection_style(bool enabled);
    [[nodiscard]] TAction *get_ins_action() const { return f_ins_action; }
    [[nodiscard]] TAction *get_del_action() const { return f_del_action; }
    void call_changed() { on_changed(this); }
    /// Takes the text that is being edited over, if there is one.
    void apply_edited_text();
    /// Closes the in-place editor: with `taken` its text goes into the scale, else it is dropped.
    void end_edit(bool taken);

    /// The menus of the headers, at a point of the screen. What is being edited is taken before. Without a
    /// scale nothing opens.
    void call_select_menu(int x, int y);
    void call_style_menu(int x, int y, bool sel);
    void call_visible_menu(int x, int y);

    /// Rows of the scale; 0 without one. The others take rows below that number.
    [[nodiscard]] virtual unsigned get_n_row() const = 0;
    [[nodiscard]] virtual bool get_row_marked(unsigned row) const = 0;
    virtual void set_row_marked(unsigned row, bool marked) = 0;
    [[nodiscard]] virtual void *get_row_scale_prm_ptr(unsigned row) const = 0;
    /// The row of the scale that is the current one; -1 for none.
    [[nodiscard]] int get_current_row() const { return row_at(f_active_row); }

    /// Starts to pick a gradient at the current row, if that is one of the scale: the next click on a cell of
    /// the same style column ends it there, any other click ends it without effect.
    void start_gradient(Tvx_gradient_kind kind, bool sel);
    [[nodiscard]] bool get_grad_mode() const { return f_grad_mode; }

    Tvx_draw_style_event on_draw_style;
    Tvx_edit_style_event on_edit_style;
    /// The user changed the scale. Marks are no change.
    TNotifyEvent on_changed;
    /// The user has made another row the current one.
    TNotifyEvent on_row_selected;

protected:
    static constexpr int c_mark_col = 0;
    static constexpr int c_first_text_col = 1;

    /// `text_cols` is the number of columns of texts.
    Tvx_scale_grid(TComponent *owner, int text_cols);
    /// The first thing that `create` of a grid does.
    void create_grid();
    /// The last thing that `load_res` does; `name` is for assistive tools.
    void load_grid_res(UnicodeString const &name);

    [[nodiscard]] virtual void *scale_of(void *mngr) const = 0;
    virtual void unmark_all() = 0;
    /// Whether there is something that the delete action deletes.
    [[nodiscard]] virtual bool can_delete() const = 0;
    [[nodiscard]] virtual UnicodeString title(int col) const = 0;
    [[nodiscard]] virtual std::wstring cell_text(unsigned row, int col) const = 0;
    virtual void draw_text_cell(unsigned row, int col, TRect const &rect);
    [[nodiscard]] virtual std::wstring row_hint(unsigned row) const = 0;
    /// Whether cells of the text column are ever edited in place, and whether this one is.
    [[nodiscard]] virtual bool is_edit_col(int col) const = 0;
    [[nodiscard]] virtual bool is_edit_cell(unsigned row, int col) const = 0;
    /// Takes an edited text, in the system code page, that differs from the cell's; true when that is to be
    /// reported.
    virtual bool take_text(unsigned row, int col, char const *text) = 0;
    virtual void run_gradient(Tvx_gradient_kind kind, unsigned first, unsigned last, bool sel) = 0;
    /// The user dragged grid row `from` to `to`; true when the scale follows.
    virtual bool move_entry(int from, int to) = 0;
    /// A click on the header of a text column; the point is its bottom left corner on the screen.
    virtual void call_title_menu(int col, TPoint at) = 0;
    /// What share of the width that the other columns leave the text column gets, in quarters.
    [[nodiscard]] virtual int text_col_share(int col) const = 0;
    virtual void on_ins_action_execute(TObject *sender) = 0;
    virtual void on_del_action_execute(TObject *sender) = 0;

    bool SelectCell(int col, int row) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    /// The menu key, and Shift+F10, open the menu of the current column's header, with Ctrl that of the
    /// marks.
    void KeyDown(Word &key, TShiftState shift) override;
    void DrawCell(int col, int row, TRect const &rect, TGridDrawState state) override;
    void RowMoved(int from, int to) override;
    bool CanEditShow() override;
    UnicodeString GetEditText(int col, int row) override;
    void SetEditText(int col, int row, UnicodeString const &text) override;
    void DoExit() override;
    void WMSize() override;

    /// What serves the libraries of symbols; unset where they do not serve the scale.
    [[nodiscard]] virtual Tvx_lib_symbol_style_event lib_symbol_event() { return {}; }
    /// Lets go of the manager that the menus are bound to, and closes one that is open.
    virtual void release_menus();
    static void release_menu(Tvx_scale_menu *menu);

    /// The row of the scale that a grid row shows; -1 for none.
    [[nodiscard]] int row_at(int grid_row) const;
    /// Takes what is being edited, and says whether there is a scale for a menu.
    [[nodiscard]] bool prepare_menu();
    /// The menu, made when it is first asked for: most grids never show theirs. Its commands change the
    /// scale.
    template <class Menu>
    Menu *need_menu(Menu *&menu);
    /// Binds the menu of the texts and opens it.
    void open_name_menu(int x, int y, bool caption, bool is_min);
    /// A command of a menu has changed the scale.
    void on_menu_changed(TObject *sender);

private:
    [[nodiscard]] int visible_col() const { return c_first_text_col + f_text_cols; }
    [[nodiscard]] int style_col() const { return visible_col() + 1; }
    [[nodiscard]] int sel_style_col() const { return visible_col() + 2; }
    [[nodiscard]] bool is_text_col(int col) const { return col >= c_first_text_col && col < visible_col(); }
    [[nodiscard]] bool is_on_header_edge(int x, TGridCoord cell) const;
    void size_columns();

    void call_click(int col, int grid_row, TShiftState shift);
    void header_click(int col);
    void mark_click(unsigned row, TShiftState shift);
    void visible_click(unsigned row, TShiftState shift);
    void style_click(unsigned row, bool sel);
    void end_gradient();
    void apply_gradient(int row, bool sel);

    void draw_header(int col, TRect const &rect);
    void draw_row_cell(int col, int grid_row, TRect const &rect);
    void draw_mark(bool marked, TRect const &rect);
    void draw_marked_active_rect(TRect const &rect, bool marked, bool active);
    void draw_style(unsigned row, TRect const &rect, bool sel);
    void draw_gradient_start(TRect const &rect);

    void on_del_action_update(TObject *sender);

    void on_select_menu_changed(TObject *sender);
    void on_clr_gradient_click(TObject *sender);
    void on_transparency_gradient_click(TObject *sender);
    void on_size_gradient_click(TObject *sender);

    int f_text_cols;
    Tvx_name_menu *f_name_menu = nullptr; ///< the menus are null until they are needed
    Tvx_select_menu *f_select_menu = nullptr;
    Tvx_style_menu *f_style_menu = nullptr;
    Tvx_visible_menu *f_visible_menu = nullptr;
    TActionList *f_actions = nullptr;
    TAction *f_ins_action = nullptr;
    TAction *f_del_action = nullptr;
    TCustomImageList *f_images = nullptr;
    void *f_stl_mngr = nullptr;
    void *f_scale = nullptr;
    bool f_pressed = false;
    TGridCoord f_pressed_cell;
    bool f_edited = false;
    unsigned f_edit_row = 0; ///< of the scale
    int f_edit_col = 0;
    std::string f_edit_text; ///< in the system code page
    bool f_grad_mode = false;
    Tvx_gradient_kind f_grad_kind = c_gradient_none;
    int f_grad_row = 0; ///< of the grid
    bool f_grad_sel = false;
    int f_mark_anchor = -1; ///< row of the scale
    int f_active_row;       ///< of the grid, as the next one
    int f_prev_active_row;
    bool f_selection_style = true;
    std::unique_ptr<Tvx_style_samples> f_samples;
};

template <class Menu>
Menu *Tvx_scale_grid::need_menu(Menu *&menu)
{
    if (!menu) {
        menu = new Menu(this);
        if constexpr (requires { menu->create(); })
            menu->create();
        menu->load_res();
        menu->on_changed = make_closure<&Tvx_scale_grid::on_menu_changed>(this);
    }
    return menu;
}
