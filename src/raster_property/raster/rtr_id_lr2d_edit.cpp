#include "raster_property/raster/rtr_id_lr2d_edit.h"

#include "captions/raster.h"
#include "controls/forms/buttons.h"
#include "controls/numeric/fast_int_panel.h"
#include "controls/prop/clr_vsb_panel.h"
#include "raster_property/channels/channels_edit.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_color_height = 20;
constexpr int c_button_height = 26;
constexpr int c_caption_width = 120;
constexpr int c_gap = 6;

Tvx_basic_lr2d_draw_type channel_draw_type(int draw_type)
{
    switch (draw_type) {
    case c_rtr_draw_channels:
        return c_lr2d_draw_channels;
    case c_rtr_draw_gray:
        return c_lr2d_draw_gray;
    default:
        return c_lr2d_draw_normal;
    }
}

/// What the panel of the transparency shows is its position and 1.
int position_of(double opacity)
{
    return static_cast<int>((1.0 - opacity) * 100 + 0.5) - 1;
}
} // namespace

void Tvx_rtr_id_lr2d_edit::create()
{
    Tvx_rtr_lr2d_edit::create();
    DisableAlign();
    f_draw_type = vx_new_on<Tvx_rtr_draw_type_combo_box>(this, this);
    f_draw_type->create();
    f_draw_type->SetAlign(alTop);
    f_draw_type->on_changed = make_closure<&Tvx_rtr_id_lr2d_edit::on_draw_type_cb_changed>(this);

    f_normal_panel = vx_new_on<Tvx_panel>(this, this);
    f_normal_panel->SetAlign(alClient);
    f_transparent = vx_new_on<Tvx_clr_vsb_pick_panel>(f_normal_panel, this);
    f_transparent->SetHeight(c_color_height);
    f_transparent->SetAlign(alTop);
    f_transparent->set_can_visible(false);
    f_transparent->set_format(c_color_format_rgb);
    f_transparent->on_changed = make_closure<&Tvx_rtr_id_lr2d_edit::on_transparent_clr_change>(this);
    auto *const row = vx_new_on<Tvx_panel>(f_normal_panel, this);
    row->SetHeight(c_button_height + c_gap);
    row->SetTop(c_color_height);
    row->SetAlign(alTop);
    f_no_clr = vx_new_on<Tvx_button>(row, this);
    f_no_clr->SetBounds(0, c_gap, 220, c_button_height);
    f_no_clr->OnClick = make_closure<&Tvx_rtr_id_lr2d_edit::on_no_clr_click>(this);

    f_channels_panel = vx_new_on<Tvx_panel>(this, this);
    f_channels_panel->SetAlign(alClient);
    f_channels_panel->SetVisible(false);
    f_channels = vx_new_on<Tvx_channels_edit>(f_channels_panel, this);
    f_channels->create();
    f_channels->SetAlign(alClient);
    f_channels->set_channel_events(channel_events());
    f_channels->on_changed = make_closure<&Tvx_rtr_id_lr2d_edit::on_channels_changed>(this);

    f_opacity = vx_new_on<Tvx_fast_int_panel>(this, this);
    f_opacity->set_min(-1);
    f_opacity->set_max(99);
    f_opacity->set_caption_width(c_caption_width);
    f_opacity->SetAlign(alBottom);
    f_opacity->on_changed = make_closure<&Tvx_rtr_id_lr2d_edit::on_opacity_change>(this);
    EnableAlign();
    load_res();
}

void Tvx_rtr_id_lr2d_edit::load_res()
{
    f_draw_type->load_res();
    f_transparent->load_res();
    f_transparent->set_text(vx_res_get_wstr(c_rtr_transparent_clr));
    f_no_clr->SetCaption(vx_res_get_wstr(c_rtr_no_transparent_clr));
    f_channels->load_res();
    f_channels->set_channel_caption(vx_res_get_wstr(c_rtr_band));
    f_opacity->set_caption(vx_res_get_wstr(c_rtr_opacity_caption));
}

void Tvx_rtr_id_lr2d_edit::update_controls()
{
    Ivx_layer *const layer = get_rtr_lr2d();
    if (layer) {
        int const draw_type = vx_rtr_lr2d_get_draw_type(layer);
        f_draw_type->set_draw_type(static_cast<Tvx_rtr_draw_type>(draw_type));
        f_transparent->set_color(vx_rtr_lr2d_get_transparent_clr(layer));
        f_channels->set_draw_type(channel_draw_type(draw_type));
        f_channels->set_channels(
            static_cast<Tvx_rgb_clr_channels *>(vx_rtr_lr2d_get_rgb_channels_ptr(layer)));
        f_channels->update_controls();
        f_opacity->set_position(position_of(vx_rtr_lr2d_get_opacity(layer)));
    } else {
        f_channels->set_channels(nullptr);
        f_channels->update_controls();
    }
    f_no_clr->SetEnabled(layer && f_transparent->get_color().a != 0);
    update_interpolate_cb();
    f_opacity->update_controls();
}

void Tvx_rtr_id_lr2d_edit::update_interpolate_cb()
{
    bool const has_channels = vx_rtr_lr2d_get_draw_type(get_rtr_lr2d()) != c_rtr_draw_normal;
    f_normal_panel->SetVisible(!has_channels); // what is covered takes no keys
    f_channels_panel->SetVisible(has_channels);
}

void Tvx_rtr_id_lr2d_edit::on_draw_type_cb_changed(TObject * /*sender*/)
{
    Ivx_layer *const layer = get_rtr_lr2d();
    if (!layer)
        return;
    vx_rtr_lr2d_set_draw_type(layer, f_draw_type->get_draw_type());
    update_controls();
    call_changed();
}

void Tvx_rtr_id_lr2d_edit::take_transparent_clr(Tvx_color color)
{
    Ivx_layer *const layer = get_rtr_lr2d();
    if (!layer)
        return;
    vx_rtr_lr2d_set_transparent_clr(layer, color);
    f_no_clr->SetEnabled(color.a != 0);
    call_changed();
}

void Tvx_rtr_id_lr2d_edit::on_transparent_clr_change(TObject * /*sender*/)
{
    take_transparent_clr(f_transparent->get_color());
}

void Tvx_rtr_id_lr2d_edit::on_no_clr_click(TObject * /*sender*/)
{
    f_transparent->set_color({});
    take_transparent_clr({});
}

void Tvx_rtr_id_lr2d_edit::on_opacity_change(TObject * /*sender*/)
{
    Ivx_layer *const layer = get_rtr_lr2d();
    if (!layer)
        return;
    vx_rtr_lr2d_set_opacity(layer, (f_opacity->get_position() + 1) / -100.0 + 1.0);
    call_changed();
}

void Tvx_rtr_id_lr2d_edit::on_channels_changed(TObject * /*sender*/)
{
    if (get_rtr_lr2d())
        call_changed();
}
