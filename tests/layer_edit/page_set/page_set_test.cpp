#include "tests/layer_edit/page_set/page_set_fixture.h"

#include "platform/basic/vx_event_channel.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_plugin_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"

#include <algorithm>
#include <memory>
#include <set>

namespace {
using p = vx::lr2d_page;
using lines = std::vector<std::string>;

constexpr vx::lr2d_edit_parts c_pages_only = {c_test_pages};

class page_set : public testing::Test
{
public:
    explicit page_set(vx::lr2d_edit_parts const &parts = c_pages_only)
    {
        page_set_log.clear();
        form.SetBounds(50, 50, 600, 400);
        edit = std::make_unique<Tvx_lr2d_edit>(nullptr, parts);
        edit->SetParent(&form);
        edit->create();
        edit->SetAlign(alClient);
        edit->load_res();
        form.Show();
    }

    test_page *page(p place) { return static_cast<test_page *>(edit->get_page(place)); }
    TTabSheet *tab(int index) { return edit->get_pages()->GetPages(index); }

    /// The names of the tabs that are seen.
    lines tabs()
    {
        lines result;
        for (int i = 0; i < edit->get_pages()->GetPageCount(); ++i)
            if (tab(i)->GetTabVisible())
                result.push_back(tab(i)->GetName().to_utf8());
        return result;
    }
    std::string active() const
    {
        auto *sheet = edit->get_pages()->GetActivePage();
        return sheet ? sheet->GetName().to_utf8() : "none";
    }
    void show(char const *key) { edit->set_lr2d(make_layer(key).get()); }
    void on_edit_changed(TObject * /*sender*/)
    {
        ++changes;
        host_notified = edit->get_notify_host();
    }

    TForm form{nullptr};
    std::unique_ptr<Tvx_lr2d_edit> edit;
    int changes = 0;
    bool host_notified = false;
};

struct matrix_row
{
    char const *key;
    lines tabs;
    wchar_t const *prop_caption; // null: not shown
    std::set<p> pages;
};

lines const c_style_only = {"f_style_ts"};
lines const c_style_and_text = {"f_style_ts", "f_text_mngr"};

matrix_row const c_matrix[] = {
    {"shp_pnt_lr2d", c_style_and_text, nullptr, {p::shp_pnt, p::txt_pnt, p::dtld}},
    {"shp_pln_lr2d", c_style_and_text, nullptr, {p::shp_pln, p::txt_pln, p::dtld}},
    {"shp_pgn_lr2d", c_style_and_text, nullptr, {p::shp_pgn, p::txt_pgn, p::dtld}},
    {"rtr_lr2d", c_style_only, nullptr, {p::rtr}},
    {"tos_grid_lr2d", c_style_only, nullptr, {p::tos_grid}},
    {"tos_slice_lr2d", {"f_prop_ts", "f_style_ts"}, L"Slice", {p::tos_grid, p::tos_slice}},
    {"tos_2crd_lr2d",
     {"f_prop_ts", "f_style_ts", "f_text_mngr"},
     L"Coordinates",
     {p::tos_2crd, p::txt_tos_2crd, p::dtld}},
    {"tos_grid_lr1d", {}, nullptr, {}},
    {"tld_lr2d", c_style_only, nullptr, {p::tld}},
    {"dyn_tld_lr2d", c_style_only, nullptr, {}},
    {"shp_pntz_sub_lr2d", c_style_only, nullptr, {}},
    {"shp_plnz_sub_lr2d", c_style_only, nullptr, {}},
    {"shp_pgnz_sub_lr2d", c_style_only, nullptr, {}},
    {"SHP_PNT_LR2D", c_style_only, nullptr, {}},
    {"a key of another module", c_style_only, nullptr, {}},
};

Ivx_layer *text_layer_of(Ivx_layer *layer)
{
    auto *text = vx_shp_lr2d_get_text_layer_ptr(layer);
    return text ? text : vx_tos_2crd_lr2d_get_text_layer_ptr(layer);
}
} // namespace

TEST_F(page_set, shows_the_pages_of_the_layer_and_clears_the_others)
{
    // Each key after each other one, so that nothing of the former layer stays.
    for (auto const &before : c_matrix)
        for (auto const &row : c_matrix) {
            SCOPED_TRACE(std::string(before.key) + " then " + row.key);
            show(before.key);
            auto const layer = make_layer(row.key);
            edit->set_lr2d(layer.get());
            auto *copy = edit->get_lr2d();
            ASSERT_NE(copy, nullptr);
            EXPECT_NE(copy, layer.get());
            EXPECT_EQ(tabs(), row.tabs);
            if (row.prop_caption) {
                EXPECT_EQ(tab(0)->GetCaption(), row.prop_caption);
            }
            for (auto const &place : vx::c_lr2d_page_places) {
                SCOPED_TRACE(name_of(place.page));
                bool const shown = row.pages.contains(place.page);
                EXPECT_EQ(page(place.page)->GetVisible(), shown);
                EXPECT_EQ(page(place.page)->get_lr2d(), !shown                  ? nullptr
                                                        : place.page == p::dtld ? text_layer_of(copy)
                                                                                : copy);
            }
            EXPECT_EQ(page(p::tos_2crd)->coordinates->GetVisible(), row.pages.contains(p::tos_2crd));
        }
}

