#include "scale_builders/value/val_panel.h"

#include "scale_builders/value/val_choice_panels.h"
#include "scale_builders/value/val_exec.h"
#include "scale_builders/value/val_legend_panels.h"
#include "scale_builders/value/val_rescale_panel.h"
#include "scale_builders/value/val_statistic_calc.h"

#include "platform/toolkit/core/screen.h"

namespace {
constexpr int c_left_width = 300;
}

void Tvx_vcl_val_panel::create()
{
    f_statistic_panel = new Tvx_vcl_val_statistic_panel(this);
    f_statistic_panel->SetParent(this);
    f_statistic_panel->create();
    f_statistic_panel->SetWidth(c_left_width);
    f_statistic_panel->SetAlign(alLeft);
    f_rescale_panel = new Tvx_vcl_val_rescale_panel(this);
    f_rescale_panel->SetParent(this);
    f_rescale_panel->create();
    f_rescale_panel->SetAlign(alClient);
}

void Tvx_vcl_val_panel::load_rc()
{
    f_statistic_panel->load_rc();
    f_rescale_panel->load_rc();
}

void Tvx_vcl_val_panel::set_params(void *stl_mngr, Tvx_data_events const &data)
{
    f_stl_mngr = stl_mngr;
    f_data = data;
    f_rescale_panel->set_params(stl_mngr, data);
}

bool Tvx_vcl_val_panel::prepare()
{
    vx_wait_cursor const waiting;
    Tvx_val_statistic_calc calc;
    calc.exec(&f_statistic, f_stl_mngr, f_data);
    if (calc.is_stopped())
        return false;
    f_statistic_panel->set_statistic(&f_statistic);
    return true;
}

bool Tvx_vcl_val_panel::apply()
{
    using legend_panel = Tvx_vcl_val_rebuild_with_legend_params_panel;
    auto const remembered = legend_panel::last_params();
    f_params.set_stl_mngr(f_stl_mngr);
    f_params.get_statistic_ptr()->assign(f_statistic);
    f_rescale_panel->fill_params(&f_params);
    Tvx_val_exec exec;
    exec.exec(&f_params, f_data);
    if (!exec.is_stopped())
        return true;
    legend_panel::last_params() = remembered;
    return false;
}
