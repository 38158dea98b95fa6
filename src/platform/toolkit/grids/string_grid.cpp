#include "platform/toolkit/grids/string_grid.h"

#include "platform/toolkit/graphics/canvas.h"

#include <utility>

namespace {
constexpr int c_text_inset = 2;

/// The map with the entry `from` put at `to` and those between moved up. Entries beyond both stay where they
/// are.
template <class Map>
void move_key(Map &map, int from, int to)
{
    int const step = from < to ? -1 : 1;
    int const low = from < to ? from : to;
    int const high = from < to ? to : from;
    Map moved;
    for (auto at = map.lower_bound(low); at != map.end() && at->first <= high;) {
        auto node = map.extract(at++);
        node.key() = node.key() == from ? to : node.key() + step;
        moved.insert(std::move(node));
    }
    map.merge(moved);
}
} // namespace

TStringGrid::TStringGrid(TComponent *owner) : TDrawGrid(owner)
{
}

bool TStringGrid::inside(int col, int row) const
{
    return col >= 0 && row >= 0 && col < GetColCount() && row < GetRowCount();
}

TStringGrid::cell const *TStringGrid::find(int col, int row) const
{
    auto const in_row = f_cells.find(row);
    if (!inside(col, row) || in_row == f_cells.end())
        return nullptr;
    auto const at = in_row->second.find(col);
    return at == in_row->second.end() ? nullptr : &at->second;
}

UnicodeString TStringGrid::GetCells(int col, int row) const
{
    cell const *const found = find(col, row);
    return found ? found->text : UnicodeString();
}

void TStringGrid::SetCells(int col, int row, UnicodeString const &text)
{
    if (!inside(col, row) || GetCells(col, row) == text)
        return;
    at(col, row).text = text;
    InvalidateCell(col, row);
}

TObject *TStringGrid::GetObjects(int col, int row) const
{
    cell const *const found = find(col, row);
    return found ? found->object : nullptr;
}

void TStringGrid::SetObjects(int col, int row, TObject *object)
{
    if (inside(col, row))
        at(col, row).object = object;
}

void TStringGrid::Clear()
{
    f_cells.clear();
    InvalidateGrid();
}

void TStringGrid::DeleteRow(int row)
{
    int const last = GetRowCount() - 1;
    TDrawGrid::DeleteRow(row);
    if (GetRowCount() == last)
        f_cells.erase(last); // the deleted row was moved there
}

void TStringGrid::DeleteColumn(int col)
{
    int const last = GetColCount() - 1;
    TDrawGrid::DeleteColumn(col);
    if (GetColCount() != last)
        return;
    for (auto &[row, cells] : f_cells)
        cells.erase(last);
}

void TStringGrid::DrawCell(int col, int row, TRect const &rect, TGridDrawState state)
{
    if (GetDefaultDrawing())
        GetCanvas()->TextRect(rect, rect.Left + c_text_inset, rect.Top + c_text_inset, GetCells(col, row));
    TDrawGrid::DrawCell(col, row, rect, state);
}

UnicodeString TStringGrid::GetEditText(int col, int row)
{
    UnicodeString value = GetCells(col, row);
    OnGetEditText(this, col, row, value);
    return value;
}

void TStringGrid::SetEditText(int col, int row, UnicodeString const &text)
{
    SetCells(col, row, text);
    TDrawGrid::SetEditText(col, row, text);
}

void TStringGrid::RowMoved(int from, int to)
{
    move_key(f_cells, from, to);
    TDrawGrid::RowMoved(from, to);
}

void TStringGrid::ColumnMoved(int from, int to)
{
    for (auto &[row, cells] : f_cells)
        move_key(cells, from, to);
    TDrawGrid::ColumnMoved(from, to);
}
