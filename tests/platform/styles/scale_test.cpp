#include "support.h"

#include "platform/basic/vx_ints.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <malloc.h>
#include <random>
#include <string>
#include <vector>

namespace {
struct ints
{
    vx::owned<void, &vx_ints_destroy> list{vx_ints_create()};
    ints(std::initializer_list<int> values)
    {
        for (int const v : values)
            vx_ints_add(list.get(), v);
    }
};

std::wstring joined(void const *scale)
{
    std::wstring all;
    for (unsigned i = 0; i < vx_val_scale_get_size(scale); ++i)
        all += val_text(scale, i);
    return all;
}

void fill(void *scale, std::wstring const &letters)
{
    vx_val_scale_set_size(scale, 0);
    for (wchar_t const c : letters) {
        unsigned const i = vx_val_scale_add(scale) - 1;
        vx_val_scale_set_text_w(scale, i, std::wstring(1, c).c_str());
    }
}

TEST(val_scale, entries_come_go_and_move_and_the_active_one_follows)
{
    auto const mngr = make_mngr("pnt_style");
    void *s = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    EXPECT_EQ(vx_val_scale_get_active_idx(s), -1);
    fill(s, L"abcd");
    vx_val_scale_set_active_idx(s, 2);
    EXPECT_EQ(vx_val_scale_ins(s, 1), 1u);
    vx_val_scale_set_text_w(s, 1, L"x");
    EXPECT_EQ(joined(s), L"axbcd");
    EXPECT_EQ(vx_val_scale_get_active_idx(s), 3);
    EXPECT_EQ(vx_val_scale_ins(s, 77), 5u);
    vx_val_scale_del(s, 5);
    struct
    {
        unsigned from, to;
        wchar_t const *order;
        int active;
    } const moves[] = {{0, 4, L"xbcda", 2}, {4, 1, L"xabcd", 3}, {3, 0, L"cxabd", 0},
                       {0, 0, L"cxabd", 0}, {0, 9, L"cxabd", 0}, {9, 0, L"cxabd", 0}};
    for (auto const &m : moves) {
        vx_val_scale_move(s, m.from, m.to);
        EXPECT_EQ(joined(s), m.order);
        EXPECT_EQ(vx_val_scale_get_active_idx(s), m.active);
    }
    vx_val_scale_set_marked(s, 1, true);
    vx_val_scale_set_marked(s, 4, true);
    vx_val_scale_del_marked(s);
    EXPECT_EQ(joined(s), L"cab");
    EXPECT_EQ(vx_val_scale_get_active_idx(s), 0);
    vx_val_scale_del(s, 0);
    EXPECT_EQ(vx_val_scale_get_active_idx(s), -1);
    vx_val_scale_set_size(s, 4);
    EXPECT_EQ(joined(s), L"ab");
    vx_val_scale_set_size(s, 1);
    EXPECT_EQ(joined(s), L"a");
}

TEST(val_scale, what_is_done_to_one_copy_is_not_seen_in_another)
{
    auto const mngr = make_mngr("pnt_style");
    void *const a = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    fill(a, L"abcd");
    auto const red = [](void *scale, unsigned i) {
        void *const prm = vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i));
        return vx_stl_prm_get_color(prm, false).r;
    };
    auto const paint = [](void *prm, unsigned char value) {
        vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(prm), false, vx_clr_init_rgb(value, 0, 0));
    };
    void *const kept = vx_val_scale_get_scale_prm_ptr(a, 0);
    paint(kept, 10);
    owned_mngr const second(vx_stl_mngr_clone(mngr.get()));
    void *const b = vx_stl_mngr_get_val_scale_ptr(second.get());
    EXPECT_TRUE(vx_val_scale_equal(a, b));
    // A pointer that was given away before the copy was made writes to its own scale alone.
    paint(kept, 20);
    EXPECT_EQ(red(a, 0), 20);
    EXPECT_EQ(red(b, 0), 10);
    vx_val_scale_set_text_w(a, 1, L"x");
    vx_val_scale_set_caption_w(b, 1, L"y");
    vx_val_scale_set_marked(b, 2, true);
    paint(vx_val_scale_get_scale_prm_ptr(b, 3), 30);
    EXPECT_EQ(joined(a), L"axcd");
    EXPECT_EQ(joined(b), L"abcd");
    EXPECT_FALSE(vx_val_scale_get_marked(a, 2));
    EXPECT_NE(red(a, 3), 30);
    EXPECT_EQ(vx_val_scale_get_scale_prm_ptr(a, 0), kept);
    // Over a copy of a copy, and after the first has ended.
    owned_mngr third(vx_stl_mngr_clone(second.get()));
    void *const c = vx_stl_mngr_get_val_scale_ptr(third.get());
    vx_val_scale_clr_gradient(c, 0, 3, false);
    EXPECT_GT(red(c, 2), 10);
    EXPECT_EQ(red(b, 2), red(a, 2));
    vx_stl_mngr_assign(third.get(), mngr.get());
    EXPECT_EQ(joined(vx_stl_mngr_get_val_scale_ptr(third.get())), L"axcd");
    third.reset();
    EXPECT_EQ(vx_val_scale_get_scale_prm_ptr(a, 0), kept);
    EXPECT_EQ(red(a, 0), 20);
}

