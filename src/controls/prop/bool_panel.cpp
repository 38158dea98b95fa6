#include "controls/prop/bool_panel.h"

#include "controls/forms/event_off.h"

#include "platform/toolkit/core/new_on.h"

Tvx_bool_panel::Tvx_bool_panel(TComponent *owner)
    : Tvx_children_enabled_panel(owner), f_check_box(vx_new_for<Tvx_check_box>(this, this))
{
    f_check_box->SetParent(this);
    f_check_box->SetAlignment(taLeftJustify);
    f_check_box->SetAlign(alClient);
    f_check_box->OnClick = make_closure<&Tvx_bool_panel::on_check_box_click>(this);
}

UnicodeString Tvx_bool_panel::get_caption() const
{
    return f_check_box->GetCaption();
}

void Tvx_bool_panel::set_caption(UnicodeString const &caption)
{
    f_check_box->SetCaption(caption);
}

bool Tvx_bool_panel::get_flag() const
{
    return f_check_box->GetChecked();
}

void Tvx_bool_panel::set_flag(bool flag)
{
    vx::event_off const quiet(f_check_box->OnClick);
    f_check_box->SetChecked(flag);
}

void Tvx_bool_panel::on_check_box_click(TObject * /*sender*/)
{
    on_changed(this);
}
