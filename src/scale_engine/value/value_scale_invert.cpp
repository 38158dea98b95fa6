#include "scale_engine/value/value_scale_invert.h"

#include "scale_engine/value/detail/value_rows.h"

namespace vx::task {
void value_scale_invert::execute(void *scale, bool only_marked, bool selection)
{
    detail::invert_rows(
        detail::value_rows(scale, only_marked),
        [scale](unsigned row) { return vx_val_scale_get_scale_prm_ptr(scale, row); },
        [scale, selection](unsigned row, void const *stl_prm) {
            vx_val_scale_set_stl_prm(scale, row, stl_prm, selection);
        });
}
} // namespace vx::task
