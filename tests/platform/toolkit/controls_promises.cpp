#include "user_input/user_input.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/check_list_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/controls/list_view.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/controls/radio_button.h"
#include "platform/toolkit/controls/radio_group.h"
#include "platform/toolkit/controls/speed_button.h"
#include "platform/toolkit/controls/spin_edit.h"
#include "platform/toolkit/controls/splitter.h"
#include "platform/toolkit/controls/track_bar.h"
#include "platform/toolkit/controls/tree_view.h"
#include "platform/toolkit/controls/up_down.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/strings.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

using namespace vx::user_input;

// What runs an event and what does not: each control with its setters, the same value again, and one action
// of a person.

namespace {
struct counter
{
    int count = 0;
    void on_event(TObject *) { ++count; }
    void on_up_down(TObject *, TUDBtnType) { ++count; }
    void on_item(TObject *, TListItem *, bool) { ++count; }
    void on_node(TObject *, TTreeNode *) { ++count; }
};

/// A control on a shown form, with the event under test connected to the counter.
struct bench
{
    TForm form{nullptr};
    counter events;

    template <class T>
    T *add(int left = 10, int top = 10, int width = 150, int height = 60)
    {
        auto *control = new T(&form);
        control->SetParent(&form);
        control->SetBounds(left, top, width, height);
        return control;
    }
    TNotifyEvent event() { return make_closure<&counter::on_event>(&events); }
    int take() { return std::exchange(events.count, 0); }
};

struct promise
{
    char const *name;
    /// Puts the control on the form and connects it; gives what follows.
    std::function<TControl *(bench &)> make;
    std::function<void(TControl *)> set;
    int events_of_set;
    /// A person's action; false where none is tried.
    std::function<bool(TControl *)> act;
    int events_of_action;
};

std::ostream &operator<<(std::ostream &out, promise const &p)
{
    return out << p.name;
}

template <class T>
std::function<void(TControl *)> setter(void (*set)(T &))
{
    return [set](TControl *control) { set(static_cast<T &>(*control)); };
}

template <class T>
std::function<bool(TControl *)> action(bool (*act)(T &))
{
    return [act](TControl *control) { return act(static_cast<T &>(*control)); };
}

TStrings *three(TStrings *items)
{
    items->Add(L"one");
    items->Add(L"two");
    items->Add(L"three");
    return items;
}

template <class T>
TControl *on_change(bench &b)
{
    auto *control = b.add<T>();
    control->OnChange = b.event();
    return control;
}

template <class T>
TControl *on_click(bench &b)
{
    auto *control = b.add<T>();
    control->OnClick = b.event();
    return control;
}

template <class T>
TControl *on_click_items(bench &b)
{
    auto *control = b.add<T>(10, 10, 150, 120);
    three(control->GetItems());
    control->OnClick = b.event();
    return control;
}

template <TComboBoxStyle Style>
TControl *combo(bench &b)
{
    auto *box = b.add<TComboBox>(10, 10, 150, 25);
    box->SetStyle(Style);
    three(box->GetItems());
    box->OnChange = b.event();
    return box;
}

std::vector<promise> const c_promises = {
    {"edit", on_change<TEdit>, setter<TEdit>([](TEdit &e) { e.SetText(L"abc"); }), 1,
     action<TEdit>([](TEdit &e) { return click(&e) && type(L"x"); }), 1},
    {"memo", on_change<TMemo>, setter<TMemo>([](TMemo &e) { e.SetText(L"abc\ndef"); }), 1,
     action<TMemo>([](TMemo &e) { return click(&e) && type(L"x"); }), 1},
    {"spin edit", on_change<TSpinEdit>, setter<TSpinEdit>([](TSpinEdit &e) { e.SetValue(5); }), 1,
     action<TSpinEdit>([](TSpinEdit &e) {
         e.SetFocus();
         return press(VK_UP);
     }),
     1},
    {"check box", on_click<TCheckBox>, setter<TCheckBox>([](TCheckBox &c) { c.SetChecked(true); }), 1,
     action<TCheckBox>([](TCheckBox &c) { return click(&c, 8, 30); }), 1},
    {"check box by key", on_click<TCheckBox>, setter<TCheckBox>([](TCheckBox &c) { c.SetState(cbGrayed); }),
     1, action<TCheckBox>([](TCheckBox &c) {
         c.SetFocus();
         return press(VK_SPACE);
     }),
     1},
    {"radio button", on_click<TRadioButton>,
     setter<TRadioButton>([](TRadioButton &c) { c.SetChecked(true); }), 1, nullptr, 0},
    {"radio group", on_click_items<TRadioGroup>,
     setter<TRadioGroup>([](TRadioGroup &g) { g.SetItemIndex(1); }), 1,
     action<TRadioGroup>([](TRadioGroup &g) { return click(g.GetButtons(2), 8, 10); }), 1},
    {"radio group by key", on_click_items<TRadioGroup>,
     setter<TRadioGroup>([](TRadioGroup &g) { g.SetItemIndex(0); }), 1,
     action<TRadioGroup>([](TRadioGroup &g) {
         g.SetFocus();
         return press(VK_DOWN);
     }),
     1},
    {"track bar", on_change<TTrackBar>, setter<TTrackBar>([](TTrackBar &t) { t.SetPosition(4); }), 1,
     action<TTrackBar>([](TTrackBar &t) {
         t.SetFocus();
         return press(VK_RIGHT);
     }),
     1},
    {"combo box", combo<csDropDown>, setter<TComboBox>([](TComboBox &c) { c.SetItemIndex(1); }), 0,
     action<TComboBox>([](TComboBox &c) { return choose_item(&c, 2); }), 1},
    {"combo box, typing", combo<csDropDown>, setter<TComboBox>([](TComboBox &c) { c.SetText(L"other"); }), 0,
     action<TComboBox>([](TComboBox &c) {
         c.SetFocus();
         return type(L"z");
     }),
     1},
    {"drop-down list", combo<csDropDownList>, setter<TComboBox>([](TComboBox &c) { c.SetItemIndex(1); }), 0,
     action<TComboBox>([](TComboBox &c) { return choose_item(&c, 0); }), 1},
    {"drop-down list by key", combo<csDropDownList>,
     setter<TComboBox>([](TComboBox &c) { c.SetItemIndex(1); }), 0, action<TComboBox>([](TComboBox &c) {
         c.SetFocus();
         return press(VK_DOWN);
     }),
     1},
    {"owner-drawn combo box", combo<csOwnerDrawFixed>,
     setter<TComboBox>([](TComboBox &c) { c.SetItemIndex(2); }), 0,
     action<TComboBox>([](TComboBox &c) { return choose_item(&c, 1); }), 1},
    {"list box", on_click_items<TListBox>, setter<TListBox>([](TListBox &l) { l.SetItemIndex(1); }), 0,
     action<TListBox>([](TListBox &l) { return click_item(&l, 2); }), 1},
    {"list box by key", on_click_items<TListBox>, setter<TListBox>([](TListBox &l) { l.SetItemIndex(1); }), 0,
     action<TListBox>([](TListBox &l) {
         l.SetFocus();
         return press(VK_DOWN);
     }),
     1},
    {"check list box",
     [](bench &b) -> TControl
                      * {
                          auto *list = b.add<TCheckListBox>(10, 10, 150, 120);
                          three(list->GetItems());
                          list->OnClickCheck = b.event();
                          return list;
                      },
     setter<TCheckListBox>([](TCheckListBox &l) { l.SetChecked(1, true); }), 0,
     action<TCheckListBox>([](TCheckListBox &l) { return click_item_check(&l, 0); }), 1},
    {"page control",
     [](bench &b) -> TControl
                      * {
                          auto *pages = b.add<TPageControl>(10, 10, 250, 150);
                          for (wchar_t const *caption : {L"first", L"second", L"third"}) {
                              auto *sheet = new TTabSheet(&b.form);
                              sheet->SetCaption(caption);
                              sheet->SetPageControl(pages);
                          }
                          pages->OnChange = b.event();
                          return pages;
                      },
     setter<TPageControl>([](TPageControl &p) { p.SetActivePageIndex(1); }), 0,
     action<TPageControl>([](TPageControl &p) { return click_tab(&p, L"third"); }), 1},
    {"speed button",
     [](bench &b) -> TControl
                      * {
                          auto *button = b.add<TSpeedButton>(10, 10, 30, 30);
                          button->SetGroupIndex(1);
                          button->OnClick = b.event();
                          return button;
                      },
     setter<TSpeedButton>([](TSpeedButton &s) { s.SetDown(true); }), 0,
     action<TSpeedButton>([](TSpeedButton &s) { return click(&s); }), 1},
    {"button", on_click<TButton>, setter<TButton>([](TButton &b) { b.SetCaption(L"Go"); }), 0,
     action<TButton>([](TButton &b) { return click(&b); }), 1},
    {"button by Enter", on_click<TButton>, setter<TButton>([](TButton &b) { b.SetDefault(true); }), 0,
     action<TButton>([](TButton &b) {
         b.SetFocus();
         return press(VK_RETURN);
     }),
     1},
    {"label", on_click<TLabel>, setter<TLabel>([](TLabel &l) { l.SetCaption(L"text"); }), 0,
     action<TLabel>([](TLabel &l) { return click(&l, 2, 2); }), 1},
    {"up-down buttons",
     [](bench &b) -> TControl
                      * {
                          auto *buttons = b.add<TUpDown>(10, 10, 20, 40);
                          buttons->OnClick = make_closure<&counter::on_up_down>(&b.events);
                          return buttons;
                      },
     setter<TUpDown>([](TUpDown &u) { u.SetPosition(7); }), 0,
     action<TUpDown>([](TUpDown &u) { return click(&u, 10, 10); }), 1},
    {"list view",
     [](bench &b) -> TControl
                      * {
                          auto *view = b.add<TListView>(10, 10, 200, 120);
                          view->AddColumn(L"Name", 100);
                          view->GetItems()->Add()->SetCaption(L"a");
                          view->GetItems()->Add()->SetCaption(L"b");
                          view->OnChange = b.event();
                          return view;
                      },
     setter<TListView>([](TListView &v) { v.SetItemIndex(0); }), 1, action<TListView>([](TListView &v) {
         v.SetFocus();
         return press(VK_DOWN);
     }),
     1},
    {"tree view",
     [](bench &b) -> TControl
                      * {
                          auto *view = b.add<TTreeView>(10, 10, 150, 120);
                          view->GetItems()->AddChild(nullptr, L"a");
                          view->GetItems()->AddChild(nullptr, L"b");
                          view->OnChange = make_closure<&counter::on_node>(&b.events);
                          return view;
                      },
     setter<TTreeView>([](TTreeView &v) { v.SetSelected(v.GetItems()->GetRoot(0)); }), 1,
     action<TTreeView>([](TTreeView &v) {
         v.SetFocus();
         return press(VK_DOWN);
     }),
     1},
};

class promises : public testing::TestWithParam<promise>
{
};
} // namespace

