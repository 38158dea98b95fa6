#include "scale_engine/range/range_scale_sort.h"

#include "data/filesystem/tutils.h"
#include "scale_engine/model/detail/entry_sort.h"
#include "scale_engine/model/detail/scale_text.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_ints.h"
#include "platform/styles/vx_rng_scale.h"

namespace vx::task {
range_scale_sort::range_scale_sort(scale_sortby by, scale_sortas as, scale_sortord order)
    : f_by(by), f_as(as), f_order(order)
{
}

void range_scale_sort::execute(void *scale) const
{
    vx::owned<void, &vx_ints_destroy> const ints(vx_ints_create());
    execute(scale, ints.get());
    vx_rng_scale_set_order(scale, ints.get());
}

void range_scale_sort::execute(void const *scale, void *ints) const
{
    bool const by_bound = f_by == scale_sortby::minimum || f_by == scale_sortby::maximum;
    unsigned const size = by_bound || f_by == scale_sortby::caption ? vx_rng_scale_get_size(scale) : 0;
    auto const bound = [&](unsigned i) {
        return f_by == scale_sortby::minimum ? vx_rng_scale_get_min(scale, i)
                                             : vx_rng_scale_get_max(scale, i);
    };
    auto const caption = [&](unsigned i) {
        return detail::scale_text(&vx_rng_scale_get_caption_w, scale, i);
    };
    detail::write_order(
        size, f_as, f_order, ints,
        [&](unsigned i) {
            return by_bound ? detail::scale_sort_numeric{bound(i), true, i}
                            : detail::scale_sort_numeric::from_text(caption(i), i);
        },
        [&](unsigned i) { return by_bound ? Tutils::dbl2wstr(bound(i)) : caption(i); });
}
} // namespace vx::task
