#include "tests/platform/render/page.h"

#include "platform/render/vx_drwc.h"
#include "platform/toolkit/bitmap.h"
#include "platform/toolkit/canvas.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {
using namespace vx_test;

TEST(render, a_point_has_its_size_in_millimetres)
{
    page p;
    vx_render_cr_bpnt(p.render.get(), geometry({{{50, 50}}}).list.get(), point(0, 5).get());
    EXPECT_EQ(p.at(50, 50), c_red);
    EXPECT_EQ(p.at(50, 58), c_red);
    EXPECT_EQ(p.at(58, 50), c_red);
    EXPECT_EQ(p.at(50, 62), c_white);
    // A disc of 20 pixels across.
    EXPECT_NEAR(p.count(), 3.14159 * 10 * 10, 40);
}

TEST(render, a_line_is_as_wide_as_told_and_y_grows_upwards)
{
    page p;
    owned_bpln style(vx_bpln_style_create());
    vx_bpln_style_set_color(style.get(), c_red);
    vx_bpln_style_set_width(style.get(), 2);
    vx_render_cr_bpln(p.render.get(), geometry({{{10, 80}, {90, 80}}}).list.get(), style.get());
    EXPECT_EQ(p.at(50, 79.5), c_red);
    EXPECT_EQ(p.at(50, 20), c_white);
    int across = 0;
    for (int y = 0; y < 100; ++y)
        across += p.at(50, y) == c_red;
    EXPECT_EQ(across, 8);
    EXPECT_EQ(p.at(5, 80), c_white);
}

TEST(render, holes_stay_open_and_far_vertices_do_no_harm)
{
    owned_bpgn style(vx_bpgn_style_create());
    vx_bpgn_style_set_color(style.get(), c_red);
    {
        page p;
        vx_render_cr_bpgn(
            p.render.get(),
            geometry({{{10, 10}, {10, 90}, {90, 90}, {90, 10}}, {{40, 40}, {60, 40}, {60, 60}, {40, 60}}})
                .list.get(),
            style.get());
        EXPECT_EQ(p.at(20, 20), c_red);
        EXPECT_EQ(p.at(50, 50), c_white);
        EXPECT_EQ(p.at(5, 5), c_white);
        EXPECT_NEAR(p.count(), 80 * 80 - 20 * 20, 8);
    }
    page p;
    double const far = 1e12;
    vx_render_cr_bpgn(p.render.get(),
                      geometry({{{-far, -far}, {-far, far}, {50, far}, {50, -far}}}).list.get(), style.get());
    EXPECT_EQ(p.at(25, 50), c_red);
    EXPECT_EQ(p.at(75, 50), c_white);
    owned_bpln line(vx_bpln_style_create());
    vx_bpln_style_set_width(line.get(), 2);
    vx_render_cr_bpln(p.render.get(), geometry({{{75, -far}, {75, far}}}).list.get(), line.get());
    EXPECT_NE(p.at(75, 50), c_white);
    EXPECT_EQ(p.at(90, 50), c_white);
}

TEST(render, bad_geometry_and_missing_parts_draw_nothing)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    owned_bpln line(vx_bpln_style_create());
    owned_bpgn fill(vx_bpgn_style_create());
    page p;
    for (auto const &parts : {std::vector<std::vector<Tvx_vtx_d2>>{}, {{}}, {{{50, 50}}}, {{{nan, 50}}}}) {
        geometry g(parts);
        vx_render_cr_bpln(p.render.get(), g.list.get(), line.get());
        vx_render_cr_bpgn(p.render.get(), g.list.get(), fill.get());
    }
    vx_render_cr_bpnt(p.render.get(), geometry({{{nan, nan}}}).list.get(), point(0, 5).get());
    vx_render_cr_bpnt(p.render.get(), nullptr, point(0, 5).get());
    vx_render_cr_bpnt(nullptr, geometry({{{1, 1}}}).list.get(), point(0, 5).get());
    vx_render_cr_bpnt(p.render.get(), geometry({{{1, 1}}}).list.get(), nullptr);
    EXPECT_EQ(p.count(), 0);
}

