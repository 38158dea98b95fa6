#include "controls/forms/dlg_form.h"

#include "controls/forms/detail/form_position.h"

#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/new_on.h"

Tvx_dlg_form::Tvx_dlg_form(TComponent *owner)
    : Tvx_form(owner), f_bottom_panel(vx_new_for<Tvx_bottom_panel>(this, this)),
      f_content_panel(vx_new_for<Tvx_panel>(this, this))
{
    SetPosition(poDesigned);
    SetBorderStyle(bsSizeToolWin);
    f_content_panel->SetParent(this);
    f_content_panel->SetAlign(alClient);
    f_bottom_panel->SetParent(this);
    f_bottom_panel->SetAlign(alBottom);
    get_apply_btn()->OnClick = make_closure<&Tvx_dlg_form::on_apply_btn_click>(this);
    get_cancel_btn()->OnClick = make_closure<&Tvx_dlg_form::on_cancel_btn_click>(this);
    get_help_btn()->OnClick = make_closure<&Tvx_dlg_form::on_help_btn_click>(this);
}

void Tvx_dlg_form::load_res()
{
    Tvx_form::load_res();
    f_bottom_panel->load_res();
}

void Tvx_dlg_form::help_click()
{
    Application->HelpContext(GetHelpContext());
}

int Tvx_dlg_form::show_modal()
{
    load_res();
    return ShowModal();
}

int Tvx_dlg_form::show_modal(bool load)
{
    if (load)
        load_res();
    return ShowModal();
}

int Tvx_dlg_form::show_pos(int x, int y)
{
    set_position(x, y);
    return show_modal();
}

int Tvx_dlg_form::show_pos(int x, int y, bool load)
{
    set_position(x, y);
    return show_modal(load);
}

void Tvx_dlg_form::show_nomodal_pos(int x, int y)
{
    set_position(x, y);
    load_res();
    Show();
}

void Tvx_dlg_form::set_position(int x, int y)
{
    if (x == 0 && y == 0)
        SetPosition(poScreenCenter);
    else
        vx::detail::form_flip_into_screen(*this, x, y);
}

void Tvx_dlg_form::on_apply_btn_click(TObject * /*sender*/)
{
    if (apply_click())
        close_with(mrOk);
}

void Tvx_dlg_form::on_cancel_btn_click(TObject * /*sender*/)
{
    if (cancel_click())
        close_with(mrCancel);
}

void Tvx_dlg_form::on_help_btn_click(TObject * /*sender*/)
{
    help_click();
}

void Tvx_dlg_form::close_with(int modal_result)
{
    // Closing a modal form sets the result to mrCancel, so the real one comes after.
    Close();
    SetModalResult(modal_result);
}
