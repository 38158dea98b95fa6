#include "scale_engine/rule/rule_scale_build_ranges.h"

#include "scale_engine/model/detail/scale_text.h"
#include "scale_engine/range/range_scale_update_caption.h"

#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"

namespace vx::task {
using detail::scale_text;

rule_scale_build_ranges::rule_scale_build_ranges(void *stl_mngr)
    : f_rule_scale(vx_stl_mngr_get_rule_scale_ptr(stl_mngr)),
      f_rng_scale(vx_stl_mngr_get_rng_scale_ptr(stl_mngr)),
      f_field(scale_text(&vx_stl_mngr_get_rng_prop_name_w, stl_mngr)),
      f_digits(vx_rng_scale_get_round_digits(f_rng_scale)), f_filter(vx_calc_filter_create())
{
}

bool rule_scale_build_ranges::build(void *stl_mngr)
{
    return rule_scale_build_ranges(stl_mngr).execute();
}

bool rule_scale_build_ranges::execute()
{
    if (!f_rule_scale || f_field.empty())
        return false;
    unsigned const size = vx_rng_scale_get_size(f_rng_scale);
    vx_val_scale_set_size(f_rule_scale, size + 2);
    make_min_rule();
    make_min_style();
    for (unsigned i = 0; i < size; ++i) {
        make_rule(i);
        make_style(i);
    }
    make_max_rule(size + 1);
    make_max_style(size + 1);
    make_other();
    return true;
}

void rule_scale_build_ranges::make_min_rule()
{
    add(c_calc_filter_rel_less_eq, vx_rng_scale_get_min_value(f_rng_scale), c_calc_filter_logic_empty);
    store(0);
}

void rule_scale_build_ranges::make_rule(unsigned range)
{
    add(c_calc_filter_rel_greater, vx_rng_scale_get_min(f_rng_scale, range), c_calc_filter_logic_and);
    add(c_calc_filter_rel_less_eq, vx_rng_scale_get_max(f_rng_scale, range), c_calc_filter_logic_empty);
    store(range + 1);
}

void rule_scale_build_ranges::make_max_rule(unsigned index)
{
    add(c_calc_filter_rel_greater, vx_rng_scale_get_max_value(f_rng_scale), c_calc_filter_logic_empty);
    store(index);
}

void rule_scale_build_ranges::make_min_style()
{
    set_entry(0, scale_text(&vx_rng_scale_get_min_caption_w, f_rng_scale),
              vx_rng_scale_get_min_prm_ptr(f_rng_scale));
}

void rule_scale_build_ranges::make_style(unsigned range)
{
    set_entry(range + 1, scale_text(&vx_rng_scale_get_caption_w, f_rng_scale, range),
              vx_rng_scale_get_scale_prm_ptr(f_rng_scale, range));
}

void rule_scale_build_ranges::make_max_style(unsigned index)
{
    set_entry(index, scale_text(&vx_rng_scale_get_max_caption_w, f_rng_scale),
              vx_rng_scale_get_max_prm_ptr(f_rng_scale));
}

void rule_scale_build_ranges::make_other()
{
    vx_val_scale_set_other_caption_w(f_rule_scale,
                                     scale_text(&vx_rng_scale_get_other_caption_w, f_rng_scale).c_str());
    vx_scale_prm_assign(vx_val_scale_get_other_prm_ptr(f_rule_scale),
                        vx_rng_scale_get_other_prm_ptr(f_rng_scale));
}

void rule_scale_build_ranges::add(wchar_t const *relation, double bound, wchar_t const *logic)
{
    auto const text = range_scale_update_caption::format_number(bound, f_digits);
    vx_calc_filter_add(f_filter.get(), 1, f_field.c_str(), relation, text.c_str(), logic, 1);
}

void rule_scale_build_ranges::store(unsigned index)
{
    vx_val_scale_set_text_w(f_rule_scale, index, scale_text(&vx_calc_filter_to_str, f_filter.get()).c_str());
    vx_calc_filter_clear(f_filter.get());
}

void rule_scale_build_ranges::set_entry(unsigned index, std::wstring const &caption, void const *scale_prm)
{
    vx_val_scale_set_caption_w(f_rule_scale, index, caption.c_str());
    vx_scale_prm_assign(vx_val_scale_get_scale_prm_ptr(f_rule_scale, index), scale_prm);
}
} // namespace vx::task
