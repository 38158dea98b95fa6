#pragma once

#include "platform/toolkit/core/custom_control.h"
#include "platform/toolkit/grids/grid_axis.h"

#include <memory>

class TInplaceEdit;

enum TGridOption
{
    goFixedVertLine,
    goFixedHorzLine,
    goVertLine,
    goHorzLine,
    goRangeSelect,
    goDrawFocusSelected,
    goRowSizing,
    goColSizing,
    goRowMoving,
    goColMoving,
    goEditing,
    goTabs,
    goRowSelect,
    goAlwaysShowEditor,
    goThumbTracking
};
using TGridOptions = set_of<TGridOption>;

enum TGridDrawStateItem
{
    gdSelected,
    gdFocused,
    gdFixed
};
using TGridDrawState = set_of<TGridDrawStateItem>;

/// A cell: column and row from 0, fixed ones included; -1 for none.
struct TGridCoord
{
    int X = -1;
    int Y = -1;
    friend constexpr bool operator==(TGridCoord const &, TGridCoord const &) = default;
};

/// A block of cells; unlike `TRect` its right column and bottom row are inside.
struct TGridRect
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
    friend constexpr bool operator==(TGridRect const &, TGridRect const &) = default;
};

/// A table of cells that the derived class draws and answers for: fixed rows and columns at the top and the
/// left, the others scroll by whole cells. Holds no data but the sizes that differ from the default, so a
/// million rows are cheap; painting and mouse reach the visible cells only.
///
/// The current cell is `(Col, Row)`; the selection is a block with the current cell in one corner. A cell
/// becomes current only if `SelectCell` agrees. With `goEditing` the current cell is edited in place: by a
/// click on it, F2, Enter or typing. `SetEditText` runs at each change in the editor, with `EditorMode` true,
/// and once when the editor closes, with `EditorMode` false. Esc puts the text back that the editing began
/// with and closes the editor.
///
/// Keys: arrows, Home and End in the row, with Ctrl to the first and last cell; Page Up and Down, with Ctrl
/// to the edge of what is seen; Ctrl with Up and Down scrolls; Shift extends the selection. Tab goes from
/// cell to cell with `goTabs`, else to the next control. In a cell that is not edited Space does what a click
/// there does, and F2 what a double click does. What the mouse does to fixed cells Ctrl with Alt does by
/// keyboard: Space clicks the header of the current column and Enter the fixed cell of the current row; with
/// `goRowMoving` and `goColMoving` an arrow moves the current row or column by one place; with `goRowSizing`
/// and `goColSizing` and Shift it makes the current row or column wider or smaller by 8 pixels.
///
/// A count below 1 becomes 1, and there is always one cell that is not fixed: more fixed rows or columns are
/// cut down.
class VX_API TCustomGrid : public TCustomControl
{
public:
    explicit TCustomGrid(TComponent *owner);
    ~TCustomGrid() override;

    [[nodiscard]] int GetColCount() const { return f_cols.count(); }
    void SetColCount(int count);
    [[nodiscard]] int GetRowCount() const { return f_rows.count(); }
    void SetRowCount(int count);
    [[nodiscard]] int GetFixedCols() const { return f_fixed_cols; }
    /// Makes the first movable cell the current one, without asking `SelectCell`; `SetFixedRows` too.
    void SetFixedCols(int count);
    [[nodiscard]] int GetFixedRows() const { return f_fixed_rows; }
    void SetFixedRows(int count);

    [[nodiscard]] int GetDefaultColWidth() const { return f_cols.default_size(); }
    /// Gives this width to all columns.
    void SetDefaultColWidth(int width);
    [[nodiscard]] int GetDefaultRowHeight() const { return f_rows.default_size(); }
    void SetDefaultRowHeight(int height);
    /// Without the grid line; -1 hides the column or row. A number outside the grid gives 0 and changes
    /// nothing.
    [[nodiscard]] int GetColWidths(int col) const;
    void SetColWidths(int col, int width);
    [[nodiscard]] int GetRowHeights(int row) const;
    void SetRowHeights(int row, int height);
    [[nodiscard]] int GetGridLineWidth() const { return f_line_width; }
    void SetGridLineWidth(int width);
    /// Of the cells that are seen.
    [[nodiscard]] int GetGridWidth() const;
    [[nodiscard]] int GetGridHeight() const;

