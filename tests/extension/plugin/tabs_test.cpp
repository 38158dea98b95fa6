#include "controls/numeric/vcl_dbl_edit.h"
#include "extension/plugin/plugin_lr_edit.h"
#include "layer_edit/page_set/lr2d_edit.h"
#include "style_manager/scales/rng_edit.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_options.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"
#include "platform/winapi/library.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace input = vx::user_input;
namespace {
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

std::wstring module_path(char const *name)
{
    return vx::text::utf8_to_wide(std::string(VX_TEST_PLUGINS "/") + name);
}

/// What a module of the tests has written down since it was last asked.
std::string log_of(char const *name)
{
    auto *const module = GetModuleHandleW(module_path(name).c_str());
    auto *const take = reinterpret_cast<char const *(*)()>(GetProcAddress(module, "test_take_log"));
    return take ? take() : "not loaded";
}

template <class T>
T *find(TWinControl *in)
{
    for (int i = 0; i < in->GetControlCount(); ++i) {
        if (auto *const hit = dynamic_cast<T *>(in->GetControls(i)))
            return hit;
        if (auto *const below = dynamic_cast<TWinControl *>(in->GetControls(i)))
            if (auto *const hit = find<T>(below))
                return hit;
    }
    return nullptr;
}

class tabs : public testing::Test
{
public:
    // The set of style editors is one for the process.
    static void SetUpTestSuite()
    {
        vx_options_set_style_editor_plugin_mask(module_path("odd_style/*.so").c_str());
        ASSERT_EQ(vx_get_style_edit_plugin_module_set().get_plugin_count(), 2U);
    }
    tabs() { form.SetBounds(50, 50, 500, 500); }
    ~tabs() override
    {
        vx_options_set_lr_2d_editor_plugin_mask(nullptr);
        Application->OnException = {};
    }
    void make_page_set(char const *mask)
    {
        vx_options_set_lr_2d_editor_plugin_mask(module_path(mask).c_str());
        edit = std::make_unique<Tvx_lr2d_edit>(nullptr);
        edit->SetParent(&form);
        edit->create();
        edit->SetAlign(alClient);
        edit->load_res();
    }
    void on_exception(TObject * /*sender*/, std::exception const * /*exception*/) { ++told; }

    TForm form{nullptr};
    std::unique_ptr<Tvx_lr2d_edit> edit;
    int told = 0;
};
} // namespace

TEST_F(tabs, of_a_layer_page_live_with_the_page_set)
{
    make_page_set("both/*.so");
    EXPECT_EQ(log_of("both/b_page.so"), "create, parent");
    auto *const pages = edit->get_pages();
    ASSERT_EQ(pages->GetPageCount(), 5);
    EXPECT_EQ(pages->GetPages(4)->GetCaption(), L"Page \x44F");
    form.Show();
    owned_layer const layer(vx_lr2d_create("shp_pnt_lr2d"));
    edit->set_lr2d(layer.get());
    edit->set_lr2d(nullptr);
    edit->set_lr2d(layer.get());
    edit->update_controls();
    EXPECT_EQ(log_of("both/b_page.so"), "attach shp_pnt_lr2d, attach nothing, attach shp_pnt_lr2d");
    EXPECT_EQ(pages->GetPageCount(), 5) << "the tab keeps its place";
    // The panel of a plug-in in plain C works by mouse, and fills the tab.
    ASSERT_TRUE(input::click_tab(pages, L"Page \x44F"));
    auto *const box = find<TCheckBox>(pages->GetPages(4));
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(input::click(box));
    EXPECT_TRUE(box->GetChecked());
    EXPECT_EQ(GetParentForm(box), &form);
    edit.reset();
    EXPECT_EQ(log_of("both/b_page.so"), "destroy");
    // A second and a third set beside each other have instances of their own.
    make_page_set("both/*.so");
    auto const first = std::move(edit);
    make_page_set("both/*.so");
    EXPECT_EQ(log_of("both/b_page.so"), "create, parent, create, parent");
}