TEST(val_scale, copies_of_long_scales_agree_with_plain_lists)
{
    struct entry
    {
        std::wstring text;
        int red = 0;
        bool marked = false;
        void *prm = nullptr; ///< where it was given away
    };
    constexpr int c_copies = 3;
    std::vector<owned_mngr> mngrs;
    std::vector<std::vector<entry>> plain(c_copies);
    for (int i = 0; i < c_copies; ++i)
        mngrs.push_back(make_mngr("pnt_style"));
    auto const scale = [&](std::size_t i) { return vx_stl_mngr_get_val_scale_ptr(mngrs[i].get()); };
    auto const style = [](void *prm) { return vx_scale_prm_get_stl_prm_ptr(prm); };
    int const untouched = vx_stl_prm_get_color(vx_stl_mngr_get_simple_sp_ptr(mngrs[0].get()), false).r;
    std::mt19937 random(3);
    auto const chance = [&](std::size_t n) { return static_cast<unsigned>(random() % n); };
    for (int step = 0; step < 3000; ++step) {
        unsigned const own = chance(c_copies), other = (own + 1) % c_copies;
        void *const s = scale(own);
        auto &list = plain[own];
        auto const size = static_cast<unsigned>(list.size());
        unsigned const at = chance(size + 1);
        // What is none changes nothing.
        vx_val_scale_del(s, size + chance(2));
        vx_val_scale_set_marked(s, size + chance(2), true);
        vx_val_scale_move(s, size, 0);
        if (unsigned const what = chance(40); what < 2) {
            vx_stl_mngr_assign(mngrs[other].get(), mngrs[own].get());
            plain[other] = list;
            for (entry &e : plain[other])
                e.prm = nullptr;
        } else if (what == 2) {
            list.resize(chance(900), entry{{}, untouched});
            vx_val_scale_set_size(s, static_cast<unsigned>(list.size()));
        } else if (what == 3) {
            std::erase_if(list, [](entry const &e) { return e.marked; });
            vx_val_scale_del_marked(s);
        } else if (what < 8 || at == size) {
            list.insert(list.begin() + at, entry{{}, untouched});
            vx_val_scale_ins(s, at);
        } else if (what < 12) {
            list.erase(list.begin() + at);
            vx_val_scale_del(s, at);
        } else if (what < 16) {
            unsigned const to = chance(size);
            entry const moved = list[at];
            list.erase(list.begin() + at);
            list.insert(list.begin() + to, moved);
            vx_val_scale_move(s, at, to);
        } else if (what < 22) {
            list[at].text = std::to_wstring(chance(40));
            vx_val_scale_set_text_w(s, at, list[at].text.c_str());
        } else if (what < 26) {
            list[at].marked = chance(4) == 0;
            vx_val_scale_set_marked(s, at, list[at].marked);
        } else if (what < 33) {
            list[at].prm = vx_val_scale_get_scale_prm_ptr(s, at);
        } else if (list[at].prm) { // through a pointer that may be an old one
            list[at].red = static_cast<int>(chance(256));
            vx_stl_prm_set_color(style(list[at].prm), false, vx_clr_init_rgb(list[at].red, 0, 0));
        }
        std::wstring const value = std::to_wstring(chance(40));
        auto const first = std::ranges::find(list, value, &entry::text);
        ASSERT_EQ(vx_val_scale_find_w(s, value.c_str()), first == list.end() ? -1 : first - list.begin())
            << step;
        ASSERT_EQ(vx_val_scale_get_marked_count(s), std::ranges::count(list, true, &entry::marked)) << step;
        for (std::size_t i = 0; step % 50 == 0 && i < c_copies; ++i) {
            ASSERT_EQ(vx_val_scale_get_size(scale(i)), plain[i].size()) << step;
            for (unsigned k = 0; k < plain[i].size(); ++k) {
                ASSERT_EQ(val_text(scale(i), k), plain[i][k].text) << step;
                ASSERT_EQ(vx_val_scale_get_marked(scale(i), k), plain[i][k].marked) << step;
            }
        }
    }
    for (std::size_t i = 0; i < c_copies; ++i)
        for (unsigned k = 0; k < plain[i].size(); ++k) {
            void *const prm = vx_val_scale_get_scale_prm_ptr(scale(i), k);
            ASSERT_EQ(vx_stl_prm_get_color(style(prm), false).r, plain[i][k].red);
            ASSERT_TRUE(!plain[i][k].prm || plain[i][k].prm == prm);
        }
}

