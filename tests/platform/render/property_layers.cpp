#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_render_layer.h"
#include "platform/render/vx_scale_rows.h"
#include "platform/styles/vxk_styles.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

namespace {
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
constexpr int c_width = 120, c_height = 80;
constexpr Tvx_color c_white = vx_clr_init_rgb(255, 255, 255);

/// A layer over a property file with these properties of equal length.
class property_layers : public testing::Test
{
protected:
    struct property
    {
        wchar_t const *name;
        std::vector<double> values;
    };
    void make(int dimensions, double origin, double spacing, std::vector<property> const &properties)
    {
        Tvx_tos4_grid grid;
        grid.dimensions = dimensions;
        grid.count[0] = properties[0].values.size();
        grid.origin[0] = origin;
        grid.spacing[0] = spacing;
        file = vx::text::utf8_to_wide((f_folder / "l.tos4").string());
        vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
            vx_tos4_writer_create_w(file.c_str(), &grid, L""));
        for (auto const &p : properties)
            ASSERT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), p.name, L"") &&
                        vx_tos4_writer_append(writer.get(), p.values.data(), p.values.size()));
        ASSERT_TRUE(vx_tos4_writer_finish(writer.get()));
        layer.reset(vx_tos_lr2d_open(file.c_str(), nullptr));
        ASSERT_TRUE(layer);
    }
    void draw(Tvx_box_d2 const &world, bool wanted = true)
    {
        view.world = world;
        view.width = c_width;
        view.height = c_height;
        view.mm2px_x = view.mm2px_y = 4;
        dc.reset(vx_bmp_dc_create());
        vx_bmp_dc_set_nxy(dc.get(), c_width, c_height);
        vx_bmp_dc_clear(dc.get(), c_white);
        EXPECT_EQ(vx_render_layer(layer.get(), view, dc.get()), wanted);
    }
    [[nodiscard]] Tvx_color at(double x, double y) const
    {
        return vx_bmp_dc_get_pixel(dc.get(), static_cast<int>(x), static_cast<int>(y));
    }
    [[nodiscard]] int darkness(double x, double y) const { return 255 - at(x, y).g; }

    vx_test::temp_dir f_folder;
    std::wstring file;
    layer_ptr layer;
    Tvx_map_view view;
    vx::owned<void, &vx_bmp_dc_destroy> dc;
};
} // namespace

TEST_F(property_layers, a_curve_passes_through_all_its_values)
{
    // 30 values for each column of pixels, with a gap; rising to the left.
    std::vector<double> heights;
    for (int i = 0; i < 30 * c_width; ++i)
        heights.push_back(i / 30 % c_width >= 70 && i / 30 % c_width < 75
                              ? std::nan("")
                              : 40 + 20 * std::sin(i * 0.004) + (i % 30 == 11 ? 9 : 0) -
                                    (i % 30 == 4 ? 7 : 0));
    ASSERT_NO_FATAL_FAILURE(make(1, 1000, -0.5, {{L"h", heights}}));
    ASSERT_STREQ(vx_lr2d_get_lr_type(layer.get()), c_lr_key_tos_grid_1d);
    void *const style = vx_stl_prm_get_pln_style_ptr(
        vx_stl_mngr_get_simple_sp_ptr(vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer.get())), false);
    vx_bpln_style_set_color(vx_pln_style_get_bpln_style_ptr(style), vx_clr_init_rgb(0, 0, 0));
    vx_bpln_style_set_width(vx_pln_style_get_bpln_style_ptr(style), 0.4);
    // The first object lies at the middle of the last column.
    double const left = 1000.25 - 15.0 * c_width;
    draw({left, 0, 1000.25, c_height});
    for (int column = 0; column < c_width; ++column) {
        int const from = 30 * (c_width - 1 - column);
        double low = HUGE_VAL, high = -HUGE_VAL;
        for (int i = from; i < from + 30; ++i) {
            double const h = heights[static_cast<std::size_t>(i)];
            low = std::isnan(h) ? low : std::min(low, h);
            high = std::isnan(h) ? high : std::max(high, h);
        }
        for (int y = 0; y < c_height; ++y) {
            double const h = c_height - y - 0.5;
            if (h > low + 1 && h < high - 1) {
                EXPECT_GT(darkness(column, y), 60) << column << " " << y;
            }
            bool const is_far = h < low - 4 || h > high + 4 || low > high;
            bool const is_inner = column > 0 && column < c_width - 1 && (column < 43 || column > 51);
            if (is_far && is_inner) {
                EXPECT_EQ(at(column, y).g, 255) << column << " " << y;
            }
        }
    }
    EXPECT_EQ(darkness(47, 40), 0) << "the gap";
    // From near it goes straight from value to value.
    ASSERT_NO_FATAL_FAILURE(make(1, 0, 10, {{L"h", {10, 70, 30, 30}}, {L"g", {5, 5, 5, 5}}}));
    vx_tos_grid_1d_lr2d_set_height_prp_name(layer.get(), L"h");
    draw({0, 0, 30, 80});
    EXPECT_GT(darkness(20, 40), 20);
    EXPECT_GT(darkness(60, 30), 40);
    EXPECT_EQ(darkness(60, 50), 0);
    vx_tos_grid_1d_lr2d_set_height_prp_name(layer.get(), L"g");
    draw({0, 0, 30, 80});
    EXPECT_GT(darkness(60, 75), 40);
    vx_tos_grid_1d_lr2d_set_height_prp_name(layer.get(), L"gone");
    draw({0, 0, 30, 80}, false);
}

