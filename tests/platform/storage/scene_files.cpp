#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/storage/vx_scn_2d_file.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vxk_styles.h"

#include <cstring>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {
using scene_ptr = vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy>;
using layouts_ptr = vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy>;

Ivx_layer *make_layer(char const *key, wchar_t const *caption, wchar_t const *source)
{
    Ivx_layer *layer = vx_lr2d_create(key);
    vx_lr2d_set_wcaption(layer, caption);
    vx_lr2d_set_wfilename(layer, source);
    return layer;
}

/// All that a scene's file holds, as one text.
std::wstring content(Ivx_scn_2d const *scene)
{
    std::wstring all;
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    vx_scn_2d_get_wcaption(scene, adapter);
    all += text + (vx_scn_2d_get_izotropic(scene) ? L" one scale" : L" two scales");
    for (int i = 0; i < vx_scn_2d_get_count(scene); ++i) {
        Ivx_layer const *layer = vx_scn_2d_get_layer(scene, i);
        std::string const key = vx_lr2d_get_lr_type(layer);
        all += L"\n" + std::wstring(key.begin(), key.end());
        vx_lr2d_get_wcaption(layer, adapter);
        all += L" " + text;
        vx_lr2d_get_wfilename(layer, adapter);
        all += L" " + text + (vx_lr2d_get_visible(layer) ? L" seen" : L" hidden");
    }
    return all;
}

/// Two managers that draw by every kind of scale, and texts.
void style(Ivx_layer *layer)
{
    void *const list = vx_shp_lr2d_get_style_mngr_list_ptr(layer);
    void *const first = vx_stl_mngr_list_get_mngr(list, 0);
    void *const ranges = vx_stl_mngr_get_rng_scale_ptr(first);
    vx_stl_mngr_set_mode(first, c_stl_mngr_mode_range);
    vx_stl_mngr_set_rng_prop_name_w(first, L"DEPTH");
    vx_rng_scale_set_size(ranges, 2);
    vx_rng_scale_set_max(ranges, 0, 0.1);
    vx_scale_prm_set_visible(vx_rng_scale_get_min_prm_ptr(ranges), false);
    vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(vx_rng_scale_get_scale_prm_ptr(ranges, 1)), false,
                         vx_clr_init_rgb(1, 2, 3));
    void *const second = vx_stl_mngr_list_add(list);
    vx_stl_mngr_list_set_active_by_idx(list, 1);
    vx_stl_mngr_set_name_w(second, L"Кто");
    vx_stl_mngr_set_mode(second, c_stl_mngr_mode_value);
    vx_stl_mngr_set_val_prop_name_w(second, L"NAME");
    vx_stl_mngr_set_rotate_flag(second, true);
    vx_stl_mngr_set_rotate_start(second, 3);
    for (void *scale : {vx_stl_mngr_get_val_scale_ptr(second), vx_stl_mngr_get_rule_scale_ptr(second)})
        vx_val_scale_set_text_w(scale, vx_val_scale_add(scale) - 1, L"\"NAME\" EQUAL \"Ёлка\"");
    void *const texts = vx_txt_settings_get_stl_mngr_list(vx_shp_lr2d_get_txt_settings(layer));
    vx_stl_mngr_list_set_visible(texts, true);
    vx_txt_stl_mngr_init(vx_stl_mngr_list_get_active_mngr(texts), L"NAME");
}

scene_ptr sample()
{
    scene_ptr scene(vx_scn_2d_create(L"Реки & \"lakes\" <1>"));
    vx_scn_2d_set_izotropic(scene.get(), false);
    EXPECT_TRUE(
        vx_scn_2d_insert(scene.get(), 0, make_layer(c_lr_key_shp_pgn, L"Lakes", L"*/data/lakes.shp")));
    EXPECT_TRUE(vx_scn_2d_insert(scene.get(), 1, make_layer(c_lr_key_rtr, L"Map", L"/data/map.tif")));
    EXPECT_TRUE(vx_scn_2d_insert(scene.get(), 2, make_layer("foreign_lr2d", L"", L"")));
    Ivx_layer *const raster = vx_scn_2d_get_layer(scene.get(), 1);
    vx_lr2d_set_visible(raster, false);
    vx_rtr_lr2d_set_opacity(raster, 0.25);
    vx_scn_2d_set_view(scene.get(), {-80.25, 35.5}, 0.001);
    style(vx_scn_2d_get_layer(scene.get(), 0));
    Ivx_layer *const labels = vx_shp_lr2d_get_text_layer_ptr(vx_scn_2d_get_layer(scene.get(), 0));
    vx_lr2d_set_visible(labels, true);
    void *const label = vx_dtld_lr2d_get_text_class(labels);
    vx_textlr_info_set_property(label, 1, L"ИМЯ");
    vx_textlr_info_set_init_scale(label, 25000);
    vx_textlr_info_set_text_pos_x(label, -1);
    return scene;
}

