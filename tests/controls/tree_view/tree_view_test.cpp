#include "controls/tree_view/clm_widget.h"
#include "controls/tree_view/virtual_tree_view.h"
#include "support/temp_dir.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_geo_column.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/key_codes.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace {
namespace ui = vx::user_input;
using calls = std::vector<std::string>;

struct item
{
    std::wstring name;
    item *parent = nullptr;
    std::vector<std::unique_ptr<item>> items;
    bool selected = false, shown = true, wrong = false, slanted = false;

    item *add(std::wstring text)
    {
        auto &made = items.emplace_back(std::make_unique<item>());
        made->name = std::move(text);
        made->parent = this;
        return made.get();
    }
};

/// Three columns over a hierarchy; writes down what it is told, and how often it is asked about items.
class recording_model final : public Tvx_abstract_item_model
{
public:
    void note(std::string text) { f_calls.push_back(std::move(text)); }
    /// What was told since the last time.
    calls take() { return std::exchange(f_calls, {}); }
    /// The same without the selection, of which only what is on stays.
    calls take_short()
    {
        calls all = take();
        std::erase_if(all, [](std::string const &c) { return c.starts_with("off "); });
        return all;
    }
    static std::string name(Tvx_model_index const &index)
    {
        return std::to_string(index.level) + "/" + std::to_string(index.row) + "/" +
               std::to_string(index.column);
    }

    void init_index(Tvx_model_index &index, Tvx_model_index const &parent) override
    {
        ++asked;
        index.data = of(parent).items[static_cast<std::size_t>(index.row)].get();
    }
    int column_count() override { return 3; }
    bool has_children(Tvx_model_index const &index) override { return !of(index).items.empty(); }
    int child_count(Tvx_model_index const &index) override
    {
        return static_cast<int>(of(index).items.size());
    }
    bool selected(Tvx_model_index const &index) override { return of(index).selected; }
    void select(Tvx_model_index const &index, bool on) override
    {
        of(index).selected = on;
        note((on ? "on " : "off ") + name(index));
    }
    bool active(Tvx_model_index const &index) override { return &of(index) == focus; }
    void set_active(Tvx_model_index const &index) override
    {
        focus = &of(index);
        note("active " + name(index));
        if (when_told)
            when_told->update_controls();
    }
    void header_caption(int column, Ivx_string_adp *caption) override
    {
        note_head("caption", column);
        vx_string_adp_feed(caption, column == 0 ? L"Name" : L"x");
    }
    int header_image(int column) override { return note_head("image", column), -1; }
    int header_flags(int column) override
    {
        note_head("flags", column);
        return column == 2 ? 0 : c_header_resizable;
    }
    int header_size(int column) override { return note_head("size", column), 40 + column; }
    void note_head(std::string const &what, int column) { heads += what + std::to_string(column) + " "; }
    bool headr_click(int column) override
    {
        note("header " + std::to_string(column));
        return column == 1;
    }
    void item_caption(Tvx_model_index const &index, Ivx_string_adp *caption) override
    {
        vx_string_adp_feed(caption, index.column == 0 ? of(index).name.c_str() : L"");
    }
    bool item_click(Tvx_model_index const &index) override
    {
        note("click " + name(index));
        return index.column == 1;
    }
    bool editable(Tvx_model_index const &index) override { return of(index).name != L"fixed"; }
    void new_caption(Tvx_model_index const &index, wchar_t const *text) override
    {
        of(index).name = text;
        note("new " + name(index));
        if (when_told)
            when_told->update_controls();
    }
    bool moveable(Tvx_model_index const &index) override { return of(index).name != L"fixed"; }
    bool moveable(Tvx_model_index const &from, Tvx_model_index const &to) override
    {
        return of(from).parent == of(to).parent;
    }
    bool move_marked(Tvx_model_index const &to) override
    {
        note("move to " + std::to_string(to.level) + "/" + std::to_string(to.row));
        return true;
    }
    int valid(Tvx_model_index const &index) override { return of(index).wrong; }
    bool visible(Tvx_model_index const &index) override { return of(index).shown; }
    bool distinguish(Tvx_model_index const &index) override { return of(index).slanted; }
    void begin_update() override { note("begin"); }
    void end_update() override { note("end"); }

    item &of(Tvx_model_index const &index) { return index.data ? *static_cast<item *>(index.data) : root; }

