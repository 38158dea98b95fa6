#pragma once

#include "controls/numeric/vcl_show_panels.h"
#include "scale_builders/range/rng_statistic.h"

/// The statistics of a field in a group box: least and greatest value, mean and standard deviation. The rows
/// of the counts are there too, and hidden. All operations need `create`.
class VX_API Tvx_vcl_stat_info_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    void set_rng_statistic(Tvx_rng_statistic const &statistic);
    void set_min(double min) { f_min->set_value(min); }
    void set_max(double max) { f_max->set_value(max); }

    [[nodiscard]] Tvx_vcl_int_show_panel *get_total_panel() const { return f_total; }
    [[nodiscard]] Tvx_vcl_int_show_panel *get_undefined_panel() const { return f_undefined; }
    [[nodiscard]] Tvx_vcl_dbl_show_panel *get_min_panel() const { return f_min; }
    [[nodiscard]] Tvx_vcl_dbl_show_panel *get_max_panel() const { return f_max; }
    [[nodiscard]] Tvx_vcl_dbl_show_panel *get_average_panel() const { return f_average; }
    [[nodiscard]] Tvx_vcl_dbl_show_panel *get_std_dev_panel() const { return f_std_dev; }

private:
    TWinControl *f_group = nullptr;
    Tvx_vcl_int_show_panel *f_total = nullptr;
    Tvx_vcl_int_show_panel *f_undefined = nullptr;
    Tvx_vcl_dbl_show_panel *f_min = nullptr;
    Tvx_vcl_dbl_show_panel *f_max = nullptr;
    Tvx_vcl_dbl_show_panel *f_average = nullptr;
    Tvx_vcl_dbl_show_panel *f_std_dev = nullptr;
};
