#include "style_manager/widgets/prp_scale.h"

#include "captions/style_manager.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 26;
constexpr int c_combo_width = 170;
} // namespace

Tvx_prp_scale::Tvx_prp_scale(TComponent *owner) : Tvx_panel(owner)
{
    SetHeight(c_height);
}

void Tvx_prp_scale::create()
{
    f_label = vx_new_on<Tvx_label>(this, this);
    f_label->SetLeft(2);
    f_label->SetTop(2);
    f_combo = vx_new_on<Tvx_prop_combo_box>(this, this);
    f_combo->SetWidth(c_combo_width);
    f_combo->SetAlign(alRight);
    f_combo->set_forbid_empty(false);
    f_combo->on_changed = make_closure<&Tvx_prp_scale::on_combo_changed>(this);
    f_label->SetFocusControl(f_combo);
}

void Tvx_prp_scale::load_res()
{
    f_label->SetCaption(vx_res_get_wstr(c_stl_property));
}

void Tvx_prp_scale::update_controls()
{
    f_combo->update_controls();
}

void Tvx_prp_scale::set_enabled(bool enabled)
{
    f_label->SetEnabled(enabled);
    f_combo->SetEnabled(enabled);
    SetEnabled(enabled);
}

void Tvx_prp_scale::on_combo_changed(TObject * /*sender*/)
{
    on_changed(this);
}
