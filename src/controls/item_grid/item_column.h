#pragma once

#include "controls/forms/lists.h"

#include "platform/base/basic_obj.h"
#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <string>

class TCanvas;
class Tvx_item_column;
class Tvx_item_columns;
class Tvx_item_grid;

/// What the head of a column shows.
enum Tvx_item_capt_type : int
{
    c_item_capt_none = 0,
    c_item_capt_bmp = 1,  ///< the bitmap, in the middle of the cell
    c_item_capt_text = 2, ///< the caption, 2 pixels right of and below the corner of the cell
};

/// How wide a column is.
enum Tvx_item_width_type : int
{
    c_item_width_fixed = 0, ///< `width` is a multiple of the grid's default column width
    c_item_width_share = 1, ///< `width` is the weight of a share in what the fixed columns leave
};

/// What the cells of a column hold.
enum Tvx_item_col_type : int
{
    c_item_col_row = 0,      ///< the row number, from 1
    c_item_col_mark = 1,     ///< a check frame: whether the grid's owner has marked the item
    c_item_col_bit = 2,      ///< a check frame of `on_get_bit`
    c_item_col_str = 3,      ///< a narrow string, edited in place
    c_item_col_wstr = 4,     ///< a wide string, edited in place and applied at each keystroke
    c_item_col_int = 5,      ///< a whole number, edited in place
    c_item_col_dbl = 6,      ///< a number with up to 7 significant digits, edited in place
    c_item_col_cbx = 7,      ///< a combo box, painted into the cell; the real one lies over the current cell
    c_item_col_wstr_cbx = 8, ///< a wide string with a drop button; the combo box lies over the current cell
};

/// A column of a `Tvx_item_grid`. It holds no values: it asks its owner for each by an event and hands what
/// the user entered back by another. Rows count items from 0. An event that is not set is skipped; what it
/// would have given is empty, zero or false, unless said otherwise. An event must not end its column.
///
/// Setters tell nobody; after them the grid's `update_controls` shows what has changed. A value outside of
/// the table of a type is not taken.
class VX_API Tvx_item_column : public Tvx_basic_obj
{
public:
    /// A column stands in the list `owner`, which makes it.
    explicit Tvx_item_column(Tvx_item_columns *owner);
    ~Tvx_item_column() override;
    Tvx_item_column(Tvx_item_column const &) = delete;
    Tvx_item_column &operator=(Tvx_item_column const &) = delete;

    [[nodiscard]] Tvx_item_columns *get_owner() const { return f_owner; }
    /// The grid of the list.
    [[nodiscard]] Tvx_item_grid *get_grid() const;

    /// A `Tvx_item_capt_type`; none at first.
    [[nodiscard]] int get_capt_type() const { return f_capt_type; }
    void set_capt_type(int type);
    /// In the system code page; null is the empty text.
    [[nodiscard]] char const *get_caption() const { return f_caption.c_str(); }
    void set_caption(char const *caption);
    [[nodiscard]] TBitmap *get_capt_bmp() { return &f_capt_bmp; }
    /// Takes a copy; null empties it.
    void set_capt_bmp(TBitmap const *bitmap);
    /// A `Tvx_item_width_type`; a share at first.
    [[nodiscard]] int get_width_type() const { return f_width_type; }
    void set_width_type(int type);
    /// 1 at first. What is no number, or below 0, makes a column without room.
    [[nodiscard]] double get_width() const { return f_width; }
    void set_width(double width) { f_width = width; }
    /// A `Tvx_item_col_type`; a narrow string at first.
    [[nodiscard]] int get_col_type() const { return f_col_type; }
    void set_col_type(int type);
    /// False keeps the cells out of in-place editing. It turns a column of combo boxes (type 7) into one of
    /// narrow strings (type 3) for good.
    [[nodiscard]] bool get_enabled() const { return f_enabled; }
    void set_enabled(bool enabled);
    /// False: no cell of the column can become the current one. Keys pass over the column; a click in another
    /// row makes that row the current one.
    [[nodiscard]] bool get_selectable() const { return f_selectable; }
    void set_selectable(bool selectable) { f_selectable = selectable; }

    /// The text stays alive until the next call for this column; never null. So does that of `call_get_wstr`.
    [[nodiscard]] char const *call_get_str(int row);
    [[nodiscard]] wchar_t const *call_get_wstr(int row);
    /// True without an event.
    [[nodiscard]] bool call_get_correct(int row);
    /// True without an event.
    [[nodiscard]] bool call_get_can_add();
    [[nodiscard]] bool call_get_bit(int row);
    [[nodiscard]] int call_get_int(int row);
    [[nodiscard]] double call_get_dbl(int row);
    void call_get_cbx(int row, Tvx_combo_box *combo);
    /// Null is handed on as the empty text.
    void call_set_str(int row, char const *text);
    void call_set_wstr(int row, wchar_t const *text);
    void call_set_bit(int row, bool value);
    void call_set_int(int row, int value);
    void call_set_dbl(int row, double value);
    void call_set_cbx(int row, Tvx_combo_box *combo);
    void call_changed();

