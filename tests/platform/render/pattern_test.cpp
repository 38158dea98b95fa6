#include "tests/platform/render/page.h"

#include "platform/toolkit/core/types.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {
using namespace vx_test;

/// A line style of one layer; lengths of tests are in pixels.
struct line_layer
{
    owned_bpln style{vx_bpln_style_create()};
    void *layer;

    explicit line_layer(char const *key)
    {
        vx_bpln_style_set_use_complex(style.get(), true);
        layer = vx_style_lrs_add_lr(
            vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(style.get())), key);
    }
    void draw(page &p, std::vector<Tvx_vtx_d2> const &line) const
    {
        vx_render_cr_bpln(p.render.get(), geometry({line}).list.get(), style.get());
    }
};

void add_figure(void *cpx_point, double size_mm)
{
    void *lr = vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(cpx_point), "pnt_figr_slr");
    vx_pnt_figr_lr_set_size_x(lr, size_mm);
    vx_pnt_figr_lr_set_size_y(lr, size_mm);
}

line_layer template_layer(char const *text, double dash = 10, double gap = 5)
{
    line_layer line("pln_tplt_slr");
    vx_pln_tplt_lr_set_template(line.layer, text);
    vx_pln_tplt_lr_set_dash(line.layer, dash / 4);
    vx_pln_tplt_lr_set_gap(line.layer, gap / 4);
    vx_pln_tplt_lr_set_width(line.layer, 1);
    vx_pln_tplt_lr_set_color(line.layer, c_red);
    return line;
}

/// What is drawn on the level line in the middle: a letter for each pixel, '#' ink, '.' blank, '+' between.
std::string track(line_layer const &line, int from = 0, int to = 60)
{
    page p(60);
    line.draw(p, {{0, 30}, {60, 30}});
    std::string text;
    for (int x = from; x < to; ++x) {
        int const ink = p.ink(x, 29);
        text += ink > 240 ? '#' : ink < 15 ? '.' : '+';
    }
    return text;
}

TEST(patterns, elements_go_on_by_dash_and_gap)
{
    struct
    {
        char const *text;
        char const *drawn;
    } const table[] = {
        {"10", "##########.....##########.....##########.....##########....."},
        {"01", ".....##########.....##########.....##########.....##########"},
        {"110", "####################.....####################.....##########"},
        // The dash that ends a period and the one that begins the next are one.
        {"101", "##########.....####################.....####################"},
        {"1", "############################################################"},
        {"11", "############################################################"},
        {"0", "............................................................"},
        {"", "............................................................"},
        // What is unknown takes no room.
        {"1x0", "##########.....##########.....##########.....##########....."},
    };
    for (auto const &t : table)
        EXPECT_EQ(track(template_layer(t.text)), t.drawn) << t.text;
}

TEST(patterns, shift_moves_along_the_line_both_ways)
{
    line_layer line = template_layer("10");
    std::string const still = track(line);
    for (int const shift : {4, -11, 15'000'004}) { // all the same in a period of 15
        vx_pln_tplt_lr_set_shift(line.layer, shift / 4.0);
        EXPECT_EQ(track(line, 4), still.substr(0, 56)) << shift;
        EXPECT_EQ(track(line, 0, 4), "....") << "the end of the period before";
    }
}

TEST(patterns, marks_stand_across_the_line_and_a_gap_follows_them_if_nothing_else_moves)
{
    struct
    {
        char const *text;
        TPoint drawn; // from the place of the mark, y up
        TPoint blank;
    } const table[] = {{"03", {0, 6}, {6, 6}}, {"05", {4, 4}, {4, -4}}, {"06", {-4, 4}, {4, 4}},
                       {"04", {0, 3}, {0, 9}}, {"02", {0, 0}, {0, 4}},  {"3", {0, 6}, {6, 6}}};
    for (auto const &t : table) {
        line_layer const line = template_layer(t.text, 16, 30);
        add_figure(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(line.layer), 2);
        page p(60);
        line.draw(p, {{0, 30}, {60, 30}});
        EXPECT_NE(p.at(30 + t.drawn.X, 30 + t.drawn.Y), c_white) << t.text;
        EXPECT_EQ(p.at(30 + t.blank.X, 30 + t.blank.Y), c_white) << t.text;
        EXPECT_EQ(p.count(10, 0, 20, 60), 0) << t.text;
    }
}

