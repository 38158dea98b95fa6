// Pages of samples: the figures at several sizes, and what the layers of complex styles draw.

#include "host/gallery/gallery_page.h"
#include "styles/preview/style_example.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_options.h"
#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/controls/image.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/core/win_control.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/picture.h"

#include <functional>
#include <vector>

namespace {
constexpr Tvx_color c_blue = vx_clr_init_rgb(30, 90, 170);
constexpr Tvx_color c_red = vx_clr_init_rgb(200, 40, 40);
constexpr Tvx_color c_green = vx_clr_init_rgba(60, 160, 80, 110);

using owned_pnt = vx::owned<void, &vx_pnt_style_destroy>;
using owned_pln = vx::owned<void, &vx_pln_style_destroy>;
using owned_pgn = vx::owned<void, &vx_pgn_style_destroy>;
using owned_txt = vx::owned<void, &vx_txt_style_destroy>;

void show_picture(TWinControl *page, TBitmap &bitmap, int left, int top)
{
    auto *image = new TImage(page);
    image->SetParent(page);
    image->SetBounds(left, top, bitmap.GetWidth(), bitmap.GetHeight());
    image->GetPicture()->GetBitmap()->Assign(&bitmap);
}

void show_text(TWinControl *page, wchar_t const *text, int left, int top)
{
    auto *label = new TLabel(page);
    label->SetParent(page);
    label->SetCaption(text);
    label->SetBounds(left, top, 100, 17);
}

void fill_figures(TWinControl *page)
{
    constexpr int sizes[] = {4, 6, 9, 14, 22, 40};
    int top = 8;
    for (int const size : sizes) {
        int const side = (size + 7) / 2 * 2;
        for (int figure = 0; figure < 26; ++figure) {
            owned_pnt const style(vx_pnt_style_create());
            void *bpnt = vx_pnt_style_get_bpnt_style_ptr(style.get());
            vx_bpnt_style_set_figure(bpnt, figure);
            vx_bpnt_style_set_size(bpnt, size / vx_options_get_mm2px_x());
            vx_bpnt_style_set_color(bpnt, c_blue);
            TBitmap bitmap(side, side);
            bitmap.SetTransparentColor(clWhite);
            vx_pnt_style_example_bmp(style.get(), &bitmap);
            int const row = size == 40 ? figure / 13 : 0;
            int const step = size == 40 ? 50 : 26;
            show_picture(page, bitmap, 8 + (size == 40 ? figure % 13 : figure) * step, top + row * step);
        }
        top += side + 8;
    }
}

/// The layers of a complex style that a base style has been switched to.
void *point_layers(void *bpnt)
{
    vx_bpnt_style_set_use_complex(bpnt, true);
    return vx_cpx_style_get_style_lrs_ptr(vx_bpnt_style_get_complex_style(bpnt));
}

void *line_layers(void *bpln)
{
    vx_bpln_style_set_use_complex(bpln, true);
    return vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(bpln));
}

void *fill_layers(void *bpgn)
{
    vx_bpgn_style_set_use_complex(bpgn, true);
    return vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(bpgn));
}

void *add_figure(void *layers, int figure, double size, Tvx_color color)
{
    void *lr = vx_style_lrs_add_lr(layers, c_pnt_figr_style_lr);
    vx_pnt_figr_lr_set_lr_figure(lr, figure);
    vx_pnt_figr_lr_set_size_x(lr, size);
    vx_pnt_figr_lr_set_size_y(lr, size);
    vx_pnt_figr_lr_set_color(lr, color);
    return lr;
}

struct sample
{
    wchar_t const *caption;
    std::function<void(TBitmap *)> draw;
};

sample line_sample(wchar_t const *caption, std::function<void(void *layers)> const &set)
{
    return {caption, [set](TBitmap *bitmap) {
                owned_pln const style(vx_pln_style_create());
                set(line_layers(vx_pln_style_get_bpln_style_ptr(style.get())));
                vx_pln_style_example_bmp(style.get(), bitmap);
            }};
}

