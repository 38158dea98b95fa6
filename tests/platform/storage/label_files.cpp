#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/storage/vx_xml_save_2d.h"

#include <gtest/gtest.h>
#include <string>

// Text classes in files of their own.

namespace {
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

/// Two classes in which nothing is as it is made; the second one is current.
layer_ptr sample(char const *key)
{
    layer_ptr layer(vx_lr2d_create(key));
    Ivx_layer *const labels = vx_shp_lr2d_get_text_layer_ptr(layer.get());
    vx_dtld_lr2d_add_text_class(labels, L"реки & <озёра>");
    for (int i = 0; i < 2; ++i) {
        void *const info = vx_dtld_lr2d_get_text_class_by_index(labels, i);
        double const n = i + 1;
        vx_textlr_info_set_property(info, 3 + i, L"ИМЯ");
        vx_fnt_type font;
        font.set_wname(L"Serif");
        font.italic = true;
        vx_textlr_info_set_font(info, &font);
        vx_textlr_info_set_size(info, 0.1 * n);
        vx_textlr_info_set_color(info, vx_clr_init_rgba(1, 2, 3, 4));
        vx_textlr_info_set_angle(info, -12.5 * n);
        vx_textlr_info_set_encoding(info, 2);
        vx_textlr_info_set_priority(info, 9);
        vx_textlr_info_set_place_overlap(info, true);
        vx_textlr_info_set_scale(info, true);
        vx_textlr_info_set_init_scale(info, 25000);
        vx_textlr_info_set_back(info, true, vx_clr_init_rgb(5, 6, 7));
        vx_textlr_info_set_outline(info, true, vx_clr_init_rgb(8, 9, 10), 0.7 * n);
        vx_textlr_info_set_shadow(info, true, vx_clr_init_rgb(11, 12, 13), 0.8, -0.9, 1.1);
        vx_textlr_info_set_range(info, 2);
        vx_textlr_info_set_duplicates(info, 1);
        vx_textlr_info_set_text_pos_x(info, -1);
        vx_textlr_info_set_text_pos_y(info, -1);
        vx_textlr_info_set_line_type(info, 3);
        vx_textlr_info_set_line_direction(info, true);
        vx_textlr_info_set_delta_x(info, 1.25);
        vx_textlr_info_set_delta_y(info, -1e300);
        vx_textlr_info_set_use_min_scale(info, true);
        vx_textlr_info_set_min_scale(info, 1000);
        vx_textlr_info_set_use_max_scale(info, true);
        vx_textlr_info_set_max_scale(info, 2000);
    }
    return layer;
}

Ivx_layer *labels_of(layer_ptr const &layer)
{
    return vx_shp_lr2d_get_text_layer_ptr(layer.get());
}

bool are_same(Ivx_layer *a, Ivx_layer *b)
{
    int const count = vx_dtld_lr2d_count_text_class(a);
    bool same = vx_dtld_lr2d_count_text_class(b) == count &&
                vx_dtld_lr2d_get_text_class_index(a) == vx_dtld_lr2d_get_text_class_index(b);
    for (int i = 0; same && i < count; ++i) {
        // A class of another hint differs by that alone.
        vx::owned<void, &vx_textlr_info_destroy> const copy(
            vx_textlr_info_clone(vx_dtld_lr2d_get_text_class_by_index(a, i)));
        vx_textlr_info_assign(copy.get(), vx_dtld_lr2d_get_text_class_by_index(b, i));
        same = vx_textlr_info_equal(copy.get(), vx_dtld_lr2d_get_text_class_by_index(a, i));
    }
    return same;
}
} // namespace

