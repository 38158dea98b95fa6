#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/data/vx_entity.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/layers/vx_shp_lr2d.h"

#include <gtest/gtest.h>
#include <string>

namespace {
using scene = vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy>;
using scenes = vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy>;

Ivx_layer *named_layer(wchar_t const *name)
{
    auto *const layer = vx_lr2d_create(c_lr_key_rtr);
    vx_lr2d_set_wcaption(layer, name);
    return layer;
}

std::string names(Ivx_entities const *list)
{
    std::string all;
    for (int i = 0; i < vx_entities_get_count(list); ++i)
        all += vx_entity_get_caption(vx_entities_get_entity(list, i));
    return all;
}

scene abcd()
{
    scene s(vx_scn_2d_create(L"scene"));
    for (auto const *name : {L"a", L"b", L"c", L"d"})
        EXPECT_TRUE(vx_scn_2d_insert(s.get(), 100, named_layer(name)));
    return s;
}
} // namespace

TEST(scene, moves_layers)
{
    struct
    {
        int from;
        int to;
        char const *names;
    } const cases[] = {{0, 3, "bcda"}, {3, 0, "dabc"},  {1, 2, "acbd"},  {2, 1, "acbd"}, {1, 1, "abcd"},
                       {0, 9, "bcda"}, {3, -9, "dabc"}, {-1, 2, "abcd"}, {4, 0, "abcd"}};
    for (auto const &c : cases) {
        auto const s = abcd();
        vx_scn_2d_move(s.get(), c.from, c.to);
        EXPECT_EQ(c.names, names(vx_scn_2d_safe_upcast(s.get()))) << c.from << " to " << c.to;
    }
}

TEST(scene, owns_its_layers)
{
    auto const s = abcd();
    auto *const b = vx_scn_2d_get_layer(s.get(), 1);
    EXPECT_FALSE(vx_scn_2d_insert(s.get(), 0, b)) << "a layer stands once";
    EXPECT_FALSE(vx_scn_2d_insert(s.get(), 0, nullptr));
    vx::owned<Ivx_layer, &vx_lr2d_destroy> const taken(vx_scn_2d_extract(s.get(), 1));
    EXPECT_EQ(b, taken.get());
    EXPECT_EQ(-1, vx_scn_2d_get_index(s.get(), b));
    EXPECT_EQ(nullptr, vx_scn_2d_extract(s.get(), 3));
    EXPECT_EQ(nullptr, vx_scn_2d_extract(s.get(), -1));
    EXPECT_TRUE(vx_scn_2d_insert(s.get(), -5, named_layer(L"x")));
    EXPECT_EQ("xacd", names(vx_scn_2d_safe_upcast(s.get())));
    vx_scn_2d_set_izotropic(s.get(), false);
    scene const copy(vx_scn_2d_clone(s.get()));
    EXPECT_EQ("xacd", names(vx_scn_2d_safe_upcast(copy.get())));
    EXPECT_NE(vx_scn_2d_get_layer(s.get(), 0), vx_scn_2d_get_layer(copy.get(), 0));
    EXPECT_FALSE(vx_scn_2d_get_izotropic(copy.get()));
}

TEST(scene, extent_is_that_of_what_is_seen)
{
    vx_test::memory_table table;
    table.features = {{{}, 1, {{{1, 2}}}}, {{}, 1, {{{3, 5}}}}};
    vx_test::memory_driver const driver(L"memory:", table);
    auto const s = abcd();
    Tvx_box_d2 box;
    EXPECT_FALSE(vx_scn_2d_get_extent(s.get(), &box));
    EXPECT_TRUE(vx_scn_2d_insert(s.get(), 0, vx_shp_lr2d_open(L"memory:", nullptr)));
    EXPECT_TRUE(vx_scn_2d_get_extent(s.get(), &box));
    EXPECT_EQ((Tvx_box_d2{1, 2, 3, 5}), box);
    vx_lr2d_set_visible(vx_scn_2d_get_layer(s.get(), 0), false);
    EXPECT_FALSE(vx_scn_2d_get_extent(s.get(), &box));
    EXPECT_TRUE(box.is_empty());
}

TEST(scenes, keep_one_active)
{
    scenes const all(vx_scns_2d_create());
    EXPECT_EQ(nullptr, vx_scns_2d_get_active_scn(all.get()));
    auto *const a = vx_scns_2d_add(all.get(), L"а");
    auto *const b = vx_scns_2d_add(all.get(), L"b");
    auto *const c = vx_scns_2d_add(all.get(), L"c");
    EXPECT_EQ("аbc", names(vx_scns_2d_safe_upcast(all.get())));
    EXPECT_EQ(all.get(), vx_scns_2d_safe_downcast(vx_scns_2d_safe_upcast(all.get())));
    EXPECT_EQ(nullptr, vx_scns_2d_safe_downcast(vx_scn_2d_safe_upcast(a)));
    EXPECT_EQ(a, vx_scns_2d_get_active_scn(all.get()));
    vx_scns_2d_set_active_scn(all.get(), b);
    vx_scns_2d_set_active_scn(all.get(), nullptr);
    vx_scns_2d_erase(all.get(), 0);
    EXPECT_EQ(b, vx_scns_2d_get_active_scn(all.get())) << "the active one stays when another goes";
    vx_scns_2d_erase(all.get(), 0);
    EXPECT_EQ(c, vx_scns_2d_get_active_scn(all.get()));
    vx_scns_2d_erase(all.get(), 7);
    vx_scns_2d_erase(all.get(), 0);
    EXPECT_EQ(nullptr, vx_scns_2d_get_active_scn(all.get()));
}

TEST(scenes, null_is_harmless)
{
    EXPECT_EQ(nullptr, vx_scn_2d_clone(nullptr));
    EXPECT_EQ(0, vx_scn_2d_get_count(nullptr));
    EXPECT_TRUE(vx_scn_2d_get_izotropic(nullptr));
    EXPECT_EQ(nullptr, vx_scn_2d_get_layer(nullptr, 0));
    EXPECT_EQ(nullptr, vx_scns_2d_add(nullptr, L""));
    EXPECT_EQ(nullptr, vx_scns_2d_get_active_scn(nullptr));
    EXPECT_EQ(0, vx_entities_get_count(nullptr));
    EXPECT_EQ(nullptr, vx_entities_get_entity(nullptr, 0));
    EXPECT_STREQ("", vx_entity_get_caption(nullptr));
    vx_scn_2d_move(nullptr, 0, 0);
    vx_scns_2d_erase(nullptr, 0);
}