/// Two layouts, the second active, with an element of each kind in the first.
layouts_ptr sample_layouts(std::wstring const &folder)
{
    struct
    {
        char const *key;
        std::wstring source;
    } const elements[] = {
        {c_lr_key_layout_page, L""},
        {c_lr_key_layout_scene_frame, L"./map"},
        {c_lr_key_layout_text, L""},
        {c_lr_key_layout_neatline, L""},
        {c_lr_key_layout_legend, L"/frame"},
        {c_lr_key_layout_north_arrow, folder + L"/frame"},
        {c_lr_key_layout_scale_bar, L"password=frame"},
        {c_lr_key_layout_scale_text, L"../frame"},
        {c_lr_key_layout_image, folder + L"/logo.png"},
        {c_lr_key_layout_table, L"*" + folder + L"/a.gpkg|layer=x"},
        {c_lr_key_layout_ole_object, L""},
    };
    layouts_ptr layouts(vx_scns_2d_create());
    auto *const layout = vx_scns_2d_add(layouts.get(), L"Лист <1>");
    for (int i = 0; auto const &[key, source] : elements) {
        auto *const layer = make_layer(key, i % 2 ? L"" : L"name", source.c_str());
        EXPECT_TRUE(vx_scn_2d_insert(layout, i++, layer));
        vx_layout_lr2d_set_box(layer, {0, 0, 0.1 + i, 10.0 / i});
        vx_layout_lr2d_set_writing(layer, {{}, i / 0.7, vx_clr_init_rgb(i, 2, 3), 1, 0});
        vx_pgn_style_set_pnt_visible(vx_layout_lr2d_get_pgn_style_ptr(layer), i % 2);
        vx_layout_scene_frame_lr2d_set_scale(layer, 500, 1e9 / 3);
        vx_layout_scene_frame_lr2d_set_center(layer, {-1e300, 1.0 / 3});
        vx_layout_text_lr2d_set_wtext(layer, L"one\n\t\"two\" & три\r\n");
        vx_layout_text_lr2d_set_angle(layer, -0.1);
        vx_layout_scale_bar_lr2d_set(layer, {c_layout_bar_double, c_layout_unit_ft, 20, 1.0 / 3, 99});
        vx_layout_north_arrow_lr2d_set(layer, {c_layout_arrow_plain, 359, false});
        vx_layout_legend_lr2d_set(layer, {L"Key", 20, 1, 2, 3, {{true, L"a\nb", false}, {}}});
        vx_layout_image_lr2d_set_keep_ratio(layer, false);
        vx_layout_table_lr2d_set(layer, {1000, {L"NAME", L""}});
    }
    auto *const second = vx_scns_2d_add(layouts.get(), L"");
    vx_scn_2d_set_view(second, {105, 148}, 0.25);
    vx_scns_2d_set_active_scn(layouts.get(), second);
    return layouts;
}

/// Whether all that elements have is the same.
void expect_same_element(Ivx_layer *a, Ivx_layer *b)
{
    SCOPED_TRACE(vx_lr2d_get_lr_type(a));
    auto const same = [&](auto get) { EXPECT_TRUE(get(a) == get(b)); };
    same(&vx_layout_lr2d_get_box);
    same(&vx_layout_lr2d_get_writing);
    same(&vx_layout_scene_frame_lr2d_get_center);
    same(&vx_layout_text_lr2d_get_angle);
    same(&vx_layout_scale_bar_lr2d_get);
    same(&vx_layout_north_arrow_lr2d_get);
    same(&vx_layout_legend_lr2d_get);
    same(&vx_layout_image_lr2d_get_keep_ratio);
    same(&vx_layout_table_lr2d_get);
    same([](Ivx_layer *l) {
        Tvx_pnt_d2 scale;
        vx_layout_scene_frame_lr2d_get_scale(l, &scale.x, &scale.y);
        return scale;
    });
    same([](Ivx_layer *l) {
        std::wstring text;
        vx_layout_text_lr2d_get_wtext(l, Tvx_std_wstring_adapter(text));
        return text;
    });
    EXPECT_TRUE(vx_pgn_style_equal(vx_layout_lr2d_get_pgn_style_ptr(a), vx_layout_lr2d_get_pgn_style_ptr(b)));
}

std::wstring content(Ivx_scns_2d const *layouts)
{
    std::wstring all;
    for (int i = 0; i < vx_scns_2d_get_count(layouts); ++i) {
        auto *const layout = vx_scns_2d_get_scn(layouts, i);
        all += content(layout) + (layout == vx_scns_2d_get_active_scn(layouts) ? L" active\n" : L"\n");
    }
    return all;
}

