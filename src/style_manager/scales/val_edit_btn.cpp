#include "style_manager/scales/val_edit_btn.h"

Tvx_val_edit_btn::Tvx_val_edit_btn(TComponent *owner) : Tvx_bitbtn(owner)
{
    SetShowHint(true);
    SetEnabled(false);
}
