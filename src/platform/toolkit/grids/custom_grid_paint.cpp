#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/grids/custom_grid.h"
#include "platform/toolkit/grids/inplace_edit.h"

#include <algorithm>

namespace {
constexpr int c_mark_width = 3; ///< of the line that shows where a dragged row, column or edge would go

bool overlap(TRect const &a, TRect const &b)
{
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}
/// With the lines at the right and below, the cell looks raised.
void paint_light_edge(TCanvas *canvas, TRect const &rect)
{
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetBrush()->SetColor(clBtnHighlight);
    canvas->FillRect(Rect(rect.Left, rect.Top, rect.Right, rect.Top + 1));
    canvas->FillRect(Rect(rect.Left, rect.Top, rect.Left + 1, rect.Bottom));
}
} // namespace

bool TCustomGrid::IsActiveControl() const
{
    return Focused() || (f_editor && f_editor->Focused());
}

void TCustomGrid::Paint()
{
    TCanvas *canvas = GetCanvas();
    vx_grid_view const h = horz();
    vx_grid_view const v = vert();
    TRect const client = GetClientRect();
    TRect const clip = canvas->GetClipRect();
    bool const active = IsActiveControl();

    auto const each = [](vx_grid_view const &view, auto visit) {
        for (int track = 0; track < view.fixed && view.start(track) < view.room; ++track)
            visit(track);
        for (int track = view.first; track < view.end_track(); ++track)
            visit(track);
    };
    each(v, [&](int row) {
        int const top = v.start(row);
        if (!overlap(Rect(0, top, client.Right, top + f_rows.extent(row)), clip))
            return;
        each(h, [&](int col) {
            TRect const cell = Bounds(h.start(col), top, f_cols.size(col), f_rows.size(row));
            TRect const room =
                Rect(cell.Left, cell.Top, cell.Right + f_cols.line(), cell.Bottom + f_rows.line());
            if (room.IsEmpty() || !overlap(room, clip))
                return;
            if (!cell.IsEmpty())
                paint_cell(col, row, cell, active);
            paint_lines(cell, col < f_fixed_cols || row < f_fixed_rows);
        });
    });

    canvas->GetBrush()->SetColor(GetColor());
    canvas->FillRect(Rect(h.end(), 0, client.Right, client.Bottom));
    canvas->FillRect(Rect(0, v.end(), h.end(), client.Bottom));
    TRect const whole = TCustomControl::GetClientRect();
    if (client.Right < whole.Right && client.Bottom < whole.Bottom) {
        canvas->GetBrush()->SetColor(clBtnFace);
        canvas->FillRect(Rect(client.Right, client.Bottom, whole.Right, whole.Bottom));
    }
    paint_mark();
    paint_frame();
}

void TCustomGrid::paint_cell(int col, int row, TRect const &rect, bool active)
{
    TCanvas *canvas = GetCanvas();
    TGridDrawState state;
    if (col < f_fixed_cols || row < f_fixed_rows) {
        state.Include(gdFixed);
    } else {
        TGridRect const selection = GetSelection();
        if (col >= selection.Left && col <= selection.Right && row >= selection.Top &&
            row <= selection.Bottom)
            state.Include(gdSelected);
        if (active && f_current == TGridCoord{col, row})
            state.Include(gdFocused);
    }
    bool const fixed = state.Contains(gdFixed);
    bool const focused = state.Contains(gdFocused);
    bool const highlight =
        state.Contains(gdSelected) &&
        (!focused || f_options.Contains(goDrawFocusSelected) || f_options.Contains(goRowSelect));

    canvas->SaveState();
    canvas->IntersectClipRect(rect);
    canvas->SetFont(GetFont());
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetBrush()->SetColor(fixed ? f_fixed_color : GetColor());
    if (f_default_drawing) {
        if (highlight) {
            canvas->GetBrush()->SetColor(clHighlight);
            canvas->GetFont()->SetColor(clHighlightText);
        }
        canvas->FillRect(rect);
    }
    DrawCell(col, row, rect, state);
    canvas->RestoreState();
    if (!f_default_drawing)
        return;
    if (fixed && (f_options.Contains(goFixedVertLine) || f_options.Contains(goFixedHorzLine)))
        paint_light_edge(canvas, rect);
    bool const editor_always = f_options.Contains(goEditing) && f_options.Contains(goAlwaysShowEditor);
    if (focused && !editor_always && !f_options.Contains(goRowSelect))
        canvas->DrawFocusRect(rect);
}

/// The lines behind the right and the bottom edge of a cell.
void TCustomGrid::paint_lines(TRect const &rect, bool fixed)
{
    TCanvas *canvas = GetCanvas();
    TColor const ground = fixed ? f_fixed_color : GetColor();
    TColor const line = fixed ? clBtnShadow : clSilver;
    TRect const right = Rect(rect.Right, rect.Top, rect.Right + f_cols.line(), rect.Bottom + f_rows.line());
    TRect const bottom = Rect(rect.Left, rect.Bottom, rect.Right, rect.Bottom + f_rows.line());
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetBrush()->SetColor(f_options.Contains(fixed ? goFixedVertLine : goVertLine) ? line : ground);
    canvas->FillRect(right);
    canvas->GetBrush()->SetColor(f_options.Contains(fixed ? goFixedHorzLine : goHorzLine) ? line : ground);
    canvas->FillRect(bottom);
}

/// Where the row or column that is being moved would land, or the edge that is being dragged.
void TCustomGrid::paint_mark()
{
    TRect mark = GetClientRect();
    switch (f_drag) {
    case drag::col_sizing:
        mark.Left = f_drag_pos;
        mark.Right = mark.Left + 1;
        break;
    case drag::row_sizing:
        mark.Top = f_drag_pos;
        mark.Bottom = mark.Top + 1;
        break;
    case drag::col_moving:
    case drag::row_moving: {
        if (f_drag_target == f_drag_track)
            return;
        bool const rows = f_drag == drag::row_moving;
        vx_grid_view const view = rows ? vert() : horz();
        int const behind = f_drag_target > f_drag_track;
        int const at = std::max(view.start(f_drag_target + behind) - c_mark_width / 2 - 1, 0);
        (rows ? mark.Top : mark.Left) = at;
        (rows ? mark.Bottom : mark.Right) = at + c_mark_width;
        break;
    }
    default:
        return;
    }
    GetCanvas()->GetBrush()->SetStyle(bsSolid);
    GetCanvas()->GetBrush()->SetColor(clWindowText);
    GetCanvas()->FillRect(mark);
}

void TCustomGrid::paint_frame()
{
    if (f_border_style == bsNone)
        return;
    GetCanvas()->GetBrush()->SetStyle(bsSolid);
    GetCanvas()->GetBrush()->SetColor(clBtnShadow);
    GetCanvas()->FrameRect(GetClientRect());
}
