#pragma once

#include "controls/numeric/fast_int_panel.h"
#include "raster_property/channels/channels_edit.h"
#include "raster_property/property/interpolate_cb.h"
#include "raster_property/property/tos_draw_type_combo_box.h"
#include "raster_property/property/tos_lr2d_edit.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

#include <cstdint>
#include <vector>

/// The page of a grid, and of a slice of a stack of them: drawn by a colour scale or by channels.
class VX_API Tvx_tos_grid_lr2d_edit : public Tvx_tos_lr2d_edit
{
public:
    using Tvx_tos_lr2d_edit::Tvx_tos_lr2d_edit;

    void create() override;
    void load_res() override;
    void update_controls() override;
    void save_current_scl() override;
    void end_edit(bool taken) override;
    /// While it reports that the ranges of the scale are others.
    [[nodiscard]] bool get_notify_host() const override { return f_is_rebuilt; }
    /// Shows the half of the page that the draw type is for; the choice whether colours are mixed is offered
    /// with ranges alone.
    void update_interpolate_cb();
    /// Of the colour manager.
    void set_style_mngr_mode(Tvx_style_mode mode);

    [[nodiscard]] Ivx_layer *get_tos_grid_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_tos_draw_type_combo_box *get_draw_type_cb() const { return f_draw_type_cb; }
    [[nodiscard]] Tvx_clr_stl_mngr_edit *get_clr_stl_mngr_edit() const { return f_clr_stl_mngr_edit; }
    [[nodiscard]] Tvx_interpolate_cb *get_interpolate_cb() const { return f_interpolate_cb; }
    [[nodiscard]] Tvx_channels_edit *get_channels_edit() const { return f_channels_edit; }
    [[nodiscard]] Tvx_fast_int_panel *get_opacity_panel() const { return f_opacity_panel; }
    /// The mode of the colour manager while its change is reported, else 0.
    [[nodiscard]] std::uint32_t get_last_mode() const { return f_last_mode; }

    void on_draw_type_cb_changed(TObject *sender);
    void on_clr_stl_mngr_changed(TObject *sender);
    void on_interpolate_cb_changed(TObject *sender);
    void on_opacity_changed(TObject *sender);

private:
    [[nodiscard]] std::vector<double> bounds_of_ranges() const;

    Tvx_tos_draw_type_combo_box *f_draw_type_cb = nullptr;
    Tvx_panel *f_scale_panel = nullptr;
    Tvx_clr_stl_mngr_edit *f_clr_stl_mngr_edit = nullptr;
    Tvx_interpolate_cb *f_interpolate_cb = nullptr;
    Tvx_panel *f_channels_panel = nullptr;
    Tvx_channels_edit *f_channels_edit = nullptr;
    Tvx_fast_int_panel *f_opacity_panel = nullptr;
    std::uint32_t f_last_mode = 0;
    bool f_is_rebuilt = false;
    std::vector<double> f_shown_bounds; ///< of the ranges, when they were last shown or reported
};
