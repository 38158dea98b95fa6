#include "style_manager/scales/detail/range_counts.h"

#include "style_manager/scales/detail/scale_data.h"
#include "style_manager/widgets/detail/open_data.h"

#include "platform/styles/vx_rng_scale.h"
#include "platform/toolkit/core/screen.h"

std::vector<double> Tvx_range_counts::bounds_of(void const *scale)
{
    unsigned const size = vx_rng_scale_get_size(scale);
    std::vector<double> bounds{vx_rng_scale_get_min_value(scale), vx_rng_scale_get_max_value(scale)};
    bounds.reserve(2 + 2 * std::size_t{size});
    for (unsigned i = 0; i < size; ++i) {
        bounds.push_back(vx_rng_scale_get_min(scale, i));
        bounds.push_back(vx_rng_scale_get_max(scale, i));
    }
    return bounds;
}

bool Tvx_range_counts::has(void const *scale, std::wstring const &prop_name) const
{
    return !f_counts.empty() && prop_name == f_prop_name && bounds_of(scale) == f_bounds;
}

std::vector<unsigned> const *Tvx_range_counts::get(void const *scale, std::wstring const &prop_name,
                                                   Tvx_data_events data, TObject *sender, bool &is_given_up)
{
    is_given_up = false;
    if (has(scale, prop_name))
        return &f_counts;
    f_counts.clear();
    if (!scale || !vx_has_all_data(data))
        return nullptr;
    open_data const opened(data, sender);
    if (!opened)
        return nullptr;
    vx_wait_cursor const waiting;
    unsigned const objects = data.get_no(sender);
    int const found = vx_find_prop(data, sender, prop_name);
    auto const prop = static_cast<unsigned>(found);
    std::vector<unsigned> counts;
    for (unsigned i = 0; found >= 0 && i < objects; ++i) {
        bool defined = false;
        double const value = data.get_val(sender, prop, i, defined);
        if (i == 0) { // after events were handled, if the column had to be read
            is_given_up = opened.is_given_up();
            if (is_given_up)
                return nullptr;
            counts.resize(vx_rng_scale_get_size(scale) + 3);
        }
        ++counts[defined ? vx_rng_scale_find(scale, value) : counts.size() - 1];
    }
    counts.resize(vx_rng_scale_get_size(scale) + 3);
    if (found < 0)
        counts.back() = objects;
    f_counts = std::move(counts);
    f_bounds = bounds_of(scale);
    f_prop_name = prop_name;
    return &f_counts;
}
