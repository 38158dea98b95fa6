#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

struct Ivx_layer;

/// Whether the colours of a grid run into each other between the classes of its scale.
class VX_API Tvx_interpolate_cb : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    void create();
    void load_res();
    /// Shows the flag of the layer. Fires nothing.
    void update_controls();
    void call_changed() { on_changed(this); }

    [[nodiscard]] Ivx_layer *get_tos_grid_lr2d() const { return f_tos_grid_lr2d; }
    /// Not owned; null for none.
    void set_tos_grid_lr2d(Ivx_layer *layer) { f_tos_grid_lr2d = layer; }
    [[nodiscard]] Tvx_check_box *get_check_box() const { return f_check_box; }

    /// The user set or cleared the flag, which the layer has by then.
    TNotifyEvent on_changed;

protected:
    void AdjustClientRect(TRect &rect) override;

private:
    void on_check_box_click(TObject *sender);

    Ivx_layer *f_tos_grid_lr2d = nullptr;
    Tvx_check_box *f_check_box = nullptr;
};
