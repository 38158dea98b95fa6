#include "styles/preview/style3d_params.h"
#include "styles/preview/style_example.h"
#include "tests/styles/preview/sample_styles.h"

#include "platform/render/vx_drwc.h"
#include "platform/toolkit/core/pixel_ratio.h"

#include <span>

namespace {
using namespace vx_test;

constexpr TColor c_ground = 0x408020; // a colour that no sample draws

int pixels_of(TBitmap &bitmap, TColor color)
{
    int n = 0;
    for (int y = 0; y < bitmap.GetHeight(); ++y)
        for (int x = 0; x < bitmap.GetWidth(); ++x)
            n += bitmap.GetCanvas()->GetPixel(x, y) == color;
    return n;
}

TEST_F(samples, what_is_switched_off_leaves_the_transparent_colour)
{
    owned_pnt const pnt(vx_pnt_style_create());
    owned_pln const pln(vx_pln_style_create());
    owned_pgn const pgn(vx_pgn_style_create());
    vx_pnt_style_set_pnt_visible(pnt.get(), false);
    vx_pln_style_set_pln_visible(pln.get(), false);
    vx_pln_style_set_end_visible(pln.get(), true); // the ends are not shown in samples
    vx_pln_style_set_beg_visible(pln.get(), true);
    vx_pgn_style_set_pgn_visible(pgn.get(), false);
    vx_pgn_style_set_pln_visible(pgn.get(), false);
    auto const free_pixels = [](void *style, void (*draw)(void *, TBitmap *)) {
        TBitmap bitmap(64, 24);
        bitmap.SetTransparentColor(c_ground);
        draw(style, &bitmap);
        return pixels_of(bitmap, c_ground);
    };
    EXPECT_EQ(free_pixels(pnt.get(), vx_pnt_style_example_bmp), 64 * 24);
    EXPECT_EQ(free_pixels(pln.get(), vx_pln_style_example_bmp), 64 * 24);
    EXPECT_EQ(free_pixels(pgn.get(), vx_pgn_style_example_bmp), 64 * 24);
    vx_pgn_style_set_pln_visible(pgn.get(), true);
    EXPECT_GT(free_pixels(pgn.get(), vx_pgn_style_example_bmp), 64 * 24 / 2)
        << "no check pattern without the fill";
}

TEST_F(samples, a_bitmap_without_a_transparent_colour_is_white_and_one_with_opacity_clear)
{
    owned_pnt const pnt(vx_pnt_style_create());
    TBitmap plain(20, 20);
    plain.SetTransparentMode(tmFixed);
    TBitmap clear(20, 20);
    clear.SetAlphaFormat(afPremultiplied);
    for (double const size : {4.0, 1.0}) { // the small one takes the place of the large one
        set_figure(vx_pnt_style_get_bpnt_style_ptr(pnt.get()), 2, size);
        vx_pnt_style_example_bmp(pnt.get(), &plain);
        vx_pnt_style_example_bmp(pnt.get(), &clear);
    }
    EXPECT_EQ(plain.GetCanvas()->GetPixel(5, 5), clWhite);
    EXPECT_EQ(static_cast<unsigned char *>(clear.ScanLine(10))[10 * 4 + 3], 255);
    EXPECT_EQ(static_cast<unsigned char *>(clear.ScanLine(5))[5 * 4 + 3], 0);
}

TEST_F(samples, a_bitmap_of_twice_the_resolution_shows_the_same_in_twice_the_pixels)
{
    // What is twice as large on as many pixels at the resolution of the screen.
    owned_pnt const pnt(vx_pnt_style_create());
    owned_pln const pln(vx_pln_style_create());
    owned_txt const txt(vx_txt_style_create());
    vx_txt_style_set_shadow(txt.get(), true);
    auto const set_sizes = [&](double k) {
        set_figure(vx_pnt_style_get_bpnt_style_ptr(pnt.get()), 2, 2 * k);
        vx_bpln_style_set_width(vx_pln_style_get_bpln_style_ptr(pln.get()), 0.5 * k);
        vx_txt_style_set_font_size(txt.get(), 3 * k);
        vx_txt_style_set_shadow_width(txt.get(), 0.3 * k);
        vx_txt_style_set_shadow_gap_x(txt.get(), 0.5 * k);
        vx_txt_style_set_shadow_gap_y(txt.get(), -0.5 * k);
    };
    auto const compare = [&](void *style, void (*draw)(void *, TBitmap *)) {
        for (bool const opacity : {false, true}) {
            TBitmap sharp;
            TBitmap plain;
            for (TBitmap *bitmap : {&sharp, &plain}) {
                bitmap->SetTransparentColor(clWhite);
                bitmap->SetAlphaFormat(opacity ? afPremultiplied : afIgnored);
            }
            set_sizes(1);
            vx_style_example_bmp_set_size(&sharp, 30, 20, 2);
            draw(style, &sharp);
            EXPECT_EQ(vx_bitmap_get_pixel_scale(sharp), 2);
            set_sizes(2);
            plain.SetSize(60, 40);
            draw(style, &plain);
            vx_bitmap_set_pixel_scale(sharp, 1); // to be read in its own pixels
            ASSERT_EQ(sharp.GetWidth(), 60);
            EXPECT_EQ(differences(sharp, plain), 0);
            if (!opacity) {
                EXPECT_GT(ink(sharp).count, 10);
            }
        }
    };
    compare(pnt.get(), vx_pnt_style_example_bmp);
    compare(pln.get(), vx_pln_style_example_bmp);
    compare(txt.get(), vx_txt_style_example_bmp);

    // A check of the pattern is four logical pixels wide.
    Tvx_color const clear = {};
    TBitmap checks;
    vx_style_example_bmp_set_size(&checks, 16, 16, 2);
    vx_clr_style_example_bmp(&clear, &checks);
    vx_bitmap_set_pixel_scale(checks, 1);
    TCanvas *canvas = checks.GetCanvas();
    EXPECT_EQ(canvas->GetPixel(0, 0), canvas->GetPixel(7, 7));
    EXPECT_NE(canvas->GetPixel(0, 0), canvas->GetPixel(8, 0));
}

TEST_F(samples, the_points_of_a_line_stand_at_its_two_inner_vertices)
{
    owned_pln const pln(vx_pln_style_create());
    owned_pgn const pgn(vx_pgn_style_create());
    for (void *bpnt :
         {vx_pln_style_get_bpnt_style_ptr(pln.get()), vx_pgn_style_get_bpnt_style_ptr(pgn.get())})
        set_figure(bpnt, 2, 1, c_black);
    vx_pln_style_set_pln_visible(pln.get(), false);
    vx_pln_style_set_pnt_visible(pln.get(), true);
    vx_pgn_style_set_pgn_visible(pgn.get(), false);
    vx_pgn_style_set_pln_visible(pgn.get(), false);
    vx_pgn_style_set_pnt_visible(pgn.get(), true);
    white_bitmap line(60, 30);
    white_bitmap area(60, 30);
    vx_pln_style_example_bmp(pln.get(), &line);
    vx_pgn_style_example_bmp(pgn.get(), &area);
    EXPECT_EQ(differences(line, area), 0);
    // Squares of 4 pixels round (24, 10) and (36, 20).
    EXPECT_EQ(ink(line).count, 32);
    for (TPoint const p : {TPoint{22, 8}, TPoint{25, 11}, TPoint{34, 18}, TPoint{37, 21}})
        EXPECT_EQ(line.GetCanvas()->GetPixel(p.X, p.Y), clBlack) << p.X << ", " << p.Y;
}

TEST_F(samples, geometry_stretches_and_sizes_do_not)
{
    struct
    {
        int width;
        int height;
    } const sizes[] = {{20, 20}, {64, 24}, {100, 100}};
    for (auto const &size : sizes) {
        owned_pnt const pnt(vx_pnt_style_create());
        set_figure(vx_pnt_style_get_bpnt_style_ptr(pnt.get()), 2, 2.5 / 0.88); // a square of 10 pixels
        white_bitmap point(size.width, size.height);
        vx_pnt_style_example_bmp(pnt.get(), &point);
        ink const square(point);
        EXPECT_EQ(square.count, 100) << size.width;
        EXPECT_EQ(square.left, size.width / 2 - 5);
        EXPECT_EQ(square.bottom, size.height / 2 + 4);

        owned_pln const pln(vx_pln_style_create());
        vx_bpln_style_set_color(vx_pln_style_get_bpln_style_ptr(pln.get()), c_black);
        white_bitmap line(size.width, size.height);
        vx_pln_style_example_bmp(pln.get(), &line);
        ink const zigzag(line);
        EXPECT_NEAR(zigzag.left, size.width * 0.2, 1.5);
        EXPECT_NEAR(zigzag.right, size.width * 0.8, 1.5);
        EXPECT_NEAR(zigzag.top, size.height / 3.0, 1.5);
        EXPECT_NEAR(zigzag.bottom, size.height * 2 / 3.0, 1.5);
        // It begins low and ends high.
        int low_begin = 0;
        int high_begin = 0;
        for (int y = 0; y < size.height; ++y) {
            bool const drawn = distance(line.GetCanvas()->GetPixel(zigzag.left, y), clWhite) > 30;
            (y * 2 < size.height ? high_begin : low_begin) += drawn;
        }
        EXPECT_GT(low_begin, 0);
        EXPECT_EQ(high_begin, 0);

        vx_bpnt_style_set_size(vx_pnt_style_get_bpnt_style_ptr(pnt.get()), 500);
        vx_pnt_style_example_bmp(pnt.get(), &point);
        EXPECT_EQ(ink(point).count, size.width * size.height) << "what is too large is cut off";
    }
}

TEST_F(samples, a_fill_covers_all_and_its_check_pattern_shows_through)
{
    owned_pgn const pgn(vx_pgn_style_create());
    vx_pgn_style_set_pln_visible(pgn.get(), false);
    void *bpgn = vx_pgn_style_get_bpgn_style_ptr(pgn.get());
    vx_bpgn_style_set_color(bpgn, vx_clr_init_rgba(0, 0, 0, 0));
    white_bitmap bitmap(40, 40);
    vx_pgn_style_example_bmp(pgn.get(), &bitmap);
    // Half of each colour: white stays white, and 204 at half its strength on white gives 230.
    EXPECT_NEAR(pixels_of(bitmap, clWhite), 800, 0);
    EXPECT_EQ(pixels_of(bitmap, RGB(230, 230, 230)) + pixels_of(bitmap, RGB(229, 229, 229)), 800);
    vx_bpgn_style_set_color(bpgn, c_blue);
    vx_pgn_style_example_bmp(pgn.get(), &bitmap);
    EXPECT_EQ(pixels_of(bitmap, RGB(30, 90, 170)), 1600);
}

TEST_F(samples, a_colour_lies_on_an_opaque_check_pattern)
{
    white_bitmap bitmap(16, 12);
    Tvx_color const clear = vx_clr_init_rgba(200, 0, 0, 0);
    vx_clr_style_example_bmp(&clear, &bitmap);
    EXPECT_EQ(pixels_of(bitmap, RGB(204, 204, 204)), 96);
    EXPECT_EQ(pixels_of(bitmap, clWhite), 96);
    Tvx_color const half = vx_clr_init_rgba(255, 0, 0, 51); // a fifth
    vx_clr_style_example_bmp(&half, &bitmap);
    EXPECT_EQ(pixels_of(bitmap, RGB(255, 204, 204)), 96);
    EXPECT_EQ(pixels_of(bitmap, RGB(214, 163, 163)), 96);

    TBitmap canvas(40, 30);
    vx_clr_style_example_canvas(canvas.GetCanvas(), Rect(10, 5, 30, 25), c_blue);
    EXPECT_EQ(pixels_of(canvas, RGB(30, 90, 170)), 18 * 18);
    EXPECT_EQ(pixels_of(canvas, clBlack), 4 * 19) << "a border of one pixel inside";
    EXPECT_EQ(pixels_of(canvas, clWhite), 40 * 30 - 20 * 20);
    EXPECT_EQ(canvas.GetCanvas()->GetPixel(10, 5), clBlack);
    EXPECT_EQ(canvas.GetCanvas()->GetPixel(29, 24), clBlack);
}

TEST_F(samples, a_shadow_lies_below_the_text_and_moves_right_and_up)
{
    white_bitmap plain(100, 100);
    owned_txt const style = text_style();
    vx_txt_style_example_bmp(style.get(), &plain);
    ink const letter(plain);
    ASSERT_GT(letter.count, 100);

    // The shadow alone: the letter itself is clear.
    vx_txt_style_set_color(style.get(), vx_clr_init_rgba(0, 0, 0, 0));
    vx_txt_style_set_shadow(style.get(), true);
    vx_txt_style_set_shadow_clr(style.get(), c_black);
    vx_txt_style_set_shadow_gap_x(style.get(), 0);
    vx_txt_style_set_shadow_gap_y(style.get(), 0);
    white_bitmap shadow(100, 100);
    vx_txt_style_example_bmp(style.get(), &shadow);
    EXPECT_EQ(differences(plain, shadow), 0);

    vx_txt_style_set_shadow_gap_x(style.get(), 2);
    vx_txt_style_set_shadow_gap_y(style.get(), 3);
    vx_txt_style_example_bmp(style.get(), &shadow);
    ink const moved(shadow);
    EXPECT_EQ(moved.count, letter.count);
    EXPECT_EQ(moved.left, letter.left + 8);
    EXPECT_EQ(moved.top, letter.top - 12);

    // It is as outlined as the text, by its own width, in its own colour.
    vx_txt_style_set_outline(style.get(), true);
    vx_txt_style_set_outline_clr(style.get(), vx_clr_init_rgba(0, 0, 0, 0));
    vx_txt_style_set_shadow_width(style.get(), 0.5);
    vx_txt_style_example_bmp(style.get(), &shadow);
    ink const wide(shadow);
    EXPECT_EQ(wide.left, moved.left - 2);
    EXPECT_EQ(wide.bottom, moved.bottom + 2);
}

TEST_F(samples, text_is_outlined_turned_and_on_a_background_of_its_extent)
{
    owned_txt const style = text_style();
    white_bitmap bitmap(100, 100);
    vx_txt_style_example_bmp(style.get(), &bitmap);
    ink const letter(bitmap);
    EXPECT_NEAR(letter.bottom - letter.top + 1, 48 * 0.729, 2) << "height of this font's capitals";
    EXPECT_NEAR(letter.left + letter.right + 1, 100, 3);
    vx_txt_style_set_outline(style.get(), true);
    vx_txt_style_set_outline_clr(style.get(), c_black);
    vx_txt_style_set_outline_size(style.get(), 1);
    vx_txt_style_example_bmp(style.get(), &bitmap);
    EXPECT_EQ(ink(bitmap).left, letter.left - 4);
    vx_txt_style_set_outline(style.get(), false);
    vx_txt_style_set_angle(style.get(), 90);
    vx_txt_style_example_bmp(style.get(), &bitmap);
    ink const turned(bitmap);
    EXPECT_NEAR(turned.right - turned.left, letter.bottom - letter.top, 1);
    // Turned to the left, the bar of the letter stands upright at the left.
    int at_left = 0;
    for (int y = 0; y < 100; ++y)
        at_left += bitmap.GetCanvas()->GetPixel(turned.left + 1, y) != clWhite;
    EXPECT_GT(at_left, 20);

    vx_txt_style_set_color(style.get(), vx_clr_init_rgba(0, 0, 0, 0));
    vx_txt_style_set_back(style.get(), true);
    vx_txt_style_set_back_clr(style.get(), c_black);
    white_bitmap odd(101, 101);
    vx_txt_style_example_bmp(style.get(), &odd);
    Tvx_txt_params text;
    text.font = vx_txt_style_get_font_ptr(style.get());
    text.size = 48;
    Tvx_pnt_d2 size;
    vx_drwc_get_txt_extent_w(&size, nullptr, text, L"T", 1, 0);
    ink const box(odd); // upright, whatever the angle
    EXPECT_NEAR(box.right - box.left + 1, size.x, 1.5);
    EXPECT_NEAR(box.bottom - box.top + 1, size.y, 1.5);
    EXPECT_NEAR(box.left + box.right + 1, 100, 1.5) << "the centre is halved as whole pixels";
    EXPECT_NEAR(box.top + box.bottom + 1, 100, 1.5);
}

TEST_F(samples, wild_numbers_of_texts_end_and_leave_no_warning)
{
    using setter = void (*)(void *, double);
    setter const setters[] = {vx_txt_style_set_angle,        vx_txt_style_set_font_size,
                              vx_txt_style_set_outline_size, vx_txt_style_set_shadow_width,
                              vx_txt_style_set_shadow_gap_x, vx_txt_style_set_shadow_gap_y};
    auto const wild_text = [](std::span<setter const> set, double value) {
        owned_txt style = text_style();
        vx_txt_style_set_outline(style.get(), true);
        vx_txt_style_set_shadow(style.get(), true);
        vx_txt_style_set_back(style.get(), true);
        vx_txt_style_set_back_clr(style.get(), c_red);
        for (setter const one : set)
            one(style.get(), value);
        return style;
    };
    for (double const value : {-1.0, 0.0, 1e-300, 1e6, 1e300, -1e300}) {
        for (setter const &one : setters) {
            white_bitmap bitmap(20, 20);
            vx_txt_style_example_bmp(wild_text({&one, 1}, value).get(), &bitmap);
            EXPECT_GT(ink(bitmap).count, 0) << &one - setters << ": " << value;
        }
        white_bitmap bitmap(20, 20);
        vx_txt_style_example_bmp(wild_text(setters, value).get(), &bitmap);
    }
}

TEST_F(samples, styles_of_space_are_drawn_with_what_they_share)
{
    vx::owned<void, &vx_pgn3d_style_destroy> const space(vx_pgn3d_style_create());
    vx_bpgn3d_style_set_color(vx_pgn3d_style_get_bpgn3d_style_ptr(space.get()), c_red);
    vx_bpln3d_style_set_color(vx_pgn3d_style_get_bpln3d_style_ptr(space.get()), c_blue);
    vx_bpln3d_style_set_width(vx_pgn3d_style_get_bpln3d_style_ptr(space.get()), 4);
    vx_bpnt3d_style_set_color(vx_pgn3d_style_get_bpnt3d_style_ptr(space.get()), c_black);
    vx_bpnt3d_style_set_size(vx_pgn3d_style_get_bpnt3d_style_ptr(space.get()), 3);
    owned_pgn const flat(vx_pgn_style_create());
    vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(flat.get()), c_red);
    vx_bpln_style_set_color(vx_pgn_style_get_bpln_style_ptr(flat.get()), c_blue);
    vx_bpln_style_set_width(vx_pgn_style_get_bpln_style_ptr(flat.get()), 1);
    set_figure(vx_pgn_style_get_bpnt_style_ptr(flat.get()), 0, 3, c_black);
    for (unsigned flags = 0; flags < 8; ++flags) {
        vx_pgn3d_style_set_pgn_visible(space.get(), flags & 1);
        vx_pgn3d_style_set_pln_visible(space.get(), flags & 2);
        vx_pgn3d_style_set_pnt_visible(space.get(), flags & 4);
        vx_pgn_style_set_pgn_visible(flat.get(), flags & 1);
        vx_pgn_style_set_pln_visible(flat.get(), flags & 2);
        vx_pgn_style_set_pnt_visible(flat.get(), flags & 4);
        white_bitmap a(40, 40);
        white_bitmap b(40, 40);
        vx_pgn3d_style_example_bmp(space.get(), &a);
        vx_pgn_style_example_bmp(flat.get(), &b);
        EXPECT_EQ(differences(a, b), 0) << flags;
    }
    vx::owned<void, &vx_pln3d_style_destroy> const line(vx_pln3d_style_create());
    vx_pln3d_style_set_pln_visible(line.get(), false);
    vx_pln3d_style_set_pnt_visible(line.get(), true);
    vx::owned<void, &vx_pnt3d_style_destroy> const point(vx_pnt3d_style_create());
    for (void *bpnt3d :
         {vx_pln3d_style_get_bpnt3d_style_ptr(line.get()), vx_pnt3d_style_get_bpnt3d_style_ptr(point.get())})
        vx_bpnt3d_style_set_size(bpnt3d, 2);
    white_bitmap one(60, 60);
    white_bitmap two(60, 60);
    vx_pnt3d_style_example_bmp(point.get(), &one);
    vx_pln3d_style_example_bmp(line.get(), &two);
    EXPECT_GT(ink(one).count, 30);
    EXPECT_EQ(ink(two).count, 2 * ink(one).count);
    // What the two do not share stays.
    owned_pnt const target(vx_pnt_style_create());
    void *bpnt = vx_pnt_style_get_bpnt_style_ptr(target.get());
    set_figure(bpnt, 9, 1);
    vx_copy_bpnt_params(vx_pnt3d_style_get_bpnt3d_style_ptr(point.get()), bpnt);
    vx_copy_bpnt_params(nullptr, bpnt);
    EXPECT_EQ(vx_bpnt_style_get_size(bpnt), 2);
    EXPECT_EQ(vx_bpnt_style_get_figure(bpnt), 9);
}

TEST_F(samples, missing_parts_draw_nothing)
{
    owned_pnt const style(vx_pnt_style_create());
    TBitmap empty;
    vx_pnt_style_example_bmp(style.get(), &empty);
    EXPECT_TRUE(empty.GetEmpty());
    white_bitmap bitmap(8, 8);
    for (auto const draw : {vx_pnt_style_example_bmp, vx_pln_style_example_bmp, vx_pgn_style_example_bmp,
                            vx_pnt3d_style_example_bmp, vx_pln3d_style_example_bmp,
                            vx_pgn3d_style_example_bmp, vx_txt_style_example_bmp}) {
        draw(nullptr, &bitmap);
        draw(nullptr, nullptr);
    }
    vx_pnt_style_example_bmp(style.get(), nullptr);
    vx_clr_style_example_bmp(nullptr, &bitmap);
    vx_clr_style_example_canvas(nullptr, Rect(0, 0, 5, 5), c_red);
    vx_clr_style_example_canvas(bitmap.GetCanvas(), Rect(5, 5, 5, 2), c_red);
    EXPECT_EQ(ink(bitmap).count, 0);
}
} // namespace