TEST_F(tabs, of_modules_that_fail_stay_empty_and_harm_nobody)
{
    Application->OnException = make_closure<&tabs::on_exception>(static_cast<tabs *>(this));
    make_page_set("odd/*.so");
    log_of("odd/b_null_instance.so");
    form.Show();
    auto *const pages = edit->get_pages();
    ASSERT_EQ(pages->GetPageCount(), 8);
    EXPECT_EQ(pages->GetPages(4)->GetCaption(), L"a_null_caption");
    EXPECT_EQ(pages->GetPages(5)->GetCaption(), L"Page \x44F");
    owned_layer const layer(vx_lr2d_create("shp_pgn_lr2d"));
    edit->set_lr2d(layer.get());
    for (int i = 1; i < 6; ++i)
        EXPECT_TRUE(input::click_tab(pages, i));
    edit.reset();
    EXPECT_EQ(log_of("odd/a_null_caption.so"), "create, parent, attach shp_pgn_lr2d, destroy");
    EXPECT_EQ(log_of("odd/b_null_instance.so"), "");
    EXPECT_GT(told, 4);
    make_page_set("no such folder/*.so");
    EXPECT_EQ(edit->get_pages()->GetPageCount(), 4);
}

// ---- style editors

namespace {
/// A table with a number and a text, of which the last has no value.
struct table
{
    bool open(TObject * /*sender*/)
    {
        ++opened;
        return has_data;
    }
    void close(TObject * /*sender*/) { ++closed; }
    unsigned get_np(TObject * /*sender*/) { return fields; }
    unsigned get_no(TObject * /*sender*/) { return records; }
    char const *get_prop(TObject * /*sender*/, unsigned prop, bool &usable, bool &numeric)
    {
        usable = true;
        numeric = prop == 0;
        return prop == 0 ? "size" : "name";
    }
    char const *get_str(TObject * /*sender*/, unsigned /*prop*/, unsigned obj, bool &defined)
    {
        if (throws)
            throw std::runtime_error("no table");
        if (stops)
            records = 0;
        defined = obj == 0;
        return "forest";
    }
    double get_val(TObject * /*sender*/, unsigned /*prop*/, unsigned obj, bool &defined)
    {
        defined = true;
        return 1.5 + obj;
    }
    void bind(Tvx_plugin_lr_edit &panel)
    {
        panel.set_on_data_open(make_closure<&table::open>(this));
        panel.set_on_data_close(make_closure<&table::close>(this));
        panel.set_on_data_get_np(make_closure<&table::get_np>(this));
        panel.set_on_data_get_no(make_closure<&table::get_no>(this));
        panel.set_on_data_get_prop(make_closure<&table::get_prop>(this));
        panel.set_on_data_get_str(make_closure<&table::get_str>(this));
        panel.set_on_data_get_val(make_closure<&table::get_val>(this));
    }

    unsigned fields = 2;
    unsigned records = 2;
    bool has_data = true;
    bool stops = false;
    bool throws = false;
    int opened = 0;
    int closed = 0;
};

class style_tabs : public tabs
{
public:
    style_tabs()
    {
        log_of(c_module);
        panel = std::make_unique<Tvx_plugin_lr_edit>(nullptr);
        panel->SetParent(&form);
        panel->SetAlign(alClient);
        panel->on_commit = make_closure<&style_tabs::on_commit>(this);
        data.bind(*panel);
    }
    void on_commit(TObject * /*sender*/) { ++commits; }
    static std::string call(char const *name)
    {
        auto *const module = GetModuleHandleW(module_path(c_module).c_str());
        auto *const function = GetProcAddress(module, name);
        if (std::string_view(name) == "test_read_data")
            return reinterpret_cast<char const *(*)()>(function)();
        reinterpret_cast<void (*)()>(function)();
        return {};
    }

    static constexpr char c_module[] = "odd_style/a_style.so";
    vx::owned<void, &vx_stl_mngr_destroy> areas{vx_stl_mngr_create("pgn_style")};
    vx::owned<void, &vx_stl_mngr_destroy> points{vx_stl_mngr_create("pnt_style")};
    std::unique_ptr<Tvx_plugin_lr_edit> panel;
    table data;
    int commits = 0;
};
} // namespace