TEST(val_scale, order_is_taken_from_a_permutation_only)
{
    auto const mngr = make_mngr("pnt_style");
    void *s = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    fill(s, L"abc");
    void *prm_c = vx_val_scale_get_scale_prm_ptr(s, 2);
    for (ints const &bad :
         {ints{}, ints{0, 1}, ints{0, 1, 1}, ints{0, 1, 3}, ints{0, 1, -1}, ints{0, 1, 2, 3}}) {
        vx_val_scale_set_order(s, bad.list.get());
        EXPECT_EQ(joined(s), L"abc");
    }
    vx_val_scale_set_order(s, nullptr);
    vx_val_scale_set_active_idx(s, 0);
    vx_val_scale_set_order(s, ints{2, 0, 1}.list.get());
    EXPECT_EQ(joined(s), L"cab");
    EXPECT_EQ(vx_val_scale_get_scale_prm_ptr(s, 0), prm_c);
    EXPECT_EQ(vx_val_scale_get_active_idx(s), 1);
}

TEST(val_scale, a_value_is_found_whatever_was_done_before)
{
    auto const mngr = make_mngr("pgn_style");
    void *s = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    EXPECT_EQ(vx_val_scale_find_w(s, L""), -1);
    fill(s, L"abab");
    EXPECT_EQ(vx_val_scale_find_w(s, L"a"), 0);
    EXPECT_EQ(vx_val_scale_find_w(s, L" b\t"), 1);
    EXPECT_EQ(vx_val_scale_find_w(s, L"\v\f b \r\n"), 1);
    EXPECT_EQ(vx_val_scale_find_w(s, L"\xA0"
                                     L"b"),
              -1)
        << "a no-break space is part of a text";
    EXPECT_EQ(vx_val_scale_find_w(s, L"A"), -1);
    vx_val_scale_set_text_w(s, 0, L" c ");
    EXPECT_EQ(vx_val_scale_find_w(s, L"c"), 0);
    EXPECT_EQ(vx_val_scale_find_w(s, L"a"), 2);
    vx_val_scale_move(s, 2, 0);
    EXPECT_EQ(vx_val_scale_find_w(s, L"a"), 0);
    vx_val_scale_del(s, 0);
    EXPECT_EQ(vx_val_scale_find_w(s, L"a"), -1);
    std::wstring const long_text(500, L'x');
    for (std::wstring const &text :
         {std::wstring(L"\xA0\x0416\x00F1\xA0"), long_text, long_text + L"\x00E9"}) {
        unsigned const i = vx_val_scale_add(s) - 1;
        vx_val_scale_set_text_w(s, i, text.c_str());
        EXPECT_EQ(vx_val_scale_find_w(s, (L" " + text).c_str()), static_cast<int>(i));
    }
    // Halves of pairs that have no partner, which no UTF-8 holds.
    wchar_t const halves[] = {0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFFFD};
    int next = static_cast<int>(vx_val_scale_get_size(s));
    for (wchar_t const half : halves)
        vx_val_scale_set_text_w(s, vx_val_scale_add(s) - 1, (std::wstring(L"half ") + half).c_str());
    for (wchar_t const half : halves)
        EXPECT_EQ(vx_val_scale_find_w(s, (std::wstring(L"half ") + half).c_str()), next++);
}

