#include "styles/simple/style_panels.h"

#include "controls/prop/detail/action_name.h"

#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 26;
}

Tvx_basic_style_panel::Tvx_basic_style_panel(TComponent *owner)
    : Tvx_basic_pnl(owner), f_caption(vx_new_for<Tvx_caption_panel>(this, this))
{
    SetHeight(c_height);
    f_caption->SetParent(this);
    f_caption->SetAlign(alClient);
}

void Tvx_basic_style_panel::place_btn(Tvx_basic_style_btn *button)
{
    f_style_btn = button;
    button->SetParent(this);
    button->SetWidth(c_height);
    button->SetAlign(alRight);
    button->on_changed = make_closure<&Tvx_basic_style_panel::on_btn_changed>(this);
}

void Tvx_basic_style_panel::load_res()
{
    f_style_btn->load_res();
    name_btn();
}

UnicodeString Tvx_basic_style_panel::get_caption() const
{
    return f_caption->get_caption();
}

void Tvx_basic_style_panel::set_caption(UnicodeString const &caption)
{
    f_caption->set_caption(caption);
    name_btn();
}

/// Of several style buttons on a form the caption tells which is which.
void Tvx_basic_style_panel::name_btn()
{
    f_style_btn->SetAccessibleName(vx_action_name(f_caption->get_caption(), f_style_btn->GetHint()));
}

void Tvx_basic_style_panel::on_btn_changed(TObject * /*sender*/)
{
    call_changed();
}

Tvx_pnt_style_panel::Tvx_pnt_style_panel(TComponent *owner)
    : Tvx_basic_style_panel(owner), f_btn(add_btn<Tvx_pnt_style_btn>())
{
}

Tvx_pln_style_panel::Tvx_pln_style_panel(TComponent *owner)
    : Tvx_basic_style_panel(owner), f_btn(add_btn<Tvx_pln_style_btn>())
{
}

Tvx_pgn_style_panel::Tvx_pgn_style_panel(TComponent *owner)
    : Tvx_basic_style_panel(owner), f_btn(add_btn<Tvx_pgn_style_btn>())
{
}

Tvx_clr_style_panel::Tvx_clr_style_panel(TComponent *owner)
    : Tvx_basic_style_panel(owner), f_btn(add_btn<Tvx_clr_style_btn>())
{
}
