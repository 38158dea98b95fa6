#include "platform/base/owned.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_prj.h"
#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_style.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
using layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
using scene = vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy>;
using scenes = vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy>;
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_inf = std::numeric_limits<double>::infinity();

std::wstring text_of(Ivx_layer const *l)
{
    std::wstring text;
    vx_layout_text_lr2d_get_wtext(l, Tvx_std_wstring_adapter(text));
    return text;
}

/// Everything that an element has, changed wherever the layer has it.
void change(Ivx_layer *l)
{
    vx_layout_lr2d_set_box(l, {0, 0, 50, 40});
    vx_layout_lr2d_set_writing(l, {{}, 7, vx_clr_init_rgb(1, 2, 3), 1, 0});
    vx_pgn_style_set_pnt_visible(vx_layout_lr2d_get_pgn_style_ptr(l), true);
    vx_layout_scene_frame_lr2d_set_scale(l, 500, 0.5);
    vx_layout_scene_frame_lr2d_set_center(l, {3, 4});
    vx_layout_text_lr2d_set_wtext(l, L"два\nlines");
    vx_layout_text_lr2d_set_angle(l, 90);
    vx_layout_scale_bar_lr2d_set(l, {c_layout_bar_ticks, c_layout_unit_nmi, 3, 2.5, 4});
    vx_layout_north_arrow_lr2d_set(l, {c_layout_arrow_rose, -30, false});
    vx_layout_legend_lr2d_set(l, {L"Key", 2, 10, 6, 0, {{true, L"a", false}, {false, L"b", true}}});
    vx_layout_image_lr2d_set_keep_ratio(l, false);
    vx_layout_table_lr2d_set(l, {20, {L"NAME", L"AREA"}});
}

/// The numbers of the things that differ from those of a new element.
std::string changes(Ivx_layer *l)
{
    Tvx_pnt_d2 scale;
    vx_layout_scene_frame_lr2d_get_scale(l, &scale.x, &scale.y);
    bool const all[] = {
        vx_layout_lr2d_get_box(l) == Tvx_box_d2{0, 0, 50, 40},
        vx_layout_lr2d_get_writing(l) == Tvx_layout_writing{{}, 7, vx_clr_init_rgb(1, 2, 3), 1, 0},
        vx_pgn_style_get_pnt_visible(vx_layout_lr2d_get_pgn_style_ptr(l)),
        scale == Tvx_pnt_d2{500, 0.5} && vx_layout_scene_frame_lr2d_get_center(l) == Tvx_pnt_d2{3, 4},
        text_of(l) == L"два\nlines" && vx_layout_text_lr2d_get_angle(l) == 90,
        vx_layout_scale_bar_lr2d_get(l) ==
            Tvx_layout_scale_bar{c_layout_bar_ticks, c_layout_unit_nmi, 3, 2.5, 4},
        vx_layout_north_arrow_lr2d_get(l) == Tvx_layout_north_arrow{c_layout_arrow_rose, -30, false},
        vx_layout_legend_lr2d_get(l) ==
            Tvx_layout_legend{L"Key", 2, 10, 6, 0, {{true, L"a", false}, {false, L"b", true}}},
        !vx_layout_image_lr2d_get_keep_ratio(l),
        vx_layout_table_lr2d_get(l) == Tvx_layout_table{20, {L"NAME", L"AREA"}},
    };
    std::string differing;
    for (std::size_t i = 0; i < std::size(all); ++i)
        if (all[i])
            differing += static_cast<char>('0' + i);
    return differing;
}

layer make_frame(Tvx_box_d2 const &box, wchar_t const *shown)
{
    layer frame(vx_lr2d_create(c_lr_key_layout_scene_frame));
    vx_layout_lr2d_set_box(frame.get(), box);
    vx_lr2d_set_wfilename(frame.get(), shown);
    return frame;
}

void expect_box(Tvx_box_d2 const &wanted, Tvx_box_d2 const &got)
{
    EXPECT_NEAR(wanted.min_x, got.min_x, 1e-6);
    EXPECT_NEAR(wanted.min_y, got.min_y, 1e-6);
    EXPECT_NEAR(wanted.max_x, got.max_x, 1e-6);
    EXPECT_NEAR(wanted.max_y, got.max_y, 1e-6);
}
} // namespace

