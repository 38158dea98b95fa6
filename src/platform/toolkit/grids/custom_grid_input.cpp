#include "platform/toolkit/grids/custom_grid.h"
#include "platform/toolkit/grids/custom_grid_priv.h"
#include "platform/toolkit/grids/inplace_edit.h"

#include <algorithm>
#include <cstdlib>

namespace {
constexpr int c_edge_reach = 3; ///< pixels at each side of a line at which it can be dragged
constexpr int c_key_sizing = 8; ///< pixels by which a key changes a size
} // namespace

void TCustomGrid::DoEnter()
{
    auto const life = Life();
    TCustomControl::DoEnter();
    if (life.expired())
        return;
    InvalidateGrid();
    if (f_options.Contains(goAlwaysShowEditor))
        ShowEditor();
}

void TCustomGrid::DoExit()
{
    auto const life = Life();
    TCustomControl::DoExit();
    if (life.expired())
        return;
    if (!f_options.Contains(goAlwaysShowEditor))
        HideEditor();
    InvalidateGrid();
}

// ---- keyboard

bool TCustomGrid::WantsKey(Word key, TShiftState shift) const
{
    if (key == VK_TAB)
        return f_options.Contains(goTabs) && !shift.Contains(ssAlt) && !shift.Contains(ssCtrl);
    if (key == VK_RETURN)
        return f_options.Contains(goEditing);
    if (key == VK_ESCAPE)
        return f_inplace.X >= 0 || f_drag != drag::none;
    return TCustomControl::WantsKey(key, shift);
}

void TCustomGrid::KeyDown(Word &key, TShiftState shift)
{
    auto const life = Life();
    TCustomControl::KeyDown(key, shift);
    if (life.expired() || key == 0)
        return;
    if (!CanGridAcceptKey(key, shift)) {
        key = 0;
        return;
    }
    if (shift.Contains(ssAlt)) {
        if (shift.Contains(ssCtrl) && use_fixed_by_key(key, shift))
            key = 0;
        return;
    }
    if (key == VK_ESCAPE) {
        if (f_drag == drag::none && f_inplace.X < 0)
            return;
        end_drag();
        CancelEditor();
        key = 0;
        return;
    }
    if (key == VK_F2) {
        if (f_options.Contains(goEditing))
            SetEditorMode(true);
        else
            DblClick();
        key = 0;
        return;
    }
    if (key == VK_SPACE && !f_options.Contains(goEditing)) {
        key = 0;
        click_by_key(f_current, shift);
        return;
    }
    TGridCoord current = f_current;
    TGridCoord top_left = f_top_left;
    bool const known = shift.Contains(ssCtrl) ? go_with_ctrl(key, current, top_left)
                                              : go_by_key(key, shift, current, top_left);
    if (!known)
        return;
    bool const extend = shift.Contains(ssShift) && key != VK_TAB;
    key = 0;
    move_top_left(top_left.X, top_left.Y);
    if (life.expired())
        return;
    current = restrict_cell(current);
    if (current != f_current)
        FocusCell(current.X, current.Y, !extend);
}

bool TCustomGrid::go_with_ctrl(Word key, TGridCoord &current, TGridCoord &top_left) const
{
    bool const rows_only = f_options.Contains(goRowSelect);
    int const page = GetVisibleColCount();
    switch (key) {
    case VK_UP:
        --top_left.Y;
        return true;
    case VK_DOWN:
        ++top_left.Y;
        return true;
    case VK_LEFT:
    case VK_RIGHT: {
        int const step = key == VK_LEFT ? -page : page;
        top_left.X += step;
        current.X += rows_only ? 0 : step;
        return true;
    }
    case VK_PRIOR:
        current.Y = f_top_left.Y;
        return true;
    case VK_NEXT:
        current.Y = vert().last_whole();
        return true;
    case VK_HOME:
        current = {f_fixed_cols, f_fixed_rows};
        return true;
    case VK_END:
        current = {GetColCount() - 1, GetRowCount() - 1};
        return true;
    default:
        return false;
    }
}