/// A file that never reaches the disk.
class memory_file
{
public:
    memory_file() : f_number(memfd_create("scene", MFD_CLOEXEC)) {}
    memory_file(memory_file const &) = delete;
    memory_file &operator=(memory_file const &) = delete;
    ~memory_file() { close(f_number); }
    void set(std::string const &bytes) const
    {
        ASSERT_EQ(ftruncate(f_number, 0), 0);
        ASSERT_EQ(pwrite(f_number, bytes.data(), bytes.size(), 0), ssize_t(bytes.size()));
    }
    [[nodiscard]] std::wstring path() const { return L"/proc/self/fd/" + std::to_wstring(f_number); }

private:
    int f_number;
};

void *mngr_of(Ivx_scn_2d const *scene, unsigned index)
{
    Ivx_layer *const layer = vx_scn_2d_get_layer(scene, 0);
    return index < 2 ? vx_stl_mngr_list_get_mngr(vx_shp_lr2d_get_style_mngr_list_ptr(layer), index)
                     : vx_stl_mngr_list_get_active_mngr(
                           vx_txt_settings_get_stl_mngr_list(vx_shp_lr2d_get_txt_settings(layer)));
}
} // namespace

TEST(scene_files, come_back_as_they_were)
{
    vx_test::temp_dir dir;
    auto const path = (dir / "a_.sn").wstring();
    scene_ptr const scene = sample();
    Ivx_layer *const first = vx_scn_2d_get_layer(scene.get(), 0);
    vx_dtld_lr2d_add_text_class(vx_shp_lr2d_get_text_layer_ptr(first), L"rivers");
    ASSERT_TRUE(vx_scn_2d_insert(scene.get(), 3, vx_dtld_lr2d_create(first)));
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.c_str(), scene.get()));
    scene_ptr const other(vx_scn_2d_create(L"other"));
    ASSERT_TRUE(vx_scn_2d_insert(other.get(), 0, make_layer(c_lr_key_rtr, L"goes away", L"")));
    ASSERT_TRUE(vx_xml_data_load_scn2d_w(nullptr, path.c_str(), other.get()));
    EXPECT_EQ(content(other.get()), content(scene.get()));
    for (unsigned i = 0; i < 3; ++i)
        EXPECT_TRUE(vx_stl_mngr_equal(mngr_of(other.get(), i), mngr_of(scene.get(), i))) << i;
    EXPECT_EQ(vx_stl_mngr_list_get_active_idx(
                  vx_shp_lr2d_get_style_mngr_list_ptr(vx_scn_2d_get_layer(other.get(), 0))),
              1u);
    EXPECT_EQ(vx_rtr_lr2d_get_opacity(vx_scn_2d_get_layer(other.get(), 1)), 0.25);
    Tvx_pnt_d2 center{};
    double pixel = 0;
    ASSERT_TRUE(vx_scn_2d_get_view(other.get(), &center, &pixel));
    EXPECT_EQ(center.x, -80.25);
    EXPECT_EQ(center.y, 35.5);
    EXPECT_EQ(pixel, 0.001);
    Ivx_layer *const lakes = vx_scn_2d_get_layer(other.get(), 0);
    Ivx_layer *const labels = vx_shp_lr2d_get_text_layer_ptr(lakes);
    EXPECT_TRUE(vx_lr2d_get_visible(labels));
    ASSERT_EQ(vx_dtld_lr2d_count_text_class(labels), 2);
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(vx_textlr_info_equal(
            vx_dtld_lr2d_get_text_class_by_index(labels, i),
            vx_dtld_lr2d_get_text_class_by_index(
                vx_shp_lr2d_get_text_layer_ptr(vx_scn_2d_get_layer(scene.get(), 0)), i)));
    EXPECT_EQ(vx_dtld_lr2d_get_parent_lr2d_ptr(vx_scn_2d_get_layer(other.get(), 3)), lakes);
    std::string const bytes = vx_test::read_file(path);
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.c_str(), other.get()));
    EXPECT_EQ(vx_test::read_file(path), bytes);
    EXPECT_EQ(dir.count(), 1);
}