TEST(layouts, elements_have_what_is_theirs_and_clones_too)
{
    struct
    {
        char const *key;
        bool filled, outlined;
        char const *own;
    } const cases[] = {
        {c_lr_key_layout_page, true, false, "012"},
        {c_lr_key_layout_scene_frame, false, true, "0123"},
        {c_lr_key_layout_text, false, false, "0124"},
        {c_lr_key_layout_neatline, false, true, "012"},
        {c_lr_key_layout_legend, false, false, "0127"},
        {c_lr_key_layout_north_arrow, false, false, "0126"},
        {c_lr_key_layout_scale_bar, false, false, "0125"},
        {c_lr_key_layout_scale_text, false, false, "012"},
        {c_lr_key_layout_image, false, false, "0128"},
        {c_lr_key_layout_table, false, false, "0129"},
        {c_lr_key_layout_ole_object, false, false, "012"},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.key);
        layer const l(vx_lr2d_create(c.key));
        ASSERT_TRUE(vx_layout_lr2d_is(l.get()));
        void *const style = vx_layout_lr2d_get_pgn_style_ptr(l.get());
        EXPECT_EQ(c.filled, vx_pgn_style_get_pgn_visible(style));
        EXPECT_EQ(c.outlined, vx_pgn_style_get_pln_visible(style));
        EXPECT_EQ("", changes(l.get()));
        change(l.get());
        EXPECT_EQ(c.own, changes(l.get()));
        layer const copy(vx_lr2d_clone(l.get()));
        EXPECT_EQ(c.own, changes(copy.get()));
        EXPECT_NE(style, vx_layout_lr2d_get_pgn_style_ptr(copy.get()));
    }
    layer const page(vx_lr2d_create(c_lr_key_layout_page));
    EXPECT_EQ((Tvx_box_d2{0, 0, 210, 297}), vx_layout_lr2d_get_box(page.get()));
    for (auto const *key : {c_lr_key_rtr, c_lr_key_shp_pgn, "a key of nobody"}) {
        layer const other(vx_lr2d_create(key));
        change(other.get());
        EXPECT_FALSE(vx_layout_lr2d_is(other.get()));
        EXPECT_EQ("", changes(other.get()));
    }
    change(nullptr);
    EXPECT_EQ("", changes(nullptr));
}

TEST(layouts, what_is_out_of_range_comes_to_its_bounds)
{
    struct
    {
        char const *key;
        Tvx_box_d2 to, got;
    } const boxes[] = {
        {c_lr_key_layout_text, {5, 6, 5, 2}, {5, 6, 5.1, 6.1}},
        {c_lr_key_layout_text, {-5, 0, 1e5, 1e300}, {-5, 0, 9995, 1e4}},
        {c_lr_key_layout_text, {2e5, -1e300, 2e5 + 8, 1e300}, {1e5, -1e5, 1e5 + 8, -9e4}},
        {c_lr_key_layout_text, {0, 0, c_nan, 5}, {1, 2, 3, 4}},
        {c_lr_key_layout_text, {}, {1, 2, 3, 4}},
        {c_lr_key_layout_page, {10, 20, 110, 70}, {0, 0, 100, 50}},
    };
    for (auto const &c : boxes) {
        layer const l(vx_lr2d_create(c.key));
        vx_layout_lr2d_set_box(l.get(), {1, 2, 3, 4});
        vx_layout_lr2d_set_box(l.get(), c.to);
        Tvx_box_d2 const box = vx_layout_lr2d_get_box(l.get());
        expect_box(c.got, box);
        vx_layout_lr2d_set_box(l.get(), box);
        EXPECT_EQ(box, vx_layout_lr2d_get_box(l.get())) << "what was cut once stays";
    }
    layer const bar(vx_lr2d_create(c_lr_key_layout_scale_bar));
    vx_layout_scale_bar_lr2d_set(bar.get(), {Tvx_layout_bar_kind(9), Tvx_layout_unit(-1), 0, -3, c_inf});
    EXPECT_EQ((Tvx_layout_scale_bar{c_layout_bar_ticks, c_layout_unit_automatic, 1, 0, 2}),
              vx_layout_scale_bar_lr2d_get(bar.get()));
    vx_layout_lr2d_set_writing(bar.get(), {{}, 0, {}, -9, 9});
    EXPECT_EQ((Tvx_layout_writing{{}, 0.5, {}, -1, 1}), vx_layout_lr2d_get_writing(bar.get()));
    vx_layout_lr2d_set_writing(bar.get(), {{}, c_nan, {}, 0, 0});
    EXPECT_EQ(0.5, vx_layout_lr2d_get_writing(bar.get()).size);
    layer const legend(vx_lr2d_create(c_lr_key_layout_legend));
    vx_layout_legend_lr2d_set(legend.get(), {L"", 99, 0, 1e9, c_nan, {}});
    EXPECT_EQ((Tvx_layout_legend{L"", 20, 1, 100, 1.5, {}}), vx_layout_legend_lr2d_get(legend.get()));
    layer const table(vx_lr2d_create(c_lr_key_layout_table));
    vx_layout_table_lr2d_set(table.get(), {0, std::vector<std::wstring>(c_layout_most_items + 1)});
    EXPECT_EQ(1, vx_layout_table_lr2d_get(table.get()).rows);
    EXPECT_EQ(c_layout_most_items, vx_layout_table_lr2d_get(table.get()).fields.size());
    auto const frame = make_frame({0, 0, 1, 1}, L"");
    for (double const wrong : {0.0, -1.0, c_nan, c_inf})
        vx_layout_scene_frame_lr2d_set_scale(frame.get(), wrong, wrong);
    vx_layout_scene_frame_lr2d_set_center(frame.get(), {1, c_nan});
    EXPECT_EQ(Tvx_pnt_d2(), vx_layout_scene_frame_lr2d_get_center(frame.get()));
    expect_box({-5, -5, 5, 5}, vx_layout_scene_frame_lr2d_get_world(frame.get()));
    vx_layout_scene_frame_lr2d_set_center(frame.get(), {1e300, 0});
    EXPECT_TRUE(vx_layout_scene_frame_lr2d_get_world(frame.get()).is_empty()) << "a place without room";
}