TEST_F(page_set, makes_and_refreshes_pages_in_order)
{
    lines expected;
    for (char const *what : {" create", " load_res"})
        for (auto const *name : {"rtr", "shp_pnt", "shp_pln", "shp_pgn", "tos_grid", "tos_slice", "tos_2crd",
                                 "tld", "dtld", "txt_pnt", "txt_pln", "txt_pgn", "txt_tos_2crd"})
            expected.push_back(std::string(name) + what);
    EXPECT_EQ(page_set_log, expected);

    page_set_log.clear();
    show("tos_2crd_lr2d");
    EXPECT_EQ(page_set_log, (lines{"dtld show", "tos_2crd show", "txt_tos_2crd show"}));
    page_set_log.clear();
    show("shp_pnt_lr2d");
    EXPECT_EQ(page_set_log,
              (lines{"dtld show", "shp_pnt show", "txt_pnt show", "tos_2crd clear", "txt_tos_2crd clear"}));
    page_set_log.clear();
    edit->update_controls();
    EXPECT_EQ(page_set_log, (lines{"dtld show", "shp_pnt show", "txt_pnt show"}));
    page_set_log.clear();
    edit->set_lr2d(nullptr);
    EXPECT_EQ(page_set_log, (lines{"dtld clear", "shp_pnt clear", "txt_pnt clear"}));
}

TEST_F(page_set, without_a_layer_the_style_tab_stays_as_it_was)
{
    show("shp_pnt_lr2d");
    edit->set_lr2d(nullptr);
    EXPECT_EQ(edit->get_lr2d(), nullptr);
    EXPECT_EQ(tabs(), c_style_only);
    for (auto const &place : vx::c_lr2d_page_places) {
        EXPECT_FALSE(page(place.page)->GetVisible());
        EXPECT_EQ(page(place.page)->get_lr2d(), nullptr);
    }
    show("tos_grid_lr1d");
    edit->set_lr2d(nullptr);
    EXPECT_EQ(tabs(), lines{});
    EXPECT_FALSE(tab(1)->GetTabVisible());
}

TEST_F(page_set, a_layer_of_a_plug_in_has_no_style_tab)
{
    int plugin = 0;
    for (auto *const set_plugin : {&vx_lr2d_set_plugin_interface, &vx_layout_lr2d_set_plugin_interface}) {
        auto const layer = make_layer("shp_pnt_lr2d");
        set_plugin(layer.get(), &plugin);
        edit->set_lr2d(layer.get());
        EXPECT_EQ(tabs(), lines{"f_text_mngr"});
        EXPECT_EQ(page(p::shp_pnt)->get_lr2d(), edit->get_lr2d()) << "the page is bound all the same";
        EXPECT_EQ(active(), "f_text_mngr");

        auto const foreign = make_layer("foreign");
        set_plugin(foreign.get(), &plugin);
        edit->set_lr2d(foreign.get());
        EXPECT_EQ(tabs(), lines{});
    }
}

TEST_F(page_set, the_tab_stays_active_while_the_new_layer_has_it)
{
    struct
    {
        char const *from;
        int tab;
        char const *to;
        char const *active;
    } const cases[] = {
        {"shp_pnt_lr2d", 1, "shp_pgn_lr2d", "f_style_ts"},
        {"shp_pnt_lr2d", 3, "shp_pgn_lr2d", "f_text_mngr"},
        {"tos_slice_lr2d", 0, "tos_grid_lr2d", "f_style_ts"},
        {"tos_slice_lr2d", 0, "tos_2crd_lr2d", "f_prop_ts"},
        {"shp_pln_lr2d", 3, "rtr_lr2d", "f_style_ts"},
        {"tos_2crd_lr2d", 3, "tos_slice_lr2d", "f_prop_ts"},
        {"tos_2crd_lr2d", 0, "shp_pnt_lr2d", "f_style_ts"},
        {"tld_lr2d", 1, "foreign", "f_style_ts"},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(std::string(c.from) + " to " + c.to);
        show(c.from);
        edit->get_pages()->SetActivePage(tab(c.tab));
        edit->update_controls();
        EXPECT_EQ(edit->get_pages()->GetActivePage(), tab(c.tab)) << "a refresh keeps the tab";
        show(c.to);
        EXPECT_EQ(active(), c.active);
        EXPECT_TRUE(edit->get_pages()->GetActivePage()->GetShowing());
    }
    show("tos_grid_lr1d");
    show("shp_pnt_lr2d");
    EXPECT_EQ(active(), "f_style_ts") << "back from a layer without tabs";
    EXPECT_TRUE(page(p::shp_pnt)->GetShowing());
}

