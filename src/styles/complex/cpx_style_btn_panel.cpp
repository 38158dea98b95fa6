#include "styles/complex/cpx_style_btn_panel.h"

#include "captions/complex.h"
#include "styles/complex/edit_cpx_style.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_cpx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/winapi/collation.h"

namespace {
constexpr int c_height = 20;
constexpr int c_label_place = 2;
constexpr int c_button_width = 20;
} // namespace

Tvx_cpx_style_btn_panel::Tvx_cpx_style_btn_panel(TComponent *owner)
    : Tvx_cpx_panel(owner), f_label(new Tvx_label(this)), f_button(new Tvx_button(this))
{
    SetHeight(c_height);
    f_label->SetParent(this);
    f_label->SetBounds(c_label_place, c_label_place, f_label->GetWidth(), f_label->GetHeight());
    f_label->SetFocusControl(f_button);
    f_button->SetParent(this);
    f_button->SetWidth(c_button_width);
    f_button->SetAlign(alRight);
    f_button->SetCaption(L"...");
    f_button->SetShowHint(true);
    f_button->OnClick = make_closure<&Tvx_cpx_style_btn_panel::on_button_click>(this);
}

void Tvx_cpx_style_btn_panel::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_cpx_edit_nested);
    f_button->SetHint(action);
    f_button->SetAccessibleName(get_caption().IsEmpty() ? action : get_caption() + L": " + action);
}

void Tvx_cpx_style_btn_panel::set_caption(UnicodeString const &caption)
{
    f_label->SetCaption(caption);
    load_res();
}

void Tvx_cpx_style_btn_panel::on_button_click(TObject * /*sender*/)
{
    if (!f_style)
        return;
    char const *const type = vx_cpx_style_get_type(f_style);
    bool changed = false;
    if (lstrcmpiA(type, c_pnt_style) == 0)
        changed = vx_edit_cpx_pnt_style(f_style);
    else if (lstrcmpiA(type, c_pln_style) == 0)
        changed = vx_edit_cpx_pln_style(f_style);
    else if (lstrcmpiA(type, c_pgn_style) == 0)
        changed = vx_edit_cpx_pgn_style(f_style);
    if (changed)
        on_changed(this);
}
