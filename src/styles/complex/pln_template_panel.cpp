#include "styles/complex/pln_template_panel.h"

Tvx_pln_template_panel::Tvx_pln_template_panel(TComponent *owner)
    : Tvx_cpx_panel(owner), f_grid(new Tvx_pln_template_grid(this))
{
    f_grid->SetParent(this);
    f_grid->SetAlign(alClient);
    f_grid->on_changed = make_closure<&Tvx_pln_template_panel::on_grid_changed>(this);
}

void Tvx_pln_template_panel::on_grid_changed(TObject * /*sender*/)
{
    on_changed(this);
}
