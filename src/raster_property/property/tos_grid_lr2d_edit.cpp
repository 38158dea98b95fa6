#include "raster_property/property/tos_grid_lr2d_edit.h"

#include "captions/property_layers.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/new_on.h"

#include <utility>

namespace {
constexpr int c_caption_width = 120;
}

void Tvx_tos_grid_lr2d_edit::create()
{
    f_draw_type_cb = vx_new_on<Tvx_tos_draw_type_combo_box>(this, this);
    f_draw_type_cb->create();
    f_draw_type_cb->set_caption_width(c_caption_width);
    f_draw_type_cb->SetAlign(alTop);
    f_draw_type_cb->on_changed = make_closure<&Tvx_tos_grid_lr2d_edit::on_draw_type_cb_changed>(this);
    f_scale_panel = vx_new_on<Tvx_panel>(this, this);
    f_scale_panel->SetAlign(alClient);
    f_scale_panel->SetVisible(false);
    f_clr_stl_mngr_edit = vx_new_on<Tvx_clr_stl_mngr_edit>(f_scale_panel, this);
    f_clr_stl_mngr_edit->create();
    f_clr_stl_mngr_edit->SetAlign(alClient);
    f_clr_stl_mngr_edit->on_changed = make_closure<&Tvx_tos_grid_lr2d_edit::on_clr_stl_mngr_changed>(this);
    feed(f_clr_stl_mngr_edit);
    f_interpolate_cb = vx_new_on<Tvx_interpolate_cb>(f_scale_panel, this);
    f_interpolate_cb->create();
    f_interpolate_cb->SetAlign(alBottom);
    f_interpolate_cb->on_changed = make_closure<&Tvx_tos_grid_lr2d_edit::on_interpolate_cb_changed>(this);
    f_channels_panel = vx_new_on<Tvx_panel>(this, this);
    f_channels_panel->SetAlign(alClient);
    // What changes in a channel waits for Apply, which takes the whole layer.
    f_channels_edit = vx_new_on<Tvx_channels_edit>(f_channels_panel, this);
    f_channels_edit->create();
    f_channels_edit->SetAlign(alClient);
    f_channels_edit->set_channel_events(
        {make_closure<&Tvx_tos_lr2d_edit::on_data_open>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_close>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_get_np>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_get_wprop>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_get_capt_wprop>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_get_stat>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_get_histogramm>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_get_channel_stat>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_get_channel_histogramm>(this),
         make_closure<&Tvx_tos_lr2d_edit::on_data_upd_histogramm>(this)});
    f_opacity_panel = vx_new_on<Tvx_fast_int_panel>(this, this);
    f_opacity_panel->set_min(-1);
    f_opacity_panel->set_max(99);
    f_opacity_panel->set_caption_width(c_caption_width);
    f_opacity_panel->SetAlign(alBottom);
    f_opacity_panel->on_changed = make_closure<&Tvx_tos_grid_lr2d_edit::on_opacity_changed>(this);
    update_controls();
}

void Tvx_tos_grid_lr2d_edit::load_res()
{
    f_draw_type_cb->load_res();
    f_clr_stl_mngr_edit->load_res();
    f_interpolate_cb->load_res();
    f_channels_edit->load_res();
    f_channels_edit->set_channel_caption(vx_res_get_wstr(c_tos_channel));
    f_opacity_panel->set_caption(vx_res_get_wstr(c_tos_opacity));
}

void Tvx_tos_grid_lr2d_edit::update_controls()
{
    let_go_of_former_file();
    Ivx_layer *const layer = get_tos_grid_lr2d();
    auto const draw_type =
        static_cast<Tvx_grid_lr2d_draw_type>(layer ? vx_tos_grid_lr2d_get_draw_type(layer) : 0);
    f_draw_type_cb->set_draw_type(draw_type);
    bool const by_scale = draw_type == c_grid_draw_scale;
    if (layer)
        f_clr_stl_mngr_edit->enable_selection_style(vx_lr_get_own_selected_style_flag(layer));
    f_clr_stl_mngr_edit->set_clr_stl_mngr(by_scale ? vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer) : nullptr);
    f_clr_stl_mngr_edit->set_lr(layer);
    // What it reads may take a while, in which the page can end, or get another layer and be shown anew.
    auto const life = Life();
    f_clr_stl_mngr_edit->update_controls();
    if (life.expired() || get_tos_grid_lr2d() != layer)
        return;
    bool const by_channels = layer && !by_scale;
    if (by_channels || !layer)
        f_channels_edit->set_draw_type(static_cast<Tvx_basic_lr2d_draw_type>(draw_type));
    f_channels_edit->set_channels(
        by_channels ? static_cast<Tvx_rgb_clr_channels *>(vx_tos_grid_lr2d_get_rgb_channels_ptr(layer))
                    : nullptr);
    if (by_channels)
        f_channels_edit->update_controls();
    if (layer)
        f_opacity_panel->set_position(
            static_cast<int>((1.0 - vx_tos_grid_lr2d_get_opacity(layer)) * 100 + 0.5) - 1);
    f_shown_bounds = bounds_of_ranges();
    update_interpolate_cb();
    f_opacity_panel->update_controls();
}

