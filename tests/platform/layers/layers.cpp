#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_event_channel.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_entity.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_plugin_lr2d.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"

#include <gtest/gtest.h>
#include <string>

namespace {
using layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

/// Of every kind, and of none.
constexpr char const *keys[] = {
    c_lr_key_shp_pnt,      c_lr_key_shp_pln,     c_lr_key_shp_pgn,      c_lr_key_rtr,
    c_lr_key_tos_grid,     c_lr_key_tos_grid_1d, c_lr_key_tos_slice,    c_lr_key_tos_2crd,
    c_lr_key_tld,          c_lr_key_dynamic_tld, c_lr_key_shp_pntz_sub, c_lr_key_shp_plnz_sub,
    c_lr_key_shp_pgnz_sub, "layout_scene_frame", "a key of nobody",
};

std::wstring caption(Ivx_layer const *l)
{
    std::wstring text = L"untouched";
    vx_lr2d_get_wcaption(l, Tvx_std_wstring_adapter(text));
    return text;
}
std::wstring file_name(Ivx_layer const *l)
{
    std::wstring text = L"untouched";
    vx_lr2d_get_wfilename(l, Tvx_std_wstring_adapter(text));
    return text;
}
std::wstring text_of(Ivx_layer const *l, void (*getter)(Ivx_layer const *, Ivx_string_adp *))
{
    std::wstring text = L"untouched";
    getter(l, Tvx_std_wstring_adapter(text));
    return text;
}

Ivx_layer *text_layer(Ivx_layer *l)
{
    auto *const of_shape = vx_shp_lr2d_get_text_layer_ptr(l);
    return of_shape ? of_shape : vx_tos_2crd_lr2d_get_text_layer_ptr(l);
}

void change_common(Ivx_layer *l)
{
    vx_lr2d_set_wcaption(l, L"имя");
    vx_lr2d_set_wfilename(l, L"/d/file.shp");
    vx_lr2d_set_visible(l, false);
    vx_lr_set_own_selected_style_flag(l, true);
    vx_lr2d_set_plugin_interface(l, l);
    vx_layout_lr2d_set_plugin_interface(l, &l);
}
} // namespace

TEST(layers, a_clone_is_all_its_own)
{
    for (auto const *key : keys) {
        SCOPED_TRACE(key);
        layer source(vx_lr2d_create(key));
        change_common(source.get());
        if (auto *const text = text_layer(source.get()))
            vx_lr2d_set_visible(text, false);
        if (auto *const manager = vx_shp_lr2d_get_stl_mngr_ptr(source.get()))
            vx_stl_mngr_set_mode(manager, c_stl_mngr_mode_range);
        layer const copy(vx_lr2d_clone(source.get()));
        ASSERT_TRUE(copy);
        EXPECT_STREQ(key, vx_lr2d_get_lr_type(copy.get()));
        EXPECT_EQ(L"имя", caption(copy.get()));
        EXPECT_EQ(L"/d/file.shp", file_name(copy.get()));
        EXPECT_FALSE(vx_lr2d_get_visible(copy.get()));
        EXPECT_TRUE(vx_lr_get_own_selected_style_flag(copy.get()));
        EXPECT_EQ(source.get(), vx_lr2d_get_plugin_interface(copy.get()));
        EXPECT_NE(nullptr, vx_layout_lr2d_get_plugin_interface(copy.get()));
        EXPECT_NE(vx_lr_get_update_event_channel(source.get()), vx_lr_get_update_event_channel(copy.get()));
        if (auto *const text = text_layer(copy.get())) {
            EXPECT_NE(text_layer(source.get()), text);
            EXPECT_EQ(copy.get(), vx_dtld_lr2d_get_parent_lr2d_ptr(text));
            EXPECT_FALSE(vx_lr2d_get_visible(text));
        }
        if (auto *const manager = vx_shp_lr2d_get_stl_mngr_ptr(copy.get())) {
            EXPECT_NE(vx_shp_lr2d_get_stl_mngr_ptr(source.get()), manager);
            EXPECT_EQ(c_stl_mngr_mode_range, vx_stl_mngr_get_mode(manager));
            vx_stl_mngr_set_mode(manager, c_stl_mngr_mode_value);
            EXPECT_EQ(c_stl_mngr_mode_range,
                      vx_stl_mngr_get_mode(vx_shp_lr2d_get_stl_mngr_ptr(source.get())));
        }
        source.reset();
        vx_lr2d_set_wcaption(copy.get(), nullptr);
        EXPECT_EQ(L"file", caption(copy.get())) << "the copy lives on by itself";
    }
}

