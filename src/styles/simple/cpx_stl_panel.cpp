#include "styles/simple/cpx_stl_panel.h"

#include "captions/simple.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 20;
constexpr int c_button_width = 20;
} // namespace

Tvx_cpx_stl_panel::Tvx_cpx_stl_panel(TComponent *owner)
    : Tvx_caption_panel(owner), f_button(vx_new_for<Tvx_button>(this, this))
{
    SetHeight(c_height);
    f_button->SetParent(this);
    f_button->SetWidth(c_button_width);
    f_button->SetAlign(alRight);
    f_button->SetCaption(L"...");
    f_button->SetShowHint(true);
    f_button->OnClick = make_closure<&Tvx_cpx_stl_panel::on_button_click>(this);
}

void Tvx_cpx_stl_panel::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_smp_edit_complex);
    f_button->SetHint(action);
    f_button->SetAccessibleName(action);
}

void Tvx_cpx_stl_panel::on_button_click(TObject * /*sender*/)
{
    on_click(this);
}
