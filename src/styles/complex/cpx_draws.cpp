#include "styles/complex/cpx_draws.h"

#include "captions/complex.h"

Tvx_cpx_layers_draw::Tvx_cpx_layers_draw(TComponent *owner)
    : Tvx_cpx_framed_panel(owner, c_cpx_style_sample), f_paint(new Tvx_cpx_layers_paint(this))
{
    f_paint->SetParent(get_frame());
    f_paint->SetAlign(alClient);
}

Tvx_cpx_layer_draw::Tvx_cpx_layer_draw(TComponent *owner)
    : Tvx_cpx_framed_panel(owner, c_cpx_layer_sample), f_paint(new Tvx_cpx_layer_paint(this))
{
    f_paint->SetParent(get_frame());
    f_paint->SetAlign(alClient);
}
