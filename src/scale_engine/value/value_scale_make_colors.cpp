#include "scale_engine/value/value_scale_make_colors.h"

#include "scale_engine/value/detail/value_rows.h"

namespace vx::task {
void value_scale_make_colors::execute(void *scale, Tvx_clr_palette_idx palette, bool random)
{
    detail::color_rows_anew(detail::value_row_prms(scale, false), palette, random);
}

void value_scale_make_colors::execute(void *scale, Tvx_clr_palette_idx palette, void const *palette_ptr,
                                      bool only_marked, bool selection, bool random)
{
    detail::color_rows(detail::value_row_prms(scale, only_marked), palette, palette_ptr, selection, random);
}

void value_scale_make_colors::execute(void *scale, Tvx_clr_palette_idx palette, bool only_marked,
                                      bool selection, bool random)
{
    execute(scale, palette, nullptr, only_marked, selection, random);
}

void value_scale_make_colors::execute(void *scale, void const *palette_ptr, bool only_marked, bool selection,
                                      bool random)
{
    execute(scale, Tvx_clr_palette_idx{}, palette_ptr, only_marked, selection, random);
}
} // namespace vx::task
