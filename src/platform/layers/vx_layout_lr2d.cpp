#include "platform/layers/vx_layout_lr2d.h"

#include "platform/layers/detail/layout_layer.h"
#include "platform/layers/detail/scene.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_prj.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace vx::layers;

namespace {
constexpr double c_mm_per_metre = 1000;

/// The number in its bounds; the former one where it is none.
double cut(double number, double least, double most, double former)
{
    return std::isfinite(number) ? std::clamp(number, least, most) : former;
}

template <class Choice>
Choice cut(Choice choice, Choice last)
{
    return static_cast<Choice>(std::clamp(static_cast<int>(choice), 0, static_cast<int>(last)));
}

bool is_finite(Tvx_pnt_d2 point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}
bool is_finite(Tvx_box_d2 const &box)
{
    return is_finite(Tvx_pnt_d2{box.min_x, box.min_y}) && is_finite(Tvx_pnt_d2{box.max_x, box.max_y});
}

/// Both ends of a side of a box.
void cut_side(double &from, double &to)
{
    double const length = to - from;
    double const fitting = std::clamp(length, c_layout_shortest_side, c_layout_longest_side);
    double const begin = std::clamp(from, -c_layout_farthest_place, c_layout_farthest_place);
    if (begin != from || fitting != length)
        to = begin + fitting;
    from = begin;
}

template <class Content>
Content *content_of(Ivx_layer *layer)
{
    auto *const element = as<layout_element<Content>>(layer);
    return element ? &element->content : nullptr;
}

/// That of a new element for layers of other kinds.
template <class Content>
Content content_of(Ivx_layer const *layer)
{
    auto const *const element = as<layout_element<Content>>(layer);
    return element ? element->content : Content();
}

/// Map units in a millimetre of the frame, at its scales.
Tvx_pnt_d2 units_per_mm(layout_frame const &frame, Ivx_scn_2d const *scene)
{
    Tvx_pnt_d2 const metres = unit_metres(scene, frame.center);
    double const y = vx_scn_2d_get_izotropic(scene) ? frame.scale_x : frame.scale_y;
    return {frame.scale_x / c_mm_per_metre / metres.x, y / c_mm_per_metre / metres.y};
}
} // namespace

// ---- all elements

bool vx_layout_lr2d_is(Ivx_layer const *layer)
{
    return as<layout_layer>(layer) != nullptr;
}

Tvx_box_d2 vx_layout_lr2d_get_box(Ivx_layer const *layer)
{
    return get(layer, &layout_layer::box, {});
}

void vx_layout_lr2d_set_box(Ivx_layer *layer, Tvx_box_d2 const &box)
{
    auto *const element = as<layout_layer>(layer);
    if (!element || !is_finite(box))
        return;
    Tvx_box_d2 to = element->is_page() ? Tvx_box_d2{0, 0, box.width(), box.height()} : box;
    cut_side(to.min_x, to.max_x);
    cut_side(to.min_y, to.max_y);
    element->box = to;
}

void *vx_layout_lr2d_get_pgn_style_ptr(Ivx_layer *layer)
{
    auto *const element = as<layout_layer>(layer);
    return element ? element->style.get() : nullptr;
}

Tvx_layout_writing vx_layout_lr2d_get_writing(Ivx_layer const *layer)
{
    return get(layer, &layout_layer::writing, {});
}

void vx_layout_lr2d_set_writing(Ivx_layer *layer, Tvx_layout_writing const &writing)
{
    auto *const element = as<layout_layer>(layer);
    if (!element)
        return;
    double const size = cut(writing.size, 0.5, 500, element->writing.size);
    element->writing = writing;
    element->writing.size = size;
    element->writing.align_x = std::clamp(writing.align_x, -1, 1);
    element->writing.align_y = std::clamp(writing.align_y, -1, 1);
}

// ---- what stands in a layout

Ivx_layer *vx_layout_get_page(Ivx_scn_2d const *layout)
{
    for (int i = 0; i < vx_scn_2d_get_count(layout); ++i)
        if (auto *const element = as<layout_layer>(vx_scn_2d_get_layer(layout, i));
            element && element->is_page())
            return element;
    return nullptr;
}

