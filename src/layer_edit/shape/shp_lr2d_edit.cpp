#include "layer_edit/shape/shp_lr2d_edit.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr_list.h"

void Tvx_shp_lr2d_edit::create()
{
    Tvx_basic_lr2d_edit::create();
    SetAutoSize(true);
    f_list_edit = new Tvx_style_stl_mngr_list_edit(this, false);
    f_list_edit->SetParent(this);
    f_list_edit->create();
    f_list_edit->SetAlign(alTop);
    f_list_edit->on_changed = make_closure<&Tvx_shp_lr2d_edit::on_stl_mngr_list_active_changed>(this);
}

void Tvx_shp_lr2d_edit::take_stl_mngr_edit(Tvx_typed_stl_mngr_edit *edit, void *(*own_mngr)(Ivx_layer *layer))
{
    DisableAlign();
    f_edit = edit;
    f_own_mngr = own_mngr;
    edit->SetParent(this);
    edit->create();
    edit->rule_enabled(true);
    edit->SetAlign(alClient);
    bind_data(edit);
    edit->set_on_edit_value_item(make_closure<&Tvx_shp_lr2d_edit::on_edit_value_item>(this));
    EnableAlign();
}

void Tvx_shp_lr2d_edit::load_res()
{
    f_list_edit->load_res();
    f_edit->load_res();
}

void Tvx_shp_lr2d_edit::update_controls()
{
    Ivx_layer *const layer = get_lr2d();
    close_former_table();
    void *const list = layer ? vx_shp_lr2d_get_style_mngr_list_ptr(layer) : nullptr;
    f_list_edit->set_stl_mngr_list(list);
    f_list_edit->set_lr2d(layer);
    f_list_edit->update_controls();
    if (layer)
        f_edit->enable_selection_style(vx_lr_get_own_selected_style_flag(layer));
    f_edit->set_stl_mngr(list ? vx_stl_mngr_list_get_active_mngr(list) : layer ? f_own_mngr(layer) : nullptr);
    f_edit->set_lr(layer);
    f_edit->update_controls();
}

void Tvx_shp_lr2d_edit::end_edit(bool taken)
{
    f_edit->end_edit(taken);
}

void Tvx_shp_lr2d_edit::on_stl_mngr_list_active_changed(TObject * /*sender*/)
{
    update_controls();
}

bool Tvx_shp_lr2d_edit::on_edit_value_item(std::wstring &text)
{
    if (!get_lr2d())
        return false;
    vx::owned<void, &vx_calc_filter_destroy> const filter(vx_calc_filter_create());
    vx_calc_filter_from_str(filter.get(), text.c_str());
    if (!vx_attr_filter_dialog(filter.get(), vx_lr2d_get_data_ptr(get_lr2d())))
        return false;
    vx_calc_filter_to_str(filter.get(), Tvx_std_wstring_adapter(text));
    return true;
}

// ---- the pages of each geometry

void Tvx_shp_pnt_lr2d_edit::create()
{
    Tvx_shp_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_pnt_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit, &vx_shp_pnt_lr2d_get_stl_mngr_ptr);
    f_stl_mngr_edit->on_changed = make_closure<&Tvx_shp_pnt_lr2d_edit::on_pnt_stl_mngr_changed>(this);
}

void Tvx_shp_pnt_lr2d_edit::on_pnt_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}

void Tvx_shp_pln_lr2d_edit::create()
{
    Tvx_shp_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_pln_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit, &vx_shp_pln_lr2d_get_stl_mngr_ptr);
    f_stl_mngr_edit->on_changed = make_closure<&Tvx_shp_pln_lr2d_edit::on_pln_stl_mngr_changed>(this);
}

void Tvx_shp_pln_lr2d_edit::on_pln_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}

void Tvx_shp_pgn_lr2d_edit::create()
{
    Tvx_shp_lr2d_edit::create();
    f_stl_mngr_edit = new Tvx_pgn_stl_mngr_edit(this);
    take_stl_mngr_edit(f_stl_mngr_edit, &vx_shp_pgn_lr2d_get_stl_mngr_ptr);
    f_stl_mngr_edit->on_changed = make_closure<&Tvx_shp_pgn_lr2d_edit::on_pgn_stl_mngr_changed>(this);
}

void Tvx_shp_pgn_lr2d_edit::on_pgn_stl_mngr_changed(TObject * /*sender*/)
{
    report_change();
}
