#include "platform/base/owned.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
using info_ptr = vx::owned<void, &vx_textlr_info_destroy>;

/// Each changes one datum of a class.
struct change
{
    char const *name;
    void (*make)(void *info);
};
constexpr double c_none = std::numeric_limits<double>::quiet_NaN();
change const good_changes[] = {
    {"name", [](void *i) { vx_textlr_info_set_name(i, L"Реки"); }},
    {"property", [](void *i) { vx_textlr_info_set_property(i, 3, L"ИМЯ"); }},
    {"font",
     [](void *i) {
         if (auto *const font = vx_textlr_info_get_font_ptr(i))
             font->bold = true;
     }},
    {"size", [](void *i) { vx_textlr_info_set_size(i, 1e6); }},
    {"color", [](void *i) { vx_textlr_info_set_color(i, vx_clr_init_rgb(1, 2, 3)); }},
    {"angle", [](void *i) { vx_textlr_info_set_angle(i, 359.5); }},
    {"encoding", [](void *i) { vx_textlr_info_set_encoding(i, 2); }},
    {"priority", [](void *i) { vx_textlr_info_set_priority(i, 9); }},
    {"overlap", [](void *i) { vx_textlr_info_set_place_overlap(i, true); }},
    {"scale", [](void *i) { vx_textlr_info_set_scale(i, true); }},
    {"initial scale", [](void *i) { vx_textlr_info_set_init_scale(i, 5000); }},
    {"back", [](void *i) { vx_textlr_info_set_back(i, true, vx_clr_init_rgb(1, 2, 3)); }},
    {"outline", [](void *i) { vx_textlr_info_set_outline(i, false, vx_clr_init_rgb(1, 2, 3), 0.7); }},
    {"shadow", [](void *i) { vx_textlr_info_set_shadow(i, true, vx_clr_init_rgb(1, 2, 3), 0.5, 1, -2); }},
    {"range", [](void *i) { vx_textlr_info_set_range(i, 2); }},
    {"duplicates", [](void *i) { vx_textlr_info_set_duplicates(i, 1); }},
    {"text position x", [](void *i) { vx_textlr_info_set_text_pos_x(i, -1); }},
    {"text position y", [](void *i) { vx_textlr_info_set_text_pos_y(i, -1); }},
    {"line type", [](void *i) { vx_textlr_info_set_line_type(i, 3); }},
    {"line direction", [](void *i) { vx_textlr_info_set_line_direction(i, true); }},
    {"delta x", [](void *i) { vx_textlr_info_set_delta_x(i, -1.5); }},
    {"delta y", [](void *i) { vx_textlr_info_set_delta_y(i, 2.5); }},
    {"use min scale", [](void *i) { vx_textlr_info_set_use_min_scale(i, true); }},
    {"min scale", [](void *i) { vx_textlr_info_set_min_scale(i, 250); }},
    {"use max scale", [](void *i) { vx_textlr_info_set_use_max_scale(i, true); }},
    {"max scale", [](void *i) { vx_textlr_info_set_max_scale(i, 7.5e6); }},
};
change const refused_changes[] = {
    {"size", [](void *i) { vx_textlr_info_set_size(i, -1); }},
    {"size that is none", [](void *i) { vx_textlr_info_set_size(i, c_none); }},
    {"angle", [](void *i) { vx_textlr_info_set_angle(i, c_none); }},
    {"encoding", [](void *i) { vx_textlr_info_set_encoding(i, 3); }},
    {"priority", [](void *i) { vx_textlr_info_set_priority(i, 10); }},
    {"range", [](void *i) { vx_textlr_info_set_range(i, -1); }},
    {"duplicates", [](void *i) { vx_textlr_info_set_duplicates(i, 3); }},
    {"position", [](void *i) { vx_textlr_info_set_text_pos_x(i, 2); }},
    {"line type", [](void *i) { vx_textlr_info_set_line_type(i, 4); }},
    {"delta", [](void *i) { vx_textlr_info_set_delta_y(i, c_none); }},
    {"min scale", [](void *i) { vx_textlr_info_set_min_scale(i, -5); }},
    {"initial scale", [](void *i) { vx_textlr_info_set_init_scale(i, c_none); }},
};
} // namespace

