#include "platform/toolkit/grids/custom_grid.h"

#include "platform/toolkit/grids/custom_grid_priv.h"
#include "platform/toolkit/grids/inplace_edit.h"

#include <algorithm>

namespace {
constexpr int c_default_count = 5;
constexpr int c_default_col_width = 64;
constexpr int c_default_row_height = 24;
constexpr int c_default_width = 320;
constexpr int c_default_height = 120;

bool contains_any(TGridOptions options, TGridOptions wanted)
{
    return !(options * wanted).Empty();
}
} // namespace

TCustomGrid::TCustomGrid(TComponent *owner)
    : TCustomControl(owner), f_cols(c_default_count, c_default_col_width),
      f_rows(c_default_count, c_default_row_height)
{
    // Before there are bars that would have to be told.
    SetColor(clWindow);
    f_native = std::make_unique<native>(this);
    // `Click` runs when a cell was chosen, by mouse or key, not wherever the mouse is let go.
    ControlStyle.Exclude(csClickEvents);
    SetBounds(0, 0, c_default_width, c_default_height);
    SetTabStop(true);
}

TCustomGrid::~TCustomGrid() = default;

void TCustomGrid::Notification(TComponent *component, TOperation operation)
{
    TCustomControl::Notification(component, operation);
    if (operation != opRemove || component != f_editor)
        return;
    f_editor = nullptr;
    f_inplace = {};
}

vx_grid_view TCustomGrid::horz() const
{
    return {f_cols, f_fixed_cols, f_top_left.X, GetClientRect().Width()};
}

vx_grid_view TCustomGrid::vert() const
{
    return {f_rows, f_fixed_rows, f_top_left.Y, GetClientRect().Height()};
}

TGridCoord TCustomGrid::restrict_cell(TGridCoord cell) const
{
    return {std::clamp(cell.X, f_fixed_cols, GetColCount() - 1),
            std::clamp(cell.Y, f_fixed_rows, GetRowCount() - 1)};
}

TGridCoord TCustomGrid::max_top_left() const
{
    return {horz().max_first(), vert().max_first()};
}

// ---- counts and sizes

void TCustomGrid::SetColCount(int count)
{
    count = std::max(count, 1);
    if (count == GetColCount())
        return;
    f_fixed_cols = std::min(f_fixed_cols, count - 1);
    change_size(count, GetRowCount());
}

void TCustomGrid::SetRowCount(int count)
{
    count = std::max(count, 1);
    if (count == GetRowCount())
        return;
    f_fixed_rows = std::min(f_fixed_rows, count - 1);
    change_size(GetColCount(), count);
}

void TCustomGrid::change_size(int cols, int rows)
{
    int const old_cols = GetColCount();
    int const old_rows = GetRowCount();
    HideEditor();
    f_cols.set_count(cols);
    f_rows.set_count(rows);
    std::erase_if(f_no_tab_stop, [cols](int col) { return col >= cols; });
    f_top_left = {std::clamp(f_top_left.X, f_fixed_cols, cols - 1),
                  std::clamp(f_top_left.Y, f_fixed_rows, rows - 1)};
    TGridCoord const inside = restrict_cell(f_current);
    auto const life = Life();
    bool const kept = inside != f_current && !move_current(inside, true, false);
    if (life.expired())
        return;
    if (kept)
        f_current = inside; // there is no cell left that the refusal could keep
    f_anchor = restrict_cell(f_anchor);
    layout_changed();
    SizeChanged(old_cols, old_rows);
}

void TCustomGrid::SetFixedCols(int count)
{
    count = std::clamp(count, 0, GetColCount() - 1);
    if (count == f_fixed_cols)
        return;
    f_fixed_cols = count;
    reset_position();
}

void TCustomGrid::SetFixedRows(int count)
{
    count = std::clamp(count, 0, GetRowCount() - 1);
    if (count == f_fixed_rows)
        return;
    f_fixed_rows = count;
    reset_position();
}

void TCustomGrid::reset_position()
{
    HideEditor();
    f_top_left = f_current = f_anchor = {f_fixed_cols, f_fixed_rows};
    if (f_options.Contains(goRowSelect))
        f_anchor.X = GetColCount() - 1;
    layout_changed();
}

