#pragma once

#include "platform/base/owned.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_box.h"
#include "platform/render/vx_render.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <vector>

/// A page to draw on, and short ways to what is drawn.
namespace vx_test {
inline constexpr Tvx_color c_white = vx_clr_init_rgb(255, 255, 255);
inline constexpr Tvx_color c_red = vx_clr_init_rgb(255, 0, 0);

/// A square page, white, of which a pixel is a unit of the geometry; 4 pixels to the millimetre unless told.
struct page
{
    vx::owned<void, &vx_bmp_dc_destroy> dc{vx_bmp_dc_create()};
    vx::owned<void, &vx_render_destroy> render{vx_render_create()};
    int side;

    explicit page(int side_px = 100, double px_per_mm = 4) : side(side_px)
    {
        vx_bmp_dc_set_nxy(dc.get(), side, side);
        vx_bmp_dc_set_transparent_clr(dc.get(), c_white);
        vx_bmp_dc_set_mm2pxl(dc.get(), box(side / px_per_mm), {0, 0, side, side});
        vx_render_init(render.get(), box(side), dc.get());
    }
    static Tvx_box_d2 box(double side) { return vx_box_d2_make_xy(0, 0, side, side); }
    /// Pixel at the box's coordinates, y up.
    [[nodiscard]] Tvx_color at(double x, double y) const
    {
        return vx_bmp_dc_get_pixel(dc.get(), static_cast<int>(x), static_cast<int>(side - 1 - y));
    }
    /// How dark the pixel is, 0 to 255; x and y from the upper left corner.
    [[nodiscard]] int ink(int x, int y) const { return 255 - vx_bmp_dc_get_pixel(dc.get(), x, y).g; }
    /// Pixels that are not white in the rows and columns given.
    [[nodiscard]] int count(int x0 = 0, int y0 = 0, int x1 = 1000, int y1 = 1000) const
    {
        int n = 0;
        for (int y = y0; y < std::min(y1, side); ++y)
            for (int x = x0; x < std::min(x1, side); ++x)
                n += vx_bmp_dc_get_pixel(dc.get(), x, y) != c_white;
        return n;
    }
    void draw_point(double x, double y, void const *bpnt) const;
};

struct geometry
{
    vx::owned<Tvx_op2d, &vx_ov_d2_destroy> list{vx_ov_d2_create()};
    explicit geometry(std::vector<std::vector<Tvx_vtx_d2>> const &parts)
    {
        vx_ov_d2_set_size(list.get(), parts.size());
        for (std::size_t i = 0; i < parts.size(); ++i) {
            Tvx_pv_d2 *part = vx_ov_d2_get_pv_ptr(list.get(), i);
            vx_pv_d2_set_size(part, parts[i].size());
            for (std::size_t k = 0; k < parts[i].size(); ++k)
                vx_pv_d2_set_vtx(part, k, &parts[i][k]);
        }
    }
};

using owned_bpnt = vx::owned<void, &vx_bpnt_style_destroy>;
using owned_bpln = vx::owned<void, &vx_bpln_style_destroy>;
using owned_bpgn = vx::owned<void, &vx_bpgn_style_destroy>;

inline void page::draw_point(double x, double y, void const *bpnt) const
{
    vx_render_cr_bpnt(render.get(), geometry({{{x, y}}}).list.get(), bpnt);
}

inline owned_bpnt point(int figure, double size)
{
    owned_bpnt style(vx_bpnt_style_create());
    vx_bpnt_style_set_figure(style.get(), figure);
    vx_bpnt_style_set_size(style.get(), size);
    vx_bpnt_style_set_color(style.get(), c_red);
    return style;
}
} // namespace vx_test
