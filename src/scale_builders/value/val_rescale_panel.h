#pragma once

#include "scale_builders/value/val_choice_panels.h"
#include "style_manager/api/data_events.h"

class Tvx_val_params;
class Tvx_vcl_val_modify_params_panel;
class Tvx_vcl_val_rebuild_params_panel;
class Tvx_vcl_val_rebuild_with_legend_params_panel;

/// The choice of the mode and below it the parameters of the one that is chosen. All operations need
/// `create`; setters fire nothing.
class VX_API Tvx_vcl_val_rescale_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    /// To the panels of all modes.
    void set_params(void *stl_mngr, Tvx_data_events const &data);
    /// Writes the mode and the records of all modes, in their order.
    bool fill_params(Tvx_val_params *params) const;

    [[nodiscard]] Tvx_vcl_val_type_select_panel *get_type_panel() const { return f_type_panel; }
    [[nodiscard]] Tvx_vcl_val_rebuild_params_panel *get_rebuild_panel() const { return f_rebuild; }
    [[nodiscard]] Tvx_vcl_val_rebuild_with_legend_params_panel *get_legend_panel() const { return f_legend; }
    [[nodiscard]] Tvx_vcl_val_modify_params_panel *get_modify_panel() const { return f_modify; }

private:
    void on_type_select_panel_changed(TObject *sender);

    Tvx_vcl_val_type_select_panel *f_type_panel = nullptr;
    Tvx_vcl_val_rebuild_params_panel *f_rebuild = nullptr;
    Tvx_vcl_val_rebuild_with_legend_params_panel *f_legend = nullptr;
    Tvx_vcl_val_modify_params_panel *f_modify = nullptr;
};
