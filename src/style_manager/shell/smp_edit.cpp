#include "style_manager/shell/smp_edit.h"

#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/new_on.h"

void Tvx_smp_edit::create()
{
    f_style_panel = vx_new_on<Tvx_style_panel>(this, this);
    f_style_panel->create();
    f_style_panel->SetAlign(alTop);
    f_style_panel->on_changed = make_closure<&Tvx_smp_edit::on_child_changed>(this);
    f_avl_panel = vx_new_on<Tvx_style_avl_panel>(this, this);
    f_avl_panel->create();
    f_avl_panel->SetAlign(alBottom);
    f_avl_panel->on_changed = make_closure<&Tvx_smp_edit::on_child_changed>(this);
}

void Tvx_smp_edit::load_res()
{
    f_style_panel->load_res();
    f_avl_panel->load_res();
}

void Tvx_smp_edit::update_controls()
{
    f_style_panel->set_stl_prm(f_stl_mngr ? vx_stl_mngr_get_simple_sp_ptr(f_stl_mngr) : nullptr);
    f_style_panel->update_controls();
    f_avl_panel->set_stl_mngr(f_stl_mngr);
    f_avl_panel->update_controls();
}

void Tvx_smp_edit::on_child_changed(TObject * /*sender*/)
{
    on_changed(this);
}
