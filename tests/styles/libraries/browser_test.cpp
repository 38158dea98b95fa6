#include "controls/numeric/capt_edit_panel.h"
#include "controls/numeric/size_panel.h"
#include "styles/vxk_lib_styles_vcl.h"
#include "support/paint_counter.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/screen.h"

namespace input = vx::user_input;

namespace {
int loads = 0;
TCursor cursor_at_load = crDefault;

/// "Town": points 1 to 3, lines 3 (version 2) and 4, polygons 3 and 9; an item names each but polygon 9, the
/// point 1 twice. "Empty" has none.
bool fill_libs(void *libs)
{
    ++loads;
    cursor_at_load = Screen->GetCursor();
    void *town = vx_style_libs_add_lib(libs, L"Town");
    vx_style_libs_add_lib(libs, L"Empty");
    for (int i = 1; i <= 3; ++i) {
        void *idx = vx_style_list_add_idx_style(vx_style_lib_get_pnt_list_ptr(town), i, 1);
        vx_bpnt_style_set_size(vx_pnt_style_get_bpnt_style_ptr(vx_idx_pnt_style_get_pnt_style_ptr(idx)), i);
    }
    vx_style_list_add_idx_style(vx_style_lib_get_pln_list_ptr(town), 3, 2);
    void *line = vx_style_list_add_idx_style(vx_style_lib_get_pln_list_ptr(town), 4, 1);
    vx_bpln_style_set_width(vx_pln_style_get_bpln_style_ptr(vx_idx_pln_style_get_pln_style_ptr(line)), 1.5);
    vx_style_list_add_idx_style(vx_style_lib_get_pgn_list_ptr(town), 3, 1);
    vx_style_list_add_idx_style(vx_style_lib_get_pgn_list_ptr(town), 9, 1);
    void *root = vx_style_item_get_style_items_ptr(vx_style_lib_get_root_item_ptr(town));
    void *signs = vx_style_item_get_style_items_ptr(vx_style_items_add(root, L"Signs", -1, -1));
    vx_style_items_add(signs, L"Church", 1, 1);
    vx_style_items_add(signs, L"School", 2, 1);
    vx_style_items_add(signs, L"Old church", 1, 1);
    void *ways = vx_style_item_get_style_items_ptr(vx_style_items_add(root, L"Ways", -1, -1));
    vx_style_items_add(ways, L"Church lane", 3, 2);
    vx_style_items_add(ways, L"Main road", 4, 1);
    vx_style_items_add(ways, L"Square", 3, 1);
    return true;
}

TTreeNode *node_of(TTreeNode *node, std::wstring const &caption)
{
    if (node->GetText() == caption.c_str())
        return node;
    for (int i = 0; i < node->GetCount(); ++i)
        if (TTreeNode *found = node_of(node->GetItem(i), caption))
            return found;
    return nullptr;
}

/// What a test does in the browser.
struct browser
{
    explicit browser(TCustomForm *f)
        : form(dynamic_cast<Tvx_style_libs_form *>(f)), libs(form->get_libs_panel()),
          lib(form->get_lib_panel()), tree(lib->get_tree_panel()), styles(lib->get_style_panel())
    {
    }

