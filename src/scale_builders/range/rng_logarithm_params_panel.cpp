#include "scale_builders/range/rng_logarithm_params_panel.h"

#include "captions/builders.h"
#include "controls/prop/clr_vsb_panel.h"
#include "scale_builders/common/detail/rows.h"
#include "scale_builders/range/rng_choice_panels.h"
#include "scale_builders/range/rng_exec.h"
#include "scale_builders/range/rng_params.h"

#include "platform/basic/vx_res.h"

namespace builders = vx::builders;

namespace {
constexpr int c_color_rows = 4; ///< three colours and the frame
constexpr int c_color_row_height = 24;
/// The rows below and above the ranges.
constexpr int c_outer_rows = 2;
} // namespace

void Tvx_vcl_logarithm_params_panel::create()
{
    using self = Tvx_vcl_logarithm_params_panel;
    Tvx_vcl_panel::create();
    f_round_panel = builders::add_row<Tvx_vcl_round_panel>(this);
    f_round_panel->set_on_change(make_closure<&self::on_round_change>(this));
    f_start_panel = builders::add_row<Tvx_vcl_log_start_panel>(this);
    f_start_panel->on_change = make_closure<&self::on_count_changed>(this);
    f_two_sided_box = new Tvx_vcl_check_box(this);
    builders::put_row(f_two_sided_box, this);
    f_two_sided_box->OnClick = make_closure<&self::on_count_changed>(this);
    f_count_panel = builders::add_value_row<Tvx_vcl_int_show_panel>(this);
    f_colors = new Tvx_vcl_group_box(this);
    f_colors->SetHeight(c_color_rows * c_color_row_height);
    builders::put_row(f_colors, this);
    Tvx_rng_logarithm_params const defaults;
    f_min_color = add_color(defaults.get_clr_min());
    f_zero_color = add_color(defaults.get_clr_zero());
    f_max_color = add_color(defaults.get_clr_max());
    f_colors->SetVisible(false);
}

Tvx_clr_vsb_panel *Tvx_vcl_logarithm_params_panel::add_color(Tvx_color color)
{
    auto *const panel = new Tvx_clr_vsb_panel(f_colors);
    builders::put_row(panel, f_colors);
    panel->set_can_visible(false);
    panel->set_color(color);
    return panel;
}

void Tvx_vcl_logarithm_params_panel::load_rc()
{
    f_round_panel->load_rc();
    f_start_panel->load_rc();
    f_two_sided_box->SetText(vx_res_get_wstr(c_bld_two_sided));
    f_count_panel->set_caption(vx_res_get_wstr(c_bld_rows));
    f_colors->SetText(vx_res_get_wstr(c_bld_colors));
    UnicodeString const word = vx_res_get_wstr(c_bld_color_word);
    f_min_color->set_text(word + L" (min)");
    f_zero_color->set_text(word + L" ( 0 )");
    f_max_color->set_text(word + L" (max)");
    for (auto *const panel : {f_min_color, f_zero_color, f_max_color})
        panel->load_res();
}

void Tvx_vcl_logarithm_params_panel::set_round_digits(int digits)
{
    f_round_panel->set_digits_count(digits);
    round_digits_changed();
}

void Tvx_vcl_logarithm_params_panel::set_statistic(Tvx_rng_statistic const &statistic)
{
    f_statistic = statistic;
    calc_and_fill_n_diap();
}

void Tvx_vcl_logarithm_params_panel::set_can_color(bool can_color)
{
    f_colors->SetVisible(can_color);
}

bool Tvx_vcl_logarithm_params_panel::get_can_color() const
{
    return f_colors->GetVisible();
}

void Tvx_vcl_logarithm_params_panel::set_two_sided(bool two_sided)
{
    f_two_sided_box->SetChecked(two_sided);
    calc_and_fill_n_diap();
}

bool Tvx_vcl_logarithm_params_panel::load_params(Tvx_rng_logarithm_params *params) const
{
    params->set_round_digits(f_round_panel->get_digits_count());
    params->set_base_idx(f_start_panel->get_base_index());
    params->set_is_two_sided(f_two_sided_box->GetChecked());
    params->set_min_val(f_statistic.min);
    params->set_max_val(f_statistic.max);
    params->set_use_colors(get_can_color());
    params->set_clr_min(f_min_color->get_color());
    params->set_clr_zero(f_zero_color->get_color());
    params->set_clr_max(f_max_color->get_color());
    return true;
}

void Tvx_vcl_logarithm_params_panel::round_digits_changed()
{
    f_start_panel->set_digit_count(f_round_panel->get_digits_count());
    f_start_panel->update_select_box();
    calc_and_fill_n_diap();
}

void Tvx_vcl_logarithm_params_panel::calc_and_fill_n_diap()
{
    int const count =
        Tvx_rng_exec::logarithm_get_n_diap(f_two_sided_box->GetChecked(), f_round_panel->get_digits_count(),
                                           f_start_panel->get_base_index(), f_statistic.min, f_statistic.max);
    f_count_panel->set_value(count + c_outer_rows);
}
