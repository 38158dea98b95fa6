#pragma once

#include "controls/forms/panels.h"
#include "scale_builders/range/rng_params.h"
#include "scale_builders/range/rng_statistic.h"
#include "style_manager/api/data_events.h"

class Tvx_vcl_rng_params_panel;
class Tvx_vcl_rng_type_select_panel;
class Tvx_vcl_stat_info_panel;

/// What stands in the range builder dialog: the kinds of classification and the statistics of the field at
/// the left, the parameters of the chosen kind beside them. The scale is read by `prepare` and written by
/// `apply`, and not touched in between. All operations need `create`.
class VX_API Tvx_vcl_rng_panel : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    void create();
    void load_rc();

    /// Stores only. The manager is not owned; its range scale is the one that is built.
    void set_params(void *stl_mngr, Tvx_data_events const &data);
    /// Fills the controls from the scale and the statistics of its field. False when the user stopped the
    /// reading; true whatever came of it otherwise.
    bool prepare();
    /// Builds the scale. False, with the scale as it was, while no kind is chosen, for a number of ranges
    /// that cannot be made, and where natural breaks got no values or the user stopped their reading; false
    /// too when an exception passed, with the scale partly written.
    [[nodiscard]] bool apply();
    /// Reads the statistics anew. False without a manager or without one of the events (that of the
    /// statistics may be missing), without a value, and when the user stopped; but in the second case the
    /// record stays.
    bool calculate_statistic();
    void display_statistic();

    [[nodiscard]] Tvx_vcl_rng_type_select_panel *get_type_panel() const { return f_type_panel; }
    [[nodiscard]] Tvx_vcl_stat_info_panel *get_stat_panel() const { return f_stat_panel; }
    [[nodiscard]] Tvx_vcl_rng_params_panel *get_params_panel() const { return f_params_panel; }

private:
    /// False when there is nothing to classify by.
    [[nodiscard]] bool draw_sample();
    /// A number of ranges that can be made.
    [[nodiscard]] bool is_count_good();
    void on_type_change(TObject *sender);

    Tvx_rng_statistic f_statistic;
    Tvx_rng_params f_params;
    void *f_stl_mngr = nullptr;
    Tvx_data_events f_data;
    bool f_is_stopped = false;
    Tvx_vcl_rng_type_select_panel *f_type_panel = nullptr;
    Tvx_vcl_stat_info_panel *f_stat_panel = nullptr;
    Tvx_vcl_rng_params_panel *f_params_panel = nullptr;
};