bool TCustomGrid::go_by_key(Word key, TShiftState shift, TGridCoord &current, TGridCoord &top_left) const
{
    bool const rows_only = f_options.Contains(goRowSelect);
    int const page = std::max(GetVisibleRowCount(), 1);
    switch (key) {
    case VK_UP:
        --current.Y;
        return true;
    case VK_DOWN:
        ++current.Y;
        return true;
    case VK_LEFT:
        --(rows_only ? current.Y : current.X);
        return true;
    case VK_RIGHT:
        ++(rows_only ? current.Y : current.X);
        return true;
    case VK_PRIOR:
        current.Y -= page;
        top_left.Y -= page;
        return true;
    case VK_NEXT:
        current.Y += page;
        top_left.Y += page;
        return true;
    case VK_HOME:
        (rows_only ? current.Y : current.X) = rows_only ? f_fixed_rows : f_fixed_cols;
        return true;
    case VK_END:
        (rows_only ? current.Y : current.X) = (rows_only ? GetRowCount() : GetColCount()) - 1;
        return true;
    case VK_TAB:
        if (!f_options.Contains(goTabs))
            return false;
        current = tab_target(shift.Contains(ssShift));
        return true;
    default:
        return false;
    }
}

/// The next cell with a tab stop, row by row and round from the last to the first.
TGridCoord TCustomGrid::tab_target(bool back) const
{
    TGridCoord cell = f_current;
    do {
        cell.X += back ? -1 : 1;
        if (cell.X < f_fixed_cols) {
            cell.X = GetColCount() - 1;
            cell.Y = cell.Y - 1 < f_fixed_rows ? GetRowCount() - 1 : cell.Y - 1;
        } else if (cell.X >= GetColCount()) {
            cell.X = f_fixed_cols;
            cell.Y = cell.Y + 1 >= GetRowCount() ? f_fixed_rows : cell.Y + 1;
        }
    } while (!GetTabStops(cell.X) && cell.X != f_current.X);
    return cell;
}

/// A press and release of the mouse in the cell's middle.
void TCustomGrid::click_by_key(TGridCoord cell, TShiftState shift)
{
    clamp_in_view(f_current);
    TRect const rect = CellRect(cell.X, cell.Y);
    if (rect.IsEmpty())
        return;
    TPoint const at = rect.CenterPoint();
    auto const life = Life();
    MouseDown(mbLeft, shift << ssLeft, at.X, at.Y);
    if (!life.expired())
        MouseUp(mbLeft, shift, at.X, at.Y);
}

/// What the mouse does at the fixed cells, done to the current row or column.
bool TCustomGrid::use_fixed_by_key(Word key, TShiftState shift)
{
    TShiftState const held = shift >> ssCtrl >> ssAlt;
    if (key == VK_SPACE && f_fixed_rows > 0) {
        click_by_key({f_current.X, f_fixed_rows - 1}, held);
        return true;
    }
    if (key == VK_RETURN && f_fixed_cols > 0) {
        click_by_key({f_fixed_cols - 1, f_current.Y}, held);
        return true;
    }
    bool const rows = key == VK_UP || key == VK_DOWN;
    if (!rows && key != VK_LEFT && key != VK_RIGHT)
        return false;
    int const step = key == VK_UP || key == VK_LEFT ? -1 : 1;
    if (shift.Contains(ssShift)) {
        if (!f_options.Contains(rows ? goRowSizing : goColSizing))
            return false;
        int const size = (rows ? f_rows.size(f_current.Y) : f_cols.size(f_current.X)) + step * c_key_sizing;
        if (size > 1 && rows)
            SetRowHeights(f_current.Y, size);
        else if (size > 1)
            SetColWidths(f_current.X, size);
        return true;
    }
    if (!f_options.Contains(rows ? goRowMoving : goColMoving))
        return false;
    int const from = rows ? f_current.Y : f_current.X;
    int const to = from + step;
    if (to < (rows ? f_fixed_rows : f_fixed_cols) || to >= (rows ? GetRowCount() : GetColCount()))
        return true;
    auto const life = Life();
    HideEditor();
    if (!life.expired() && rows)
        MoveRow(from, to);
    else if (!life.expired())
        MoveColumn(from, to);
    if (!life.expired())
        clamp_in_view(f_current);
    return true;
}