TEST_F(style_tabs, are_seen_for_the_managers_that_they_support)
{
    panel->set_stl_mgr(areas.get());
    panel->load_res();
    panel->load_res();
    form.Show();
    ASSERT_EQ(panel->get_pages()->GetPageCount(), 2);
    auto *const sheet = static_cast<Tvx_plugin_lr_tabsheet *>(panel->get_pages()->GetPages(0));
    EXPECT_EQ(sheet->GetCaption(), L"Style");
    EXPECT_TRUE(sheet->GetTabVisible());
    EXPECT_EQ(panel->get_pages()->GetActivePage(), sheet);
    auto *const empty = static_cast<Tvx_plugin_lr_tabsheet *>(panel->get_pages()->GetPages(1));
    EXPECT_FALSE(empty->GetTabVisible()) << "a tab without an instance";
    EXPECT_FALSE(empty->supports(areas.get()));
    empty->update_controls();
    auto const log = log_of(c_module);
    EXPECT_TRUE(log.starts_with("create, ")) << log;
    EXPECT_LT(log.find("attach, update"), log.size()) << log;
    auto const window = log.find("parent, pos");
    EXPECT_NE(window, std::string::npos) << log;
    auto const rect = sheet->GetClientRect();
    auto const pos = "pos " + std::to_string(rect.Right) + " " + std::to_string(rect.Bottom);
    EXPECT_NE(log.find(pos, window), std::string::npos) << log << " / " << pos;

    form.SetWidth(form.GetWidth() + 40);
    auto const wider = "pos " + std::to_string(rect.Right + 40) + " " + std::to_string(rect.Bottom);
    EXPECT_NE(log_of(c_module).find(wider), std::string::npos);

    panel->set_stl_mgr(points.get());
    EXPECT_FALSE(panel->has_tabs());
    EXPECT_EQ(log_of(c_module).find("attach"), std::string::npos)
        << "what it does not support it is not shown";
    panel->set_stl_mgr(nullptr);
    EXPECT_FALSE(panel->has_tabs());
    panel->set_stl_mgr(areas.get());
    EXPECT_TRUE(panel->has_tabs());
    EXPECT_LT(log_of(c_module).find("attach, update"), 100U);
    panel->update_controls();
    EXPECT_EQ(log_of(c_module), "update, attach, update");

    EXPECT_TRUE(sheet->get_edit()->select_next(true));
    EXPECT_FALSE(sheet->get_edit()->select_next(false));
    EXPECT_FALSE(sheet->get_edit()->select_none());
    EXPECT_EQ(sheet->get_plugin()->get_control(Application, &form), nullptr);
    call("test_commit");
    EXPECT_EQ(commits, 1);
    call("test_focus");
    EXPECT_EQ(panel->get_pages()->GetActivePage(), sheet);

    panel->SetParent(nullptr);
    EXPECT_EQ(log_of(c_module).substr(0, 9), "no parent");
    panel.reset();
    EXPECT_EQ(log_of(c_module), "destroy");
}

TEST_F(style_tabs, pull_the_table)
{
    panel->set_stl_mgr(areas.get());
    panel->load_res();
    EXPECT_EQ(data.opened, 0) << "nobody has asked";
    EXPECT_EQ(call("test_read_data"), "size# name | 1.5 forest | 2.5 - ");
    EXPECT_EQ(call("test_read_data"), "size# name | 1.5 forest | 2.5 - ");
    auto const &whole = plugin_style_editor_get_data(panel.get());
    EXPECT_EQ(tuple_get_size(&whole), 3U);
    EXPECT_EQ(tuple_get(&whole, 2)->value, 2U);
    EXPECT_EQ(tuple_get(&whole, 2)->tag, c_any_integer);
    EXPECT_EQ(data.closed, 3);

    data.fields = 0;
    auto const &none = plugin_style_editor_get_data(panel.get());
    ASSERT_EQ(tuple_get_size(&none), 3U);
    EXPECT_EQ(any_get_table(tuple_get(&none, 0))->count, 0U);
    EXPECT_EQ(any_get_table(tuple_get(&none, 1))->count, 0U);
    data.fields = 2;
    data.throws = true;
    EXPECT_EQ(tuple_get_size(&plugin_style_editor_get_data(panel.get())), 0U);
    data.throws = false;
    data.stops = true;
    EXPECT_EQ(call("test_read_data"), "") << "the reading was stopped";
    EXPECT_EQ(data.closed, 6) << "whatever comes of it";
    data.has_data = false;
    EXPECT_EQ(call("test_read_data"), "");
    EXPECT_EQ(data.closed, 6);
    EXPECT_EQ(tuple_get_size(&plugin_style_editor_get_data(nullptr)), 0U);
}

