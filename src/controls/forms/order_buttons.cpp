#include "controls/forms/order_buttons.h"

#include "captions/scene.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_button_height = 25;
constexpr int c_gap = 4;
} // namespace

Tvx_order_buttons::Tvx_order_buttons(TComponent *owner)
    : Tvx_panel(owner), f_add_btn(add_button(make_closure<&Tvx_order_buttons::on_add_click>(this))),
      f_delete_btn(add_button(make_closure<&Tvx_order_buttons::on_delete_click>(this))),
      f_up_btn(add_button(make_closure<&Tvx_order_buttons::on_up_click>(this))),
      f_down_btn(add_button(make_closure<&Tvx_order_buttons::on_down_click>(this)))
{
    SetWidth(c_width + c_gap);
}

Tvx_button *Tvx_order_buttons::add_button(TNotifyEvent event)
{
    auto *button = new Tvx_button(this);
    button->SetParent(this);
    button->SetBounds(c_gap, f_bottom, c_width, c_button_height);
    button->OnClick = event;
    f_bottom += c_button_height + c_gap;
    return button;
}

void Tvx_order_buttons::set_can_add(bool value)
{
    f_add_btn->SetVisible(value);
    f_delete_btn->SetVisible(value);
    int top = value ? 2 * (c_button_height + c_gap) : 0;
    for (auto *const button : {f_up_btn, f_down_btn}) {
        button->SetTop(top);
        top += c_button_height + c_gap;
    }
}

void Tvx_order_buttons::load_res()
{
    f_add_btn->SetCaption(vx_res_get_wstr(c_scn_add));
    f_delete_btn->SetCaption(vx_res_get_wstr(c_scn_delete));
    f_up_btn->SetCaption(vx_res_get_wstr(c_scn_up));
    f_down_btn->SetCaption(vx_res_get_wstr(c_scn_down));
}

void Tvx_order_buttons::enable(int current, int count, bool can_delete)
{
    bool const chosen = current >= 0 && current < count;
    f_delete_btn->SetEnabled(chosen && can_delete);
    f_up_btn->SetEnabled(chosen && current > 0);
    f_down_btn->SetEnabled(chosen && current + 1 < count);
}

void Tvx_order_buttons::on_add_click(TObject * /*sender*/)
{
    on_add(this);
}

void Tvx_order_buttons::on_delete_click(TObject * /*sender*/)
{
    on_delete(this);
}

void Tvx_order_buttons::on_up_click(TObject * /*sender*/)
{
    on_move(this, -1);
}

void Tvx_order_buttons::on_down_click(TObject * /*sender*/)
{
    on_move(this, 1);
}