void TCustomGrid::KeyPress(wchar_t &key)
{
    auto const life = Life();
    TCustomControl::KeyPress(key);
    if (life.expired())
        return;
    if (key == L'\r') {
        // Without editing the key is the form's, for its default button.
        if (f_options.Contains(goAlwaysShowEditor) || !f_options.Contains(goEditing))
            return;
        if (f_editor_mode)
            HideEditor();
        else
            ShowEditor();
        key = 0;
        return;
    }
    // Typing on a cell starts its editing with the character. While the editor has the keys it asks the grid
    // first and takes them itself.
    bool const printable = key >= L' ' && key != 0x7F;
    if (!printable || !f_options.Contains(goEditing) || !Focused())
        return;
    wchar_t const typed = key;
    key = 0;
    if (CanEditAcceptKey(typed))
        ShowEditorChar(typed);
}

// ---- mouse

/// Which edge, if any, could be dragged from the point. The track is the one before the line.
TCustomGrid::drag TCustomGrid::sizing_at(int x, int y, int &track) const
{
    vx_grid_view const h = horz();
    vx_grid_view const v = vert();
    auto const edge = [&track](vx_grid_view const &view, int pos) {
        for (int reach = -c_edge_reach; reach <= c_edge_reach; ++reach) {
            // The line behind a track lies at the end of its extent.
            int const candidate = view.track_at(pos + reach);
            if (candidate < 0)
                continue;
            int const line = view.start(candidate) + view.axis.size(candidate);
            if (std::abs(pos - line) > c_edge_reach)
                continue;
            track = candidate;
            return true;
        }
        return false;
    };
    if (f_options.Contains(goColSizing) && y >= 0 && y < v.fixed_end() && edge(h, x))
        return drag::col_sizing;
    if (f_options.Contains(goRowSizing) && x >= 0 && x < h.fixed_end() && edge(v, y))
        return drag::row_sizing;
    return drag::none;
}

/// The movable cell at the point, or the nearest one to a point outside.
TGridCoord TCustomGrid::nearest_cell(int x, int y) const
{
    auto const nearest = [](vx_grid_view const &view, int pos) {
        int const limit = std::min(view.end(), view.room) - 1;
        int const track =
            view.track_at(std::clamp(pos, std::min(view.fixed_end(), limit), std::max(limit, 0)));
        return std::clamp(track, view.first, view.axis.count() - 1);
    };
    return {nearest(horz(), x), nearest(vert(), y)};
}

void TCustomGrid::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    auto const life = Life();
    if (!IsActiveControl())
        SetFocus();
    if (!life.expired() && button == mbLeft && !shift.Contains(ssDouble) && GetClientRect().Contains({x, y}))
        press(shift, x, y);
    if (!life.expired())
        TCustomControl::MouseDown(button, shift, x, y);
}

void TCustomGrid::press(TShiftState shift, int x, int y)
{
    f_drag_point = {x, y};
    f_drag = sizing_at(x, y, f_drag_track);
    if (f_drag != drag::none) {
        bool const cols = f_drag == drag::col_sizing;
        vx_grid_view const view = cols ? horz() : vert();
        f_drag_pos = view.start(f_drag_track) + view.axis.size(f_drag_track);
        f_drag_offset = f_drag_pos - (cols ? x : y);
        InvalidateGrid();
        return;
    }
    TGridCoord const cell = MouseCoord(x, y);
    if (cell.X >= f_fixed_cols && cell.Y >= f_fixed_rows) {
        press_cell(cell, shift);
    } else if (f_options.Contains(goRowMoving) && cell.X >= 0 && cell.X < f_fixed_cols &&
               cell.Y >= f_fixed_rows) {
        f_drag = drag::row_moving;
        f_drag_track = f_drag_target = cell.Y;
        f_native->set_timer(true);
    } else if (f_options.Contains(goColMoving) && cell.Y >= 0 && cell.Y < f_fixed_rows &&
               cell.X >= f_fixed_cols) {
        f_drag = drag::col_moving;
        f_drag_track = f_drag_target = cell.X;
        f_native->set_timer(true);
    }
}

void TCustomGrid::press_cell(TGridCoord cell, TShiftState shift)
{
    // Whether a click edits is asked before the move, because `SelectCell` may switch `goEditing`.
    if (f_options.Contains(goEditing)) {
        auto const life = Life();
        if (cell == f_current)
            ShowEditor();
        else if (move_current(cell, true, true))
            update_edit();
        if (!life.expired())
            Click();
        return;
    }
    f_drag = drag::selecting;
    f_native->set_timer(true);
    if (shift.Contains(ssShift))
        move_anchor_to(cell);
    else
        move_current(cell, true, true);
}

