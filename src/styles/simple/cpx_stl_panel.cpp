#include "styles/simple/cpx_stl_panel.h"

#include "styles/simple/simple_captions.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_height = 20;
constexpr int c_button_width = 20;
} // namespace

Tvx_cpx_stl_panel::Tvx_cpx_stl_panel(TComponent *owner)
    : Tvx_panel(owner), f_label(new Tvx_label(this)), f_button(new Tvx_button(this))
{
    SetHeight(c_height);
    f_label->SetParent(this);
    f_label->SetAutoSize(false);
    f_label->SetLayout(tlCenter);
    f_label->SetAlign(alClient);
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

UnicodeString Tvx_cpx_stl_panel::get_caption() const
{
    return f_label->GetCaption();
}

void Tvx_cpx_stl_panel::set_caption(UnicodeString const &caption)
{
    f_label->SetCaption(caption);
}

void Tvx_cpx_stl_panel::on_button_click(TObject * /*sender*/)
{
    on_click(this);
}
