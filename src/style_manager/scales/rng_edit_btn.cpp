#include "style_manager/scales/rng_edit_btn.h"

Tvx_rng_edit_btn::Tvx_rng_edit_btn(TComponent *owner) : Tvx_bitbtn(owner)
{
    SetShowHint(true);
    SetEnabled(false);
}
