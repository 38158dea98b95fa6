#include "platform/toolkit/controls/grid_panel.h"

#include <algorithm>
#include <cmath>

TCustomGridPanel::TCustomGridPanel(TComponent *owner) : TCustomPanel(owner)
{
}

void TCustomGridPanel::SetColumnCount(int count)
{
    f_columns.resize(static_cast<std::size_t>(std::max(count, 1)));
    Realign();
}

void TCustomGridPanel::SetRowCount(int count)
{
    f_rows.resize(static_cast<std::size_t>(std::max(count, 1)));
    Realign();
}

void TCustomGridPanel::SetColumn(int index, TSizeStyle style, double value)
{
    if (index < 0 || index >= GetColumnCount())
        return;
    f_columns[static_cast<std::size_t>(index)].style = style;
    f_columns[static_cast<std::size_t>(index)].value = value;
    Realign();
}

void TCustomGridPanel::SetRow(int index, TSizeStyle style, double value)
{
    if (index < 0 || index >= GetRowCount())
        return;
    f_rows[static_cast<std::size_t>(index)].style = style;
    f_rows[static_cast<std::size_t>(index)].value = value;
    Realign();
}

TControl *TCustomGridPanel::GetControlAt(int column, int row) const
{
    for (cell const &c : f_cells)
        if (column >= c.column && column < c.column + c.column_span && row >= c.row &&
            row < c.row + c.row_span)
            return c.control;
    return nullptr;
}

void TCustomGridPanel::SetCell(TControl *control, int column, int row, int column_span, int row_span)
{
    auto const at = std::find_if(f_cells.begin(), f_cells.end(),
                                 [control](cell const &c) { return c.control == control; });
    if (at == f_cells.end() || column < 0 || row < 0 || column >= GetColumnCount() || row >= GetRowCount())
        return;
    at->column = column;
    at->row = row;
    at->column_span = std::clamp(column_span, 1, GetColumnCount() - column);
    at->row_span = std::clamp(row_span, 1, GetRowCount() - row);
    Realign();
}

void TCustomGridPanel::ControlListChange(TControl *control, bool inserting)
{
    TCustomPanel::ControlListChange(control, inserting);
    if (!inserting) {
        std::erase_if(f_cells, [control](cell const &c) { return c.control == control; });
        return;
    }
    for (int row = 0;; ++row) {
        if (row == GetRowCount())
            f_rows.push_back({ssAuto, 0, 0, 0});
        for (int column = 0; column < GetColumnCount(); ++column)
            if (!GetControlAt(column, row)) {
                f_cells.push_back({control, column, row, 1, 1});
                Realign();
                return;
            }
    }
}

int TCustomGridPanel::needed(int index, bool columns) const
{
    int size = 0;
    for (cell const &c : f_cells) {
        bool const alone =
            columns ? c.column == index && c.column_span == 1 : c.row == index && c.row_span == 1;
        if (alone && c.control->GetVisible())
            size = std::max(size, columns ? c.control->GetWidth() : c.control->GetHeight());
    }
    return size;
}

void TCustomGridPanel::place(std::vector<line> &lines, int start, int room, bool columns)
{
    double percent = 0;
    int left = room;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        line &l = lines[i];
        if (l.style == ssPercent) {
            percent += std::max(l.value, 0.0);
            continue;
        }
        l.size = l.style == ssAbsolute ? static_cast<int>(std::lround(l.value))
                                       : needed(static_cast<int>(i), columns);
        l.size = std::max(l.size, 0);
        left -= l.size;
    }
    left = std::max(left, 0);
    // Shares are cut at running sums, so that together they fill the room to the pixel.
    double sum = 0;
    int given = 0;
    for (line &l : lines) {
        if (l.style == ssPercent) {
            sum += std::max(l.value, 0.0);
            int const end = percent > 0 ? static_cast<int>(std::lround(left * sum / percent)) : 0;
            l.size = end - given;
            given = end;
        }
        l.start = start;
        start += l.size;
    }
}

TRect TCustomGridPanel::rect_of(cell const &c) const
{
    line const &left = f_columns[static_cast<std::size_t>(c.column)];
    line const &right =
        f_columns[static_cast<std::size_t>(std::min(c.column + c.column_span, GetColumnCount()) - 1)];
    line const &top = f_rows[static_cast<std::size_t>(c.row)];
    line const &bottom = f_rows[static_cast<std::size_t>(std::min(c.row + c.row_span, GetRowCount()) - 1)];
    return Rect(left.start, top.start, right.start + right.size, bottom.start + bottom.size);
}

TRect TCustomGridPanel::GetCellRect(int column, int row) const
{
    if (column < 0 || row < 0 || column >= GetColumnCount() || row >= GetRowCount())
        return {};
    return rect_of({nullptr, column, row, 1, 1});
}

void TCustomGridPanel::AlignControls(TControl *, TRect &rect)
{
    AdjustClientRect(rect);
    place(f_columns, rect.Left, rect.Width(), true);
    place(f_rows, rect.Top, rect.Height(), false);
    auto const cells = f_cells;
    for (cell const &c : cells) {
        if (c.column >= GetColumnCount() || c.row >= GetRowCount() || !c.control->GetVisible())
            continue;
        TRect const box = rect_of(c);
        // A control with anchors to both sides, or aligned, fills its cell; another stands in its middle.
        TAnchors const anchors = c.control->GetAnchors();
        bool const aligned = c.control->GetAlign() != alNone;
        bool const wide = aligned || !anchors.Contains(akLeft) || anchors.Contains(akRight);
        bool const high = aligned || !anchors.Contains(akTop) || anchors.Contains(akBottom);
        int const width = wide ? box.Width() : std::min(c.control->GetWidth(), box.Width());
        int const height = high ? box.Height() : std::min(c.control->GetHeight(), box.Height());
        c.control->SetBounds(box.Left + (box.Width() - width) / 2, box.Top + (box.Height() - height) / 2,
                             width, height);
    }
    ControlsAligned();
}
