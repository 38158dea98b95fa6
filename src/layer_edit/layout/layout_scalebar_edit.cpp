#include "layer_edit/layout/layout_scalebar_edit.h"

#include "captions/layer_edit.h"
#include "layer_edit/layout/layout_ids.h"
#include "layer_edit/layout/layout_rows_priv.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_prj.h"

namespace {
constexpr int c_height = 40;
}

Tvx_layout_scalebar_edit::Tvx_layout_scalebar_edit(TComponent *owner)
    : Tvx_basic_lr2d_edit(owner), f_scene_prop(vx::layout_rows::add_entities(this))
{
    f_scene_prop->set_filter(c_layout_scene_frame);
    // A scene from a file is no frame.
    f_scene_prop->set_can_add(false);
    f_scene_prop->on_changed = make_closure<&Tvx_layout_scalebar_edit::on_scn_prop_changed>(this);
    SetHeight(c_height);
}

Ivx_scn_2d *Tvx_layout_scalebar_edit::get_layout() const
{
    auto *const layouts = vx_prj_get_layouts_data_ptr(vx_prj_get_instance());
    for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i)
        if (auto *const layout = vx_scns_2d_get_scn(layouts, i); layout == f_layout)
            return layout;
    return vx_scns_2d_get_active_scn(layouts);
}

/// The layout may have ended by the time the choice is read.
void Tvx_layout_scalebar_edit::take_frames()
{
    f_scene_prop->set_entities(vx_scn_2d_safe_upcast(get_layout()));
    f_scene_prop->set_on_data_open(make_closure<&Tvx_layout_scalebar_edit::on_frames_open>(this));
}

bool Tvx_layout_scalebar_edit::on_frames_open(TObject * /*sender*/)
{
    take_frames();
    return true;
}

void Tvx_layout_scalebar_edit::load_res()
{
    f_scene_prop->set_caption(vx_res_get_wstr(c_caption_layout_frame));
}

void Tvx_layout_scalebar_edit::update_controls()
{
    if (!f_lr2d)
        return;
    f_layout = vx_scns_2d_get_active_scn(vx_prj_get_layouts_data_ptr(vx_prj_get_instance()));
    take_frames();
    vx::layout_rows::show_name(f_scene_prop, f_lr2d);
}

void Tvx_layout_scalebar_edit::on_scn_prop_changed(TObject * /*sender*/)
{
    if (vx::layout_rows::take_name(f_scene_prop, f_lr2d))
        call_changed();
}
