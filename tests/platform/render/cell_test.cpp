#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_render_layer.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <numbers>
#include <vector>

namespace {
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
constexpr int c_width = 90, c_height = 70;
constexpr Tvx_color c_paper = vx_clr_init_rgb(255, 255, 255);

void set_color(void *scale_prm, Tvx_color color)
{
    *vx_stl_prm_get_clr_style_ptr(vx_scale_prm_get_stl_prm_ptr(scale_prm), false) = color;
}

/// Two slices of 7 by 5 cells of 10 by 8, with heights 0 to 34 and 100 to 134; cell 3 of each has none. The
/// second property is the column.
class cells : public testing::Test
{
protected:
    void make(double azimuth)
    {
        grid = {3, {7, 5, 2}, {105, 240, 0}, {10, -8, 1}, azimuth};
        auto const name = vx::text::utf8_to_wide((f_folder / "g.tos4").string());
        vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
            vx_tos4_writer_create_w(name.c_str(), &grid, L""));
        std::vector<double> heights, columns;
        for (int i = 0; i < 70; ++i) {
            heights.push_back(i % 35 == 3 ? std::nan("") : i % 35 + (i < 35 ? 0 : 100));
            columns.push_back(i % 7);
        }
        ASSERT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), L"h", L"") &&
                    vx_tos4_writer_append(writer.get(), heights.data(), heights.size()) &&
                    vx_tos4_writer_add_prop_w(writer.get(), L"c", L"") &&
                    vx_tos4_writer_append(writer.get(), columns.data(), columns.size()) &&
                    vx_tos4_writer_finish(writer.get()));
        layer.reset(vx_tos_lr2d_open(name.c_str(), nullptr));
        ASSERT_TRUE(layer);
        mngr = vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer.get());
        view.world = {90, 190, 190, 268};
        view.width = c_width;
        view.height = c_height;
    }

    /// Compares all pixels with what `color_of` says of the heights; `c_paper` is nothing drawn.
    void expect(std::function<Tvx_color(double height, int column)> const &color_of, double base = 0)
    {
        std::vector<unsigned char> pixels(4 * c_width * c_height, 255);
        vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
        vx_bmp_dc_set_pixels(dc.get(), pixels.data(), c_width, c_height, 4 * c_width);
        ASSERT_TRUE(vx_render_layer(layer.get(), view, dc.get()));
        double const angle = grid.azimuth * std::numbers::pi / 180;
        int drawn = 0;
        for (int y = 0; y < c_height; ++y)
            for (int x = 0; x < c_width; ++x) {
                double const wx = 90 + (x + 0.5) * 100 / c_width - 105,
                             wy = 268 - (y + 0.5) * 78 / c_height - 240;
                double const u = (wx * std::cos(angle) + wy * std::sin(angle)) / 10 + 0.5;
                double const v = (wy * std::cos(angle) - wx * std::sin(angle)) / -8 + 0.5;
                if (std::fabs(u - std::round(u)) < 1e-6 || std::fabs(v - std::round(v)) < 1e-6)
                    continue; // on the edge of two cells
                Tvx_color wanted = c_paper;
                if (u > 0 && v > 0 && u < 7 && v < 5) {
                    int const cell = static_cast<int>(v) * 7 + static_cast<int>(u);
                    wanted = color_of(cell == 3 ? std::nan("") : cell + base, static_cast<int>(u));
                    ++drawn;
                }
                auto const *const at = &pixels[static_cast<std::size_t>(4 * (y * c_width + x))];
                ASSERT_NEAR(at[2], wanted.r, 1) << x << " " << y;
                ASSERT_NEAR(at[1], wanted.g, 1) << x << " " << y;
                ASSERT_NEAR(at[0], wanted.b, 1) << x << " " << y;
            }
        EXPECT_GT(drawn, 1500);
    }

    /// Ranges of 0 to 10, 10 to 20 and 20 to 30 in red, green and blue; above them black, without value
    /// nothing.
    void set_ranges()
    {
        vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_range);
        vx_stl_mngr_set_rng_prop_name_w(mngr, L"h");
        void *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr);
        vx_rng_scale_set_size(scale, 3);
        vx_tos_grid_lr2d_set_interpolate(layer.get(), false);
        Tvx_color const colors[] = {vx_clr_init_rgb(255, 0, 0), vx_clr_init_rgb(0, 255, 0),
                                    vx_clr_init_rgb(0, 0, 255)};
        for (unsigned i = 0; i < 3; ++i) {
            vx_rng_scale_set_min(scale, i, 10 * i);
            vx_rng_scale_set_max(scale, i, 10 * i + 10);
            set_color(vx_rng_scale_get_scale_prm_ptr(scale, i), colors[i]);
        }
        // The lower bound of the first range belongs to what is below all ranges.
        vx_rng_scale_set_min_value(scale, 0);
        set_color(vx_rng_scale_get_min_prm_ptr(scale), colors[0]);
        vx_scale_prm_set_visible(vx_rng_scale_get_min_prm_ptr(scale), true);
        vx_rng_scale_set_max_value(scale, 30);
        set_color(vx_rng_scale_get_max_prm_ptr(scale), vx_clr_init_rgb(0, 0, 0));
        vx_scale_prm_set_visible(vx_rng_scale_get_max_prm_ptr(scale), true);
        vx_scale_prm_set_visible(vx_rng_scale_get_other_prm_ptr(scale), false);
    }
    [[nodiscard]] static Tvx_color range_color(double h)
    {
        return std::isnan(h) ? c_paper
               : h <= 10     ? vx_clr_init_rgb(255, 0, 0)
               : h <= 20     ? vx_clr_init_rgb(0, 255, 0)
               : h <= 30     ? vx_clr_init_rgb(0, 0, 255)
                             : vx_clr_init_rgb(0, 0, 0);
    }

    vx_test::temp_dir f_folder;
    Tvx_tos4_grid grid;
    layer_ptr layer;
    void *mngr = nullptr;
    Tvx_map_view view;
};
} // namespace

