#pragma once

#include "scale_engine/model/detail/entry_styles.h"

#include "platform/styles/vx_val_scale.h"

#include <vector>

/// The entries of a value scale that take part in an operation.
namespace vx::task::detail {
/// Indexes of all entries, or of the marked ones.
[[nodiscard]] inline std::vector<unsigned> value_rows(void const *scale, bool only_marked)
{
    std::vector<unsigned> rows;
    unsigned const size = vx_val_scale_get_size(scale);
    for (unsigned i = 0; i < size; ++i)
        if (!only_marked || vx_val_scale_get_marked(scale, i))
            rows.push_back(i);
    return rows;
}

[[nodiscard]] inline prm_list value_row_prms(void *scale, bool only_marked)
{
    prm_list prms;
    for (unsigned const row : value_rows(scale, only_marked))
        prms.push_back(vx_val_scale_get_scale_prm_ptr(scale, row));
    return prms;
}
} // namespace vx::task::detail
