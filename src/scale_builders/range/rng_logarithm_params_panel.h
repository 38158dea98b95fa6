#pragma once

#include "controls/forms/buttons.h"
#include "controls/numeric/vcl_show_panels.h"
#include "scale_builders/range/rng_statistic.h"

#include "platform/base/color.h"

class Tvx_clr_vsb_panel;
class Tvx_rng_logarithm_params;
class Tvx_vcl_log_start_panel;
class Tvx_vcl_round_panel;

/// The parameters of a logarithmic scale: first step, which the round digits tell the size of, whether it
/// goes to both sides of zero, and how many rows it would have. Colours can be chosen where `set_can_color`
/// says so. All operations need `create`; setters fire nothing. The setters and `load_params` are those of
/// the panels in rng_param_panels.h.
class VX_API Tvx_vcl_logarithm_params_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    void set_round_digits(int digits);
    void set_statistic(Tvx_rng_statistic const &statistic);
    /// Nothing here depends on them.
    void set_old_scale_min_max(double /*min*/, double /*max*/) {}
    void set_old_ndiap(int /*n_diap*/) {}
    /// False at first.
    void set_can_color(bool can_color);
    [[nodiscard]] bool get_can_color() const;
    void set_two_sided(bool two_sided);
    bool load_params(Tvx_rng_logarithm_params *params) const;

    [[nodiscard]] Tvx_vcl_round_panel *get_round_panel() const { return f_round_panel; }
    [[nodiscard]] Tvx_vcl_log_start_panel *get_start_panel() const { return f_start_panel; }
    [[nodiscard]] Tvx_vcl_check_box *get_two_sided_box() const { return f_two_sided_box; }
    /// The ranges and the two rows round them.
    [[nodiscard]] Tvx_vcl_int_show_panel *get_count_panel() const { return f_count_panel; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_min_color_panel() const { return f_min_color; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_zero_color_panel() const { return f_zero_color; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_max_color_panel() const { return f_max_color; }

private:
    void calc_and_fill_n_diap();
    void round_digits_changed();
    Tvx_clr_vsb_panel *add_color(Tvx_color color);
    void on_round_change(TObject *) { round_digits_changed(); }
    void on_count_changed(TObject *) { calc_and_fill_n_diap(); }

    Tvx_vcl_round_panel *f_round_panel = nullptr;
    Tvx_vcl_log_start_panel *f_start_panel = nullptr;
    Tvx_vcl_check_box *f_two_sided_box = nullptr;
    Tvx_vcl_int_show_panel *f_count_panel = nullptr;
    Tvx_vcl_group_box *f_colors = nullptr;
    Tvx_clr_vsb_panel *f_min_color = nullptr;
    Tvx_clr_vsb_panel *f_zero_color = nullptr;
    Tvx_clr_vsb_panel *f_max_color = nullptr;
    Tvx_rng_statistic f_statistic;
};
