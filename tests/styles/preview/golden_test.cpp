#include "styles/preview/style_example.h"
#include "tests/styles/preview/sample_styles.h"

#include <cstdlib>
#include <functional>
#include <string>

// Samples of a set of styles against pictures that somebody looked at: `tests/golden/samples/NAME.png` shows
// the sample in 20 x 20, 64 x 24 and 100 x 100 pixels side by side. Run with VX_WRITE_GOLDEN=1 to write the
// pictures anew, and look at them.

namespace {
using namespace vx_test;

struct golden_style
{
    char const *name;
    std::function<void(TBitmap *)> draw;
};

void PrintTo(golden_style const &style, std::ostream *out)
{
    *out << style.name;
}

/// `set` gets the base point style, the layers of the line's or the fill's complex style, or the text style.
golden_style point(char const *name, std::function<void(void *)> const &set)
{
    return {name, [set](TBitmap *bitmap) {
                owned_pnt const style(vx_pnt_style_create());
                set(vx_pnt_style_get_bpnt_style_ptr(style.get()));
                vx_pnt_style_example_bmp(style.get(), bitmap);
            }};
}

golden_style line(char const *name, std::function<void(void *)> const &set)
{
    return {name, [set](TBitmap *bitmap) {
                owned_pln const style(vx_pln_style_create());
                set(line_layers(vx_pln_style_get_bpln_style_ptr(style.get())));
                vx_pln_style_example_bmp(style.get(), bitmap);
            }};
}

golden_style area(char const *name, std::function<void(void *)> const &set)
{
    return {name, [set](TBitmap *bitmap) {
                owned_pgn const style(vx_pgn_style_create());
                vx_pgn_style_set_pln_visible(style.get(), false);
                set(fill_layers(vx_pgn_style_get_bpgn_style_ptr(style.get())));
                vx_pgn_style_example_bmp(style.get(), bitmap);
            }};
}

golden_style text(char const *name, std::function<void(void *)> const &set)
{
    return {name, [set](TBitmap *bitmap) {
                owned_txt const style = text_style();
                set(style.get());
                vx_txt_style_example_bmp(style.get(), bitmap);
            }};
}

void *add_template(void *layers, char const *text)
{
    void *lr = vx_style_lrs_add_lr(layers, "pln_tplt_slr");
    vx_pln_tplt_lr_set_template(lr, text);
    vx_pln_tplt_lr_set_width(lr, 0.5);
    vx_pln_tplt_lr_set_color(lr, c_blue);
    add_figure(vx_cpx_style_get_style_lrs_ptr(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(lr)), 4, 2, 1.5, c_red);
    return lr;
}

/// An arrow on every place of a net of 4 by 3 millimetres.
void *add_spots(void *layers)
{
    vx_pgn_fill_lr_set_color(vx_style_lrs_add_lr(layers, "pgn_fill_slr"), vx_clr_init_rgba(60, 160, 80, 110));
    void *lr = vx_style_lrs_add_lr(layers, "pgn_spot_slr");
    vx_pgn_spot_lr_set_dx(lr, 4);
    vx_pgn_spot_lr_set_dy(lr, 3);
    vx_pgn_spot_lr_set_use_cpx_pnt(lr, true);
    add_figure(vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(lr)), 19, 2.5, 2.5);
    return lr;
}

void make_plain_polygon(TBitmap *bitmap)
{
    owned_pgn const style(vx_pgn_style_create());
    vx_pgn_style_set_pnt_visible(style.get(), true);
    vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(style.get()), vx_clr_init_rgba(60, 160, 80, 110));
    vx_bpln_style_set_width(vx_pgn_style_get_bpln_style_ptr(style.get()), 0.7);
    set_figure(vx_pgn_style_get_bpnt_style_ptr(style.get()), 9, 2, c_red);
    vx_pgn_style_example_bmp(style.get(), bitmap);
}

void make_color(TBitmap *bitmap)
{
    Tvx_color const color = vx_clr_init_rgba(200, 40, 40, 130);
    vx_clr_style_example_bmp(&color, bitmap);
}