void Tvx_tos_grid_lr2d_edit::update_interpolate_cb()
{
    Ivx_layer *const layer = get_tos_grid_lr2d();
    f_interpolate_cb->set_tos_grid_lr2d(layer);
    f_interpolate_cb->update_controls();
    if (!layer)
        return f_interpolate_cb->SetVisible(false);
    bool const by_scale = vx_tos_grid_lr2d_get_draw_type(layer) == c_grid_draw_scale;
    // Only one of them takes the room at any time.
    (by_scale ? f_channels_panel : f_scale_panel)->SetVisible(false);
    (by_scale ? f_scale_panel : f_channels_panel)->SetVisible(true);
    f_interpolate_cb->SetVisible(vx_stl_mngr_get_mode(vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer)) ==
                                 c_style_mode_range);
}

void Tvx_tos_grid_lr2d_edit::set_style_mngr_mode(Tvx_style_mode mode)
{
    f_clr_stl_mngr_edit->set_style_mngr_mode(mode);
}

void Tvx_tos_grid_lr2d_edit::save_current_scl()
{
    f_clr_stl_mngr_edit->save_current_scl();
}

void Tvx_tos_grid_lr2d_edit::end_edit(bool taken)
{
    f_clr_stl_mngr_edit->end_edit(taken);
}

std::vector<double> Tvx_tos_grid_lr2d_edit::bounds_of_ranges() const
{
    void const *const scale =
        vx_stl_mngr_get_rng_scale_ptr(vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(get_tos_grid_lr2d()));
    std::vector<double> bounds;
    for (unsigned i = 0; i < vx_rng_scale_get_size(scale); ++i) {
        bounds.push_back(vx_rng_scale_get_min(scale, i));
        bounds.push_back(vx_rng_scale_get_max(scale, i));
    }
    return bounds;
}

void Tvx_tos_grid_lr2d_edit::on_draw_type_cb_changed(TObject * /*sender*/)
{
    Ivx_layer *const layer = get_tos_grid_lr2d();
    if (!layer)
        return;
    end_edit(true);
    vx_tos_grid_lr2d_set_draw_type(layer, f_draw_type_cb->get_draw_type());
    auto const life = Life();
    update_controls();
    if (!life.expired() && get_tos_grid_lr2d() == layer)
        call_changed();
}

void Tvx_tos_grid_lr2d_edit::on_clr_stl_mngr_changed(TObject * /*sender*/)
{
    f_last_mode = f_clr_stl_mngr_edit->get_mode_edit()->mode;
    auto bounds = bounds_of_ranges();
    f_is_rebuilt = f_last_mode == c_style_mode_range && bounds != f_shown_bounds;
    f_shown_bounds = std::move(bounds);
    update_interpolate_cb();
    auto const life = Life();
    call_changed();
    if (life.expired())
        return;
    f_is_rebuilt = false;
    f_last_mode = 0;
}

void Tvx_tos_grid_lr2d_edit::on_interpolate_cb_changed(TObject * /*sender*/)
{
    if (!get_tos_grid_lr2d())
        return;
    auto const life = Life();
    call_changed();
    if (!life.expired())
        update_interpolate_cb();
}

void Tvx_tos_grid_lr2d_edit::on_opacity_changed(TObject * /*sender*/)
{
    Ivx_layer *const layer = get_tos_grid_lr2d();
    if (!layer)
        return;
    vx_tos_grid_lr2d_set_opacity(layer, (f_opacity_panel->get_position() + 1) / -100.0 + 1.0);
    call_changed();
}
