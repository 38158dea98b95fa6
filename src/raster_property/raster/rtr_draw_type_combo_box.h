#pragma once

#include "controls/forms/caption_panels.h"

/// How the cells of a raster become colours, as a layer counts it; the list has another order.
enum Tvx_rtr_draw_type : int;

/// The choice of the draw type of a raster.
class VX_API Tvx_rtr_draw_type_combo_box : public Tvx_combo_box_panel
{
public:
    explicit Tvx_rtr_draw_type_combo_box(TComponent *owner);

    virtual void create();
    virtual void load_res();
    /// A type that the list does not have leaves the choice. Fires nothing.
    void set_draw_type(Tvx_rtr_draw_type draw_type);
    /// Normal while nothing is chosen.
    [[nodiscard]] Tvx_rtr_draw_type get_draw_type() const;
    void call_changed() { on_changed(this); }

    /// The user chose a draw type.
    TNotifyEvent on_changed;

private:
    void on_combo_box_change(TObject *sender);
};
