#include "styles/complex/cpx_layer_panel.h"

namespace {
constexpr int c_draw_width = 200;
} // namespace

Tvx_cpx_layer_panel::Tvx_cpx_layer_panel(TComponent *owner)
    : Tvx_cpx_panel(owner), f_draw(new Tvx_cpx_layer_draw(this)), f_edit(new Tvx_cpx_layer_edit(this))
{
    f_draw->SetParent(this);
    f_draw->SetWidth(c_draw_width);
    f_draw->SetAlign(alLeft);
    f_edit->SetParent(this);
    f_edit->SetAlign(alClient);
    f_edit->on_changed = make_closure<&Tvx_cpx_layer_panel::on_edit_changed>(this);
}

void Tvx_cpx_layer_panel::load_res()
{
    f_draw->load_res();
    f_edit->load_res();
}

void Tvx_cpx_layer_panel::update_controls()
{
    f_draw->update_controls();
    f_edit->update_controls();
}

void Tvx_cpx_layer_panel::set_style_lr(void *layer)
{
    f_style_lr = layer;
    f_draw->set_style_lr(layer);
    f_edit->set_style_lr(layer);
}

void Tvx_cpx_layer_panel::on_edit_changed(TObject * /*sender*/)
{
    f_draw->update_controls();
    on_changed(this);
}
