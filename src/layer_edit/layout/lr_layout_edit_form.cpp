#include "layer_edit/layout/lr_layout_edit_form.h"

#include "captions/layer_edit.h"
#include "layer_edit/layout/lr_layout_edit.h"

#include "platform/basic/vx_res.h"

Tvx_lr2d_edit *Tvx_lr_layout_edit_form::create_lr2d_edit()
{
    return new Tvx_lr_layout_edit(nullptr);
}

void Tvx_lr_layout_edit_form::load_res()
{
    Tvx_lr2d_edit_form::load_res();
    f_caption = vx_res_get_wstr(c_caption_layout_form_title);
}
