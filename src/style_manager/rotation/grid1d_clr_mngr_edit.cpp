#include "style_manager/rotation/grid1d_clr_mngr_edit.h"

#include "styles/preview/style_example.h"
#include "styles/simple/style_dialog.h"

#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_style.h"

void Tvx_grid1d_clr_mngr_edit::create()
{
    f_smp_edit = new Tvx_smp_edit(this);
    f_smp_edit->SetParent(this);
    f_smp_edit->create();
    f_smp_edit->SetAlign(alClient);
    f_smp_edit->on_changed = make_closure<&Tvx_grid1d_clr_mngr_edit::on_smp_edit_changed>(this);
    set_on_draw_style(make_closure<&Tvx_grid1d_clr_mngr_edit::on_self_draw_style>(this));
    set_on_edit_style(make_closure<&Tvx_grid1d_clr_mngr_edit::on_self_edit_style>(this));
    update_controls();
}

void Tvx_grid1d_clr_mngr_edit::load_res()
{
    f_smp_edit->load_res();
}

void Tvx_grid1d_clr_mngr_edit::update_controls()
{
    f_smp_edit->set_stl_mngr(f_mngr);
    if (f_mngr)
        f_smp_edit->SetVisible(true);
    f_smp_edit->update_controls();
    if (!f_mngr)
        f_smp_edit->SetVisible(false);
}

void Tvx_grid1d_clr_mngr_edit::set_on_draw_style(Tvx_draw_style_event event)
{
    f_smp_edit->set_on_draw_style(event);
}

void Tvx_grid1d_clr_mngr_edit::set_on_edit_style(Tvx_edit_style_event event)
{
    f_smp_edit->set_on_edit_style(event);
}

void Tvx_grid1d_clr_mngr_edit::on_self_draw_style(TObject * /*sender*/, TBitmap *bitmap, void *stl_prm,
                                                  bool sel)
{
    void *const style = vx_stl_prm_get_pln_style_ptr(stl_prm, sel);
    if (!style)
        return;
    vx_pln_style_set_pln_visible(style, true);
    vx_pln_style_example_bmp(style, bitmap);
}

bool Tvx_grid1d_clr_mngr_edit::on_self_edit_style(TObject * /*sender*/, int x, int y, void *stl_prm, bool sel)
{
    return vx_pln_style_dialog(x, y, vx_stl_prm_get_pln_style_ptr(stl_prm, sel));
}

void Tvx_grid1d_clr_mngr_edit::on_smp_edit_changed(TObject * /*sender*/)
{
    if (!f_mngr)
        return;
    update_controls();
    call_changed();
}