TEST_F(cells, have_the_colours_of_their_ranges)
{
    for (double const azimuth : {25.0, 0.0}) {
        ASSERT_NO_FATAL_FAILURE(make(azimuth));
        set_ranges();
        ASSERT_NO_FATAL_FAILURE(expect([](double h, int) { return range_color(h); }));
    }
    // Half seen through.
    vx_tos_grid_lr2d_set_opacity(layer.get(), 0.5);
    ASSERT_NO_FATAL_FAILURE(expect([](double h, int) {
        auto const c = range_color(h);
        auto const half = [](int part) { return (part + 255) / 2; };
        return vx_clr_init_rgb(half(c.r), half(c.g), half(c.b));
    }));
    // The second slice lies above all ranges.
    ASSERT_NO_FATAL_FAILURE(make(0));
    set_ranges();
    vx_tos_slice_lr2d_set_zslice(layer.get(), 1);
    expect([](double h, int) { return range_color(h); }, 100);
}

TEST_F(cells, have_colours_between_those_of_the_ranges_where_asked)
{
    ASSERT_NO_FATAL_FAILURE(make(0));
    set_ranges();
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr);
    // Greys, of which every mixture is one; from the middle of a range to that of the next.
    for (unsigned i = 0; i < 3; ++i)
        set_color(vx_rng_scale_get_scale_prm_ptr(scale, i), vx_clr_init_grey(static_cast<int>(50 + 80 * i)));
    set_color(vx_rng_scale_get_min_prm_ptr(scale), vx_clr_init_grey(50));
    vx_tos_grid_lr2d_set_interpolate(layer.get(), true);
    expect([&](double h, int) {
        if (std::isnan(h))
            return c_paper;
        // Between the middles in equal steps of what the eye sees, of which greys have the cube root of
        // light.
        auto const light = [](double grey) {
            double const c = grey / 255;
            return std::cbrt(c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4));
        };
        auto const grey_of = [](double eye) {
            double const c = eye * eye * eye;
            return 255 * (c <= 0.0031308 ? 12.92 * c : 1.055 * std::pow(c, 1 / 2.4) - 0.055);
        };
        auto const mixed = [&](double from, double to, double t) {
            double const step = std::round(t * 32) / 32;
            return vx_clr_init_grey(
                static_cast<int>(std::lround(grey_of(light(from) + (light(to) - light(from)) * step))));
        };
        return h > 30    ? vx_clr_init_grey(0)
               : h <= 5  ? vx_clr_init_grey(50)
               : h <= 15 ? mixed(50, 130, (h - 5) / 10)
               : h <= 25 ? mixed(130, 210, (h - 15) / 10)
                         : vx_clr_init_grey(210);
    });
}