    void click_node(std::wstring const &caption) const
    {
        Tvx_tree_view *const view = tree->get_tree();
        TTreeNode *const node = node_of(view->GetItems()->GetFirstNode(), caption);
        ASSERT_TRUE(node);
        node->GetParent()->Expand(false);
        node->MakeVisible();
        input::wait_idle();
        constexpr int c_text = 70; // right of the lines and marks
        for (int y = 2; y < view->GetHeight(); y += 4)
            if (view->GetNodeAt(c_text, y) == node) {
                ASSERT_TRUE(input::click(view, c_text, y));
                return;
            }
        FAIL() << "out of sight";
    }
    [[nodiscard]] std::wstring selected() const
    {
        TTreeNode const *const node = tree->get_tree()->GetSelected();
        return node ? node->GetText().c_str() : L"";
    }
    [[nodiscard]] int tab() const { return styles->get_pages()->GetActivePageIndex(); }
    [[nodiscard]] std::wstring number() const { return styles->get_idx_label()->GetCaption().c_str(); }
    /// Tab, number and selected item: all that the user sees change.
    [[nodiscard]] std::wstring seen() const
    {
        return std::to_wstring(tab()) + L" " + number().substr(number().find(L'\u00A0') + 1) + L" " +
               selected();
    }
    [[nodiscard]] bool can_take() const { return form->get_apply_btn()->GetEnabled(); }
    void step(bool on) const
    {
        Tvx_list_style_panel *const list = styles->get_list_panel(tab());
        ASSERT_TRUE(list);
        ASSERT_TRUE(input::click(on ? list->get_next_btn() : list->get_prev_btn()));
    }
    /// Searches by the dialog, on the tab with this caption; an empty tab gives the search up.
    void search(std::wstring const &tab_caption, std::wstring const &what) const
    {
        input::on_next_modal([&](input::modal_window const &window) {
            auto *search_form = dynamic_cast<Tvx_stl_lib_search_form *>(window.form());
            ASSERT_TRUE(search_form);
            if (tab_caption.empty())
                return window.reject();
            EXPECT_TRUE(input::click_tab(search_form->get_pages(), tab_caption.c_str()));
            EXPECT_TRUE(
                input::enter_text(search_form->is_num_search()
                                      ? static_cast<TWinControl *>(search_form->get_idx_panel()->get_edit())
                                      : search_form->get_str_panel()->get_edit(),
                                  what.c_str()));
            window.press_button(L"Apply");
            if (what.empty() && search_form->is_num_search())
                window.reject(); // it stayed open
        });
        ASSERT_TRUE(input::click(lib->get_search_btn()));
    }

    Tvx_style_libs_form *form;
    Tvx_libs_select_panel *libs;
    Tvx_lib_panel *lib;
    Tvx_lib_tree_panel *tree;
    Tvx_lib_style_panel *styles;
};

class lib_browser : public prop_form
{
protected:
    void SetUp() override
    {
        prop_form::SetUp();
        f_loader = vx_global_lib_styles_set_loader(&fill_libs);
        loads = 0;
        Tvx_style_libs_form::fs_saved = false;
        Tvx_style_libs_form::fs_width = 640;
        Tvx_style_libs_form::fs_height = 400;
        Tvx_style_libs_form::fs_tree_width = 400;
        Tvx_style_libs_form::fs_lib = Tvx_style_libs_form::fs_idx = Tvx_style_libs_form::fs_ver = -1;
        Tvx_stl_lib_search_form::c_last_is_idx = false;
        Tvx_stl_lib_search_form::c_last_idx = 0;
        Tvx_stl_lib_search_form::c_last_str.clear();
    }
    void TearDown() override
    {
        vx_global_lib_styles_set_loader(f_loader);
        prop_form::TearDown();
    }
    /// Opens the browser for a target, does something, and leaves it by OK or Cancel.
    template <class F>
    bool browse(bool (*get)(void *), void *target, F act, bool take = false)
    {
        input::on_next_modal([&](input::modal_window const &window) {
            browser const b(window.form());
            act(b);
            window.press_button(take ? L"Apply" : L"Cancel");
        });
        return get(target);
    }
    std::wstring taken_message()
    {
        std::wstring all;
        for (auto const &m : std::exchange(messages, {}))
            all += m + L"|";
        return all;
    }

    vx::owned<void, &vx_pnt_style_destroy> pnt{vx_pnt_style_create()};
    vx::owned<void, &vx_pln_style_destroy> pln{vx_pln_style_create()};
    vx::owned<void, &vx_pgn_style_destroy> pgn{vx_pgn_style_create()};

private:
    Tvx_style_libs_loader f_loader = nullptr;
};
} // namespace