TEST(scene_files, of_version_1_are_read_and_newer_ones_told)
{
    vx_test::temp_dir dir;
    auto const path = (dir / "a_.sn").wstring();
    scene_ptr const scene(vx_scn_2d_create(L""));
    auto const load = [&](char const *text) {
        vx_test::write_file(path, text);
        return vx_xml_data_load_scn2d_w(nullptr, path.c_str(), scene.get());
    };
    EXPECT_TRUE(load("<vx_scene version=\"1\"><layer type=\"shp_pnt_lr2d\" source=\"/a.shp\"/></vx_scene>"));
    EXPECT_EQ(vx_scn_2d_get_count(scene.get()), 1);
    EXPECT_FALSE(load("<vx_scene version=\"6\"/>"));
    for (char const *wrong :
         {"<view x=\"0\" y=\"0\" pixel=\"0\"/>", "<view x=\"0\" y=\"0\" pixel=\"nan\"/>",
          "<layer type=\"shp_pnt_lr2d\"><managers/></layer>",
          "<layer type=\"shp_pnt_lr2d\"><managers active=\"1\"><manager><simple><styles/></simple></manager>"
          "</managers></layer>",
          "<layer type=\"shp_pnt_lr2d\"><managers><manager rotate_start=\"4\"><simple><styles/></simple>"
          "</manager></managers></layer>",
          "<layer type=\"rtr_lr2d\"><raster opacity=\"2\"/></layer>",
          "<layer type=\"rtr_lr2d\"><raster opacity=\"nan\"/></layer>",
          "<layer type=\"rtr_lr2d\"><raster><red/><green/><blue/></raster></layer>",
          "<layer type=\"rtr_lr2d\"><properties/></layer>",
          "<layer type=\"tos_grid_lr2d\"><properties draw_type=\"2\"/></layer>",
          "<layer type=\"tos_slice_lr2d\"><properties slice=\"3\" slices=\"3\"/></layer>",
          "<layer type=\"tos_grid_lr1d\"><properties x=\"a\"/></layer>",
          "<layer type=\"shp_pnt_lr2d\"><labels/></layer>",
          "<layer type=\"shp_pnt_lr2d\"><labels current=\"1\"><class/></labels></layer>",
          "<layer type=\"shp_pnt_lr2d\"><labels><class priority=\"10\"/></labels></layer>",
          "<layer type=\"shp_pnt_lr2d\"><labels><class size=\"-1\"/></labels></layer>",
          "<layer type=\"rtr_lr2d\"><labels><class/></labels></layer>",
          "<layer "
          "type=\"rtr_lr2d\"><managers><manager><simple><styles/></simple></manager></managers></layer>"})
        EXPECT_FALSE(load((std::string("<vx_scene version=\"4\">") + wrong + "</vx_scene>").c_str()))
            << wrong;
    EXPECT_EQ(vx_scn_2d_get_count(scene.get()), 1);
}

