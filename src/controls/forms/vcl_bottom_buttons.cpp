#include "controls/forms/vcl_bottom_buttons.h"

#include "captions/forms.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

#include <algorithm>

namespace {
constexpr int c_button_width = 70;
constexpr int c_button_height = 26;
constexpr int c_step = 72;  // from one button to the next
constexpr int c_raise = 28; // of a button's top above the bottom of the strip
constexpr int c_left_edge = 2;
} // namespace

Tvx_vcl_bottom_buttons::Tvx_vcl_bottom_buttons(TComponent *owner) : Tvx_vcl_panel(owner)
{
    SetHeight(30);
}

void Tvx_vcl_bottom_buttons::create()
{
    static constexpr std::array<wchar_t const *, c_button_count> captions = {L"Apply", L"Cancel", L"Help",
                                                                             L"Save", L"Load"};
    for (int i = 0; i < c_button_count; ++i) {
        auto *button = vx_new_on<Tvx_vcl_button>(this, this);
        button->SetBounds(0, 0, c_button_width, c_button_height);
        button->SetCaption(captions[static_cast<std::size_t>(i)]);
        button->SetVisible(i == apply || i == cancel);
        f_buttons[static_cast<std::size_t>(i)] = button;
    }
    // Tab goes from left to right.
    f_buttons[save]->SetTabOrder(0);
    f_buttons[load]->SetTabOrder(1);
    f_buttons[apply]->SetDefault(true);
    f_buttons[cancel]->SetCancel(true);
    f_buttons[cancel]->OnClick = make_closure<&Tvx_vcl_bottom_buttons::on_cancel_btn_click>(this);
    f_buttons[apply]->OnClick = make_closure<&Tvx_vcl_bottom_buttons::on_apply_btn_click>(this);
    f_buttons[help]->OnClick = make_closure<&Tvx_vcl_bottom_buttons::on_help_btn_click>(this);
    f_buttons[save]->OnClick = make_closure<&Tvx_vcl_bottom_buttons::on_save_btn_click>(this);
    f_buttons[load]->OnClick = make_closure<&Tvx_vcl_bottom_buttons::on_load_btn_click>(this);
    place_buttons();
}

void Tvx_vcl_bottom_buttons::load_rc()
{
    static constexpr std::array<int, c_button_count> captions = {
        c_caption_short_apply, c_caption_cancel, c_caption_help, c_caption_short_save, c_caption_short_load};
    for (std::size_t i = 0; i < c_button_count; ++i)
        if (f_buttons[i])
            f_buttons[i]->SetCaption(vx_res_get_wstr(captions[i]));
}

bool Tvx_vcl_bottom_buttons::get_enabled() const
{
    return std::ranges::any_of(f_buttons, [](auto *button) { return button && button->GetEnabled(); });
}

void Tvx_vcl_bottom_buttons::set_enabled(bool enabled)
{
    for (auto *button : f_buttons)
        if (button)
            button->SetEnabled(enabled);
}

bool Tvx_vcl_bottom_buttons::visible(button which) const
{
    return f_buttons[which] && f_buttons[which]->GetVisible();
}

void Tvx_vcl_bottom_buttons::set_visible(button which, bool value)
{
    if (!f_buttons[which])
        return;
    f_buttons[which]->SetVisible(value);
    place_buttons();
}

bool Tvx_vcl_bottom_buttons::get_apply_enabled() const
{
    return f_buttons[apply] && f_buttons[apply]->GetEnabled();
}

void Tvx_vcl_bottom_buttons::set_apply_enabled(bool enabled)
{
    if (f_buttons[apply])
        f_buttons[apply]->SetEnabled(enabled);
}

bool Tvx_vcl_bottom_buttons::get_apply_focused() const
{
    return f_buttons[apply] && f_buttons[apply]->Focused();
}

void Tvx_vcl_bottom_buttons::set_apply_focused(bool focused)
{
    if (focused && visible(apply) && f_buttons[apply]->CanFocus())
        f_buttons[apply]->SetFocus();
}

void Tvx_vcl_bottom_buttons::place_buttons()
{
    int const top = GetHeight() - c_raise;
    int left = GetWidth() - c_step;
    for (auto const which : {help, cancel, apply}) {
        if (!visible(which))
            continue;
        f_buttons[which]->SetBounds(left, top, c_button_width, c_button_height);
        left -= c_step;
    }
    left = c_left_edge;
    for (auto const which : {save, load}) {
        if (!visible(which))
            continue;
        f_buttons[which]->SetBounds(left, top, c_button_width, c_button_height);
        left += c_step;
    }
}

void Tvx_vcl_bottom_buttons::Resize()
{
    Tvx_vcl_panel::Resize();
    place_buttons();
}
