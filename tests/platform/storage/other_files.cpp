#include "support.h"

#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_options.h"
#include "platform/basic/vx_palette.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/storage/file_names.h"
#include "platform/storage/vx_ini_data.h"
#include "platform/storage/vx_style_lib_file.h"
#include "platform/styles/vxk_styles.h"

#include <pugixml.hpp>

#include <charconv>
#include <cstdlib>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

using namespace vx_test;

namespace {
using owned_palettes = vx::owned<void, &vx_clr_palettes_destroy>;
using owned_libs = vx::owned<void, &vx_style_libs_destroy>;
using owned_ini = vx::owned<Ivx_ini_data, &vx_ini_data_destroy>;

template <class Get>
std::wstring text_from(Get get)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    get(adapter);
    return text;
}
std::wstring storage_path(wchar_t const *name)
{
    owned_ini const ini(vx_ini_data_create());
    return text_from([&](Ivx_string_adp *adp) { vx_ini_data_get_storage_path(ini.get(), name, adp); });
}

/// The user's storage in a folder of the test's own.
class storage_dir
{
public:
    storage_dir() { vx_ini_data_set_storage_directory(wide(f_dir / "storage").c_str()); }
    storage_dir(storage_dir const &) = delete;
    storage_dir &operator=(storage_dir const &) = delete;
    ~storage_dir() { vx_ini_data_set_storage_directory(nullptr); }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const
    {
        return f_dir / "storage" / name;
    }

private:
    temp_dir f_dir;
};

// ---- single styles
template <auto Create, auto Destroy, auto Equal, auto Load, auto Save, auto Fill>
void style_file_round_trip(char const *name)
{
    SCOPED_TRACE(name);
    temp_dir const dir;
    for (unsigned seed = 0; seed < 5; ++seed) {
        vx::owned<void, Destroy> const style(Create());
        vx::owned<void, Destroy> const other(Create());
        vx::owned<void, Destroy> const before(Create());
        maker m(seed);
        (m.*Fill)(style.get());
        auto const file = wide(dir / name);
        ASSERT_TRUE(Save(file.c_str(), style.get()));
        auto const bytes = read_file(dir / name);
        ASSERT_TRUE(Load(file.c_str(), other.get()));
        EXPECT_TRUE(Equal(style.get(), other.get()));
        ASSERT_TRUE(Save(file.c_str(), other.get()));
        EXPECT_EQ(bytes, read_file(dir / name));

        // A style keeps its values where the file is damaged.
        write_file(dir / name, bytes.substr(0, bytes.size() / 2));
        EXPECT_FALSE(Load(file.c_str(), before.get()));
        vx::owned<void, Destroy> const fresh(Create());
        EXPECT_TRUE(Equal(fresh.get(), before.get()));
    }
    EXPECT_FALSE(Load(L"", nullptr));
    EXPECT_FALSE(Save(L"", nullptr));
}

TEST(style_files, come_back)
{
    style_file_round_trip<&vx_pnt_style_create, &vx_pnt_style_destroy, &vx_pnt_style_equal,
                          &vx_xml_save_style_load_style_pnt_file, &vx_xml_save_style_save_style_pnt_file,
                          &maker::pnt>("x.s_p");
    style_file_round_trip<&vx_pln_style_create, &vx_pln_style_destroy, &vx_pln_style_equal,
                          &vx_xml_save_style_load_style_pln_file, &vx_xml_save_style_save_style_pln_file,
                          &maker::pln>("x.s_l");
    style_file_round_trip<&vx_pgn_style_create, &vx_pgn_style_destroy, &vx_pgn_style_equal,
                          &vx_xml_save_style_load_style_pgn_file, &vx_xml_save_style_save_style_pgn_file,
                          &maker::pgn>("x.s_a");
}

// ---- palettes
owned_palettes some_palettes()
{
    owned_palettes list(vx_clr_palettes_create());
    maker m(3);
    for (unsigned i = 0; i < 4; ++i) {
        void *const palette = vx_clr_palettes_add(list.get());
        vx_clr_palette_set_wcaption(palette, m.text().c_str());
        vx_clr_palette_set_size(palette, i * 3); // the first one is empty
        for (unsigned k = 0; k < i * 3; ++k)
            vx_clr_palette_set_color(palette, k, m.color());
    }
    return list;
}

