#include "scale_builders/range/rng_panel.h"

#include "scale_builders/range/rng_choice_panels.h"
#include "scale_builders/range/rng_exec.h"
#include "scale_builders/range/rng_logarithm_params_panel.h"
#include "scale_builders/range/rng_params_panel.h"
#include "scale_builders/range/rng_sample_calc.h"
#include "scale_builders/range/rng_stat_info_panel.h"
#include "scale_builders/range/rng_statistic_calc.h"
#include "scale_engine/range/range_scale_round_digits.h"
#include "style_manager/widgets/detail/open_data.h"

#include "platform/base/ascii_case.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_style_keys.h"

#include <utility>

namespace {
constexpr int c_left_width = 300;
constexpr int c_type_height = 58;
} // namespace

void Tvx_vcl_rng_panel::create()
{
    auto *const left = new Tvx_panel(this);
    left->SetParent(this);
    left->SetWidth(c_left_width);
    left->SetAlign(alLeft);
    f_type_panel = new Tvx_vcl_rng_type_select_panel(left);
    f_type_panel->SetParent(left);
    f_type_panel->create();
    f_type_panel->SetHeight(c_type_height);
    f_type_panel->SetAlign(alTop);
    f_type_panel->on_change = make_closure<&Tvx_vcl_rng_panel::on_type_change>(this);
    f_stat_panel = new Tvx_vcl_stat_info_panel(left);
    f_stat_panel->SetParent(left);
    f_stat_panel->create();
    f_stat_panel->SetAlign(alClient);
    f_params_panel = new Tvx_vcl_rng_params_panel(this);
    f_params_panel->SetParent(this);
    f_params_panel->create();
    f_params_panel->SetAlign(alClient);
    f_type_panel->set_rng_type(c_rng_builder_equal_ranges);
    f_params_panel->set_rng_type(f_type_panel->get_rng_type());
}

void Tvx_vcl_rng_panel::load_rc()
{
    f_type_panel->load_rc();
    f_stat_panel->load_rc();
    f_params_panel->load_rc();
}

void Tvx_vcl_rng_panel::set_params(void *stl_mngr, Tvx_data_events const &data)
{
    f_stl_mngr = stl_mngr;
    f_data = data;
}

bool Tvx_vcl_rng_panel::prepare()
{
    char const *const style = vx_stl_mngr_get_style_type(f_stl_mngr);
    bool const can_color = style && vx::text::ascii_same(style, c_clr_style);
    auto const *const scale = vx_stl_mngr_get_rng_scale_ptr(f_stl_mngr);
    int const size = static_cast<int>(vx_rng_scale_get_size(scale));
    int const rng_type = vx_rng_scale_get_rng_type(scale);
    // Equal areas, which nothing here builds, leave the choice as it was.
    if (int const type = Tvx_rng_params::type_of_scale(rng_type);
        type != c_rng_builder_equal_ranges || rng_type == c_rng_type_equal_ranges)
        f_type_panel->set_rng_type(type);
    f_params_panel->set_rng_type(f_type_panel->get_rng_type());
    f_params_panel->set_round_digits(
        vx::task::range_scale_round_digits::clamp_digits(vx_rng_scale_get_round_digits(scale)));
    f_params_panel->set_deviation_coeff(vx_rng_scale_get_deviation_coeff(scale));
    double const min = vx_rng_scale_get_min_value(scale);
    double const max = vx_rng_scale_get_max_value(scale);
    calculate_statistic();
    if (f_is_stopped)
        return false;
    f_params_panel->set_statistic(f_statistic);
    f_params_panel->get_logarithm_panel()->set_two_sided(f_statistic.min < 0);
    // The edits open on the scale that is there.
    f_params_panel->set_old_scale_min_max(min, max);
    f_params_panel->set_old_ndiap(size);
    f_params_panel->set_can_color(can_color);
    display_statistic();
    return true;
}

bool Tvx_vcl_rng_panel::calculate_statistic()
{
    f_is_stopped = false;
    if (!f_stl_mngr || !vx_has_all_data(f_data))
        return false;
    Tvx_rng_statistic_calc calc;
    bool const result = calc.exec(&f_statistic, f_stl_mngr, f_data);
    f_is_stopped = calc.is_stopped();
    return result;
}

void Tvx_vcl_rng_panel::display_statistic()
{
    f_stat_panel->set_rng_statistic(f_statistic);
}

bool Tvx_vcl_rng_panel::apply()
{
    f_params.set_stl_mngr(f_stl_mngr);
    if (!f_params_panel->load_params(&f_params))
        return false;
    if (!is_count_good()) {
        f_params_panel->focus_count();
        return false;
    }
    if (f_params.get_type() == c_rng_builder_natural && !draw_sample())
        return false;
    return Tvx_rng_exec::execute(&f_params) == 0;
}

/// Equal ranges come to none by a step beyond their span, and below none by a minimum above the maximum.
bool Tvx_vcl_rng_panel::is_count_good()
{
    switch (f_params.get_type()) {
    case c_rng_builder_equal_ranges:
        return f_params.get_min_max_params_ptr()->get_n_diap() > 0;
    case c_rng_builder_natural:
        return f_params.get_natural_params_ptr()->get_n_diap() >= 0;
    case c_rng_builder_std_dev:
        return f_params.get_std_dev_params_ptr()->get_n_diap() >= 0;
    case c_rng_builder_log_space:
        return f_params.get_logspace_params_ptr()->get_n_diap() >= 0;
    default:
        return true;
    }
}

bool Tvx_vcl_rng_panel::draw_sample()
{
    auto &params = *f_params.get_natural_params_ptr();
    std::vector<double> values;
    if (!vx_has_all_data(f_data) ||
        !Tvx_rng_sample_calc::execute(values, f_stl_mngr, f_data, params.get_min(), params.get_max()))
        return false;
    params.set_values(std::move(values));
    return !params.get_values().empty();
}

void Tvx_vcl_rng_panel::on_type_change(TObject * /*sender*/)
{
    f_params_panel->set_rng_type(f_type_panel->get_rng_type());
}
