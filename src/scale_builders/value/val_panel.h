#pragma once

#include "controls/forms/panels.h"
#include "scale_builders/value/val_params.h"
#include "style_manager/api/data_events.h"

class Tvx_vcl_val_rescale_panel;
class Tvx_vcl_val_statistic_panel;

/// What stands in the value builder dialog: the values of the field at the left, mode and parameters beside
/// them. The scale is not touched before `apply`. All operations need `create`.
class VX_API Tvx_vcl_val_panel : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    void create();
    void load_rc();

    /// The manager is not owned; its value scale is the one that is built.
    void set_params(void *stl_mngr, Tvx_data_events const &data);
    /// Reads the values and shows them. False when the user stopped the reading; true whatever came of it
    /// otherwise.
    bool prepare();
    /// Builds the scale, in the mode that updates it from the values that are listed. False when the user
    /// stopped the reading: scale and remembered settings are then as they were. Exceptions pass.
    [[nodiscard]] bool apply();

    [[nodiscard]] Tvx_vcl_val_statistic_panel *get_statistic_panel() const { return f_statistic_panel; }
    [[nodiscard]] Tvx_vcl_val_rescale_panel *get_rescale_panel() const { return f_rescale_panel; }

private:
    Tvx_val_params f_params;
    Tvx_val_statistic f_statistic;
    void *f_stl_mngr = nullptr;
    Tvx_data_events f_data;
    Tvx_vcl_val_statistic_panel *f_statistic_panel = nullptr;
    Tvx_vcl_val_rescale_panel *f_rescale_panel = nullptr;
};