TEST(val_scale, a_long_scale_at_defaults_is_small)
{
    constexpr unsigned c_count = 100000;
    for (char const *type : {"pnt_style", "pln_style", "pgn_style"}) {
        auto const mngr = make_mngr(type);
        void *s = vx_stl_mngr_get_val_scale_ptr(mngr.get());
        auto const before = mallinfo2().uordblks + mallinfo2().hblkhd;
        vx_val_scale_set_size(s, c_count);
        for (unsigned i = 0; i < c_count; ++i) {
            std::wstring const text = L"municipality " + std::to_wstring(i);
            vx_val_scale_set_text_w(s, i, text.c_str());
            vx_val_scale_set_caption_w(s, i, text.c_str());
        }
        EXPECT_EQ(vx_val_scale_find_w(s, L"municipality 99999"), 99999);
        [[maybe_unused]] auto const used = mallinfo2().uordblks + mallinfo2().hblkhd - before;
#if !defined(__SANITIZE_ADDRESS__) // whose allocator counts differently
        EXPECT_LE(static_cast<double>(used) / c_count, 600) << type;
#endif
    }
}

TEST(rng_scale, each_value_has_one_row_and_a_bound_belongs_below)
{
    auto const mngr = make_mngr("pgn_style");
    void *s = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    vx_rng_scale_set_size(s, 3);
    vx_rng_scale_set_min_value(s, 0);
    vx_rng_scale_set_max_value(s, 30);
    // 0 to 10, 10 to 20, a gap, 25 to 30.
    double const bounds[][2] = {{0, 10}, {10, 20}, {25, 30}};
    for (unsigned i = 0; i < 3; ++i) {
        vx_rng_scale_set_min(s, i, bounds[i][0]);
        vx_rng_scale_set_max(s, i, bounds[i][1]);
    }
    double const inf = std::numeric_limits<double>::infinity();
    struct
    {
        double value;
        unsigned row;
    } const table[] = {{-inf, 0},    {-1, 0},   {0, 0},    {1e-300, 1},      {10, 1},
                       {10.0001, 2}, {20, 2},   {20.1, 5}, {25, 5},          {25.1, 3},
                       {30, 3},      {30.1, 4}, {inf, 4},  {std::nan(""), 5}};
    for (auto const &t : table)
        EXPECT_EQ(vx_rng_scale_find(s, t.value), t.row) << t.value;
    // Rows follow the ranges when these change places.
    vx_rng_scale_move(s, 0, 2);
    EXPECT_EQ(vx_rng_scale_find(s, 5), 3u);
    vx_rng_scale_set_order(s, ints{2, 1, 0}.list.get());
    EXPECT_EQ(vx_rng_scale_find(s, 5), 1u);
    vx_rng_scale_set_max(s, 0, 12);
    EXPECT_EQ(vx_rng_scale_find(s, 11), 1u) << "the first of two ranges counts";
    vx_rng_scale_set_size(s, 0);
    EXPECT_EQ(vx_rng_scale_find(s, 11), 2u);
    EXPECT_EQ(vx_rng_scale_find(s, 0), 0u);
    EXPECT_EQ(vx_rng_scale_find(s, 31), 1u);
}

TEST(rng_scale, rows_of_random_scales_agree_with_a_plain_search)
{
    std::mt19937 random(11);
    auto const number = [&] { return static_cast<double>(random() % 41) / 2 - 2; };
    for (int round = 0; round < 300; ++round) {
        auto const mngr = make_mngr("pnt_style");
        void *s = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
        unsigned const n = random() % 9;
        vx_rng_scale_set_size(s, n);
        for (unsigned i = 0; i < n; ++i) {
            vx_rng_scale_set_min(s, i, number());
            vx_rng_scale_set_max(s, i, number());
        }
        vx_rng_scale_set_min_value(s, number() / 4);
        vx_rng_scale_set_max_value(s, 10 + number());
        for (double v = -4; v < 22; v += 0.25) {
            unsigned expected = n + 2;
            for (unsigned i = n; i-- > 0;)
                if (v > vx_rng_scale_get_min(s, i) && v <= vx_rng_scale_get_max(s, i))
                    expected = i + 1;
            if (v > vx_rng_scale_get_max_value(s))
                expected = n + 1;
            if (v <= vx_rng_scale_get_min_value(s))
                expected = 0;
            ASSERT_EQ(vx_rng_scale_find(s, v), expected) << round << " " << v;
        }
    }
}