// ---- complex styles
struct complex_line
{
    owned_bpln style{vx_bpln_style_create()};
    void *lrs;
    complex_line()
    {
        vx_bpln_style_set_use_complex(style.get(), true);
        lrs = vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(style.get()));
    }
};

TEST(render, a_template_repeats_dashes_and_gaps)
{
    complex_line line;
    void *tplt = vx_style_lrs_add_lr(line.lrs, "pln_tplt_slr");
    vx_pln_tplt_lr_set_template(tplt, "10");
    vx_pln_tplt_lr_set_dash(tplt, 2.5); // 10 pixels
    vx_pln_tplt_lr_set_gap(tplt, 5);    // 20 pixels
    vx_pln_tplt_lr_set_width(tplt, 1);
    vx_pln_tplt_lr_set_color(tplt, c_red);
    page p;
    vx_render_cr_bpln(p.render.get(), geometry({{{0, 50}, {40, 50}, {100, 50}}}).list.get(),
                      line.style.get());
    for (int const x : {1, 8, 31, 38, 61, 68, 91})
        EXPECT_EQ(p.at(x, 50), c_red) << x;
    for (int const x : {12, 28, 42, 58, 72, 88})
        EXPECT_EQ(p.at(x, 50), c_white) << x;
    // The same line seen from its middle: the dashes stay where they are.
    page moved;
    Tvx_box_d2 box;
    box.add(35, 0);
    box.add(135, 100);
    vx_render_init(moved.render.get(), box, moved.dc.get());
    vx_render_cr_bpln(moved.render.get(), geometry({{{-3000, 50}, {40, 50}, {3000, 50}}}).list.get(),
                      line.style.get());
    EXPECT_EQ(moved.at(62 - 35, 50), moved.at(92 - 35, 50));
    EXPECT_EQ(moved.at(65 - 35, 50), c_red);
    EXPECT_EQ(moved.at(75 - 35, 50), c_white);
}

TEST(render, template_marks_stand_across_the_line)
{
    struct
    {
        char const *tplt;
        Tvx_pnt_d2 drawn;
        Tvx_pnt_d2 blank;
    } const table[] = {{"03", {50, 56}, {56, 56}}, {"05", {54, 54}, {54, 46}}, {"06", {46, 54}, {54, 54}},
                       {"04", {50, 53}, {50, 60}}, {"02", {50, 50}, {50, 54}}, {"4", {50, 53}, {25, 53}}};
    for (auto const &t : table) {
        complex_line line;
        void *tplt = vx_style_lrs_add_lr(line.lrs, "pln_tplt_slr");
        vx_pln_tplt_lr_set_template(tplt, t.tplt);
        vx_pln_tplt_lr_set_gap(tplt, 12.5); // 50 pixels
        vx_pln_tplt_lr_set_dash(tplt, 4);   // 16 pixels
        vx_pln_tplt_lr_set_width(tplt, 1);
        void *figr = vx_style_lrs_add_lr(
            vx_cpx_style_get_style_lrs_ptr(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(tplt)), "pnt_figr_slr");
        vx_pnt_figr_lr_set_size_x(figr, 2);
        vx_pnt_figr_lr_set_size_y(figr, 2);
        page p;
        vx_render_cr_bpln(p.render.get(), geometry({{{0, 50}, {100, 50}}}).list.get(), line.style.get());
        EXPECT_NE(p.at(t.drawn.x, t.drawn.y), c_white) << t.tplt;
        EXPECT_EQ(p.at(t.blank.x, t.blank.y), c_white) << t.tplt;
    }
}

TEST(render, a_shifted_stroke_lies_left_of_its_line)
{
    complex_line line;
    void *lr = vx_style_lrs_add_lr(line.lrs, "pln_line_slr");
    vx_pln_line_lr_set_delta(lr, 5); // 20 pixels
    vx_pln_line_lr_set_width(lr, 1);
    vx_pln_line_lr_set_color(lr, c_red);
    page p;
    vx_render_cr_bpln(p.render.get(), geometry({{{10, 50}, {90, 50}}}).list.get(), line.style.get());
    EXPECT_EQ(p.at(50, 69.5), c_red);
    EXPECT_EQ(p.at(50, 50), c_white);
}

