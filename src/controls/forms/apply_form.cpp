#include "controls/forms/apply_form.h"

#include "captions/forms.h"
#include "controls/forms/detail/form_position.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/list.h"
#include "platform/toolkit/core/new_on.h"

namespace {
void focus_active_document()
{
    auto *main_form = Application->GetMainForm();
    auto *document = main_form ? main_form->GetActiveMDIChild() : nullptr;
    if (!document)
        return;
    TList controls;
    document->GetTabOrderList(&controls);
    if (controls.GetCount() > 0)
        static_cast<TWinControl *>(controls.First())->SetFocus();
}
} // namespace

Tvx_apply_form::Tvx_apply_form(TComponent *owner)
    : Tvx_form(owner), f_bottom_panel(vx_new_for<Tvx_bottom_panel>(this, this))
{
    SetBorderStyle(bsSizeToolWin);
    SetFormStyle(fsStayOnTop);
    f_bottom_panel->SetParent(this);
    f_bottom_panel->SetAlign(alBottom);
    get_apply_btn()->OnClick = make_closure<&Tvx_apply_form::on_apply_btn_click>(this);
    get_cancel_btn()->OnClick = make_closure<&Tvx_apply_form::on_cancel_btn_click>(this);
    get_help_btn()->OnClick = make_closure<&Tvx_apply_form::on_help_btn_click>(this);
}

void Tvx_apply_form::load_res()
{
    Tvx_form::load_res();
    f_bottom_panel->load_res();
}

void Tvx_apply_form::call_apply()
{
    f_on_apply(this);
}

void Tvx_apply_form::show_apply(int x, int y)
{
    if (!GetShowing())
        vx::detail::form_push_into_screen(*this, x, y);
    Show();
}

void Tvx_apply_form::on_apply_btn_click(TObject * /*sender*/)
{
    if (apply_click())
        call_apply();
}

void Tvx_apply_form::on_cancel_btn_click(TObject * /*sender*/)
{
    if (cancel_click())
        Close();
}

void Tvx_apply_form::on_help_btn_click(TObject * /*sender*/)
{
    Application->HelpContext(help_click());
}

void Tvx_apply_and_leave_form::call_apply()
{
    Tvx_apply_form::call_apply();
    focus_active_document();
}

Tvx_apply_upd_form::Tvx_apply_upd_form(TComponent *owner)
    : Tvx_apply_form(owner), f_update_btn(new Tvx_button(get_bottom_panel()))
{
    f_update_btn->SetWidth(Tvx_bottom_panel::c_button_width);
    f_update_btn->SetParent(get_bottom_panel());
    f_update_btn->SetAlign(alLeft);
    f_update_btn->SetTabOrder(0);
    f_update_btn->OnClick = make_closure<&Tvx_apply_upd_form::on_update_btn_click>(this);
}

void Tvx_apply_upd_form::load_res()
{
    Tvx_apply_form::load_res();
    f_update_btn->SetCaption(vx_res_get_wstr(c_caption_update));
}

void Tvx_apply_upd_form::call_update()
{
    f_on_update(this);
}

void Tvx_apply_upd_form::on_update_btn_click(TObject * /*sender*/)
{
    if (update_click())
        call_update();
}

void Tvx_apply_upd_and_leave_form::call_apply()
{
    Tvx_apply_upd_form::call_apply();
    focus_active_document();
}