TEST(scene_files, keep_layouts)
{
    vx_test::temp_dir dir;
    auto const path = (dir / "a_.sn").wstring();
    auto const plain = (dir / "b_.sn").wstring();
    scene_ptr const scene = sample(), other(vx_scn_2d_create(L""));
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, plain.c_str(), scene.get()));
    EXPECT_NE(vx_test::read_file(plain).find("<vx_scene version=\"4\""), std::string::npos);
    vx_scn_2d_set_unit(scene.get(), false, 0.3048);
    ASSERT_TRUE(vx_scn_2d_insert(scene.get(), 0, vx_lr2d_create(c_lr_key_layout_text)));
    vx_layout_text_lr2d_set_wtext(vx_scn_2d_get_layer(scene.get(), 0), L"on the map");
    layouts_ptr const layouts = sample_layouts(dir.path().wstring());
    ASSERT_TRUE(vx_xml_data_save_scn2d_layouts_w(nullptr, path.c_str(), scene.get(), layouts.get()));
    layouts_ptr const found(vx_scns_2d_create());
    vx_scns_2d_add(found.get(), L"goes away");
    ASSERT_TRUE(vx_xml_data_load_scn2d_layouts_w(nullptr, path.c_str(), other.get(), found.get()));
    EXPECT_EQ(content(other.get()), content(scene.get()));
    EXPECT_EQ(vx_scn_2d_get_unit_metres(other.get(), {}), 0.3048);
    expect_same_element(vx_scn_2d_get_layer(scene.get(), 0), vx_scn_2d_get_layer(other.get(), 0));
    EXPECT_EQ(content(found.get()), content(layouts.get()));
    for (int i = 0; i < 11; ++i)
        expect_same_element(vx_scn_2d_get_layer(vx_scns_2d_get_scn(layouts.get(), 0), i),
                            vx_scn_2d_get_layer(vx_scns_2d_get_scn(found.get(), 0), i));
    auto const image = vx_scn_2d_get_layer(vx_scns_2d_get_scn(found.get(), 0), 9);
    vx_lr2d_set_wfilename(image, L"/moved.gpkg");
    std::wstring name;
    vx_lr2d_get_wcaption(image, Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"moved") << "what has no name of its own is called after what it shows";
    std::string const bytes = vx_test::read_file(path);
    for (char const *source : {"\"./map\"", "\"./logo.png\"", "\"*./a.gpkg|layer=x\"", "\"password=frame\""})
        EXPECT_NE(bytes.find(std::string("source=") + source), std::string::npos) << source;
    // Each half by itself.
    ASSERT_TRUE(vx_xml_data_load_scn2d_layouts_w(nullptr, path.c_str(), nullptr, found.get()));
    ASSERT_TRUE(vx_xml_data_load_scn2d_w(nullptr, path.c_str(), other.get()));
    ASSERT_TRUE(vx_xml_data_save_scn2d_layouts_w(nullptr, path.c_str(), other.get(), found.get()));
    EXPECT_EQ(vx_test::read_file(path), bytes);
    ASSERT_TRUE(vx_xml_data_load_scn2d_layouts_w(nullptr, plain.c_str(), other.get(), found.get()));
    EXPECT_EQ(vx_scns_2d_get_count(found.get()), 0);
    EXPECT_EQ(vx_scn_2d_get_unit_metres(other.get(), {}), 1);
    EXPECT_FALSE(vx_xml_data_load_scn2d_layouts_w(nullptr, plain.c_str(), nullptr, nullptr));

    // Scenes of other files, of which one is shown twice, one has no file and one is not shown.
    layouts_ptr const others(vx_scns_2d_create()), read(vx_scns_2d_create());
    vx_scns_2d_add(read.get(), L"goes away");
    auto const shown = [&](std::wstring const &name) {
        auto *const frame = vx_lr2d_create(c_lr_key_layout_scene_frame);
        vx_lr2d_set_wfilename(frame, name.c_str());
        EXPECT_TRUE(vx_scn_2d_insert(vx_scns_2d_get_scn(layouts.get(), 0), 0, frame));
    };
    for (auto const &[name, file] : std::initializer_list<std::pair<std::wstring, std::wstring>>{
             {L"озёра", dir.path().wstring() + L"/lakes_.sn"},
             {L"озёра", L"/second"},
             {L"new", L""},
             {L"far", L"/far_.sn"},
             {L"idle", L"/idle_.sn"}}) {
        vx_scn_2d_set_wfilename(vx_scns_2d_add(others.get(), name.c_str()), file.c_str());
        if (name != L"idle")
            shown(name);
    }
    ASSERT_TRUE(
        vx_xml_data_save_scn2d_layouts_w(nullptr, path.c_str(), other.get(), layouts.get(), others.get()));
    EXPECT_NE(vx_test::read_file(path).find("file=\"./lakes_.sn\""), std::string::npos);
    ASSERT_TRUE(
        vx_xml_data_load_scn2d_layouts_w(nullptr, path.c_str(), other.get(), found.get(), read.get()));
    std::wstring all;
    for (int i = 0; i < vx_scns_2d_get_count(read.get()); ++i) {
        scene_ptr const one(vx_scn_2d_clone(vx_scns_2d_get_scn(read.get(), i)));
        std::wstring text;
        vx_scn_2d_get_wcaption(one.get(), Tvx_std_wstring_adapter(text));
        all += text + L'=';
        vx_scn_2d_get_wfilename(one.get(), Tvx_std_wstring_adapter(text));
        all += text + L';';
    }
    EXPECT_EQ(all, L"озёра=" + dir.path().wstring() + L"/lakes_.sn;far=/far_.sn;");

    std::wstring const long_name(32768, L'x');
    vx_scn_2d_set_wfilename(vx_scns_2d_add(others.get(), long_name.c_str()), L"/x");
    shown(long_name);
    std::string const before_long = vx_test::read_file(path);
    EXPECT_FALSE(
        vx_xml_data_save_scn2d_layouts_w(nullptr, path.c_str(), nullptr, layouts.get(), others.get()));
    EXPECT_EQ(vx_test::read_file(path), before_long);
    for (int i = 0; i < 1001; ++i)
        vx_scns_2d_add(found.get(), L"");
    std::string const before = vx_test::read_file(plain);
    EXPECT_FALSE(vx_xml_data_save_scn2d_layouts_w(nullptr, plain.c_str(), nullptr, found.get()));
    EXPECT_EQ(vx_test::read_file(plain), before) << "nothing is written that could not be read";
}