    item root;
    std::string heads; ///< what was asked about columns
    item *focus = nullptr;
    int asked = 0;
    Tvx_virtual_tree_view *when_told = nullptr; ///< updated while the model is told something

private:
    calls f_calls;
};

class tree_view : public testing::Test
{
public:
    void SetUp() override
    {
        for (wchar_t const *name : {L"a", L"b", L"c", L"fixed"})
            model.root.add(name);
        for (wchar_t const *name : {L"b1", L"b2"})
            model.root.items[1]->add(name);
        form.SetBounds(50, 50, 400, 300);
        view->SetParent(&form);
        view->SetAlign(alClient);
        view->on_changed = make_closure<&tree_view::on_changed>(this);
        view->on_active_changed = make_closure<&tree_view::on_active>(this);
        view->set_model(&model);
        view->update_controls();
        form.Show();
        ui::wait_idle();
        EXPECT_EQ(model.asked, 4) << "each shown item is asked about once";
        EXPECT_EQ(model.take(), calls());
    }
    void on_changed(TObject *) { ++changes; }
    void on_active(TObject *) { ++active_changes; }

    PVirtualNode node(int row, int child = -1)
    {
        PVirtualNode const top = tree->GetChild(nullptr, row);
        return child < 0 ? top : tree->GetChild(top, child);
    }
    TPoint at(PVirtualNode of, int column = 0)
    {
        TRect const cell = tree->GetDisplayRect(of, column);
        return {cell.Left + 10, cell.CenterPoint().Y};
    }
    bool click(PVirtualNode of, int column = 0, TShiftState shift = {})
    {
        TPoint const p = at(of, column);
        return ui::click(tree, p.X, p.Y, mbLeft, shift);
    }
    TColor pixel(int x, int y)
    {
        tree->Invalidate();
        ui::wait_idle();
        vx_test::temp_dir const folder;
        UnicodeString const path((folder.path() / "tree.png").string());
        TBitmap picture;
        EXPECT_TRUE(ui::save_shot(tree, path));
        EXPECT_TRUE(picture.LoadFromFile(path));
        return picture.GetCanvas()->GetPixel(x, y);
    }

    recording_model model;
    TForm form{nullptr};
    Tvx_virtual_tree_view *view = new Tvx_virtual_tree_view(&form);
    TVirtualStringTree *tree = view->get_tree();
    int changes = 0, active_changes = 0;
};

TEST_F(tree_view, a_click_selects_and_then_nothing_comes_back)
{
    ASSERT_TRUE(click(node(0)));
    // The press, the focus, the selection of all nodes through closed branches too, the release, the click.
    EXPECT_EQ(model.take(), (calls{"begin", "active 0/0/0", "begin", "on 0/0/0", "off 0/1/0", "off 1/0/0",
                                   "off 1/1/0", "off 0/2/0", "off 0/3/0", "end", "end", "click 0/0/0"}));
    EXPECT_EQ(active_changes, 1);
    EXPECT_EQ(changes, 0);
    view->update_controls();
    EXPECT_EQ(model.take(), calls()) << "showing tells nothing";
    EXPECT_TRUE(tree->GetSelected(node(0)));
    EXPECT_EQ(tree->GetFocusedNode(), node(0));
}

TEST_F(tree_view, other_columns_are_buttons)
{
    ASSERT_TRUE(click(node(0)) && click(node(2), 0, {ssCtrl}));
    model.take();
    active_changes = 0;
    ASSERT_TRUE(click(node(1), 1));
    EXPECT_EQ(model.take(), (calls{"begin", "end", "click 0/1/1"}));
    EXPECT_EQ(changes, 1) << "the model said that something changed";
    ASSERT_TRUE(click(node(3), 2));
    EXPECT_EQ(model.take(), (calls{"begin", "end", "click 0/3/2"}));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(active_changes, 0);
    EXPECT_TRUE(model.root.items[0]->selected && model.root.items[2]->selected);
    // After a button a click on the item with the focus is that item's.
    ASSERT_TRUE(click(node(2)));
    EXPECT_EQ(model.take_short().back(), "click 0/2/0");
}

