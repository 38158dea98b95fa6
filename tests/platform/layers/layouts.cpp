#include "platform/base/owned.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_prj.h"
#include "platform/styles/vx_style.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
using layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_inf = std::numeric_limits<double>::infinity();

Tvx_layout_writing const c_writing{{}, 7, vx_clr_init_rgb(1, 2, 3), 1, 0};
Tvx_layout_scale_bar const c_bar{c_layout_bar_ticks, c_layout_unit_nmi, 3, 2.5, 4};
Tvx_layout_north_arrow const c_arrow{c_layout_arrow_rose, -30, false};
Tvx_layout_legend const c_legend{L"Key", 2, 10, 6, 0, {{true, L"a", false}, {}}};
Tvx_layout_table const c_table{20, {L"NAME", L"AREA"}};

/// Changes everything that an element has, wherever the layer has it.
void change(Ivx_layer *l)
{
    vx_layout_lr2d_set_box(l, {0, 0, 50, 40});
    vx_layout_lr2d_set_writing(l, c_writing);
    vx_pgn_style_set_pnt_visible(vx_layout_lr2d_get_pgn_style_ptr(l), true);
    vx_layout_scene_frame_lr2d_set_scale(l, 500, 0.5);
    vx_layout_text_lr2d_set_wtext(l, L"два\nlines");
    vx_layout_scale_bar_lr2d_set(l, c_bar);
    vx_layout_north_arrow_lr2d_set(l, c_arrow);
    vx_layout_legend_lr2d_set(l, c_legend);
    vx_layout_image_lr2d_set_keep_ratio(l, false);
    vx_layout_table_lr2d_set(l, c_table);
}

/// Which of them the layer has, by number.
std::string changes(Ivx_layer *l)
{
    double scale = 0;
    vx_layout_scene_frame_lr2d_get_scale(l, nullptr, &scale);
    std::wstring text;
    vx_layout_text_lr2d_get_wtext(l, Tvx_std_wstring_adapter(text));
    bool const all[] = {vx_layout_lr2d_get_box(l) == Tvx_box_d2{0, 0, 50, 40},
                        vx_layout_lr2d_get_writing(l) == c_writing,
                        vx_pgn_style_get_pnt_visible(vx_layout_lr2d_get_pgn_style_ptr(l)),
                        scale == 0.5,
                        text == L"два\nlines",
                        vx_layout_scale_bar_lr2d_get(l) == c_bar,
                        vx_layout_north_arrow_lr2d_get(l) == c_arrow,
                        vx_layout_legend_lr2d_get(l) == c_legend,
                        !vx_layout_image_lr2d_get_keep_ratio(l),
                        vx_layout_table_lr2d_get(l) == c_table};
    std::string numbers;
    for (std::size_t i = 0; i < std::size(all); ++i)
        if (all[i])
            numbers += static_cast<char>('0' + i);
    return numbers;
}

void expect_box(Tvx_box_d2 const &wanted, Tvx_box_d2 const &got)
{
    for (auto const side : {&Tvx_box_d2::min_x, &Tvx_box_d2::min_y, &Tvx_box_d2::max_x, &Tvx_box_d2::max_y})
        EXPECT_NEAR(wanted.*side, got.*side, 1e-6);
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
        {c_lr_key_rtr, false, false, ""},
        {"a key of nobody", false, false, ""},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.key);
        layer const l(vx_lr2d_create(c.key));
        EXPECT_EQ(*c.own != '\0', vx_layout_lr2d_is(l.get()));
        void *const style = vx_layout_lr2d_get_pgn_style_ptr(l.get());
        EXPECT_EQ(c.filled, vx_pgn_style_get_pgn_visible(style));
        EXPECT_EQ(c.outlined, vx_pgn_style_get_pln_visible(style));
        EXPECT_EQ("", changes(l.get()));
        change(l.get());
        EXPECT_EQ(c.own, changes(l.get()));
        EXPECT_EQ(c.own, changes(layer(vx_lr2d_clone(l.get())).get()));
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
    layer const table(vx_lr2d_create(c_lr_key_layout_table));
    vx_layout_table_lr2d_set(table.get(), {0, std::vector<std::wstring>(c_layout_most_items + 1)});
    EXPECT_EQ(c_layout_most_items, vx_layout_table_lr2d_get(table.get()).fields.size());
    layer const frame(vx_lr2d_create(c_lr_key_layout_scene_frame));
    vx_layout_lr2d_set_box(frame.get(), {0, 0, 1, 1});
    for (double const wrong : {0.0, -1.0, c_nan, c_inf})
        vx_layout_scene_frame_lr2d_set_scale(frame.get(), wrong, wrong);
    vx_layout_scene_frame_lr2d_set_center(frame.get(), {1, c_nan});
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
        wchar_t const *shown;
        bool izotropic, is_degree;
        double metres, scale_x, scale_y;
        Tvx_pnt_d2 center;
        double width, height; ///< of the world in a frame of 100 by 50 mm
    } const cases[] = {
        {L"map", true, false, 1, 1000, 7, {10, 20}, 100, 50},
        {L"map", true, false, 0.5, 1000, 7, {0, 0}, 200, 100},
        {L"map", false, false, 1, 1000, 500, {0, 0}, 100, 25},
        {L"map", true, true, 1, c_degree * 10, 7, {0, 60}, 2, 1},
        {L"map", false, true, 1, c_degree * 10, c_degree * 10, {0, 60}, 2, 0.5},
        {L"gone", false, false, 9, 1000, 7, {0, 0}, 100, 50},
    };
    for (int number = 0; auto const &c : cases) {
        SCOPED_TRACE(number++);
        vx_scn_2d_set_izotropic(map, c.izotropic);
        vx_scn_2d_set_unit(map, c.is_degree, c.metres);
        layer const frame(vx_lr2d_create(c_lr_key_layout_scene_frame));
        vx_layout_lr2d_set_box(frame.get(), {10, 10, 110, 60});
        vx_lr2d_set_wfilename(frame.get(), c.shown);
        vx_layout_scene_frame_lr2d_set_scale(frame.get(), c.scale_x, c.scale_y);
        vx_layout_scene_frame_lr2d_set_center(frame.get(), c.center);
        auto const &[x, y] = c.center;
        Tvx_box_d2 const world = {x - c.width / 2, y - c.height / 2, x + c.width / 2, y + c.height / 2};
        expect_box(world, vx_layout_scene_frame_lr2d_get_world(frame.get()));
        bool const two_scales = vx_layout_scene_frame_lr2d_get_scene(frame.get()) && !c.izotropic;
        for (Tvx_box_d2 const &part :
             {Tvx_box_d2{world.min_x, y - c.height / 8, world.max_x, y + c.height / 8},
              Tvx_box_d2{x - c.width / 8, world.min_y, x + c.width / 8, world.max_y}}) {
            vx_layout_scene_frame_lr2d_set_scale(frame.get(), 1, 1);
            vx_layout_scene_frame_lr2d_fit(frame.get(), part);
            expect_box(two_scales ? part : world, vx_layout_scene_frame_lr2d_get_world(frame.get()));
        }
        for (Tvx_box_d2 const &wrong : {Tvx_box_d2{}, Tvx_box_d2{0, 0, c_inf, 1}})
            vx_layout_scene_frame_lr2d_fit(frame.get(), wrong);
        EXPECT_EQ(c.center, vx_layout_scene_frame_lr2d_get_center(frame.get()));
    }
    vx_scn_2d_set_unit(map, false, 3);
    vx_scn_2d_set_unit(map, true, c_nan);
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const copy(vx_scn_2d_clone(map));
    EXPECT_NEAR(c_degree * 0.0174524, vx_scn_2d_get_unit_metres(copy.get(), {0, 90}), 1) << "at a pole";
    vx_scn_2d_set_unit(copy.get(), false, -1);
    EXPECT_EQ(3, vx_scn_2d_get_unit_metres(copy.get(), {}));
    vx_scns_2d_erase(own, 0);
}

