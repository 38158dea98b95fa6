#include "platform/layers/detail/rtr_layer.h"

#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_rtr_lr2d.h"

namespace vx::layers {
rtr_layer::rtr_layer() : Ivx_layer(c_lr_key_rtr)
{
}

std::unique_ptr<Ivx_layer> rtr_layer::clone() const
{
    auto copy = std::make_unique<rtr_layer>();
    copy->take_common(*this);
    copy->draw_type = draw_type;
    copy->transparent = transparent;
    copy->opacity = opacity;
    return copy;
}
} // namespace vx::layers

using vx::layers::rtr_layer;

Ivx_layer *vx_rtr_lr2d_create(wchar_t const *source)
{
    auto layer = std::make_unique<rtr_layer>();
    layer->file_name = source ? source : L"";
    return layer.release();
}

int vx_rtr_lr2d_get_draw_type(Ivx_layer const *layer)
{
    return vx::layers::get(layer, &rtr_layer::draw_type, static_cast<int>(c_rtr_draw_normal));
}

void vx_rtr_lr2d_set_draw_type(Ivx_layer *layer, int draw_type)
{
    if (draw_type >= c_rtr_draw_normal && draw_type <= c_rtr_draw_gray)
        vx::layers::set(layer, &rtr_layer::draw_type, draw_type);
}

Tvx_color vx_rtr_lr2d_get_transparent_clr(Ivx_layer const *layer)
{
    return vx::layers::get(layer, &rtr_layer::transparent, Tvx_color{});
}

void vx_rtr_lr2d_set_transparent_clr(Ivx_layer *layer, Tvx_color color)
{
    vx::layers::set(layer, &rtr_layer::transparent, color);
}

double vx_rtr_lr2d_get_opacity(Ivx_layer const *layer)
{
    return vx::layers::get(layer, &rtr_layer::opacity, 1.0);
}

void vx_rtr_lr2d_set_opacity(Ivx_layer *layer, double opacity)
{
    if (vx::layers::cut_opacity(opacity))
        vx::layers::set(layer, &rtr_layer::opacity, opacity);
}