TEST(patterns, delta_moves_to_the_left_and_shift_stays_when_the_view_moves)
{
    line_layer line = template_layer("10");
    vx_pln_tplt_lr_set_delta(line.layer, 2); // 8 pixels
    std::vector<Tvx_vtx_d2> const bent = {{10, 10}, {10, 60}, {500, 60}};
    page whole(120);
    page part(60);
    line.draw(whole, bent);
    // The same world, of which only the right half is seen, in the same scale.
    vx_render_init(part.render.get(), vx_box_d2_make_xy(60, 30, 120, 90), part.dc.get());
    line.draw(part, bent);
    int inked = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x) {
            EXPECT_NEAR(part.ink(x, y), whole.ink(x + 60, y + 30), 2) << x << ", " << y;
            inked += whole.ink(x + 60, y + 30) > 128;
        }
    EXPECT_GT(inked, 100);
    EXPECT_EQ(whole.at(80, 60), c_white);
    EXPECT_GT(whole.count(60, 120 - 70, 120, 120 - 66), 60) << "8 pixels above, for it runs to the right";
}

TEST(patterns, a_ring_is_joined_where_it_closes)
{
    std::vector<Tvx_vtx_d2> const ring = {{10, 10}, {10, 50}, {50, 50}, {50, 10}, {10, 10}};
    page p(60);
    owned_bpln const thick(vx_bpln_style_create());
    vx_bpln_style_set_width(thick.get(), 2); // 8 pixels
    vx_render_cr_bpln(p.render.get(), geometry({ring}).list.get(), thick.get());
    // The corner at which it closes looks like the other ones.
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x)
            EXPECT_NEAR(p.ink(x, 59 - y), p.ink(59 - x, y), 3) << x << ", " << y;
    // Moved to the left of its direction, here outwards, it is a larger ring.
    line_layer moved("pln_line_slr");
    vx_pln_line_lr_set_delta(moved.layer, 1);
    page q(60);
    moved.draw(q, ring);
    for (double const at : {6.0, 54.0})
        for (double const along : {6.5, 30.0, 53.5}) {
            EXPECT_GT(q.ink(static_cast<int>(at), static_cast<int>(along)) +
                          q.ink(static_cast<int>(at) - 1, static_cast<int>(along)),
                      200)
                << at << ", " << along;
        }
}

/// A fill of complex style.
struct fill_layers
{
    owned_bpgn style{vx_bpgn_style_create()};

    void *add(char const *key) const
    {
        vx_bpgn_style_set_use_complex(style.get(), true);
        return vx_style_lrs_add_lr(
            vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(style.get())), key);
    }
    void draw(page &p, double from, double to) const
    {
        geometry const square({{{from, from}, {from, to}, {to, to}, {to, from}}});
        vx_render_cr_bpgn(p.render.get(), square.list.get(), style.get());
    }
};