void TCustomGrid::SetDefaultColWidth(int width)
{
    if (width == f_cols.default_size() && !f_cols.stored())
        return;
    f_cols.set_default_size(width);
    ColWidthsChanged();
    layout_changed();
}

void TCustomGrid::SetDefaultRowHeight(int height)
{
    if (height == f_rows.default_size() && !f_rows.stored())
        return;
    f_rows.set_default_size(height);
    RowHeightsChanged();
    layout_changed();
}

int TCustomGrid::GetColWidths(int col) const
{
    return col >= 0 && col < GetColCount() ? f_cols.size(col) : 0;
}

void TCustomGrid::SetColWidths(int col, int width)
{
    width = std::max(width, -f_line_width);
    if (col < 0 || col >= GetColCount() || width == f_cols.size(col))
        return;
    f_cols.set_size(col, width);
    ColWidthsChanged();
    layout_changed();
}

int TCustomGrid::GetRowHeights(int row) const
{
    return row >= 0 && row < GetRowCount() ? f_rows.size(row) : 0;
}

void TCustomGrid::SetRowHeights(int row, int height)
{
    height = std::max(height, -f_line_width);
    if (row < 0 || row >= GetRowCount() || height == f_rows.size(row))
        return;
    f_rows.set_size(row, height);
    RowHeightsChanged();
    layout_changed();
}

void TCustomGrid::SetGridLineWidth(int width)
{
    if (width < 0 || width == f_line_width)
        return;
    f_line_width = width;
    update_lines();
    layout_changed();
}

/// Lines take room only in a direction in which some are drawn.
void TCustomGrid::update_lines()
{
    f_cols.set_line(contains_any(f_options, {goVertLine, goFixedVertLine}) ? f_line_width : 0);
    f_rows.set_line(contains_any(f_options, {goHorzLine, goFixedHorzLine}) ? f_line_width : 0);
}

int TCustomGrid::GetGridWidth() const
{
    return horz().end();
}

int TCustomGrid::GetGridHeight() const
{
    return vert().end();
}

int TCustomGrid::GetVisibleColCount() const
{
    return horz().last_whole() - f_top_left.X + 1;
}

int TCustomGrid::GetVisibleRowCount() const
{
    return vert().last_whole() - f_top_left.Y + 1;
}

/// After anything that moves cells about: scroll range, open editor, picture.
void TCustomGrid::layout_changed()
{
    update_scroll_bars();
    if (f_editor && f_inplace.X >= 0)
        update_edit();
    InvalidateGrid();
}

// ---- options

void TCustomGrid::SetOptions(TGridOptions options)
{
    if (options.Contains(goRowSelect))
        options.Exclude(goAlwaysShowEditor);
    if (options == f_options)
        return;
    bool const rows_only = options.Contains(goRowSelect) && !f_options.Contains(goRowSelect);
    f_options = options;
    update_lines();
    if (!f_editor_mode) {
        if (options.Contains(goAlwaysShowEditor))
            ShowEditor();
        else
            HideEditor();
    }
    auto const life = Life();
    if (rows_only)
        move_current(f_current, true, false);
    if (!life.expired())
        layout_changed();
}

void TCustomGrid::SetScrollBars(TScrollStyle style)
{
    if (style == f_scroll_bars)
        return;
    f_scroll_bars = style;
    layout_changed();
}

void TCustomGrid::SetFixedColor(TColor color)
{
    if (color == f_fixed_color)
        return;
    f_fixed_color = color;
    InvalidateGrid();
}

void TCustomGrid::SetBorderStyle(TBorderStyle style)
{
    if (style == f_border_style)
        return;
    f_border_style = style;
    InvalidateGrid();
}

void TCustomGrid::SetDefaultDrawing(bool value)
{
    if (value == f_default_drawing)
        return;
    f_default_drawing = value;
    InvalidateGrid();
}

bool TCustomGrid::GetTabStops(int col) const
{
    return !std::binary_search(f_no_tab_stop.begin(), f_no_tab_stop.end(), col);
}

void TCustomGrid::SetTabStops(int col, bool stop)
{
    if (col < 0 || col >= GetColCount() || stop == GetTabStops(col))
        return;
    auto const at = std::lower_bound(f_no_tab_stop.begin(), f_no_tab_stop.end(), col);
    if (stop)
        f_no_tab_stop.erase(at);
    else
        f_no_tab_stop.insert(at, col);
}