TEST_F(tree_view, siblings_alone_are_selected_together)
{
    tree->SetExpanded(node(1), true);
    ASSERT_TRUE(click(node(1, 0)));
    ASSERT_TRUE(click(node(3), 0, {ssCtrl}));
    EXPECT_FALSE(model.root.items[3]->selected) << "it has another parent";
    ASSERT_TRUE(click(node(0)));
    model.take();
    ASSERT_TRUE(click(node(3), 0, {ssShift}));
    EXPECT_EQ(model.take_short(), (calls{"begin", "active 0/3/0", "begin", "on 0/0/0", "on 0/1/0", "on 0/2/0",
                                         "on 0/3/0", "end", "end", "click 0/3/0"}));
    // By keyboard as by mouse.
    ASSERT_TRUE(ui::press(VK_HOME));
    EXPECT_EQ(model.take_short(), (calls{"begin", "on 0/0/0", "end", "active 0/0/0"}));
}

TEST_F(tree_view, asks_again_only_about_what_is_known_and_there)
{
    model.asked = 0;
    view->update_tree();
    EXPECT_EQ(model.asked, 4) << "the closed branch was never asked about";
    tree->SetExpanded(node(1), true);
    ui::wait_idle();
    model.root.items.pop_back();
    model.root.items[1]->add(L"b3");
    model.asked = 0;
    view->update_tree();
    EXPECT_EQ(model.asked, 3 + 3);
    EXPECT_TRUE(tree->GetExpanded(node(1))) << "what the user opened stays open";
    EXPECT_EQ(tree->GetDisplayRect(node(1, 2), 0).IsEmpty(), false);
    // The model's truth after a change from outside: selection, focus, what is hidden.
    model.root.items[2]->selected = true;
    model.root.items[0]->shown = false;
    model.focus = model.root.items[1]->items[1].get();
    model.take();
    view->update_controls();
    ui::wait_idle();
    EXPECT_EQ(model.take(), calls());
    EXPECT_TRUE(tree->GetSelected(node(2)));
    EXPECT_TRUE(tree->GetDisplayRect(node(0), 0).IsEmpty());
    EXPECT_EQ(tree->GetFocusedNode(), node(1, 1));
    ASSERT_TRUE(click(node(2), 1));
    EXPECT_EQ(model.take(), (calls{"begin", "end", "click 0/2/1"})) << "places count hidden siblings";
    // Without a model the tree is empty and tells nobody.
    view->set_model(nullptr);
    view->update_controls();
    EXPECT_EQ(tree->GetFirst(), nullptr);
    ui::click(tree, 20, 30);
    EXPECT_EQ(model.take(), calls());
}

TEST_F(tree_view, edits_in_place_and_takes_questions_back_while_told)
{
    model.when_told = view;
    ASSERT_TRUE(click(node(0)));
    model.take();
    model.asked = 0;
    ASSERT_TRUE(ui::press(VK_RETURN));
    ASSERT_TRUE(tree->IsEditing());
    ASSERT_TRUE(ui::type(L"new name") && ui::press(VK_RETURN));
    ui::wait_idle();
    EXPECT_EQ(model.take(), calls{"new 0/0/0"});
    EXPECT_EQ(model.root.items[0]->name, L"new name");
    EXPECT_EQ(model.asked, 0) << "an update while the model is told does nothing";
    ASSERT_TRUE(ui::press(VK_END) && ui::press(VK_RETURN));
    EXPECT_FALSE(tree->IsEditing()) << "the model refuses";
    // Esc ends the entry and the form stays.
    ASSERT_TRUE(ui::press(VK_HOME) && ui::press(VK_RETURN) && ui::type(L"x") && ui::press(VK_ESCAPE));
    ui::wait_idle();
    EXPECT_EQ(model.root.items[0]->name, L"new name");
    EXPECT_TRUE(form.GetVisible());
}