TEST(scene_files, with_wrong_layouts_change_nothing)
{
    auto const repeated = [](char const *what, int count) {
        std::string all;
        while (count-- > 0)
            all += what;
        return all;
    };
    auto const element = [](std::string const &key, std::string const &content) {
        return "<layouts><layout><layer type=\"layout_" + key + "\"><element>" + content +
               "</element></layer></layout></layouts>";
    };
    auto const others = [](std::string const &scenes) {
        return "<layouts><layout/>" + scenes + "</layouts>";
    };
    std::string const other = "<scene name=\"a\" file=\"/a\"/>";
    memory_file file;
    scene_ptr const scene(vx_scn_2d_create(L"kept"));
    layouts_ptr const layouts = sample_layouts(L"/d");
    std::wstring const before = content(scene.get()) + content(layouts.get());
    auto const load = [&](std::string const &text) {
        file.set("<vx_scene version=\"5\">" + text + "</vx_scene>");
        return vx_xml_data_load_scn2d_layouts_w(nullptr, file.path().c_str(), scene.get(), layouts.get());
    };
    for (std::string const &wrong :
         {std::string("<layouts/>"),
          std::string("<layouts active=\"1\"><layout/></layouts>"),
          std::string("<layouts><layout><layouts><layout/></layouts></layout></layouts>"),
          std::string("<layer type=\"rtr_lr2d\"><element/></layer>"),
          std::string("<unit metres=\"0\"/>"),
          "<layouts>" + repeated("<layout/>", 1001) + "</layouts>",
          others("<scene name=\"a\"/>"),
          others("<scene file=\"/a\"/>"),
          others(other + other),
          others("<scene name=\"a\" file=\"/a\"><layer/></scene>"),
          others("<scene name=\"a\" file=\"" + std::string(32768, 'x') + "\"/>"),
          "<layouts><layout>" + repeated("<layer type=\"layout_text\"/>", 5000) + "</layout><layout>" +
              repeated("<layer type=\"layout_text\"/>", 5001) + "</layout></layouts>",
          element("text", "<box left=\"0\" right=\"1e300\"/>"),
          element("text", "<box left=\"nan\"/>"),
          element("page", "<box left=\"1\"/>"),
          element("text", "<writing align_x=\"2\"/>"),
          element("text", "<frame/>"),
          element("scene_frame", "<frame scale_y=\"1e300\"/>"),
          element("scale_bar", "<scale_bar unit=\"-1\"/>"),
          element("scale_bar", "<scale_bar divisions=\"2147483648\"/>"),
          element("legend", "<legend>" + repeated("<item/>", 1001) + "</legend>"),
          element("table", "<table rows=\"0\"/>")}) {
        EXPECT_FALSE(load(wrong)) << wrong.substr(0, 200);
        EXPECT_EQ(content(scene.get()) + content(layouts.get()), before) << wrong.substr(0, 200);
    }
    // What is not told is as in a new element, and names may lead nowhere.
    ASSERT_TRUE(load("<layouts><layout><layer type=\"layout_page\"/><layer type=\"layout_scene_frame\" "
                     "source=\"gone\"><element/></layer></layout></layouts>"));
    Ivx_scn_2d *const layout = vx_scns_2d_get_scn(layouts.get(), 0);
    for (char const *key : {c_lr_key_layout_page, c_lr_key_layout_scene_frame}) {
        vx::owned<Ivx_layer, &vx_lr2d_destroy> const fresh(vx_lr2d_create(key));
        expect_same_element(fresh.get(), vx_scn_2d_get_layer(layout, key == c_lr_key_layout_scene_frame));
    }
    EXPECT_EQ(vx_layout_scene_frame_lr2d_get_scene(vx_scn_2d_get_layer(layout, 1)), nullptr);
    ASSERT_TRUE(load("<layouts>" + repeated("<layout/>", 1000) + "</layouts>"));
}

