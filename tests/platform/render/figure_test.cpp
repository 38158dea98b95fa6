#include "tests/platform/render/page.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

namespace {
using namespace vx_test;

constexpr int c_figures = 26;
std::set<int> const c_filled = {0, 2, 4, 7, 9, 11, 13, 15, 17, 19, 21, 23};

/// The figure, `size` pixels large, in the middle of a page that leaves two pixels round it.
page figure_page(int figure, int size)
{
    page p((size + 5) / 2 * 2);
    p.draw_point(p.side / 2.0, p.side / 2.0, point(figure, size / 4.0).get());
    return p;
}

struct extent
{
    int left = 1000;
    int right = -1;
    int top = 1000;
    int bottom = -1;
};
extent extent_of(page const &p, int least_ink)
{
    extent e;
    for (int y = 0; y < p.side; ++y)
        for (int x = 0; x < p.side; ++x)
            if (p.ink(x, y) >= least_ink) {
                e.left = std::min(e.left, x);
                e.right = std::max(e.right, x);
                e.top = std::min(e.top, y);
                e.bottom = std::max(e.bottom, y);
            }
    return e;
}

TEST(figures, any_two_are_told_apart_from_four_pixels_up)
{
    for (int const size : {4, 5, 6, 8, 20, 400}) {
        std::vector<std::vector<int>> pictures;
        for (int figure = 0; figure < c_figures; ++figure) {
            page const p = figure_page(figure, size);
            auto &picture = pictures.emplace_back();
            for (int y = 0; y < p.side; ++y)
                for (int x = 0; x < p.side; ++x)
                    picture.push_back(p.ink(x, y));
        }
        for (std::size_t a = 0; a < pictures.size(); ++a)
            for (std::size_t b = a + 1; b < pictures.size(); ++b) {
                int difference = 0;
                for (std::size_t i = 0; i < pictures[a].size(); ++i)
                    difference += std::abs(pictures[a][i] - pictures[b][i]);
                // As much ink as a stroke a quarter as long as the figure is large; at four pixels, where
                // outlines leave no hole, a shade.
                EXPECT_GE(difference, size == 4 ? 100 : 255 * size / 4)
                    << a << " and " << b << " at " << size;
            }
    }
}

TEST(figures, each_keeps_to_its_size_and_outlines_are_hollow)
{
    for (int figure = 0; figure < c_figures; ++figure)
        for (int const size : {7, 12, 60, 400}) {
            page const p = figure_page(figure, size);
            extent const e = extent_of(p, 64);
            EXPECT_LE(e.right - e.left + 1, size + 1) << figure;
            EXPECT_LE(e.bottom - e.top + 1, size + 1) << figure;
            EXPECT_GE(std::max(e.right - e.left, e.bottom - e.top) + 1, size * 3 / 4) << figure;
            bool const inked = c_filled.count(figure) || figure == 6 || figure == 25;
            EXPECT_TRUE(size < 60 || (p.at(p.side / 2, p.side / 2 - 1) != c_white) == inked) << figure;
        }
}

TEST(figures, upright_and_level_edges_fall_between_pixels_at_any_size)
{
    // Squares, crosses: nothing but full pixels and blank ones.
    for (int const figure : {2, 3, 6, 21, 22})
        for (int size = 4; size <= 24; ++size) {
            if (figure == 22 && size < 9)
                continue; // too small for an outline of a pixel and a hole
            page const p = figure_page(figure, size);
            for (int y = 0; y < p.side; ++y)
                for (int x = 0; x < p.side; ++x)
                    EXPECT_TRUE(p.ink(x, y) == 0 || p.ink(x, y) == 255)
                        << figure << " at " << size << ": " << x << ", " << y;
        }
}

TEST(figures, symmetric_ones_stay_so)
{
    for (int figure = 0; figure < c_figures; ++figure)
        for (int size = 4; size <= 15; ++size) {
            page const p = figure_page(figure, size);
            extent const e = extent_of(p, 1);
            for (int y = e.top; y <= e.bottom; ++y)
                for (int x = e.left; x <= e.right; ++x)
                    EXPECT_NEAR(p.ink(x, y), p.ink(e.left + e.right - x, y), 12)
                        << figure << " at " << size << ": " << x << ", " << y;
        }
}

TEST(figures, large_curves_are_round)
{
    page const p = figure_page(0, 400);
    double const middle = p.side / 2.0;
    for (int y = 0; y < p.side; ++y)
        for (int x = 0; x < p.side; ++x) {
            double const from_edge = std::hypot(x + 0.5 - middle, y + 0.5 - middle) - 200;
            if (std::abs(from_edge) < 1)
                continue;
            ASSERT_EQ(p.ink(x, y), from_edge < 0 ? 255 : 0) << x << ", " << y;
        }
}

TEST(figures, a_point_lies_at_most_half_a_pixel_from_its_place)
{
    for (int const size : {4, 5})
        for (double const at : {20.0, 20.25, 20.5, 20.75}) {
            page p(40);
            p.draw_point(at, 20, point(2, size / 4.0 / 0.88).get());
            extent const e = extent_of(p, 128);
            EXPECT_EQ(e.right - e.left + 1, size);
            EXPECT_LE(std::abs((e.left + e.right + 1) / 2.0 - at), 0.5) << size << " at " << at;
        }
}

TEST(figures, wild_sizes_are_drawn_as_the_nearest_that_can_be_seen)
{
    for (double const size : {0.0, -5.0, 1e-12, 1e9, 1e300})
        for (int const figure : {0, 3, 6, 8, 17}) {
            page p(20);
            p.draw_point(10, 10, point(figure, size).get());
            EXPECT_TRUE(size > 1 || (p.count() >= 1 && p.count() <= 4)) << figure << " is a pixel at least";
            EXPECT_TRUE(size < 1 || figure != 0 || p.count() == 400);
        }
}
} // namespace