TEST_F(tree_view, drops_above_on_and_below)
{
    struct drop
    {
        int from, to;
        double height; ///< within the line
        char const *told;
    };
    for (drop const &d : {drop{0, 2, 0.1, "move to 0/2"}, drop{0, 2, 0.5, "move to 0/3"},
                          drop{0, 3, 0.9, "move to 0/4"}, drop{3, 0, 0.1, nullptr}}) {
        SCOPED_TRACE(d.height);
        TRect const to = tree->GetDisplayRect(node(d.to), 0);
        TPoint const from = at(node(d.from));
        changes = 0;
        model.take();
        int const y = to.Top + static_cast<int>(d.height * to.Height());
        ASSERT_TRUE(ui::drag(tree, from.X, from.Y, tree, to.Left + 20, y));
        calls const told = model.take_short();
        EXPECT_EQ(std::ranges::count(told, "begin"), std::ranges::count(told, "end"))
            << "a drag ends its press";
        auto const moves = [](std::string const &c) { return c.starts_with("move"); };
        auto const found = std::ranges::find_if(told, moves);
        EXPECT_EQ(found == told.end() ? std::string() : *found, d.told ? d.told : "");
        EXPECT_EQ(changes, d.told ? 1 : 0);
        view->update_controls();
    }
    // A branch is no place for what has another parent.
    tree->SetExpanded(node(1), true);
    ui::wait_idle();
    TPoint const from = at(node(0)), to = at(node(1, 1));
    model.take();
    ui::drag(tree, from.X, from.Y, tree, to.X, to.Y);
    EXPECT_EQ(std::ranges::count(model.take(), "move to 1/2"), 0);
}

TEST_F(tree_view, shows_columns_wrong_items_and_hides_nothing_of_them)
{
    EXPECT_EQ(tree->GetColumnCount(), 3);
    EXPECT_EQ(model.heads, "caption0 image0 size0 flags0 caption1 image1 size1 flags1 "
                           "caption2 image2 size2 flags2 ");
    EXPECT_EQ(tree->GetColumn(1)->GetWidth(), 41);
    EXPECT_FALSE(tree->GetColumn(2)->GetResizable());
    EXPECT_EQ(tree->GetColumn(0)->GetText(), L"Name");
    TRect const place = tree->GetDisplayRect(node(1), 0), other = tree->GetDisplayRect(node(1), 1);
    EXPECT_EQ(place.Right, other.Left);
    model.root.items[1]->wrong = true;
    EXPECT_EQ(pixel(place.Right - 3, place.CenterPoint().Y), clRed);
    EXPECT_NE(pixel(other.Right - 3, place.CenterPoint().Y), clRed);
    ASSERT_TRUE(click(node(0)));
    int const chosen = tree->GetDisplayRect(node(0), 0).CenterPoint().Y;
    EXPECT_EQ(pixel(place.Right - 3, chosen), clYellow);
    EXPECT_NE(pixel(other.Right - 3, chosen), clYellow) << "buttons are no part of the selection";
    // The header is a row of buttons as well.
    changes = 0;
    model.take();
    ASSERT_TRUE(ui::click(tree, place.Left + 10, 9));
    ASSERT_TRUE(ui::click(tree, other.Left + 10, 9));
    EXPECT_EQ(model.take(), (calls{"header 0", "header 1"}));
    EXPECT_EQ(changes, 1);
}

TEST_F(tree_view, a_double_click_edits_and_buttons_bear_an_unsteady_hand)
{
    TPoint const name = at(node(1)), button = at(node(2), 1);
    ASSERT_TRUE(ui::double_click(tree, name.X, name.Y));
    EXPECT_TRUE(tree->IsEditing());
    EXPECT_FALSE(tree->GetExpanded(node(1)));
    ASSERT_TRUE(ui::press(VK_ESCAPE));
    model.take();
    ASSERT_TRUE(ui::click(tree, button.X, button.Y, mbRight));
    EXPECT_EQ(model.take(), calls()) << "neither focus nor selection";
    EXPECT_EQ(tree->GetFocusedColumn(), 0);
    ASSERT_TRUE(ui::drag(tree, button.X - 6, button.Y, button.X + 16, button.Y));
    EXPECT_EQ(model.take(), (calls{"begin", "end", "click 0/2/1"})) << "a slip is no drag of other items";
}