TEST(scene_files, keep_how_layers_of_cells_are_drawn)
{
    vx_test::temp_dir dir;
    auto const path = (dir / "a_.sn").wstring();
    scene_ptr const scene(vx_scn_2d_create(L"")), other(vx_scn_2d_create(L""));
    char const *const keys[] = {c_lr_key_rtr,         c_lr_key_tos_grid, c_lr_key_tos_slice,
                                c_lr_key_tos_grid_1d, c_lr_key_tos_2crd, c_lr_key_rtr};
    for (int i = 0; i < 6; ++i)
        ASSERT_TRUE(vx_scn_2d_insert(
            scene.get(), i,
            make_layer(keys[i], L"", i == 0 ? L"" VX_EXAMPLE_DATA "/L7_ETMs.tif" : L"/gone")));
    auto const layer = [](scene_ptr const &of, int i) { return vx_scn_2d_get_layer(of.get(), i); };
    auto const set_channel = [](void *channel, wchar_t const *name) {
        vx_clr_channel_set_prop_name_w(channel, name);
        vx_clr_channel_set_min(channel, -0.1);
        vx_clr_channel_set_max(channel, 1e300);
        vx_clr_channel_set_histogramm_default(channel, false);
        vx_clr_channel_set_histogramm_min(channel, 3);
        vx_clr_channel_set_histogramm_max(channel, 4);
    };
    vx_rtr_lr2d_set_draw_type(layer(scene, 0), c_rtr_draw_channels);
    vx_rtr_lr2d_set_transparent_clr(layer(scene, 0), vx_clr_init_rgb(1, 2, 3));
    set_channel(vx_rgb_channels_get_blue(vx_rtr_lr2d_get_rgb_channels_ptr(layer(scene, 0))), L"5");
    vx_tos_slice_lr2d_set_zslice_count(layer(scene, 2), 9);
    vx_tos_slice_lr2d_set_zslice(layer(scene, 2), 7);
    for (int i : {1, 2}) {
        vx_tos_grid_lr2d_set_draw_type(layer(scene, i), 3);
        vx_tos_grid_lr2d_set_interpolate(layer(scene, i), true);
        vx_tos_grid_lr2d_set_opacity(layer(scene, i), 0.125);
        set_channel(vx_rgb_channels_get_gray(vx_tos_grid_lr2d_get_rgb_channels_ptr(layer(scene, i))), L"h");
    }
    vx_tos_grid_1d_lr2d_set_height_prp_name(layer(scene, 3), L"высота");
    vx_tos_2crd_lr2d_set_wprop_name_x(layer(scene, 4), L"E");
    vx_tos_2crd_lr2d_set_wprop_name_y(layer(scene, 4), L"N");
    auto const mngr = [&](scene_ptr const &of, int i) {
        return i < 3    ? vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer(of, i))
               : i == 3 ? vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer(of, i))
                        : vx_tos_2crd_lr2d_get_stl_mngr(layer(of, i));
    };
    for (int i = 1; i < 5; ++i) {
        vx_stl_mngr_set_rng_prop_name_w(mngr(scene, i), L"h");
        vx_stl_mngr_set_mode(mngr(scene, i), c_stl_mngr_mode_range);
        vx_rng_scale_set_size(vx_stl_mngr_get_rng_scale_ptr(mngr(scene, i)), 4);
    }
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.c_str(), scene.get()));
    ASSERT_TRUE(vx_xml_data_load_scn2d_w(nullptr, path.c_str(), other.get()));
    for (int i = 1; i < 5; ++i)
        EXPECT_TRUE(vx_stl_mngr_equal(mngr(other, i), mngr(scene, i))) << i;
    for (int i : {0, 5}) {
        EXPECT_EQ(vx_rtr_lr2d_get_draw_type(layer(other, i)), vx_rtr_lr2d_get_draw_type(layer(scene, i)));
        EXPECT_EQ(vx_rtr_lr2d_get_transparent_clr(layer(other, i)),
                  vx_rtr_lr2d_get_transparent_clr(layer(scene, i)));
        EXPECT_TRUE(vx_rgb_channels_equal(vx_rtr_lr2d_get_rgb_channels_ptr(layer(other, i)),
                                          vx_rtr_lr2d_get_rgb_channels_ptr(layer(scene, i))));
    }
    for (int i : {1, 2}) {
        EXPECT_EQ(vx_tos_grid_lr2d_get_draw_type(layer(other, i)), 3);
        EXPECT_TRUE(vx_tos_grid_lr2d_get_interpolate(layer(other, i)));
        EXPECT_EQ(vx_tos_grid_lr2d_get_opacity(layer(other, i)), 0.125);
        EXPECT_TRUE(vx_rgb_channels_equal(vx_tos_grid_lr2d_get_rgb_channels_ptr(layer(other, i)),
                                          vx_tos_grid_lr2d_get_rgb_channels_ptr(layer(scene, i))));
    }
    EXPECT_EQ(vx_tos_slice_lr2d_get_zslice(layer(other, 2)), 7);
    std::wstring height, x, y;
    vx_tos_grid_1d_lr2d_get_height_prp_name(layer(other, 3), Tvx_std_wstring_adapter(height));
    vx_tos_2crd_lr2d_get_wprop_name_x(layer(other, 4), Tvx_std_wstring_adapter(x));
    vx_tos_2crd_lr2d_get_wprop_name_y(layer(other, 4), Tvx_std_wstring_adapter(y));
    EXPECT_EQ(height + x + y, L"высотаEN");
    // What was read is written again, also of data that are gone.
    std::string const bytes = vx_test::read_file(path);
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.c_str(), other.get()));
    EXPECT_EQ(vx_test::read_file(path), bytes);
}

