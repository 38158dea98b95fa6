#pragma once

#include "platform/base/export.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>

/// Which pages the layer page set shows for which type of layer, as plain data: no window, no layer.
namespace vx {
/// The four fixed tabs, in their order.
enum class lr2d_tab : std::uint8_t
{
    prop,
    style,
    text,
    text_mngr,
};

/// The pages, in the order in which they are made and loaded.
enum class lr2d_page : std::uint8_t
{
    rtr,
    shp_pnt,
    shp_pln,
    shp_pgn,
    tos_grid,
    tos_slice,
    tos_2crd,
    tld,
    dtld,
    txt_pnt,
    txt_pln,
    txt_pgn,
    txt_tos_2crd,
};
inline constexpr std::size_t c_lr2d_page_count = 13;

/// Where a page stands and whether the page set listens to its change reports. What the other pages change
/// waits for Apply.
struct lr2d_page_place
{
    lr2d_page page;
    lr2d_tab tab;
    bool reports;
};

/// One entry for each page, at the page's number.
inline constexpr std::array<lr2d_page_place, c_lr2d_page_count> c_lr2d_page_places = {{
    {lr2d_page::rtr, lr2d_tab::style, false},
    {lr2d_page::shp_pnt, lr2d_tab::style, false},
    {lr2d_page::shp_pln, lr2d_tab::style, false},
    {lr2d_page::shp_pgn, lr2d_tab::style, false},
    {lr2d_page::tos_grid, lr2d_tab::style, true},
    {lr2d_page::tos_slice, lr2d_tab::prop, true},
    {lr2d_page::tos_2crd, lr2d_tab::style, true},
    {lr2d_page::tld, lr2d_tab::style, false},
    {lr2d_page::dtld, lr2d_tab::text, true},
    {lr2d_page::txt_pnt, lr2d_tab::text_mngr, true},
    {lr2d_page::txt_pln, lr2d_tab::text_mngr, true},
    {lr2d_page::txt_pgn, lr2d_tab::text_mngr, true},
    {lr2d_page::txt_tos_2crd, lr2d_tab::text_mngr, true},
}};

/// The order in which the pages are shown or cleared. `dtld` goes first, with the text tabs; the property tab
/// follows it.
inline constexpr std::array<lr2d_page, c_lr2d_page_count> c_lr2d_page_update_order = {
    lr2d_page::dtld,     lr2d_page::rtr,       lr2d_page::shp_pnt,  lr2d_page::txt_pnt,
    lr2d_page::shp_pln,  lr2d_page::txt_pln,   lr2d_page::shp_pgn,  lr2d_page::txt_pgn,
    lr2d_page::tos_grid, lr2d_page::tos_slice, lr2d_page::tos_2crd, lr2d_page::txt_tos_2crd,
    lr2d_page::tld,
};

/// A set of pages.
class lr2d_page_set
{
public:
    constexpr lr2d_page_set() = default;
    constexpr lr2d_page_set(std::initializer_list<lr2d_page> pages)
    {
        for (auto const page : pages)
            f_bits |= bit(page);
    }
    [[nodiscard]] constexpr bool has(lr2d_page page) const { return (f_bits & bit(page)) != 0; }
    friend constexpr bool operator==(lr2d_page_set const &, lr2d_page_set const &) = default;

private:
    static constexpr unsigned bit(lr2d_page page) { return 1u << static_cast<unsigned>(page); }
    unsigned f_bits = 0;
};

/// What the property tab says, and whether it is there.
enum class lr2d_prop_tab : std::uint8_t
{
    hidden,
    slice,
    two_coordinates,
};

/// Whose text layer the page `dtld` gets; every other page gets the working copy itself.
enum class lr2d_text_layer : std::uint8_t
{
    none,
    shape,
    two_coordinates,
};

/// One row of the page matrix.
struct lr2d_page_row
{
    std::string_view key;
    lr2d_prop_tab prop_tab;
    bool style_tab; ///< false: never shown; true: shown by the rule of `lr2d_style_tab_shown`
    bool text_mngr_tab;
    lr2d_text_layer text_layer;
    lr2d_page_set pages;
};

/// The row of a layer type key; keys compare exactly. A key without a row of its own, the empty key and a
/// null pointer give the last row, which shows no page.
[[nodiscard]] VX_API lr2d_page_row const &lr2d_page_row_find(char const *key);

/// A layer that a plug-in serves has no style tab, whatever its key; a page set for layouts never has one.
[[nodiscard]] constexpr bool lr2d_style_tab_shown(lr2d_page_row const &row, bool page_set_has_style_tab,
                                                  bool layer_has_plugin)
{
    return page_set_has_style_tab && row.style_tab && !layer_has_plugin;
}
} // namespace vx