TEST(layers, display_name)
{
    struct
    {
        wchar_t const *caption;
        wchar_t const *file;
        wchar_t const *name;
    } const cases[] = {
        {L"Roads", L"/d/roads.shp", L"Roads"},
        {L"", L"/d/roads.shp", L"roads"},
        {L"", L"C:\\d\\дороги.shp", L"дороги"},
        {L"", L"*/d/a.b.shp|layer=x", L"a.b"},
        {L"", L"/d/.hidden", L".hidden"},
        {L"", L"", L""},
        {L"", L"/d/", L""},
    };
    for (auto const &c : cases) {
        layer const l(vx_lr2d_create(c_lr_key_rtr));
        vx_lr2d_set_wcaption(l.get(), c.caption);
        vx_lr2d_set_wfilename(l.get(), c.file);
        EXPECT_EQ(c.name, caption(l.get())) << c.file;
    }
}

TEST(layers, share_their_data_object)
{
    vx_test::memory_table table;
    table.geom_type = 15;
    table.features = {{{}, 5, {{{0, 0}, {1, 0}, {1, 1}, {0, 0}}}}};
    vx_test::memory_driver const driver(L"memory:", table);
    std::wstring error;
    layer l(vx_shp_lr2d_open(L"memory:town.x", Tvx_std_wstring_adapter(error)));
    ASSERT_TRUE(l) << vx::text::wide_to_utf8(error);
    EXPECT_STREQ(c_lr_key_shp_pgn, vx_lr2d_get_lr_type(l.get()));
    EXPECT_EQ(L"memory:town", caption(l.get()));
    layer copy(vx_lr2d_clone(l.get()));
    EXPECT_EQ(vx_lr2d_get_data_ptr(l.get()), vx_lr2d_get_data_ptr(copy.get()));
    EXPECT_EQ(vx_shp_lr2d_get_attr_data_ptr(l.get()), vx_shp_lr2d_get_attr_data_ptr(copy.get()));
    vx_lr2d_set_wfilename(copy.get(), L"memory:town.x");
    EXPECT_EQ(vx_lr2d_get_data_ptr(l.get()), vx_lr2d_get_data_ptr(copy.get()))
        << "the same name changes nothing";
    l.reset();
    EXPECT_TRUE(vx_attr_data_open(vx_shp_lr2d_get_attr_data_ptr(copy.get())));
    vx_lr2d_set_wfilename(copy.get(), L"memory:other.x");
    EXPECT_EQ(0, table.opened) << "a new name drops the data";
    EXPECT_TRUE(vx_attr_data_open(vx_shp_lr2d_get_attr_data_ptr(copy.get())));
    copy.reset();
    EXPECT_EQ(0, table.opened);
}

TEST(layers, share_a_data_object_that_was_not_asked_for_yet)
{
    layer const l(vx_shp_lr2d_create(c_lr_key_shp_pnt, L"/d/a.shp"));
    layer const copy(vx_lr2d_clone(l.get()));
    EXPECT_EQ(vx_lr2d_get_data_ptr(l.get()), vx_lr2d_get_data_ptr(copy.get()));
    EXPECT_TRUE(vx_attr_data_is_missing(vx_shp_lr2d_get_attr_data_ptr(copy.get())));
}

TEST(layers, of_a_source_by_its_geometry)
{
    struct
    {
        int geom_type;
        char const *key;
    } const cases[] = {{1, c_lr_key_shp_pnt},  {8, c_lr_key_shp_pnt},  {18, c_lr_key_shp_pnt},
                       {3, c_lr_key_shp_pln},  {13, c_lr_key_shp_pln}, {5, c_lr_key_shp_pgn},
                       {15, c_lr_key_shp_pgn}, {0, nullptr},           {31, nullptr},
                       {100, nullptr}};
    for (auto const &c : cases) {
        vx_test::memory_table table;
        table.geom_type = c.geom_type;
        vx_test::memory_driver const driver(L"memory:", table);
        std::wstring error;
        layer const l(vx_shp_lr2d_open(L"memory:", Tvx_std_wstring_adapter(error)));
        EXPECT_EQ(c.key != nullptr, l != nullptr) << c.geom_type;
        EXPECT_EQ(c.key == nullptr, !error.empty()) << c.geom_type;
        if (l) {
            EXPECT_STREQ(c.key, vx_lr2d_get_lr_type(l.get()));
        }
    }
    vx_test::memory_table mixed;
    mixed.geom_type = 100;
    mixed.features = {{{}, 0, {}}, {{}, 13, {{{0, 0}, {1, 1}}}}, {{}, 1, {{{0, 0}}}}};
    vx_test::memory_driver const driver(L"memory:", mixed);
    layer const first(vx_shp_lr2d_open(L"memory:", nullptr));
    EXPECT_STREQ(c_lr_key_shp_pln, vx_lr2d_get_lr_type(first.get())) << "the first shape decides";
    EXPECT_EQ(nullptr, vx_shp_lr2d_open(L"no driver has this", nullptr));
    EXPECT_EQ(nullptr, vx_shp_lr2d_open(nullptr, nullptr));
    EXPECT_EQ(nullptr, vx_shp_lr2d_create(c_lr_key_rtr, L"x"));
    EXPECT_EQ(nullptr, vx_shp_lr2d_create(nullptr, L"x"));
}