TEST(text_class, each_datum_counts_and_is_copied)
{
    for (int const hint : {0, 1, 2})
        for (change const &c : good_changes) {
            SCOPED_TRACE(c.name);
            info_ptr const plain(vx_textlr_info_create(hint));
            info_ptr const changed(vx_textlr_info_clone(plain.get()));
            EXPECT_TRUE(vx_textlr_info_equal(plain.get(), changed.get()));
            c.make(changed.get());
            info_ptr const copy(vx_textlr_info_clone(changed.get()));
            EXPECT_TRUE(vx_textlr_info_equal(changed.get(), copy.get()));
            EXPECT_FALSE(vx_textlr_info_equal(plain.get(), copy.get()));
            c.make(nullptr);
            info_ptr const other(vx_textlr_info_create(2));
            vx_textlr_info_assign(other.get(), changed.get());
            EXPECT_EQ(vx_textlr_info_get_hint(other.get()), 2) << "its objects stay what they are";
        }
    for (change const &c : refused_changes) {
        SCOPED_TRACE(c.name);
        info_ptr const plain(vx_textlr_info_create(0));
        info_ptr const changed(vx_textlr_info_clone(plain.get()));
        c.make(changed.get());
        EXPECT_TRUE(vx_textlr_info_equal(plain.get(), changed.get()));
    }
    EXPECT_EQ(vx_textlr_info_get_property_index(nullptr), -1);
    EXPECT_FALSE(vx_textlr_info_get_outline(nullptr, nullptr, nullptr));
}

TEST(text_class, copies_share_the_initial_scale_that_a_drawing_settles)
{
    info_ptr const edited(vx_textlr_info_create(0));
    vx_textlr_info_set_init_scale(edited.get(), 1000);
    vx_textlr_info_set_scale(edited.get(), true);
    EXPECT_EQ(vx_textlr_info_get_init_scale(edited.get()), 0) << "that of the next drawing";
    vx_textlr_info_set_scale_init(edited.get(), true);
    EXPECT_EQ(vx_textlr_info_get_init_scale(edited.get()), 1000) << "as before";
    vx_textlr_info_set_scale(edited.get(), true);
    EXPECT_EQ(vx_textlr_info_get_init_scale(edited.get()), 1000) << "nothing was switched on";
}

TEST(text_class, decodes_what_was_read_wrongly)
{
    struct
    {
        wchar_t const *text;
        int encoding;
        wchar_t const *written;
    } const cases[] = {
        {L"M\u00C3\u00BCnchen", 0, L"M\u00C3\u00BCnchen"},
        {L"M\u00C3\u00BCnchen", 1, L"M\u00FCnchen"},
        {L"M\u00FCnchen", 1, L"M\u00FCnchen"},
        {L"\u041C\u0443\u0440", 1, L"\u041C\u0443\u0440"},
        {L"\u00CC\u00F3\u00F0\u00EE\u00EC 7", 2, L"\u041C\u0443\u0440\u043E\u043C 7"},
        {L"\u041C\u0443\u0440", 2, L"\u041C\u0443\u0440"},
        {L"Berlin", 2, L"Berlin"},
        {L"", 1, L""},
    };
    for (auto const &c : cases)
        EXPECT_EQ(vx_textlr_decode(c.text, c.encoding), c.written);
}

TEST(dynamic_text_layer, has_classes_for_the_objects_of_its_parent)
{
    struct
    {
        char const *key;
        int hint;
    } const cases[] = {{c_lr_key_shp_pnt, c_textlr_hint_points},
                       {c_lr_key_shp_pln, c_textlr_hint_lines},
                       {c_lr_key_shp_pgnz_sub, c_textlr_hint_polygons},
                       {c_lr_key_tos_2crd, c_textlr_hint_points}};
    for (auto const &c : cases) {
        SCOPED_TRACE(c.key);
        layer_ptr parent(vx_lr2d_create(c.key));
        layer_ptr const text(vx_dtld_lr2d_create(parent.get()));
        ASSERT_TRUE(text);
        EXPECT_TRUE(vx_lr2d_get_visible(text.get()));
        EXPECT_EQ(vx_textlr_info_get_hint(vx_dtld_lr2d_get_text_class(text.get())), c.hint);
        layer_ptr const copy(vx_lr2d_clone(text.get()));
        EXPECT_EQ(vx_dtld_lr2d_get_parent_lr2d_ptr(copy.get()), parent.get());
        parent.reset();
        EXPECT_EQ(vx_dtld_lr2d_get_parent_lr2d_ptr(text.get()), nullptr) << "the parent has ended";
        layer_ptr const orphan(vx_lr2d_clone(copy.get()));
        vx_dtld_lr2d_add_text_class(orphan.get(), nullptr);
        EXPECT_EQ(vx_textlr_info_get_hint(vx_dtld_lr2d_get_text_class(orphan.get())), c.hint);
    }
    layer_ptr const raster(vx_lr2d_create(c_lr_key_rtr));
    EXPECT_EQ(vx_dtld_lr2d_create(raster.get()), nullptr);
    EXPECT_EQ(vx_dtld_lr2d_create(nullptr), nullptr);
    EXPECT_EQ(vx_dtld_lr2d_get_text_class(raster.get()), nullptr);
    EXPECT_EQ(vx_dtld_lr2d_get_text_class_index(raster.get()), -1);
    vx_dtld_lr2d_add_text_class(raster.get(), L"x");
    vx_dtld_lr2d_remove_text_class(nullptr);
}