void expect_same(void *a, void *b)
{
    ASSERT_EQ(vx_clr_palettes_get_size(a), vx_clr_palettes_get_size(b));
    for (unsigned i = 0; i < vx_clr_palettes_get_size(a); ++i) {
        void const *p = vx_clr_palettes_get_palette(a, i);
        void const *q = vx_clr_palettes_get_palette(b, i);
        EXPECT_EQ(text_from([&](Ivx_string_adp *adp) { vx_clr_palette_get_wcaption(p, adp); }),
                  text_from([&](Ivx_string_adp *adp) { vx_clr_palette_get_wcaption(q, adp); }));
        ASSERT_EQ(vx_clr_palette_get_size(p), vx_clr_palette_get_size(q));
        for (unsigned k = 0; k < vx_clr_palette_get_size(p); ++k)
            EXPECT_EQ(vx_clr_palette_get_color(p, k), vx_clr_palette_get_color(q, k));
    }
}

TEST(palette_files, come_back_and_damaged_ones_change_nothing)
{
    temp_dir const dir;
    auto const list = some_palettes();
    auto const file = wide(dir / "p.clrs");
    owned_xml const xml(vx_xml_save_2d_create());
    ASSERT_TRUE(vx_xml_data_save_clr_palettes(xml.get(), file.c_str(), list.get()));
    owned_palettes const other(vx_clr_palettes_create());
    vx_clr_palettes_add(other.get());
    ASSERT_TRUE(vx_xml_data_load_clr_palettes(xml.get(), file.c_str(), other.get()));
    expect_same(list.get(), other.get());

    auto const bytes = read_file(dir / "p.clrs");
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        auto damaged = bytes;
        damaged[i] ^= 1;
        write_file(dir / "p.clrs", damaged);
        ASSERT_FALSE(vx_xml_data_load_clr_palettes(xml.get(), file.c_str(), other.get())) << i;
    }
    expect_same(list.get(), other.get());
}

TEST(palette_files, the_users_palettes_come_from_his_storage)
{
    storage_dir const storage;
    auto const name = std::wstring(c_clr_palettes_basename) + c_clr_palettes_ext;
    auto const path = storage_path(name.c_str());
    EXPECT_EQ(wide(storage / "user_palettes.clrs"), path);

    // The list is read once for a process, so a damaged file is looked at in another one.
    write_file(storage / "user_palettes.clrs", "<vx_palettes");
    pid_t const child = fork();
    if (child == 0)
        _exit(static_cast<int>(vx_clr_palettes_get_size(vx_get_user_palettes())));
    int status = -1;
    ASSERT_EQ(child, waitpid(child, &status, 0));
    EXPECT_EQ(0, status);
    EXPECT_EQ("<vx_palettes", read_file(storage / "user_palettes.clrs.damaged"));
    EXPECT_EQ("<vx_palettes", read_file(storage / "user_palettes.clrs"));

    auto const list = some_palettes();
    ASSERT_TRUE(vx_xml_data_save_clr_palettes(nullptr, path.c_str(), list.get()));
    // Nothing in this program has asked for them before.
    expect_same(list.get(), vx_get_user_palettes());
}

TEST(ini_data, gives_paths_of_plain_names_only)
{
    storage_dir const storage;
    EXPECT_EQ(wide(storage / "a b.txt"), storage_path(L"a b.txt"));
    EXPECT_TRUE(std::filesystem::is_directory(storage / ""));
    for (auto const *name : {L"", L".", L"..", L"a/b", L"..\\b", L"/etc/passwd"})
        EXPECT_EQ(L"", storage_path(name));
    EXPECT_EQ(L"", storage_path(nullptr));
    vx_ini_data_set_storage_directory(nullptr);
    temp_dir const home;
    setenv("XDG_DATA_HOME", home.path().c_str(), 1);
    EXPECT_EQ(wide(home / "vxk/x"), storage_path(L"x"));
    unsetenv("XDG_DATA_HOME");
    std::string const before = std::getenv("HOME") ? std::getenv("HOME") : "";
    setenv("HOME", home.path().c_str(), 1);
    EXPECT_EQ(wide(home / ".local/share/vxk/x"), storage_path(L"x"));
    unsetenv("HOME");
    EXPECT_EQ(L"", storage_path(L"x"));
    setenv("HOME", before.c_str(), 1);
}

// ---- libraries
/// Two point styles, one of them in two versions, a line and a tree of two levels.
void fill_lib(void *lib)
{
    maker m(4);
    void *const points = vx_style_lib_get_pnt_list_ptr(lib);
    for (auto const &[index, version] : {std::pair{7, 1}, {7, 2}, {-3, 0}})
        m.pnt(vx_idx_pnt_style_get_pnt_style_ptr(vx_style_list_add_idx_style(points, index, version)));
    void *const lines = vx_style_lib_get_pln_list_ptr(lib);
    m.pln(vx_idx_pln_style_get_pln_style_ptr(vx_style_list_add_idx_style(lines, 9, 1)));
    void *const items = vx_style_item_get_style_items_ptr(vx_style_lib_get_root_item_ptr(lib));
    void *const group = vx_style_items_add(items, L"Signs <&>", -1, -1);
    vx_style_items_add(vx_style_item_get_style_items_ptr(group), L"Spring", 7, 2);
    vx_style_items_add(items, L"Fence", 9, 1);
}

