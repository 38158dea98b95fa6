#include "raster_property/property/tos_2crd_lr2d_edit.h"

#include "platform/base/string_adp.h"
#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/new_on.h"

void Tvx_tos_2crd_lr2d_edit::create()
{
    f_xycrd_panel = vx_new_on<Tvx_tos_prp_crd_panel>(this, this);
    f_xycrd_panel->create();
    f_xycrd_panel->SetAlign(alTop);
    f_xycrd_panel->set_on_data_open(make_closure<&Tvx_tos_lr2d_edit::on_data_open>(this));
    f_xycrd_panel->set_on_data_close(make_closure<&Tvx_tos_lr2d_edit::on_data_close>(this));
    f_xycrd_panel->set_on_data_get_np(make_closure<&Tvx_tos_lr2d_edit::on_data_get_np>(this));
    f_xycrd_panel->set_on_data_get_prop(make_closure<&Tvx_tos_lr2d_edit::on_data_get_prop>(this));
    f_xycrd_panel->set_on_data_get_capt_prop(make_closure<&Tvx_tos_lr2d_edit::on_data_get_capt_prop>(this));
    f_xycrd_panel->on_changed = make_closure<&Tvx_tos_2crd_lr2d_edit::on_xycrd_changed>(this);
    // What changes in the manager waits for Apply, which takes the whole layer.
    f_stl_mngr_edit = vx_new_on<Tvx_pnt_stl_mngr_edit>(this, this);
    f_stl_mngr_edit->create();
    f_stl_mngr_edit->SetAlign(alClient);
    feed(f_stl_mngr_edit);
}

void Tvx_tos_2crd_lr2d_edit::load_res()
{
    f_xycrd_panel->load_res();
    f_stl_mngr_edit->load_res();
}

void Tvx_tos_2crd_lr2d_edit::update_controls()
{
    let_go_of_former_file();
    Ivx_layer *const layer = get_tos_2crd_lr2d();
    vx_tos_2crd_lr2d_get_wprop_name_x(layer, Tvx_std_wstring_adapter(f_xycrd_panel->prop_name_x));
    vx_tos_2crd_lr2d_get_wprop_name_y(layer, Tvx_std_wstring_adapter(f_xycrd_panel->prop_name_y));
    void *const mngr = vx_tos_2crd_lr2d_get_stl_mngr(layer);
    if (layer) {
        f_stl_mngr_edit->enable_selection_style(vx_lr_get_own_selected_style_flag(layer));
        vx_stl_mngr_set_need_scale(mngr, false);
    }
    f_stl_mngr_edit->set_pnt_stl_mngr(mngr);
    f_stl_mngr_edit->set_lr(layer);
    f_xycrd_panel->update_controls();
    f_stl_mngr_edit->update_controls();
}

void Tvx_tos_2crd_lr2d_edit::end_edit(bool taken)
{
    f_stl_mngr_edit->end_edit(taken);
}

void Tvx_tos_2crd_lr2d_edit::on_xycrd_changed(TObject * /*sender*/)
{
    Ivx_layer *const layer = get_tos_2crd_lr2d();
    if (!layer)
        return;
    vx_tos_2crd_lr2d_set_wprop_name_x(layer, f_xycrd_panel->prop_name_x.c_str());
    vx_tos_2crd_lr2d_set_wprop_name_y(layer, f_xycrd_panel->prop_name_y.c_str());
    call_changed();
}