TEST_P(promises, hold)
{
    promise const &p = GetParam();
    bench b;
    TControl *control = p.make(b);
    b.form.SetBounds(20, 20, 400, 300);
    b.form.Show();
    wait_idle();
    EXPECT_EQ(b.take(), 0) << "showing runs nothing";

    p.set(control);
    EXPECT_EQ(b.take(), p.events_of_set);
    p.set(control);
    EXPECT_EQ(b.take(), 0) << "the same value again is no change";
    if (!p.act)
        return;
    wait_idle();
    ASSERT_TRUE(p.act(control));
    EXPECT_EQ(b.take(), p.events_of_action);

    control->SetEnabled(false);
    p.act(control);
    EXPECT_EQ(b.take(), 0) << "a disabled control cannot be worked";
}

INSTANTIATE_TEST_SUITE_P(controls, promises, testing::ValuesIn(c_promises), [](auto const &info) {
    std::string name = info.param.name;
    for (char &c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)))
            c = '_';
    return name;
});

TEST(combo_box, the_same_item_again_is_no_change_and_select_comes_before_change)
{
    bench b;
    auto *box = static_cast<TComboBox *>(combo<csDropDownList>(b));
    b.form.Show();
    wait_idle();
    box->SetItemIndex(1);
    ASSERT_TRUE(choose_item(box, 1));
    EXPECT_EQ(b.take(), 0);
    // With a handler of its own, a choice runs that one in place of the change.
    counter selected;
    box->OnSelect = make_closure<&counter::on_event>(&selected);
    ASSERT_TRUE(choose_item(box, 2));
    EXPECT_EQ(b.take(), 0);
    EXPECT_EQ(selected.count, 1);
}