std::vector<golden_style> golden_styles()
{
    return {
        point("point_figures_filled", [](void *bpnt) { set_figure(bpnt, 7, 4); }),
        point("point_figures_outlined", [](void *bpnt) { set_figure(bpnt, 14, 4); }),
        point("point_symbol",
              [](void *bpnt) {
                  vx_bpnt_style_set_use_figure(bpnt, false);
                  vx_fnt_type font;
                  font.set_wname(L"DejaVu Sans");
                  vx_bpnt_style_set_fnt_type(bpnt, &font);
                  vx_bpnt_style_set_symbol(bpnt, 0x2691); // a flag
                  vx_bpnt_style_set_size(bpnt, 6);
              }),
        point("point_layers",
              [](void *bpnt) {
                  void *layers = point_layers(bpnt);
                  add_figure(layers, 0, 8, 5);
                  add_figure(layers, 7, 4, 4, vx_clr_init_rgb(255, 255, 255));
                  void *moved = add_figure(layers, 20, 3, 3, c_red);
                  vx_pnt_figr_lr_set_dx(moved, 4);
                  vx_pnt_figr_lr_set_dy(moved, 2);
                  vx_pnt_figr_lr_set_angle(moved, -60);
                  vx_pnt_figr_lr_set_line_width(moved, 0.4);
              }),
        line("line_beside",
             [](void *layers) {
                 for (double const delta : {-1.0, 1.0}) {
                     void *lr = vx_style_lrs_add_lr(layers, "pln_line_slr");
                     vx_pln_line_lr_set_delta(lr, delta);
                     vx_pln_line_lr_set_width(lr, delta < 0 ? 0.3 : 0.9);
                     vx_pln_line_lr_set_color(lr, delta < 0 ? c_red : c_blue);
                 }
             }),
        line("line_dashes_gaps", [](void *layers) { add_template(layers, "1010010"); }),
        line("line_dashes_angles", [](void *layers) { add_template(layers, "0305060"); }),
        line("line_points_symbols", [](void *layers) { add_template(layers, "102040"); }),
        line("line_shift_delta",
             [](void *layers) {
                 vx_pln_tplt_lr_set_delta(add_template(layers, "10"), 1);
                 void *lr = add_template(layers, "10");
                 vx_pln_tplt_lr_set_delta(lr, -1);
                 vx_pln_tplt_lr_set_shift(lr, 1.5);
             }),
        line("line_cart",
             [](void *layers) {
                 void *lr = vx_style_lrs_add_lr(layers, "pln_cart_slr");
                 vx_pln_cart_lr_set_width(lr, 1.5);
                 vx_pln_cart_lr_set_color(lr, vx_clr_init_rgb(255, 220, 90));
                 vx_pln_cart_lr_set_casing_width(lr, 0.4);
                 vx_pln_cart_lr_set_join(lr, 0);
                 double const dashes[] = {3, 1};
                 vx_pln_cart_lr_set_dashes(lr, dashes, 2);
             }),
        {"polygon_plain", make_plain_polygon},
        area("area_hatch",
             [](void *layers) {
                 void *lr = vx_style_lrs_add_lr(layers, "pgn_htch_slr");
                 vx_pgn_htch_lr_set_angle(lr, 30);
                 vx_pgn_htch_lr_set_delta(lr, 2.5);
                 vx_pgn_htch_lr_set_shift(lr, 1);
             }),
        area("area_hatch_nested",
             [](void *layers) {
                 void *lr = vx_style_lrs_add_lr(layers, "pgn_htch_slr");
                 vx_pgn_htch_lr_set_angle(lr, 0);
                 vx_pgn_htch_lr_set_delta(lr, 3);
                 add_template(vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(lr)),
                              "1040");
             }),
        area("area_spots", [](void *layers) { add_spots(layers); }),
        area("area_spots_shifted",
             [](void *layers) {
                 void *lr = add_spots(layers);
                 vx_pgn_spot_lr_set_spot_type(lr, 1);
                 vx_pgn_spot_lr_set_x0(lr, 1);
                 vx_pgn_spot_lr_set_y0(lr, 1.5);
             }),
        area("area_spots_random",
             [](void *layers) {
                 void *lr = add_spots(layers);
                 vx_pgn_spot_lr_set_random_x(lr, true);
                 vx_pgn_spot_lr_set_random_y(lr, true);
                 vx_pgn_spot_lr_set_random_angle(lr, true);
             }),
        area("area_points",
             [](void *layers) {
                 void *lr = vx_style_lrs_add_lr(layers, "pgn_spot_slr");
                 vx_pgn_spot_lr_set_point_clr(lr, c_red);
                 vx_pgn_spot_lr_set_point_size(lr, 1);
             }),
        {"color", make_color},
        text("text_plain", [](void *) {}),
        text("text_effects",
             [](void *style) {
                 vx_txt_style_set_angle(style, 30);
                 vx_txt_style_set_font_size(style, 6);
                 vx_txt_style_set_color(style, c_blue);
                 vx_txt_style_set_outline(style, true);
                 vx_txt_style_set_outline_clr(style, c_red);
                 vx_txt_style_set_outline_size(style, 0.4);
                 vx_txt_style_set_shadow(style, true);
                 vx_txt_style_set_shadow_gap_x(style, 0.8);
                 vx_txt_style_set_shadow_gap_y(style, -0.8);
                 vx_txt_style_set_back(style, true);
                 vx_txt_style_set_back_clr(style, vx_clr_init_rgb(255, 245, 190));
             }),
    };
}

/// The sample in its three sizes.
void draw_sheet(golden_style const &style, TBitmap &sheet)
{
    int left = 0;
    for (TPoint const size : {TPoint{20, 20}, TPoint{64, 24}, TPoint{100, 100}}) {
        white_bitmap bitmap(size.X, size.Y);
        style.draw(&bitmap);
        sheet.GetCanvas()->Draw(left, 0, &bitmap);
        left += size.X;
    }
}

class golden : public samples, public testing::WithParamInterface<golden_style>
{
};

TEST_P(golden, sample_looks_as_it_did)
{
    UnicodeString const file =
        UnicodeString(std::string(VX_SOURCE_DIR "/tests/golden/samples/") + GetParam().name + ".png");
    TBitmap sheet(184, 100);
    draw_sheet(GetParam(), sheet);
    if (std::getenv("VX_WRITE_GOLDEN")) {
        ASSERT_TRUE(sheet.SaveToFile(file));
    }
    TBitmap wanted;
    ASSERT_TRUE(wanted.LoadFromFile(file));
    ASSERT_EQ(wanted.GetWidth(), sheet.GetWidth());
    ASSERT_EQ(wanted.GetHeight(), sheet.GetHeight());
    // Another release of the painter or of the font may shade edges otherwise; a stroke that is missing or
    // stands elsewhere changes more than this.
    EXPECT_LE(differences(sheet, wanted, 24), 250);
    EXPECT_LE(differences(sheet, wanted, 180), 12);
    // The same at each repaint, random places too.
    TBitmap again(184, 100);
    draw_sheet(GetParam(), again);
    EXPECT_EQ(differences(sheet, again), 0);
}

INSTANTIATE_TEST_SUITE_P(styles, golden, testing::ValuesIn(golden_styles()),
                         [](auto const &info) { return std::string(info.param.name); });
} // namespace
