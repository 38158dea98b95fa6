#include "patterned.h"

#include "platform/render/vx_render_layer.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace {
using namespace vx_test;

constexpr int c_side = 160;

/// A place of the map, in the middle of the picture, and the size of a pixel.
struct place
{
    double x;
    double y;
    double unit;
};

/// A page in an endless area.
struct map_page : patterned
{
    map_page() : patterned(c_side) { vx_pgn_style_set_pln_visible(style(), false); }

    [[nodiscard]] void *style() const
    {
        return vx_stl_prm_get_pgn_style_ptr(
            vx_stl_mngr_get_simple_sp_ptr(vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get())), false);
    }
    /// Reads the table anew.
    void take_table()
    {
        owned_layer const old = std::move(layer);
        layer.reset(vx_shp_lr2d_create(c_lr_key_shp_pgn, L"pattern:"));
        vx_stl_mngr_assign(vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get()),
                           vx_shp_pgn_lr2d_get_stl_mngr_ptr(old.get()));
    }

    void show(place const &p)
    {
        double const half = c_side / 2.0 * p.unit;
        double const far = 1e5 * p.unit;
        table.features = {{{},
                           5,
                           {{{p.x - far, p.y - far},
                             {p.x - far, p.y + far},
                             {p.x + far, p.y + far},
                             {p.x + far, p.y - far},
                             {p.x - far, p.y - far}}}}};
        take_table();
        view.world = {};
        view.world.add(p.x - half, p.y - half);
        view.world.add(p.x + half, p.y + half);
        draw();
    }
    void draw()
    {
        vx_bmp_dc_clear(dc.get(), vx_clr_init_rgb(255, 255, 255));
        ASSERT_TRUE(vx_render_layer(layer.get(), view, dc.get()));
    }
    /// How dark the pixels are, row by row.
    [[nodiscard]] std::vector<int> ink() const
    {
        std::vector<int> all;
        for (int y = 0; y < c_side; ++y)
            for (int x = 0; x < c_side; ++x)
                all.push_back(255 - vx_bmp_dc_get_pixel(dc.get(), x, y).g);
        return all;
    }
    void add_hatch(double angle)
    {
        void *const htch = add_layer("pgn_htch_slr");
        vx_pgn_htch_lr_set_angle(htch, angle);
        vx_pgn_htch_lr_set_delta(htch, 1.7);
        void *const line = vx_style_lrs_add_lr(
            vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(htch)), "pln_tplt_slr");
        vx_pln_tplt_lr_set_template(line, "1020");
        vx_pln_tplt_lr_set_dash(line, 2.3);
        vx_pln_tplt_lr_set_width(line, 0.4);
    }
    void add_spots(int type, bool random)
    {
        void *const spot = add_layer("pgn_spot_slr");
        vx_pgn_spot_lr_set_spot_type(spot, type);
        vx_pgn_spot_lr_set_dx(spot, 3.3);
        vx_pgn_spot_lr_set_dy(spot, 2.9);
        vx_pgn_spot_lr_set_x0(spot, 0.7);
        vx_pgn_spot_lr_set_y0(spot, -7.3);
        vx_pgn_spot_lr_set_random_x(spot, random);
        vx_pgn_spot_lr_set_random_y(spot, random);
        vx_pgn_spot_lr_set_random_angle(spot, random);
        vx_pgn_spot_lr_set_use_cpx_pnt(spot, true);
        void *const mark = vx_style_lrs_add_lr(
            vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(spot)), "pnt_figr_slr");
        vx_pnt_figr_lr_set_lr_figure(mark, 7);
        vx_pnt_figr_lr_set_size_x(mark, 1.2);
        vx_pnt_figr_lr_set_size_y(mark, 1.6);
    }
};

/// The former picture moved by whole pixels, in its middle. The worst difference.
int difference(std::vector<int> const &before, std::vector<int> const &after, int dx, int dy)
{
    int worst = 0;
    for (int y = 30; y < c_side - 30; ++y)
        for (int x = 30; x < c_side - 30; ++x)
            worst = std::max(worst, std::abs(before[std::size_t(y * c_side + x)] -
                                             after[std::size_t((y + dy) * c_side + x + dx)]));
    return worst;
}

