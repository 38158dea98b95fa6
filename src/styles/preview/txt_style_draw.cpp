#include "styles/preview/txt_style_draw.h"

#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_box.h"
#include "platform/render/vx_drwc.h"
#include "platform/styles/vx_txt_style.h"

#include <algorithm>

namespace {
constexpr double c_max_size_px = 20000; ///< far outside of every picture
} // namespace

void vx_txt_style_draw(void *dc, void *style, wchar_t const *text, Tvx_pnt_d2 at, int align_x, int align_y)
{
    if (!dc || !style || !text)
        return;
    double const px_x = vx_bmp_dc_get_px_per_mm_x(dc);
    double const px_y = vx_bmp_dc_get_px_per_mm_y(dc);
    double const scale = (px_x + px_y) * 0.5;

    Tvx_txt_params letters;
    letters.font = vx_txt_style_get_font_ptr(style);
    letters.color = vx_txt_style_get_color(style);
    letters.center = at;
    letters.size = std::clamp(vx_txt_style_get_font_size(style) * scale, 1.0, c_max_size_px);
    letters.angle = vx_txt_style_get_angle(style);
    letters.align_x = align_x;
    letters.align_y = align_y;
    letters.outline = {vx_txt_style_get_outline(style), vx_txt_style_get_outline_clr(style),
                       vx_txt_style_get_outline_size(style) * scale};

    if (vx_txt_style_get_back(style)) {
        Tvx_pnt_d2 size;
        vx_drwc_get_txt_extent_w(&size, dc, letters, text, -1, 0);
        double const left = at.x + (align_x - 1) * size.x / 2;
        double const bottom = at.y - (align_y - 1) * size.y / 2;
        vx_drwc_draw_pgn_rect(dc, vx_txt_style_get_back_clr(style),
                              vx_box_d2_make_xy(left, bottom - size.y, left + size.x, bottom));
    }
    if (vx_txt_style_get_shadow(style)) {
        Tvx_txt_params shadow = letters;
        shadow.color = vx_txt_style_get_shadow_clr(style);
        shadow.center = {at.x + vx_txt_style_get_shadow_gap_x(style) * px_x,
                         at.y - vx_txt_style_get_shadow_gap_y(style) * px_y};
        shadow.outline = {letters.outline.on, shadow.color, vx_txt_style_get_shadow_width(style) * scale};
        vx_drwc_draw_txt_w(dc, shadow, text, -1, 0);
    }
    vx_drwc_draw_txt_w(dc, letters, text, -1, 0);
}
