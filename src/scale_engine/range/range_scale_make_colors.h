#pragma once

#include "platform/base/export.h"
#include "platform/basic/vx_palette.h"

namespace vx::task {
/// Colours a range scale from a palette: min entry, ranges, max entry in this order. `random` false runs
/// along the palette, true takes its colours in an order by chance. The other entry is never coloured.
struct VX_API range_scale_make_colors
{
    /// Fresh colours for the base styles of all rows.
    static void execute(void *scale, Tvx_clr_palette_idx palette, bool random);
    /// A `palette_ptr` (`vx_clr_palette_create`) that is not null goes before `palette`. `only_marked`
    /// colours marked rows alone, as if there were no others; `selection` means the selection styles.
    static void execute(void *scale, Tvx_clr_palette_idx palette, void const *palette_ptr, bool only_marked,
                        bool selection, bool random);
    static void execute(void *scale, Tvx_clr_palette_idx palette, bool only_marked, bool selection,
                        bool random);
    static void execute(void *scale, void const *palette_ptr, bool only_marked, bool selection, bool random);
};
} // namespace vx::task
