#pragma once

#include "platform/toolkit/grids/draw_grid.h"

#include <map>

/// A grid that keeps a text and an object for each cell; it does not own the objects. Only cells that hold
/// something take memory. Moved rows and columns take their content along; what lies outside after a count
/// went down comes back when it goes up again.
class VX_API TStringGrid : public TDrawGrid
{
public:
    explicit TStringGrid(TComponent *owner);

    /// The empty text outside of the grid.
    [[nodiscard]] UnicodeString GetCells(int col, int row) const;
    /// Nothing happens outside of the grid.
    void SetCells(int col, int row, UnicodeString const &text);
    [[nodiscard]] TObject *GetObjects(int col, int row) const;
    void SetObjects(int col, int row, TObject *object);
    /// Empties all cells, the fixed ones too.
    void Clear();

    void DeleteRow(int row) override;
    void DeleteColumn(int col) override;

protected:
    /// With `DefaultDrawing` the text, 2 pixels from the cell's corner; then `OnDrawCell`.
    void DrawCell(int col, int row, TRect const &rect, TGridDrawState state) override;
    UnicodeString GetEditText(int col, int row) override;
    void SetEditText(int col, int row, UnicodeString const &text) override;
    void RowMoved(int from, int to) override;
    void ColumnMoved(int from, int to) override;

private:
    struct cell
    {
        UnicodeString text;
        TObject *object = nullptr;
    };
    using row_cells = std::map<int, cell>;

    [[nodiscard]] bool inside(int col, int row) const;
    [[nodiscard]] cell const *find(int col, int row) const;
    cell &at(int col, int row) { return f_cells[row][col]; }

    std::map<int, row_cells> f_cells; ///< by row, then by column
};