Ivx_layer *vx_layout_find_frame_w(Ivx_scn_2d const *layout, wchar_t const *name)
{
    std::wstring_view const wanted = name ? name : L"";
    Ivx_layer *only = nullptr;
    int count = 0;
    for (int i = 0; i < vx_scn_2d_get_count(layout); ++i) {
        auto *const frame = as<layout_element<layout_frame>>(vx_scn_2d_get_layer(layout, i));
        if (!frame)
            continue;
        if (!wanted.empty() && frame->display_name() == wanted)
            return frame;
        only = frame;
        ++count;
    }
    return wanted.empty() && count == 1 ? only : nullptr;
}

// ---- scene frame

Ivx_scn_2d *vx_layout_scene_frame_lr2d_get_scene(Ivx_layer const *layer)
{
    auto const *const frame = as<layout_element<layout_frame>>(layer);
    return frame ? vx_prj_find_scn_2d_w(vx_prj_get_instance(), frame->file_name.c_str()) : nullptr;
}

void vx_layout_scene_frame_lr2d_get_scale(Ivx_layer const *layer, double *x, double *y)
{
    auto const frame = content_of<layout_frame>(layer);
    if (x)
        *x = frame.scale_x;
    if (y)
        *y = frame.scale_y;
}

void vx_layout_scene_frame_lr2d_set_scale(Ivx_layer *layer, double x, double y)
{
    auto *const frame = content_of<layout_frame>(layer);
    if (!frame)
        return;
    if (x > 0)
        frame->scale_x = cut(x, c_layout_least_scale, c_layout_greatest_scale, frame->scale_x);
    if (y > 0)
        frame->scale_y = cut(y, c_layout_least_scale, c_layout_greatest_scale, frame->scale_y);
}

Tvx_pnt_d2 vx_layout_scene_frame_lr2d_get_center(Ivx_layer const *layer)
{
    return content_of<layout_frame>(layer).center;
}

void vx_layout_scene_frame_lr2d_set_center(Ivx_layer *layer, Tvx_pnt_d2 center)
{
    if (auto *const frame = content_of<layout_frame>(layer); frame && is_finite(center))
        frame->center = center;
}

Tvx_box_d2 vx_layout_scene_frame_lr2d_get_world(Ivx_layer const *layer)
{
    auto const *const element = as<layout_element<layout_frame>>(layer);
    if (!element)
        return {};
    layout_frame const &frame = element->content;
    Tvx_pnt_d2 const unit = units_per_mm(frame, vx_layout_scene_frame_lr2d_get_scene(layer));
    double const x = unit.x * element->box.width() / 2;
    double const y = unit.y * element->box.height() / 2;
    Tvx_box_d2 const world = {frame.center.x - x, frame.center.y - y, frame.center.x + x, frame.center.y + y};
    bool const has_room = world.min_x < world.max_x && world.min_y < world.max_y;
    return has_room && is_finite(world) ? world : Tvx_box_d2{};
}

void vx_layout_scene_frame_lr2d_fit(Ivx_layer *layer, Tvx_box_d2 const &world)
{
    auto *const element = as<layout_element<layout_frame>>(layer);
    if (!element || world.is_empty() || !is_finite(world))
        return;
    layout_frame &frame = element->content;
    frame.center = {std::midpoint(world.min_x, world.max_x), std::midpoint(world.min_y, world.max_y)};
    auto const *const scene = vx_layout_scene_frame_lr2d_get_scene(layer);
    Tvx_pnt_d2 const metres = unit_metres(scene, frame.center);
    double x = world.width() * metres.x * c_mm_per_metre / element->box.width();
    double y = world.height() * metres.y * c_mm_per_metre / element->box.height();
    if (vx_scn_2d_get_izotropic(scene))
        x = y = std::max(x, y);
    vx_layout_scene_frame_lr2d_set_scale(layer, x, y);
}

// ---- text

