#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/event_off.h"
#include "controls/numeric/size_panel.h"

#include <cmath>

/// What the dialogs of label styles share.
namespace vx::label_dlg {
inline constexpr int c_side_margin = 6;
inline constexpr int c_row_margin = 3;
inline constexpr int c_row_height = 20;
inline constexpr int c_unit_width = 26;
inline constexpr int c_decimals = 2;

/// Puts rows of controls below each other on a parent.
class rows
{
public:
    /// `indent`: how much further to the right than usual the rows begin.
    rows(TComponent *owner, TWinControl *parent, int indent = 0)
        : f_owner(owner), f_parent(parent), f_indent(indent)
    {
    }
    template <class Control>
    Control *add(int height = c_row_height)
    {
        auto *const control = new Control(f_owner);
        control->SetParent(f_parent);
        control->SetBounds(0, f_bottom, f_parent->GetClientWidth(), height);
        control->SetAlignWithMargins(true);
        control->GetMargins()->SetBounds(c_side_margin + f_indent, c_row_margin, c_side_margin, c_row_margin);
        control->SetAlign(alTop);
        f_bottom += height + 2 * c_row_margin;
        return control;
    }
    /// A number with its unit.
    Tvx_size_panel *add_number(bool negative)
    {
        auto *const panel = add<Tvx_size_panel>();
        panel->set_precision(c_decimals);
        panel->set_min(negative ? -1 : 0);
        panel->set_end_caption_width(c_unit_width);
        panel->set_end_caption_visible(true);
        return panel;
    }
    /// The room that the rows take.
    [[nodiscard]] int height() const { return f_bottom; }

private:
    TComponent *f_owner;
    TWinControl *f_parent;
    int f_indent;
    int f_bottom = 0;
};

inline void check_quietly(Tvx_check_box *box, bool checked)
{
    event_off const quiet(box->OnClick);
    box->SetChecked(checked);
}

inline void choose_quietly(Tvx_radio_group *group, int item)
{
    event_off const quiet(group->OnClick);
    group->SetItemIndex(item);
}

/// The number of the panel, or the former one where the edit is empty.
inline double number_or(Tvx_size_panel const *panel, double former)
{
    double const number = panel->get_size();
    return std::isfinite(number) ? number : former;
}
} // namespace vx::label_dlg
