#include "platform/layers/detail/layout_layer.h"

#include "platform/layers/layout_keys.h"
#include "platform/styles/vx_base_style.h"

#include <algorithm>
#include <string_view>

namespace vx::layers {
namespace {
template <class Element>
std::unique_ptr<Ivx_layer> make(std::string const &key)
{
    return std::make_unique<Element>(key);
}

/// A kind of element and what a new one is like.
struct element_kind
{
    std::string_view key;
    std::unique_ptr<Ivx_layer> (*make)(std::string const &key);
    double width; ///< mm
    double height;
    bool is_filled = false;
    bool is_outlined = false;
};
constexpr element_kind c_kinds[] = {
    {c_lr_key_layout_page, &make<layout_layer>, 210, 297, true},
    {c_lr_key_layout_scene_frame, &make<layout_element<layout_frame>>, 180, 180, false, true},
    {c_lr_key_layout_text, &make<layout_element<layout_text>>, 80, 10},
    {c_lr_key_layout_neatline, &make<layout_layer>, 190, 277, false, true},
    {c_lr_key_layout_legend, &make<layout_element<Tvx_layout_legend>>, 60, 80},
    {c_lr_key_layout_north_arrow, &make<layout_element<Tvx_layout_north_arrow>>, 15, 20},
    {c_lr_key_layout_scale_bar, &make<layout_element<Tvx_layout_scale_bar>>, 70, 10},
    {c_lr_key_layout_scale_text, &make<layout_layer>, 40, 6},
    {c_lr_key_layout_image, &make<layout_element<layout_image>>, 60, 40},
    {c_lr_key_layout_table, &make<layout_element<Tvx_layout_table>>, 100, 60},
    {c_lr_key_layout_ole_object, &make<layout_layer>, 60, 40},
};
constexpr double c_margin = 10; ///< from the edges of the page to a new element

element_kind const *find_kind(std::string_view key)
{
    auto const *const at = std::find_if(std::begin(c_kinds), std::end(c_kinds),
                                        [&](element_kind const &kind) { return kind.key == key; });
    return at == std::end(c_kinds) ? nullptr : at;
}
} // namespace

layout_layer::layout_layer(std::string type_key) : Ivx_layer(std::move(type_key))
{
    element_kind const &kind = *find_kind(key);
    double const from = is_page() ? 0 : c_margin;
    box = {from, from, from + kind.width, from + kind.height};
    // Paper is white, and so is what somebody lays under an element.
    vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(style.get()), vx_clr_init_rgb(255, 255, 255));
    vx_pgn_style_set_pgn_visible(style.get(), kind.is_filled);
    vx_pgn_style_set_pln_visible(style.get(), kind.is_outlined);
}

std::unique_ptr<Ivx_layer> layout_layer::clone() const
{
    auto copy = std::make_unique<layout_layer>(key);
    copy->take_common(*this);
    return copy;
}

bool layout_layer::is_page() const
{
    return key == c_lr_key_layout_page;
}

void layout_layer::take_common(layout_layer const &source)
{
    Ivx_layer::take_common(source);
    box = source.box;
    writing = source.writing;
    vx_pgn_style_assign(style.get(), source.style.get());
}

std::unique_ptr<Ivx_layer> make_layout_layer(std::string const &key)
{
    auto const *const kind = find_kind(key);
    return kind ? kind->make(key) : nullptr;
}
} // namespace vx::layers
