#pragma once

#include "controls/numeric/vcl_edit_panels.h"
#include "scale_builders/range/rng_statistic.h"

class Tvx_rng_min_max_params;
class Tvx_rng_natural_params;
class Tvx_rng_std_dev_params;
class Tvx_vcl_deviation_coeff;
class Tvx_vcl_round_panel;

/// Panels for the parameters of each kind of classification. All operations need `create`; setters fire
/// nothing. `set_statistic` tells what the values are like, `set_old_scale_min_max` and `set_old_ndiap` span
/// and number of ranges of the scale that is to be built anew; `load_params` writes what was chosen into the
/// record, and is always true.

/// Equal ranges. Number of ranges, step, minimum and maximum hold each other: whichever is changed, the
/// others follow. They are kept as they are and shown under the round digits.
class VX_API Tvx_vcl_min_max_params_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    void set_round_digits(int digits);
    void set_statistic(Tvx_rng_statistic const &statistic);
    void set_old_scale_min_max(double min, double max);
    void set_old_ndiap(int n_diap);
    /// The span is what number and step describe, from the minimum on; the edit of the maximum is not read.
    bool load_params(Tvx_rng_min_max_params *params) const;
    /// The value as the edits show it.
    [[nodiscard]] double round(double value) const;

    [[nodiscard]] Tvx_vcl_int_edit_panel *get_count_panel() const { return f_count_panel; }
    [[nodiscard]] Tvx_vcl_dbl_edit_panel *get_step_panel() const { return f_step_panel; }
    [[nodiscard]] Tvx_vcl_dbl_edit_panel *get_min_panel() const { return f_min_panel; }
    [[nodiscard]] Tvx_vcl_dbl_edit_panel *get_max_panel() const { return f_max_panel; }
    [[nodiscard]] Tvx_vcl_round_panel *get_round_panel() const { return f_round_panel; }

private:
    void values2controls();
    void update_step();
    void round_digits_changed();
    void on_count_change(TObject *sender);
    void on_step_change(TObject *sender);
    void on_min_change(TObject *sender);
    void on_max_change(TObject *sender);
    void on_round_change(TObject *) { round_digits_changed(); }

    Tvx_vcl_int_edit_panel *f_count_panel = nullptr;
    Tvx_vcl_dbl_edit_panel *f_step_panel = nullptr;
    Tvx_vcl_dbl_edit_panel *f_min_panel = nullptr;
    Tvx_vcl_dbl_edit_panel *f_max_panel = nullptr;
    Tvx_vcl_round_panel *f_round_panel = nullptr;
    Tvx_rng_statistic f_statistic;
    double f_min = 0;
    double f_max = 10;
    double f_step = 1; ///< 0 while there are no ranges
    int f_ndiap = 10;
};

/// Natural breaks and logarithmic spacing: number of ranges and span, each for itself.
class VX_API Tvx_vcl_natural_params_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    void set_round_digits(int digits);
    void set_statistic(Tvx_rng_statistic const &statistic) { f_statistic = statistic; }
    void set_old_scale_min_max(double min, double max);
    void set_old_ndiap(int n_diap);
    bool load_params(Tvx_rng_natural_params *params) const;

    [[nodiscard]] Tvx_vcl_int_edit_panel *get_count_panel() const { return f_count_panel; }
    [[nodiscard]] Tvx_vcl_dbl_edit_panel *get_min_panel() const { return f_min_panel; }
    [[nodiscard]] Tvx_vcl_dbl_edit_panel *get_max_panel() const { return f_max_panel; }
    [[nodiscard]] Tvx_vcl_round_panel *get_round_panel() const { return f_round_panel; }

private:
    Tvx_vcl_int_edit_panel *f_count_panel = nullptr;
    Tvx_vcl_dbl_edit_panel *f_min_panel = nullptr;
    Tvx_vcl_dbl_edit_panel *f_max_panel = nullptr;
    Tvx_vcl_round_panel *f_round_panel = nullptr;
    Tvx_rng_statistic f_statistic;
};

/// Standard deviation: mean and deviation are those of the statistic.
class VX_API Tvx_vcl_std_dev_params_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    void set_round_digits(int digits);
    void set_statistic(Tvx_rng_statistic const &statistic) { f_statistic = statistic; }
    /// Nothing here depends on it.
    void set_old_scale_min_max(double /*min*/, double /*max*/) {}
    void set_old_ndiap(int n_diap);
    bool load_params(Tvx_rng_std_dev_params *params) const;

    [[nodiscard]] Tvx_vcl_int_edit_panel *get_count_panel() const { return f_count_panel; }
    [[nodiscard]] Tvx_vcl_deviation_coeff *get_coeff_panel() const { return f_coeff_panel; }
    [[nodiscard]] Tvx_vcl_round_panel *get_round_panel() const { return f_round_panel; }

private:
    Tvx_vcl_int_edit_panel *f_count_panel = nullptr;
    Tvx_vcl_deviation_coeff *f_coeff_panel = nullptr;
    Tvx_vcl_round_panel *f_round_panel = nullptr;
    Tvx_rng_statistic f_statistic;
};
