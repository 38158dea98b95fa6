#include "txt_preview.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_options.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_drwc.h"
#include "platform/styles/vx_txt_style.h"
#include "platform/toolkit/canvas.h"

namespace {
constexpr Tvx_color c_ground = vx_clr_init_rgb(255, 255, 255);
constexpr Tvx_color c_frame = vx_clr_init_grey(160);
constexpr Tvx_color c_anchor = vx_clr_init_rgb(200, 60, 60);
constexpr double c_anchor_reach = 4;

Tvx_box_d2 box_around(double x, double y, double half_width, double half_height)
{
    return {x - half_width, y - half_height, x + half_width, y + half_height};
}

/// The block of text stands on its anchor as its alignment says; this is its middle.
Tvx_pnt_d2 middle_of(Tvx_txt_params const &text, Tvx_pnt_d2 const &size)
{
    return {text.center.x + text.align_x * size.x / 2, text.center.y - text.align_y * size.y / 2};
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
    double const px_x = vx_options_get_mm2px_x();
    double const px_y = vx_options_get_mm2px_y();
    double const scale = (px_x + px_y) / 2;
    vx::owned<void, &vx_bmp_dc_destroy> const device(vx_bmp_dc_create());
    void *const dc = device.get();
    vx_bmp_dc_set_transparent_clr(dc, c_ground);
    vx_bmp_dc_set_nxy(dc, width, height);
    double const x = width / 2;
    double const y = height / 2;

    Tvx_txt_params text;
    text.font = vx_txt_style_get_font_ptr(f_style);
    text.color = vx_txt_style_get_color(f_style);
    text.center = {x + vx_txt_style_get_delta_x(f_style) * px_x,
                   y - vx_txt_style_get_delta_y(f_style) * px_y};
    text.size = vx_txt_style_get_font_size(f_style) * scale;
    text.angle = vx_txt_style_get_angle(f_style);
    text.align_x = vx_txt_style_get_pos_x(f_style);
    text.align_y = vx_txt_style_get_pos_y(f_style);
    text.outline = {vx_txt_style_get_outline(f_style), vx_txt_style_get_outline_clr(f_style),
                    vx_txt_style_get_outline_size(f_style) * scale};

    if (f_style && vx_txt_style_get_back(f_style)) {
        Tvx_pnt_d2 size;
        vx_drwc_get_txt_extent_w(&size, dc, text, f_text.c_str(), -1, 0);
        Tvx_pnt_d2 const middle = middle_of(text, size);
        vx_drwc_draw_pgn_rect(dc, vx_txt_style_get_back_clr(f_style),
                              box_around(middle.x, middle.y, size.x / 2, size.y / 2));
    }
    if (f_style && vx_txt_style_get_shadow(f_style)) {
        Tvx_txt_params shadow = text;
        shadow.color = vx_txt_style_get_shadow_clr(f_style);
        shadow.center.x += vx_txt_style_get_shadow_gap_x(f_style) * px_x;
        shadow.center.y -= vx_txt_style_get_shadow_gap_y(f_style) * px_y;
        shadow.outline = {text.outline.on, shadow.color, vx_txt_style_get_shadow_width(f_style) * scale};
        vx_drwc_draw_txt_w(dc, shadow, f_text.c_str(), -1, 0);
    }
    if (f_style)
        vx_drwc_draw_txt_w(dc, text, f_text.c_str(), -1, 0);
    vx_drwc_draw_pgn_rect(dc, c_anchor, box_around(x, y, c_anchor_reach, 0.5));
    vx_drwc_draw_pgn_rect(dc, c_anchor, box_around(x, y, 0.5, c_anchor_reach));
    vx_drwc_draw_pln_rect(dc, {c_frame, 0, 1}, {0, 0, double(width), double(height)});
    vx_bmp_dc_draw_on_hdc(dc, GetCanvas(), 0, 0, width, height);
}
