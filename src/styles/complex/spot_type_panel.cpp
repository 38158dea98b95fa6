#include "styles/complex/spot_type_panel.h"

#include "captions/complex.h"
#include "controls/forms/caption_panels.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_combo_width = 160;
} // namespace

Tvx_spot_type_panel::Tvx_spot_type_panel(TComponent *owner)
    : Tvx_cpx_panel(owner), f_caption(new Tvx_caption_panel(this)), f_combo(new Tvx_combo_box(this))
{
    f_caption->SetParent(this);
    f_caption->SetAlign(alClient);
    f_combo->SetParent(this);
    f_combo->SetStyle(csDropDownList);
    f_combo->SetWidth(c_combo_width);
    f_combo->SetAlign(alRight);
    f_combo->OnChange = make_closure<&Tvx_spot_type_panel::on_combo_change>(this);
    f_caption->set_focus_control(f_combo);
}

void Tvx_spot_type_panel::CreateWnd()
{
    Tvx_cpx_panel::CreateWnd();
    f_created = true;
    load_res();
    update_controls();
}

void Tvx_spot_type_panel::load_res()
{
    UnicodeString const caption = vx_res_get_wstr(c_cpx_spot_type);
    f_caption->set_caption(caption);
    f_combo->SetAccessibleName(caption);
    if (!f_created)
        return;
    f_combo->Clear();
    for (int const entry : {c_cpx_spot_rows, c_cpx_spot_staggered})
        f_combo->GetItems()->Add(vx_res_get_wstr(entry));
}

void Tvx_spot_type_panel::update_controls()
{
    if (f_combo->GetItems()->GetCount() > 0)
        f_combo->SetItemIndex(f_spot_type);
}

void Tvx_spot_type_panel::set_spot_type(Tvx_spot_type type)
{
    f_spot_type = type;
    update_controls();
}

void Tvx_spot_type_panel::on_combo_change(TObject * /*sender*/)
{
    int const chosen = f_combo->GetItemIndex();
    if ((chosen != c_spot_rows && chosen != c_spot_staggered) || chosen == f_spot_type)
        return;
    f_spot_type = static_cast<Tvx_spot_type>(chosen);
    on_changed(this);
}
