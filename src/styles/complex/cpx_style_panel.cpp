#include "styles/complex/cpx_style_panel.h"

Tvx_cpx_style_panel::Tvx_cpx_style_panel(TComponent *owner)
    : Tvx_cpx_panel(owner), f_own_pnt(vx_cpx_pnt_style_create()), f_own_pln(vx_cpx_pln_style_create()),
      f_own_pgn(vx_cpx_pgn_style_create()), f_layers_panel(new Tvx_cpx_layers_panel(this)),
      f_layer_panel(new Tvx_cpx_layer_panel(this))
{
    f_layers_panel->SetParent(this);
    f_layers_panel->SetAlign(alTop);
    f_layers_panel->on_changed = make_closure<&Tvx_cpx_style_panel::on_cpx_layers_changed>(this);
    f_layer_panel->SetParent(this);
    f_layer_panel->SetAlign(alClient);
    f_layer_panel->on_changed = make_closure<&Tvx_cpx_style_panel::on_cpx_layer_changed>(this);
}

void Tvx_cpx_style_panel::load_res()
{
    f_layers_panel->load_res();
    f_layer_panel->load_res();
}

void Tvx_cpx_style_panel::update_controls()
{
    f_layers_panel->set_style(f_style);
    f_layers_panel->update_controls();
    on_cpx_layers_changed(this);
}

void Tvx_cpx_style_panel::Resize()
{
    Tvx_cpx_panel::Resize();
    if (f_layers_panel)
        f_layers_panel->SetHeight(GetHeight() / 3);
}

void Tvx_cpx_style_panel::set_cpx_pnt_style(void const *style)
{
    f_style = f_own_pnt.get();
    vx_cpx_style_assign(f_style, style);
}

void Tvx_cpx_style_panel::set_cpx_pln_style(void const *style)
{
    f_style = f_own_pln.get();
    vx_cpx_style_assign(f_style, style);
}

void Tvx_cpx_style_panel::set_cpx_pgn_style(void const *style)
{
    f_style = f_own_pgn.get();
    vx_cpx_style_assign(f_style, style);
}

void Tvx_cpx_style_panel::get_cpx_pnt_style(void *style) const
{
    vx_cpx_style_assign(style, f_own_pnt.get());
}

void Tvx_cpx_style_panel::get_cpx_pln_style(void *style) const
{
    vx_cpx_style_assign(style, f_own_pln.get());
}

void Tvx_cpx_style_panel::get_cpx_pgn_style(void *style) const
{
    vx_cpx_style_assign(style, f_own_pgn.get());
}

void Tvx_cpx_style_panel::on_cpx_layers_changed(TObject * /*sender*/)
{
    f_layer_panel->set_style_lr(f_layers_panel->get_active_lr());
    f_layer_panel->update_controls();
}

void Tvx_cpx_style_panel::on_cpx_layer_changed(TObject * /*sender*/)
{
    f_layers_panel->update_controls();
}
