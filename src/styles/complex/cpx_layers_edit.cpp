#include "styles/complex/cpx_layers_edit.h"

#include "captions/complex.h"

Tvx_cpx_layers_edit::Tvx_cpx_layers_edit(TComponent *owner)
    : Tvx_cpx_framed_panel(owner, c_cpx_layers), f_grid(new Tvx_cpx_layers_grid(this))
{
    f_grid->SetParent(get_frame());
    f_grid->SetAlign(alClient);
    f_grid->on_changed = make_closure<&Tvx_cpx_layers_edit::on_grid_changed>(this);
}

void Tvx_cpx_layers_edit::load_res()
{
    Tvx_cpx_framed_panel::load_res();
    f_grid->load_res();
}

void Tvx_cpx_layers_edit::on_grid_changed(TObject * /*sender*/)
{
    on_changed(this);
}