TEST_F(page_set, reports_upward_what_the_host_has_to_see)
{
    edit->on_changed = closure<void(TObject *)>::bind<&page_set::on_edit_changed>(this);
    std::set<p> const reporting = {p::tos_grid, p::tos_slice, p::tos_2crd, p::dtld,
                                   p::txt_pnt,  p::txt_pln,   p::txt_pgn,  p::txt_tos_2crd};
    for (auto const &place : vx::c_lr2d_page_places) {
        changes = 0;
        page(place.page)->call_changed();
        EXPECT_EQ(changes, reporting.contains(place.page) ? 1 : 0) << name_of(place.page);
        EXPECT_FALSE(host_notified);
    }
    page(p::tos_grid)->notify = true;
    page(p::tos_grid)->call_changed();
    EXPECT_TRUE(host_notified);
    EXPECT_FALSE(edit->get_notify_host()) << "only while the change travels up";
    page(p::tos_grid)->notify = false;
    page(p::tos_slice)->call_changed();
    EXPECT_FALSE(host_notified);
}

TEST_F(page_set, saves_the_scale_of_grids_and_rasters)
{
    std::pair<char const *, lines> const cases[] = {
        {"tos_grid_lr2d", {"tos_grid save"}},
        {"tos_slice_lr2d", {"tos_grid save"}},
        {"rtr_lr2d", {"rtr save"}},
        {"shp_pnt_lr2d", {}},
        {"tos_2crd_lr2d", {}},
        {"foreign", {}},
    };
    edit->save_current_scl();
    for (auto const &[key, expected] : cases) {
        show(key);
        page_set_log.clear();
        edit->save_current_scl();
        EXPECT_EQ(page_set_log, expected) << key;
    }
}

TEST_F(page_set, update_events_of_the_working_copy_refresh_the_pages)
{
    auto const layer = make_layer("shp_pnt_lr2d");
    edit->set_lr2d(layer.get());
    auto *shown = page(p::shp_pnt);
    shown->updates = 0;
    vx_lr_post_update(layer.get());
    EXPECT_EQ(shown->updates, 0) << "the host's own layer";
    vx_lr_post_update(edit->get_lr2d());
    EXPECT_EQ(shown->updates, 1);
    vx_event_channel_post(vx_lr_get_update_event_channel(edit->get_lr2d()), c_event_deleted);
    EXPECT_EQ(shown->updates, 1) << "no update in the queue";
    EXPECT_EQ(vx_event_channel_get_client_count(vx_lr_get_update_event_channel(edit->get_lr2d())), 1);
    edit->set_lr2d(nullptr); // the channel goes with the copy
    EXPECT_EQ(shown->updates, 2);
}

TEST_F(page_set, an_update_during_a_refresh_is_followed_by_one_more_refresh)
{
    show("shp_pnt_lr2d");
    auto *shown = page(p::shp_pnt);
    shown->on_update = {
        [](void *self, TObject *) { vx_lr_post_update(static_cast<Tvx_lr2d_edit *>(self)->get_lr2d()); },
        edit.get()};
    // A page that posts at each refresh would never end: what comes during the second is left alone.
    shown->updates = 0;
    edit->update_controls();
    EXPECT_EQ(shown->updates, 2);
    vx_lr_post_update(edit->get_lr2d());
    EXPECT_EQ(shown->updates, 4);
    shown->on_update = {};
    edit->update_controls();
    EXPECT_EQ(shown->updates, 5) << "nothing is owed";
    shown->on_update = {
        [](void *self, TObject *) { vx_lr_post_update(static_cast<Tvx_lr2d_edit *>(self)->get_lr2d()); },
        edit.get()};
    shown->updates = 0;
    show("shp_pnt_lr2d");
    EXPECT_EQ(shown->updates, 2) << "the channel of a new copy too";
}

TEST_F(page_set, the_copy_outlives_the_layer_of_the_host)
{
    auto layer = make_layer("shp_pln_lr2d");
    vx_lr2d_set_wcaption(layer.get(), L"Roads");
    edit->set_lr2d(layer.get());
    layer.reset();
    edit->update_controls();
    EXPECT_STREQ(vx_lr2d_get_lr_type(edit->get_lr2d()), c_lr_key_shp_pln);
}