TEST(layouts, find_frames_by_name_and_scenes_in_the_project)
{
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const layout(vx_scn_2d_create(L""));
    auto const add = [&](char const *key, wchar_t const *name) {
        auto *const l = vx_lr2d_create(key);
        vx_lr2d_set_wcaption(l, name);
        EXPECT_TRUE(vx_scn_2d_insert(layout.get(), 100, l));
        return l;
    };
    add(c_lr_key_layout_text, L"a");
    EXPECT_EQ(nullptr, vx_layout_get_page(layout.get()));
    EXPECT_EQ(nullptr, vx_layout_find_frame_w(layout.get(), nullptr));
    auto *const page = add(c_lr_key_layout_page, L"");
    add(c_lr_key_layout_page, L"second");
    EXPECT_EQ(page, vx_layout_get_page(layout.get()));
    auto *const frame = add(c_lr_key_layout_scene_frame, L"a");
    EXPECT_EQ(frame, vx_layout_find_frame_w(layout.get(), L"a"));
    EXPECT_EQ(frame, vx_layout_find_frame_w(layout.get(), L"")) << "the only one";
    EXPECT_EQ(nullptr, vx_layout_find_frame_w(layout.get(), L"b"));
    add(c_lr_key_layout_scene_frame, L"b");
    EXPECT_EQ(nullptr, vx_layout_find_frame_w(layout.get(), L"")) << "one of two";

    auto *const project = vx_prj_get_instance();
    vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy> const first(vx_scns_2d_create()), second(vx_scns_2d_create());
    auto const find = [&](wchar_t const *name) { return vx_prj_find_scn_2d_w(project, name); };
    vx_scns_2d_add(second.get(), L"");
    auto *const b2 = vx_scns_2d_add(second.get(), L"b");
    auto *const b1 = vx_scns_2d_add(first.get(), L"b");
    for (auto *list : {first.get(), second.get(), first.get(), static_cast<Ivx_scns_2d *>(nullptr)})
        vx_prj_add_plugin_scns_2d(project, list);
    EXPECT_EQ(2, vx_prj_get_plugin_scns_2d_count(project));
    EXPECT_EQ(nullptr, vx_prj_get_plugin_scns_2d_ptr(project, 2));
    EXPECT_EQ(b1, find(L"b"));
    EXPECT_EQ(nullptr, find(L""));
    vx_prj_remove_plugin_scns_2d(project, first.get());
    EXPECT_EQ(b2, find(L"b"));
    auto *const own = vx_scns_2d_add(vx_prj_get_scns_2d_ptr(project), L"b");
    EXPECT_EQ(own, find(L"b"));
    vx_prj_remove_plugin_scns_2d(project, second.get());
    vx_scns_2d_erase(vx_prj_get_scns_2d_ptr(project), 0);
    EXPECT_EQ(nullptr, find(L"b"));
    EXPECT_EQ(nullptr, vx_prj_find_scn_2d_w(nullptr, L"b"));
}
