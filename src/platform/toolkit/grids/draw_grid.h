#pragma once

#include "platform/toolkit/grids/custom_grid.h"

using TSelectCellEvent = closure<void(TObject *sender, int col, int row, bool &can_select)>;
using TDrawCellEvent =
    closure<void(TObject *sender, int col, int row, TRect const &rect, TGridDrawState state)>;
using TGetEditEvent = closure<void(TObject *sender, int col, int row, UnicodeString &value)>;
using TSetEditEvent = closure<void(TObject *sender, int col, int row, UnicodeString const &value)>;
using TMovedEvent = closure<void(TObject *sender, int from, int to)>;

/// A grid whose cells are drawn and edited by events.
class VX_API TDrawGrid : public TCustomGrid
{
public:
    explicit TDrawGrid(TComponent *owner);

    using TCustomGrid::DeleteColumn;
    using TCustomGrid::DeleteRow;
    using TCustomGrid::MoveColumn;
    using TCustomGrid::MoveRow;

    /// Before a cell becomes current; `can_select` false refuses.
    TSelectCellEvent OnSelectCell;
    TDrawCellEvent OnDrawCell;
    TGetEditEvent OnGetEditText;
    TSetEditEvent OnSetEditText;
    TMovedEvent OnRowMoved;
    TMovedEvent OnColumnMoved;
    TNotifyEvent OnTopLeftChanged;

protected:
    bool SelectCell(int col, int row) override;
    void DrawCell(int col, int row, TRect const &rect, TGridDrawState state) override;
    UnicodeString GetEditText(int col, int row) override;
    void SetEditText(int col, int row, UnicodeString const &text) override;
    void RowMoved(int from, int to) override;
    void ColumnMoved(int from, int to) override;
    void TopLeftChanged() override;
};
