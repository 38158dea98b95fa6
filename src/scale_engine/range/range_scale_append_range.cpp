#include "scale_engine/range/range_scale_append_range.h"

#include "scale_engine/range/detail/classify.h"

#include "platform/base/halfway.h"
#include "platform/styles/vx_rng_scale.h"

#include <algorithm>

namespace vx::task {
namespace {
double middle_of(void const *scale, unsigned index)
{
    return vx_halfway(vx_rng_scale_get_min(scale, index), vx_rng_scale_get_max(scale, index));
}
} // namespace

void range_scale_append_range::execute(void *scale, int position)
{
    unsigned const size = vx_rng_scale_get_size(scale); // before the insertion
    unsigned const wanted = std::min(static_cast<unsigned>(std::max(position, 0)), size);
    unsigned const place = vx_rng_scale_ins(scale, wanted);

    constexpr bool base = false;
    for (auto const gradient : {&vx_rng_scale_clr_gradient, &vx_rng_scale_hue_gradient,
                                &vx_rng_scale_transparency_gradient, &vx_rng_scale_size_gradient})
        gradient(scale, place, place + 2, base); // in rows, of which the min entry is the first

    double lower = place > 0 ? vx_rng_scale_get_max(scale, place - 1) : vx_rng_scale_get_min_value(scale);
    double upper = place < size ? vx_rng_scale_get_min(scale, place + 1) : vx_rng_scale_get_max_value(scale);
    if (lower == upper && size > 0) {
        if (place == size) {
            lower = middle_of(scale, place - 1);
            vx_rng_scale_set_max(scale, place - 1, lower);
        } else {
            upper = middle_of(scale, place + 1);
            vx_rng_scale_set_min(scale, place + 1, upper);
        }
    }
    detail::set_range(scale, place, lower, upper);
    vx_rng_scale_set_default_caption(scale, place);
}
} // namespace vx::task
