#include "style_manager/widgets/other_panel.h"

#include "captions/style_manager.h"
#include "controls/forms/event_off.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 22;
constexpr int c_use_height = 20;
constexpr int c_use_width = 110;
constexpr int c_button_width = 22;
} // namespace

Tvx_other_panel::Tvx_other_panel(TComponent *owner) : Tvx_panel(owner)
{
    SetHeight(c_height);
}

void Tvx_other_panel::create()
{
    DisableAlign();
    f_use_panel = vx_new_on<Tvx_bool_panel>(this, this);
    f_use_panel->SetHeight(c_use_height);
    f_use_panel->SetWidth(c_use_width);
    f_use_panel->SetAlign(alLeft);
    f_use_panel->on_changed = make_closure<&Tvx_other_panel::on_use_panel_changed>(this);
    f_edit_panel = vx_new_on<Tvx_panel>(this, this);
    f_edit_panel->SetAlign(alClient);
    f_cpt_edit = vx_new_on<Tvx_edit>(f_edit_panel, this);
    f_cpt_edit->SetAlign(alClient);
    f_cpt_edit->OnChange = make_closure<&Tvx_other_panel::on_cpt_edit_changed>(this);
    auto const add = [this](bool selected) {
        auto *const button = vx_new_on<Tvx_style_btn>(f_edit_panel, this);
        button->SetWidth(c_button_width);
        button->SetAlign(alRight);
        button->SetLeft(f_edit_panel->GetWidth()); // at the right of the one before
        button->selected = selected;
        button->on_changed = make_closure<&Tvx_other_panel::on_style_btn_changed>(this);
        return button;
    };
    f_style_btn = add(false);
    f_sel_style_btn = add(true);
    f_edit_panel->SetVisible(false);
    EnableAlign();
}

void Tvx_other_panel::load_res()
{
    UnicodeString const caption = vx_res_get_wstr(c_stl_other);
    f_use_panel->set_caption(caption);
    f_cpt_edit->SetHint(vx_res_get_wstr(c_stl_other_caption));
    f_cpt_edit->SetAccessibleName(f_cpt_edit->GetHint());
    f_style_btn->load_res();
    f_sel_style_btn->load_res();
}

void Tvx_other_panel::update_controls()
{
    vx::event_off const flag_off(f_use_panel->on_changed), edit_off(f_cpt_edit->OnChange);
    f_use_panel->set_flag(f_scl_prm && vx_scale_prm_get_visible(f_scl_prm));
    f_cpt_edit->SetText(f_scl_prm ? f_caption : std::wstring());
    auto *const stl_prm = f_scl_prm ? vx_scale_prm_get_stl_prm_ptr(f_scl_prm) : nullptr;
    f_style_btn->stl_prm = stl_prm;
    f_sel_style_btn->stl_prm = stl_prm;
    update_height();
}

void Tvx_other_panel::set_on_draw_style(Tvx_draw_style_event event)
{
    f_style_btn->on_draw_style = event;
    f_sel_style_btn->on_draw_style = event;
}

void Tvx_other_panel::set_on_edit_style(Tvx_edit_style_event event)
{
    f_style_btn->on_edit_style = event;
    f_sel_style_btn->on_edit_style = event;
}

void Tvx_other_panel::enable_selection_style(bool enabled)
{
    f_sel_style_btn->SetVisible(enabled);
    if (enabled)
        f_sel_style_btn->SetLeft(f_edit_panel->GetWidth());
}

/// Only a row that is drawn has something to edit.
void Tvx_other_panel::update_height()
{
    SetHeight(c_height);
    bool const used = f_use_panel->get_flag();
    f_edit_panel->SetVisible(used);
    if (!used)
        return;
    f_style_btn->update_controls();
    f_sel_style_btn->update_controls();
}

void Tvx_other_panel::on_use_panel_changed(TObject * /*sender*/)
{
    if (f_scl_prm)
        vx_scale_prm_set_visible(f_scl_prm, f_use_panel->get_flag());
    update_height();
    on_changed(this);
}

void Tvx_other_panel::on_cpt_edit_changed(TObject * /*sender*/)
{
    f_caption = f_cpt_edit->GetText();
    on_changed(this);
}

void Tvx_other_panel::on_style_btn_changed(TObject * /*sender*/)
{
    on_changed(this);
}