TEST(label_files, come_back_as_they_were)
{
    vx_test::temp_dir const dir;
    auto const path = (dir / "a._ta").wstring();
    layer_ptr const saved = sample("shp_pgn_lr2d");
    ASSERT_TRUE(vx_xml_data_save_lr2d_dtld(nullptr, path.c_str(), labels_of(saved)));
    std::string const bytes = vx_test::read_file(path);
    // Into a layer of another kind as well, whose labels then stand at its own objects.
    for (char const *const key : {"shp_pgn_lr2d", "shp_pln_lr2d"}) {
        layer_ptr const other(vx_lr2d_create(key));
        int const hint = vx_textlr_info_get_hint(vx_dtld_lr2d_get_text_class(labels_of(other)));
        ASSERT_TRUE(vx_xml_data_load_lr2d_dtld(nullptr, path.c_str(), labels_of(other)));
        EXPECT_TRUE(are_same(labels_of(saved), labels_of(other))) << key;
        EXPECT_EQ(vx_textlr_info_get_hint(vx_dtld_lr2d_get_text_class(labels_of(other))), hint);
        EXPECT_FALSE(vx_lr2d_get_visible(labels_of(other))) << "a load shows nothing by itself";
        ASSERT_TRUE(vx_xml_data_save_lr2d_dtld(nullptr, path.c_str(), labels_of(other)));
        EXPECT_EQ(vx_test::read_file(path), bytes);
    }
}

TEST(label_files, that_are_wrong_leave_the_classes_alone)
{
    vx_test::temp_dir const dir;
    auto const path = (dir / "a._ta").wstring();
    layer_ptr const saved = sample("shp_pgn_lr2d");
    ASSERT_TRUE(vx_xml_data_save_lr2d_dtld(nullptr, path.c_str(), labels_of(saved)));
    std::string const bytes = vx_test::read_file(path);
    layer_ptr const target(vx_lr2d_create("shp_pgn_lr2d"));
    layer_ptr const before(vx_lr2d_clone(target.get()));
    vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy> const xml(vx_xml_save_2d_create());
    auto const refused = [&](std::string const &text) {
        vx_test::write_file(path, text);
        bool const loaded = vx_xml_data_load_lr2d_dtld(xml.get(), path.c_str(), labels_of(target));
        std::wstring reason;
        vx_xml_data_get_error_w(xml.get(), Tvx_std_wstring_adapter(reason));
        return !loaded && reason.find(L"a._ta") != std::wstring::npos &&
               are_same(labels_of(target), labels_of(before));
    };
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 11) {
        ASSERT_TRUE(refused(bytes.substr(0, i))) << i;
        std::string damaged = bytes;
        damaged[i] ^= 4;
        ASSERT_TRUE(refused(damaged)) << i;
    }
    auto const with = [](std::string const &content, std::string const &attributes = "version=\"1\"") {
        return "<vx_labels " + attributes + ">" + content + "</vx_labels>";
    };
    std::string many;
    for (int i = 0; i <= 1000; ++i)
        many += "<class/>";
    for (std::string const &wrong :
         {std::string(), with(""), with(many), with("<class/>", "version=\"2\""), with("<class/>", ""),
          "<!DOCTYPE vx_labels [<!ENTITY a \"b\">]>" + with("<class/>"), with("<class/><style/>"),
          with("<class/>", "version=\"1\" current=\"1\""), with("<class/>", "version=\"1\" current=\"-1\""),
          with("<class priority=\"10\"/>"), with("<class size=\"-1\"/>"), with("<class size=\"nan\"/>"),
          with("<class pos_x=\"2\"/>"), with("<class line_type=\"4\"/>"), with("<class unknown=\"1\"/>"),
          std::string("<vx_scene version=\"1\"/>"), with("<class/>") + with("<class/>")})
        EXPECT_TRUE(refused(wrong)) << wrong.substr(0, 200);
    vx_test::write_file(path, with("<class size=\"4\"/>"));
    ASSERT_TRUE(vx_xml_data_load_lr2d_dtld(nullptr, path.c_str(), labels_of(target)));
    EXPECT_EQ(vx_textlr_info_get_size(vx_dtld_lr2d_get_text_class(labels_of(target))), 4);

    EXPECT_FALSE(vx_xml_data_load_lr2d_dtld(nullptr, path.c_str(), target.get())) << "no text layer";
    EXPECT_FALSE(vx_xml_data_load_lr2d_dtld(nullptr, nullptr, labels_of(target)));
    EXPECT_FALSE(vx_xml_data_load_lr2d_dtld(nullptr, path.c_str(), nullptr));
    EXPECT_FALSE(vx_xml_data_save_lr2d_dtld(nullptr, path.c_str(), nullptr));
    EXPECT_FALSE(vx_xml_data_save_lr2d_dtld(nullptr, L"/nowhere/a._ta", labels_of(target)));
}
