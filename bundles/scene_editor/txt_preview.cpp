#include "txt_preview.h"

#include "styles/preview/txt_style_draw.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_options.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_drwc.h"
#include "platform/styles/vx_txt_style.h"
#include "platform/toolkit/graphics/canvas.h"

namespace {
constexpr Tvx_color c_ground = vx_clr_init_rgb(255, 255, 255);
constexpr Tvx_color c_frame = vx_clr_init_grey(160);
constexpr Tvx_color c_anchor = vx_clr_init_rgb(200, 60, 60);
constexpr double c_anchor_reach = 4;

Tvx_box_d2 box_around(double x, double y, double half_width, double half_height)
{
    return {x - half_width, y - half_height, x + half_width, y + half_height};
}
} // namespace

Tvx_txt_preview::Tvx_txt_preview(TComponent *owner) : Tvx_gr_ctrl(owner)
{
}

void Tvx_txt_preview::Paint()
{
    int const width = GetClientWidth();
    int const height = GetClientHeight();
    if (width < 1 || height < 1)
        return;
    vx::owned<void, &vx_bmp_dc_destroy> const device(vx_bmp_dc_create());
    void *const dc = device.get();
    vx_bmp_dc_set_transparent_clr(dc, c_ground);
    vx_bmp_dc_set_nxy(dc, width, height);
    double const x = width / 2;
    double const y = height / 2;

    if (f_style)
        vx_txt_style_draw(dc, f_style, f_text.c_str(),
                          {x + vx_txt_style_get_delta_x(f_style) * vx_options_get_mm2px_x(),
                           y - vx_txt_style_get_delta_y(f_style) * vx_options_get_mm2px_y()},
                          vx_txt_style_get_pos_x(f_style), vx_txt_style_get_pos_y(f_style));
    vx_drwc_draw_pgn_rect(dc, c_anchor, box_around(x, y, c_anchor_reach, 0.5));
    vx_drwc_draw_pgn_rect(dc, c_anchor, box_around(x, y, 0.5, c_anchor_reach));
    vx_drwc_draw_pln_rect(dc, {c_frame, 0, 1}, {0, 0, double(width), double(height)});
    vx_bmp_dc_draw_on_hdc(dc, GetCanvas(), 0, 0, width, height);
}
