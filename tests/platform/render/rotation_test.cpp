#include "patterned.h"

#include "platform/render/vx_render_layer.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <vector>

namespace {
using namespace vx_test;

constexpr int c_side = 120;
constexpr double c_degrees = 180 / std::numbers::pi;

/// What a symbol that is drawn upright is turned by, counter-clockwise.
double turn_of(int start, int dir, double value)
{
    return 90.0 * start - 90 + (dir == 0 ? value : -value);
}

/// Difference of two angles, of which `period` degrees are one turn.
double apart(double a, double b, double period)
{
    return std::abs(std::remainder(a - b, period));
}

std::vector<double> inks(void *dc)
{
    std::vector<double> all;
    for (int y = 0; y < c_side; ++y)
        for (int x = 0; x < c_side; ++x)
            all.push_back(255.0 - vx_bmp_dc_get_pixel(dc, x, y).g);
    return all;
}

/// Thin lines have no gradient to speak of.
std::vector<double> blurred(std::vector<double> const &ink)
{
    constexpr int c_reach = 2;
    std::vector<double> all(ink.size());
    for (int y = c_reach; y < c_side - c_reach; ++y)
        for (int x = c_reach; x < c_side - c_reach; ++x)
            for (int dy = -c_reach; dy <= c_reach; ++dy)
                for (int dx = -c_reach; dx <= c_reach; ++dx)
                    all[static_cast<std::size_t>(y * c_side + x)] +=
                        ink[static_cast<std::size_t>((y + dy) * c_side + x + dx)];
    return all;
}

/// The direction that the lines of a picture run in, from its gradients; 0 is to the right.
double direction_of_lines(std::vector<double> const &picture)
{
    constexpr int c_edge = 8; // what the blur does not reach
    auto const ink = blurred(blurred(picture));
    double xx = 0, yy = 0, xy = 0;
    auto const at = [&](int x, int y) { return ink[static_cast<std::size_t>(y * c_side + x)]; };
    for (int y = c_edge; y < c_side - c_edge; ++y)
        for (int x = c_edge; x < c_side - c_edge; ++x) {
            double const gx = at(x + 1, y) - at(x - 1, y), gy = at(x, y - 1) - at(x, y + 1);
            xx += gx * gx;
            yy += gy * gy;
            xy += gx * gy;
        }
    return 0.5 * std::atan2(2 * xy, xx - yy) * c_degrees + 90;
}

/// An area whose record has an angle.
struct turned_area : patterned
{
    turned_area() : patterned(c_side)
    {
        table.fields = {{L"ANGLE", 2}, {L"OTHER", 2}};
        take_cells(cell(0.0));
        void *const style = vx_stl_prm_get_pgn_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr()), false);
        vx_pgn_style_set_pln_visible(style, false);
        vx_stl_mngr_set_rotate_prop_name(mngr(), "ANGLE");
    }
    [[nodiscard]] void *mngr() const { return vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get()); }
    /// The table is read anew.
    void take_cells(vx_test::cell angle)
    {
        table.features[0].cells = {std::move(angle), cell(77.0)};
        owned_layer const old = std::move(layer);
        layer.reset(vx_shp_lr2d_create(c_lr_key_shp_pgn, L"pattern:"));
        vx_stl_mngr_assign(mngr(), vx_shp_pgn_lr2d_get_stl_mngr_ptr(old.get()));
    }
    std::vector<double> draw()
    {
        vx_bmp_dc_clear(dc.get(), vx_clr_init_rgb(255, 255, 255));
        EXPECT_TRUE(vx_render_layer(layer.get(), view, dc.get()));
        return inks(dc.get());
    }
};
} // namespace

TEST(rotation, hatches_turn_with_a_property)
{
    turned_area area;
    void *const htch = area.add_layer("pgn_htch_slr");
    vx_pgn_htch_lr_set_delta(htch, 3);
    vx_pgn_htch_lr_set_angle(htch, 20);
    auto const plain = area.draw();
    double const upright = direction_of_lines(plain);
    ASSERT_LT(apart(upright, 20, 180), 2);
    // Spots turning is no matter of hatches.
    vx_stl_mngr_set_rotate_spot_flag(area.mngr(), true);
    area.take_cells(cell(40.0));
    EXPECT_EQ(area.draw(), plain);
    vx_stl_mngr_set_rotate_hatch_flag(area.mngr(), true);
    for (int start = 0; start < 4; ++start)
        for (int dir = 0; dir < 2; ++dir)
            for (double const value : {0.0, 25.0, 90.0, -300.0}) {
                area.take_cells(cell(value));
                vx_stl_mngr_set_rotate_start(area.mngr(), start);
                vx_stl_mngr_set_rotate_dir(area.mngr(), dir);
                EXPECT_LT(apart(direction_of_lines(area.draw()), upright + turn_of(start, dir, value), 180),
                          3)
                    << start << " " << dir << " " << value;
            }
    // Without a number, and without the field, nothing turns.
    area.take_cells(cell());
    EXPECT_EQ(area.draw(), plain);
    area.take_cells(cell(40.0));
    vx_stl_mngr_set_rotate_prop_name(area.mngr(), "GONE");
    EXPECT_EQ(area.draw(), plain);
}

TEST(rotation, spots_turn_with_a_property)
{
    turned_area area;
    void *const spots = area.add_layer("pgn_spot_slr");
    vx_pgn_spot_lr_set_dx(spots, 8);
    vx_pgn_spot_lr_set_dy(spots, 8);
    vx_pgn_spot_lr_set_use_cpx_pnt(spots, true);
    void *const figure = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(spots)), "pnt_figr_slr");
    vx_pnt_figr_lr_set_lr_figure(figure, 19); // an arrow up
    vx_pnt_figr_lr_set_size_x(figure, 6);
    vx_pnt_figr_lr_set_size_y(figure, 6);
    auto const plain = area.draw();
    vx_stl_mngr_set_rotate_hatch_flag(area.mngr(), true);
    area.take_cells(cell(40.0));
    EXPECT_EQ(area.draw(), plain);
    vx_stl_mngr_set_rotate_spot_flag(area.mngr(), true);
    for (int start = 0; start < 4; ++start)
        for (int dir = 0; dir < 2; ++dir)
            for (double const value : {0.0, 90.0, 130.0}) {
                area.take_cells(cell(value));
                vx_stl_mngr_set_rotate_start(area.mngr(), start);
                vx_stl_mngr_set_rotate_dir(area.mngr(), dir);
                // Each arrow's ink lies towards its head, seen from the middle of its cell of the net.
                auto const ink = area.draw();
                double x = 0, y = 0;
                for (int row = 0; row < 3 * 32; ++row)
                    for (int column = 0; column < 3 * 32; ++column) {
                        double const i = ink[static_cast<std::size_t>((row + 8) * c_side + column + 16)];
                        x += i * (column % 32 - 15.5);
                        y -= i * (row % 32 - 15.5);
                    }
                EXPECT_LT(apart(std::atan2(y, x) * c_degrees, 90 + turn_of(start, dir, value), 360), 8)
                    << start << " " << dir << " " << value;
            }
}