// ---- current cell and selection

void TCustomGrid::SetCol(int col)
{
    if (col != f_current.X)
        FocusCell(col, f_current.Y, true);
}

void TCustomGrid::SetRow(int row)
{
    if (row != f_current.Y)
        FocusCell(f_current.X, row, true);
}

void TCustomGrid::FocusCell(int col, int row, bool move_anchor)
{
    if (!move_current(restrict_cell({col, row}), move_anchor, true))
        return;
    auto const life = Life();
    update_edit();
    if (!life.expired())
        Click();
}

void TCustomGrid::MoveColRow(int col, int row, bool move_anchor, bool show)
{
    move_current(restrict_cell({col, row}), move_anchor, show);
}

bool TCustomGrid::move_current(TGridCoord cell, bool move_anchor, bool show)
{
    auto const life = Life();
    if (!SelectCell(cell.X, cell.Y) || life.expired())
        return false;
    TGridRect const old = GetSelection();
    TGridCoord const old_current = f_current;
    // The editor still belongs to the old cell and tells its text before the new one is current.
    if (!f_options.Contains(goAlwaysShowEditor))
        HideEditor();
    if (life.expired())
        return false;
    cell = restrict_cell(cell); // the end of the editing may have changed the grid
    f_current = cell;
    if (move_anchor || !f_options.Contains(goRangeSelect)) {
        f_anchor = f_current;
        if (f_options.Contains(goRowSelect))
            f_anchor.X = GetColCount() - 1;
    }
    if (f_options.Contains(goRowSelect))
        f_current.X = f_fixed_cols;
    if (show)
        clamp_in_view(cell);
    if (life.expired())
        return false;
    selection_moved(old);
    InvalidateCell(old_current.X, old_current.Y);
    InvalidateCell(f_current.X, f_current.Y);
    return true;
}

void TCustomGrid::move_anchor_to(TGridCoord cell)
{
    if (!f_options.Contains(goRangeSelect) || f_options.Contains(goEditing)) {
        move_current(cell, true, true);
        return;
    }
    TGridRect const old = GetSelection();
    f_anchor = cell;
    if (f_options.Contains(goRowSelect))
        f_anchor.X = GetColCount() - 1;
    clamp_in_view(cell);
    selection_moved(old);
}

TGridRect TCustomGrid::GetSelection() const
{
    return {std::min(f_current.X, f_anchor.X), std::min(f_current.Y, f_anchor.Y),
            std::max(f_current.X, f_anchor.X), std::max(f_current.Y, f_anchor.Y)};
}

void TCustomGrid::SetSelection(TGridRect const &selection)
{
    TGridRect const old = GetSelection();
    HideEditor();
    f_anchor = restrict_cell({selection.Left, selection.Top});
    f_current = restrict_cell({selection.Right, selection.Bottom});
    selection_moved(old);
    update_edit();
}

void TCustomGrid::selection_moved(TGridRect const &old)
{
    if (old == GetSelection())
        return;
    for (TGridRect const &block : {old, GetSelection()}) {
        for (int row = std::max(block.Top, f_top_left.Y); row <= std::min(block.Bottom, vert().end_track());
             ++row)
            invalidate_cells(block.Left, row, block.Right, row);
    }
}

// ---- scrolling

void TCustomGrid::SetTopRow(int row)
{
    move_top_left(f_top_left.X, row);
}

void TCustomGrid::SetLeftCol(int col)
{
    move_top_left(col, f_top_left.Y);
}

void TCustomGrid::move_top_left(int left, int top)
{
    TGridCoord const last = max_top_left();
    TGridCoord const wanted{std::clamp(left, f_fixed_cols, std::max(last.X, f_fixed_cols)),
                            std::clamp(top, f_fixed_rows, std::max(last.Y, f_fixed_rows))};
    if (wanted == f_top_left)
        return;
    f_top_left = wanted;
    layout_changed();
    TopLeftChanged();
}

void TCustomGrid::clamp_in_view(TGridCoord cell)
{
    move_top_left(horz().first_showing(cell.X), vert().first_showing(cell.Y));
}

// ---- geometry