int dark_pixels(std::vector<int> const &ink)
{
    return static_cast<int>(std::ranges::count_if(ink, [](int i) { return i > 128; }));
}

TEST(map_patterns, move_with_the_map)
{
    place const places[] = {{0, 0, 1},
                            {-512345.678, 6123456.789, 0.35},
                            {1234.5, -7.25, 250},
                            {30.123456789, 59.987654321, 1.37e-9}};
    struct
    {
        char const *name;
        void (*add)(map_page &);
    } const patterns[] = {{"hatch", [](map_page &p) { p.add_hatch(30); }},
                          {"level hatch", [](map_page &p) { p.add_hatch(0); }},
                          {"spots", [](map_page &p) { p.add_spots(0, false); }},
                          {"rows moved", [](map_page &p) { p.add_spots(1, false); }},
                          {"random spots", [](map_page &p) { p.add_spots(1, true); }}};
    struct
    {
        int dx, dy;
    } const moves[] = {{8, 0}, {-13, 7}, {0, -29}};
    for (auto const &pattern : patterns)
        for (place const &at : places) {
            SCOPED_TRACE(std::string(pattern.name) + " at " + std::to_string(at.x));
            map_page page;
            pattern.add(page);
            page.show(at);
            std::vector<int> const before = page.ink();
            EXPECT_GT(dark_pixels(before), 200);
            page.draw();
            EXPECT_EQ(page.ink(), before) << "the same at each repaint";
            for (auto const &move : moves) {
                page.show({at.x - move.dx * at.unit, at.y + move.dy * at.unit, at.unit});
                EXPECT_LE(difference(before, page.ink(), move.dx, move.dy), 6) << move.dx << ", " << move.dy;
            }
        }
}

/// Of a pattern that repeats every `period` rows, where it stands: from 0 to the period.
double place_in_period(std::vector<int> const &ink, double period)
{
    double re = 0;
    double im = 0;
    for (int y = 0; y < c_side; ++y)
        for (int x = 0; x < c_side; ++x) {
            double const a = 2 * std::numbers::pi * y / period;
            re += ink[std::size_t(y * c_side + x)] * std::cos(a);
            im += ink[std::size_t(y * c_side + x)] * std::sin(a);
        }
    return std::atan2(im, re) / (2 * std::numbers::pi) * period;
}

TEST(map_patterns, move_by_parts_of_a_pixel_too)
{
    map_page page;
    void *const htch = page.add_layer("pgn_htch_slr");
    vx_pgn_htch_lr_set_angle(htch, 0);
    vx_pgn_htch_lr_set_delta(htch, 2);
    place at{1000.3, 2000.7, 1};
    page.show(at);
    double const before = place_in_period(page.ink(), 8);
    for (double const by : {0.25, 0.5, 1.75, -0.4}) {
        page.show({at.x, at.y + by, at.unit});
        double const moved = std::remainder(place_in_period(page.ink(), 8) - before - by, 8);
        EXPECT_NEAR(moved, 0, 0.08) << by;
    }
}

TEST(map_patterns, many_areas_hold_the_same_pattern_as_one)
{
    for (bool const hatched : {true, false}) {
        map_page page;
        hatched ? page.add_hatch(30) : page.add_spots(1, true);
        page.show({0, 0, 1});
        std::vector<int> const whole = page.ink();
        page.table.features.clear();
        constexpr int c_cells = 40;
        double const step = double(c_side) / c_cells;
        for (int i = 0; i < c_cells * c_cells; ++i) {
            double const x = i % c_cells * step - c_side / 2.0;
            double const y = i / c_cells * step - c_side / 2.0;
            page.table.features.push_back(
                {{}, 5, {{{x, y}, {x, y + step}, {x + step, y + step}, {x + step, y}, {x, y}}}});
        }
        page.take_table();
        page.draw();
        EXPECT_LE(difference(whole, page.ink(), 0, 0), 4) << hatched;
    }
}
} // namespace
