#include "layer_edit/layout/layout_image_edit.h"

#include "captions/layer_edit.h"
#include "layer_edit/layout/layout_rows_priv.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_lr2d.h"

Tvx_layout_image_edit::Tvx_layout_image_edit(TComponent *owner)
    : Tvx_basic_lr2d_edit(owner), f_file(new Tvx_file_panel(this))
{
    vx::layout_rows::place(f_file, this);
    f_file->set_caption_width(vx::layout_rows::c_caption_width);
    f_file->on_changed = make_closure<&Tvx_layout_image_edit::on_image_file_changed>(this);
}

void Tvx_layout_image_edit::load_res()
{
    f_file->load_res();
    f_file->set_caption(vx_res_get_wstr(c_caption_layout_picture));
    f_file->set_filter(vx_res_get_wstr(c_caption_layout_picture_filter));
}

void Tvx_layout_image_edit::update_controls()
{
    if (!f_lr2d)
        return;
    f_file->set_wfilename(vx::layout_rows::name_of(f_lr2d).c_str());
    f_file->update_controls();
}

void Tvx_layout_image_edit::on_image_file_changed(TObject * /*sender*/)
{
    if (!f_lr2d)
        return;
    vx_lr2d_set_wfilename(f_lr2d, f_file->get_wfilename().c_str());
    call_changed();
}
