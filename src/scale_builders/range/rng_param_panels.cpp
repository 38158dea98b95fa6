#include "scale_builders/range/rng_param_panels.h"

#include "captions/builders.h"
#include "scale_builders/common/detail/rows.h"
#include "scale_builders/range/rng_choice_panels.h"
#include "scale_builders/range/rng_exec.h"
#include "scale_builders/range/rng_params.h"
#include "scale_engine/range/detail/classify.h"

#include "platform/basic/vx_res.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace builders = vx::builders;

namespace {
constexpr int c_default_count = 10;
} // namespace

// ---- equal ranges

void Tvx_vcl_min_max_params_panel::create()
{
    using self = Tvx_vcl_min_max_params_panel;
    Tvx_vcl_panel::create();
    f_count_panel = builders::add_value_row<Tvx_vcl_int_edit_panel>(this);
    f_step_panel = builders::add_value_row<Tvx_vcl_dbl_edit_panel>(this);
    f_min_panel = builders::add_value_row<Tvx_vcl_dbl_edit_panel>(this);
    f_max_panel = builders::add_value_row<Tvx_vcl_dbl_edit_panel>(this);
    f_round_panel = builders::add_row<Tvx_vcl_round_panel>(this);
    f_count_panel->set_on_change(make_closure<&self::on_count_change>(this));
    f_step_panel->set_on_change(make_closure<&self::on_step_change>(this));
    f_min_panel->set_on_change(make_closure<&self::on_min_change>(this));
    f_max_panel->set_on_change(make_closure<&self::on_max_change>(this));
    f_round_panel->set_on_change(make_closure<&self::on_round_change>(this));
    values2controls();
}

void Tvx_vcl_min_max_params_panel::load_rc()
{
    f_count_panel->set_caption(vx_res_get_wstr(c_bld_count));
    f_step_panel->set_caption(vx_res_get_wstr(c_bld_step));
    f_min_panel->set_caption(vx_res_get_wstr(c_bld_min));
    f_max_panel->set_caption(vx_res_get_wstr(c_bld_max));
    f_round_panel->load_rc();
}

double Tvx_vcl_min_max_params_panel::round(double value) const
{
    return Tvx_rng_exec::round_to_digits(value, f_round_panel->get_digits_count());
}

void Tvx_vcl_min_max_params_panel::values2controls()
{
    f_min_panel->set_value(round(f_min));
    f_max_panel->set_value(round(f_max));
    f_step_panel->set_value(round(f_step));
    f_count_panel->set_value(f_ndiap);
}

void Tvx_vcl_min_max_params_panel::update_step()
{
    // No ranges have no step.
    double const span = f_max - f_min;
    // The span of two numbers may be beyond all numbers, and its parts are not.
    f_step = f_ndiap == 0 ? 0 : std::isfinite(span) ? span / f_ndiap : f_max / f_ndiap - f_min / f_ndiap;
}

void Tvx_vcl_min_max_params_panel::set_round_digits(int digits)
{
    f_round_panel->set_digits_count(digits);
    round_digits_changed();
}

void Tvx_vcl_min_max_params_panel::set_statistic(Tvx_rng_statistic const &statistic)
{
    f_statistic = statistic;
    set_old_scale_min_max(statistic.min, statistic.max);
}

void Tvx_vcl_min_max_params_panel::set_old_scale_min_max(double min, double max)
{
    f_min = min;
    f_max = max;
    if (f_max > f_min)
        update_step();
    values2controls();
}

void Tvx_vcl_min_max_params_panel::set_old_ndiap(int n_diap)
{
    f_ndiap = n_diap;
    if (f_max > f_min)
        update_step();
    values2controls();
}

bool Tvx_vcl_min_max_params_panel::load_params(Tvx_rng_min_max_params *params) const
{
    int const count = f_count_panel->get_value();
    double const min = f_min_panel->get_value();
    params->set_n_diap(count);
    params->set_min(min);
    double const step = f_step_panel->get_value();
    double const span = count * step;
    params->set_max(
        vx::task::detail::within_numbers(std::isfinite(span) ? span + min : std::fma(step, count, min)));
    params->set_round_digits(f_round_panel->get_digits_count());
    return true;
}

// An edit holds the rounded value: one that the user only passes through, and whose rounded value is another,
// counts as changed to that.

void Tvx_vcl_min_max_params_panel::on_count_change(TObject * /*sender*/)
{
    int const count = f_count_panel->get_value();
    if (count == f_ndiap)
        return;
    if (count >= 1)
        f_ndiap = count;
    update_step();
    values2controls();
}

