#include "txt_common_dlg.h"

#include "captions/scene.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_val_scale.h"

using namespace vx::scene_editor;

namespace {
constexpr int c_width = 400;
constexpr int c_height = 460;
constexpr int c_preview_height = 90;
constexpr int c_note_height = 38;
constexpr int c_margin = 6;

void *txt_style_of(void *stl_prm, bool selected)
{
    for (auto *get : {&vx_stl_prm_get_txt_pnt_style_ptr, &vx_stl_prm_get_txt_pln_style_ptr,
                      &vx_stl_prm_get_txt_pgn_style_ptr})
        if (void *style = get(stl_prm, selected))
            return style;
    return nullptr;
}

/// Runs `visit` on the style parameters of the simple style and of each row of the scales.
template <class Visit>
void for_each_stl_prm(void *mngr, Visit visit)
{
    auto const row = [&visit](void *scale_prm) { visit(vx_scale_prm_get_stl_prm_ptr(scale_prm)); };
    visit(vx_stl_mngr_get_simple_sp_ptr(mngr));
    for (void *scale : {vx_stl_mngr_get_val_scale_ptr(mngr), vx_stl_mngr_get_rule_scale_ptr(mngr)}) {
        for (unsigned i = 0; i < vx_val_scale_get_size(scale); ++i)
            row(vx_val_scale_get_scale_prm_ptr(scale, i));
        row(vx_val_scale_get_other_prm_ptr(scale));
    }
    void *const ranges = vx_stl_mngr_get_rng_scale_ptr(mngr);
    for (unsigned i = 0; i < vx_rng_scale_get_size(ranges); ++i)
        row(vx_rng_scale_get_scale_prm_ptr(ranges, i));
    row(vx_rng_scale_get_other_prm_ptr(ranges));
    row(vx_rng_scale_get_min_prm_ptr(ranges));
    row(vx_rng_scale_get_max_prm_ptr(ranges));
}

void set_margins(TControl *control)
{
    control->SetAlignWithMargins(true);
    control->GetMargins()->SetBounds(c_margin, c_margin, c_margin, 0);
}
} // namespace

Tvx_txt_common_dlg::Tvx_txt_common_dlg()
    : Tvx_dlg_form(nullptr), f_name(new Tvx_string_panel(this)), f_note(new Tvx_label(this)),
      f_params(new Tvx_txt_params_edit(this, Tvx_txt_params_edit::ticks::yes)),
      f_preview(new Tvx_txt_preview(this))
{
    SetBounds(GetLeft(), GetTop(), c_width, c_height);
    GetConstraints()->SetMinWidth(c_width);
    GetConstraints()->SetMinHeight(c_height);
    TWinControl *content = get_content_panel();
    f_name->SetParent(content);
    set_margins(f_name);
    f_name->SetAlign(alTop);
    f_note->SetParent(content);
    f_note->SetAutoSize(false);
    f_note->SetWordWrap(true);
    f_note->SetLayout(tlCenter);
    f_note->SetBounds(0, f_name->GetHeight() + c_margin, content->GetClientWidth(), c_note_height);
    set_margins(f_note);
    f_note->SetAlign(alTop);
    f_params->SetParent(content);
    f_params->SetAlign(alClient);
    f_preview->SetParent(content);
    f_preview->SetHeight(c_preview_height);
    set_margins(f_preview);
    f_preview->SetAlign(alBottom);
    f_preview->set_txt_style(f_params->get_txt_style());
    f_params->on_changed = make_closure<&Tvx_txt_common_dlg::on_params_changed>(this);
}

void Tvx_txt_common_dlg::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_scn_dlg_common));
    f_name->set_caption(vx_res_get_wstr(c_scn_common_name));
    f_note->SetCaption(vx_res_get_wstr(c_scn_common_note));
    f_params->load_res();
    f_preview->set_sample(vx_res_get_wstr(c_scn_sample_text));
}

void Tvx_txt_common_dlg::set_manager(void *mngr)
{
    std::wstring name;
    vx_stl_mngr_get_name_w(mngr, Tvx_std_wstring_adapter(name));
    f_name->set_string(name.c_str());
    f_params->set_txt_style(txt_style_of(vx_stl_mngr_get_simple_sp_ptr(mngr), false));
    f_params->update_controls();
}

void Tvx_txt_common_dlg::write_to(void *mngr) const
{
    vx_stl_mngr_set_name_w(mngr, f_name->get_wstring().c_str());
    for (std::size_t i = 0; i < c_txt_field_count; ++i) {
        auto const field = txt_field(i);
        if (!f_params->is_ticked(field))
            continue;
        for_each_stl_prm(mngr, [&](void *stl_prm) {
            copy_txt_field(field, txt_style_of(stl_prm, false), f_params->get_txt_style());
            // The colour of the letters is what tells a selected text.
            if (field != txt_field::color)
                copy_txt_field(field, txt_style_of(stl_prm, true), f_params->get_txt_style());
        });
    }
}

void Tvx_txt_common_dlg::on_params_changed(TObject * /*sender*/)
{
    f_preview->Invalidate();
}