TEST(combo_box, items_move_the_choice_as_a_list_does)
{
    TComboBox box(nullptr);
    box.SetStyle(csDropDownList);
    three(box.GetItems());
    EXPECT_EQ(box.GetItemIndex(), -1) << "the first item is not chosen by itself";
    TObject object;
    box.GetItems()->SetObjects(1, &object);
    box.SetItemIndex(1);
    box.GetItems()->Insert(0, L"zero");
    EXPECT_EQ(box.GetItemIndex(), 2) << "the choice goes with its item";
    EXPECT_EQ(box.GetItems()->GetObjects(2), &object);
    box.GetItems()->Delete(2);
    EXPECT_EQ(box.GetItemIndex(), -1);
    box.SetItemIndex(99);
    EXPECT_EQ(box.GetItemIndex(), -1);
    box.SetText(L"THREE");
    EXPECT_EQ(box.GetItemIndex(), 2) << "texts are found without regard to case";
    EXPECT_THROW(box.GetItems()->Delete(3), std::out_of_range);

    box.SetStyle(csDropDown);
    box.SetText(L"typed");
    EXPECT_EQ(box.GetItemIndex(), -1);
    EXPECT_EQ(box.GetText(), L"typed");
    box.SetItemIndex(0);
    EXPECT_EQ(box.GetText(), L"zero");
    box.GetItems()->Clear();
    EXPECT_EQ(box.GetItemIndex(), -1);
}