TEST(dynamic_text_layer, always_has_a_current_class)
{
    layer_ptr const parent(vx_lr2d_create(c_lr_key_shp_pgn));
    Ivx_layer *const text = vx_shp_lr2d_get_text_layer_ptr(parent.get());
    EXPECT_FALSE(vx_lr2d_get_visible(text)) << "nobody has asked for labels yet";
    void *const first = vx_dtld_lr2d_get_text_class(text);
    vx_dtld_lr2d_remove_text_class(text);
    EXPECT_EQ(vx_dtld_lr2d_get_text_class(text), first) << "the last one stays";
    for (int i = 1; i < 4; ++i) {
        vx_dtld_lr2d_add_text_class(text, nullptr);
        EXPECT_EQ(vx_dtld_lr2d_get_text_class_index(text), i);
        vx_textlr_info_set_priority(vx_dtld_lr2d_get_text_class(text), i);
    }
    EXPECT_EQ(vx_dtld_lr2d_get_text_class_by_index(text, 0), first) << "the others stay where they are";
    vx_dtld_lr2d_set_text_class_index(text, 1);
    vx_dtld_lr2d_set_text_class_index(text, 4);
    vx_dtld_lr2d_set_text_class_index(text, -1);
    vx_dtld_lr2d_remove_text_class(text);
    EXPECT_EQ(vx_dtld_lr2d_get_text_class_index(text), 1);
    EXPECT_EQ(vx_textlr_info_get_priority(vx_dtld_lr2d_get_text_class(text)), 2);
    vx_dtld_lr2d_set_text_class_index(text, 2);
    vx_dtld_lr2d_remove_text_class(text);
    EXPECT_EQ(vx_dtld_lr2d_get_text_class_index(text), 1) << "the last one takes its place";

    layer_ptr const copy(vx_lr2d_clone(parent.get()));
    Ivx_layer *const copied = vx_shp_lr2d_get_text_layer_ptr(copy.get());
    EXPECT_EQ(vx_dtld_lr2d_get_parent_lr2d_ptr(copied), copy.get());
    ASSERT_EQ(vx_dtld_lr2d_count_text_class(copied), 2);
    EXPECT_TRUE(vx_textlr_info_equal(vx_dtld_lr2d_get_text_class(copied), vx_dtld_lr2d_get_text_class(text)));
    vx_textlr_info_set_priority(vx_dtld_lr2d_get_text_class(copied), 9);
    EXPECT_FALSE(
        vx_textlr_info_equal(vx_dtld_lr2d_get_text_class(copied), vx_dtld_lr2d_get_text_class(text)));
}

TEST(dynamic_text_layer, in_a_scene_that_is_cloned_belongs_to_the_clone)
{
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const scene(vx_scn_2d_create(L""));
    auto *const parent = vx_lr2d_create(c_lr_key_shp_pln);
    EXPECT_TRUE(vx_scn_2d_insert(scene.get(), 0, vx_dtld_lr2d_create(parent)));
    EXPECT_TRUE(vx_scn_2d_insert(scene.get(), 1, parent));
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const copy(vx_scn_2d_clone(scene.get()));
    EXPECT_EQ(vx_dtld_lr2d_get_parent_lr2d_ptr(vx_scn_2d_get_layer(copy.get(), 0)),
              vx_scn_2d_get_layer(copy.get(), 1));
}
