#include "platform/layers/detail/tos_layer.h"

#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_style_keys.h"

#include <algorithm>

namespace vx::layers {
namespace {
constexpr int c_draw_scale = 0;
constexpr int c_draw_channels = 1;
constexpr int c_draw_gray = 3;

tos_grid_layer *as_slice(Ivx_layer *layer)
{
    auto *const grid = as<tos_grid_layer>(layer);
    return grid && grid->is_slice() ? grid : nullptr;
}

template <class Kind>
void feed(Ivx_layer const *layer, std::wstring Kind::*field, Ivx_string_adp *text)
{
    auto const *const kind = as<Kind>(layer);
    vx_string_adp_feed(text, kind ? (kind->*field).c_str() : nullptr);
}

std::wstring text_of(wchar_t const *text)
{
    return text ? text : L"";
}
} // namespace

Ivx_entity *tos_layer::data()
{
    if (!tos_data && !file_name.empty())
        tos_data.reset(vx_tos_data_create(file_name.c_str()));
    return vx_tos_data_safe_upcast(tos_data.get());
}

void tos_layer::take_common(tos_layer const &source)
{
    Ivx_layer::take_common(source);
    tos_data.reset(vx_tos_data_retain(source.tos_data.get()));
}

tos_grid_layer::tos_grid_layer(std::string type_key)
    : tos_layer(std::move(type_key)), colors(vx_stl_mngr_create(c_clr_style))
{
}

bool tos_grid_layer::is_slice() const
{
    return key == c_lr_key_tos_slice;
}

std::unique_ptr<Ivx_layer> tos_grid_layer::clone() const
{
    auto copy = std::make_unique<tos_grid_layer>(key);
    copy->take_common(*this);
    copy->draw_type = draw_type;
    copy->opacity = opacity;
    copy->interpolate = interpolate;
    copy->slice = slice;
    copy->slice_count = slice_count;
    copy->colors.reset(vx_stl_mngr_clone(colors.get()));
    copy->channels.reset(vx_rgb_channels_clone(channels.get()));
    return copy;
}

tos_curve_layer::tos_curve_layer()
    : tos_layer(c_lr_key_tos_grid_1d), styles(vx_stl_mngr_create(c_grid1d_clr_style))
{
}

std::unique_ptr<Ivx_layer> tos_curve_layer::clone() const
{
    auto copy = std::make_unique<tos_curve_layer>();
    copy->take_common(*this);
    copy->height_property = height_property;
    copy->styles.reset(vx_stl_mngr_clone(styles.get()));
    return copy;
}

tos_2crd_layer::tos_2crd_layer()
    : tos_layer(c_lr_key_tos_2crd), styles(vx_stl_mngr_create(c_pnt_style)),
      texts(vx_txt_settings_create(c_txt_pnt_style)), text_layer(dtld_layer::make_inside(this))
{
}

std::unique_ptr<Ivx_layer> tos_2crd_layer::clone() const
{
    auto copy = std::make_unique<tos_2crd_layer>();
    copy->take_common(*this);
    copy->property_x = property_x;
    copy->property_y = property_y;
    copy->styles.reset(vx_stl_mngr_clone(styles.get()));
    copy->texts.reset(vx_txt_settings_clone(texts.get()));
    copy->text_layer = text_layer->clone_into(copy.get());
    return copy;
}
} // namespace vx::layers

using namespace vx::layers;

// ---- grid and slice

int vx_tos_grid_lr2d_get_draw_type(Ivx_layer const *layer)
{
    return get(layer, &tos_grid_layer::draw_type, c_draw_scale);
}

void vx_tos_grid_lr2d_set_draw_type(Ivx_layer *layer, int draw_type)
{
    if (draw_type == c_draw_scale || draw_type == c_draw_channels || draw_type == c_draw_gray)
        set(layer, &tos_grid_layer::draw_type, draw_type);
}

