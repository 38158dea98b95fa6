#include "host/layer_classes.h"

#include "host/layer_info.h"
#include "host/layer_labels.h"

#include "platform/base/string_adp.h"
#include "platform/render/vx_layer_classes.h"
#include "platform/styles/vx_scale_prm.h"

#include <string>
#include <vector>

namespace {
/// Place of the class among what is written at the objects, which stands behind the others.
std::optional<unsigned> place_in_labels(Ivx_layer *layer, unsigned index)
{
    unsigned const drawn = vx_layer_classes_get_count(layer);
    bool const is_written = index >= drawn && index - drawn < vx_layer_labels_count(layer);
    return is_written ? std::optional(index - drawn) : std::nullopt;
}
} // namespace

unsigned vx_layer_classes_count(Ivx_layer *layer)
{
    return vx_layer_classes_get_count(layer) + vx_layer_labels_count(layer);
}

QString vx_layer_class_caption(Ivx_layer *layer, unsigned index)
{
    if (auto const place = place_in_labels(layer, index))
        return vx_layer_labels_caption(layer, *place);
    std::wstring text;
    vx_layer_classes_get_caption_w(layer, index, Tvx_std_wstring_adapter(text));
    return QString::fromStdWString(text);
}

std::optional<bool> vx_layer_class_visible(Ivx_layer *layer, unsigned index)
{
    if (auto const place = place_in_labels(layer, index))
        return vx_layer_labels_visible(layer, *place);
    void *const prm = vx_layer_classes_get_scale_prm_ptr(layer, index);
    return prm ? std::optional(vx_scale_prm_get_visible(prm)) : std::nullopt;
}

bool vx_layer_class_set_visible(Ivx_layer *layer, unsigned index, bool visible)
{
    if (auto const place = place_in_labels(layer, index)) {
        vx_layer_labels_set_visible(layer, *place, visible);
        return true;
    }
    void *const prm = vx_layer_classes_get_scale_prm_ptr(layer, index);
    vx_scale_prm_set_visible(prm, visible);
    return prm != nullptr;
}

void vx_layer_class_take_visible(Ivx_layer *layer, Ivx_layer *like, unsigned index)
{
    if (auto const place = place_in_labels(like, index))
        return vx_layer_labels_take_visible(layer, like, *place);
    void *const theirs = vx_layer_classes_get_scale_prm_ptr(like, index);
    void *const prm = vx_layer_classes_find_scale_prm_ptr(layer, like, index);
    if (prm && theirs)
        vx_scale_prm_set_visible(prm, vx_scale_prm_get_visible(theirs));
}

void *vx_layer_class_style(Ivx_layer *layer, unsigned index)
{
    return vx_layer_classes_get_stl_prm_ptr(layer, index);
}

QIcon vx_layer_class_symbol(Ivx_layer *layer, unsigned index)
{
    if (place_in_labels(layer, index))
        return vx_layer_labels_symbol();
    std::vector<Tvx_color> colors(vx_layer_classes_get_colors(layer, index, nullptr, 0));
    if (colors.empty())
        return vx_style_symbol(vx_layer_class_style(layer, index));
    vx_layer_classes_get_colors(layer, index, colors.data(), unsigned(colors.size()));
    return vx_colors_symbol(colors);
}

int vx_layer_class_of(Ivx_layer *layer, unsigned manager, unsigned row)
{
    return vx_layer_classes_find(layer, manager, row);
}