void Tvx_vcl_min_max_params_panel::on_step_change(TObject * /*sender*/)
{
    double const step = f_step_panel->get_value();
    if (step == f_step)
        return;
    if (step > 0)
        f_step = step;
    if (f_step > 0) {
        constexpr double c_least = std::numeric_limits<int>::min();
        constexpr double c_most = std::numeric_limits<int>::max();
        double const span = f_max - f_min;
        double const count = std::isfinite(span) ? span / f_step : f_max / f_step - f_min / f_step;
        f_ndiap = static_cast<int>(std::clamp(count + 0.5, c_least, c_most));
    }
    values2controls();
}

void Tvx_vcl_min_max_params_panel::on_min_change(TObject * /*sender*/)
{
    if (f_min_panel->get_value() != f_min)
        set_old_scale_min_max(f_min_panel->get_value(), f_max);
}

void Tvx_vcl_min_max_params_panel::on_max_change(TObject * /*sender*/)
{
    if (f_max_panel->get_value() != f_max)
        set_old_scale_min_max(f_min, f_max_panel->get_value());
}

void Tvx_vcl_min_max_params_panel::round_digits_changed()
{
    if (int const digits = f_round_panel->get_digits_count(); digits <= 0)
        for (auto *const panel : {f_min_panel, f_max_panel, f_step_panel})
            panel->set_precision(-digits);
    values2controls();
}

// ---- natural breaks, logarithmic spacing

void Tvx_vcl_natural_params_panel::create()
{
    Tvx_vcl_panel::create();
    f_count_panel = builders::add_value_row<Tvx_vcl_int_edit_panel>(this);
    f_min_panel = builders::add_value_row<Tvx_vcl_dbl_edit_panel>(this);
    f_max_panel = builders::add_value_row<Tvx_vcl_dbl_edit_panel>(this);
    f_round_panel = builders::add_row<Tvx_vcl_round_panel>(this);
    f_count_panel->set_value(c_default_count);
}

void Tvx_vcl_natural_params_panel::load_rc()
{
    f_count_panel->set_caption(vx_res_get_wstr(c_bld_count));
    f_min_panel->set_caption(vx_res_get_wstr(c_bld_min));
    f_max_panel->set_caption(vx_res_get_wstr(c_bld_max));
    f_round_panel->load_rc();
}

void Tvx_vcl_natural_params_panel::set_round_digits(int digits)
{
    f_round_panel->set_digits_count(digits);
}

void Tvx_vcl_natural_params_panel::set_old_scale_min_max(double min, double max)
{
    f_max_panel->set_value(max);
    f_min_panel->set_value(min);
}

void Tvx_vcl_natural_params_panel::set_old_ndiap(int n_diap)
{
    f_count_panel->set_value(n_diap);
}

bool Tvx_vcl_natural_params_panel::load_params(Tvx_rng_natural_params *params) const
{
    params->set_n_diap(f_count_panel->get_value());
    params->set_min(f_min_panel->get_value());
    params->set_max(f_max_panel->get_value());
    params->set_round_digits(f_round_panel->get_digits_count());
    return true;
}

// ---- standard deviation

void Tvx_vcl_std_dev_params_panel::create()
{
    Tvx_vcl_panel::create();
    f_count_panel = builders::add_value_row<Tvx_vcl_int_edit_panel>(this);
    f_coeff_panel = builders::add_row<Tvx_vcl_deviation_coeff>(this);
    f_round_panel = builders::add_row<Tvx_vcl_round_panel>(this);
    f_count_panel->set_value(c_default_count);
}

void Tvx_vcl_std_dev_params_panel::load_rc()
{
    f_count_panel->set_caption(vx_res_get_wstr(c_bld_count));
    f_coeff_panel->load_rc();
    f_round_panel->load_rc();
}

void Tvx_vcl_std_dev_params_panel::set_round_digits(int digits)
{
    f_round_panel->set_digits_count(digits);
}

void Tvx_vcl_std_dev_params_panel::set_old_ndiap(int n_diap)
{
    f_count_panel->set_value(n_diap);
}

bool Tvx_vcl_std_dev_params_panel::load_params(Tvx_rng_std_dev_params *params) const
{
    params->set_n_diap(f_count_panel->get_value());
    params->set_mean(f_statistic.average);
    params->set_std_dev(f_statistic.std_dev);
    params->set_dev_coeff(f_coeff_panel->get_coeff());
    params->set_round_digits(f_round_panel->get_digits_count());
    return true;
}
