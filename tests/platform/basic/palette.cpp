#include "platform/base/owned.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/basic/vx_ints.h"
#include "platform/basic/vx_palette.h"
#include "platform/basic/vx_wstrings.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace {
constexpr int c_numbers[] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  13, 14,
                             15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 27};

std::vector<Tvx_color> generate(int palette, unsigned count, bool random)
{
    std::vector<Tvx_color> colors(count, vx_clr_init_rgba(1, 2, 3, 4));
    vx_clr_arrays_generate_ex(palette, count, colors.data(), random);
    return colors;
}

using as_tuple = std::tuple<int, int, int>;
as_tuple tuple_of(Tvx_color c)
{
    return {c.r, c.g, c.b};
}

TEST(palettes, every_palette_gives_any_number_of_opaque_colours)
{
    for (int const palette : c_numbers)
        for (unsigned const count : {0u, 1u, 2u, 7u, 300u}) {
            auto const colors = generate(palette, count, false);
            for (Tvx_color const c : colors)
                EXPECT_EQ(c.a, 255) << palette;
            auto mixed = generate(palette, count, true);
            EXPECT_EQ(mixed, generate(palette, count, true)) << palette << ": chance must repeat";
            if (count == 300) {
                EXPECT_NE(mixed, colors) << palette;
                EXPECT_TRUE(std::ranges::is_permutation(mixed, colors)) << palette;
            }
        }
    for (int const unknown : {-1, 10, 11, 12, 26, 28}) {
        EXPECT_EQ(generate(unknown, 3, true), std::vector(3, vx_clr_init_rgba(1, 2, 3, 4)));
    }
}