TRect TCustomGrid::CellRect(int col, int row) const
{
    vx_grid_view const h = horz();
    vx_grid_view const v = vert();
    if (!h.seen(col) || !v.seen(row))
        return {};
    return Bounds(h.start(col), v.start(row), std::max(f_cols.size(col), 0), std::max(f_rows.size(row), 0));
}

TGridCoord TCustomGrid::MouseCoord(int x, int y) const
{
    TGridCoord const cell{horz().track_at(x), vert().track_at(y)};
    return cell.X < 0 || cell.Y < 0 ? TGridCoord() : cell;
}

void TCustomGrid::MouseToCell(int x, int y, int &col, int &row) const
{
    TGridCoord const cell = MouseCoord(x, y);
    col = cell.X;
    row = cell.Y;
}

void TCustomGrid::InvalidateCell(int col, int row)
{
    invalidate_cells(col, row, col, row);
}

void TCustomGrid::InvalidateCol(int col)
{
    vx_grid_view const h = horz();
    if (h.seen(col))
        invalidate_rect(Bounds(h.start(col), 0, f_cols.extent(col), GetClientRect().Height()));
}

void TCustomGrid::InvalidateRow(int row)
{
    vx_grid_view const v = vert();
    if (v.seen(row))
        invalidate_rect(Bounds(0, v.start(row), GetClientRect().Width(), f_rows.extent(row)));
}

/// A block of cells that are all fixed or all movable in each direction; what is out of sight is left out.
void TCustomGrid::invalidate_cells(int left, int top, int right, int bottom)
{
    vx_grid_view const h = horz();
    vx_grid_view const v = vert();
    auto const cut = [](vx_grid_view const &view, int &first, int &last) {
        if (first >= view.fixed) {
            first = std::max(first, view.first);
            last = std::min(last, view.end_track() - 1);
        }
        return first <= last && view.seen(first);
    };
    if (cut(h, left, right) && cut(v, top, bottom))
        invalidate_rect(Rect(h.start(left), v.start(top), h.start(right) + f_cols.extent(right),
                             v.start(bottom) + f_rows.extent(bottom)));
}

void TCustomGrid::InvalidateGrid()
{
    Invalidate();
}

// ---- moving and deleting

namespace {
int moved(int track, int from, int to)
{
    if (track == from)
        return to;
    if (from < to)
        return track > from && track <= to ? track - 1 : track;
    return track >= to && track < from ? track + 1 : track;
}
} // namespace

void TCustomGrid::MoveRow(int from, int to)
{
    if (from < 0 || to < 0 || from >= GetRowCount() || to >= GetRowCount() || from == to)
        return;
    f_rows.move(from, to);
    f_current.Y = moved(f_current.Y, from, to);
    f_anchor.Y = moved(f_anchor.Y, from, to);
    if (f_inplace.Y >= 0)
        f_inplace.Y = moved(f_inplace.Y, from, to);
    auto const life = Life();
    RowMoved(from, to);
    if (!life.expired())
        layout_changed();
}

void TCustomGrid::MoveColumn(int from, int to)
{
    if (from < 0 || to < 0 || from >= GetColCount() || to >= GetColCount() || from == to)
        return;
    f_cols.move(from, to);
    for (int &col : f_no_tab_stop)
        col = moved(col, from, to);
    std::sort(f_no_tab_stop.begin(), f_no_tab_stop.end());
    f_current.X = moved(f_current.X, from, to);
    f_anchor.X = moved(f_anchor.X, from, to);
    if (f_inplace.X >= 0)
        f_inplace.X = moved(f_inplace.X, from, to);
    auto const life = Life();
    ColumnMoved(from, to);
    if (!life.expired())
        layout_changed();
}

void TCustomGrid::DeleteRow(int row)
{
    if (row < 0 || row >= GetRowCount() || GetRowCount() - 1 <= f_fixed_rows)
        return;
    auto const life = Life();
    MoveRow(row, GetRowCount() - 1);
    if (!life.expired())
        SetRowCount(GetRowCount() - 1);
}

void TCustomGrid::DeleteColumn(int col)
{
    if (col < 0 || col >= GetColCount() || GetColCount() - 1 <= f_fixed_cols)
        return;
    auto const life = Life();
    MoveColumn(col, GetColCount() - 1);
    if (!life.expired())
        SetColCount(GetColCount() - 1);
}

