#include "txt_preview.h"

#include "styles/preview/txt_style_draw.h"

#include "platform/base/owned.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_drwc.h"
#include "platform/styles/vx_txt_style.h"
#include "platform/toolkit/core/pixel_ratio.h"
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
    // In the pixels of the screen.
    int const scale = vx_canvas_pixel_scale(GetCanvas());
    vx_bmp_dc_set_transparent_clr(dc, c_ground);
    vx_bmp_dc_set_nxy(dc, width * scale, height * scale);
    vx_bmp_dc_set_pixel_scale(dc, scale);
    double const x = width / 2 * scale;
    double const y = height / 2 * scale;

    if (f_style)
        vx_txt_style_draw(dc, f_style, f_text.c_str(),
                          {x + vx_txt_style_get_delta_x(f_style) * vx_bmp_dc_get_px_per_mm_x(dc),
                           y - vx_txt_style_get_delta_y(f_style) * vx_bmp_dc_get_px_per_mm_y(dc)},
                          vx_txt_style_get_pos_x(f_style), vx_txt_style_get_pos_y(f_style));
    double const reach = c_anchor_reach * scale;
    double const half = 0.5 * scale;
    vx_drwc_draw_pgn_rect(dc, c_anchor, box_around(x, y, reach, half));
    vx_drwc_draw_pgn_rect(dc, c_anchor, box_around(x, y, half, reach));
    vx_drwc_draw_pln_rect(dc, {c_frame, 0, double(scale)},
                          {0, 0, double(width * scale), double(height * scale)});
    vx_bmp_dc_stretch_on_hdc(dc, GetCanvas(), 0, 0, width, height);
}
