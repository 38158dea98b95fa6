#include "controls/forms/vcl_dialog_form.h"

#include "controls/forms/detail/form_position.h"

Tvx_vcl_dialog_form::Tvx_vcl_dialog_form(TComponent *owner)
    : Tvx_vcl_form(owner), f_client_panel(new Tvx_vcl_panel(this)),
      f_bottom_buttons(new Tvx_vcl_bottom_buttons(this))
{
    SetPosition(poScreenCenter);
}

void Tvx_vcl_dialog_form::create()
{
    f_client_panel->SetParent(this);
    f_client_panel->create();
    f_client_panel->SetAlign(alClient);
    f_bottom_buttons->SetParent(this);
    f_bottom_buttons->create();
    f_bottom_buttons->SetAlign(alBottom);
    f_bottom_buttons->on_cancel = make_closure<&Tvx_vcl_dialog_form::on_cancel_btn_click>(this);
    f_bottom_buttons->on_apply = make_closure<&Tvx_vcl_dialog_form::on_apply_btn_click>(this);
    f_bottom_buttons->on_help = make_closure<&Tvx_vcl_dialog_form::on_help_btn_click>(this);
    f_bottom_buttons->on_save = make_closure<&Tvx_vcl_dialog_form::on_save_btn_click>(this);
    f_bottom_buttons->on_load = make_closure<&Tvx_vcl_dialog_form::on_load_btn_click>(this);
}

void Tvx_vcl_dialog_form::load_rc()
{
    f_bottom_buttons->load_rc();
}

void Tvx_vcl_dialog_form::call_cancel()
{
    Close();
}

void Tvx_vcl_dialog_form::set_position(int x, int y)
{
    if (x == 0 && y == 0)
        SetPosition(poScreenCenter);
    else
        vx::detail::form_flip_into_screen(*this, x, y);
}