TEST_F(tree_view, a_drag_scrolls_opens_what_it_rests_on_and_is_given_up_by_esc)
{
    for (int i = 0; i < 40; ++i)
        model.root.add(L"more");
    view->update_controls();
    ui::wait_idle();
    TPoint const from = at(node(0)), to = at(node(1));
    model.take();
    ASSERT_TRUE(ui::mouse_down(tree, from.X, from.Y) && ui::move(tree, to.X, to.Y - 2) &&
                ui::move(tree, to.X, to.Y));
    ASSERT_TRUE(tree->Dragging());
    EXPECT_TRUE(ui::wait_until([&] { return tree->GetExpanded(node(1)); }, 20'000));
    ASSERT_TRUE(ui::move(tree, to.X, tree->GetClientHeight() - 4));
    EXPECT_TRUE(ui::wait_until([&] { return tree->GetDisplayRect(node(0), 0).IsEmpty(); }, 20'000));
    ASSERT_TRUE(ui::press(VK_ESCAPE));
    EXPECT_FALSE(tree->Dragging());
    EXPECT_TRUE(form.GetVisible());
    ui::mouse_up(tree, to.X, to.Y);
    calls const told = model.take_short();
    EXPECT_EQ(std::ranges::count(told, "begin"), std::ranges::count(told, "end"));
    EXPECT_TRUE(std::ranges::none_of(told, [](auto const &c) { return c.starts_with("move"); }));
}

/// The view ends while the model is told something: nothing of it is touched afterwards.
struct ending_model final : Tvx_abstract_item_model
{
    int child_count(Tvx_model_index const &index) override { return index.level < 0 ? 3 : 0; }
    void set_active(Tvx_model_index const &) override { end(in == 0); }
    void select(Tvx_model_index const &, bool) override {}
    void begin_update() override { end(in == 1 && ++begun == 1); }
    bool item_click(Tvx_model_index const &) override
    {
        end(in == 2);
        return true;
    }
    void end(bool now)
    {
        if (now)
            delete std::exchange(view, nullptr);
    }
    int in = 0, begun = 0;
    Tvx_virtual_tree_view *view = nullptr;
};

TEST(tree_view_end, a_model_may_end_the_view_that_tells_it)
{
    for (int in = 0; in < 3; ++in) {
        ending_model model;
        TForm form(nullptr);
        form.SetBounds(50, 50, 300, 200);
        model.in = in;
        model.view = new Tvx_virtual_tree_view(&form);
        model.view->SetParent(&form);
        model.view->SetAlign(alClient);
        model.view->set_model(&model);
        model.view->update_controls();
        form.Show();
        ui::wait_idle();
        TVirtualStringTree *const tree = model.view->get_tree();
        TPoint const at = tree->GetDisplayRect(tree->GetChild(nullptr, 1), 0).CenterPoint();
        ui::click(tree, at.X, at.Y);
        EXPECT_EQ(model.view, nullptr) << in;
    }
}

TEST(clm_widget, names_and_switches)
{
    std::unique_ptr<Ivx_geo_column, decltype(&vx_geo_column_destroy)> const column(vx_geo_column_create(),
                                                                                   &vx_geo_column_destroy);
    for (wchar_t const *name : {L"clay", L"sand"})
        column->add_item(name);
    TForm form(nullptr);
    form.SetBounds(50, 50, 500, 200);
    auto *const widget = new Tvx_clm_widget(&form);
    widget->SetParent(&form);
    widget->SetAlign(alClient);
    widget->load_res();
    widget->update_controls();
    Tvx_draw_grid *const grid = widget->get_grid();
    EXPECT_EQ(grid->GetRowCount(), 2) << "an empty row without a list";
    widget->set_column(column.get());
    widget->update_controls();
    form.Show();
    ui::wait_idle();
    EXPECT_EQ(grid->GetRowCount(), 3);
    std::unique_ptr<Ivx_geo_column, decltype(&vx_geo_column_destroy)> const empty(vx_geo_column_create(),
                                                                                  &vx_geo_column_destroy);
    for (Ivx_geo_column *const shown : {empty.get(), column.get()}) {
        widget->set_column(shown);
        widget->update_controls();
    }
    EXPECT_EQ(grid->GetFixedRows(), 1) << "the header is one after an empty list too";
    EXPECT_EQ(grid->GetColWidths(0), 32);
    EXPECT_EQ(grid->GetColWidths(3), 96);
    EXPECT_EQ(grid->GetColWidths(1),
              grid->GetClientWidth() - 32 - 64 - 2 * 96 - 5 * grid->GetGridLineWidth());
    ASSERT_TRUE(ui::click_cell(grid, 2, 2));
    EXPECT_FALSE(column->get_item(1)->get_flag());
    EXPECT_TRUE(column->get_item(0)->get_flag());
    ASSERT_TRUE(ui::press(VK_SPACE));
    EXPECT_TRUE(column->get_item(1)->get_flag());
    ASSERT_TRUE(ui::click_cell(grid, 1, 1) && ui::press(VK_F2) && ui::press(L'A', {ssCtrl}) &&
                ui::type(L"silt") && ui::press(VK_RETURN));
    std::wstring name;
    column->get_item(0)->get_name(Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"silt");
}
} // namespace
