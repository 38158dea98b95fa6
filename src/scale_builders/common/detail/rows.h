#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

#include <algorithm>

/// Rows of a parameter panel, from the top down.
namespace vx::builders {
inline constexpr int c_row_gap = 2;   ///< above and below a row
inline constexpr int c_row_inset = 6; ///< at its sides
inline constexpr int c_data_width = 120;

/// Makes the frame of a panel, with a little room round it.
inline Tvx_vcl_group_box *add_group(Tvx_vcl_panel *panel)
{
    panel->GetPadding()->SetBounds(c_row_inset, c_row_gap, c_row_inset, c_row_gap);
    auto *const group = new Tvx_vcl_group_box(panel);
    group->SetParent(panel);
    group->SetAlign(alClient);
    return group;
}

/// Puts a control under those that were put there before; its height stays.
inline void put_row(TControl *row, TWinControl *parent)
{
    row->SetParent(parent);
    int top = 0;
    for (int i = 0; i < parent->GetControlCount(); ++i)
        if (auto const *const other = parent->GetControls(i); other != row)
            top = std::max(top, other->GetTop() + other->GetHeight());
    row->SetTop(top);
    row->GetMargins()->SetBounds(c_row_inset, c_row_gap, c_row_inset, c_row_gap);
    row->SetAlignWithMargins(true);
    row->SetAlign(alTop);
}

/// Makes a panel of the library as the next row.
template <class Panel>
Panel *add_row(TWinControl *parent)
{
    auto *const row = new Panel(parent);
    put_row(row, parent);
    row->create();
    return row;
}

/// The same for a value panel, whose values stand in one column.
template <class Panel>
Panel *add_value_row(TWinControl *parent)
{
    auto *const row = add_row<Panel>(parent);
    row->set_data_width(c_data_width);
    return row;
}
} // namespace vx::builders
