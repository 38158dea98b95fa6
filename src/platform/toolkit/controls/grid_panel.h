#pragma once

#include "platform/toolkit/controls/panel.h"

#include <vector>

/// How a column or row gets its size: a share of what the others leave, in percent; pixels; or what its
/// controls need.
enum TSizeStyle
{
    ssAbsolute,
    ssPercent,
    ssAuto
};

/// A panel of cells that hold one control each, 185 by 41, two columns and two rows of 50 percent. A control
/// that joins the panel goes into the next free cell, by rows; without one a row is added. A control that is
/// aligned, or anchored to both sides, fills its cell; another keeps its size in the cell's middle.
class VX_API TCustomGridPanel : public TCustomPanel
{
public:
    explicit TCustomGridPanel(TComponent *owner);

    [[nodiscard]] int GetColumnCount() const { return static_cast<int>(f_columns.size()); }
    void SetColumnCount(int count);
    [[nodiscard]] int GetRowCount() const { return static_cast<int>(f_rows.size()); }
    void SetRowCount(int count);
    /// A number outside changes nothing.
    void SetColumn(int index, TSizeStyle style, double value);
    void SetRow(int index, TSizeStyle style, double value);
    /// Moves a child into a cell; a span reaches over further ones to the right and below.
    void SetCell(TControl *control, int column, int row, int column_span = 1, int row_span = 1);
    /// The child in the cell; null if it is free.
    [[nodiscard]] TControl *GetControlAt(int column, int row) const;
    /// Of the panel's client area; empty outside.
    [[nodiscard]] TRect GetCellRect(int column, int row) const;

protected:
    void AlignControls(TControl *control, TRect &rect) override;
    void ControlListChange(TControl *control, bool inserting) override;

private:
    struct line
    {
        TSizeStyle style = ssPercent;
        double value = 50;
        int start = 0;
        int size = 0;
    };
    struct cell
    {
        TControl *control;
        int column;
        int row;
        int column_span;
        int row_span;
    };
    void place(std::vector<line> &lines, int start, int room, bool columns);
    [[nodiscard]] int needed(int index, bool columns) const;
    [[nodiscard]] TRect rect_of(cell const &cell) const;

    std::vector<line> f_columns{2};
    std::vector<line> f_rows{2};
    std::vector<cell> f_cells;
};

class VX_API TGridPanel : public TCustomGridPanel
{
public:
    using TCustomGridPanel::TCustomGridPanel;
};