// ---- the hooks

bool TCustomGrid::SelectCell(int, int)
{
    return true;
}

UnicodeString TCustomGrid::GetEditText(int, int)
{
    return {};
}

void TCustomGrid::SetEditText(int, int, UnicodeString const &)
{
}

int TCustomGrid::GetEditLimit()
{
    return 0;
}

bool TCustomGrid::CanEditAcceptKey(wchar_t)
{
    return true;
}

bool TCustomGrid::CanEditModify()
{
    return true;
}

bool TCustomGrid::CanEditShow()
{
    return f_options.Contains(goEditing) && !f_options.Contains(goRowSelect) && f_editor_mode &&
           HandleAllocated() && (f_options.Contains(goAlwaysShowEditor) || IsActiveControl());
}

bool TCustomGrid::CanGridAcceptKey(Word, TShiftState)
{
    return true;
}

void TCustomGrid::ColWidthsChanged()
{
}
void TCustomGrid::RowHeightsChanged()
{
}
void TCustomGrid::TopLeftChanged()
{
}
void TCustomGrid::RowMoved(int, int)
{
}
void TCustomGrid::ColumnMoved(int, int)
{
}
void TCustomGrid::SizeChanged(int, int)
{
}
void TCustomGrid::WMSize()
{
}

// ---- the editor

TInplaceEdit *TCustomGrid::CreateEditor()
{
    return new TInplaceEdit(this);
}

void TCustomGrid::SetEditorMode(bool value)
{
    if (!value) {
        HideEditor();
        return;
    }
    ShowEditor();
    if (f_editor)
        f_editor->Deselect();
}

void TCustomGrid::ShowEditor()
{
    f_editor_mode = true;
    update_edit();
    // Without an editor to show, the mode would make later cells open by themselves.
    if (f_inplace.X < 0 && !f_options.Contains(goAlwaysShowEditor))
        f_editor_mode = false;
}

void TCustomGrid::ShowEditorChar(wchar_t key)
{
    ShowEditor();
    if (f_editor && f_inplace.X >= 0)
        f_editor->type_char(key);
}

void TCustomGrid::HideEditor()
{
    f_editor_mode = false;
    hide_edit();
}

void TCustomGrid::CancelEditor()
{
    if (!f_editor || f_inplace.X < 0)
        return;
    f_editor_mode = f_options.Contains(goAlwaysShowEditor);
    TGridCoord const cell = f_inplace;
    if (!(f_editor->GetText() == f_inplace_text)) {
        f_editor->show_text(f_inplace_text);
        SetEditText(cell.X, cell.Y, f_inplace_text);
    }
    if (f_editor_mode)
        return;
    f_inplace = {};
    f_editor->Hide();
}

/// Puts the editor over the current cell, or closes it where it must not be.
void TCustomGrid::update_edit()
{
    if (!CanEditShow())
        return;
    if (!f_editor) {
        f_editor = CreateEditor();
        f_editor->set_grid(this);
        f_editor->SetParent(this);
        start_text();
    } else if (f_inplace != f_current) {
        hide_edit();
        start_text();
    }
    if (CanEditShow())
        f_editor->Move(CellRect(f_current.X, f_current.Y));
}

void TCustomGrid::start_text()
{
    f_inplace = f_current;
    f_inplace_text = GetEditText(f_current.X, f_current.Y);
    f_editor->update_contents(GetEditLimit(), f_inplace_text);
    f_editor->SelectAll();
}

void TCustomGrid::hide_edit()
{
    if (!f_editor || f_inplace.X < 0)
        return;
    // Forgotten first, so that what `SetEditText` does cannot come back here.
    TGridCoord const cell = f_inplace;
    f_inplace = {};
    UnicodeString const text = f_editor->GetText();
    f_editor->Hide();
    SetEditText(cell.X, cell.Y, text);
}

void TCustomGrid::update_text()
{
    if (f_editor && f_inplace.X >= 0)
        SetEditText(f_inplace.X, f_inplace.Y, f_editor->GetText());
}

void TCustomGrid::InvalidateEditor()
{
    if (!f_editor || f_inplace.X < 0)
        return;
    f_inplace = {};
    update_edit();
}
