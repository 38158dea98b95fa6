#include "scale_engine/value/value_scale_sort.h"

#include "scale_engine/model/detail/entry_sort.h"
#include "scale_engine/model/detail/scale_text.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_ints.h"
#include "platform/styles/vx_val_scale.h"

namespace vx::task {
value_scale_sort::value_scale_sort(scale_sortby by, scale_sortas as, scale_sortord order)
    : f_by(by), f_as(as), f_order(order)
{
}

void value_scale_sort::execute(void *scale) const
{
    vx::owned<void, &vx_ints_destroy> const ints(vx_ints_create());
    execute(scale, ints.get());
    vx_val_scale_set_order(scale, ints.get());
}

void value_scale_sort::execute(void const *scale, void *ints) const
{
    bool const by_text = f_by == scale_sortby::text;
    unsigned const size = by_text || f_by == scale_sortby::caption ? vx_val_scale_get_size(scale) : 0;
    auto const key = [&](unsigned i) {
        return detail::scale_text(by_text ? &vx_val_scale_get_text_w : &vx_val_scale_get_caption_w, scale, i);
    };
    detail::write_order(
        size, f_as, f_order, ints,
        [&](unsigned i) { return detail::scale_sort_numeric::from_text(key(i), i); }, key);
}
} // namespace vx::task