TEST_F(lib_browser, opens_empty_then_where_it_was_left)
{
    EXPECT_FALSE(browse(&vxk_lib_styles_get_pln, pln.get(), [](browser const &b) {
        EXPECT_EQ(b.seen(), L"0 none Town") << "the root names no style either";
        EXPECT_EQ(b.libs->get_combo_box()->GetText(), L"Town");
        EXPECT_FALSE(b.can_take());
        EXPECT_EQ(b.form->GetWidth(), 640);
        EXPECT_EQ(b.lib->get_tree_width(), 400);
        EXPECT_FALSE(b.lib->get_next_btn()->GetVisible());
        b.form->SetBounds(30, 40, 700, 500);
        b.lib->set_tree_width(300);
        b.click_node(L"Main road");
        EXPECT_EQ(b.seen(), L"2 4 Main road");
    }));
    EXPECT_EQ(cursor_at_load, crHourGlass);
    EXPECT_EQ(Screen->GetCursor(), crDefault);
    EXPECT_FALSE(browse(&vxk_lib_styles_get_pln, pln.get(), [](browser const &b) {
        EXPECT_EQ(b.seen(), L"2 4 Main road");
        EXPECT_TRUE(b.can_take());
        EXPECT_EQ(b.form->GetLeft(), 30);
        EXPECT_EQ(b.form->GetTop(), 40);
        EXPECT_EQ(b.form->GetWidth(), 700);
        EXPECT_EQ(b.form->GetHeight(), 500);
        EXPECT_EQ(b.lib->get_tree_width(), 300);
        // A library without the style.
        ASSERT_TRUE(input::choose_item(b.libs->get_combo_box(), L"Empty"));
        EXPECT_FALSE(b.can_take());
        EXPECT_EQ(b.number().substr(8), L"none");
    }));
    EXPECT_FALSE(browse(&vxk_lib_styles_get_pln, pln.get(), [](browser const &b) {
        EXPECT_EQ(b.libs->get_index(), 1);
        EXPECT_EQ(b.seen(), L"0 none ");
        b.form->SetBounds(0, 0, 100, 100);
        EXPECT_EQ(b.form->GetWidth(), 640);
        EXPECT_EQ(b.form->GetHeight(), 400);
    }));
    EXPECT_EQ(loads, 1) << "libraries are read once";
}

TEST_F(lib_browser, tree_and_styles_follow_each_other)
{
    browse(&vxk_lib_styles_get_pnt, pnt.get(), [](browser const &b) {
        b.lib->set_tree_width(250); // so that all tabs are in sight, whatever the font
        b.click_node(L"School");
        EXPECT_EQ(b.seen(), L"1 2 School");
        b.step(
            true); // the number 3 stands in all lists, as version 1 in two: the last one comes to the front
        EXPECT_EQ(b.seen(), L"1 3 Square");
        EXPECT_FALSE(b.styles->get_list_panel(1)->get_next_btn()->GetEnabled());
        b.step(false);
        b.step(false);
        EXPECT_EQ(b.seen(), L"1 1 Church");
        EXPECT_FALSE(b.styles->get_list_panel(1)->get_prev_btn()->GetEnabled());
        b.click_node(L"Old church");
        EXPECT_EQ(b.seen(), L"1 1 Old church") << "of two names, the one that was clicked";
        b.click_node(L"Square");
        EXPECT_EQ(b.seen(), L"3 3 Square");
        EXPECT_FALSE(b.can_take());
        b.step(true);
        EXPECT_EQ(b.seen(), L"3 9 ") << "no item names it";
        b.click_node(L"Ways");
        EXPECT_EQ(b.seen(), L"0 none Ways");
        ASSERT_TRUE(input::click_tab(b.styles->get_pages(), 2));
        EXPECT_EQ(b.seen(), L"2 3 Church lane");
        ASSERT_TRUE(input::click_tab(b.styles->get_pages(), 3));
        EXPECT_EQ(b.seen(), L"3 9 ");
        ASSERT_TRUE(input::click_tab(b.styles->get_pages(), 0));
        EXPECT_EQ(b.number().substr(8), L"none");
        EXPECT_FALSE(b.can_take());
        // By the keys, with two items of one style on the way.
        b.click_node(L"Church");
        std::wstring way;
        for (int i = 0; i < 4; ++i) {
            ASSERT_TRUE(input::press(VK_DOWN));
            way += b.seen() + L"|";
        }
        EXPECT_EQ(way, L"1 2 School|1 1 Old church|0 none Ways|2 3 Church lane|");
    });
}

