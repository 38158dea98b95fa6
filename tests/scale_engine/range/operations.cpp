#include "scale_engine/range/range_scale_append_range.h"
#include "scale_engine/range/range_scale_assign_style.h"
#include "scale_engine/range/range_scale_invert.h"
#include "scale_engine/range/range_scale_make_colors.h"
#include "scale_engine/range/range_scale_round_digits.h"
#include "scale_engine/range/range_scale_sort.h"
#include "scale_engine/range/range_scale_update_caption.h"
#include "scale_engine/scale_fixture.h"
#include "support/comma_locale.h"

#include "platform/basic/vx_ints.h"
#include "platform/basic/vx_options.h"

#include <gtest/gtest.h>
#include <limits>

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

TEST(round_digits, rows_of_the_list)
{
    EXPECT_EQ(-2, digits::clamp_digits(11));
    EXPECT_EQ(-2, digits::clamp_digits(-30));
    EXPECT_EQ(-10, digits::clamp_digits(-10));
    EXPECT_EQ(8, digits::to_index(-11));
    EXPECT_EQ(20, digits::to_index(10));
    EXPECT_EQ(-10, digits::to_digits(0));
    EXPECT_EQ(8, digits::default_index());
    auto const rows = digits::generate();
    ASSERT_EQ(21U, rows.size());
    EXPECT_EQ(L"d.dddddddddd", rows[0]);
    EXPECT_EQ(L"d.dd", rows[8]);
    EXPECT_EQ(L"d.d", rows[9]);
    EXPECT_EQ(L"d", rows[10]);
    EXPECT_EQ(L"ddddddddddd", rows[20]);
}

TEST(round_digits, of_a_scale)
{
    scales s;
    fill_ranges(s.rng, {{0.126, 1.499}, {1.499, 2.5}});
    digits::execute(s.rng, -30);
    EXPECT_EQ((bounds_list{{0.126, 1.499}, {1.499, 2.5}}), bounds_of(s.rng));
    digits::execute(s.rng, -1);
    EXPECT_EQ((bounds_list{{0.1, 1.5}, {1.5, 2.5}}), bounds_of(s.rng));
    EXPECT_EQ(std::pair(0.1, 2.5), span_of(s.rng));
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

TEST(invert, swaps_styles_from_the_ends)
{
    scales s;
    fill_ranges(s.rng, {{0, 1}, {1, 2}});
    auto const prms = range_prms(s.rng);
    number_by_color(prms);
    number_by_color(prms, true);
    range_scale_invert::execute(s.rng, false, false);
    EXPECT_EQ((std::vector{3, 2, 1, 0, 4}), numbers_by_color(prms));
    EXPECT_EQ((std::vector{0, 1, 2, 3, 4}), numbers_by_color(prms, true));
    EXPECT_EQ((bounds_list{{0, 1}, {1, 2}}), bounds_of(s.rng));
    range_scale_invert::execute(s.rng, true, false);
    EXPECT_EQ((std::vector{3, 2, 1, 0, 4}), numbers_by_color(prms)) << "nothing is marked";
    vx_rng_scale_set_marked(s.rng, 0, true);
    range_scale_invert::execute(s.rng, true, false);
    EXPECT_EQ((std::vector{3, 2, 1, 0, 4}), numbers_by_color(prms)) << "one row is its own middle";
    vx_rng_scale_set_max_marked(s.rng, true);
    range_scale_invert::execute(s.rng, true, false);
    EXPECT_EQ((std::vector{3, 0, 1, 2, 4}), numbers_by_color(prms));
    range_scale_invert::execute(s.rng, false, true);
    EXPECT_EQ((std::vector{3, 2, 1, 0, 4}), numbers_by_color(prms, true));
}

std::vector<int> order_of(void const *scale, range_scale_sort const &sort)
{
    vx::owned<void, &vx_ints_destroy> const ints(vx_ints_create());
    sort.execute(scale, ints.get());
    std::vector<int> order;
    for (unsigned i = 0; i < vx_ints_get_size(ints.get()); ++i)
        order.push_back(vx_ints_get_int(ints.get(), i));
    return order;
}

TEST(sort, by_bounds_and_captions)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    scales s;
    fill_ranges(s.rng, {{10, 4}, {9, 3}, {nan, 2}, {9, 1}});
    wchar_t const *const captions[] = {L"10", L"9", L"abc", L"nan"};
    for (unsigned i = 0; i < 4; ++i)
        vx_rng_scale_set_caption_w(s.rng, i, captions[i]);
    using by = scale_sortby;
    using as = scale_sortas;
    auto const down = scale_sortord::descending;
    EXPECT_EQ((std::vector{1, 3, 0, 2}), order_of(s.rng, {by::minimum, as::numbers}));
    EXPECT_EQ((std::vector{3, 2, 1, 0}), order_of(s.rng, {by::maximum, as::numbers}));
    EXPECT_EQ((std::vector{0, 1, 3, 2}), order_of(s.rng, {by::minimum, as::strings}));
    EXPECT_EQ((std::vector{1, 0, 2, 3}), order_of(s.rng, {by::caption, as::numbers}));
    EXPECT_EQ((std::vector{3, 2, 0, 1}), order_of(s.rng, {by::caption, as::numbers, down}));
    EXPECT_EQ((std::vector{0, 1, 2, 3}), order_of(s.rng, {by::caption, as::strings}));
    EXPECT_EQ(std::vector<int>{}, order_of(s.rng, {by::text, as::strings}));

    auto const before = captions_of(s.rng);
    range_scale_sort(by::text, as::numbers).execute(s.rng);
    EXPECT_EQ(before, captions_of(s.rng));
    range_scale_sort(by::maximum, as::numbers).execute(s.rng);
    auto after = captions_of(s.rng);
    EXPECT_EQ((text_list{L"nan", L"abc", L"9", L"10"}), (text_list{after.begin() + 1, after.end() - 1}));
    EXPECT_EQ(4, vx_rng_scale_get_max(s.rng, 3));
}

