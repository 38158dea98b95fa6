#include "scale_builders/range/rng_stat_info_panel.h"

#include "captions/builders.h"
#include "scale_builders/common/detail/rows.h"

#include "platform/basic/vx_res.h"

void Tvx_vcl_stat_info_panel::create()
{
    constexpr int c_precision = 7;
    Tvx_vcl_panel::create();
    f_group = vx::builders::add_group(this);
    for (auto **const count : {&f_total, &f_undefined}) {
        *count = vx::builders::add_value_row<Tvx_vcl_int_show_panel>(f_group);
        (*count)->SetVisible(false);
    }
    f_total->set_caption(L"N all");
    f_undefined->set_caption(L"N indef");
    for (auto **const number : {&f_min, &f_max, &f_average, &f_std_dev}) {
        *number = vx::builders::add_value_row<Tvx_vcl_dbl_show_panel>(f_group);
        (*number)->set_precision(c_precision);
    }
}

void Tvx_vcl_stat_info_panel::load_rc()
{
    f_group->SetText(vx_res_get_wstr(c_bld_statistics));
    f_total->set_caption(vx_res_get_wstr(c_bld_total));
    f_undefined->set_caption(vx_res_get_wstr(c_bld_undefined));
    f_min->set_caption(vx_res_get_wstr(c_bld_min));
    f_max->set_caption(vx_res_get_wstr(c_bld_max));
    f_average->set_caption(vx_res_get_wstr(c_bld_average));
    f_std_dev->set_caption(vx_res_get_wstr(c_bld_std_dev));
}

void Tvx_vcl_stat_info_panel::set_rng_statistic(Tvx_rng_statistic const &statistic)
{
    f_total->set_value(static_cast<int>(statistic.total));
    f_undefined->set_value(static_cast<int>(statistic.undefined));
    set_min(statistic.min);
    set_max(statistic.max);
    f_average->set_value(statistic.average);
    f_std_dev->set_value(statistic.std_dev);
}
