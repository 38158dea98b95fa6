#include "platform/layers/detail/tld_layer.h"

#include "platform/data/vx_tld_data.h"
#include "platform/layers/detail/shp_layer.h"
#include "platform/layers/detail/tos_layer.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/styles/vx_style_keys.h"

#include <algorithm>

namespace vx::layers {
dtld_layer::dtld_layer(Ivx_layer *parent_layer) : Ivx_layer(c_lr_key_dynamic_tld)
{
    set_parent(parent_layer);
    classes.push_back(std::make_unique<tld::textlr_info>(hint));
}

std::unique_ptr<Ivx_layer> dtld_layer::clone() const
{
    return clone_into(parent());
}

std::unique_ptr<dtld_layer> dtld_layer::clone_into(Ivx_layer *new_parent) const
{
    auto copy = std::make_unique<dtld_layer>(new_parent);
    copy->take_common(*this);
    copy->hint = hint; // also of a parent that has ended
    copy->set_classes(classes, current);
    return copy;
}

std::unique_ptr<dtld_layer> dtld_layer::make_inside(Ivx_layer *parent)
{
    auto layer = std::make_unique<dtld_layer>(parent);
    layer->visible = false;
    return layer;
}

Ivx_layer *dtld_layer::parent() const
{
    auto const alive = f_parent.lock();
    return alive ? *alive : nullptr;
}

void dtld_layer::set_parent(Ivx_layer *layer)
{
    hint = std::max(label_hint(layer), int{c_textlr_hint_points});
    f_parent = layer ? layer->life : nullptr;
    for (auto const &text_class : classes)
        text_class->hint = hint;
}

void dtld_layer::set_classes(std::vector<std::unique_ptr<tld::textlr_info>> const &source, int current_class)
{
    std::vector<std::unique_ptr<tld::textlr_info>> copies;
    copies.reserve(source.size());
    for (auto const &text_class : source)
        copies.emplace_back(std::make_unique<tld::textlr_info>(*text_class))->hint = hint;
    classes = std::move(copies);
    current = current_class;
}

int label_hint(Ivx_layer const *parent)
{
    if (as<tos_2crd_layer>(parent))
        return c_textlr_hint_points;
    auto const *const shp = as<shp_layer>(parent);
    if (!shp)
        return -1;
    std::string_view const style = shp->geometry.style;
    return style == c_pln_style   ? c_textlr_hint_lines
           : style == c_pgn_style ? c_textlr_hint_polygons
                                  : c_textlr_hint_points;
}
} // namespace vx::layers

using vx::layers::as;
using vx::layers::dtld_layer;

Ivx_layer *vx_dtld_lr2d_create(Ivx_layer *parent)
{
    return vx::layers::label_hint(parent) < 0 ? nullptr : new dtld_layer(parent);
}

Ivx_layer *vx_dtld_lr2d_get_parent_lr2d_ptr(Ivx_layer *layer)
{
    auto *const text = as<dtld_layer>(layer);
    return text ? text->parent() : nullptr;
}

void vx_dtld_lr2d_set_parent(Ivx_layer *layer, Ivx_layer *parent)
{
    if (auto *const text = as<dtld_layer>(layer))
        text->set_parent(vx::layers::label_hint(parent) < 0 ? nullptr : parent);
}

void *vx_dtld_lr2d_get_text_class(Ivx_layer *layer)
{
    return vx_dtld_lr2d_get_text_class_by_index(layer, vx_dtld_lr2d_get_text_class_index(layer));
}

int vx_dtld_lr2d_count_text_class(Ivx_layer const *layer)
{
    auto const *const text = as<dtld_layer>(layer);
    return text ? static_cast<int>(text->classes.size()) : 0;
}

int vx_dtld_lr2d_get_text_class_index(Ivx_layer const *layer)
{
    return vx::layers::get(layer, &dtld_layer::current, -1);
}

void vx_dtld_lr2d_set_text_class_index(Ivx_layer *layer, int index)
{
    if (vx_dtld_lr2d_get_text_class_by_index(layer, index))
        vx::layers::set(layer, &dtld_layer::current, index);
}

void *vx_dtld_lr2d_get_text_class_by_index(Ivx_layer *layer, int index)
{
    bool const there = index >= 0 && index < vx_dtld_lr2d_count_text_class(layer);
    return there ? as<dtld_layer>(layer)->classes[static_cast<std::size_t>(index)].get() : nullptr;
}

void vx_dtld_lr2d_add_text_class(Ivx_layer *layer, wchar_t const *name)
{
    auto *const text = as<dtld_layer>(layer);
    if (!text)
        return;
    text->classes.push_back(std::make_unique<vx::tld::textlr_info>(text->hint));
    text->current = static_cast<int>(text->classes.size()) - 1;
    vx_textlr_info_set_name(text->classes.back().get(), name);
}

void vx_dtld_lr2d_remove_text_class(Ivx_layer *layer)
{
    auto *const text = as<dtld_layer>(layer);
    if (!text || text->classes.size() < 2)
        return;
    text->classes.erase(text->classes.begin() + text->current);
    text->current = std::min(text->current, static_cast<int>(text->classes.size()) - 1);
}

void vx_dtld_lr2d_assign_text_classes(Ivx_layer *target, Ivx_layer const *source)
{
    auto *const to = as<dtld_layer>(target);
    auto const *const from = as<dtld_layer>(source);
    if (to && from && to != from)
        to->set_classes(from->classes, from->current);
}
