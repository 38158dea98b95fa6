#include "scale_builders/range/rng_params_panel.h"

#include "captions/builders.h"
#include "scale_builders/common/detail/rows.h"
#include "scale_builders/range/rng_choice_panels.h"
#include "scale_builders/range/rng_logarithm_params_panel.h"
#include "scale_builders/range/rng_param_panels.h"
#include "scale_builders/range/rng_params.h"

#include "platform/basic/vx_res.h"

namespace {
template <class Panel>
void add(TWinControl *group, Panel *&panel)
{
    panel = new Panel(group);
    panel->SetParent(group);
    panel->create();
    panel->SetAlign(alClient);
    panel->SetVisible(false);
}
} // namespace

template <class Do>
void Tvx_vcl_rng_params_panel::for_each(Do act)
{
    act(f_min_max);
    act(f_natural);
    act(f_std_dev);
    act(f_logarithm);
    act(f_logspace);
}

void Tvx_vcl_rng_params_panel::create()
{
    Tvx_vcl_panel::create();
    f_group = vx::builders::add_group(this);
    for_each([this](auto *&panel) { add(f_group, panel); });
}

void Tvx_vcl_rng_params_panel::load_rc()
{
    f_group->SetText(vx_res_get_wstr(c_bld_parameters));
    for_each([](auto *panel) { panel->load_rc(); });
}

Tvx_vcl_panel *Tvx_vcl_rng_params_panel::panel_of(int type) const
{
    switch (type) {
    case c_rng_builder_equal_ranges:
        return f_min_max;
    case c_rng_builder_natural:
        return f_natural;
    case c_rng_builder_std_dev:
        return f_std_dev;
    case c_rng_builder_logarithm:
        return f_logarithm;
    case c_rng_builder_log_space:
        return f_logspace;
    default:
        return nullptr;
    }
}

int Tvx_vcl_rng_params_panel::get_rng_type() const
{
    return f_type;
}

void Tvx_vcl_rng_params_panel::set_rng_type(int type)
{
    for_each([](auto *panel) { panel->SetVisible(false); });
    auto *const panel = panel_of(type);
    f_type = panel ? type : c_rng_builder_none;
    if (panel)
        panel->SetVisible(true);
}

void Tvx_vcl_rng_params_panel::set_round_digits(int digits)
{
    for_each([digits](auto *panel) { panel->set_round_digits(digits); });
}

void Tvx_vcl_rng_params_panel::set_deviation_coeff(double coeff)
{
    f_std_dev->get_coeff_panel()->set_coeff(coeff);
}

void Tvx_vcl_rng_params_panel::set_statistic(Tvx_rng_statistic const &statistic)
{
    for_each([&statistic](auto *panel) { panel->set_statistic(statistic); });
}

void Tvx_vcl_rng_params_panel::set_old_scale_min_max(double min, double max)
{
    for_each([=](auto *panel) { panel->set_old_scale_min_max(min, max); });
}

void Tvx_vcl_rng_params_panel::set_old_ndiap(int n_diap)
{
    for_each([n_diap](auto *panel) { panel->set_old_ndiap(n_diap); });
}

void Tvx_vcl_rng_params_panel::set_can_color(bool can_color)
{
    f_logarithm->set_can_color(can_color);
}

bool Tvx_vcl_rng_params_panel::load_params(Tvx_rng_params *params) const
{
    params->set_type(f_type);
    switch (f_type) {
    case c_rng_builder_equal_ranges:
        return f_min_max->load_params(params->get_min_max_params_ptr());
    case c_rng_builder_natural:
        return f_natural->load_params(params->get_natural_params_ptr());
    case c_rng_builder_std_dev:
        return f_std_dev->load_params(params->get_std_dev_params_ptr());
    case c_rng_builder_logarithm:
        return f_logarithm->load_params(params->get_logarithm_params_ptr());
    case c_rng_builder_log_space:
        return f_logspace->load_params(params->get_logspace_params_ptr());
    default:
        return false;
    }
}

void Tvx_vcl_rng_params_panel::focus_count()
{
    Tvx_vcl_int_edit_panel *count = nullptr;
    switch (f_type) {
    case c_rng_builder_equal_ranges:
        count = f_min_max->get_count_panel();
        break;
    case c_rng_builder_natural:
        count = f_natural->get_count_panel();
        break;
    case c_rng_builder_std_dev:
        count = f_std_dev->get_count_panel();
        break;
    case c_rng_builder_log_space:
        count = f_logspace->get_count_panel();
        break;
    default:
        return;
    }
    count->get_edit()->SetFocus();
    count->get_edit()->SelectAll();
}