TEST(list_box, items_and_choices)
{
    TListBox list(nullptr);
    three(list.GetItems());
    EXPECT_EQ(list.GetItemIndex(), -1);
    list.SetItemIndex(1);
    EXPECT_TRUE(list.GetSelected(1));
    list.GetItems()->Delete(1);
    EXPECT_EQ(list.GetItemIndex(), -1) << "no neighbour takes the place of the choice";
    EXPECT_EQ(list.GetSelCount(), 0);
    list.SetMultiSelect(true);
    list.SetSelected(0, true);
    list.SetSelected(1, true);
    list.SetSelected(7, true);
    EXPECT_EQ(list.GetSelCount(), 2);
    list.DeleteSelected();
    EXPECT_EQ(list.GetItems()->GetCount(), 0);
    list.SetSorted(true);
    list.GetItems()->Add(L"b");
    EXPECT_EQ(list.GetItems()->Add(L"A"), 0);
    EXPECT_EQ(list.GetItems()->Add(L"c"), 2);
}

TEST(radio_group, chooses_by_value)
{
    bench b;
    auto *group = b.add<TRadioGroup>(10, 10, 200, 120);
    group->OnClick = b.event();
    three(group->GetItems());
    group->SetItemIndex(2);
    b.take();
    group->SetItemIndex(-1);
    EXPECT_EQ(b.take(), 0) << "no choice is no click";
    EXPECT_FALSE(group->GetButtons(2)->GetChecked());
    group->SetItemIndex(9);
    EXPECT_EQ(group->GetItemIndex(), 2);
    group->GetItems()->Delete(2);
    EXPECT_EQ(group->GetItemIndex(), -1);
    group->SetColumns(2);
    TRect const first = group->GetButtons(0)->GetBoundsRect();
    TRect const second = group->GetButtons(1)->GetBoundsRect();
    EXPECT_EQ(first.Top, second.Top);
    EXPECT_LT(first.Left, second.Left);
}

