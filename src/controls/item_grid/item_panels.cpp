#include "controls/item_grid/item_panels.h"

namespace {
constexpr int c_height = 20;
} // namespace

Tvx_basic_item_tool_panel::Tvx_basic_item_tool_panel(TComponent *owner)
    : Tvx_panel(owner), f_actions(new Tvx_item_grid_action_list(this))
{
    SetHeight(c_height);
}

/// Controls at the left stand in the order of their places.
void Tvx_basic_item_tool_panel::place(TControl *control, int width)
{
    control->SetParent(this);
    control->SetBounds(f_left, 0, width, c_height);
    control->SetAlign(alLeft);
    f_left += width;
}

void Tvx_basic_item_tool_panel::add_button(Tvx_item_grid_action *action)
{
    auto *const button = new Tvx_bitbtn(this);
    place(button, c_height);
    button->SetShowHint(true);
    button->SetAction(action);
    f_buttons.push_back({button, action});
}

void Tvx_basic_item_tool_panel::add_gap()
{
    place(new Tvx_panel(this), c_height / 2);
}

Tvx_bitbtn *Tvx_basic_item_tool_panel::get_button(TBasicAction const *action) const
{
    for (auto const &[button, own] : f_buttons) {
        if (own == action)
            return button;
    }
    return nullptr;
}

void Tvx_basic_item_tool_panel::load_res()
{
    f_actions->load_res();
    for (auto const &[button, action] : f_buttons)
        button->SetAccessibleName(action->GetHint());
}

Tvx_item_tool_panel::Tvx_item_tool_panel(TComponent *owner) : Tvx_basic_item_tool_panel(owner)
{
    add_button(get_actions()->get_ins_action());
    add_button(get_actions()->get_del_action());
}

Tvx_scn_tool_panel::Tvx_scn_tool_panel(TComponent *owner) : Tvx_basic_item_tool_panel(owner)
{
    add_button(get_actions()->get_sav_action());
    add_button(get_actions()->get_open_action());
    add_gap();
    add_button(get_actions()->get_ins_action());
    add_button(get_actions()->get_del_action());
}

Tvx_tool_panel_adv::Tvx_tool_panel_adv(TComponent *owner) : Tvx_basic_item_tool_panel(owner)
{
    add_gap();
    add_button(get_actions()->get_ins_action());
    add_button(get_actions()->get_del_action());
    add_button(get_actions()->get_up_action());
    add_button(get_actions()->get_down_action());
}