void vx_layout_text_lr2d_get_wtext(Ivx_layer const *layer, Ivx_string_adp *text)
{
    vx_string_adp_feed(text, content_of<layout_text>(layer).text.c_str());
}

void vx_layout_text_lr2d_set_wtext(Ivx_layer *layer, wchar_t const *text)
{
    if (auto *const content = content_of<layout_text>(layer))
        content->text = text ? text : L"";
}

double vx_layout_text_lr2d_get_angle(Ivx_layer const *layer)
{
    return content_of<layout_text>(layer).angle;
}

void vx_layout_text_lr2d_set_angle(Ivx_layer *layer, double angle)
{
    if (auto *const content = content_of<layout_text>(layer); content && std::isfinite(angle))
        content->angle = angle;
}

// ---- scale bar

Tvx_layout_scale_bar vx_layout_scale_bar_lr2d_get(Ivx_layer const *layer)
{
    return content_of<Tvx_layout_scale_bar>(layer);
}

void vx_layout_scale_bar_lr2d_set(Ivx_layer *layer, Tvx_layout_scale_bar const &bar)
{
    auto *const content = content_of<Tvx_layout_scale_bar>(layer);
    if (!content)
        return;
    content->kind = cut(bar.kind, c_layout_bar_ticks);
    content->unit = cut(bar.unit, c_layout_unit_nmi);
    content->divisions = std::clamp(bar.divisions, 1, 20);
    content->length = cut(bar.length, 0, c_layout_longest_division, content->length);
    content->height = cut(bar.height, 0.2, 100, content->height);
}

// ---- north arrow

Tvx_layout_north_arrow vx_layout_north_arrow_lr2d_get(Ivx_layer const *layer)
{
    return content_of<Tvx_layout_north_arrow>(layer);
}

void vx_layout_north_arrow_lr2d_set(Ivx_layer *layer, Tvx_layout_north_arrow const &arrow)
{
    auto *const content = content_of<Tvx_layout_north_arrow>(layer);
    if (!content)
        return;
    content->kind = cut(arrow.kind, c_layout_arrow_rose);
    if (std::isfinite(arrow.angle))
        content->angle = arrow.angle;
    content->has_letter = arrow.has_letter;
}

// ---- legend

Tvx_layout_legend vx_layout_legend_lr2d_get(Ivx_layer const *layer)
{
    return content_of<Tvx_layout_legend>(layer);
}

void vx_layout_legend_lr2d_set(Ivx_layer *layer, Tvx_layout_legend const &legend)
{
    auto *const content = content_of<Tvx_layout_legend>(layer);
    if (!content)
        return;
    content->title = legend.title;
    content->columns = std::clamp(legend.columns, 1, 20);
    content->sample_width = cut(legend.sample_width, 1, 100, content->sample_width);
    content->sample_height = cut(legend.sample_height, 1, 100, content->sample_height);
    content->gap = cut(legend.gap, 0, 100, content->gap);
    auto const count = std::min(legend.items.size(), c_layout_most_items);
    content->items.assign(legend.items.begin(), legend.items.begin() + std::ptrdiff_t(count));
}

// ---- image

bool vx_layout_image_lr2d_get_keep_ratio(Ivx_layer const *layer)
{
    return content_of<layout_image>(layer).keep_ratio;
}

void vx_layout_image_lr2d_set_keep_ratio(Ivx_layer *layer, bool keep)
{
    if (auto *const content = content_of<layout_image>(layer))
        content->keep_ratio = keep;
}

// ---- table

Tvx_layout_table vx_layout_table_lr2d_get(Ivx_layer const *layer)
{
    return content_of<Tvx_layout_table>(layer);
}

void vx_layout_table_lr2d_set(Ivx_layer *layer, Tvx_layout_table const &table)
{
    auto *const content = content_of<Tvx_layout_table>(layer);
    if (!content)
        return;
    content->rows = std::clamp(table.rows, 1, 1000);
    auto const count = std::min(table.fields.size(), c_layout_most_items);
    content->fields.assign(table.fields.begin(), table.fields.begin() + std::ptrdiff_t(count));
}