sample template_sample(wchar_t const *caption, char const *text)
{
    return line_sample(caption, [text](void *layers) {
        void *lr = vx_style_lrs_add_lr(layers, c_pln_tplt_style_lr);
        vx_pln_tplt_lr_set_template(lr, text);
        vx_pln_tplt_lr_set_width(lr, 0.6);
        vx_pln_tplt_lr_set_color(lr, c_blue);
        add_figure(vx_cpx_style_get_style_lrs_ptr(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(lr)), 4, 2, c_red);
    });
}

sample fill_sample(wchar_t const *caption, std::function<void(void *layers)> const &set)
{
    return {caption, [set](TBitmap *bitmap) {
                owned_pgn const style(vx_pgn_style_create());
                vx_pgn_style_set_pln_visible(style.get(), false);
                set(fill_layers(vx_pgn_style_get_bpgn_style_ptr(style.get())));
                vx_pgn_style_example_bmp(style.get(), bitmap);
            }};
}

sample hatch_sample(wchar_t const *caption, double angle, char const *text)
{
    return fill_sample(caption, [angle, text](void *layers) {
        void *lr = vx_style_lrs_add_lr(layers, c_pgn_htch_style_lr);
        vx_pgn_htch_lr_set_angle(lr, angle);
        vx_pgn_htch_lr_set_delta(lr, 3);
        void *lines = vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(lr));
        void *line = vx_style_lrs_add_lr(lines, c_pln_tplt_style_lr);
        vx_pln_tplt_lr_set_template(line, text);
        vx_pln_tplt_lr_set_color(line, c_blue);
    });
}

sample spot_sample(wchar_t const *caption, int type, bool random_place, bool random_angle)
{
    return fill_sample(caption, [=](void *layers) {
        vx_pgn_fill_lr_set_color(vx_style_lrs_add_lr(layers, c_pgn_fill_style_lr), c_green);
        void *lr = vx_style_lrs_add_lr(layers, c_pgn_spot_style_lr);
        vx_pgn_spot_lr_set_spot_type(lr, type);
        vx_pgn_spot_lr_set_dx(lr, 4);
        vx_pgn_spot_lr_set_dy(lr, 4);
        vx_pgn_spot_lr_set_random_x(lr, random_place);
        vx_pgn_spot_lr_set_random_y(lr, random_place);
        vx_pgn_spot_lr_set_random_angle(lr, random_angle);
        vx_pgn_spot_lr_set_use_cpx_pnt(lr, true);
        void *points = vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(lr));
        add_figure(points, 19, 2.5, c_blue);
    });
}

sample text_sample(wchar_t const *caption, bool outline, bool shadow, bool back, double angle)
{
    return {caption, [=](TBitmap *bitmap) {
                owned_txt const style(vx_txt_style_create());
                vx_txt_style_set_font_size(style.get(), 12);
                vx_txt_style_set_color(style.get(), c_blue);
                vx_txt_style_set_angle(style.get(), angle);
                vx_txt_style_set_outline(style.get(), outline);
                vx_txt_style_set_outline_clr(style.get(), c_red);
                vx_txt_style_set_outline_size(style.get(), 0.5);
                vx_txt_style_set_shadow(style.get(), shadow);
                vx_txt_style_set_shadow_gap_x(style.get(), 0.8);
                vx_txt_style_set_shadow_gap_y(style.get(), -0.8);
                vx_txt_style_set_back(style.get(), back);
                vx_txt_style_set_back_clr(style.get(), vx_clr_init_rgb(255, 245, 190));
                vx_txt_style_example_bmp(style.get(), bitmap);
            }};
}