    [[nodiscard]] int GetCol() const { return f_current.X; }
    /// Asks `SelectCell`, scrolls the cell into sight and runs `Click`, as a key does. A number outside the
    /// movable cells is brought to the nearest one.
    void SetCol(int col);
    [[nodiscard]] int GetRow() const { return f_current.Y; }
    void SetRow(int row);
    [[nodiscard]] TGridRect GetSelection() const;
    /// The bottom right corner becomes the current cell, without asking `SelectCell`.
    void SetSelection(TGridRect const &selection);
    [[nodiscard]] int GetTopRow() const { return f_top_left.Y; }
    /// Brought into the range that scrolling has.
    void SetTopRow(int row);
    [[nodiscard]] int GetLeftCol() const { return f_top_left.X; }
    void SetLeftCol(int col);
    /// Movable cells that are wholly seen.
    [[nodiscard]] int GetVisibleRowCount() const;
    [[nodiscard]] int GetVisibleColCount() const;

    [[nodiscard]] TGridOptions GetOptions() const { return f_options; }
    void SetOptions(TGridOptions options);
    [[nodiscard]] TScrollStyle GetScrollBars() const { return f_scroll_bars; }
    void SetScrollBars(TScrollStyle style);
    [[nodiscard]] TColor GetFixedColor() const { return f_fixed_color; }
    void SetFixedColor(TColor color);
    /// `bsSingle` or `bsNone`. The frame is one pixel wide and lies over the edge of the client area.
    [[nodiscard]] TBorderStyle GetBorderStyle() const { return f_border_style; }
    void SetBorderStyle(TBorderStyle style);
    [[nodiscard]] bool GetDefaultDrawing() const { return f_default_drawing; }
    /// True fills the cells, draws the edges of fixed ones and the frame of the focus; false leaves all but
    /// the grid lines to `DrawCell`.
    void SetDefaultDrawing(bool value);
    [[nodiscard]] bool GetTabStops(int col) const;
    /// Whether Tab stops in the column.
    void SetTabStops(int col, bool stop);

    [[nodiscard]] bool GetEditorMode() const { return f_editor_mode; }
    /// True opens the editor in the current cell, if `CanEditShow` agrees.
    void SetEditorMode(bool value);
    /// Null until the first editing.
    [[nodiscard]] TInplaceEdit *GetInplaceEditor() const { return f_editor; }

    /// In the client area, without the grid line; empty for a cell that is out of sight.
    [[nodiscard]] TRect CellRect(int col, int row) const;
    /// The cell at a point of the client area, (-1, -1) if there is none.
    [[nodiscard]] TGridCoord MouseCoord(int x, int y) const;
    void MouseToCell(int x, int y, int &col, int &row) const;

    void InvalidateCell(int col, int row);
    void InvalidateCol(int col);
    void InvalidateRow(int row);
    void InvalidateGrid();
    /// Reads the cell's text into the open editor again.
    void InvalidateEditor();

    /// The client area without the scroll bars.
    [[nodiscard]] TRect GetClientRect() const override;

protected:
    virtual TInplaceEdit *CreateEditor();
    virtual void DrawCell(int col, int row, TRect const &rect, TGridDrawState state) = 0;
    /// Whether the cell may become the current one.
    virtual bool SelectCell(int col, int row);
    virtual UnicodeString GetEditText(int col, int row);
    virtual void SetEditText(int col, int row, UnicodeString const &text);
    /// Longest text that the editor takes, 0 for any.
    virtual int GetEditLimit();
    virtual bool CanEditAcceptKey(wchar_t key);
    virtual bool CanEditModify();
    virtual bool CanEditShow();
    virtual bool CanGridAcceptKey(Word key, TShiftState shift);
    virtual void ColWidthsChanged();
    virtual void RowHeightsChanged();
    virtual void TopLeftChanged();
    /// The row was moved, by the user or by `MoveRow`; the grid's own state follows already.
    virtual void RowMoved(int from, int to);
    virtual void ColumnMoved(int from, int to);
    using TCustomControl::SizeChanged;
    /// The number of columns or rows has changed.
    virtual void SizeChanged(int old_col_count, int old_row_count);
    /// Runs whenever the client area may have another size.
    virtual void WMSize();