    /// What the in-place editor begins with: "1" or "0" for types 1 and 2, the value for types 3 to 6, else
    /// empty.
    [[nodiscard]] UnicodeString get_edit_text(int row);
    /// Applies a text by the column's type, if it is one for the type; else the item stays as it was.
    /// Type 3 runs `on_set_wstr`, or `on_set_str` where only that is set; types 4 and 8 run `on_set_wstr`,
    /// unless Enter has just ended the editing; 5 and 6 set the number that the text gives.
    void set_edit_text(int row, char const *text);
    void set_edit_wtext(int row, wchar_t const *text);

    /// A text as a whole number, with blanks around it. False, with `value` untouched, for null and for all
    /// else.
    [[nodiscard]] static bool wstr_to_int(wchar_t const *text, int &value);
    [[nodiscard]] static bool str_to_int(char const *text, int &value);
    /// A text as a number with "." as decimal separator, with blanks around it. The exact text "0" is
    /// refused, "0.0" is taken. False, with `value` untouched, for null and for all else.
    [[nodiscard]] static bool wstr_to_dbl(wchar_t const *text, double &value);
    [[nodiscard]] static bool str_to_dbl(char const *text, double &value);

    // ---- read events

    closure<char const *(Tvx_item_column *sender, int row)> on_get_str; ///< in the system code page
    closure<wchar_t const *(Tvx_item_column *sender, int row)> on_get_wstr;
    /// Whether the text of a cell of type 8 is right; it stands on red if not.
    closure<bool(Tvx_item_column *sender, int row)> on_get_correct;
    /// Whether an item may be added, as far as this column knows.
    closure<bool(Tvx_item_column *sender)> on_get_can_add;
    closure<bool(Tvx_item_column *sender, int row)> on_get_bit;
    closure<int(Tvx_item_column *sender, int row)> on_get_int;
    closure<double(Tvx_item_column *sender, int row)> on_get_dbl;
    /// Fills the combo box for a row: items, style and choice, all anew, since one box serves all rows.
    closure<void(Tvx_item_column *sender, int row, Tvx_combo_box *combo)> on_get_cbx;

    // ---- write events: the user has entered something

    closure<void(Tvx_item_column *sender, int row, char const *text)> on_set_str;
    closure<void(Tvx_item_column *sender, int row, wchar_t const *text)> on_set_wstr;
    closure<void(Tvx_item_column *sender, int row, bool value)> on_set_bit;
    closure<void(Tvx_item_column *sender, int row, int value)> on_set_int;
    closure<void(Tvx_item_column *sender, int row, double value)> on_set_dbl;
    closure<void(Tvx_item_column *sender, int row, Tvx_combo_box *combo)> on_set_cbx;

    // ---- key events

    /// Enter in a cell of type 4. Unlike elsewhere `col` counts all columns of the grid, fixed ones included.
    closure<void(Tvx_item_column *sender, int col, int row)> on_enter_wstr;
    /// Another key in a cell of type 4, or one that a cell of type 5 takes. The event may change the key; 0
    /// swallows it.
    closure<void(Tvx_item_column *sender, wchar_t &key, int row)> on_key_wstr;

    /// The user changed a mark, a bit, or a text of type 8. The list that makes the column sets it.
    closure<void(Tvx_item_column *sender)> on_changed;

private:
    friend class Tvx_item_grid;

    [[nodiscard]] bool has_cbx() const;
    [[nodiscard]] bool edits_in_place() const;
    void draw_caption(TCanvas *canvas, TRect const &rect);
    /// `fill` is the colour that the grid has filled the cell with, `clNone` for none.
    void draw_item(TCanvas *canvas, int row, TRect const &rect, TColor fill);
    void draw_check(TCanvas *canvas, TRect const &rect, bool checked);
    void draw_cbx(TCanvas *canvas, int row, TRect const &rect, TColor fill);
    void draw_wstr_cbx(TCanvas *canvas, int row, TRect const &rect);
    bool select_cell(int new_row, int old_row, bool col_changed);
    void mouse_down_selected_cell(int row);
    void on_key_press(wchar_t &key);
    void on_cbx_changed(TObject *sender);
    /// A text that says what the cell holds already is no edit.
    [[nodiscard]] bool is_unchanged(int row, UnicodeString const &text);

    Tvx_item_columns *f_owner;
    int f_capt_type = c_item_capt_none;
    std::string f_caption;
    TBitmap f_capt_bmp;
    int f_width_type = c_item_width_share;
    double f_width = 1.0;
    int f_col_type = c_item_col_str;
    std::string f_str;
    std::wstring f_wstr;
    int f_cbx_row = -1; ///< for which the combo box is open
    bool f_enabled = true;
    bool f_selectable = true;
    bool f_enter_done = false; ///< Enter ended the editing: the text that comes with the end was applied
};