TEST(style_lib_files, come_back)
{
    temp_dir const dir;
    owned_libs const libs(vx_style_libs_create());
    void *const lib = vx_style_libs_add_lib(libs.get(), L"Water & springs");
    fill_lib(lib);
    auto const file = wide(dir / "w.slib");
    ASSERT_TRUE(vx_xml_data_save_style_lib(nullptr, file.c_str(), lib));
    auto const bytes = read_file(dir / "w.slib");
    ASSERT_TRUE(vx_xml_data_load_style_lib(nullptr, file.c_str(), libs.get()));
    ASSERT_EQ(2u, vx_style_libs_get_size(libs.get()));
    void *const again = vx_style_libs_get_lib_ptr(libs.get(), 1);
    EXPECT_STREQ(L"Water & springs", vx_style_lib_get_name_w(again));
    EXPECT_EQ(3u, vx_style_list_get_size(vx_style_lib_get_pnt_list_ptr(again)));
    for (unsigned i = 0; i < 3; ++i) {
        void *const a = vx_style_list_get_idx_style(vx_style_lib_get_pnt_list_ptr(lib), i);
        void *const b = vx_style_list_get_idx_style(vx_style_lib_get_pnt_list_ptr(again), i);
        EXPECT_EQ(vx_idx_style_get_index(a), vx_idx_style_get_index(b));
        EXPECT_EQ(vx_idx_style_get_version(a), vx_idx_style_get_version(b));
        EXPECT_TRUE(
            vx_pnt_style_equal(vx_idx_pnt_style_get_pnt_style_ptr(a), vx_idx_pnt_style_get_pnt_style_ptr(b)));
    }
    void *const items = vx_style_item_get_style_items_ptr(vx_style_lib_get_root_item_ptr(again));
    ASSERT_EQ(2u, vx_style_items_get_size(items));
    void *const group = vx_style_items_get_style_item_ptr(items, 0);
    EXPECT_STREQ(L"Signs <&>", vx_style_item_get_caption_w(group));
    EXPECT_EQ(7, vx_style_item_get_index(
                     vx_style_items_get_style_item_ptr(vx_style_item_get_style_items_ptr(group), 0)));
    ASSERT_TRUE(vx_xml_data_save_style_lib(nullptr, file.c_str(), again));
    EXPECT_EQ(bytes, read_file(dir / "w.slib"));

    std::string deep = "<vx_style_library version=\"1\" name=\"x\"><points/><lines/><polygons/>";
    for (int i = 0; i < 100'000; ++i)
        deep += "<item>";
    for (int i = 0; i < 100'000; ++i)
        deep += "</item>";
    auto const with = [](std::string const &points, std::string const &rest) {
        return "<vx_style_library version=\"1\"><points>" + points + "</points><lines/><polygons/>" + rest +
               "</vx_style_library>";
    };
    std::string const one =
        bytes.substr(bytes.find("<style"), bytes.find("</style>") + 8 - bytes.find("<style"));
    auto const gradient = [&](std::string const &content) {
        return with(one.substr(0, one.size() - 8) + "<gradient>" + content + "</gradient></style>",
                    "<item/>");
    };
    std::string many;
    for (int i = 0; i < 100'001; ++i)
        many += "<item/>";
    write_file(dir / "w.slib", with(one + one, "<item/>"));
    EXPECT_TRUE(vx_xml_data_load_style_lib(nullptr, file.c_str(), libs.get())) << "two of one index";
    for (auto const &wrong :
         {bytes.substr(0, bytes.size() / 2), deep + "</vx_style_library>", bytes + bytes,
          with("", "<item>" + many + "</item>"), with("", "<item/><item/>"), with("", ""),
          with("", "<item index=\"99999999999\"/>"), with("", "<item caption_1=\"x\"/>"),
          gradient("<color value=\"#000000ff\"/>"), gradient("<color value=\"#00000\"/><color/>")}) {
        write_file(dir / "w.slib", wrong);
        EXPECT_FALSE(vx_xml_data_load_style_lib(nullptr, file.c_str(), libs.get())) << wrong.substr(0, 300);
    }
    EXPECT_EQ(3u, vx_style_libs_get_size(libs.get()));
}

/// A cased road in two languages, with all that a library can say.
constexpr char const *c_roads = R"(<?xml version="1.0" encoding="UTF-8"?>
<vx_style_library version="1" name="Roads" name_de="Straßen" name_ru="Дороги" source="our survey" licence="CC0-1.0">
 <points />
 <lines>
  <style index="5" version="1" licence="ODbL-1.0" show_line="1" show_point="0" show_end="0" show_begin="0">
   <line color="#484848ff" width="0.25" use_complex="1">
    <complex>
     <layer type="pln_line_slr" color="#282828ff" width="2" delta="0" />
     <layer type="pln_line_slr" color="#fac83c80" width="1.4" delta="0" />
    </complex>
   </line>
   <point use_figure="1" figure="0" font="DejaVu Sans" charset="1" bold="0" italic="0" underline="0" strikeout="0" symbol="9679" color="#386098ff" size="2" use_complex="0" />
   <end use_figure="1" figure="0" font="DejaVu Sans" charset="1" bold="0" italic="0" underline="0" strikeout="0" symbol="9679" color="#386098ff" size="2" use_complex="0" />
   <begin use_figure="1" figure="0" font="DejaVu Sans" charset="1" bold="0" italic="0" underline="0" strikeout="0" symbol="9679" color="#386098ff" size="2" use_complex="0" />
   <gradient of="#fac83cff">
    <color value="#fff0c8ff" />
    <color value="#783c00ff" />
   </gradient>
  </style>
 </lines>
 <polygons />
 <item caption="Roads" caption_ru="Дороги" index="-1" version="-1">
  <item caption="Main road" caption_ru="Главная дорога" index="5" version="1" />
 </item>
</vx_style_library>
)";

/// Colours of the two layers of a road, as a step of its gradient.
std::vector<Tvx_color> road_step(unsigned position, unsigned count)
{
    vx::owned<void, &vx_pln_style_destroy> const road(vx_pln_style_create());
    EXPECT_TRUE(vx_global_lib_styles_get_spec_pln_gradient(0, 5, position, count, road.get()));
    void *const line = vx_pln_style_get_bpln_style_ptr(road.get());
    void *const layers = vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(line));
    std::vector<Tvx_color> colors;
    for (unsigned i = 0; i < vx_style_lrs_get_size(layers); ++i)
        colors.push_back(vx_pln_line_lr_get_color(vx_style_lrs_get_lr_ptr(layers, i)));
    return colors;
}

TEST(style_lib_files, speak_languages_name_their_source_and_give_gradients)
{
    storage_dir const storage;
    std::filesystem::create_directories(storage / "style_libs");
    write_file(storage / "style_libs/roads.slib", c_roads);
    owned_libs const libs(vx_style_libs_create());
    auto const file = wide(storage / "style_libs/roads.slib");
    ASSERT_TRUE(vx_xml_data_load_style_lib(nullptr, file.c_str(), libs.get()));
    void *const lib = vx_style_libs_get_lib_ptr(libs.get(), 0);
    void *const main_road = vx_style_items_get_style_item_ptr(
        vx_style_item_get_style_items_ptr(vx_style_lib_get_root_item_ptr(lib)), 0);
    EXPECT_STREQ(L"Roads", vx_style_lib_get_name_w(lib));
    ASSERT_TRUE(vx_options_set_language("ru"));
    EXPECT_STREQ(L"Дороги", vx_style_lib_get_name_w(lib));
    EXPECT_STREQ(L"Главная дорога", vx_style_item_get_caption_w(main_road));
    vx_options_set_language("en");
    EXPECT_STREQ(L"Main road", vx_style_item_get_caption_w(main_road));
    EXPECT_EQ(file, vx_style_lib_get_file_w(lib));
    void *const road = vx_style_list_get_idx_style(vx_style_lib_get_pln_list_ptr(lib), 0);
    EXPECT_STREQ(L"our survey", vx_style_lib_get_source_w(lib, road));
    EXPECT_STREQ(L"ODbL-1.0", vx_style_lib_get_licence_w(lib, road));
    EXPECT_STREQ(L"CC0-1.0", vx_style_lib_get_licence_w(lib, nullptr));
    ASSERT_TRUE(vx_xml_data_save_style_lib(nullptr, file.c_str(), lib));
    EXPECT_EQ(c_roads, read_file(storage / "style_libs/roads.slib")) << "a merge finds nothing that differs";

    auto const loader = vx_global_lib_styles_set_loader([](void *libs) {
        auto const path = storage_path(L"style_libs") + L"/roads.slib";
        return vx_xml_data_load_style_lib(nullptr, path.c_str(), libs);
    });
    constexpr Tvx_color c_casing = vx_clr_init_rgb(40, 40, 40);
    EXPECT_EQ(road_step(0, 1), (std::vector{c_casing, vx_clr_init_rgba(250, 200, 60, 128)}));
    EXPECT_EQ(road_step(0, 3), (std::vector{c_casing, vx_clr_init_rgba(255, 240, 200, 128)}));
    EXPECT_EQ(road_step(2, 3), (std::vector{c_casing, vx_clr_init_rgba(120, 60, 0, 128)}));
    vx_global_lib_styles_set_loader(loader);
}

TEST(style_lib_files, are_found_in_the_users_storage)
{
    storage_dir const storage;
    std::filesystem::create_directories(storage / "style_libs");
    owned_libs const libs(vx_style_libs_create());
    for (auto const *name : {L"second", L"first"}) {
        void *const lib = vx_style_libs_add_lib(libs.get(), name);
        fill_lib(lib);
        ASSERT_TRUE(vx_xml_data_save_style_lib(
            nullptr, (wide(storage / "style_libs") + L"/" + name + c_style_lib_ext).c_str(), lib));
    }
    write_file(storage / "style_libs/damaged.slib", "<vx_style_library");
    write_file(storage / "style_libs/readme.txt", "no library");
    ASSERT_TRUE(vx_global_lib_styles_load());
    auto const faults = [] {
        return text_from([](Ivx_string_adp *adp) { vx_global_lib_styles_take_faults(adp); });
    };
    auto const told = faults();
    EXPECT_NE(told.find(L"damaged.slib"), told.npos);
    EXPECT_EQ(told.find(L'\n'), told.npos) << told;
    EXPECT_EQ(faults(), L"") << "told once";
    void *const global = vx_global_lib_styles_get_libs();
    ASSERT_LE(2u, vx_style_libs_get_size(global));
    EXPECT_STREQ(L"first", vx_style_lib_get_name_w(vx_style_libs_get_lib_ptr(global, 0)));
    EXPECT_STREQ(L"second", vx_style_lib_get_name_w(vx_style_libs_get_lib_ptr(global, 1)));
}

/// Puts a line of this width into a library of the user's, below "Ways" and the group.
bool put_line(std::wstring const &file, int index, wchar_t const *group, wchar_t const *caption, double width)
{
    vx::owned<void, &vx_pln_style_destroy> const line(vx_pln_style_create());
    vx_bpln_style_set_width(vx_pln_style_get_bpln_style_ptr(line.get()), width);
    vx::owned<void, &vx_wstrings_destroy> const groups(vx_wstrings_create());
    vx_wstrings_split_str(groups.get(), group, L'|');
    return vx_xml_data_put_user_style(nullptr, file.c_str(), L"My: ways/..", "pln_style", line.get(), index,
                                      groups.get(), caption);
}

/// Captions of the tree with the numbers they name, a level deeper in brackets.
std::wstring tree_text(void *item)
{
    std::wstring text = vx_style_item_get_caption_w(item);
    if (vx_style_item_get_index(item) >= 0)
        text += L" " + std::to_wstring(vx_style_item_get_index(item));
    void *const items = vx_style_item_get_style_items_ptr(item);
    for (unsigned i = 0; i < vx_style_items_get_size(items); ++i)
        text += (i == 0 ? L" (" : L", ") + tree_text(vx_style_items_get_style_item_ptr(items, i));
    return vx_style_items_get_size(items) > 0 ? text + L")" : text;
}

std::wstring tree_of_file(std::wstring const &file)
{
    owned_libs const libs(vx_style_libs_create());
    if (!vx_xml_data_load_style_lib(nullptr, file.c_str(), libs.get()))
        return L"unreadable";
    return tree_text(vx_style_lib_get_root_item_ptr(vx_style_libs_get_lib_ptr(libs.get(), 0)));
}

/// The reasons that the user was told.
std::vector<std::wstring> told_reasons;

class user_style_libs : public testing::Test
{
protected:
    user_style_libs()
    {
        forget_libs();
        f_handler = vx_reason_set_handler([](wchar_t const *reason) { told_reasons.emplace_back(reason); });
    }
    ~user_style_libs() override
    {
        vx_reason_set_handler(f_handler);
        forget_libs();
        EXPECT_TRUE(told_reasons.empty());
        told_reasons.clear();
    }
    /// As at the start of another process.
    static void forget_libs() { vx_global_lib_styles_set_loader(vx_global_lib_styles_set_loader(nullptr)); }
    static void *users_lib() { return vx_style_libs_get_lib_ptr(vx_global_lib_styles_get_libs(), 0); }

    storage_dir storage;

private:
    Tvx_reason_handler f_handler;
};

TEST_F(user_style_libs, take_styles_at_once_and_in_another_process)
{
    void *const before = vx_global_lib_styles_get_libs();
    unsigned const shared = vx_style_libs_get_size(before);
    ASSERT_TRUE(put_line(L"", 500, L"Ways|Narrow", L"Path", 0.1));
    auto const file = wide(storage / "style_libs/My_ ways___.slib");
    ASSERT_EQ(vx_style_libs_get_size(before), shared + 1) << "the process has it at once";
    void *const lib = vx_style_libs_get_lib_ptr(before, shared);
    EXPECT_STREQ(vx_style_lib_get_name_w(lib), L"My: ways/..");
    EXPECT_EQ(vx_style_lib_get_file_w(lib), file);
    void *const root = vx_style_lib_get_root_item_ptr(lib);
    ASSERT_TRUE(put_line(file, 300, L"Ways|Narrow", L"Alley", 0.2));
    ASSERT_TRUE(put_line(file, 400, L"Ways", L"Lane", 0.3));
    ASSERT_TRUE(put_line(file, 200, L"", L"A line", 0.4));
    auto const whole = L"My: ways/.. (A line 200, Ways (Lane 400, Narrow (Alley 300, Path 500)))";
    EXPECT_EQ(tree_text(root), whole) << "and its pointers stay good";
    EXPECT_EQ(tree_of_file(file), whole);
    ASSERT_TRUE(put_line(L"", 1, L"", L"x", 1)) << "another one of that name";
    EXPECT_TRUE(std::filesystem::exists(storage / "style_libs/My_ ways____2.slib"));

    forget_libs();
    EXPECT_EQ(tree_text(vx_style_lib_get_root_item_ptr(users_lib())), whole);
    vx::owned<void, &vx_pln_style_destroy> const line(vx_pln_style_create());
    ASSERT_TRUE(vx_global_lib_styles_get_spec_pln(0, 300, line.get()));
    EXPECT_EQ(vx_bpln_style_get_width(vx_pln_style_get_bpln_style_ptr(line.get())), 0.2);
    void *const lines = vx_style_lib_get_pln_list_ptr(users_lib());
    for (unsigned i = 0; i < 4; ++i)
        EXPECT_EQ(vx_idx_style_get_index(vx_style_list_get_idx_style(lines, i)),
                  200 + 100 * static_cast<int>(i));
}

TEST_F(user_style_libs, lose_nothing_where_a_style_cannot_be_put)
{
    ASSERT_TRUE(put_line(L"", 500, L"", L"Path", 0.1));
    auto const file = storage / "style_libs/My_ ways___.slib";
    auto const bytes = read_file(file);
    // Somebody else has put one there since the process read it.
    ASSERT_NE(users_lib(), nullptr);
    std::string theirs = bytes;
    theirs.replace(theirs.find("index=\"500\""), 11, "index=\"600\"");
    write_file(file, theirs);
    EXPECT_FALSE(put_line(wide(file), 600, L"", L"Lane", 1));
    EXPECT_EQ(read_file(file), theirs);
    EXPECT_EQ(std::exchange(told_reasons, {}).size(), 1u);
    for (auto const &damaged : {bytes.substr(0, 300), std::string(), bytes + bytes}) {
        write_file(file, damaged);
        EXPECT_FALSE(put_line(wide(file), 700, L"", L"Lane", 1));
        EXPECT_EQ(read_file(file), damaged);
        EXPECT_EQ(std::exchange(told_reasons, {}).size(), 1u);
    }
    EXPECT_FALSE(put_line(wide(storage / "gone.slib"), 700, L"", L"Lane", 1));
    vx_ini_data_set_storage_directory(wide(file).c_str()); // a file where the folder should be
    EXPECT_FALSE(put_line(L"", 700, L"", L"Lane", 1));
    EXPECT_EQ(std::exchange(told_reasons, {}).size(), 2u);
    void *const lib = users_lib();
    for (int const index : {-1, 500})
        EXPECT_EQ(vx_style_lib_put_style(lib, "pnt_style", lib, index, 1, nullptr, L"x"), nullptr);
    EXPECT_EQ(vx_style_lib_put_style(lib, "txt_style", lib, 1, 1, nullptr, L"x"), nullptr);
    EXPECT_EQ(vx_style_lib_put_style(lib, "pnt_style", nullptr, 1, 1, nullptr, L"x"), nullptr);
}

TEST_F(user_style_libs, merge_as_text)
{
    if (std::system("git --version > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "there is no git";
    temp_dir const dir;
    std::string const users = (storage / "style_libs/My_ ways___.slib").string();
    auto const copy = [&](char const *name) { std::filesystem::copy_file(users, dir / name); };
    ASSERT_TRUE(put_line(L"", 100'000, L"Ways", L"Lane", 1));
    ASSERT_TRUE(put_line(wide(users), 500'000, L"Ways", L"Path", 1));
    ASSERT_TRUE(put_line(wide(users), 900'000, L"Ways", L"Track", 1));
    copy("base");
    auto const base = read_file(users);
    ASSERT_TRUE(put_line(wide(users), 700'000, L"Ways", L"Road", 2));
    copy("mine");
    write_file(users, base);
    ASSERT_TRUE(put_line(wide(users), 300'000, L"Ways", L"Alley", 3));
    copy("theirs");
    auto const path = dir.path().string();
    ASSERT_EQ(0, std::system(("cd '" + path + "' && git merge-file mine base theirs").c_str()))
        << "a conflict";
    EXPECT_EQ(tree_of_file(wide(dir / "mine")),
              L"My: ways/.. (Ways (Alley 300000, Lane 100000, Path 500000, Road 700000, Track 900000))");
}

// ---- colour maps
struct map_point
{
    double x, o, r, g, b;
};

/// Reads a colour map by the rules of the viewers: a `ColorMaps` of one `ColorMap` with a name and a space,
/// `Point`s of numbers in ascending order, channels from 0 to 1, and a `NaN`.
std::vector<map_point> parse_color_map(std::filesystem::path const &file, map_point &nan)
{
    pugi::xml_document doc;
    EXPECT_TRUE(doc.load_file(file.c_str()));
    auto const map = doc.child("ColorMaps").child("ColorMap");
    EXPECT_STRNE("", map.attribute("name").value());
    EXPECT_STREQ("RGB", map.attribute("space").value());
    EXPECT_STREQ("false", map.attribute("indexedLookup").value());
    auto const number = [](pugi::xml_node const &node, char const *name) {
        std::string_view const text = node.attribute(name).value();
        double value = -1;
        EXPECT_EQ(text.data() + text.size(),
                  std::from_chars(text.data(), text.data() + text.size(), value).ptr);
        return value;
    };
    std::vector<map_point> points;
    for (auto const node : map.children("Point"))
        points.push_back(
            {number(node, "x"), number(node, "o"), number(node, "r"), number(node, "g"), number(node, "b")});
    for (std::size_t i = 0; i < points.size(); ++i) {
        map_point const &p = points[i];
        EXPECT_TRUE(i == 0 || p.x > points[i - 1].x) << p.x;
        for (double const channel : {p.o, p.r, p.g, p.b})
            EXPECT_TRUE(channel >= 0 && channel <= 1) << channel;
    }
    auto const node = map.child("NaN");
    nan = {0, 1, number(node, "r"), number(node, "g"), number(node, "b")};
    return points;
}

/// What a viewer shows for a value: colours run straight between points, and stay beyond the ends.
map_point color_at(std::vector<map_point> const &points, double x)
{
    if (x <= points.front().x)
        return points.front();
    for (std::size_t i = 1; i < points.size(); ++i) {
        auto const &a = points[i - 1];
        auto const &b = points[i];
        double const t = (x - a.x) / (b.x - a.x);
        if (x <= b.x)
            return {x, std::lerp(a.o, b.o, t), std::lerp(a.r, b.r, t), std::lerp(a.g, b.g, t),
                    std::lerp(a.b, b.b, t)};
    }
    return points.back();
}

TEST(color_map, shows_each_value_in_the_colour_of_its_row)
{
    temp_dir const dir;
    auto const mngr = make_mngr("clr_style");
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"DEPTH <m>");
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    double const bounds[] = {-1.5, 0, 0.1, 1e6};
    vx_rng_scale_set_size(scale, 3);
    vx_rng_scale_set_min_value(scale, bounds[0]);
    vx_rng_scale_set_max_value(scale, bounds[3]);
    for (unsigned i = 0; i < 3; ++i) {
        vx_rng_scale_set_min(scale, i, bounds[i]);
        vx_rng_scale_set_max(scale, i, bounds[i + 1]);
    }
    auto const row_prm = [&](unsigned row) {
        return row == 0   ? vx_rng_scale_get_min_prm_ptr(scale)
               : row <= 3 ? vx_rng_scale_get_scale_prm_ptr(scale, row - 1)
               : row == 4 ? vx_rng_scale_get_max_prm_ptr(scale)
                          : vx_rng_scale_get_other_prm_ptr(scale);
    };
    for (unsigned row = 0; row < 6; ++row)
        vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(row_prm(row)), false,
                             vx_clr_init_rgba(static_cast<int>(row) * 50, 51, 255, 255));
    vx_scale_prm_set_visible(row_prm(2), false);
    double const positions[] = {0, 0.5, 1};
    double const opacities[] = {1, 0.5, 1};
    ASSERT_TRUE(vx_rng_scale_set_opacity_pts(scale, positions, opacities, 3));

    ASSERT_TRUE(vx_xml_save_style_save_pv_color_map(nullptr, wide(dir / "m.xml").c_str(), mngr.get(), ""));
    map_point nan{};
    auto const points = parse_color_map(dir / "m.xml", nan);
    EXPECT_NEAR(250 / 255.0, nan.r, 1e-12);
    for (double const x : {-1e9, -1.5, -1.4999, -0.1, 0.0, 0.0001, 0.1, 0.1001, 3e5, 1e6, 1e6 + 1, 1e9}) {
        unsigned const row = vx_rng_scale_find(scale, x);
        auto const shown = color_at(points, x);
        EXPECT_NEAR(row * 50 / 255.0, shown.r, 1e-12) << x;
        EXPECT_NEAR(0.2, shown.g, 1e-12);
        EXPECT_NEAR(1, shown.b, 1e-12);
    }
    EXPECT_EQ(0, color_at(points, 0.05).o) << "hidden";
    EXPECT_NEAR(0.5, color_at(points, 5e5 - 0.75).o, 1e-9) << "middle of the opacity curve";
    EXPECT_NEAR(0.75, color_at(points, 2.5e5 - 1.125).o, 1e-5);
    EXPECT_EQ(1, color_at(points, 2e6).o);
}

TEST(color_map, of_scales_that_are_no_row_of_ranges)
{
    temp_dir const dir;
    map_point nan{};
    auto const file = wide(dir / "m.xml");
    auto const mngr = make_mngr("pnt_style");
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    ASSERT_TRUE(vx_xml_save_style_save_pv_color_map(nullptr, file.c_str(), mngr.get(), nullptr));
    EXPECT_EQ(2u, parse_color_map(dir / "m.xml", nan).size()) << "min and max entry";
    for (unsigned seed = 0; seed < 30; ++seed) {
        maker(seed).rng_scale(scale, seed % 5); // overlaps, gaps, infinities
        if (vx_xml_save_style_save_pv_color_map(nullptr, file.c_str(), mngr.get(), nullptr)) {
            EXPECT_LE(1u, parse_color_map(dir / "m.xml", nan).size());
        }
    }
    double const none = std::numeric_limits<double>::quiet_NaN();
    vx_rng_scale_set_size(scale, 0);
    vx_rng_scale_set_min_value(scale, none);
    vx_rng_scale_set_max_value(scale, none);
    EXPECT_FALSE(vx_xml_save_style_save_pv_color_map(nullptr, file.c_str(), mngr.get(), nullptr));
    EXPECT_FALSE(vx_xml_save_style_save_pv_color_map(nullptr, file.c_str(), mngr.get(), "clr_style"));
    EXPECT_FALSE(vx_xml_save_style_save_pv_color_map(nullptr, file.c_str(), nullptr, nullptr));
}

// ---- the document
/// Names of all elements and attributes below a node.
void collect_names(pugi::xml_node const &node, std::set<std::string> &names)
{
    for (auto const child : node.children()) {
        names.insert(child.name());
        for (auto const attribute : child.attributes())
            names.insert(attribute.name());
        collect_names(child, names);
    }
}

TEST(file_formats, every_name_in_a_file_is_explained_in_the_document)
{
    temp_dir const dir;
    std::set<std::string> names;
    auto const add = [&](std::filesystem::path const &file) {
        pugi::xml_document doc;
        ASSERT_TRUE(doc.load_file(file.c_str()));
        collect_names(doc, names);
    };
    for (char const *type : c_all_types) {
        auto const mngr = make_mngr(type);
        maker(1).scales(mngr.get(), 10);
        for (scale_file const &kind : c_scale_files) {
            ASSERT_TRUE(kind.save(nullptr, wide(dir / kind.name).c_str(), mngr.get(), nullptr));
            add(dir / kind.name);
        }
    }
    owned_libs const libs(vx_style_libs_create());
    void *const lib = vx_style_libs_add_lib(libs.get(), L"x");
    fill_lib(lib);
    ASSERT_TRUE(vx_xml_data_save_style_lib(nullptr, wide(dir / "lib").c_str(), lib));
    add(dir / "lib");
    ASSERT_TRUE(
        vx_xml_data_save_clr_palettes(nullptr, wide(dir / "palettes").c_str(), some_palettes().get()));
    add(dir / "palettes");
    EXPECT_LE(100u, names.size()) << "all fields of all layers";

    auto const document = read_file(VX_SOURCE_DIR "/docs/file-formats.md");
    for (auto const &name : names)
        EXPECT_NE(std::string::npos, document.find('`' + name + '`')) << name;
}
} // namespace
