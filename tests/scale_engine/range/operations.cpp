#include "scale_engine/scale_fixture.h"
#include "scale_engine/vxk_task.h"
#include "support/comma_locale.h"

#include <gtest/gtest.h>

namespace {
using namespace scale_fixture;
using namespace vx::task;
using digits = range_scale_round_digits;

TEST(round_digits, halves_go_away_from_zero)
{
    struct
    {
        double value;
        int digits;
        double rounded;
    } const cases[] = {{-2.5, 0, -3},    {2.5, 0, 3},           {1234, 2, 1200},     {0.346, -2, 0.35},
                       {0.35, -2, 0.35}, {1.005e6, 4, 1010000}, {1e300, -10, 1e300}, {-0.001, -2, 0}};
    for (auto const &c : cases)
        EXPECT_EQ(c.rounded, digits::round_digits(c.value, c.digits)) << c.value;
    // Every two-decimal number is the number that its text reads as, and stays so.
    for (int i = -5000; i < 5000; ++i) {
        double const value = digits::round_digits(i * 0.01, -2);
        EXPECT_EQ(std::stod(range_scale_update_caption::format_number(value, -2)), value);
    }
}

TEST(captions, of_ranges)
{
    vx_test::comma_locale const comma;
    scales s;
    fill_ranges(s.rng, {{-1, 2.5}, {2.5, 10}});
    vx_rng_scale_set_round_digits(s.rng, -1);
    range_scale_update_caption::execute(s.rng, scale_caption::interval);
    text_list const interval{L"up to -1.0", L"-1.0 - 2.5", L"2.5 - 10.0", L"above 10.0"};
    EXPECT_EQ(interval, captions_of(s.rng));
    range_scale_update_caption::execute(s.rng, static_cast<scale_caption>(0));
    EXPECT_EQ(interval, captions_of(s.rng));
    range_scale_update_caption::execute(s.rng, scale_caption::minimum);
    EXPECT_EQ((text_list{L"-1.0", L"-1.0", L"2.5", L"10.0"}), captions_of(s.rng));
    range_scale_update_caption::execute(s.rng, scale_caption::maximum);
    EXPECT_EQ((text_list{L"-1.0", L"2.5", L"10.0", L"10.0"}), captions_of(s.rng));
    vx_rng_scale_set_round_digits(s.rng, -30);
    vx_rng_scale_set_min(s.rng, 0, 0.1);
    range_scale_update_caption::interval(s.rng);
    EXPECT_EQ(L"0.1 - 2.5", captions_of(s.rng)[1]);
}

TEST(colors, run_along_the_palette_from_min_to_max_entry)
{
    scales s;
    vx_rng_scale_set_size(s.rng, 3);
    auto const prms = range_prms(s.rng);
    auto const other = color_of(prms.back());
    Tvx_color wanted[5];
    vx_clr_arrays_generate(c_palette_rainbow, 5, wanted);
    range_scale_make_colors::execute(s.rng, c_palette_rainbow, false);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(wanted[i], color_of(prms[static_cast<std::size_t>(i)])) << i;
    EXPECT_EQ(other, color_of(prms.back()));

    // Marked rows alone, of the selection styles.
    number_by_color(prms, true);
    range_scale_make_colors::execute(s.rng, c_palette_rainbow, true, true, false);
    EXPECT_EQ((std::vector{0, 1, 2, 3, 4, 5}), numbers_by_color(prms, true)) << "nothing is marked";
    vx_rng_scale_set_min_marked(s.rng, true);
    vx_rng_scale_set_marked(s.rng, 1, true);
    vx_clr_arrays_generate(c_palette_red, 2, wanted);
    range_scale_make_colors::execute(s.rng, c_palette_red, true, true, false);
    EXPECT_EQ(wanted[0], color_of(prms[0], true));
    EXPECT_EQ(wanted[1], color_of(prms[2], true));
    EXPECT_EQ(1, color_of(prms[1], true).r);

    // A palette object goes first.
    vx::owned<void, &vx_clr_palette_destroy> const palette(vx_clr_palette_create());
    vx_clr_palette_set_size(palette.get(), 1);
    vx_clr_palette_set_color(palette.get(), 0, vx_clr_init_rgb(1, 2, 3));
    range_scale_make_colors::execute(s.rng, palette.get(), false, false, true);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(vx_clr_init_rgb(1, 2, 3), color_of(prms[i])) << i;
    // An empty palette leaves the present colours.
    vx_clr_palette_set_size(palette.get(), 0);
    number_by_color(prms);
    range_scale_make_colors::execute(s.rng, c_palette_red, palette.get(), false, false, false);
    EXPECT_EQ((std::vector{0, 1, 2, 3, 4, 5}), numbers_by_color(prms));
}

TEST(one_style, for_all_rows)
{
    scales s;
    vx_rng_scale_set_size(s.rng, 2);
    vx::owned<void, &vx_pnt_style_destroy> const style(vx_pnt_style_create());
    vx::owned<void, &vx_stl_prm_destroy> const colored(vx_stl_prm_create("pnt_style"));
    vx_stl_prm_clr_set_all(colored.get(), vx_clr_init_grey(77), false);
    vx_pnt_style_assign(style.get(), vx_stl_prm_get_pnt_style_ptr(colored.get(), false));
    auto const selected = numbers_by_color(range_prms(s.rng), true);
    range_scale_assign_style::execute_pnt(s.rng, style.get());
    EXPECT_EQ(std::vector(5, 77), numbers_by_color(range_prms(s.rng)));
    EXPECT_EQ(selected, numbers_by_color(range_prms(s.rng), true));
}
} // namespace
