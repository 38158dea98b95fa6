#include "scale_engine/model/detail/entry_styles.h"

namespace vx::task::detail {
namespace {
using color_list = std::vector<Tvx_color>;

void write_colors(prm_list const &rows, color_list const &colors, bool selection)
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        vx_stl_prm_clr_set_all(vx_scale_prm_get_stl_prm_ptr(rows[i]), colors[i], selection);
}
} // namespace

void color_rows(prm_list const &rows, Tvx_clr_palette_idx palette, void const *palette_ptr, bool selection,
                bool random)
{
    if (rows.empty())
        return;
    color_list colors;
    colors.reserve(rows.size());
    for (void *const row : rows)
        colors.push_back(vx_stl_prm_get_color(vx_scale_prm_get_stl_prm_ptr(row), selection));
    auto const count = static_cast<unsigned>(colors.size());
    if (palette_ptr)
        vx_clr_arrays_generate_palette_ex(palette_ptr, count, colors.data(), random);
    else
        vx_clr_arrays_generate_ex(palette, count, colors.data(), random);
    write_colors(rows, colors, selection);
}

void color_rows_anew(prm_list const &rows, Tvx_clr_palette_idx palette, bool random)
{
    if (rows.empty())
        return;
    color_list colors(rows.size());
    vx_clr_arrays_generate_ex(palette, static_cast<unsigned>(colors.size()), colors.data(), random);
    constexpr bool base = false;
    write_colors(rows, colors, base);
}
} // namespace vx::task::detail