TEST_F(lib_browser, a_style_is_taken_over_only_into_a_target_of_its_kind)
{
    struct
    {
        bool (*get)(void *);
        void *target;
        wchar_t const *item;
        bool fits;
    } const table[] = {{&vxk_lib_styles_get_pnt, pnt.get(), L"Old church", true},
                       {&vxk_lib_styles_get_pnt, pnt.get(), L"Main road", false},
                       {&vxk_lib_styles_get_pln, pln.get(), L"Main road", true},
                       {&vxk_lib_styles_get_pln, pln.get(), L"School", false},
                       {&vxk_lib_styles_get_pgn, pgn.get(), L"Main road", false},
                       {&vxk_lib_styles_get_pgn, pgn.get(), L"Square", true},
                       {&vxk_lib_styles_get_pgn, pgn.get(), L"Signs", false}};
    for (auto const &t : table) {
        auto const act = [&](browser const &b) {
            b.click_node(t.item);
            EXPECT_EQ(b.can_take(), t.fits) << t.item;
        };
        if (t.fits) {
            EXPECT_TRUE(browse(
                t.get, t.target, [&](browser const &b) { b.click_node(t.item); }, true));
        } else {
            EXPECT_FALSE(browse(t.get, t.target, act)) << t.item;
        }
    }
    EXPECT_EQ(vx_bpnt_style_get_size(vx_pnt_style_get_bpnt_style_ptr(pnt.get())), 1);
    EXPECT_EQ(vx_bpln_style_get_width(vx_pln_style_get_bpln_style_ptr(pln.get())), 1.5);
    // The library keeps its own.
    vx_bpnt_style_set_size(vx_pnt_style_get_bpnt_style_ptr(pnt.get()), 50);
    EXPECT_TRUE(browse(
        &vxk_lib_styles_get_pnt, pnt.get(), [](browser const &b) { b.click_node(L"Church"); }, true));
    EXPECT_EQ(vx_bpnt_style_get_size(vx_pnt_style_get_bpnt_style_ptr(pnt.get())), 1);
}