TEST(rng_scale, uneven_and_endless_spans_are_searched_exactly)
{
    double const inf = std::numeric_limits<double>::infinity();
    double const huge = std::numeric_limits<double>::max();
    std::vector<std::vector<double>> spans = {
        {-inf, -1, 0, 1, inf}, {-huge, 0, 1e-300, huge}, {5, std::nextafter(5, 6)}, {1e300, huge}};
    spans.emplace_back();
    for (int i = 0; i <= 600; ++i) // most bounds crowd at the low end
        spans.back().push_back(std::pow(10.0, i - 300));
    for (auto const &bounds : spans) {
        auto const mngr = make_mngr("clr_style");
        void *s = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
        auto const n = static_cast<unsigned>(bounds.size()) - 1;
        vx_rng_scale_set_size(s, n);
        vx_rng_scale_set_min_value(s, bounds.front());
        vx_rng_scale_set_max_value(s, bounds.back());
        for (unsigned i = 0; i < n; ++i) {
            vx_rng_scale_set_min(s, i, bounds[i]);
            vx_rng_scale_set_max(s, i, bounds[i + 1]);
        }
        for (unsigned i = 0; i <= n; ++i) {
            EXPECT_EQ(vx_rng_scale_find(s, bounds[i]), i) << bounds[i];
            if (bounds[i] < inf) {
                EXPECT_EQ(vx_rng_scale_find(s, std::nextafter(bounds[i], inf)), i + 1) << bounds[i];
            }
        }
    }
}

TEST(round_digits, numbers_agree_with_their_rounding)
{
    struct
    {
        int digits;
        double value;
        wchar_t const *text;
    } const table[] = {{0, 2.5, L"3"},
                       {0, -2.5, L"-3"},
                       {0, -0.4, L"0"},
                       {2, 1234, L"1200"},
                       {-2, 0.1, L"0.10"},
                       {-2, 1e6, L"1000000.00"},
                       {-30, 0.1, L"0.1"},
                       {-30, -0.0, L"0"},
                       {-30, 1e21, L"1e+21"},
                       {-30, std::nextafter(1001.5, 0), L"1001.5"},
                       {-30, std::nextafter(0.0, -1), L"0"},
                       {-30, 1.0 / 3, L"0.3333333333333333"},
                       {10, 6e9, L"10000000000"},
                       {-10, 0.5, L"0.5000000000"},
                       {11, 1.006, L"1.01"},
                       {-3, 1.0005, L"1.001"},
                       {-1, 1e300, nullptr}};
    for (auto const &t : table) {
        std::wstring const text =
            text_from([&](Ivx_string_adp *adp) { vx_round_digits_format_number(t.digits, t.value, adp); });
        if (t.text) {
            EXPECT_EQ(text, t.text) << t.digits << " " << t.value;
        } else {
            EXPECT_EQ(text.size(), 303u) << "a number too large to round keeps its digits";
        }
    }
}

// ---- gradients
void *scale_with_ends(owned_mngr const &mngr, unsigned size, Tvx_color first, Tvx_color last)
{
    void *s = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    vx_val_scale_set_size(s, size);
    vx_stl_prm_set_color(val_prm(s, 0), false, first);
    vx_stl_prm_set_color(val_prm(s, size - 1), false, last);
    return s;
}

TEST(gradient, colour_runs_in_even_steps_and_keeps_opacity)
{
    auto const mngr = make_mngr("pnt_style");
    void *s = scale_with_ends(mngr, 3, vx_clr_init_rgb(0, 0, 0), vx_clr_init_rgb(255, 255, 255));
    vx_stl_prm_set_color(val_prm(s, 1), false, vx_clr_init_rgba(1, 2, 3, 40));
    vx_val_scale_clr_gradient(s, 0, 2, false);
    // The grey of half the lightness: 0.5 cubed is the linear light, 0.125, which sRGB encodes as 99.
    EXPECT_EQ(vx_stl_prm_get_color(val_prm(s, 1), false), vx_clr_init_rgba(99, 99, 99, 40));
    EXPECT_EQ(vx_stl_prm_get_color(val_prm(s, 0), false), vx_clr_init_rgb(0, 0, 0));
    EXPECT_EQ(vx_stl_prm_get_color(val_prm(s, 2), false), vx_clr_init_rgb(255, 255, 255));
}

