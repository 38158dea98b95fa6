#include "scale_engine/range/range_scale_update_caption.h"

#include "captions/style_manager.h"
#include "scale_engine/model/detail/scale_text.h"

#include "platform/base/strutil.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_round_digits.h"

namespace vx::task {
namespace {
using get_bound = double (*)(void const *scale, unsigned index);

/// The bounds of the whole scale for its ends, one bound of each range for the ranges.
void captions_of_one_bound(void *scale, get_bound bound)
{
    int const digits = vx_rng_scale_get_round_digits(scale);
    auto const text = [digits](double value) {
        return range_scale_update_caption::format_number(value, digits);
    };
    vx_rng_scale_set_min_caption_w(scale, text(vx_rng_scale_get_min_value(scale)).c_str());
    unsigned const size = vx_rng_scale_get_size(scale);
    for (unsigned i = 0; i < size; ++i)
        vx_rng_scale_set_caption_w(scale, i, text(bound(scale, i)).c_str());
    vx_rng_scale_set_max_caption_w(scale, text(vx_rng_scale_get_max_value(scale)).c_str());
}
} // namespace

void range_scale_update_caption::execute(void *scale, scale_caption caption)
{
    switch (caption) {
    case scale_caption::interval:
        interval(scale);
        break;
    case scale_caption::minimum:
        minimum(scale);
        break;
    case scale_caption::maximum:
        maximum(scale);
        break;
    }
}

void range_scale_update_caption::interval(void *scale)
{
    int const digits = vx_rng_scale_get_round_digits(scale);
    auto const text = [digits](double value) { return format_number(value, digits); };
    using vx::strutil::format;
    auto const min_value = text(vx_rng_scale_get_min_value(scale));
    auto const max_value = text(vx_rng_scale_get_max_value(scale));
    vx_rng_scale_set_min_caption_w(scale,
                                   format(vx_res_get_wstr(c_caption_range_below), min_value.c_str()).c_str());
    vx_rng_scale_set_max_caption_w(scale,
                                   format(vx_res_get_wstr(c_caption_range_above), max_value.c_str()).c_str());
    wchar_t const *const between = vx_res_get_wstr(c_caption_range_between);
    unsigned const size = vx_rng_scale_get_size(scale);
    for (unsigned i = 0; i < size; ++i) {
        auto const lower = text(vx_rng_scale_get_min(scale, i));
        auto const upper = text(vx_rng_scale_get_max(scale, i));
        vx_rng_scale_set_caption_w(scale, i, format(between, lower.c_str(), upper.c_str()).c_str());
    }
}

void range_scale_update_caption::minimum(void *scale)
{
    captions_of_one_bound(scale, &vx_rng_scale_get_min);
}

void range_scale_update_caption::maximum(void *scale)
{
    captions_of_one_bound(scale, &vx_rng_scale_get_max);
}

std::wstring range_scale_update_caption::format_number(double value, int digits)
{
    return detail::scale_text(&vx_round_digits_format_number, digits, value);
}
} // namespace vx::task