TEST(patterns, hatches_and_spots_keep_their_steps_inside_the_area)
{
    fill_layers hatched;
    void *htch = hatched.add("pgn_htch_slr");
    vx_pgn_htch_lr_set_angle(htch, 0);
    vx_pgn_htch_lr_set_delta(htch, 2.5); // 10 pixels
    vx_pgn_htch_lr_set_shift(htch, 1);
    page lines;
    hatched.draw(lines, 20, 80);
    EXPECT_EQ(lines.count(), lines.count(20, 20, 80, 80));
    for (int y = 20; y < 80; ++y)
        EXPECT_EQ(lines.ink(50, y) > 0, y % 10 == 3 || y % 10 == 4) << y;

    fill_layers spotted;
    void *spot = spotted.add("pgn_spot_slr");
    vx_pgn_spot_lr_set_dx(spot, 5); // 20 pixels
    vx_pgn_spot_lr_set_dy(spot, 5);
    vx_pgn_spot_lr_set_x0(spot, 2.5);
    vx_pgn_spot_lr_set_y0(spot, 2.5);
    vx_pgn_spot_lr_set_point_size(spot, 1);
    page rows;
    spotted.draw(rows, 20, 80);
    EXPECT_EQ(rows.count(), rows.count(20, 20, 80, 80));
    vx_pgn_spot_lr_set_spot_type(spot, 1);
    page shifted;
    spotted.draw(shifted, 0, 100);
    for (int row = 1; row < 4; ++row)
        for (int col = 1; col < 4; ++col) {
            int const x = col * 20 + 10;
            int const y = row * 20 + 10;
            int const by = row % 2 ? 10 : 0;
            EXPECT_GT(rows.ink(x, y), 128);
            EXPECT_GT(shifted.ink(x + by, y), 128) << row;
            EXPECT_EQ(shifted.ink(x + 10 - by, y), 0) << row;
        }
    vx_pgn_spot_lr_set_spot_type(spot, 0);
    vx_pgn_spot_lr_set_random_x(spot, true);
    vx_pgn_spot_lr_set_random_y(spot, true);
    page random;
    spotted.draw(random, 0, 100);
    int cells = 0;
    for (int i = 0; i < 25; ++i)
        cells += random.count(i % 5 * 20, i / 5 * 20, i % 5 * 20 + 20, i / 5 * 20 + 20) > 0;
    EXPECT_GE(cells, 24) << "a place in each cell, of which one may lie on its edge";
}

TEST(patterns, wild_numbers_end_and_leave_the_page_whole)
{
    double const wild[] = {0, -1, 1e-9, 1e9, 1e300, -1e300};
    auto const try_all = [&](std::function<void(double)> const &set,
                             std::function<void(page &)> const &draw) {
        for (double const value : wild) {
            set(value);
            page p(40);
            draw(p);
            EXPECT_LE(p.count(), 1600);
        }
    };
    std::vector<Tvx_vtx_d2> const across = {{-1e6, 20}, {20, 21}, {1e6, 20}};
    using setter = void (*)(void *, double);
    for (setter const set : {vx_pln_tplt_lr_set_dash, vx_pln_tplt_lr_set_gap, vx_pln_tplt_lr_set_shift,
                             vx_pln_tplt_lr_set_delta, vx_pln_tplt_lr_set_width}) {
        line_layer const line = template_layer("1032456");
        try_all([&](double v) { set(line.layer, v); }, [&](page &p) { line.draw(p, across); });
    }
    line_layer const crowded =
        template_layer((std::string(200000, '2') + "1" + std::string(200000, '3')).c_str());
    page p(40);
    crowded.draw(p, {{0, 20}, {40, 20}});
    EXPECT_GT(p.count(), 40);

    fill_layers const fill;
    void *htch = fill.add("pgn_htch_slr");
    void *wide = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(htch)), "pln_line_slr");
    void *spot = fill.add("pgn_spot_slr");
    auto const draw_fill = [&](page &on) { fill.draw(on, 5, 35); };
    for (setter const set : {vx_pgn_htch_lr_set_delta, vx_pgn_htch_lr_set_shift, vx_pgn_htch_lr_set_angle}) {
        try_all([&](double v) { set(htch, v); }, draw_fill);
        set(htch, 3);
    }
    try_all([&](double v) { vx_pln_line_lr_set_width(wide, v); }, draw_fill);
    for (setter const set :
         {vx_pgn_spot_lr_set_dx, vx_pgn_spot_lr_set_dy, vx_pgn_spot_lr_set_x0, vx_pgn_spot_lr_set_y0}) {
        try_all([&](double v) { set(spot, v); }, draw_fill);
        set(spot, 3);
    }
}
} // namespace