double vx_tos_grid_lr2d_get_opacity(Ivx_layer const *layer)
{
    return get(layer, &tos_grid_layer::opacity, 1.0);
}

void vx_tos_grid_lr2d_set_opacity(Ivx_layer *layer, double opacity)
{
    if (cut_opacity(opacity))
        set(layer, &tos_grid_layer::opacity, opacity);
}

bool vx_tos_grid_lr2d_get_interpolate(Ivx_layer const *layer)
{
    return get(layer, &tos_grid_layer::interpolate, false);
}

void vx_tos_grid_lr2d_set_interpolate(Ivx_layer *layer, bool interpolate)
{
    set(layer, &tos_grid_layer::interpolate, interpolate);
}

void *vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(Ivx_layer *layer)
{
    auto *const grid = as<tos_grid_layer>(layer);
    return grid ? grid->colors.get() : nullptr;
}

void *vx_tos_grid_lr2d_get_rgb_channels_ptr(Ivx_layer *layer)
{
    auto *const grid = as<tos_grid_layer>(layer);
    return grid ? grid->channels.get() : nullptr;
}

int vx_tos_slice_lr2d_get_zslice(Ivx_layer const *layer)
{
    return get(layer, &tos_grid_layer::slice, 0);
}

void vx_tos_slice_lr2d_set_zslice(Ivx_layer *layer, int slice)
{
    if (auto *const stack = as_slice(layer))
        stack->slice = std::clamp(slice, 0, stack->slice_count - 1);
}

int vx_tos_slice_lr2d_get_zslice_count(Ivx_layer const *layer)
{
    return get(layer, &tos_grid_layer::slice_count, 1);
}

void vx_tos_slice_lr2d_set_zslice_count(Ivx_layer *layer, int count)
{
    if (auto *const stack = as_slice(layer)) {
        stack->slice_count = std::max(count, 1);
        stack->slice = std::min(stack->slice, stack->slice_count - 1);
    }
}

// ---- curve

void vx_tos_grid_1d_lr2d_get_height_prp_name(Ivx_layer const *layer, Ivx_string_adp *name)
{
    feed(layer, &tos_curve_layer::height_property, name);
}

void vx_tos_grid_1d_lr2d_set_height_prp_name(Ivx_layer *layer, wchar_t const *name)
{
    set(layer, &tos_curve_layer::height_property, text_of(name));
}

void *vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(Ivx_layer *layer)
{
    auto *const curve = as<tos_curve_layer>(layer);
    return curve ? curve->styles.get() : nullptr;
}

// ---- two coordinates

void *vx_tos_2crd_lr2d_get_stl_mngr(Ivx_layer *layer)
{
    auto *const points = as<tos_2crd_layer>(layer);
    return points ? points->styles.get() : nullptr;
}

void *vx_tos_2crd_lr2d_get_txt_settings(Ivx_layer *layer)
{
    auto *const points = as<tos_2crd_layer>(layer);
    return points ? points->texts.get() : nullptr;
}

Ivx_layer *vx_tos_2crd_lr2d_get_text_layer_ptr(Ivx_layer *layer)
{
    auto *const points = as<tos_2crd_layer>(layer);
    return points ? points->text_layer.get() : nullptr;
}

void vx_tos_2crd_lr2d_get_wprop_name_x(Ivx_layer const *layer, Ivx_string_adp *name)
{
    feed(layer, &tos_2crd_layer::property_x, name);
}

void vx_tos_2crd_lr2d_get_wprop_name_y(Ivx_layer const *layer, Ivx_string_adp *name)
{
    feed(layer, &tos_2crd_layer::property_y, name);
}

void vx_tos_2crd_lr2d_set_wprop_name_x(Ivx_layer *layer, wchar_t const *name)
{
    set(layer, &tos_2crd_layer::property_x, text_of(name));
}

void vx_tos_2crd_lr2d_set_wprop_name_y(Ivx_layer *layer, wchar_t const *name)
{
    set(layer, &tos_2crd_layer::property_y, text_of(name));
}