TEST(palettes, different_colours_differ)
{
    for (unsigned const count : {2u, 12u, 60u}) {
        std::set<as_tuple> seen;
        for (Tvx_color const c : generate(c_palette_different, count, false))
            seen.insert(tuple_of(c));
        EXPECT_EQ(seen.size(), count);
    }
    auto const twelve = generate(c_palette_different, 12, false);
    for (std::size_t i = 0; i < twelve.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_GT(std::abs(twelve[i].r - twelve[k].r) + std::abs(twelve[i].g - twelve[k].g) +
                          std::abs(twelve[i].b - twelve[k].b),
                      40);
}

TEST(palettes, a_palette_object_is_met_at_its_own_colours)
{
    vx::owned<void, &vx_clr_palettes_destroy> const list(vx_clr_palettes_create());
    void *p = vx_clr_palettes_add(list.get());
    std::vector<Tvx_color> out(3, vx_clr_init_grey(9));
    vx_clr_arrays_generate_palette_ex(p, 3, out.data(), false);
    vx_clr_arrays_generate_palette_ex(nullptr, 3, out.data(), true);
    EXPECT_EQ(out, std::vector(3, vx_clr_init_grey(9))) << "an empty palette has nothing to give";
    vx_clr_palette_set_size(p, 3);
    Tvx_color const own[] = {vx_clr_init_rgb(1, 200, 3), vx_clr_init_rgb(40, 5, 6),
                             vx_clr_init_rgb(7, 8, 90)};
    for (unsigned i = 0; i < 3; ++i)
        vx_clr_palette_set_color(p, i, own[i]);
    vx_clr_arrays_generate_palette_ex(p, 3, out.data(), false);
    EXPECT_TRUE(std::equal(out.begin(), out.end(), own));
    out.resize(5);
    vx_clr_arrays_generate_palette_ex(p, 5, out.data(), true);
    for (Tvx_color const c : own)
        EXPECT_NE(std::ranges::find(out, c), out.end());

    vx_clr_palettes_add(list.get());
    vx_clr_palettes_move(list.get(), 0, 1);
    EXPECT_EQ(vx_clr_palettes_get_palette(list.get(), 1), p);
    vx_clr_palettes_move(list.get(), 0, 2);
    vx_clr_palettes_del(list.get(), 0);
    EXPECT_EQ(vx_clr_palettes_get_size(list.get()), 1u);
    EXPECT_EQ(vx_clr_palettes_get_palette(list.get(), 1), nullptr);
}

int loads = 0;
TEST(palettes, the_users_list_is_loaded_once)
{
    vx_user_palettes_set_loader([](void *palettes) {
        ++loads;
        vx_clr_palettes_add(palettes);
        EXPECT_EQ(vx_get_user_palettes(), palettes);
    });
    EXPECT_EQ(vx_clr_palettes_get_size(vx_get_user_palettes()), 1u);
    EXPECT_EQ(vx_clr_palettes_get_size(vx_get_user_palettes()), 1u);
    EXPECT_EQ(loads, 1);
    vx_user_palettes_set_loader(nullptr);
    vx_clr_palettes_clear(vx_get_user_palettes());
}

TEST(lists, ints_sets_and_strings)
{
    vx::owned<void, &vx_ints_destroy> const ints(vx_ints_create());
    vx_ints_set_size(ints.get(), 3);
    for (unsigned i = 0; i < 4; ++i)
        vx_ints_set_int(ints.get(), i, static_cast<int>(i) + 1);
    vx_ints_reverse(ints.get());
    EXPECT_EQ(vx_ints_get_int(ints.get(), 0), 3);
    EXPECT_EQ(vx_ints_get_int(ints.get(), 3), 0);
    vx::owned<void, &vx_int_set_destroy> const set(vx_int_set_create());
    vx_int_set_add(set.get(), -4);
    EXPECT_TRUE(vx_int_set_find(set.get(), -4));
    EXPECT_FALSE(vx_int_set_find(set.get(), 4));

    struct
    {
        wchar_t const *text;
        std::vector<std::wstring> parts;
    } const table[] = {{L"", {}}, {L"a", {L"a"}}, {L"*.a;*.b", {L"*.a", L"*.b"}}, {L";x;", {L"", L"x", L""}}};
    for (auto const &t : table) {
        vx::owned<void, &vx_wstrings_destroy> const strings(vx_wstrings_create());
        vx_wstrings_split_str(strings.get(), t.text, L';');
        ASSERT_EQ(vx_wstrings_get_size(strings.get()), t.parts.size());
        for (unsigned i = 0; i < t.parts.size(); ++i)
            EXPECT_EQ(vx_wstrings_get_str(strings.get(), i), t.parts[i]);
        EXPECT_STREQ(vx_wstrings_get_str(strings.get(), 99), L"");
    }
}

TEST(channels, copies_keep_their_records_apart)
{
    vx::owned<void, &vx_rgb_channels_destroy> const a(vx_rgb_channels_create());
    void *red = vx_rgb_channels_get_red(a.get());
    vx_clr_channel_set_min(red, 5);
    vx_clr_channel_set_max(red, std::nan(""));
    EXPECT_EQ(vx_clr_channel_get_max(red), 255);
    vx_stat_set_minimum(vx_clr_channel_get_stat(red), -1);
    vx::owned<void, &vx_rgb_channels_destroy> const b(vx_rgb_channels_clone(a.get()));
    void *copy = vx_rgb_channels_get_red(b.get());
    EXPECT_EQ(vx_clr_channel_get_min(copy), 5);
    bool known = false;
    EXPECT_EQ(vx_stat_get_minimum(vx_clr_channel_get_stat(copy), &known), -1);
    EXPECT_TRUE(known);
    vx_stat_set_minimum(vx_clr_channel_get_stat(copy), 8);
    EXPECT_EQ(vx_stat_get_minimum(vx_clr_channel_get_stat(red), &known), -1);
    EXPECT_NE(vx_rgb_channels_get_gray(a.get()), red);
    EXPECT_TRUE(vx_rgb_channels_equal(a.get(), b.get())) << "statistics do not count";
    vx_clr_channel_set_prop_name_w(red, L"b");
    EXPECT_FALSE(vx_rgb_channels_equal(a.get(), b.get()));
    EXPECT_EQ(vx_stat_get_minimum(vx_clr_channel_get_stat(red), &known), 0);
    EXPECT_FALSE(known) << "of another property";
    vx_clr_channel_set_prop_name_w(copy, L"");
    EXPECT_EQ(vx_stat_get_minimum(vx_clr_channel_get_stat(copy), &known), 8) << "the same one";
}
} // namespace
