#include "scale_engine/range/range_scale_invert.h"

#include "scale_engine/range/detail/range_rows.h"

namespace vx::task {
void range_scale_invert::execute(void *scale, bool only_marked, bool selection)
{
    detail::invert_rows(
        detail::range_rows(scale, only_marked),
        [scale](detail::range_row row) { return detail::range_row_prm(scale, row); },
        [scale, selection](detail::range_row row, void const *stl_prm) {
            detail::set_range_row_style(scale, row, stl_prm, selection);
        });
}
} // namespace vx::task
