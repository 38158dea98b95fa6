#include "scale_builders/value/val_rebuild_with_legend_exec.h"

#include "data/filesystem/tutils.h"
#include "scale_builders/value/stdleg_load_dbf.h"
#include "scale_engine/model/scale_prm.h"

#include "platform/base/ascii_case.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"

int Tvx_val_rebuild_with_legend_exec::execute(Tvx_val_params *params, Tvx_val_capt_statistic *statistic)
{
    f_params = params;
    f_statistic = statistic;
    load_dbf();
    if (!f_is_stopped)
        save_scl();
    return 0;
}

void Tvx_val_rebuild_with_legend_exec::load_dbf()
{
    auto const &p = *f_params->get_rebuild_with_legend_params_ptr();
    Tvx_stdleg_load_dbf loader;
    loader.execute(&f_items, p.get_legdbf_filename().c_str(), p.get_lcode_propname().c_str(),
                   p.get_bcode_propname().c_str(), p.get_capt1_flag(), p.get_capt2_flag(), p.get_capt3_flag(),
                   p.get_capt1_propname().c_str(), p.get_capt2_propname().c_str(),
                   p.get_capt3_propname().c_str(), p.get_stdlib_index());
    f_is_stopped = loader.is_stopped();
}

int Tvx_val_rebuild_with_legend_exec::get_legend_style_type() const
{
    char const *const key = vx_stl_mngr_get_style_type(f_params->get_stl_mngr());
    auto const is = [key](char const *other) { return key && vx::text::ascii_same(key, other); };
    return is(c_pnt_style)   ? c_pnt_legend_style_type
           : is(c_pln_style) ? c_pln_legend_style_type
           : is(c_pgn_style) ? c_pgn_legend_style_type
                             : c_nil_legend_style_type;
}

Tvx_val_capt_item *Tvx_val_rebuild_with_legend_exec::find_in_stat(int code) const
{
    return f_statistic->find(Tutils::int2str(code).c_str());
}

void Tvx_val_rebuild_with_legend_exec::save_scl()
{
    using vx::task::detail::scale_prm;
    int const type = get_legend_style_type();
    void *const scale = vx_stl_mngr_get_val_scale_ptr(f_params->get_stl_mngr());
    vx_val_scale_set_size(scale, 0);
    for (unsigned i = 0; i < f_items.get_size(); ++i) {
        auto *const row = f_items.get_ptr(i);
        auto *const value = find_in_stat(row->get_lcode());
        if (!value)
            continue;
        value->set_marked(true);
        unsigned const entry = vx_val_scale_add(scale) - 1;
        vx_val_scale_set_text(scale, entry, value->get_val().c_str());
        vx_val_scale_set_caption(scale, entry, row->get_caption().c_str());
        void *const prm = vx_val_scale_get_scale_prm_ptr(scale, entry);
        if (type == c_pnt_legend_style_type)
            scale_prm::assign_pnt_style(prm, row->get_pnt_style_ptr());
        else if (type == c_pln_legend_style_type)
            scale_prm::assign_pln_style(prm, row->get_pln_style_ptr());
        else if (type == c_pgn_legend_style_type)
            scale_prm::assign_pgn_style(prm, row->get_pgn_style_ptr());
    }
}
