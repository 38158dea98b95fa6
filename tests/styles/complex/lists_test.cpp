#include "cpx_form.h"

#include "platform/styles/vx_cpx_style.h"

namespace input = vx::user_input;

namespace {
using cpx_lists = cpx_form;

/// Of a menu, the lines that are seen.
std::string lines_of(TPopupMenu *menu)
{
    std::string all;
    for (int i = 0; i < menu->GetItems()->GetCount(); ++i)
        if (auto *const item = menu->GetItems()->GetItems(i); item->GetVisible())
            all += (all.empty() ? "" : "|") + item->GetCaption().to_utf8();
    return all;
}

class template_list : public cpx_form
{
protected:
    void show_template(char const *text)
    {
        show(lines, {c_pln_tplt_style_lr});
        vx_pln_tplt_lr_set_template(layer(), text);
        panel->update_controls();
        auto *const tplt = edit<Tvx_cpx_pln_tplt_edit>();
        ASSERT_TRUE(input::click_tab(tplt->get_pages(), 1));
        elements = tplt->get_template()->get_grid();
    }
    [[nodiscard]] std::string text() const { return vx_pln_tplt_lr_get_template(layer()); }

    Tvx_pln_template_grid *elements = nullptr;
};
} // namespace

TEST_F(cpx_lists, each_line_of_the_menu_adds_its_layer)
{
    struct
    {
        kind style;
        char const *menu;
        std::vector<std::pair<wchar_t const *, char const *>> items;
    } const cases[] = {
        {points,
         "Font symbol|Figure|-|Cancel",
         {{L"Font symbol", c_pnt_symb_style_lr}, {L"Figure", c_pnt_figr_style_lr}}},
        {lines,
         "Plain line|Line by template|-|Cancel",
         {{L"Plain line", c_pln_line_style_lr}, {L"Line by template", c_pln_tplt_style_lr}}},
        {areas,
         "Fill|Hatch|Spots|-|Cancel",
         {{L"Fill", c_pgn_fill_style_lr}, {L"Hatch", c_pgn_htch_style_lr}, {L"Spots", c_pgn_spot_style_lr}}},
    };
    for (auto const &c : cases) {
        show(c.style, {});
        EXPECT_EQ(list()->get_item_grid()->get_item_count(), 0);
        ASSERT_TRUE(insert(list(), L"Cancel"));
        EXPECT_EQ(keys(), "");
        std::string expected;
        int row = 0;
        for (auto const &[caption, key] : c.items) {
            ASSERT_TRUE(insert(list(), caption));
            expected += std::string(expected.empty() ? "" : " ") + key;
            EXPECT_EQ(keys(), expected);
            EXPECT_EQ(list()->get_item_grid()->get_item_count(), row + 1);
            auto *const column = list()->get_item_grid()->get_columns()->get_col(0);
            EXPECT_EQ(UnicodeString(column->call_get_str(row)), caption);
            EXPECT_EQ(list()->get_active(), 0);
            EXPECT_EQ(shown_edit(), edit_of(c.items[0].second)) << "the first one is the active one";
            ++row;
        }
        EXPECT_EQ(lines_of(list()->get_add_menu()), c.menu);
        EXPECT_FALSE(insert(list(), c.style == points ? L"Fill" : L"Figure")) << "of another kind of style";
        EXPECT_EQ(keys(), expected);
    }
}

TEST_F(cpx_lists, layers_are_moved_and_deleted_and_the_active_one_is_edited)
{
    std::string const fill = c_pgn_fill_style_lr, hatch = c_pgn_htch_style_lr, spots = c_pgn_spot_style_lr;
    auto const order = [](std::string const &a, std::string const &b, std::string const &c) {
        return a + " " + b + " " + c;
    };
    show(areas, {c_pgn_fill_style_lr, c_pgn_htch_style_lr, c_pgn_spot_style_lr});
    EXPECT_EQ(shown_edit(), edit_of(c_pgn_fill_style_lr));
    ASSERT_TRUE(choose(list(), 2));
    EXPECT_EQ(list()->get_active(), 2);
    EXPECT_EQ(list()->get_active_lr(), layer(2));
    EXPECT_EQ(shown_edit(), edit_of(c_pgn_spot_style_lr));
    EXPECT_EQ(panel->get_layer_panel()->get_style_lr(), layer(2));

    ASSERT_TRUE(drag(list(), 2, 0)) << "those between move along";
    EXPECT_EQ(keys(), order(spots, fill, hatch));
    EXPECT_EQ(shown_edit(), edit_of(c_pgn_spot_style_lr));
    EXPECT_EQ(list()->get_active(), 0);
    EXPECT_EQ(shown_edit()->get_style_lr(), layer(0));
    ASSERT_TRUE(drag(list(), 1, 2));
    EXPECT_EQ(keys(), order(spots, hatch, fill));
    EXPECT_EQ(list()->get_active(), 0) << "another one was moved";

    EXPECT_TRUE(move_up(list()));
    EXPECT_EQ(keys(), order(spots, hatch, fill)) << "there is nothing above";
    ASSERT_TRUE(move_down(list()));
    EXPECT_EQ(keys(), order(hatch, spots, fill));
    ASSERT_TRUE(move_down(list()));
    EXPECT_EQ(keys(), order(hatch, fill, spots));
    EXPECT_EQ(list()->get_active(), 2);
    ASSERT_TRUE(move_down(list()));
    EXPECT_EQ(keys(), order(hatch, fill, spots));
    ASSERT_TRUE(move_up(list()));
    EXPECT_EQ(keys(), order(hatch, spots, fill));
    EXPECT_EQ(shown_edit()->get_style_lr(), layer(1));

    ASSERT_TRUE(choose(list(), 2) && remove(list()));
    EXPECT_EQ(keys(), hatch + " " + spots);
    EXPECT_EQ(shown_edit()->get_style_lr(), layer(1)) << "the one above is the active one";
    ASSERT_TRUE(choose(list(), 0) && remove(list()));
    EXPECT_EQ(keys(), spots);
    EXPECT_EQ(shown_edit()->get_style_lr(), layer(0));
    ASSERT_TRUE(remove(list()));
    EXPECT_EQ(keys(), "");
    EXPECT_EQ(shown_edit(), nullptr);
    EXPECT_EQ(list()->get_active_lr(), nullptr);
    EXPECT_FALSE(remove(list())) << "nothing is left";
    ASSERT_TRUE(insert(list(), L"Hatch"));
    EXPECT_EQ(shown_edit(), edit_of(c_pgn_htch_style_lr));
}

