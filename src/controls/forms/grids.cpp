#include "controls/forms/grids.h"

#include <algorithm>

namespace {
/// Always true: the wheel never falls through to what the grid lies in, not even at the last row.
template <class Grid>
bool scroll_by_one_row(Grid &grid, int step)
{
    int const last = std::max(grid.GetFixedRows(), grid.GetRowCount() - grid.GetVisibleRowCount());
    grid.SetTopRow(std::clamp(grid.GetTopRow() + step, grid.GetFixedRows(), last));
    return true;
}
} // namespace

Tvx_custom_grid::Tvx_custom_grid(TComponent *owner) : TCustomGrid(owner)
{
    SetShowHint(true);
}

bool Tvx_custom_grid::DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos)
{
    return TCustomControl::DoMouseWheelDown(shift, mouse_pos) || scroll_by_one_row(*this, 1);
}

bool Tvx_custom_grid::DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos)
{
    return TCustomControl::DoMouseWheelUp(shift, mouse_pos) || scroll_by_one_row(*this, -1);
}

bool Tvx_string_grid::DoMouseWheelDown(TShiftState shift, TPoint const &mouse_pos)
{
    return TCustomControl::DoMouseWheelDown(shift, mouse_pos) || scroll_by_one_row(*this, 1);
}

bool Tvx_string_grid::DoMouseWheelUp(TShiftState shift, TPoint const &mouse_pos)
{
    return TCustomControl::DoMouseWheelUp(shift, mouse_pos) || scroll_by_one_row(*this, -1);
}
