#include "support.h"

#include "platform/basic/vx_wstrings.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_style_lib.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {
constexpr Tvx_color c_navy = vx_clr_init_rgba(0, 0, 128, 200);
constexpr Tvx_color c_lemon = vx_clr_init_rgb(255, 250, 160);

int loads = 0;
bool loader_result = true;

/// Two libraries. The first has the point styles 7 in two versions and 9, the polygon style 7, and a tree.
bool fill_libs(void *libs)
{
    ++loads;
    void *city = vx_style_libs_add_lib(libs, L"City");
    vx_style_libs_add_lib(libs, L"Länder");
    struct
    {
        int index, version;
        double size;
    } const points[] = {{7, 2, 4}, {7, 1, 3}, {9, 1, 5}};
    for (auto const &p : points) {
        void *idx = vx_style_list_add_idx_style(vx_style_lib_get_pnt_list_ptr(city), p.index, p.version);
        void *bpnt = vx_pnt_style_get_bpnt_style_ptr(vx_idx_pnt_style_get_pnt_style_ptr(idx));
        vx_bpnt_style_set_size(bpnt, p.size);
        vx_bpnt_style_set_color(bpnt, p.index == 7 ? c_navy : c_lemon);
    }
    vx_style_list_add_idx_style(vx_style_lib_get_pgn_list_ptr(city), 7, 1);
    void *root = vx_style_item_get_style_items_ptr(vx_style_lib_get_root_item_ptr(city));
    void *water = vx_style_item_get_style_items_ptr(vx_style_items_add(root, L"Water", -1, -1));
    vx_style_items_add(water, L"ÜBERLAUF 7", 7, 1);
    vx_style_items_add(root, L"Waterfall", 9, 1);
    return loader_result;
}

struct with_libs
{
    with_libs(bool result = true)
    {
        loads = 0;
        loader_result = result;
        vx_global_lib_styles_set_loader(&fill_libs);
    }
    ~with_libs() { vx_global_lib_styles_set_loader(nullptr); }
};

void *first_lib()
{
    return vx_style_libs_get_lib_ptr(vx_global_lib_styles_get_libs(), 0);
}

double size_of(void *pnt_style)
{
    return vx_bpnt_style_get_size(vx_pnt_style_get_bpnt_style_ptr(pnt_style));
}

TEST(style_lib, is_read_once_when_first_asked_for_and_tried_again_only_by_load)
{
    {
        with_libs const libs;
        EXPECT_EQ(loads, 0);
        EXPECT_TRUE(vx_global_lib_styles_exists());
        void *const city = first_lib();
        EXPECT_TRUE(vx_global_lib_styles_load());
        EXPECT_EQ(first_lib(), city);
        EXPECT_EQ(loads, 1);
        vx::owned<void, &vx_wstrings_destroy> const names(vx_global_lib_styles_create_name_list());
        ASSERT_EQ(vx_wstrings_get_size(names.get()), 2u);
        EXPECT_STREQ(vx_wstrings_get_str(names.get(), 1), L"Länder");
    }
    with_libs const failing(false);
    EXPECT_FALSE(vx_global_lib_styles_exists());
    EXPECT_FALSE(vx_global_lib_styles_exists());
    EXPECT_EQ(vx_style_libs_get_size(vx_global_lib_styles_get_libs()), 0u) << "a half-read list is no list";
    EXPECT_EQ(loads, 1);
    EXPECT_FALSE(vx_global_lib_styles_load());
    loader_result = true;
    EXPECT_TRUE(vx_global_lib_styles_load());
    EXPECT_EQ(loads, 3);
}

