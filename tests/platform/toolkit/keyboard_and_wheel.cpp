#include "core_fixture.h"

#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/controls/scroll_box.h"
#include "platform/toolkit/controls/spin_edit.h"
#include "platform/toolkit/controls/track_bar.h"
#include "platform/toolkit/controls/tree_view.h"
#include "platform/toolkit/core/clipboard.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/grids/string_grid.h"

#include <functional>
#include <gtest/gtest.h>

using namespace vx::user_input;

namespace {
/// U+1F600, U+10348: one character each, two units in UTF-16.
constexpr wchar_t c_far[] = L"a\U0001F600b\U00010348c";

TEST(keyboard_and_wheel, the_wheel_changes_no_value_that_has_not_the_focus)
{
    TForm form(nullptr);
    auto *box = new TScrollBox(&form);
    box->SetParent(&form);
    box->SetBounds(0, 0, 250, 150);
    auto const add = [&](auto *control, int top) {
        control->SetParent(box);
        control->SetBounds(5, top, 200, 24);
        return control;
    };
    auto *edit = add(new TEdit(box), 0);
    auto *combo = add(new TComboBox(box), 30);
    auto *spin = add(new TSpinEdit(box), 60);
    auto *track = add(new TTrackBar(box), 90);
    add(new TEdit(box), 600);
    combo->SetStyle(csDropDownList);
    combo->GetItems()->SetText(L"one\ntwo\nthree");
    combo->SetItemIndex(1);
    spin->SetValue(5);
    track->SetPosition(5);
    form.Show();
    wait_idle();
    edit->SetFocus();
    wait_idle();
    box->SetVertPosition(100);
    EXPECT_EQ(box->GetVertPosition(), 100);
    box->SetVertPosition(0);
    EXPECT_TRUE(wheel(edit, -1));
    EXPECT_GT(box->GetVertPosition(), 0);
    struct row
    {
        TWinControl *control;
        std::function<int()> value;
    };
    row const rows[] = {{combo, [&] { return combo->GetItemIndex(); }},
                        {spin, [&] { return spin->GetValue(); }},
                        {track, [&] { return track->GetPosition(); }}};
    for (row const &r : rows) {
        box->SetVertPosition(0);
        edit->SetFocus();
        int const before = r.value();
        EXPECT_TRUE(wheel(r.control, -1));
        EXPECT_EQ(r.value(), before) << r.control->GetTop();
        EXPECT_GT(box->GetVertPosition(), 0) << "what it lies in scrolls";
        box->SetVertPosition(0);
        r.control->SetFocus();
        wheel(r.control, -1);
        EXPECT_NE(r.value(), before) << "with the focus it is meant";
        EXPECT_EQ(box->GetVertPosition(), 0);
    }
}

TEST(keyboard_and_wheel, a_grid_without_the_focus_scrolls_and_keeps_its_cell)
{
    TForm form(nullptr);
    auto *edit = new TEdit(&form);
    edit->SetParent(&form);
    auto *grid = new TStringGrid(&form);
    grid->SetParent(&form);
    grid->SetBounds(0, 40, 300, 120);
    grid->SetRowCount(40);
    form.Show();
    wait_idle();
    edit->SetFocus();
    wheel(grid, -2);
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetTopRow(), 3);
    grid->SetFocus();
    wheel(grid, -2);
    EXPECT_EQ(grid->GetRow(), 3);
}

TEST(keyboard_and_wheel, a_control_that_is_hidden_loses_the_keyboard)
{
    TForm form(nullptr);
    auto *only = new TEdit(&form);
    only->SetParent(&form);
    event_log log;
    form.OnKeyPress = {
        [](void *self, TObject *, wchar_t &) { static_cast<event_log *>(self)->push_back("form"); }, &log};
    form.Show();
    wait_idle();
    only->SetFocus();
    type(L"a");
    EXPECT_EQ(only->GetText(), L"a");
    only->SetVisible(false);
    EXPECT_EQ(form.GetActiveControl(), nullptr);
    type(L"b");
    EXPECT_EQ(only->GetText(), L"a");
    EXPECT_EQ(log, event_log{"form"}) << "the form takes the keys";
    only->SetVisible(true);
    only->SetFocus();
    type(L"c");
    EXPECT_EQ(only->GetText(), L"c") << "the text was selected by the entry";
}

TEST(keyboard_and_wheel, a_form_hears_that_another_became_active)
{
    TForm first(nullptr);
    TForm second(nullptr);
    event_log log;
    first.OnDeactivate = {
        [](void *self, TObject *) { static_cast<event_log *>(self)->push_back("first left"); }, &log};
    second.OnActivate = {
        [](void *self, TObject *) { static_cast<event_log *>(self)->push_back("second came"); }, &log};
    first.SetBounds(0, 0, 300, 200);
    second.SetBounds(400, 0, 300, 200);
    first.Show();
    wait_idle();
    log.clear();
    second.Show();
    wait_idle();
    EXPECT_EQ(log, (event_log{"first left", "second came"}));
    log.clear();
    first.Show();
    wait_idle();
    second.Show();
    wait_idle();
    EXPECT_EQ(log, (event_log{"first left", "second came"})) << "once for each change";
}