TEST_F(property_layers, points_have_the_styles_of_their_classes_and_turn)
{
    double const none = std::nan("");
    ASSERT_NO_FATAL_FAILURE(make(0, 0, 1,
                                 {{L"X", {10, 40, 70, 100, 60, none}},
                                  {L"Y", {20, 20, 20, 20, none, 40}},
                                  {L"v", {1, 5, 9, none, 5, 5}},
                                  {L"azimuth", {0, 90, 180, 270, 0, 0}}}));
    ASSERT_STREQ(vx_lr2d_get_lr_type(layer.get()), c_lr_key_tos_2crd);
    void *const mngr = vx_tos_2crd_lr2d_get_stl_mngr(layer.get());
    auto const set = [](void *stl_prm, Tvx_color color) {
        void *const point = vx_pnt_style_get_bpnt_style_ptr(vx_stl_prm_get_pnt_style_ptr(stl_prm, false));
        vx_bpnt_style_set_figure(point, 19); // an arrow up
        vx_bpnt_style_set_size(point, 8);
        vx_bpnt_style_set_color(point, color);
    };
    Tvx_color const red = vx_clr_init_rgb(200, 0, 0), green = vx_clr_init_rgb(0, 150, 0),
                    blue = vx_clr_init_rgb(0, 0, 200), grey = vx_clr_init_grey(100);
    void *const ranges = vx_stl_mngr_get_rng_scale_ptr(mngr);
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_range);
    vx_stl_mngr_set_rng_prop_name_w(mngr, L"v");
    vx_rng_scale_set_size(ranges, 3);
    vx_rng_scale_set_max_value(ranges, 12);
    Tvx_color const colors[] = {red, green, blue};
    for (unsigned i = 0; i < 3; ++i) {
        vx_rng_scale_set_min(ranges, i, 4.0 * i);
        vx_rng_scale_set_max(ranges, i, 4.0 * i + 4);
        set(vx_scale_prm_get_stl_prm_ptr(vx_rng_scale_get_scale_prm_ptr(ranges, i)), colors[i]);
    }
    set(vx_scale_prm_get_stl_prm_ptr(vx_rng_scale_get_other_prm_ptr(ranges)), grey);
    vx_scale_prm_set_visible(vx_rng_scale_get_other_prm_ptr(ranges), true);
    Tvx_box_d2 const world{0, 0, c_width, c_height};
    Tvx_color const wanted[] = {red, green, blue, grey};
    // The head of an arrow is broad on the side to which it points.
    auto const expect_arrows = [&](bool turned) {
        constexpr int c_head[4][2] = {{-6, -4}, {4, -6}, {6, 4}, {-4, 6}};
        for (int i = 0; i < 4; ++i) {
            int const x = 10 + 30 * i, y = c_height - 20;
            auto const &head = c_head[turned ? i : 0];
            EXPECT_EQ(at(x, y), wanted[i]) << i;
            EXPECT_EQ(at(x + head[0], y + head[1]), wanted[i]) << i;
            EXPECT_EQ(at(x - head[0], y - head[1]), c_white) << i;
        }
    };
    draw(world);
    expect_arrows(false);
    vx_stl_mngr_set_rotate_flag(mngr, true);
    vx_stl_mngr_set_rotate_prop_name(mngr, "azimuth");
    vx_stl_mngr_set_rotate_start(mngr, 1); // north
    vx_stl_mngr_set_rotate_dir(mngr, 1);   // clockwise
    draw(world);
    expect_arrows(true);
    // Who asks for the row of an object gets the one that draws it.
    vx::owned<Ivx_scale_rows, &vx_scale_rows_close> const rows(vx_scale_rows_open_file_w(mngr, file.c_str()));
    for (unsigned i = 0; i < 3; ++i)
        EXPECT_EQ(vx_scale_rows_find(rows.get(), i), i + 1);
    EXPECT_EQ(vx_scale_rows_find(rows.get(), 3), 5);
    // By value, by a rule, and those that somebody chose.
    vx_stl_mngr_set_rotate_flag(mngr, false);
    vx_stl_mngr_set_val_prop_name_w(mngr, L"v");
    for (unsigned const mode : {c_stl_mngr_mode_value, c_stl_mngr_mode_rule}) {
        void *const scale = mode == c_stl_mngr_mode_value ? vx_stl_mngr_get_val_scale_ptr(mngr)
                                                          : vx_stl_mngr_get_rule_scale_ptr(mngr);
        vx_stl_mngr_set_mode(mngr, mode);
        vx_val_scale_set_size(scale, 1);
        vx_val_scale_set_text_w(
            scale, 0, mode == c_stl_mngr_mode_value ? L"5" : L"\"v\" GREATER \"4\" AND \"v\" LESS \"8\"");
        set(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, 0)), blue);
        vx_scale_prm_set_visible(vx_val_scale_get_other_prm_ptr(scale), false);
        draw(world);
        EXPECT_EQ(at(10, c_height - 20), c_white);
        EXPECT_EQ(at(40, c_height - 20), blue);
        EXPECT_EQ(at(70, c_height - 20), c_white);
    }
    vx_tos_2crd_lr2d_set_wprop_name_y(layer.get(), L"gone");
    draw(world, false);
}