TEST(gradient, hue_takes_the_short_way_and_leaves_greys_alone)
{
    auto const mngr = make_mngr("pnt_style");
    auto const red = vx_clr_init_rgb(255, 0, 0);
    void *s = scale_with_ends(mngr, 4, red, vx_clr_init_rgb(255, 0, 255));
    vx_stl_prm_set_color(val_prm(s, 1), false, vx_clr_init_rgb(120, 120, 120));
    vx_stl_prm_set_color(val_prm(s, 2), false, vx_clr_init_rgb(40, 160, 40));
    vx_val_scale_hue_gradient(s, 0, 3, false);
    EXPECT_EQ(vx_stl_prm_get_color(val_prm(s, 1), false), vx_clr_init_rgb(120, 120, 120));
    Tvx_color const c = vx_stl_prm_get_color(val_prm(s, 2), false);
    EXPECT_TRUE(c.r > c.g && c.b > c.g) << "between red and magenta, not through green";
}

TEST(gradient, opacity_and_size_are_linear_in_either_order_of_the_ends)
{
    auto const mngr = make_mngr("pln_style");
    void *s = scale_with_ends(mngr, 5, vx_clr_init_rgba(9, 9, 9, 0), vx_clr_init_rgba(7, 7, 7, 200));
    vx_stl_prm_set_size(val_prm(s, 0), false, 1);
    vx_stl_prm_set_size(val_prm(s, 4), false, 3);
    vx_val_scale_transparency_gradient(s, 4, 0, false);
    vx_val_scale_size_gradient(s, 4, 0, false);
    for (unsigned i = 1; i < 4; ++i) {
        EXPECT_EQ(vx_stl_prm_get_color(val_prm(s, i), false).a, 50 * i);
        EXPECT_DOUBLE_EQ(vx_stl_prm_get_size(val_prm(s, i), false), 1 + 0.5 * i);
        EXPECT_EQ(vx_stl_prm_get_size(val_prm(s, i), true), vx_stl_prm_get_size(val_prm(s, 0), true));
    }
}

TEST(gradient, ends_outside_and_next_to_each_other_change_nothing)
{
    auto const mngr = make_mngr("pgn_style");
    void *val = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    void *rng = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    using gradient_fn = void (*)(void *, unsigned, unsigned, bool);
    gradient_fn const val_fns[] = {&vx_val_scale_clr_gradient, &vx_val_scale_hue_gradient,
                                   &vx_val_scale_transparency_gradient, &vx_val_scale_size_gradient};
    gradient_fn const rng_fns[] = {&vx_rng_scale_clr_gradient, &vx_rng_scale_hue_gradient,
                                   &vx_rng_scale_transparency_gradient, &vx_rng_scale_size_gradient};
    unsigned const none = static_cast<unsigned>(-1);
    for (unsigned size : {0u, 1u, 3u}) {
        vx_val_scale_set_size(val, size);
        vx_rng_scale_set_size(rng, size);
        for (unsigned i = 0; i < size; ++i)
            vx_stl_prm_set_color(val_prm(val, i), false, vx_clr_init_rgba(int(50 * i), 3, 4, int(60 * i)));
        for (unsigned i = 0; i < size + 3; ++i)
            vx_stl_prm_set_color(rng_row_prm(rng, i), false,
                                 vx_clr_init_rgba(int(40 * i), 3, 4, int(50 * i)));
        owned_mngr const before(vx_stl_mngr_clone(mngr.get()));
        for (auto const &[a, b] :
             {std::pair{0u, none}, {none, none}, {0u, size}, {size, size + 1}, {0u, 0u}, {0u, 1u}})
            for (auto fn : val_fns)
                fn(val, a, b, false);
        for (auto const &[a, b] :
             {std::pair{0u, none}, {0u, size + 2}, {size + 1, size + 1}, {size, size + 1}})
            for (auto fn : rng_fns)
                fn(rng, a, b, false);
        EXPECT_TRUE(vx_stl_mngr_equal(mngr.get(), before.get())) << size;
    }
}