TEST(layouts, frames_show_their_part_of_the_map)
{
    auto *const own = vx_prj_get_scns_2d_ptr(vx_prj_get_instance());
    auto *const map = vx_scns_2d_add(own, L"map");
    constexpr double c_degree = 111195.08;
    struct
    {
        char const *what;
        wchar_t const *shown;
        bool izotropic, is_degree;
        double metres, scale_x, scale_y;
        Tvx_pnt_d2 center;
        double width, height; ///< of the world in a frame of 100 by 50 mm
    } const cases[] = {
        {"metres", L"map", true, false, 1, 1000, 7, {10, 20}, 100, 50},
        {"feet", L"map", true, false, 0.5, 1000, 7, {0, 0}, 200, 100},
        {"two scales", L"map", false, false, 1, 1000, 500, {0, 0}, 100, 25},
        {"degrees", L"map", true, true, 1, c_degree * 10, 7, {0, 60}, 2, 1},
        {"degrees, two scales", L"map", false, true, 1, c_degree * 10, c_degree * 10, {0, 60}, 2, 0.5},
        {"no such scene", L"gone", false, false, 9, 1000, 7, {0, 0}, 100, 50},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.what);
        vx_scn_2d_set_izotropic(map, c.izotropic);
        vx_scn_2d_set_unit(map, c.is_degree, c.metres);
        auto const frame = make_frame({10, 10, 110, 60}, c.shown);
        EXPECT_EQ(c.shown[0] == L'm' ? map : nullptr, vx_layout_scene_frame_lr2d_get_scene(frame.get()));
        vx_layout_scene_frame_lr2d_set_scale(frame.get(), c.scale_x, c.scale_y);
        vx_layout_scene_frame_lr2d_set_center(frame.get(), c.center);
        Tvx_box_d2 const world = vx_layout_scene_frame_lr2d_get_world(frame.get());
        expect_box({c.center.x - c.width / 2, c.center.y - c.height / 2, c.center.x + c.width / 2,
                    c.center.y + c.height / 2},
                   world);
        bool const two_scales = c.shown[0] == L'm' && !c.izotropic;
        Tvx_box_d2 low = world, narrow = world;
        low.min_y = c.center.y - c.height / 8;
        low.max_y = c.center.y + c.height / 8;
        narrow.min_x = c.center.x - c.width / 8;
        narrow.max_x = c.center.x + c.width / 8;
        for (Tvx_box_d2 const &part : {low, narrow}) {
            vx_layout_scene_frame_lr2d_set_scale(frame.get(), 1, 1);
            vx_layout_scene_frame_lr2d_fit(frame.get(), part);
            expect_box(two_scales ? part : world, vx_layout_scene_frame_lr2d_get_world(frame.get()));
        }
        vx_layout_scene_frame_lr2d_fit(frame.get(), {});
        vx_layout_scene_frame_lr2d_fit(frame.get(), {0, 0, c_inf, 1});
        vx_layout_scene_frame_lr2d_fit(frame.get(), {-1e308, 0, 1e308, 1e308});
        vx_layout_scene_frame_lr2d_fit(frame.get(), {5, 60, 5, 60});
        EXPECT_EQ((Tvx_pnt_d2{5, 60}), vx_layout_scene_frame_lr2d_get_center(frame.get()));
        double x = 0;
        vx_layout_scene_frame_lr2d_get_scale(frame.get(), &x, nullptr);
        EXPECT_LE(x, c_layout_greatest_scale);
    }
    vx_scn_2d_set_unit(map, false, 3);
    vx_scn_2d_set_unit(map, true, c_nan);
    EXPECT_NEAR(c_degree * 0.0174524, vx_scn_2d_get_unit_metres(map, {0, 90}), 1) << "at a pole";
    scene const copy(vx_scn_2d_clone(map));
    EXPECT_TRUE(vx_scn_2d_get_unit_is_degree(copy.get()));
    EXPECT_GT(vx_scn_2d_get_unit_metres(copy.get(), {0, -1e300}), 1000);
    vx_scn_2d_set_unit(copy.get(), false, -1);
    EXPECT_EQ(3, vx_scn_2d_get_unit_metres(copy.get(), {}));
    EXPECT_EQ(1, vx_scn_2d_get_unit_metres(nullptr, {}));
    vx_scns_2d_erase(own, 0);
}

