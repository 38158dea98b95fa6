#pragma once

#include "platform/base/owned.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/basic/vx_options.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <cmath>
#include <gtest/gtest.h>

/// Styles of the tests, short to make.
namespace vx_test {
inline constexpr Tvx_color c_blue = vx_clr_init_rgb(30, 90, 170);
inline constexpr Tvx_color c_red = vx_clr_init_rgb(200, 40, 40);
inline constexpr Tvx_color c_black = vx_clr_init_rgb(0, 0, 0);

using owned_pnt = vx::owned<void, &vx_pnt_style_destroy>;
using owned_pln = vx::owned<void, &vx_pln_style_destroy>;
using owned_pgn = vx::owned<void, &vx_pgn_style_destroy>;
using owned_txt = vx::owned<void, &vx_txt_style_destroy>;

/// A millimetre is 4 pixels wide and high.
class samples : public testing::Test
{
protected:
    samples() : f_px_x(vx_options_get_mm2px_x()), f_px_y(vx_options_get_mm2px_y())
    {
        vx_options_set_mm2px(4, 4);
    }
    ~samples() override { vx_options_set_mm2px(f_px_x, f_px_y); }

private:
    double f_px_x;
    double f_px_y;
};

/// A bitmap whose free area is white.
class white_bitmap : public TBitmap
{
public:
    white_bitmap(int width, int height) : TBitmap(width, height) { SetTransparentColor(clWhite); }
};

/// How far the colour is from another, as the sum over the channels.
inline int distance(TColor a, TColor b)
{
    int sum = 0;
    for (int shift = 0; shift < 24; shift += 8)
        sum += std::abs((a >> shift & 255) - (b >> shift & 255));
    return sum;
}

/// Where the bitmap is not white.
struct ink
{
    int left = 1000;
    int right = -1;
    int top = 1000;
    int bottom = -1;
    int count = 0;

    explicit ink(TBitmap &bitmap)
    {
        for (int y = 0; y < bitmap.GetHeight(); ++y)
            for (int x = 0; x < bitmap.GetWidth(); ++x)
                if (distance(bitmap.GetCanvas()->GetPixel(x, y), clWhite) > 60) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                    top = std::min(top, y);
                    bottom = std::max(bottom, y);
                    ++count;
                }
    }
};

/// Pixels in which the two differ.
inline int differences(TBitmap &a, TBitmap &b, int tolerance = 0)
{
    int n = 0;
    for (int y = 0; y < a.GetHeight(); ++y)
        for (int x = 0; x < a.GetWidth(); ++x)
            n += distance(a.GetCanvas()->GetPixel(x, y), b.GetCanvas()->GetPixel(x, y)) > tolerance;
    return n;
}

inline void *point_layers(void *bpnt)
{
    vx_bpnt_style_set_use_complex(bpnt, true);
    return vx_cpx_style_get_style_lrs_ptr(vx_bpnt_style_get_complex_style(bpnt));
}
inline void *line_layers(void *bpln)
{
    vx_bpln_style_set_use_complex(bpln, true);
    return vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(bpln));
}
inline void *fill_layers(void *bpgn)
{
    vx_bpgn_style_set_use_complex(bpgn, true);
    return vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(bpgn));
}

inline void set_figure(void *bpnt, int figure, double size, Tvx_color color = c_blue)
{
    vx_bpnt_style_set_figure(bpnt, figure);
    vx_bpnt_style_set_size(bpnt, size);
    vx_bpnt_style_set_color(bpnt, color);
}

inline void *add_figure(void *layers, int figure, double size_x, double size_y, Tvx_color color = c_blue)
{
    void *lr = vx_style_lrs_add_lr(layers, "pnt_figr_slr");
    vx_pnt_figr_lr_set_lr_figure(lr, figure);
    vx_pnt_figr_lr_set_size_x(lr, size_x);
    vx_pnt_figr_lr_set_size_y(lr, size_y);
    vx_pnt_figr_lr_set_color(lr, color);
    return lr;
}

/// A text style of 12 millimetres in the font that every machine with tests has.
inline owned_txt text_style()
{
    owned_txt style(vx_txt_style_create());
    vx_fnt_type_set_wname(vx_txt_style_get_font_ptr(style.get()), L"DejaVu Sans");
    vx_txt_style_set_font_size(style.get(), 12);
    vx_txt_style_set_color(style.get(), c_black);
    return style;
}
} // namespace vx_test