struct complex_fill
{
    owned_bpgn style{vx_bpgn_style_create()};
    void *lrs;
    complex_fill()
    {
        vx_bpgn_style_set_use_complex(style.get(), true);
        lrs = vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(style.get()));
    }
    void draw(page &p) const
    {
        vx_render_cr_bpgn(p.render.get(), geometry({{{20, 20}, {20, 80}, {80, 80}, {80, 20}}}).list.get(),
                          style.get());
    }
};

TEST(render, hatches_and_spots_stay_inside_and_keep_their_steps)
{
    complex_fill hatched;
    void *htch = vx_style_lrs_add_lr(hatched.lrs, "pgn_htch_slr");
    vx_pgn_htch_lr_set_angle(htch, 0);
    vx_pgn_htch_lr_set_delta(htch, 2.5); // 10 pixels
    page p;
    hatched.draw(p);
    EXPECT_EQ(p.count(), p.count(20, 20, 80, 80));
    int lines = 0;
    for (int y = 1; y < 100; ++y)
        lines += p.at(50, y) != c_white && p.at(50, y - 1) == c_white;
    EXPECT_NEAR(lines, 6, 1);

    complex_fill spotted;
    void *spot = vx_style_lrs_add_lr(spotted.lrs, "pgn_spot_slr");
    vx_pgn_spot_lr_set_dx(spot, 5);
    vx_pgn_spot_lr_set_dy(spot, 5);
    vx_pgn_spot_lr_set_point_size(spot, 1);
    page q;
    spotted.draw(q);
    EXPECT_EQ(q.count(), q.count(20, 20, 80, 80));
    EXPECT_NE(q.at(40, 59), c_white) << "a net of 20 pixels from the upper left corner";
    EXPECT_EQ(q.at(50, 50), c_white);
    vx_pgn_spot_lr_set_random_x(spot, true);
    page r1;
    page r2;
    spotted.draw(r1);
    spotted.draw(r2);
    for (int x = 0; x < 100; ++x)
        EXPECT_EQ(r1.at(x, 60), r2.at(x, 60)) << "random pictures repeat";
}

TEST(render, patterns_without_steps_end)
{
    complex_fill fill;
    void *htch = vx_style_lrs_add_lr(fill.lrs, "pgn_htch_slr");
    vx_pgn_htch_lr_set_delta(htch, 0);
    void *spot = vx_style_lrs_add_lr(fill.lrs, "pgn_spot_slr");
    vx_pgn_spot_lr_set_dx(spot, 0);
    vx_pgn_spot_lr_set_dy(spot, -1e-9);
    complex_line line;
    for (char const *text : {"", "1", "0", "234", "x"}) {
        void *tplt = vx_style_lrs_add_lr(line.lrs, "pln_tplt_slr");
        vx_pln_tplt_lr_set_template(tplt, text);
        vx_pln_tplt_lr_set_dash(tplt, 0);
        vx_pln_tplt_lr_set_gap(tplt, -1);
    }
    double const none[] = {0, 0};
    vx_pln_cart_lr_set_dashes(vx_style_lrs_add_lr(line.lrs, "pln_cart_slr"), none, 2);
    page p;
    fill.draw(p);
    vx_render_cr_bpln(p.render.get(), geometry({{{0, 0}, {100, 100}}}).list.get(), line.style.get());
    EXPECT_GT(p.count(), 0);
}

