#include "scale_engine/range/detail/range_rows.h"

#include "platform/styles/vx_rng_scale.h"

namespace vx::task::detail {
std::vector<range_row> range_rows(void const *scale, bool only_marked)
{
    unsigned const size = vx_rng_scale_get_size(scale);
    std::vector<range_row> rows;
    rows.reserve(std::size_t{size} + 2);
    if (!only_marked || vx_rng_scale_get_min_marked(scale))
        rows.push_back(0);
    for (unsigned i = 0; i < size; ++i)
        if (!only_marked || vx_rng_scale_get_marked(scale, i))
            rows.push_back(i + 1);
    if (!only_marked || vx_rng_scale_get_max_marked(scale))
        rows.push_back(size + 1);
    return rows;
}

void *range_row_prm(void *scale, range_row row)
{
    if (row == 0)
        return vx_rng_scale_get_min_prm_ptr(scale);
    return row <= vx_rng_scale_get_size(scale) ? vx_rng_scale_get_scale_prm_ptr(scale, row - 1)
                                               : vx_rng_scale_get_max_prm_ptr(scale);
}

prm_list range_row_prms(void *scale, bool only_marked)
{
    prm_list prms;
    for (range_row const row : range_rows(scale, only_marked))
        prms.push_back(range_row_prm(scale, row));
    return prms;
}

void set_range_row_style(void *scale, range_row row, void const *stl_prm, bool selection)
{
    if (row == 0)
        vx_rng_scale_set_min_style_prm(scale, stl_prm, selection);
    else if (row <= vx_rng_scale_get_size(scale))
        vx_rng_scale_set_stl_prm(scale, row - 1, stl_prm, selection);
    else
        vx_rng_scale_set_max_style_prm(scale, stl_prm, selection);
}
} // namespace vx::task::detail