    void MoveRow(int from, int to);
    void MoveColumn(int from, int to);
    virtual void DeleteRow(int row);
    virtual void DeleteColumn(int col);
    void FocusCell(int col, int row, bool move_anchor);
    void MoveColRow(int col, int row, bool move_anchor, bool show);
    void ShowEditor();
    /// Opens the editor and hands it the character.
    void ShowEditorChar(wchar_t key);
    void HideEditor();
    /// Closes the editor without a last `SetEditText`, with the text that the editing began with.
    void CancelEditor();
    /// True while the grid or its editor has the focus.
    [[nodiscard]] bool IsActiveControl() const;

    void Paint() override;
    void Resize() override;
    void CreateWnd() override;
    void DoEnter() override;
    void DoExit() override;
    void Notification(TComponent *component, TOperation operation) override;
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;
    void KeyDown(Word &key, TShiftState shift) override;
    void KeyPress(wchar_t &key) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    bool DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos) override;
    bool DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos) override;

private:
    friend class TInplaceEdit;
    struct native;
    enum class drag
    {
        none,
        selecting,
        row_sizing,
        col_sizing,
        row_moving,
        col_moving
    };

    [[nodiscard]] vx_grid_view horz() const;
    [[nodiscard]] vx_grid_view vert() const;
    [[nodiscard]] TGridCoord restrict_cell(TGridCoord cell) const;
    [[nodiscard]] TGridCoord max_top_left() const;
    [[nodiscard]] TGridCoord nearest_cell(int x, int y) const;
    [[nodiscard]] drag sizing_at(int x, int y, int &track) const;
    void change_size(int cols, int rows);
    void reset_position();
    bool move_current(TGridCoord cell, bool move_anchor, bool show);
    void move_anchor_to(TGridCoord cell);
    void move_top_left(int left, int top);
    void clamp_in_view(TGridCoord cell);
    void selection_moved(TGridRect const &old);
    void invalidate_cells(int left, int top, int right, int bottom);
    void invalidate_rect(TRect const &rect);
    void update_lines();
    void layout_changed();
    void update_scroll_bars();
    void update_edit();
    void hide_edit();
    void update_text();
    void start_text();
    void paint_cell(int col, int row, TRect const &rect, bool active);
    void paint_lines(TRect const &rect, bool fixed);
    void paint_mark();
    void paint_frame();
    void timed_scroll();
    void end_drag();
    bool use_fixed_by_key(Word key, TShiftState shift);
    [[nodiscard]] bool go_with_ctrl(Word key, TGridCoord &current, TGridCoord &top_left) const;
    [[nodiscard]] bool go_by_key(Word key, TShiftState shift, TGridCoord &current,
                                 TGridCoord &top_left) const;
    [[nodiscard]] TGridCoord tab_target(bool back) const;
    void set_drag_cursor(int x, int y);
    void click_by_key(TGridCoord cell, TShiftState shift);
    void press(TShiftState shift, int x, int y);
    void press_cell(TGridCoord cell, TShiftState shift);
    void drag_to(int x, int y);
    void scroll_towards(TPoint const &point);
    void release(int x, int y);

    vx_grid_axis f_cols;
    vx_grid_axis f_rows;
    int f_fixed_cols = 1;
    int f_fixed_rows = 1;
    TGridCoord f_top_left{1, 1};
    TGridCoord f_current{1, 1};
    TGridCoord f_anchor{1, 1};
    TGridOptions f_options{goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goRangeSelect};
    TScrollStyle f_scroll_bars = ssBoth;
    TColor f_fixed_color = clBtnFace;
    TBorderStyle f_border_style = bsSingle;
    bool f_default_drawing = true;
    bool f_editor_mode = false;
    bool f_can_edit_modify = true;
    TInplaceEdit *f_editor = nullptr;
    TGridCoord f_inplace;           ///< the cell that the editor shows, (-1, -1) while it is closed
    UnicodeString f_inplace_text;   ///< what it began with
    std::vector<int> f_no_tab_stop; ///< columns, ascending
    drag f_drag = drag::none;
    int f_drag_track = -1;
    int f_drag_target = -1;
    TPoint f_drag_point;
    int f_drag_pos = 0;
    int f_drag_offset = 0;
    int f_line_width = 1;
    bool f_updating_bars = false;
    bool f_sizing = false;
    bool f_sizing_cursor = false;
    std::unique_ptr<native> f_native;
};