TEST_F(style_tabs, stand_below_the_editor_of_a_layer_and_change_what_it_shows)
{
    make_page_set("none");
    form.Show();
    owned_layer const layer(vx_shp_lr2d_open(L"" VX_EXAMPLE_DATA "/nc.shp", nullptr));
    ASSERT_TRUE(layer);
    edit->set_lr2d(layer.get());
    auto *const page = edit->get_page(vx::lr2d_page::shp_pgn);
    auto *const plugins = find<Tvx_plugin_lr_edit>(page);
    ASSERT_NE(plugins, nullptr);
    EXPECT_TRUE(plugins->GetShowing());
    EXPECT_EQ(plugins->get_stl_mgr(), vx_shp_pgn_lr2d_get_stl_mngr_ptr(edit->get_lr2d()));
    EXPECT_TRUE(call("test_read_data").starts_with("AREA# PERIMETER# "))
        << call("test_read_data").substr(0, 80);
    // What the plug-in has done to the manager the editor shows.
    vx_stl_mngr_set_mode(plugins->get_stl_mgr(), c_stl_mngr_mode_range);
    auto *const mngr_edit = find<Tvx_rng_edit>(page);
    ASSERT_NE(mngr_edit, nullptr);
    EXPECT_FALSE(mngr_edit->GetVisible());
    call("test_commit");
    EXPECT_TRUE(mngr_edit->GetVisible());

    owned_layer const cities(vx_shp_lr2d_open(L"" VX_EXAMPLE_DATA "/large_cities.shp", nullptr));
    edit->set_lr2d(cities.get());
    auto *const points_page = edit->get_page(vx::lr2d_page::shp_pnt);
    EXPECT_TRUE(points_page->GetShowing());
    EXPECT_FALSE(find<Tvx_plugin_lr_edit>(points_page)->GetVisible()) << "no plug-in for points";
    EXPECT_EQ(find<Tvx_plugin_lr_edit>(edit->get_page(vx::lr2d_page::shp_pln)), nullptr) << "not asked for";
    owned_layer const placed(vx_lr2d_create("tos_2crd_lr2d"));
    edit->set_lr2d(placed.get());
    auto *const placed_plugins = find<Tvx_plugin_lr_edit>(edit->get_page(vx::lr2d_page::tos_2crd));
    ASSERT_NE(placed_plugins, nullptr);
    EXPECT_NE(placed_plugins->get_stl_mgr(), nullptr);
    EXPECT_TRUE(placed_plugins->get_data_events().get_np);
    edit->set_lr2d(layer.get());
    EXPECT_TRUE(plugins->GetShowing());
    edit->set_lr2d(nullptr);
    EXPECT_FALSE(plugins->GetVisible());
}

// ---- what plug-ins in plain C are offered

namespace {
struct c_panel : tabs
{
    c_panel()
    {
        form.Show();
        panel = vxk_panel_create();
        vxk_panel_set_parent(panel, form.GetHandle());
    }
    ~c_panel() override { vxk_panel_destroy(panel); }
    static void count(void *data, vxk_control *control)
    {
        auto &self = *static_cast<c_panel *>(data);
        ++self.events;
        self.last = control;
    }
    static std::string text_of(vxk_control *control)
    {
        char text[100];
        vxk_control_get_text(control, text, sizeof text);
        return text;
    }

    vxk_panel *panel;
    vxk_control *last = nullptr;
    int events = 0;
};
} // namespace

TEST_F(c_panel, tells_of_what_the_user_does_and_of_nothing_else)
{
    auto *const edit = vxk_panel_add_edit(panel, "&Name", &count, this);
    auto *const number = vxk_panel_add_number(panel, "Count", 1, 9, true, &count, this);
    auto *const check = vxk_panel_add_check(panel, "Shown", &count, this);
    auto *const choice = vxk_panel_add_choice(panel, "Field", &count, this);
    auto *const button = vxk_panel_add_button(panel, "Go", &count, this);
    auto *const text = vxk_panel_add_text(panel, "Nothing yet");
    char const *const items[] = {"one", "two \xD1\x8F"};
    vxk_control_set_text(edit, "roads");
    vxk_control_set_number(number, 4);
    vxk_control_set_checked(check, true);
    vxk_control_set_items(choice, items, 2);
    vxk_control_set_index(choice, 0);
    vxk_control_set_text(text, std::string(300, 'w').replace(150, 1, " ").c_str());
    input::wait_idle();
    EXPECT_EQ(events, 0);

    EXPECT_TRUE(input::enter_text(find<TEdit>(&form), L"rivers"));
    EXPECT_EQ(last, edit);
    EXPECT_EQ(text_of(edit), "rivers");
    EXPECT_TRUE(input::press(VK_TAB));
    events = 0;
    EXPECT_TRUE(input::enter_text(find<Tvx_vcl_dbl_edit>(&form), L"7\n"));
    EXPECT_EQ(events, 1);
    EXPECT_EQ(vxk_control_get_number(number), 7);
    EXPECT_TRUE(input::click(find<TCheckBox>(&form)));
    EXPECT_FALSE(vxk_control_get_checked(check));
    EXPECT_TRUE(input::choose_item(find<TComboBox>(&form), 1));
    EXPECT_EQ(vxk_control_get_index(choice), 1);
    EXPECT_EQ(text_of(choice), "two \xD1\x8F");
    EXPECT_TRUE(input::click(find<TButton>(&form)));
    EXPECT_EQ(events, 4);
    EXPECT_EQ(last, button);
    EXPECT_EQ(find<TEdit>(&form)->GetAccessibleName(), L"Name");

    // A text is cut between characters, its whole length is told.
    char room[7];
    EXPECT_EQ(vxk_control_get_text(choice, room, 6), 6U);
    EXPECT_STREQ(room, "two ");
    EXPECT_EQ(vxk_control_get_text(choice, nullptr, 0), 6U);

    auto *const button_control = find<TButton>(&form);
    int const top = button_control->GetTop();
    vxk_control_set_visible(check, false);
    EXPECT_LT(button_control->GetTop(), top);
    vxk_panel_set_enabled(panel, false);
    EXPECT_FALSE(find<TEdit>(&form)->GetEnabled());
}

