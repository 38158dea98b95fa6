#include "scale_engine/rule/rule_scale_build_values.h"

#include "scale_engine/model/detail/scale_text.h"

#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"

namespace vx::task {
using detail::scale_text;

rule_scale_build_values::rule_scale_build_values(void *stl_mngr)
    : f_rule_scale(vx_stl_mngr_get_rule_scale_ptr(stl_mngr)),
      f_val_scale(vx_stl_mngr_get_val_scale_ptr(stl_mngr)),
      f_field(scale_text(&vx_stl_mngr_get_val_prop_name_w, stl_mngr)), f_filter(vx_calc_filter_create())
{
}

bool rule_scale_build_values::build(void *stl_mngr)
{
    return rule_scale_build_values(stl_mngr).execute();
}

bool rule_scale_build_values::execute()
{
    if (!f_rule_scale || f_field.empty())
        return false;
    unsigned const size = vx_val_scale_get_size(f_val_scale);
    vx_val_scale_set_size(f_rule_scale, size);
    for (unsigned i = 0; i < size; ++i) {
        make_rule(i);
        make_style(i);
    }
    make_other();
    return true;
}

void rule_scale_build_values::make_rule(unsigned index)
{
    vx_calc_filter_clear(f_filter.get());
    vx_calc_filter_add(f_filter.get(), 1, f_field.c_str(), c_calc_filter_rel_equal,
                       scale_text(&vx_val_scale_get_text_w, f_val_scale, index).c_str(),
                       c_calc_filter_logic_empty, 1);
    vx_val_scale_set_text_w(f_rule_scale, index, scale_text(&vx_calc_filter_to_str, f_filter.get()).c_str());
}

void rule_scale_build_values::make_style(unsigned index)
{
    vx_val_scale_set_caption_w(f_rule_scale, index,
                               scale_text(&vx_val_scale_get_caption_w, f_val_scale, index).c_str());
    vx_scale_prm_assign(vx_val_scale_get_scale_prm_ptr(f_rule_scale, index),
                        vx_val_scale_get_scale_prm_ptr(f_val_scale, index));
}

void rule_scale_build_values::make_other()
{
    vx_val_scale_set_other_caption_w(f_rule_scale,
                                     scale_text(&vx_val_scale_get_other_caption_w, f_val_scale).c_str());
    vx_scale_prm_assign(vx_val_scale_get_other_prm_ptr(f_rule_scale),
                        vx_val_scale_get_other_prm_ptr(f_val_scale));
}
} // namespace vx::task
