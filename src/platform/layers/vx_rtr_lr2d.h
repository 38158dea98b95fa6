#pragma once

#include "platform/base/color.h"
#include "platform/layers/vx_lr2d.h"

/// Raster layers, key "rtr_lr2d". On other layers the getters give the defaults and the setters do nothing.

[[nodiscard]] VX_API Ivx_layer *vx_rtr_lr2d_create(wchar_t const *source);

/// How the cells become colours.
enum Tvx_rtr_draw_type : int
{
    c_rtr_draw_normal = 0,
    c_rtr_draw_channels = 1,
    c_rtr_draw_gray = 2,
};
/// Normal unless set; other numbers are ignored.
[[nodiscard]] VX_API int vx_rtr_lr2d_get_draw_type(Ivx_layer const *layer);
VX_API void vx_rtr_lr2d_set_draw_type(Ivx_layer *layer, int draw_type);
/// Colour that is not drawn; one of alpha 0, as at the start, leaves none out.
[[nodiscard]] VX_API Tvx_color vx_rtr_lr2d_get_transparent_clr(Ivx_layer const *layer);
VX_API void vx_rtr_lr2d_set_transparent_clr(Ivx_layer *layer, Tvx_color color);
/// 0 to 1, 1 unless set; values outside are cut, no number is ignored.
[[nodiscard]] VX_API double vx_rtr_lr2d_get_opacity(Ivx_layer const *layer);
VX_API void vx_rtr_lr2d_set_opacity(Ivx_layer *layer, double opacity);
