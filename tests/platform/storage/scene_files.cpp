#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/storage/vx_scn_2d_file.h"
#include "platform/storage/vx_xml_save_2d.h"

#include <gtest/gtest.h>

namespace {
using scene_ptr = vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy>;

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

scene_ptr sample()
{
    scene_ptr scene(vx_scn_2d_create(L"Реки & \"lakes\" <1>"));
    vx_scn_2d_set_izotropic(scene.get(), false);
    EXPECT_TRUE(
        vx_scn_2d_insert(scene.get(), 0, make_layer(c_lr_key_shp_pgn, L"Lakes", L"*/data/lakes.shp")));
    EXPECT_TRUE(vx_scn_2d_insert(scene.get(), 1, make_layer(c_lr_key_rtr, L"Map", L"/data/map.tif")));
    EXPECT_TRUE(vx_scn_2d_insert(scene.get(), 2, make_layer("foreign_lr2d", L"", L"")));
    vx_lr2d_set_visible(vx_scn_2d_get_layer(scene.get(), 1), false);
    return scene;
}
} // namespace

TEST(scene_files, come_back_as_they_were)
{
    vx_test::temp_dir dir;
    auto const path = (dir / "a_.sn").wstring();
    scene_ptr const scene = sample();
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.c_str(), scene.get()));
    scene_ptr const other(vx_scn_2d_create(L"other"));
    ASSERT_TRUE(vx_scn_2d_insert(other.get(), 0, make_layer(c_lr_key_rtr, L"goes away", L"")));
    ASSERT_TRUE(vx_xml_data_load_scn2d_w(nullptr, path.c_str(), other.get()));
    EXPECT_EQ(content(other.get()), content(scene.get()));
    std::string const bytes = vx_test::read_file(path);
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.c_str(), other.get()));
    EXPECT_EQ(vx_test::read_file(path), bytes);
    EXPECT_EQ(dir.count(), 1);
}

TEST(scene_files, damaged_ones_leave_the_scene_alone)
{
    vx_test::temp_dir dir;
    auto const path = (dir / "a_.sn").wstring();
    scene_ptr const scene = sample();
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.c_str(), scene.get()));
    std::string const bytes = vx_test::read_file(path);
    scene_ptr const target(vx_scn_2d_create(L"kept"));
    std::wstring const before = content(target.get());
    auto const refused = [&](std::string const &text) {
        vx_test::write_file(path, text);
        return !vx_xml_data_load_scn2d_w(nullptr, path.c_str(), target.get()) &&
               content(target.get()) == before;
    };
    for (std::size_t size = 0; size + 1 < bytes.size(); ++size)
        ASSERT_TRUE(refused(bytes.substr(0, size))) << size;
    // Each byte in turn, in a form that no checksum calls wrong by itself.
    int survived = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
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