TEST_F(lib_browser, searches_by_number_and_by_text)
{
    browse(&vxk_lib_styles_get_pln, pln.get(), [this](browser const &b) {
        b.search(L"Number", L"3");
        EXPECT_EQ(b.seen(), L"3 3 Square") << "the last kind, by the number alone";
        b.search(L"Number", L"77");
        EXPECT_EQ(taken_message(), L"This library has no style of the number 77.|");
        EXPECT_EQ(b.seen(), L"3 3 Square");
        b.search(L"Number", L"");
        EXPECT_EQ(taken_message(), L"");
        EXPECT_EQ(Tvx_stl_lib_search_form::c_last_idx, 77) << "kept on OK alone";
        EXPECT_FALSE(b.lib->get_next_btn()->GetVisible());

        b.search(L"Text", L"CHURCH");
        EXPECT_EQ(b.seen(), L"1 1 Church");
        std::wstring way;
        while (b.lib->get_next_btn()->GetVisible()) {
            EXPECT_TRUE(b.lib->get_next_btn()->Focused());
            ASSERT_TRUE(input::press(VK_SPACE));
            way += b.seen() + L"|";
        }
        EXPECT_EQ(way, L"1 1 Old church|2 3 Church lane|2 3 Church lane|");
        EXPECT_EQ(taken_message(), L"Nothing else is called “CHURCH”.|");
        b.search(L"Text", L"church");
        EXPECT_EQ(b.seen(), L"1 1 Church") << "a search begins at the root";
        EXPECT_TRUE(b.lib->get_next_btn()->GetVisible());
        b.search(L"", L"");
        EXPECT_FALSE(b.lib->get_next_btn()->GetVisible());
        b.search(L"Text", L"road %1 main");
        EXPECT_EQ(taken_message(), L"Nothing is called “road %1 main”.|");
        b.search(L"Text", L"road main");
        EXPECT_EQ(b.seen(), L"2 4 Main road");
        b.search(L"Text", L"ways");
        EXPECT_EQ(b.seen(), L"0 none Ways");
        ASSERT_TRUE(input::choose_item(b.libs->get_combo_box(), L"Empty"));
        EXPECT_FALSE(b.lib->get_next_btn()->GetVisible());
    });
    EXPECT_FALSE(Tvx_stl_lib_search_form::c_last_is_idx);
    EXPECT_EQ(Tvx_stl_lib_search_form::c_last_str, L"ways");
}

TEST_F(lib_browser, without_a_library_there_is_a_warning_and_no_form)
{
    vx_global_lib_styles_set_loader(nullptr);
    for (auto const get : {&vxk_lib_styles_get_pnt, &vxk_lib_styles_get_pln, &vxk_lib_styles_get_pgn}) {
        EXPECT_FALSE(get(pnt.get()));
        EXPECT_NE(taken_message().find(L"style_libs"), std::wstring::npos);
    }
    Tvx_style_libs_form empty(nullptr);
    empty.set_pnt_style(pnt.get());
    empty.update_controls();
    empty.set_last_params();
    EXPECT_EQ(empty.get_libs_panel()->get_index(), -1);
    EXPECT_EQ(empty.get_libs_panel()->get_lib(), nullptr);
    EXPECT_EQ(empty.get_lib_panel()->get_tree_panel()->get_tree()->GetItems()->GetFirstNode(), nullptr);
    EXPECT_FALSE(empty.get_apply_btn()->GetEnabled());
    EXPECT_FALSE(empty.apply_click());
    empty.get_lib_panel()->get_style_panel()->search_index(1);
    EXPECT_NE(taken_message(), L"");

    // An exception on the way puts the cursor back.
    vx_global_lib_styles_set_loader([](void *) -> bool { throw 1; });
    EXPECT_THROW(vx_call_vx_global_lib_styles_load(), int);
    EXPECT_EQ(Screen->GetCursor(), crDefault);
    EXPECT_FALSE(vxk_lib_styles_get_pnt(pnt.get()));
}

TEST_F(lib_browser, samples_are_made_for_what_is_seen)
{
    Tvx_lib_panel *const panel = add<Tvx_lib_panel>(300);
    panel->SetWidth(480);
    panel->set_tree_width(200);
    static_cast<void>(vx_global_lib_styles_load());
    paint_counter const painted;
    auto const samples = [&](int tab) {
        return painted.of(panel->get_style_panel()->get_list_panel(tab)->get_draw()->get_paint());
    };
    panel->set_lib(vx_style_libs_get_lib_ptr(vx_global_lib_styles_get_libs(), 0));
    panel->load_res();
    panel->update_controls();
    input::wait_idle();
    EXPECT_EQ(samples(1) + samples(2) + samples(3), 0);
    ASSERT_TRUE(input::click_tab(panel->get_style_panel()->get_pages(), 2));
    EXPECT_GT(samples(2), 0);
    EXPECT_EQ(samples(1) + samples(3), 0);
}