TEST_F(cells, have_the_colours_of_values_and_rules)
{
    ASSERT_NO_FATAL_FAILURE(make(0));
    auto const blue = vx_clr_init_rgb(0, 0, 200), grey = vx_clr_init_grey(90);
    struct
    {
        unsigned mode;
        void *scale;
        wchar_t const *texts[2];
        std::function<bool(double, int)> is_blue;
    } const cases[] = {
        {c_stl_mngr_mode_value,
         vx_stl_mngr_get_val_scale_ptr(mngr),
         {L"17", L"34"},
         [](double h, int) { return h == 17 || h == 34; }},
        {c_stl_mngr_mode_rule,
         vx_stl_mngr_get_rule_scale_ptr(mngr),
         {L"\"h\" GREATER \"20\" AND \"c\" EQUAL \"2\"", L"\"h\" NULL"},
         [](double h, int c) { return std::isnan(h) || (h > 20 && c == 2); }},
    };
    for (auto const &c : cases) {
        vx_stl_mngr_set_mode(mngr, c.mode);
        vx_val_scale_set_size(c.scale, 2);
        for (unsigned i = 0; i < 2; ++i) {
            vx_val_scale_set_text_w(c.scale, i, c.texts[i]);
            set_color(vx_val_scale_get_scale_prm_ptr(c.scale, i), blue);
        }
        set_color(vx_val_scale_get_other_prm_ptr(c.scale), grey);
        vx_scale_prm_set_visible(vx_val_scale_get_other_prm_ptr(c.scale), true);
        ASSERT_NO_FATAL_FAILURE(
            expect([&](double h, int column) { return c.is_blue(h, column) ? blue : grey; }));
    }
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_simple);
    auto const simple = vx_stl_prm_get_color(vx_stl_mngr_get_simple_sp_ptr(mngr), false);
    expect([&](double, int) { return simple; });
}

TEST_F(cells, are_stretched_by_channels)
{
    ASSERT_NO_FATAL_FAILURE(make(0));
    void *const all = vx_tos_grid_lr2d_get_rgb_channels_ptr(layer.get());
    struct
    {
        void *channel;
        wchar_t const *name;
        double low, high;
    } const stretches[] = {{vx_rgb_channels_get_red(all), L"h", 10, 20},
                           {vx_rgb_channels_get_green(all), L"c", 0, 6},
                           {vx_rgb_channels_get_blue(all), L"h", 0, 34},
                           {vx_rgb_channels_get_gray(all), L"h", 34, 0}};
    for (auto const &s : stretches) {
        vx_clr_channel_set_prop_name_w(s.channel, s.name);
        vx_clr_channel_set_min(s.channel, s.low);
        vx_clr_channel_set_max(s.channel, s.high);
    }
    auto const part = [](double v, double low, double high) {
        return static_cast<int>(std::lround(255 * std::clamp((v - low) / (high - low), 0.0, 1.0)));
    };
    vx_tos_grid_lr2d_set_draw_type(layer.get(), 1);
    expect([&](double h, int c) {
        return std::isnan(h) ? c_paper : vx_clr_init_rgb(part(h, 10, 20), part(c, 0, 6), part(h, 0, 34));
    });
    vx_tos_grid_lr2d_set_draw_type(layer.get(), 3);
    expect([&](double h, int) { return std::isnan(h) ? c_paper : vx_clr_init_grey(h > 0 ? 255 : 0); });
}

TEST_F(cells, of_a_file_that_is_gone_are_not_drawn)
{
    ASSERT_NO_FATAL_FAILURE(make(0));
    std::filesystem::remove(f_folder / "g.tos4");
    std::vector<unsigned char> pixels(4 * c_width * c_height, 255);
    vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
    vx_bmp_dc_set_pixels(dc.get(), pixels.data(), c_width, c_height, 4 * c_width);
    EXPECT_FALSE(vx_render_layer(layer.get(), view, dc.get()));
    EXPECT_EQ(pixels, std::vector<unsigned char>(pixels.size(), 255));
}
