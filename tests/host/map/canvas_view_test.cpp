#include "host/canvas_view.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_infinity = std::numeric_limits<double>::infinity();

Tvx_canvas_view view_of(double x, double y, double units, int width, int height)
{
    Tvx_canvas_view view;
    view.set_size(width, height);
    view.set_center({x, y});
    view.set_units_per_pixel(units);
    return view;
}

Tvx_box_d2 box_of(double min_x, double min_y, double max_x, double max_y)
{
    return {min_x, min_y, max_x, max_y};
}

TEST(canvas_view, shows_a_box_whole_and_in_the_middle)
{
    struct
    {
        Tvx_box_d2 box;
        int width, height;
    } const cases[] = {
        {box_of(-84.3, 33.8, -75.4, 36.6), 900, 600},
        {box_of(0, 0, 1, 1000), 900, 600},
        {box_of(-180, -90, 180, 84), 50, 900},
        {box_of(5, 5, 5, 9), 300, 200},
        {box_of(5, 5, 9, 5), 300, 200},
        {box_of(482000.5, 5e6, 482000.5, 5e6), 300, 200},
    };
    for (auto const &c : cases) {
        Tvx_canvas_view view = view_of(0, 0, 1, c.width, c.height);
        view.show(c.box);
        Tvx_box_d2 const seen = view.box();
        EXPECT_LT(seen.min_x, c.box.min_x);
        EXPECT_LT(seen.min_y, c.box.min_y);
        EXPECT_GT(seen.max_x, c.box.max_x);
        EXPECT_GT(seen.max_y, c.box.max_y);
        EXPECT_NEAR(view.center().x, (c.box.min_x + c.box.max_x) / 2, 1e-9);
        EXPECT_NEAR(view.center().y, (c.box.min_y + c.box.max_y) / 2, 1e-9);
    }
}

TEST(canvas_view, numbers_that_make_no_view_change_nothing)
{
    Tvx_canvas_view const start = view_of(10, 20, 0.5, 300, 300);
    Tvx_canvas_view view = start;
    view.set_center({c_nan, 0});
    view.set_center({0, c_infinity});
    for (double const bad : {0.0, -1.0, c_nan, c_infinity}) {
        view.set_units_per_pixel(bad);
        view.zoom(bad, {1, 1});
    }
    view.show({});
    view.show(box_of(-c_infinity, 0, c_infinity, 1));
    view.pan(c_nan, 1);
    EXPECT_EQ(view, start);
    view.set_size(0, -7);
    EXPECT_EQ(view.width(), 1);
    EXPECT_EQ(view.height(), 1);
}

TEST(canvas_view, zooming_for_ever_stays_within_bounds)
{
    Tvx_canvas_view view = view_of(10, 20, 0.5, 300, 300);
    for (int i = 0; i < 1000; ++i)
        view.zoom(2, {10, 10});
    EXPECT_EQ(view.units_per_pixel(), Tvx_canvas_view::c_min_units_per_pixel);
    for (int i = 0; i < 1000; ++i)
        view.zoom(0.5, {10, 10});
    EXPECT_EQ(view.units_per_pixel(), Tvx_canvas_view::c_max_units_per_pixel);
}
} // namespace
