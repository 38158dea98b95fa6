#pragma once

#include "controls/forms/caption_panels.h"

/// What a grid is drawn by; the numbers are those of the layer.
enum Tvx_grid_lr2d_draw_type
{
    c_grid_draw_scale = 0,
    c_grid_draw_channels = 1,
    c_grid_draw_gray = 3,
};

/// A label and the choice of the draw type of a grid: scale, gray, channels.
class VX_API Tvx_tos_draw_type_combo_box : public Tvx_combo_box_panel
{
public:
    using Tvx_combo_box_panel::Tvx_combo_box_panel;

    void create();
    void load_res();
    [[nodiscard]] Tvx_grid_lr2d_draw_type get_draw_type() const;
    /// Another number leaves the choice. Fires nothing.
    void set_draw_type(Tvx_grid_lr2d_draw_type draw_type);
    void call_changed() { on_changed(this); }

    /// The user chose.
    TNotifyEvent on_changed;

private:
    void on_combo_box_changed(TObject *sender);
};