// ---- device
TEST(bmp_dc, lent_pixels_are_drawn_on_and_bad_ones_refused)
{
    std::vector<unsigned> pixels(64 * 32, 0xFFFFFFFF);
    page p;
    vx_bmp_dc_set_pixels(p.dc.get(), reinterpret_cast<unsigned char *>(pixels.data()), 64, 32, 64 * 4);
    vx_bmp_dc_set_transparent_clr(p.dc.get(), c_red);
    EXPECT_EQ(pixels[0], 0xFFFFFFFF) << "lent pixels keep what they hold";
    vx_render_cr_bpnt(p.render.get(), geometry({{{50, 50}}}).list.get(), point(2, 2).get());
    vx_bmp_dc_set_pixels(p.dc.get(), reinterpret_cast<unsigned char *>(pixels.data()), 64, 32, 63 * 4);
    EXPECT_EQ(vx_bmp_dc_get_width(p.dc.get()), 0);
    EXPECT_EQ(pixels[16 * 64 + 32], 0xFFFF0000);
    vx_render_cr_bpnt(p.render.get(), geometry({{{50, 50}}}).list.get(), point(2, 2).get());
    for (int const bad : {0, -1, std::numeric_limits<int>::max()}) {
        vx_bmp_dc_set_nxy(p.dc.get(), bad, 10);
        EXPECT_EQ(vx_bmp_dc_get_width(p.dc.get()), 0);
        vx_render_cr_bpnt(p.render.get(), geometry({{{50, 50}}}).list.get(), point(2, 2).get());
    }
}

TEST(bmp_dc, copies_to_a_canvas)
{
    TBitmap bitmap(20, 20);
    vx::owned<void, &vx_bmp_dc_destroy> dc(vx_bmp_dc_create());
    vx_bmp_dc_set_nxy(dc.get(), 10, 10);
    vx_bmp_dc_set_transparent_clr(dc.get(), c_red);
    vx_bmp_dc_draw_on_hdc(dc.get(), bitmap.GetCanvas(), 5, 5, 10, 10);
    EXPECT_EQ(bitmap.GetCanvas()->GetPixel(6, 6), TColor(0x0000FF));
    EXPECT_EQ(bitmap.GetCanvas()->GetPixel(4, 4), TColor(0xFFFFFF));
    EXPECT_EQ(bitmap.GetCanvas()->GetPixel(15, 15), TColor(0xFFFFFF));
}

TEST(drwc, boxes_checks_and_text)
{
    page p;
    Tvx_box_d2 box;
    box.add(5, 5); // millimetres: pixels 20 to 60
    box.add(15, 15);
    vx_drwc_fill_pgn_rect(p.dc.get(), {vx_clr_init_grey(0), vx_clr_init_grey(200), 50, 0}, box);
    int dark = 0;
    for (int y = 20; y < 60; ++y)
        for (int x = 20; x < 60; ++x)
            dark += vx_bmp_dc_get_pixel(p.dc.get(), x, y) == vx_clr_init_grey(0);
    EXPECT_EQ(dark, 800);
    EXPECT_EQ(p.count(), 1600);
    vx_drwc_draw_pgn_rect(p.dc.get(), c_red, box);
    EXPECT_EQ(vx_bmp_dc_get_pixel(p.dc.get(), 40, 40), c_red);
    vx_drwc_draw_pln_rect(p.dc.get(), {vx_clr_init_int(0), 0, 1.0}, box);
    EXPECT_EQ(vx_bmp_dc_get_pixel(p.dc.get(), 20, 40), vx_clr_init_grey(0));
    EXPECT_EQ(vx_bmp_dc_get_pixel(p.dc.get(), 59, 40), vx_clr_init_grey(0));
    EXPECT_EQ(vx_bmp_dc_get_pixel(p.dc.get(), 60, 40), c_white);

    vx::owned<void, &vx_bmp_dc_destroy> dc(vx_bmp_dc_create());
    vx_bmp_dc_set_nxy(dc.get(), 60, 60);
    vx_bmp_dc_set_transparent_clr(dc.get(), c_white);
    Tvx_txt_params text;
    text.color = vx_clr_init_grey(0);
    text.center = {30, 30};
    text.size = 40;
    Tvx_pnt_d2 size;
    vx_drwc_get_txt_extent_w(&size, dc.get(), text, L"T", -1, 0);
    EXPECT_GT(size.x, 15);
    EXPECT_LT(size.x, 40);
    EXPECT_GE(size.y, 40);
    vx_drwc_draw_txt_w(dc.get(), text, L"T", -1, 0);
    EXPECT_EQ(vx_bmp_dc_get_pixel(dc.get(), 30, 32), vx_clr_init_grey(0)) << "the stem of the letter";
    EXPECT_EQ(vx_bmp_dc_get_pixel(dc.get(), 20, 40), c_white);
}
} // namespace
