#pragma once

#include "raster_property/raster/rtr_draw_type_combo_box.h"
#include "raster_property/raster/rtr_lr2d_edit.h"

#include "platform/base/color.h"

class Tvx_button;
class Tvx_channels_edit;
class Tvx_clr_vsb_pick_panel;
class Tvx_fast_int_panel;

/// The page of a raster layer: how its cells become colours, the colour that is left out or the channels, and
/// how far the map below shows through.
class VX_API Tvx_rtr_id_lr2d_edit : public Tvx_rtr_lr2d_edit
{
public:
    using Tvx_rtr_lr2d_edit::Tvx_rtr_lr2d_edit;

    void create() override;
    void load_res() override;
    void update_controls() override;
    /// Shows what belongs to the draw type of the layer.
    void update_interpolate_cb();
    /// Rasters have no scales.
    void save_current_scl() override {}

    // Null before `create`.
    [[nodiscard]] Tvx_rtr_draw_type_combo_box *get_draw_type_cb() const { return f_draw_type; }
    [[nodiscard]] Tvx_clr_vsb_pick_panel *get_transparent_clr() const { return f_transparent; }
    /// Takes the transparent colour away.
    [[nodiscard]] Tvx_button *get_no_clr_btn() const { return f_no_clr; }
    [[nodiscard]] Tvx_channels_edit *get_channels() const { return f_channels; }
    [[nodiscard]] Tvx_fast_int_panel *get_opacity() const { return f_opacity; }

private:
    void on_draw_type_cb_changed(TObject *sender);
    void on_transparent_clr_change(TObject *sender);
    void on_no_clr_click(TObject *sender);
    void on_opacity_change(TObject *sender);
    void on_channels_changed(TObject *sender);
    void take_transparent_clr(Tvx_color color);

    Tvx_rtr_draw_type_combo_box *f_draw_type = nullptr;
    Tvx_panel *f_normal_panel = nullptr;
    Tvx_clr_vsb_pick_panel *f_transparent = nullptr;
    Tvx_button *f_no_clr = nullptr;
    Tvx_panel *f_channels_panel = nullptr;
    Tvx_channels_edit *f_channels = nullptr;
    Tvx_fast_int_panel *f_opacity = nullptr;
};
