#include "styles/complex/cpx_styles_form.h"

#include "captions/complex.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_width = 640;
constexpr int c_height = 480;
} // namespace

Tvx_cpx_styles_form::Tvx_cpx_styles_form(TComponent *owner)
    : Tvx_dlg_form(owner), f_panel(new Tvx_cpx_style_panel(this))
{
    SetBounds(GetLeft(), GetTop(), c_width, c_height);
    GetConstraints()->SetMinWidth(c_width);
    GetConstraints()->SetMinHeight(c_height);
    SetPosition(poScreenCenter);
    f_panel->SetParent(get_content_panel());
    f_panel->SetAlign(alClient);
}

void Tvx_cpx_styles_form::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_cpx_dlg));
    f_panel->load_res();
}

bool Tvx_cpx_styles_form::edit_cpx_style()
{
    f_panel->update_controls();
    return show_modal() == mrOk;
}
