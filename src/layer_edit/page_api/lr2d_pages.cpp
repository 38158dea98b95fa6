#include "layer_edit/page_api/lr2d_pages.h"

#include "platform/layers/layer_keys.h"

#include <algorithm>

namespace vx {
namespace {
using p = lr2d_page;
using prop = lr2d_prop_tab;
using text = lr2d_text_layer;

// key, property tab, style tab, text manager tab, text layer, pages
constexpr lr2d_page_row c_rows[] = {
    {c_lr_key_shp_pnt, prop::hidden, true, true, text::shape, {p::shp_pnt, p::txt_pnt, p::dtld}},
    {c_lr_key_shp_pln, prop::hidden, true, true, text::shape, {p::shp_pln, p::txt_pln, p::dtld}},
    {c_lr_key_shp_pgn, prop::hidden, true, true, text::shape, {p::shp_pgn, p::txt_pgn, p::dtld}},
    {c_lr_key_rtr, prop::hidden, true, false, text::none, {p::rtr}},
    {c_lr_key_tos_grid, prop::hidden, true, false, text::none, {p::tos_grid}},
    {c_lr_key_tos_slice, prop::slice, true, false, text::none, {p::tos_grid, p::tos_slice}},
    {c_lr_key_tos_2crd,
     prop::two_coordinates,
     true,
     true,
     text::two_coordinates,
     {p::tos_2crd, p::txt_tos_2crd, p::dtld}},
    {c_lr_key_tos_grid_1d, prop::hidden, false, false, text::none, {}},
    {c_lr_key_tld, prop::hidden, true, false, text::none, {p::tld}},
};

constexpr lr2d_page_row c_other_row = {"", prop::hidden, true, false, text::none, {}};

static_assert(std::ranges::all_of(c_lr2d_page_places, [](auto const &place) {
    return &place - c_lr2d_page_places.data() == static_cast<std::ptrdiff_t>(place.page);
}));
} // namespace

lr2d_page_row const &lr2d_page_row_find(char const *key)
{
    if (!key)
        return c_other_row;
    auto const *row = std::ranges::find(c_rows, std::string_view(key), &lr2d_page_row::key);
    return row == std::end(c_rows) ? c_other_row : *row;
}
} // namespace vx
