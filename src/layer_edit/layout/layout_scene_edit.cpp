#include "layer_edit/layout/layout_scene_edit.h"

#include "captions/layer_edit.h"
#include "layer_edit/layout/layout_rows_priv.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_prj.h"

namespace {
constexpr int c_height = 80;
constexpr int c_scale_height = 20;
constexpr int c_edit_width = 200;
/// Scales up to this one have decimals.
constexpr double c_last_fine_scale = 10.0;
constexpr int c_fine_precision = 3;

int precision_of(double scale)
{
    return scale > c_last_fine_scale ? 0 : c_fine_precision;
}

void show(Tvx_size_panel *panel, double scale)
{
    panel->set_precision(precision_of(scale));
    panel->set_size(scale);
}
} // namespace

Tvx_layout_scene_edit::Tvx_layout_scene_edit(TComponent *owner)
    : Tvx_basic_lr2d_edit(owner), f_scene_prop(vx::layout_rows::add_entities(this))
{
    f_scene_prop->on_changed = make_closure<&Tvx_layout_scene_edit::on_scn_prop_changed>(this);
    take_scenes();
    f_scale_x = add_scale();
    f_scale_y = add_scale();
    SetHeight(c_height);
}

Tvx_size_panel *Tvx_layout_scene_edit::add_scale()
{
    auto *const panel = new Tvx_size_panel(this);
    vx::layout_rows::place(panel, this);
    panel->set_precision(0);
    panel->set_text_width(vx::layout_rows::c_caption_width);
    panel->set_edt_ctrl_width(c_edit_width);
    panel->SetHeight(c_scale_height);
    panel->on_changed = make_closure<&Tvx_layout_scene_edit::on_scn_scale_changed>(this);
    panel->on_apply = make_closure<&Tvx_layout_scene_edit::on_scale_apply>(this);
    return panel;
}

/// Lists of plug-ins come and go, so they are looked up each time the choice is read.
void Tvx_layout_scene_edit::take_scenes()
{
    auto *const project = vx_prj_get_instance();
    f_scene_prop->set_entities(nullptr);
    f_scene_prop->add_entities(vx_scns_2d_safe_upcast(vx_prj_get_scns_2d_ptr(project)));
    for (int i = 0; i < vx_prj_get_plugin_scns_2d_count(project); ++i)
        f_scene_prop->add_entities(vx_scns_2d_safe_upcast(vx_prj_get_plugin_scns_2d_ptr(project, i)));
    f_scene_prop->set_on_data_open(make_closure<&Tvx_layout_scene_edit::on_scenes_open>(this));
}

bool Tvx_layout_scene_edit::on_scenes_open(TObject * /*sender*/)
{
    take_scenes();
    return true;
}

void Tvx_layout_scene_edit::load_res()
{
    f_scene_prop->set_caption(vx_res_get_wstr(c_caption_layout_scene));
    f_scale_x->set_text(vx_res_get_wstr(c_caption_layout_scale));
    f_scale_y->set_text(L" ");
    f_scale_y->get_edit()->SetAccessibleName(vx_res_get_wstr(c_caption_layout_scale_y));
}

void Tvx_layout_scene_edit::update_controls()
{
    if (!f_lr2d)
        return;
    vx::layout_rows::show_name(f_scene_prop, f_lr2d);
    show_scale();
}

void Tvx_layout_scene_edit::show_scale()
{
    double x = 0;
    double y = 0;
    vx_layout_scene_frame_lr2d_get_scale(f_lr2d, &x, &y);
    show(f_scale_x, x);
    show(f_scale_y, y);
    auto const *const scene = vx_layout_scene_frame_lr2d_get_scene(f_lr2d);
    f_scale_y->set_enabled(scene && !vx_scn_2d_get_izotropic(scene));
}

void Tvx_layout_scene_edit::on_scn_prop_changed(TObject * /*sender*/)
{
    if (!vx::layout_rows::take_name(f_scene_prop, f_lr2d))
        return;
    show_scale(); // the other scene may have one scale where the former had two
    call_changed();
}

void Tvx_layout_scene_edit::on_scn_scale_changed(TObject *sender)
{
    if (!f_lr2d)
        return;
    bool const has_two = f_scale_y->get_edit()->GetEnabled();
    double const x = f_scale_x->get_size();
    double const y = has_two ? f_scale_y->get_size() : x;
    vx_layout_scene_frame_lr2d_set_scale(f_lr2d, x, y);
    // Decimals can be typed as soon as the number has come down to where they count.
    auto *const typed = sender == f_scale_y ? f_scale_y : f_scale_x;
    typed->set_precision(precision_of(typed->get_size()));
    if (!has_two) {
        double now = 0;
        vx_layout_scene_frame_lr2d_get_scale(f_lr2d, nullptr, &now);
        show(f_scale_y, now); // which what cannot be a scale has not changed
    }
    call_changed();
}

/// What could not be a scale gives way to the one in force.
void Tvx_layout_scene_edit::on_scale_apply(TObject * /*sender*/)
{
    if (f_lr2d)
        show_scale();
}
