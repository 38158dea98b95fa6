#pragma once

#include "platform/base/owned.h"
#include "platform/basic/vx_palette.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_prm.h"

#include <vector>

/// What value and range tasks do alike with the styles of their rows.
namespace vx::task::detail {
/// Scale parameters of rows, in the order of the rows.
using prm_list = std::vector<void *>;

/// Gives the rows the colours that the palette makes of their present ones. A `palette_ptr` that is not null
/// goes before `palette`.
void color_rows(prm_list const &rows, Tvx_clr_palette_idx palette, void const *palette_ptr, bool selection,
                bool random);
/// The same on the base styles, whatever their colours are.
void color_rows_anew(prm_list const &rows, Tvx_clr_palette_idx palette, bool random);

/// Gives each row a free-standing style by one of the functions of `scale_prm`.
inline void assign_to_rows(prm_list const &rows, void const *style, void (*assign)(void *, void const *))
{
    for (void *const row : rows)
        assign(row, style);
}

/// Exchanges the styles of rows from both ends of the list inward; the row in the middle keeps its own.
/// `prm_of(row)` gives scale parameters, `set_style(row, stl_prm)` copies a style into the row.
template <class Row, class Prm, class Set>
void invert_rows(std::vector<Row> const &rows, Prm prm_of, Set set_style)
{
    auto const style_of = [&](Row row) { return vx_scale_prm_get_stl_prm_ptr(prm_of(row)); };
    for (std::size_t i = 0; i < rows.size() / 2; ++i) {
        Row const a = rows[i];
        Row const b = rows[rows.size() - 1 - i];
        vx::owned<void, &vx_stl_prm_destroy> const kept(vx_stl_prm_clone(style_of(a)));
        set_style(a, style_of(b));
        set_style(b, kept.get());
    }
}
} // namespace vx::task::detail