void TCustomGrid::MouseMove(TShiftState shift, int x, int y)
{
    f_drag_point = {x, y};
    auto const life = Life();
    drag_to(x, y);
    if (life.expired())
        return;
    set_drag_cursor(x, y);
    TCustomControl::MouseMove(shift, x, y);
}

void TCustomGrid::drag_to(int x, int y)
{
    switch (f_drag) {
    case drag::none:
        return;
    case drag::selecting: {
        TGridCoord const cell = nearest_cell(x, y);
        bool const range = f_options.Contains(goRangeSelect) && !f_options.Contains(goEditing);
        TGridCoord const at = range ? f_anchor : f_current;
        bool const same = f_options.Contains(goRowSelect) ? cell.Y == at.Y : cell == at;
        if (!same)
            move_anchor_to(cell);
        return;
    }
    case drag::row_moving:
    case drag::col_moving: {
        TGridCoord const cell = nearest_cell(x, y);
        int const target = f_drag == drag::row_moving ? cell.Y : cell.X;
        if (target == f_drag_target)
            return;
        f_drag_target = target;
        InvalidateGrid();
        return;
    }
    case drag::row_sizing:
    case drag::col_sizing: {
        bool const cols = f_drag == drag::col_sizing;
        vx_grid_view const view = cols ? horz() : vert();
        f_drag_pos = std::max((cols ? x : y) + f_drag_offset, view.start(f_drag_track));
        InvalidateGrid();
        return;
    }
    }
}

/// One step for a point outside of the movable cells while something is dragged.
void TCustomGrid::scroll_towards(TPoint const &point)
{
    bool const rows = f_drag != drag::col_moving;
    bool const cols = f_drag != drag::row_moving;
    vx_grid_view const h = horz();
    vx_grid_view const v = vert();
    auto const direction = [](vx_grid_view const &view, int pos) {
        return pos < view.fixed_end() ? -1 : pos >= view.room ? 1 : 0;
    };
    int const dx = cols ? direction(h, point.X) : 0;
    int const dy = rows ? direction(v, point.Y) : 0;
    if (dx == 0 && dy == 0)
        return;
    auto const life = Life();
    move_top_left(f_top_left.X + dx, f_top_left.Y + dy);
    if (!life.expired())
        drag_to(point.X, point.Y);
}

void TCustomGrid::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    auto const life = Life();
    if (button == mbLeft)
        release(x, y);
    if (!life.expired())
        TCustomControl::MouseUp(button, shift, x, y);
}

void TCustomGrid::release(int x, int y)
{
    drag const kind = f_drag;
    auto const life = Life();
    if (kind == drag::selecting)
        drag_to(x, y);
    if (life.expired())
        return;
    int const track = f_drag_track;
    int const target = f_drag_target;
    int const pos = f_drag_pos;
    end_drag();
    switch (kind) {
    case drag::col_sizing:
        if (int const width = pos - horz().start(track); width > 1)
            SetColWidths(track, width);
        break;
    case drag::row_sizing:
        if (int const height = pos - vert().start(track); height > 1)
            SetRowHeights(track, height);
        break;
    case drag::row_moving:
        if (target != track) {
            HideEditor();
            MoveRow(track, target);
        }
        break;
    case drag::col_moving:
        if (target != track) {
            HideEditor();
            MoveColumn(track, target);
        }
        break;
    default:
        break;
    }
    if (life.expired())
        return;
    update_edit();
    if (kind == drag::selecting && !life.expired())
        Click();
}

void TCustomGrid::end_drag()
{
    f_native->set_timer(false);
    if (f_drag == drag::none)
        return;
    f_drag = drag::none;
    InvalidateGrid();
}

bool TCustomGrid::DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos)
{
    if (TCustomControl::DoMouseWheelDown(shift, mouse_pos))
        return true;
    // Without the focus the cell that is chosen stays.
    if (!IsActiveControl())
        SetTopRow(f_top_left.Y + 1);
    else if (f_current.Y < GetRowCount() - 1)
        SetRow(f_current.Y + 1);
    return true;
}

bool TCustomGrid::DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos)
{
    if (TCustomControl::DoMouseWheelUp(shift, mouse_pos))
        return true;
    if (!IsActiveControl())
        SetTopRow(f_top_left.Y - 1);
    else if (f_current.Y > f_fixed_rows)
        SetRow(f_current.Y - 1);
    return true;
}
