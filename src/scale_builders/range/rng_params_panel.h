#pragma once

#include "controls/forms/panels.h"
#include "scale_builders/range/rng_statistic.h"

class Tvx_rng_params;
class Tvx_vcl_logarithm_params_panel;
class Tvx_vcl_min_max_params_panel;
class Tvx_vcl_natural_params_panel;
class Tvx_vcl_std_dev_params_panel;

/// The parameters of the chosen kind of classification in a group box: a panel for each kind, of which the
/// one that is in force shows, none at first. The setters go to all of them. All operations need `create`;
/// setters fire nothing.
class VX_API Tvx_vcl_rng_params_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    /// The builder type (rng_params.h) of the panel that shows; 0 for none.
    [[nodiscard]] int get_rng_type() const;
    /// Shows the panel of this type, none for what is no type.
    void set_rng_type(int type);
    void set_round_digits(int digits);
    void set_deviation_coeff(double coeff);
    void set_statistic(Tvx_rng_statistic const &statistic);
    void set_old_scale_min_max(double min, double max);
    void set_old_ndiap(int n_diap);
    /// Whether a logarithmic scale offers its colours.
    void set_can_color(bool can_color);
    /// Writes the type and the record of the panel that shows. False, with a type of 0, when none does.
    bool load_params(Tvx_rng_params *params) const;
    /// Puts the focus into the edit for the number of ranges, if the panel that shows has one.
    void focus_count();

    [[nodiscard]] Tvx_vcl_min_max_params_panel *get_min_max_panel() const { return f_min_max; }
    [[nodiscard]] Tvx_vcl_natural_params_panel *get_natural_panel() const { return f_natural; }
    [[nodiscard]] Tvx_vcl_std_dev_params_panel *get_std_dev_panel() const { return f_std_dev; }
    [[nodiscard]] Tvx_vcl_logarithm_params_panel *get_logarithm_panel() const { return f_logarithm; }
    [[nodiscard]] Tvx_vcl_natural_params_panel *get_logspace_panel() const { return f_logspace; }

private:
    template <class Do>
    void for_each(Do act);
    [[nodiscard]] Tvx_vcl_panel *panel_of(int type) const;

    TWinControl *f_group = nullptr;
    Tvx_vcl_min_max_params_panel *f_min_max = nullptr;
    Tvx_vcl_natural_params_panel *f_natural = nullptr;
    Tvx_vcl_std_dev_params_panel *f_std_dev = nullptr;
    Tvx_vcl_logarithm_params_panel *f_logarithm = nullptr;
    Tvx_vcl_natural_params_panel *f_logspace = nullptr;
    int f_type = 0;
};
