#pragma once

#include "controls/numeric/fast_int_panel.h"
#include "raster_property/property/tos_lr2d_edit.h"

/// The property page of a slice: which of the stack is shown, counted from 1 for the user.
class VX_API Tvx_tos_slice_lr2d_edit : public Tvx_tos_lr2d_edit
{
public:
    using Tvx_tos_lr2d_edit::Tvx_tos_lr2d_edit;

    void create() override;
    void load_res() override;
    void update_controls() override;

    [[nodiscard]] Ivx_layer *get_tos_slice_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_fast_int_panel *get_slice_panel() const { return f_slice_panel; }
    void on_slice_changed(TObject *sender);

private:
    Tvx_fast_int_panel *f_slice_panel = nullptr;
};
