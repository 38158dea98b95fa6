#include "platform/layers/vx_lr2d.h"

#include "platform/layers/detail/layer.h"
#include "platform/layers/detail/layout_layer.h"
#include "platform/layers/detail/rtr_layer.h"
#include "platform/layers/detail/shp_layer.h"
#include "platform/layers/detail/tld_layer.h"
#include "platform/layers/detail/tos_layer.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_plugin_lr2d.h"

namespace {
std::unique_ptr<Ivx_layer> make_layer(std::string const &key)
{
    using namespace vx::layers;
    if (auto const *const geometry = find_shp_geometry(key))
        return std::make_unique<shp_layer>(key, *geometry);
    if (key == c_lr_key_rtr)
        return std::make_unique<rtr_layer>();
    if (key == c_lr_key_tos_grid || key == c_lr_key_tos_slice)
        return std::make_unique<tos_grid_layer>(key);
    if (key == c_lr_key_tos_grid_1d)
        return std::make_unique<tos_curve_layer>();
    if (key == c_lr_key_tos_2crd)
        return std::make_unique<tos_2crd_layer>();
    if (key == c_lr_key_dynamic_tld)
        return std::make_unique<dtld_layer>();
    if (auto element = make_layout_layer(key))
        return element;
    return std::make_unique<Ivx_layer>(key);
}
} // namespace

Ivx_layer *vx_lr2d_create(char const *key)
{
    return key && *key ? make_layer(key).release() : nullptr;
}

Ivx_layer *vx_lr2d_clone(Ivx_layer const *layer)
{
    return layer ? layer->clone().release() : nullptr;
}

void vx_lr2d_destroy(Ivx_layer *layer)
{
    delete layer;
}

char const *vx_lr2d_get_lr_type(Ivx_layer const *layer)
{
    return vx_lr_get_lr_type(layer);
}

void vx_lr2d_get_wcaption(Ivx_layer const *layer, Ivx_string_adp *caption)
{
    vx_string_adp_feed(caption, layer ? layer->display_name().c_str() : nullptr);
}

void vx_lr2d_set_wcaption(Ivx_layer *layer, wchar_t const *caption)
{
    if (layer)
        layer->caption = caption ? caption : L"";
}

void vx_lr2d_get_wfilename(Ivx_layer const *layer, Ivx_string_adp *file_name)
{
    vx_lr_get_wfilename(layer, file_name);
}

void vx_lr2d_set_wfilename(Ivx_layer *layer, wchar_t const *file_name)
{
    std::wstring const name = file_name ? file_name : L"";
    if (!layer || layer->file_name == name)
        return;
    layer->file_name = name;
    layer->file_name_changed();
}

bool vx_lr2d_get_visible(Ivx_layer const *layer)
{
    return layer && layer->visible;
}

void vx_lr2d_set_visible(Ivx_layer *layer, bool visible)
{
    if (layer)
        layer->visible = visible;
}

Ivx_entity *vx_lr2d_get_data_ptr(Ivx_layer *layer)
{
    return layer ? layer->data() : nullptr;
}

// ---- what all layers have

char const *vx_lr_get_lr_type(Ivx_layer const *layer)
{
    return layer ? layer->key.c_str() : nullptr;
}

Ivx_layer *vx_lr_safe_downcast(Ivx_entity *entity)
{
    return dynamic_cast<Ivx_layer *>(entity);
}

Ivx_entity *vx_lr_safe_upcast(Ivx_layer *layer)
{
    return layer;
}

void vx_lr_get_wfilename(Ivx_layer const *layer, Ivx_string_adp *file_name)
{
    vx_string_adp_feed(file_name, layer ? layer->file_name.c_str() : nullptr);
}

Ivx_event_channel *vx_lr_get_update_event_channel(Ivx_layer *layer)
{
    return layer ? layer->channel.get() : nullptr;
}

void vx_lr_post_update(Ivx_layer *layer)
{
    vx_event_channel_post(vx_lr_get_update_event_channel(layer), c_event_update);
}

bool vx_lr_get_own_selected_style_flag(Ivx_layer const *layer)
{
    return layer && layer->own_selected_style;
}

void vx_lr_set_own_selected_style_flag(Ivx_layer *layer, bool own)
{
    if (layer)
        layer->own_selected_style = own;
}

// ---- plug-ins

void *vx_lr2d_get_plugin_interface(Ivx_layer const *layer)
{
    return layer ? layer->plugin : nullptr;
}

void vx_lr2d_set_plugin_interface(Ivx_layer *layer, void *plugin)
{
    if (layer)
        layer->plugin = plugin;
}

void *vx_layout_lr2d_get_plugin_interface(Ivx_layer const *layer)
{
    return layer ? layer->layout_plugin : nullptr;
}

void vx_layout_lr2d_set_plugin_interface(Ivx_layer *layer, void *plugin)
{
    if (layer)
        layer->layout_plugin = plugin;
}
