#include "platform/toolkit/grids/draw_grid.h"

TDrawGrid::TDrawGrid(TComponent *owner) : TCustomGrid(owner)
{
}

bool TDrawGrid::SelectCell(int col, int row)
{
    bool can_select = true;
    OnSelectCell(this, col, row, can_select);
    return can_select;
}

void TDrawGrid::DrawCell(int col, int row, TRect const &rect, TGridDrawState state)
{
    OnDrawCell(this, col, row, rect, state);
}

UnicodeString TDrawGrid::GetEditText(int col, int row)
{
    UnicodeString value;
    OnGetEditText(this, col, row, value);
    return value;
}

void TDrawGrid::SetEditText(int col, int row, UnicodeString const &text)
{
    OnSetEditText(this, col, row, text);
}

void TDrawGrid::RowMoved(int from, int to)
{
    OnRowMoved(this, from, to);
}

void TDrawGrid::ColumnMoved(int from, int to)
{
    OnColumnMoved(this, from, to);
}

void TDrawGrid::TopLeftChanged()
{
    OnTopLeftChanged(this);
}
