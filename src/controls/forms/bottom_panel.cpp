#include "controls/forms/bottom_panel.h"

#include "captions/forms.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_edge = 8;  // free room at the sides of the strip
constexpr int c_gap = 6;   // between two buttons
constexpr int c_inset = 7; // above and below a button
} // namespace

Tvx_bottom_panel::Tvx_bottom_panel(TComponent *owner)
    : Tvx_panel(owner), f_apply_btn(nullptr), f_cancel_btn(nullptr), f_help_btn(nullptr)
{
    SetHeight(c_height);
    GetPadding()->SetBounds(c_edge, c_inset, c_edge, c_inset);
    f_apply_btn = make_button();
    f_cancel_btn = make_button();
    f_help_btn = make_button();
    f_help_btn->SetVisible(false);
    // Enter applies, once the edits and grids of the form have ended an entry with it, and Esc closes.
    f_apply_btn->SetDefault(true);
    f_cancel_btn->SetCancel(true);
    Realign();
}

Tvx_button *Tvx_bottom_panel::make_button()
{
    auto *button = vx_new_on<Tvx_button>(this, this);
    button->SetWidth(c_button_width);
    return button;
}

void Tvx_bottom_panel::load_res()
{
    f_apply_btn->SetCaption(vx_res_get_wstr(c_caption_apply));
    f_cancel_btn->SetCaption(vx_res_get_wstr(c_caption_cancel));
    f_help_btn->SetCaption(vx_res_get_wstr(c_caption_help));
}

void Tvx_bottom_panel::AlignControls(TControl *control, TRect &rect)
{
    Tvx_panel::AlignControls(control, rect);
    int right = GetClientWidth() - c_edge;
    for (auto *button : {f_help_btn, f_cancel_btn, f_apply_btn}) {
        // Runs from the constructor on, before all three are made.
        if (!button || !button->GetVisible())
            continue;
        button->SetBounds(right - button->GetWidth(), c_inset, button->GetWidth(),
                          GetClientHeight() - 2 * c_inset);
        right -= button->GetWidth() + c_gap;
    }
}