TEST(append_range, takes_the_room_between_its_neighbours)
{
    struct
    {
        bounds_list before;
        std::pair<double, double> span;
        int position;
        bounds_list after;
    } const cases[] = {
        {{}, {3, 3}, 0, {{3, 3}}},
        {{}, {1, 2}, 5, {{1, 2}}},
        {{{0, 5}, {5, 10}}, {0, 10}, 2, {{0, 5}, {5, 7.5}, {7.5, 10}}},
        {{{0, 5}, {5, 10}}, {0, 10}, 1, {{0, 5}, {5, 7.5}, {7.5, 10}}},
        {{{0, 5}, {5, 10}}, {0, 10}, -3, {{0, 2.5}, {2.5, 5}, {5, 10}}},
        {{{0, 2}, {5, 10}}, {0, 10}, 1, {{0, 2}, {2, 5}, {5, 10}}},
        {{{0, 5}, {5, 8}}, {-2, 10}, 99, {{0, 5}, {5, 8}, {8, 10}}},
        {{{0, 5}, {5, 8}}, {-2, 10}, 0, {{-2, 0}, {0, 5}, {5, 8}}},
    };
    for (auto const &c : cases) {
        scales s;
        fill_ranges(s.rng, c.before);
        vx_rng_scale_set_min_value(s.rng, c.span.first);
        vx_rng_scale_set_max_value(s.rng, c.span.second);
        range_scale_append_range::execute(s.rng, c.position);
        EXPECT_EQ(c.after, bounds_of(s.rng)) << c.position;
    }
    scales s;
    fill_ranges(s.rng, {{0, 4}, {4, 8}});
    number_by_color(range_prms(s.rng)); // grey 1 and 2 for the ranges
    set_color(range_prms(s.rng)[1], vx_clr_init_grey(100));
    set_color(range_prms(s.rng)[2], vx_clr_init_grey(200));
    range_scale_append_range::execute(s.rng, 1);
    int const between = color_of(range_prms(s.rng)[2]).r;
    EXPECT_GT(between, 130);
    EXPECT_LT(between, 170);
    EXPECT_EQ(L"4.00 - 6.00", captions_of(s.rng)[2]);
}
} // namespace