TEST(page_set_parts, places_that_are_not_taken_stay_empty)
{
    TForm form(nullptr);
    form.Show();
    Tvx_lr2d_edit edit(nullptr, vx::lr2d_edit_parts{});
    edit.set_lr2d(make_layer("shp_pnt_lr2d").get()); // ahead of its time
    edit.update_controls();
    edit.load_res();
    EXPECT_EQ(edit.get_lr2d(), nullptr);
    edit.SetParent(&form);
    edit.create();
    for (auto const &row : c_matrix) {
        edit.set_lr2d(make_layer(row.key).get());
        edit.save_current_scl();
        for (auto const &place : vx::c_lr2d_page_places)
            EXPECT_EQ(edit.get_page(place.page), nullptr);
    }
    EXPECT_EQ(edit.get_extension_category(), L"vxk/layer/2d");
}

// ---- plug-ins and extensions

namespace {
Tvx_lr2d_edit *watched = nullptr;

std::string working_copy()
{
    return watched && watched->get_lr2d() ? vx_lr2d_get_lr_type(watched->get_lr2d()) : "none";
}

class test_plugin : public Tvx_lr2d_page_plugin
{
public:
    explicit test_plugin(char const *name) : name(name) {}
    void *create(void (*changed)(void *), void *data) override
    {
        EXPECT_EQ(changed, nullptr);
        EXPECT_NE(data, nullptr);
        log("create");
        return &instance;
    }
    void set_parent(void *i, void *window) override
    {
        EXPECT_EQ(i, &instance);
        EXPECT_NE(window, nullptr);
        log("set_parent");
    }
    char const *get_caption() override { return name; }
    void destroy(void *i) override
    {
        EXPECT_EQ(i, &instance);
        log("destroy");
    }
    void attach(void *i, Ivx_layer *layer) override
    {
        EXPECT_EQ(i, &instance);
        log((std::string("attach ") + (layer ? vx_lr2d_get_lr_type(layer) : "none") + " over " +
             working_copy())
                .c_str());
    }

private:
    void log(char const *what) { page_set_log.push_back(std::string(name) + " " + what); }
    char const *name;
    int instance = 0;
};

class test_plugin_set : public Tvx_lr2d_page_plugin_set
{
public:
    ~test_plugin_set() override { page_set_log.push_back("plugins unloaded"); }
    unsigned get_plugin_count() const override { return 2; }
    Tvx_lr2d_page_plugin *get_plugin(unsigned index) const override
    {
        return index == 0 ? &f_first : &f_second;
    }

private:
    mutable test_plugin f_first{"first"};
    mutable test_plugin f_second{"second"};
};

class test_custom_pages : public Tvx_lr2d_custom_pages
{
public:
    test_custom_pages(TPageControl *pages, wchar_t const *category)
    {
        f_sheet.SetName(L"extension");
        f_sheet.SetCaption(category);
        f_sheet.SetPageControl(pages);
    }
    ~test_custom_pages() override { page_set_log.push_back("extensions gone"); }
    void set_layer(Ivx_layer *layer) override
    {
        page_set_log.push_back(std::string("extension gets ") +
                               (layer ? vx_lr2d_get_lr_type(layer) : "none"));
    }

private:
    Tvx_tab_sheet f_sheet{nullptr};
};

constexpr vx::lr2d_edit_parts c_all_parts = {
    c_test_pages,
    [](wchar_t const *) -> std::unique_ptr<Tvx_lr2d_page_plugin_set> {
        return std::make_unique<test_plugin_set>();
    },
    [](TPageControl *pages, wchar_t const *category) -> std::unique_ptr<Tvx_lr2d_custom_pages> {
        return std::make_unique<test_custom_pages>(pages, category);
    },
};

class extended_page_set : public page_set
{
public:
    extended_page_set() : page_set(c_all_parts)
    {
        watched = edit.get();
        page_set_log.clear();
    }
    ~extended_page_set() override { watched = nullptr; }
};
} // namespace

TEST_F(extended_page_set, tells_extensions_then_plug_ins_then_pages)
{
    show("tos_grid_lr2d");
    EXPECT_EQ(page_set_log, (lines{"extension gets tos_grid_lr2d", "first attach tos_grid_lr2d over none",
                                   "second attach tos_grid_lr2d over none", "tos_grid show"}));
    page_set_log.clear();
    edit->update_controls();
    EXPECT_EQ(page_set_log, (lines{"extension gets tos_grid_lr2d", "tos_grid show"}));
    page_set_log.clear();
    edit->set_lr2d(nullptr);
    EXPECT_EQ(page_set_log, (lines{"extension gets none", "first attach none over tos_grid_lr2d",
                                   "second attach none over tos_grid_lr2d", "tos_grid clear"}));
}

TEST_F(extended_page_set, ends_what_it_was_given_in_order)
{
    show("rtr_lr2d");
    page_set_log.clear();
    watched = nullptr;
    edit.reset();
    EXPECT_EQ(page_set_log,
              (lines{"first destroy", "second destroy", "extensions gone", "plugins unloaded"}));
}