TEST(edit, selection_and_what_can_be_typed)
{
    bench b;
    auto *edit = b.add<TEdit>(10, 10, 150, 25);
    b.form.Show();
    wait_idle();
    edit->SetMaxLength(3);
    edit->SetText(L"longer than three");
    EXPECT_EQ(edit->GetText(), L"longer than three") << "the limit is the user's";
    edit->SetSelStart(7);
    edit->SetSelLength(4);
    EXPECT_EQ(edit->GetSelText(), L"than");
    edit->SetSelText(L"as");
    EXPECT_EQ(edit->GetText(), L"longer as three");

    edit->SetText(L"");
    edit->SetFocus();
    type(L"abcdef");
    EXPECT_EQ(edit->GetText(), L"abc");
    EXPECT_TRUE(edit->GetModified());
    edit->SetText(L"x");
    EXPECT_FALSE(edit->GetModified());

    edit->SetText(L"");
    edit->SetMaxLength(0);
    edit->SetNumbersOnly(true);
    type(L"1a-2.5");
    EXPECT_EQ(edit->GetText(), L"125");
    edit->SetNumbersOnly(false);
    edit->SetText(L"");
    edit->SetCharCase(ecUpperCase);
    type(L"жab");
    EXPECT_EQ(edit->GetText(), L"ЖAB");
}

TEST(memo, lines)
{
    TMemo memo(nullptr);
    counter changes;
    memo.OnChange = make_closure<&counter::on_event>(&changes);
    EXPECT_EQ(memo.GetLines()->GetCount(), 0);
    memo.GetLines()->Add(L"one");
    memo.GetLines()->Add(L"three");
    memo.GetLines()->Insert(1, L"two");
    EXPECT_EQ(memo.GetText(), L"one\ntwo\nthree");
    memo.GetLines()->SetStrings(0, L"1");
    memo.GetLines()->Delete(2);
    EXPECT_EQ(memo.GetText(), L"1\ntwo");
    EXPECT_EQ(memo.GetLines()->GetCount(), 2);
    EXPECT_GT(changes.count, 0);
    EXPECT_THROW((void)memo.GetLines()->GetStrings(2), std::out_of_range);
}

TEST(splitter, sizes_its_neighbour_by_mouse_and_key)
{
    bench b;
    b.form.SetBounds(20, 20, 400, 200);
    auto *left = b.add<TButton>(0, 0, 100, 50);
    left->SetAlign(alLeft);
    auto *splitter = b.add<TSplitter>(100, 0, 5, 50);
    auto *rest = b.add<TButton>(110, 0, 50, 50);
    rest->SetAlign(alClient);
    splitter->OnMoved = b.event();
    b.form.Show();
    wait_idle();
    ASSERT_EQ(left->GetWidth(), 100);
    ASSERT_TRUE(drag(splitter, 2, 50, &b.form, 152, 50));
    EXPECT_EQ(left->GetWidth(), 150);
    EXPECT_EQ(b.take(), 1);
    splitter->SetFocus();
    press(VK_LEFT);
    EXPECT_EQ(left->GetWidth(), 142);
    EXPECT_EQ(b.take(), 1);
    drag(splitter, 2, 50, &b.form, 395, 50);
    EXPECT_EQ(rest->GetWidth(), splitter->GetMinSize());
}

TEST(up_down, keeps_within_limits_and_follows_its_edit)
{
    bench b;
    auto *edit = b.add<TEdit>(10, 10, 80, 24);
    auto *buttons = b.add<TUpDown>(0, 0, 17, 24);
    buttons->SetAssociate(edit);
    buttons->SetMax(3);
    EXPECT_EQ(edit->GetText(), L"0");
    EXPECT_EQ(buttons->GetLeft(), 90);
    b.form.Show();
    wait_idle();
    edit->SetFocus();
    press_times(VK_UP, 5);
    EXPECT_EQ(edit->GetText(), L"3");
    edit->SetText(L"2");
    EXPECT_EQ(buttons->GetPosition(), 2) << "what was typed counts";
    edit->SetText(L"none");
    EXPECT_EQ(buttons->GetPosition(), 3) << "text that is no number does not";
    buttons->SetWrap(true);
    click(buttons, 8, 4);
    EXPECT_EQ(edit->GetText(), L"0");
}

TEST(spin_edit, holds_limits_only_where_they_differ)
{
    TSpinEdit edit(nullptr);
    edit.SetValue(-2000000);
    EXPECT_EQ(edit.GetValue(), -2000000);
    edit.SetMinValue(1);
    edit.SetMaxValue(9);
    edit.SetValue(50);
    EXPECT_EQ(edit.GetText(), L"9");
    edit.SetText(L"");
    EXPECT_EQ(edit.GetValue(), 1);
}