TEST_F(cpx_lists, a_thousand_layers)
{
    show(areas, std::vector<char const *>(1000, c_pgn_htch_style_lr));
    EXPECT_EQ(list()->get_item_grid()->get_item_count(), 1000);
    ASSERT_TRUE(choose(list(), 1));
    ASSERT_TRUE(input::press(VK_END, {ssCtrl}));
    EXPECT_EQ(list()->get_active(), 999);
    EXPECT_EQ(shown_edit()->get_style_lr(), layer(999));
    ASSERT_TRUE(remove(list()));
    EXPECT_EQ(list()->get_active(), 998);
}

TEST_F(template_list, each_line_of_the_menu_adds_its_element)
{
    show_template("");
    EXPECT_EQ(lines_of(elements->get_add_menu()),
              "Gap|Dash|Dash across, 90°|Point|Symbol|Dash across, 45°|Dash across, 135°|-|Cancel");
    std::string expected;
    std::pair<wchar_t const *, char> const items[] = {{L"Gap", '0'},
                                                      {L"Dash", '1'},
                                                      {L"Dash across, 90°", '3'},
                                                      {L"Point", '2'},
                                                      {L"Symbol", '4'},
                                                      {L"Dash across, 45°", '5'},
                                                      {L"Dash across, 135°", '6'}};
    for (auto const &[caption, elem] : items) {
        ASSERT_TRUE(insert(elements, caption));
        expected += elem;
        EXPECT_EQ(text(), expected);
        auto *const column = elements->get_item_grid()->get_columns()->get_col(0);
        EXPECT_EQ(UnicodeString(column->call_get_str(int(expected.size()) - 1)), caption);
    }
    ASSERT_TRUE(insert(elements, L"Cancel"));
    EXPECT_EQ(text(), expected);
    EXPECT_EQ(elements->get_item_grid()->get_item_count(), 7);
}

TEST_F(template_list, elements_are_swapped_and_deleted)
{
    show_template("01234x");
    auto *const column = elements->get_item_grid()->get_columns()->get_col(0);
    EXPECT_STREQ(column->call_get_str(5), "x") << "what is no element shows as itself";
    EXPECT_STREQ(column->call_get_str(6), "");
    EXPECT_STREQ(column->call_get_str(-1), "");
    ASSERT_TRUE(choose(elements, 4));
    EXPECT_EQ(elements->get_active_elem(), '4');
    EXPECT_EQ(text(), "01234x");
    ASSERT_TRUE(drag(elements, 4, 1));
    EXPECT_EQ(text(), "04231x") << "those between stay";
    EXPECT_EQ(elements->get_active(), 1);
    ASSERT_TRUE(move_up(elements));
    EXPECT_EQ(text(), "40231x");
    EXPECT_TRUE(move_up(elements));
    EXPECT_EQ(text(), "40231x");
    ASSERT_TRUE(move_down(elements));
    EXPECT_EQ(text(), "04231x");
    EXPECT_EQ(elements->get_active(), 1);
    ASSERT_TRUE(remove(elements));
    EXPECT_EQ(text(), "0231x");
    EXPECT_EQ(elements->get_active(), 1) << "it stays where it is";
    ASSERT_TRUE(choose(elements, 4) && remove(elements));
    EXPECT_EQ(text(), "0231");
    EXPECT_EQ(elements->get_active_elem(), 0);
    EXPECT_FALSE(remove(elements)) << "none is the active one";
    ASSERT_TRUE(choose(elements, 3)) << "a click on the current row makes it that again";
    EXPECT_EQ(elements->get_active_elem(), '1');
    ASSERT_TRUE(move_down(elements));
    EXPECT_EQ(text(), "0231");
    ASSERT_TRUE(remove(elements) && choose(elements, 0) && remove(elements) && remove(elements) &&
                remove(elements));
    EXPECT_EQ(text(), "");
    EXPECT_FALSE(remove(elements));
}

TEST_F(template_list, long_and_foreign_templates)
{
    std::string const long_text = [] {
        std::string s;
        for (int i = 0; i < 1'000'000; ++i)
            s += "0132456\xFFя"[i % 10];
        return s;
    }();
    show_template(long_text.c_str());
    EXPECT_EQ(elements->get_item_grid()->get_item_count(), 1'000'000);
    ASSERT_TRUE(choose(elements, 1) && remove(elements));
    EXPECT_EQ(text(), long_text.substr(0, 1) + long_text.substr(2));
}
