#include "raster_property/property/tos_grid_1d_lr2d_edit.h"

#include "captions/property_layers.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_caption_width = 120;
}

Tvx_panel *Tvx_tos_grid_1d_lr2d_edit::add_tab()
{
    auto *const sheet = new Tvx_tab_sheet(this);
    sheet->SetPageControl(f_pages);
    auto *const panel = vx_new_on<Tvx_panel>(sheet, this);
    panel->SetAlign(alClient);
    return panel;
}

void Tvx_tos_grid_1d_lr2d_edit::create()
{
    f_pages = vx_new_on<Tvx_page_control>(this, this);
    f_pages->SetAlign(alClient);
    f_hprop_edit = vx_new_on<Tvx_prop_edit>(add_tab(), this);
    f_hprop_edit->create();
    f_hprop_edit->SetAlign(alTop);
    f_hprop_edit->set_capt_width(c_caption_width);
    f_hprop_edit->set_forbid_empty(false);
    f_hprop_edit->set_on_data_open(make_closure<&Tvx_tos_lr2d_edit::on_data_open>(this));
    f_hprop_edit->set_on_data_close(make_closure<&Tvx_tos_lr2d_edit::on_data_close>(this));
    f_hprop_edit->set_on_data_get_np(make_closure<&Tvx_tos_lr2d_edit::on_data_get_np>(this));
    f_hprop_edit->set_on_data_get_prop(make_closure<&Tvx_tos_lr2d_edit::on_data_get_prop>(this));
    f_hprop_edit->on_changed = make_closure<&Tvx_tos_grid_1d_lr2d_edit::on_hprop_edit_changed>(this);
    f_mngr_edit = vx_new_on<Tvx_grid1d_clr_mngr_edit>(add_tab(), this);
    f_mngr_edit->create();
    f_mngr_edit->SetAlign(alClient);
    f_mngr_edit->on_changed = make_closure<&Tvx_tos_grid_1d_lr2d_edit::on_mngr_edit_changed>(this);
    f_pages->SetActivePageIndex(0);
}

void Tvx_tos_grid_1d_lr2d_edit::load_res()
{
    f_pages->SetAccessibleName(vx_res_get_wstr(c_tos_curve));
    f_pages->GetPages(0)->SetCaption(vx_res_get_wstr(c_tos_height_tab));
    f_pages->GetPages(1)->SetCaption(vx_res_get_wstr(c_tos_line_tab));
    f_hprop_edit->set_caption(vx_res_get_wstr(c_tos_height));
    f_mngr_edit->load_res();
}

void Tvx_tos_grid_1d_lr2d_edit::update_controls()
{
    let_go_of_former_file();
    Ivx_layer *const layer = get_tos_grid_1d_lr2d();
    std::wstring name;
    vx_tos_grid_1d_lr2d_get_height_prp_name(layer, Tvx_std_wstring_adapter(name));
    f_hprop_edit->set_prop_name(name.c_str());
    f_hprop_edit->update_controls();
    f_mngr_edit->set_grid1d_clr_mngr(vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer));
    f_mngr_edit->update_controls();
}

void Tvx_tos_grid_1d_lr2d_edit::on_hprop_edit_changed(TObject * /*sender*/)
{
    Ivx_layer *const layer = get_tos_grid_1d_lr2d();
    if (!layer)
        return;
    vx_tos_grid_1d_lr2d_set_height_prp_name(layer, f_hprop_edit->get_wprop_name().c_str());
    call_changed();
}

void Tvx_tos_grid_1d_lr2d_edit::on_mngr_edit_changed(TObject * /*sender*/)
{
    call_changed();
}