TEST(scene_files, name_sources_near_them_from_their_folder_and_keep_no_password)
{
    vx_test::temp_dir dir;
    std::wstring const here = dir.path().wstring();
    struct
    {
        std::wstring source;
        std::string stored;
        std::wstring found; ///< after the move of all
    } const cases[] = {
        {here + L"/maps/a.shp", "./a.shp", here + L"/moved/maps/a.shp"},
        {L"*" + here + L"/maps/sub/a.gpkg|layer=x", "*./sub/a.gpkg|layer=x",
         L"*" + here + L"/moved/maps/sub/a.gpkg|layer=x"},
        {here + L"/data/a.shp", "../data/a.shp", here + L"/moved/data/a.shp"},
        {here + L"/mapsheet.shp", "../mapsheet.shp", here + L"/moved/mapsheet.shp"},
        {L"NETCDF:\"" + here + L"/maps/a.nc\":t", "NETCDF:&quot;./a.nc&quot;:t",
         L"NETCDF:\"" + here + L"/moved/maps/a.nc\":t"},
        {L"/elsewhere/a.shp", "/elsewhere/a.shp", L"/elsewhere/a.shp"},
        {L"/elsewhere/pass=a b.shp", "/elsewhere/pass=a b.shp", L"/elsewhere/pass=a b.shp"},
        {L"PG:host=h password='tiger x' dbname=./d", "PG:host=h password=*** dbname=./d",
         L"PG:host=h password=*** dbname=./d"},
        {L"PG:postgres://scott:tiger@h/d", "PG:postgres://scott:***@h/d", L"PG:postgres://scott:***@h/d"},
    };
    scene_ptr const scene(vx_scn_2d_create(L""));
    for (int i = 0; auto const &c : cases)
        ASSERT_TRUE(vx_scn_2d_insert(scene.get(), i++, make_layer(c_lr_key_shp_pnt, L"", c.source.c_str())));
    std::filesystem::create_directories(dir / "maps");
    std::filesystem::create_directories(dir / "moved" / "maps");
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, (dir / "maps" / "a_.sn").wstring().c_str(), scene.get()));
    std::string const bytes = vx_test::read_file(dir / "maps" / "a_.sn");
    EXPECT_EQ(bytes.find("tiger"), std::string::npos);
    std::filesystem::rename(dir / "maps" / "a_.sn", dir / "moved" / "maps" / "a_.sn");
    ASSERT_TRUE(
        vx_xml_data_load_scn2d_w(nullptr, (dir / "moved" / "maps" / "a_.sn").wstring().c_str(), scene.get()));
    for (int i = 0; auto const &c : cases) {
        EXPECT_NE(bytes.find("source=\"" + c.stored + "\""), std::string::npos) << c.stored << "\n" << bytes;
        std::wstring found;
        vx_lr2d_get_wfilename(vx_scn_2d_get_layer(scene.get(), i++), Tvx_std_wstring_adapter(found));
        EXPECT_EQ(found, c.found);
    }
}

TEST(scene_files, damaged_ones_leave_the_scene_alone)
{
    vx_test::temp_dir dir;
    auto const path = (dir / "a_.sn").wstring();
    scene_ptr const scene = sample();
    layouts_ptr const layouts = sample_layouts(L"/d");
    for (int i = 11; i-- > 0;)
        if (i % 4 != 1) // a frame, a north arrow and a table are enough
            vx_lr2d_destroy(vx_scn_2d_extract(vx_scns_2d_get_scn(layouts.get(), 0), i));
    ASSERT_TRUE(vx_xml_data_save_scn2d_layouts_w(nullptr, path.c_str(), scene.get(), layouts.get()));
    std::string const bytes = vx_test::read_file(path);
    scene_ptr const target(vx_scn_2d_create(L"kept"));
    std::wstring const before = content(target.get()) + content(layouts.get());
    memory_file damaged;
    auto const refused = [&](std::string const &text) {
        damaged.set(text);
        return !vx_xml_data_load_scn2d_layouts_w(nullptr, damaged.path().c_str(), target.get(),
                                                 layouts.get()) &&
               content(target.get()) + content(layouts.get()) == before;
    };
    damaged.set(bytes);
    scene_ptr const whole(vx_scn_2d_create(L""));
    ASSERT_TRUE(vx_xml_data_load_scn2d_w(nullptr, damaged.path().c_str(), whole.get()))
        << "else all is refused";
    // Both ends and all that gives the file its shape; of the texts between, each ninth byte.
    auto const is_tried = [&](std::size_t at) {
        return at < 100 || at + 100 > bytes.size() || at % 9 == 0 || std::strchr("<>=\"/&?\n", bytes[at]);
    };
    for (std::size_t size = 0; size + 1 < bytes.size(); ++size)
        if (is_tried(size)) {
            ASSERT_TRUE(refused(bytes.substr(0, size))) << size;
        }
    // In a form that no checksum calls wrong by itself.
    int survived = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (!is_tried(at))
            continue;
        std::string text = bytes;
        text[at] = static_cast<char>(text[at] ^ 4);
        survived += !refused(text);
    }
    EXPECT_EQ(survived, 0);
    EXPECT_TRUE(refused("<vx_scene version=\"1\"><layer type=\"\"/></vx_scene>")) << "a layer of no kind";
    EXPECT_TRUE(refused("<vx_scene version=\"1\"><style/></vx_scene>"));
    EXPECT_TRUE(refused("<vx_scale version=\"1\"/>"));
    EXPECT_FALSE(vx_xml_data_load_scn2d_w(nullptr, L"/nowhere/x_.sn", target.get()));
    EXPECT_FALSE(vx_xml_data_load_scn2d_w(nullptr, nullptr, target.get()));
    EXPECT_FALSE(vx_xml_data_load_scn2d_w(nullptr, path.c_str(), nullptr));
    vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy> const xml(vx_xml_save_2d_create());
    EXPECT_FALSE(vx_xml_data_load_scn2d_w(xml.get(), L"/nowhere/x_.sn", target.get()));
    std::wstring reason;
    Tvx_std_wstring_adapter adapter(reason);
    vx_xml_data_get_error_w(xml.get(), adapter);
    EXPECT_NE(reason.find(L"x_.sn"), std::wstring::npos);
}