TEST_F(c_panel, is_void_when_it_or_its_window_is_gone)
{
    auto *const check = vxk_panel_add_check(panel, "Shown", nullptr, nullptr);
    auto const window = std::make_unique<TForm>(nullptr);
    window->Show();
    vxk_panel_set_parent(panel, window->GetHandle());
    EXPECT_NE(find<TCheckBox>(window.get()), nullptr);
    vxk_panel_set_parent(panel, nullptr);
    EXPECT_EQ(find<TCheckBox>(window.get()), nullptr);
    vxk_panel_destroy(panel);
    for (auto *const gone : {check, static_cast<vxk_control *>(nullptr)}) {
        vxk_control_set_text(gone, "x");
        vxk_control_set_visible(gone, true);
        EXPECT_EQ(vxk_control_get_index(gone), -1);
        EXPECT_EQ(vxk_control_get_text(gone, nullptr, 0), 0U);
    }
    EXPECT_EQ(vxk_panel_add_edit(panel, "late", nullptr, nullptr), nullptr);
    vxk_panel_set_parent(panel, form.GetHandle());
    vxk_panel_destroy(panel);
    // The window takes its panel along.
    panel = vxk_panel_create();
    {
        TForm other(nullptr);
        other.Show();
        vxk_panel_set_parent(panel, other.GetHandle());
    }
    EXPECT_EQ(vxk_panel_add_check(panel, "late", nullptr, nullptr), nullptr);
    EXPECT_EQ(vxk_window_get_x11(form.GetHandle()), 0U);
}

TEST(plugin_layers, answer_in_utf8)
{
    owned_layer const layer(vx_shp_lr2d_open(L"" VX_EXAMPLE_DATA "/nc.shp", nullptr));
    ASSERT_TRUE(layer);
    char text[200];
    EXPECT_STREQ(vxk_layer_get_type(layer.get()), "shp_pgn_lr2d");
    vxk_layer_set_name(layer.get(), "\xD0\xAF");
    EXPECT_EQ(vxk_layer_get_name(layer.get(), text, sizeof text), 2U);
    EXPECT_STREQ(text, "\xD0\xAF");
    EXPECT_GT(vxk_layer_get_source(layer.get(), text, sizeof text), 6U);
    vxk_layer_set_visible(layer.get(), false);
    EXPECT_FALSE(vxk_layer_get_visible(layer.get()));

    auto *const table = vxk_table_open(layer.get());
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(vxk_table_get_record_count(table), 100U);
    unsigned name = 0;
    while (name < vxk_table_get_field_count(table) &&
           (vxk_table_get_field_name(table, name, text, sizeof text), std::string_view(text) != "NAME"))
        ++name;
    EXPECT_FALSE(vxk_table_is_number(table, name));
    EXPECT_EQ(vxk_table_get_text(table, name, 0, text, sizeof text), 4U);
    EXPECT_STREQ(text, "Ashe");
    double area = 0;
    EXPECT_TRUE(vxk_table_is_number(table, 0));
    EXPECT_TRUE(vxk_table_get_number(table, 0, 0, &area));
    EXPECT_DOUBLE_EQ(area, 0.114);
    EXPECT_FALSE(vxk_table_get_number(table, 0, 100, &area));
    EXPECT_FALSE(vxk_table_get_number(table, 99, 0, &area));
    vxk_table_close(table);
    EXPECT_EQ(vxk_table_open(nullptr), nullptr);
    owned_layer const none(vx_lr2d_create("a key of another module"));
    EXPECT_EQ(vxk_table_open(none.get()), nullptr);
    vxk_table_close(nullptr);
    vxk_layer_set_name(nullptr, "x");
    EXPECT_EQ(vxk_layer_get_type(nullptr), nullptr);
    EXPECT_EQ(vxk_table_get_record_count(nullptr), 0U);
}