TEST(layouts, find_frames_and_their_page)
{
    scene const layout(vx_scn_2d_create(L""));
    auto const add = [&](char const *key, wchar_t const *name) {
        auto *const l = vx_lr2d_create(key);
        vx_lr2d_set_wcaption(l, name);
        EXPECT_TRUE(vx_scn_2d_insert(layout.get(), 100, l));
        return l;
    };
    auto const find = [&](wchar_t const *name) { return vx_layout_find_frame_w(layout.get(), name); };
    add(c_lr_key_layout_text, L"a");
    EXPECT_EQ(nullptr, vx_layout_get_page(layout.get()));
    EXPECT_EQ(nullptr, find(nullptr));
    auto *const page = add(c_lr_key_layout_page, L"");
    add(c_lr_key_layout_page, L"second");
    EXPECT_EQ(page, vx_layout_get_page(layout.get()));
    auto *const a = add(c_lr_key_layout_scene_frame, L"a");
    EXPECT_EQ(a, find(L"a"));
    EXPECT_EQ(a, find(L"")) << "the only one";
    EXPECT_EQ(nullptr, find(L"b"));
    auto *const b = add(c_lr_key_layout_scene_frame, L"b");
    EXPECT_EQ(b, find(L"b"));
    EXPECT_EQ(nullptr, find(L"")) << "one of two";
    EXPECT_EQ(nullptr, vx_layout_get_page(nullptr));
    EXPECT_EQ(nullptr, vx_layout_find_frame_w(nullptr, L"a"));
}

TEST(project, finds_scenes_in_its_own_list_before_those_of_plug_ins)
{
    auto *const project = vx_prj_get_instance();
    ASSERT_EQ(project, vx_prj_get_instance());
    auto *const own = vx_prj_get_scns_2d_ptr(project);
    ASSERT_NE(own, vx_prj_get_layouts_data_ptr(project));
    scenes const first(vx_scns_2d_create()), second(vx_scns_2d_create());
    auto *const in_first = vx_scns_2d_add(first.get(), L"b");
    auto *const in_second = vx_scns_2d_add(second.get(), L"c");
    vx_scns_2d_add(second.get(), L"b");
    vx_scns_2d_add(first.get(), L"");
    auto *const a = vx_scns_2d_add(own, L"a");
    auto const find = [&](wchar_t const *name) { return vx_prj_find_scn_2d_w(project, name); };
    EXPECT_EQ(nullptr, find(L"b"));
    for (auto *list : {first.get(), second.get(), first.get(), static_cast<Ivx_scns_2d *>(nullptr)})
        vx_prj_add_plugin_scns_2d(project, list);
    EXPECT_EQ(2, vx_prj_get_plugin_scns_2d_count(project));
    EXPECT_EQ(second.get(), vx_prj_get_plugin_scns_2d_ptr(project, 1));
    for (int const outside : {-1, 2})
        EXPECT_EQ(nullptr, vx_prj_get_plugin_scns_2d_ptr(project, outside));
    EXPECT_EQ(a, find(L"a"));
    EXPECT_EQ(in_first, find(L"b"));
    EXPECT_EQ(in_second, find(L"c"));
    for (auto const *name : {L"", L"d", static_cast<wchar_t const *>(nullptr)})
        EXPECT_EQ(nullptr, find(name));
    auto *const b = vx_scns_2d_add(own, L"b");
    EXPECT_EQ(b, find(L"b"));
    vx_prj_remove_plugin_scns_2d(project, first.get());
    vx_prj_remove_plugin_scns_2d(project, second.get());
    EXPECT_EQ(nullptr, find(L"c"));
    while (vx_scns_2d_get_count(own) > 0)
        vx_scns_2d_erase(own, 0);
    EXPECT_EQ(nullptr, vx_prj_get_scns_2d_ptr(nullptr));
    EXPECT_EQ(nullptr, vx_prj_get_layouts_data_ptr(nullptr));
    EXPECT_EQ(nullptr, vx_prj_find_scn_2d_w(nullptr, L"a"));
    EXPECT_EQ(0, vx_prj_get_plugin_scns_2d_count(nullptr));
}