TEST(layers, tell_their_clients_of_updates)
{
    layer l(vx_lr2d_create(c_lr_key_shp_pln));
    layer const copy(vx_lr2d_clone(l.get()));
    int updates = 0;
    auto const count = [](Tvx_table *queue, void *n) {
        *static_cast<int *>(n) += vx_event_queue_count_update_events(queue);
    };
    vx_event_channel_add_client(vx_lr_get_update_event_channel(copy.get()), count, &updates);
    change_common(copy.get());
    EXPECT_EQ(0, updates) << "setters post nothing";
    vx_lr_post_update(copy.get());
    EXPECT_EQ(1, updates);
    vx_lr_post_update(l.get());
    EXPECT_EQ(1, updates) << "a clone has a channel of its own";
}

TEST(layers, functions_of_another_kind_are_neutral)
{
    layer const grid(vx_lr2d_create(c_lr_key_tos_grid));
    layer const raster(vx_lr2d_create(c_lr_key_rtr));
    for (auto *const l : {raster.get(), static_cast<Ivx_layer *>(nullptr)}) {
        vx_tos_grid_lr2d_set_draw_type(l, 3);
        vx_tos_slice_lr2d_set_zslice_count(l, 3);
        vx_tos_2crd_lr2d_set_wprop_name_x(l, L"x");
        EXPECT_EQ(0, vx_tos_grid_lr2d_get_draw_type(l));
        EXPECT_EQ(1, vx_tos_grid_lr2d_get_opacity(l));
        EXPECT_EQ(1, vx_tos_slice_lr2d_get_zslice_count(l));
        EXPECT_EQ(L"", text_of(l, &vx_tos_2crd_lr2d_get_wprop_name_x));
        EXPECT_EQ(nullptr, vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(l));
        EXPECT_EQ(nullptr, vx_shp_lr2d_get_style_mngr_list_ptr(l));
        EXPECT_EQ(nullptr, vx_shp_lr2d_get_attr_data_ptr(l));
        EXPECT_EQ(nullptr, vx_dtld_lr2d_get_parent_lr2d_ptr(l));
    }
    vx_tos_slice_lr2d_set_zslice_count(grid.get(), 3);
    EXPECT_EQ(1, vx_tos_slice_lr2d_get_zslice_count(grid.get())) << "a grid is no stack";
    vx_rtr_lr2d_set_opacity(grid.get(), 0.5);
    EXPECT_EQ(1, vx_rtr_lr2d_get_opacity(grid.get()));
}

TEST(layers, null_is_harmless)
{
    change_common(nullptr);
    vx_lr2d_destroy(nullptr);
    vx_lr_post_update(nullptr);
    EXPECT_EQ(nullptr, vx_lr2d_clone(nullptr));
    EXPECT_EQ(nullptr, vx_lr2d_get_lr_type(nullptr));
    EXPECT_EQ(L"", caption(nullptr));
    EXPECT_EQ(L"", file_name(nullptr));
    EXPECT_FALSE(vx_lr2d_get_visible(nullptr));
    EXPECT_EQ(nullptr, vx_lr2d_get_data_ptr(nullptr));
    EXPECT_EQ(nullptr, vx_lr_get_update_event_channel(nullptr));
    EXPECT_EQ(nullptr, vx_lr_safe_downcast(nullptr));
    EXPECT_EQ(nullptr, vx_lr2d_get_plugin_interface(nullptr));
}
