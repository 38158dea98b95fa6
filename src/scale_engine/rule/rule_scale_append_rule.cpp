#include "scale_engine/rule/rule_scale_append_rule.h"

#include "scale_engine/model/detail/new_entry.h"
#include "scale_engine/model/detail/scale_text.h"

#include "platform/calculator/vx_calc_filter.h"

namespace vx::task {
int rule_scale_append_rule::execute(void const *filter, void *scale)
{
    unsigned const index = detail::add_entry(scale);
    rule_scale_edit_rule::execute(filter, scale, index);
    vx_val_scale_set_caption_w(scale, index,
                               detail::scale_text(&vx_calc_filter_pretty_print, filter).c_str());
    return static_cast<int>(index);
}

void rule_scale_edit_rule::init(void *filter, void const *scale, unsigned index)
{
    auto const text = detail::scale_text(&vx_val_scale_get_text_w, scale, index);
    if (!text.empty())
        vx_calc_filter_from_str(filter, text.c_str());
}

void rule_scale_edit_rule::execute(void const *filter, void *scale, unsigned index)
{
    vx_val_scale_set_text_w(scale, index, detail::scale_text(&vx_calc_filter_to_str, filter).c_str());
}
} // namespace vx::task