TEST(style_lib, steps_of_a_gradient_run_from_light_to_dark_and_keep_the_rest)
{
    with_libs const libs;
    vx::owned<void, &vx_pnt_style_destroy> const pnt(vx_pnt_style_create());
    auto const step = [&](int code, unsigned position, unsigned count) {
        EXPECT_TRUE(vx_global_lib_styles_get_spec_pnt_gradient(0, code, position, count, pnt.get()));
        return vx_bpnt_style_get_color(vx_pnt_style_get_bpnt_style_ptr(pnt.get()));
    };
    EXPECT_EQ(step(7, 0, 1), c_navy);
    EXPECT_EQ(step(7, 4, 5), c_navy) << "a dark colour ends as it is";
    EXPECT_EQ(step(9, 0, 5), c_lemon) << "a light one begins so";
    EXPECT_EQ(step(7, 9, 5), step(7, 4, 5));
    EXPECT_EQ(step(7, 2, 5).a, 200);
    EXPECT_EQ(size_of(pnt.get()), 4);
}

/// OKLab, by its definition.
std::array<double, 3> lab_of(Tvx_color c)
{
    auto const linear = [](int v) {
        double const x = v / 255.0;
        return x <= 0.04045 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4);
    };
    double const r = linear(c.r), g = linear(c.g), b = linear(c.b);
    double const l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    double const m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    double const s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

TEST(style_lib, steps_of_any_colour_can_be_told_apart)
{
    vx_global_lib_styles_set_loader([](void *libs) {
        void *lines = vx_style_lib_get_pln_list_ptr(vx_style_libs_add_lib(libs, L"Colours"));
        for (int i = 0; i < 216; ++i) {
            void *style = vx_idx_pln_style_get_pln_style_ptr(vx_style_list_add_idx_style(lines, i, 1));
            vx_bpln_style_set_color(vx_pln_style_get_bpln_style_ptr(style),
                                    vx_clr_init_rgb(i / 36 * 51, i / 6 % 6 * 51, i % 6 * 51));
        }
        return true;
    });
    vx::owned<void, &vx_pln_style_destroy> const pln(vx_pln_style_create());
    for (int code = 0; code < 216; ++code)
        for (unsigned const count : {2u, 5u, 20u}) {
            std::array<double, 3> last{};
            double even = 0;
            for (unsigned i = 0; i < count; ++i) {
                ASSERT_TRUE(vx_global_lib_styles_get_spec_pln_gradient(0, code, i, count, pln.get()));
                auto const lab = lab_of(vx_bpln_style_get_color(vx_pln_style_get_bpln_style_ptr(pln.get())));
                double const step = std::hypot(lab[0] - last[0], lab[1] - last[1], lab[2] - last[2]);
                if (i > 0) {
                    EXPECT_LT(lab[0], last[0]) << code << ": " << i << " of " << count;
                    EXPECT_GT(step, 0.38 / (count - 1) - 0.004) << code << ": " << i << " of " << count;
                    even = i == 1 ? step : even;
                    EXPECT_NEAR(step, even, 0.5 * even) << code << ": " << i << " of " << count;
                }
                last = lab;
            }
        }
    vx_global_lib_styles_set_loader(nullptr);
}

TEST(style_lib, text_search_walks_the_tree_without_regard_to_case)
{
    with_libs const libs;
    vx::owned<void, &vx_style_item_search_str_destroy> const search(vx_style_item_search_str_create());
    void *root = vx_style_lib_get_root_item_ptr(first_lib());
    struct
    {
        wchar_t const *text;
        std::vector<std::wstring> found;
    } const table[] = {{L"WATER", {L"Water", L"Waterfall"}},
                       {L"überl", {L"ÜBERLAUF 7"}},
                       {L"city", {L"City"}},
                       {L"", {}},
                       {L" \t", {}},
                       {L"sea", {}},
                       {L" 7 über", {L"ÜBERLAUF 7"}},
                       {L"water 7", {}},
                       {L"t", {L"City", L"Water", L"Waterfall"}}};
    for (auto const &t : table) {
        std::vector<std::wstring> found;
        for (void *item = vx_style_item_search_str_get_first(search.get(), root, t.text); item;
             item = vx_style_item_search_str_get_next(search.get()))
            found.emplace_back(vx_style_item_get_caption_w(item));
        EXPECT_EQ(found, t.found);
    }
    EXPECT_EQ(vx_style_item_search_str_get_first(search.get(), nullptr, L"t"), nullptr);
    EXPECT_EQ(vx_style_item_search_str_get_next(search.get()), nullptr);
}
} // namespace
