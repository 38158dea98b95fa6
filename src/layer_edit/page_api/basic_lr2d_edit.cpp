#include "layer_edit/page_api/basic_lr2d_edit.h"

Tvx_basic_lr2d_edit::Tvx_basic_lr2d_edit(TComponent *owner) : Tvx_panel(owner)
{
}

Tvx_basic_lr2d_edit::~Tvx_basic_lr2d_edit() = default;

void Tvx_basic_lr2d_edit::call_changed()
{
    on_changed(this);
}