void draw_layered_point(TBitmap *bitmap)
{
    owned_pnt const style(vx_pnt_style_create());
    void *layers = point_layers(vx_pnt_style_get_bpnt_style_ptr(style.get()));
    add_figure(layers, 0, 10, c_blue);
    add_figure(layers, 7, 7, vx_clr_init_rgb(255, 255, 255));
    void *moved = add_figure(layers, 20, 5, c_red);
    vx_pnt_figr_lr_set_dx(moved, 7);
    vx_pnt_figr_lr_set_angle(moved, 30);
    vx_pnt_style_example_bmp(style.get(), bitmap);
}

void draw_plain_polygon(TBitmap *bitmap)
{
    owned_pgn const style(vx_pgn_style_create());
    vx_pgn_style_set_pnt_visible(style.get(), true);
    vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(style.get()), c_green);
    vx_pgn_style_example_bmp(style.get(), bitmap);
}

void draw_cart(void *layers)
{
    void *lr = vx_style_lrs_add_lr(layers, c_pln_cart_style_lr);
    vx_pln_cart_lr_set_width(lr, 1.5);
    vx_pln_cart_lr_set_color(lr, vx_clr_init_rgb(255, 220, 90));
    vx_pln_cart_lr_set_casing_width(lr, 0.4);
    double const dashes[] = {4, 1.5};
    vx_pln_cart_lr_set_dashes(lr, dashes, 2);
}

void draw_beside(void *layers)
{
    for (double const delta : {-1.0, 1.0}) {
        void *lr = vx_style_lrs_add_lr(layers, c_pln_line_style_lr);
        vx_pln_line_lr_set_delta(lr, delta);
        vx_pln_line_lr_set_width(lr, 0.5);
        vx_pln_line_lr_set_color(lr, delta < 0 ? c_blue : c_red);
    }
}

void draw_color(TBitmap *bitmap)
{
    vx_clr_style_example_bmp(&c_green, bitmap);
    vx_clr_style_example_canvas(bitmap->GetCanvas(), Rect(20, 10, 60, 40),
                                vx_clr_init_rgba(200, 40, 40, 160));
}

void fill_samples(TWinControl *page)
{
    std::vector<sample> const samples = {
        {L"Layered point", draw_layered_point},
        {L"Polygon", draw_plain_polygon},
        {L"Colours", draw_color},
        line_sample(L"Casing, dashes", draw_cart),
        line_sample(L"Beside the line", draw_beside),
        template_sample(L"10", "10"),
        template_sample(L"1020", "1020"),
        template_sample(L"1030", "1030"),
        template_sample(L"1040", "1040"),
        template_sample(L"1050", "1050"),
        template_sample(L"1060", "1060"),
        template_sample(L"1101", "1101"),
        hatch_sample(L"Hatch 0", 0, "1"),
        hatch_sample(L"Hatch 45", 45, "1"),
        hatch_sample(L"Dashed hatch", 90, "10"),
        spot_sample(L"Spots in rows", 0, false, false),
        spot_sample(L"Rows shifted", 1, false, false),
        spot_sample(L"Random place", 0, true, false),
        spot_sample(L"Random angle", 0, false, true),
        text_sample(L"Text", false, false, false, 0),
        text_sample(L"Outline", true, false, false, 0),
        text_sample(L"Shadow", false, true, false, 0),
        text_sample(L"Background", false, false, true, 0),
        text_sample(L"All, 30 degrees", true, true, true, 30),
    };
    constexpr int c_columns = 6;
    int i = 0;
    for (sample const &s : samples) {
        int const left = 10 + i % c_columns * 114;
        int const top = 8 + i / c_columns * 102;
        TBitmap bitmap(100, 74);
        bitmap.SetTransparentColor(clWhite);
        s.draw(&bitmap);
        show_picture(page, bitmap, left, top);
        show_text(page, s.caption, left, top + 76);
        ++i;
    }
}

gallery_page const g_figures(42, L"Figures", fill_figures);
gallery_page const g_samples(43, L"Samples", fill_samples);
} // namespace
