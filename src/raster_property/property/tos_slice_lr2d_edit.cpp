#include "raster_property/property/tos_slice_lr2d_edit.h"

#include "captions/property_layers.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_caption_width = 120;
}

void Tvx_tos_slice_lr2d_edit::create()
{
    f_slice_panel = vx_new_on<Tvx_fast_int_panel>(this, this);
    f_slice_panel->SetAlign(alTop);
    f_slice_panel->set_min(0);
    f_slice_panel->set_caption_width(c_caption_width);
    f_slice_panel->on_changed = make_closure<&Tvx_tos_slice_lr2d_edit::on_slice_changed>(this);
}

void Tvx_tos_slice_lr2d_edit::load_res()
{
    f_slice_panel->set_caption(vx_res_get_wstr(c_tos_slice));
}

void Tvx_tos_slice_lr2d_edit::update_controls()
{
    let_go_of_former_file();
    Ivx_layer *const layer = get_tos_slice_lr2d();
    if (layer)
        f_slice_panel->set_max(vx_tos_slice_lr2d_get_zslice_count(layer) - 1);
    f_slice_panel->set_position(layer ? vx_tos_slice_lr2d_get_zslice(layer) : 0);
    f_slice_panel->update_controls();
}

void Tvx_tos_slice_lr2d_edit::on_slice_changed(TObject * /*sender*/)
{
    Ivx_layer *const layer = get_tos_slice_lr2d();
    if (!layer)
        return;
    vx_tos_slice_lr2d_set_zslice(layer, f_slice_panel->get_position());
    call_changed();
}