TEST(gradient, a_range_put_into_an_empty_scale_lies_between_the_end_entries)
{
    auto const mngr = make_mngr("pnt_style");
    void *s = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    vx_stl_prm_set_color(rng_row_prm(s, 0), false, vx_clr_init_rgb(0, 0, 0));
    vx_stl_prm_set_color(rng_row_prm(s, 1), false, vx_clr_init_rgb(255, 255, 255));
    vx_stl_prm_set_size(rng_row_prm(s, 0), false, 1);
    vx_stl_prm_set_size(rng_row_prm(s, 1), false, 2);
    EXPECT_EQ(vx_rng_scale_ins(s, 0), 0u);
    vx_rng_scale_clr_gradient(s, 0, 2, false);
    vx_rng_scale_hue_gradient(s, 0, 2, false);
    vx_rng_scale_transparency_gradient(s, 0, 2, false);
    vx_rng_scale_size_gradient(s, 0, 2, false);
    EXPECT_EQ(vx_stl_prm_get_color(rng_row_prm(s, 1), false), vx_clr_init_rgb(99, 99, 99));
    EXPECT_DOUBLE_EQ(vx_stl_prm_get_size(rng_row_prm(s, 1), false), 1.5);
}

TEST(scales, styles_and_visibility_are_copied_by_entry)
{
    auto const mngr = make_mngr("pnt_style");
    void *val = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    void *rng = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    vx_val_scale_set_size(val, 2);
    vx_rng_scale_set_size(rng, 1);
    auto const red = vx_clr_init_rgb(255, 0, 0);
    owned_prm const prm(vx_stl_prm_create("pnt_style"));
    Tvx_color const plain = vx_stl_prm_get_color(prm.get(), false);
    vx_stl_prm_set_color(prm.get(), true, red);
    vx_val_scale_set_stl_prm(val, 1, prm.get(), true);
    EXPECT_EQ(vx_stl_prm_get_color(val_prm(val, 1), true), red);
    EXPECT_EQ(vx_stl_prm_get_color(val_prm(val, 1), false), plain);
    vx_rng_scale_set_min_style_prm(rng, prm.get(), true);
    EXPECT_EQ(vx_stl_prm_get_color(rng_row_prm(rng, 0), true), red);
    EXPECT_NE(vx_stl_prm_get_color(rng_row_prm(rng, 2), true), red);
    vx_scale_prm_set_visible(vx_val_scale_get_scale_prm_ptr(val, 1), false);
    vx_scale_prm_assign(vx_rng_scale_get_other_prm_ptr(rng), vx_val_scale_get_scale_prm_ptr(val, 1));
    EXPECT_FALSE(vx_scale_prm_get_visible(vx_rng_scale_get_other_prm_ptr(rng)));
    EXPECT_EQ(vx_stl_prm_get_color(rng_row_prm(rng, 3), true), red);
    owned_prm const line(vx_stl_prm_create("pln_style"));
    vx_val_scale_set_stl_prm(val, 0, line.get(), false);
    EXPECT_STREQ(vx_stl_prm_get_style_type(val_prm(val, 0)), "pnt_style");
}

TEST(scales, opacity_points_are_a_curve)
{
    auto const mngr = make_mngr("clr_style");
    void *s = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    double const good[] = {0, 0.25, 1};
    double const opacity[] = {0, 0.5, 1};
    EXPECT_TRUE(vx_rng_scale_set_opacity_pts(s, good, opacity, 3));
    double const late[] = {0.1, 0.25, 1};
    double const back[] = {0, 0, 1};
    double const wild[] = {0, 1.5, 1};
    EXPECT_FALSE(vx_rng_scale_set_opacity_pts(s, late, opacity, 3));
    EXPECT_FALSE(vx_rng_scale_set_opacity_pts(s, back, opacity, 3));
    EXPECT_FALSE(vx_rng_scale_set_opacity_pts(s, good, wild, 3));
    EXPECT_FALSE(vx_rng_scale_set_opacity_pts(s, good, opacity, 1));
    EXPECT_EQ(vx_rng_scale_get_opacity_pts_size(s), 3u);
    double x = -1;
    double o = -1;
    vx_rng_scale_get_opacity_pt(s, 1, &x, &o);
    EXPECT_EQ(x, 0.25);
    EXPECT_EQ(o, 0.5);
    vx_rng_scale_init_opacity_pts(s);
    EXPECT_EQ(vx_rng_scale_get_opacity_pts_size(s), 2u);
}
} // namespace
