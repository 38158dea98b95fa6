#include "platform/render/vx_layout_render.h"

#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/render/detail/layout_canvas.h"
#include "platform/render/detail/layout_drawing.h"
#include "platform/styles/detail/style_model.h"

#include <iterator>
#include <string_view>

namespace vx::render {
namespace {
/// How far an element may reach beyond its box: outlines, and scale bars of a given length.
constexpr double c_reach_mm = 50;

void draw_object(layout_canvas &canvas, Ivx_layer *object)
{
    canvas.draw_missing(vx_layout_lr2d_get_box(object), element_caption(object), false);
}

struct element_drawer
{
    char const *key;
    void (*draw)(layout_canvas &, Ivx_scn_2d const *, Ivx_layer *);
};

template <auto Draw>
void alone(layout_canvas &canvas, Ivx_scn_2d const *, Ivx_layer *element)
{
    Draw(canvas, element);
}

/// What stands on the background of an element. A frame draws its own, with its outline above the map.
constexpr element_drawer c_drawers[] = {
    {c_lr_key_layout_text, &alone<&draw_layout_text>},
    {c_lr_key_layout_legend, &draw_layout_legend},
    {c_lr_key_layout_north_arrow, &alone<&draw_layout_arrow>},
    {c_lr_key_layout_scale_bar, &draw_layout_bar},
    {c_lr_key_layout_scale_text, &draw_layout_scale_text},
    {c_lr_key_layout_image, &alone<&draw_layout_image>},
    {c_lr_key_layout_table, &alone<&draw_layout_table>},
    {c_lr_key_layout_ole_object, &alone<&draw_object>},
};

void draw_element(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *element)
{
    if (!vx_layout_lr2d_is(element))
        return;
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(element);
    if (!canvas.shows(box, c_reach_mm))
        return;
    std::string_view const key = vx_lr2d_get_lr_type(element);
    if (key == c_lr_key_layout_scene_frame)
        return draw_layout_frame(canvas, element);
    auto const &style = *static_cast<styles::pgn_style const *>(vx_layout_lr2d_get_pgn_style_ptr(element));
    canvas.fill(style, box);
    canvas.outline(style, box);
    for (element_drawer const &drawer : c_drawers)
        if (key == drawer.key)
            return drawer.draw(canvas, layout, element);
}

bool has_extent(Tvx_box_d2 const &box)
{
    return box.width() > 0 && box.height() > 0;
}
} // namespace

layout_drawing draw_layout(Ivx_scn_2d *layout, Tvx_box_d2 const &page_box, bmp_dc &dc,
                           closure<bool()> cancelled)
{
    if (!layout || !has_extent(page_box))
        return layout_drawing::incomplete;
    layout_canvas canvas(dc, page_box, cancelled);
    if (!canvas.is_valid())
        return layout_drawing::incomplete;
    for (int i = 0; i < vx_scn_2d_get_count(layout) && !canvas.is_cancelled(); ++i)
        if (Ivx_layer *const element = vx_scn_2d_get_layer(layout, i); vx_lr2d_get_visible(element))
            draw_element(canvas, layout, element);
    return canvas.is_cancelled() ? layout_drawing::cancelled
           : canvas.is_whole()   ? layout_drawing::whole
                                 : layout_drawing::incomplete;
}
} // namespace vx::render

using namespace vx::render;

bool vx_layout_render(Ivx_scn_2d *layout, Tvx_box_d2 const &page_box, void *dc, closure<bool()> cancelled)
{
    return dc &&
           draw_layout(layout, page_box, *static_cast<bmp_dc *>(dc), cancelled) == layout_drawing::whole;
}

bool vx_layout_render_element(Ivx_scn_2d *layout, Ivx_layer *element, Tvx_box_d2 const &page_box, void *dc,
                              closure<bool()> cancelled)
{
    if (!layout || !element || !dc || !has_extent(page_box))
        return false;
    layout_canvas canvas(*static_cast<bmp_dc *>(dc), page_box, cancelled);
    if (!canvas.is_valid())
        return false;
    if (!canvas.is_cancelled())
        draw_element(canvas, layout, element);
    return !canvas.is_cancelled() && canvas.is_whole();
}

Tvx_pnt_d2 vx_layout_get_wanted_size(Ivx_scn_2d *layout, Ivx_layer *element)
{
    if (!vx_layout_lr2d_is(element))
        return {};
    std::string_view const key = vx_lr2d_get_lr_type(element);
    if (key == c_lr_key_layout_legend)
        return layout_legend_size(layout, element);
    if (key == c_lr_key_layout_text)
        return layout_text_size(element);
    if (key == c_lr_key_layout_table)
        return layout_table_size(element);
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(element);
    return {box.width(), box.height()};
}
