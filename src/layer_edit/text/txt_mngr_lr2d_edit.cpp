#include "layer_edit/text/txt_mngr_lr2d_edit.h"

#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_txt_settings.h"

// ---- strip and editor

void Tvx_txt_mngr_parts::create(Tvx_panel *page, Tvx_txt_stl_mngr_edit *edit, TNotifyEvent active_changed)
{
    page->SetAutoSize(true);
    f_list_edit = new Tvx_txt_stl_mngr_list_edit(page, true);
    f_list_edit->SetParent(page);
    f_list_edit->create();
    f_list_edit->SetAlign(alTop);
    f_list_edit->on_changed = active_changed;
    page->DisableAlign();
    f_edit = edit;
    edit->SetParent(page);
    edit->create();
    edit->SetAlign(alClient);
    page->EnableAlign();
}

void Tvx_txt_mngr_parts::load_res()
{
    f_list_edit->load_res();
    f_edit->load_res();
}

void Tvx_txt_mngr_parts::show_list(Ivx_layer *layer, void *settings)
{
    f_list_edit->set_lr2d(layer);
    f_list_edit->set_stl_mngr_list(vx_txt_settings_get_stl_mngr_list(settings));
    f_list_edit->update_controls();
}

void Tvx_txt_mngr_parts::show_mngr()
{
    void *const list = f_list_edit->get_stl_mngr_list();
    f_edit->enable_selection_style(false);
    f_edit->set_stl_mngr(vx_stl_mngr_list_get_active_mngr(list));
    // What it reads may take a while, in which the user can close the page.
    auto const life = f_edit->Life();
    f_edit->update_controls();
    if (!life.expired() && list && f_list_edit->get_stl_mngr_list() == list)
        f_edit->SetVisible(vx_stl_mngr_list_get_visible(list));
}

// ---- vector layers

void Tvx_txt_shp_mngr_lr2d_edit::take_stl_mngr_edit(Tvx_txt_stl_mngr_edit *edit)
{
    f_parts.create(this, edit,
                   make_closure<&Tvx_txt_shp_mngr_lr2d_edit::on_stl_mngr_list_active_changed>(this));
    bind_data(edit);
}

void Tvx_txt_shp_mngr_lr2d_edit::load_res()
{
    f_parts.load_res();
}

void Tvx_txt_shp_mngr_lr2d_edit::update_controls()
{
    close_former_table();
    Ivx_layer *const layer = get_shp_lr2d();
    f_parts.show_list(layer, layer ? vx_shp_lr2d_get_txt_settings(layer) : nullptr);
    f_parts.show_mngr();
}

void Tvx_txt_shp_mngr_lr2d_edit::end_edit(bool taken)
{
    f_parts.end_edit(taken);
}

void Tvx_txt_shp_mngr_lr2d_edit::on_stl_mngr_list_active_changed(TObject * /*sender*/)
{
    update_controls();
}

void Tvx_txt_pnt_mngr_lr2d_edit::create()
{
    Tvx_txt_shp_mngr_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_txt_pnt_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit);
    f_stl_mngr_edit->on_changed =
        make_closure<&Tvx_txt_pnt_mngr_lr2d_edit::on_txt_pnt_stl_mngr_changed>(this);
}

void Tvx_txt_pnt_mngr_lr2d_edit::on_txt_pnt_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}

void Tvx_txt_pln_mngr_lr2d_edit::create()
{
    Tvx_txt_shp_mngr_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_txt_pln_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit);
    f_stl_mngr_edit->on_changed =
        make_closure<&Tvx_txt_pln_mngr_lr2d_edit::on_txt_pln_stl_mngr_changed>(this);
}

void Tvx_txt_pln_mngr_lr2d_edit::on_txt_pln_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}

void Tvx_txt_pgn_mngr_lr2d_edit::create()
{
    Tvx_txt_shp_mngr_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_txt_pgn_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit);
    f_stl_mngr_edit->on_changed =
        make_closure<&Tvx_txt_pgn_mngr_lr2d_edit::on_txt_pgn_stl_mngr_changed>(this);
}

void Tvx_txt_pgn_mngr_lr2d_edit::on_txt_pgn_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}

// ---- two coordinates

void Tvx_txt_tos_2crd_mngr_lr2d_edit::create()
{
    Tvx_basic_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_txt_tos_2crd_stl_mngr_edit(this);
    f_parts.create(this, f_stl_mngr_edit,
                   make_closure<&Tvx_txt_tos_2crd_mngr_lr2d_edit::on_stl_mngr_list_active_changed>(this));
    f_prop_work.on_get_tos_lr2d = make_closure<&Tvx_txt_tos_2crd_mngr_lr2d_edit::layer_of_data>(this);
    auto *const work = &f_prop_work;
    f_stl_mngr_edit->set_on_data_open(make_closure<&Tvx_tos_prop_work::on_data_open>(work));
    f_stl_mngr_edit->set_on_data_close(make_closure<&Tvx_tos_prop_work::on_data_close>(work));
    f_stl_mngr_edit->set_on_data_get_np(make_closure<&Tvx_tos_prop_work::on_data_get_np>(work));
    f_stl_mngr_edit->set_on_data_get_no(make_closure<&Tvx_tos_prop_work::on_data_get_no>(work));
    f_stl_mngr_edit->set_on_data_get_prop(make_closure<&Tvx_tos_prop_work::on_data_get_prop>(work));
    f_stl_mngr_edit->set_on_data_get_stat({});
    f_stl_mngr_edit->set_on_data_get_str(make_closure<&Tvx_tos_prop_work::on_data_get_str>(work));
    f_stl_mngr_edit->set_on_data_get_val(make_closure<&Tvx_tos_prop_work::on_data_get_val>(work));
    f_stl_mngr_edit->on_changed =
        make_closure<&Tvx_txt_tos_2crd_mngr_lr2d_edit::on_txt_tos_2crd_stl_mngr_changed>(this);
}

void Tvx_txt_tos_2crd_mngr_lr2d_edit::load_res()
{
    f_parts.load_res();
}

void Tvx_txt_tos_2crd_mngr_lr2d_edit::update_controls()
{
    Ivx_layer *const layer = get_tos_lr2d();
    f_parts.show_list(layer, layer ? vx_tos_2crd_lr2d_get_txt_settings(layer) : nullptr);
    f_parts.show_mngr();
}

void Tvx_txt_tos_2crd_mngr_lr2d_edit::end_edit(bool taken)
{
    f_parts.end_edit(taken);
}

void Tvx_txt_tos_2crd_mngr_lr2d_edit::on_stl_mngr_list_active_changed(TObject * /*sender*/)
{
    update_controls();
}

void Tvx_txt_tos_2crd_mngr_lr2d_edit::on_txt_tos_2crd_stl_mngr_changed(TObject * /*sender*/)
{
    if (get_lr2d())
        call_changed();
}
