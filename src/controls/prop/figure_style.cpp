#include "controls/prop/figure_style_priv.h"

#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_cpx_style.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_keys.h"

namespace {
constexpr Tvx_color c_figure_color = vx_clr_init_rgb(0, 0, 0);

void *layers_of(void *style)
{
    void *const point = vx_pnt_style_get_bpnt_style_ptr(style);
    return vx_cpx_style_get_style_lrs_ptr(vx_bpnt_style_get_complex_style(point));
}
} // namespace

vx::detail::style_handle vx::detail::make_figure_style(double size)
{
    style_handle style(vx_pnt_style_create(), &vx_pnt_style_destroy);
    void *const point = vx_pnt_style_get_bpnt_style_ptr(style.get());
    vx_bpnt_style_set_use_figure(point, true);
    vx_bpnt_style_set_color(point, c_figure_color);
    vx_bpnt_style_set_size(point, size);
    return style;
}

void vx::detail::set_style_figure(void *style, int figure)
{
    vx_bpnt_style_set_figure(vx_pnt_style_get_bpnt_style_ptr(style), figure);
}

vx::detail::style_handle vx::detail::make_lr_figure_style(double size)
{
    style_handle style = make_figure_style(size);
    vx_bpnt_style_set_use_complex(vx_pnt_style_get_bpnt_style_ptr(style.get()), true);
    void *const layers = layers_of(style.get());
    while (vx_style_lrs_get_size(layers) > 0)
        vx_style_lrs_del_lr(layers, 0);
    void *const layer = vx_style_lrs_add_lr(layers, c_pnt_figr_style_lr);
    vx_pnt_figr_lr_set_color(layer, c_figure_color);
    vx_pnt_figr_lr_set_size_x(layer, size);
    vx_pnt_figr_lr_set_size_y(layer, size);
    return style;
}

void vx::detail::set_style_lr_figure(void *style, int figure)
{
    vx_pnt_figr_lr_set_lr_figure(vx_style_lrs_get_lr_ptr(layers_of(style), 0), figure);
}
