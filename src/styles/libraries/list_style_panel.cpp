#include "styles/libraries/list_style_panel.h"

#include "captions/libraries.h"
#include "controls/prop/detail/picture_button.h"
#include "styles/libraries/lib_style_paint.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_style_lib.h"

namespace {
/// Numbers of the pictures on the buttons.
constexpr int c_picture_prev = 702;
constexpr int c_picture_next = 703;
} // namespace

Tvx_list_style_panel::Tvx_list_style_panel(TComponent *owner)
    : Tvx_panel(owner), f_bottom_panel(new Tvx_panel(this)), f_prev_btn(new Tvx_bitbtn(this)),
      f_next_btn(new Tvx_bitbtn(this)), f_draw(new Tvx_lib_style_draw(this))
{
    f_bottom_panel->SetParent(this);
    f_bottom_panel->SetAlign(alBottom);
    for (Tvx_bitbtn *button : {f_prev_btn, f_next_btn}) {
        button->SetParent(f_bottom_panel);
        button->SetWidth(f_bottom_panel->GetHeight());
        button->SetAlign(button == f_prev_btn ? alLeft : alRight);
        button->SetShowHint(true);
    }
    f_prev_btn->OnClick = make_closure<&Tvx_list_style_panel::on_prev_btn_click>(this);
    f_next_btn->OnClick = make_closure<&Tvx_list_style_panel::on_next_btn_click>(this);
    f_draw->SetParent(this);
    f_draw->SetAlign(alClient);
    enable_disable();
}

void Tvx_list_style_panel::load_res()
{
    vx_picture_button_load(f_prev_btn, c_picture_prev, c_lib_hint_prev);
    vx_picture_button_load(f_next_btn, c_picture_next, c_lib_hint_next);
}

void *Tvx_list_style_panel::get_active_style() const
{
    return f_active_no < 0 ? nullptr
                           : vx_style_list_get_idx_style(f_style_list, static_cast<unsigned>(f_active_no));
}

void Tvx_list_style_panel::enable_disable()
{
    f_prev_btn->SetEnabled(f_style_list && f_active_no > 0);
    f_next_btn->SetEnabled(f_style_list &&
                           f_active_no < static_cast<int>(vx_style_list_get_size(f_style_list)) - 1);
}

void Tvx_list_style_panel::update_controls()
{
    f_draw->set_idx_style(get_active_style());
    f_draw->update_controls();
    enable_disable();
}

void Tvx_list_style_panel::on_prev_btn_click(TObject * /*sender*/)
{
    step(-1);
}

void Tvx_list_style_panel::on_next_btn_click(TObject * /*sender*/)
{
    step(1);
}

void Tvx_list_style_panel::step(int by)
{
    f_active_no += by;
    update_controls();
    on_changed(this);
}