TEST(keyboard_and_wheel, a_tree_that_ends_tells_of_no_change)
{
    TForm form(nullptr);
    auto *tree = new TTreeView(&form);
    tree->SetParent(&form);
    struct counts
    {
        int changes = 0;
        int deletions = 0;
    } seen;
    for (wchar_t const *text : {L"one", L"two", L"three"})
        tree->GetItems()->AddChild(nullptr, text);
    form.Show();
    wait_idle();
    tree->SetSelected(tree->GetItems()->GetRoot(2));
    tree->OnChange = {[](void *self, TObject *, TTreeNode *) { ++static_cast<counts *>(self)->changes; },
                      &seen};
    tree->OnDeletion = {[](void *self, TObject *, TTreeNode *) { ++static_cast<counts *>(self)->deletions; },
                        &seen};
    delete tree;
    EXPECT_EQ(seen.changes, 0);
    EXPECT_EQ(seen.deletions, 3) << "what hangs on the nodes is still given back";
}

template <class Edit>
void count_characters(char const *name)
{
    SCOPED_TRACE(name);
    TForm form(nullptr);
    auto *edit = new Edit(&form);
    edit->SetParent(&form);
    form.Show();
    wait_idle();
    edit->SetText(c_far);
    ASSERT_EQ(edit->GetText().Length(), 5);
    edit->SetSelStart(1);
    edit->SetSelLength(1);
    EXPECT_EQ(edit->GetSelText(), L"\U0001F600");
    EXPECT_EQ(edit->GetSelStart(), 1);
    EXPECT_EQ(edit->GetSelLength(), 1);
    edit->SetSelText(L"x");
    EXPECT_EQ(edit->GetText(), L"axb\U00010348c");
    edit->SelectAll();
    EXPECT_EQ(edit->GetSelLength(), 5);
    edit->SetSelStart(4);
    edit->SetSelLength(9);
    EXPECT_EQ(edit->GetSelText(), L"c");
}

TEST(keyboard_and_wheel, positions_in_edits_count_characters)
{
    count_characters<TEdit>("edit");
    count_characters<TMemo>("memo");
    TForm form(nullptr);
    auto *combo = new TComboBox(&form);
    combo->SetParent(&form);
    form.Show();
    wait_idle();
    combo->SetText(c_far);
    combo->SetSelStart(3);
    combo->SetSelLength(1);
    EXPECT_EQ(combo->GetSelStart(), 3);
    EXPECT_EQ(combo->GetSelLength(), 1);
}

TEST(keyboard_and_wheel, a_limit_of_length_never_parts_a_character)
{
    TForm form(nullptr);
    auto *edit = new TEdit(&form);
    edit->SetParent(&form);
    edit->SetMaxLength(3);
    form.Show();
    wait_idle();
    edit->SetFocus();
    type(L"ab\U0001F600\U0001F601");
    EXPECT_EQ(edit->GetText(), L"ab\U0001F600");
    edit->SetText(L"");
    Clipboard()->SetAsText(L"x\U0001F600\U0001F601\U0001F602");
    press('V', {ssCtrl});
    EXPECT_EQ(edit->GetText(), L"x\U0001F600\U0001F601") << "what fits of a paste";
    edit->SetText(L"");
    type(L"12");
    edit->SetSelStart(1);
    press('V', {ssCtrl});
    EXPECT_EQ(edit->GetText(), L"1x2") << "the text behind the place stays";
    edit->SetText(c_far);
    EXPECT_EQ(edit->GetText(), c_far) << "the limit is the user's";
    edit->SetSelStart(5);
    type(L"z");
    EXPECT_EQ(edit->GetText(), c_far);
    press(VK_BACK);
    EXPECT_EQ(edit->GetText().Length(), 4);
    type(L"z");
    EXPECT_EQ(edit->GetText().Length(), 4) << "it only becomes shorter";
    auto *combo = new TComboBox(&form);
    combo->SetParent(&form);
    combo->SetTop(50);
    combo->SetMaxLength(2);
    EXPECT_EQ(combo->GetMaxLength(), 2);
    combo->SetFocus();
    type(L"\U0001F600\U0001F601\U0001F602");
    EXPECT_EQ(combo->GetText(), L"\U0001F600\U0001F601");
}

TEST(keyboard_and_wheel, a_typed_item_of_a_combo_box_has_its_place)
{
    TForm form(nullptr);
    auto *combo = new TComboBox(&form);
    combo->SetParent(&form);
    combo->GetItems()->SetText(L"one\ntwo\nthree");
    form.Show();
    wait_idle();
    combo->SetFocus();
    combo->SetAutoComplete(false);
    type(L"tw");
    EXPECT_EQ(combo->GetItemIndex(), -1);
    type(L"o");
    EXPECT_EQ(combo->GetText(), L"two");
    EXPECT_EQ(combo->GetItemIndex(), 1);
    type(L"x");
    EXPECT_EQ(combo->GetText(), L"twox");
    EXPECT_EQ(combo->GetItemIndex(), -1);
}
} // namespace
