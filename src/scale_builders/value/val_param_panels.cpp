#include "scale_builders/value/val_param_panels.h"

#include "captions/builders.h"
#include "scale_builders/common/detail/rows.h"
#include "scale_builders/value/val_params.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_stl_mngr.h"

namespace builders = vx::builders;

namespace {
void offer_fields(Tvx_prp_scale *choice, void const *stl_mngr, Tvx_data_events const &data)
{
    choice->set_on_data_open(data.open);
    choice->set_on_data_close(data.close);
    choice->set_on_data_get_np(data.get_np);
    choice->set_on_data_get_prop(data.get_prop);
    choice->set_on_data_get_capt_prop(data.get_capt_prop);
    choice->set_prop_name(UnicodeString(vx_stl_mngr_get_val_prop_name(stl_mngr)).c_str());
    choice->update_controls();
}

std::string chosen_field(Tvx_prp_scale const *choice)
{
    return vx::text::to_bytes(choice->get_prop_name());
}

Tvx_vcl_check_box *add_box(TWinControl *group)
{
    auto *const box = new Tvx_vcl_check_box(group);
    builders::put_row(box, group);
    return box;
}
} // namespace

// ---- anew

void Tvx_vcl_val_rebuild_params_panel::create()
{
    Tvx_vcl_panel::create();
    f_group = builders::add_group(this);
    f_prp_scale = builders::add_row<Tvx_prp_scale>(f_group);
}

void Tvx_vcl_val_rebuild_params_panel::load_rc()
{
    f_group->SetText(vx_res_get_wstr(c_bld_parameters));
    f_prp_scale->set_caption(vx_res_get_wstr(c_bld_captions_from));
}

void Tvx_vcl_val_rebuild_params_panel::set_params(void *stl_mngr, Tvx_data_events const &data)
{
    offer_fields(f_prp_scale, stl_mngr, data);
}

bool Tvx_vcl_val_rebuild_params_panel::fill_params(Tvx_val_params_rebuild *params) const
{
    params->set_capt_propname(chosen_field(f_prp_scale));
    return true;
}

// ---- up to date

void Tvx_vcl_val_modify_params_panel::create()
{
    Tvx_vcl_panel::create();
    f_group = builders::add_group(this);
    f_add_box = add_box(f_group);
    f_add_box->SetChecked(true);
    f_del_box = add_box(f_group);
    f_capt_box = add_box(f_group);
    f_prp_scale = builders::add_row<Tvx_prp_scale>(f_group);
    f_prp_scale->set_enabled(false);
    f_capt_box->OnClick = make_closure<&Tvx_vcl_val_modify_params_panel::on_capt_box_click>(this);
}

void Tvx_vcl_val_modify_params_panel::load_rc()
{
    f_group->SetText(vx_res_get_wstr(c_bld_parameters));
    f_add_box->SetText(vx_res_get_wstr(c_bld_add));
    f_del_box->SetText(vx_res_get_wstr(c_bld_del));
    f_capt_box->SetText(vx_res_get_wstr(c_bld_capt));
    f_prp_scale->set_caption(vx_res_get_wstr(c_bld_captions_from));
}

void Tvx_vcl_val_modify_params_panel::set_params(void *stl_mngr, Tvx_data_events const &data)
{
    offer_fields(f_prp_scale, stl_mngr, data);
}

bool Tvx_vcl_val_modify_params_panel::fill_params(Tvx_val_params_modify *params) const
{
    params->set_add_flag(f_add_box->GetChecked());
    params->set_del_flag(f_del_box->GetChecked());
    params->set_capt_flag(f_capt_box->GetChecked());
    params->set_capt_propname(chosen_field(f_prp_scale));
    return true;
}

void Tvx_vcl_val_modify_params_panel::on_capt_box_click(TObject * /*sender*/)
{
    f_prp_scale->set_enabled(f_capt_box->GetChecked());
}
