#include "tests/platform/render/page.h"

#include "platform/render/vx_drwc.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <cmath>
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

TEST(render, sizes_that_make_no_sense_are_drawn_as_the_nearest_that_do)
{
    page none(40);
    page small(40);
    page large(40);
    none.draw_point(20.5, 20.5, point(2, 0).get());
    small.draw_point(20.5, 20.5, point(2, -5).get());
    large.draw_point(20, 20, point(2, 1e300).get());
    EXPECT_EQ(none.count(), 1);
    EXPECT_EQ(small.count(), 1);
    EXPECT_EQ(large.count(), 1600);
    owned_bpnt const symbol = point(0, -5);
    vx_bpnt_style_set_use_figure(symbol.get(), false);
    vx_bpnt_style_set_symbol(symbol.get(), L'\x25A0'); // a black square
    page letter(40);
    letter.draw_point(20, 20, symbol.get());
    EXPECT_GT(letter.count(), 0);
    EXPECT_LE(letter.count(), 9);
    owned_bpln const line(vx_bpln_style_create());
    for (double const width : {-5.0, 0.0}) {
        vx_bpln_style_set_width(line.get(), width);
        page thin(40);
        vx_render_cr_bpln(thin.render.get(), geometry({{{0, 20.5}, {40, 20.5}}}).list.get(), line.get());
        EXPECT_EQ(thin.count(), 40);
    }
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
TEST(render, tangled_lines_and_areas_cover_what_they_pass)
{
    constexpr int c_side = 200;
    constexpr int c_points = 20'000;
    std::vector<Tvx_vtx_d2> zigzag;
    for (int i = 0; i < c_points; ++i)
        zigzag.push_back({static_cast<double>(c_side) * i / c_points, i % 2 ? c_side : 0.0});
    zigzag.insert(zigzag.end(), {{c_side, -1.0}, {0.0, -1.0}}); // round below
    geometry const shape({zigzag});
    auto const mean_ink = [](page const &p) {
        double sum = 0;
        for (int y = 10; y < c_side - 10; ++y)
            for (int x = 10; x < c_side - 10; ++x)
                sum += p.ink(x, y);
        return sum / ((c_side - 20) * (c_side - 20));
    };
    for (int const alpha : {255, 128}) {
        Tvx_color const black = vx_clr_init_rgba(0, 0, 0, alpha);
        page areas(c_side);
        owned_bpgn const fill(vx_bpgn_style_create());
        vx_bpgn_style_set_color(fill.get(), black);
        vx_render_cr_bpgn(areas.render.get(), shape.list.get(), fill.get());
        EXPECT_NEAR(mean_ink(areas), alpha / 2.0, 6) << "inside as often as outside";
        page lines(c_side);
        owned_bpln const line(vx_bpln_style_create());
        vx_bpln_style_set_color(line.get(), black);
        vx_render_cr_bpln(lines.render.get(), shape.list.get(), line.get());
        EXPECT_NEAR(mean_ink(lines), alpha, 2) << "once, however often it passes";
    }
}
} // namespace
