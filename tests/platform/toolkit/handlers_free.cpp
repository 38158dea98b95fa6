#include "user_input/user_input.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/check_list_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/controls/list_view.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/controls/panel.h"
#include "platform/toolkit/controls/radio_button.h"
#include "platform/toolkit/controls/radio_group.h"
#include "platform/toolkit/controls/rich_edit.h"
#include "platform/toolkit/controls/speed_button.h"
#include "platform/toolkit/controls/spin_edit.h"
#include "platform/toolkit/controls/splitter.h"
#include "platform/toolkit/controls/track_bar.h"
#include "platform/toolkit/controls/tree_view.h"
#include "platform/toolkit/controls/up_down.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/grids/color_grid.h"
#include "platform/toolkit/grids/string_grid.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

using namespace vx::user_input;

// A handler may free the control that called it, whatever the event. The sanitizers say what went on with it.

namespace {
/// Frees a control in the first event that comes.
struct liberator
{
    TControl *doomed = nullptr;
    int runs = 0;

    template <class... Args>
    void in(closure<void(Args...)> &event)
    {
        event = closure<void(Args...)>(
            [](void *self, Args...) {
                auto &l = *static_cast<liberator *>(self);
                ++l.runs;
                delete std::exchange(l.doomed, nullptr);
            },
            this);
    }
};

/// A form with the control between two edits.
struct bench
{
    TForm form{nullptr};
    TEdit *before = add<TEdit>(10);
    TWinControl *control = nullptr;
    TEdit *after = nullptr;
    liberator frees;

    template <class T>
    T *add(int top, int height = 24)
    {
        auto *made = new T(&form);
        made->SetParent(&form);
        made->SetBounds(10, top, 200, height);
        return made;
    }
    template <class T>
    T *make()
    {
        auto *made = add<T>(50, 100);
        control = made;
        after = add<TEdit>(160);
        fill(made);
        form.Show();
        wait_idle();
        frees.doomed = made;
        return made;
    }

    static void fill(TWinControl *) {}
    static void fill(TCustomListBox *list) { list->GetItems()->SetText(L"one\ntwo\nthree"); }
    static void fill(TComboBox *box) { box->GetItems()->SetText(L"one\ntwo\nthree"); }
    static void fill(TRadioGroup *group) { group->GetItems()->SetText(L"one\ntwo"); }
    static void fill(TStringGrid *grid)
    {
        grid->SetRowCount(20);
        grid->SetOptions(grid->GetOptions() << goEditing << goRowMoving << goColMoving);
        grid->SetCells(1, 1, L"text");
    }
    static void fill(TTreeView *tree)
    {
        tree->GetItems()->AddChild(tree->GetItems()->AddChild(nullptr, L"one"), L"inner");
        tree->GetItems()->AddChild(nullptr, L"two");
    }
    static void fill(TListView *view)
    {
        view->AddColumn(L"name", 80);
        view->SetCheckboxes(true);
        view->GetItems()->Insert(0)->SetCaption(L"one");
        view->GetItems()->Insert(1)->SetCaption(L"two");
    }
    static void fill(TPageControl *pages)
    {
        for (wchar_t const *caption : {L"first", L"second"}) {
            auto *sheet = new TTabSheet(pages);
            sheet->SetCaption(caption);
            sheet->SetPageControl(pages);
            (new TEdit(sheet))->SetParent(sheet);
        }
        pages->SetActivePageIndex(0);
    }
};

struct common_event
{
    char const *name;
    bool sure; ///< runs for every class that takes the focus
    void (*hook)(TWinControl &control, liberator &frees);
    void (*act)(bench &b);
};

common_event const c_common[] = {
    {"OnEnter by Tab", true, [](TWinControl &c, liberator &f) { f.in(c.OnEnter); },
     [](bench &b) {
         b.before->SetFocus();
         press(VK_TAB);
         type(L"x");
     }},
    {"OnEnter by program", true, [](TWinControl &c, liberator &f) { f.in(c.OnEnter); },
     [](bench &b) {
         b.before->SetFocus();
         b.control->SetFocus();
     }},
    {"OnEnter by click", false, [](TWinControl &c, liberator &f) { f.in(c.OnEnter); },
     [](bench &b) {
         b.before->SetFocus();
         click(b.control, 20, 12);
     }},
    {"OnExit by Tab", true, [](TWinControl &c, liberator &f) { f.in(c.OnExit); },
     [](bench &b) {
         b.control->SetFocus();
         press(VK_TAB);
         press(VK_TAB);
     }},
    {"OnKeyDown", true, [](TWinControl &c, liberator &f) { f.in(c.OnKeyDown); },
     [](bench &b) {
         b.control->SetFocus();
         press(VK_DOWN);
         press(VK_DOWN);
     }},
    {"OnKeyPress", false, [](TWinControl &c, liberator &f) { f.in(c.OnKeyPress); },
     [](bench &b) {
         b.control->SetFocus();
         type(L"1a ");
     }},
    {"OnKeyUp", false, [](TWinControl &c, liberator &f) { f.in(c.OnKeyUp); },
     [](bench &b) {
         b.control->SetFocus();
         press('A');
         press(VK_SPACE);
     }},
    {"OnMouseDown", true, [](TWinControl &c, liberator &f) { f.in(c.OnMouseDown); },
     [](bench &b) { drag(b.control, 20, 12, 40, 14); }},
    {"OnMouseMove", true, [](TWinControl &c, liberator &f) { f.in(c.OnMouseMove); },
     [](bench &b) { drag(b.control, 20, 12, 40, 14); }},
    {"OnMouseUp", true, [](TWinControl &c, liberator &f) { f.in(c.OnMouseUp); },
     [](bench &b) { click(b.control, 20, 12); }},
    {"OnMouseEnter", false, [](TWinControl &c, liberator &f) { f.in(c.OnMouseEnter); },
     [](bench &b) {
         move(b.before, 3, 3);
         move(b.control, 20, 12);
     }},
    {"OnClick", false, [](TWinControl &c, liberator &f) { f.in(c.OnClick); },
     [](bench &b) { click(b.control, 20, 12); }},
    {"OnDblClick", false, [](TWinControl &c, liberator &f) { f.in(c.OnDblClick); },
     [](bench &b) { double_click(b.control, 20, 12); }},
    {"OnMouseWheel", false, [](TWinControl &c, liberator &f) { f.in(c.OnMouseWheel); },
     [](bench &b) { wheel(b.control, -2); }},
    {"OnMouseWheelDown", false, [](TWinControl &c, liberator &f) { f.in(c.OnMouseWheelDown); },
     [](bench &b) { wheel(b.control, -2); }},
    {"OnResize", true, [](TWinControl &c, liberator &f) { f.in(c.OnResize); },
     [](bench &b) { b.control->SetBounds(0, 0, 250, 120); }},
};

template <class T>
void free_in_common_events(char const *class_name)
{
    for (common_event const &event : c_common) {
        SCOPED_TRACE(std::string(class_name) + " " + event.name);
        bench b;
        b.make<T>();
        event.hook(*b.control, b.frees);
        event.act(b);
        wait_idle();
        EXPECT_TRUE(b.frees.runs > 0 || !event.sure);
        EXPECT_TRUE(b.frees.runs == 0 || !b.frees.doomed);
    }
}

template <class T>
void free_in(char const *name, std::function<void(T &, liberator &)> hook, std::function<void(T *)> act)
{
    SCOPED_TRACE(name);
    bench b;
    T *control = b.make<T>();
    hook(*control, b.frees);
    act(control);
    wait_idle();
    EXPECT_GT(b.frees.runs, 0) << name;
    EXPECT_EQ(b.frees.doomed, nullptr) << name;
    type(L"x"); // what is left takes keys
}

#define EVENT(name) [](auto &c, liberator &f) { f.in(c.name); }
} // namespace

TEST(handlers_free, events_that_every_control_has)
{
    free_in_common_events<TEdit>("edit");
    free_in_common_events<TMemo>("memo");
    free_in_common_events<TRichEdit>("rich edit");
    free_in_common_events<TSpinEdit>("spin edit");
    free_in_common_events<TButton>("button");
    free_in_common_events<TCheckBox>("check box");
    free_in_common_events<TRadioButton>("radio button");
    free_in_common_events<TListBox>("list box");
    free_in_common_events<TCheckListBox>("check list box");
    free_in_common_events<TComboBox>("combo box");
    free_in_common_events<TTreeView>("tree view");
    free_in_common_events<TListView>("list view");
    free_in_common_events<TStringGrid>("string grid");
    free_in_common_events<TColorGrid>("color grid");
    free_in_common_events<TTrackBar>("track bar");
    free_in_common_events<TPageControl>("page control");
}

TEST(handlers_free, events_of_edits)
{
    free_in<TEdit>("typed", EVENT(OnChange), [](TEdit *c) {
        c->SetFocus();
        type(L"ab");
    });
    free_in<TEdit>("set", EVENT(OnChange), [](TEdit *c) { c->SetText(L"ab"); });
    free_in<TMemo>("memo", EVENT(OnChange), [](TMemo *c) {
        c->SetFocus();
        type(L"a\nb");
    });
    free_in<TSpinEdit>("spin", EVENT(OnChange), [](TSpinEdit *c) {
        c->SetFocus();
        press(VK_UP);
    });
}

TEST(handlers_free, events_of_lists)
{
    free_in<TListBox>("click", EVENT(OnClick), [](TListBox *c) { click_item(c, 1); });
    free_in<TListBox>("key", EVENT(OnClick), [](TListBox *c) {
        c->SetFocus();
        press(VK_DOWN);
        press(VK_DOWN);
    });
    free_in<TListBox>("double click", EVENT(OnDblClick), [](TListBox *c) { double_click(c, 20, 8); });
    free_in<TCheckListBox>("mark", EVENT(OnClickCheck), [](TCheckListBox *c) { click_item_check(c, 1); });
    free_in<TCheckListBox>("mark by key", EVENT(OnClickCheck), [](TCheckListBox *c) {
        c->SetItemIndex(0);
        c->SetFocus();
        press(VK_SPACE);
    });
    free_in<TComboBox>("typed", EVENT(OnChange), [](TComboBox *c) {
        c->SetFocus();
        type(L"ab");
    });
    free_in<TComboBox>("chosen", EVENT(OnSelect), [](TComboBox *c) { choose_item(c, 1); });
    free_in<TComboBox>("click", EVENT(OnClick), [](TComboBox *c) { choose_item(c, 1); });
    free_in<TComboBox>("opened", EVENT(OnDropDown), [](TComboBox *c) {
        c->SetFocus();
        press(VK_F4);
    });
    free_in<TComboBox>("closed", EVENT(OnCloseUp), [](TComboBox *c) {
        c->SetFocus();
        press(VK_F4);
        press(VK_ESCAPE);
    });
    free_in<TRadioGroup>("radio", EVENT(OnClick), [](TRadioGroup *c) { click(c->GetButtons(1)); });
}

TEST(handlers_free, events_of_trees_and_list_views)
{
    auto const to_first = [](TTreeView *c) {
        c->SetFocus();
        press(VK_HOME);
    };
    free_in<TTreeView>("key", EVENT(OnChange), [&](TTreeView *c) {
        c->SetFocus();
        press(VK_DOWN);
        press(VK_DOWN);
    });
    free_in<TTreeView>("click", EVENT(OnChange), [](TTreeView *c) { click(c, 40, 25); });
    free_in<TTreeView>("expanding", EVENT(OnExpanding), [&](TTreeView *c) {
        to_first(c);
        press(VK_RIGHT);
    });
    free_in<TTreeView>("collapsed", EVENT(OnCollapsed), [&](TTreeView *c) {
        to_first(c);
        press(VK_RIGHT);
        press(VK_LEFT);
    });
    free_in<TTreeView>("edited", EVENT(OnEdited), [&](TTreeView *c) {
        c->SetReadOnly(false);
        to_first(c);
        press(VK_F2);
        type(L"ab\n");
    });
    free_in<TTreeView>("deletion", EVENT(OnDeletion), [](TTreeView *c) { c->GetItems()->Clear(); });
    free_in<TListView>("checked", EVENT(OnItemChecked), [](TListView *c) {
        c->SetFocus();
        press(VK_HOME);
        press(VK_SPACE);
    });
    free_in<TListView>("selected", EVENT(OnSelectItem), [](TListView *c) {
        c->SetFocus();
        press(VK_DOWN);
    });
    free_in<TListView>("changed", EVENT(OnChange), [](TListView *c) { click(c, 40, 35); });
    free_in<TListView>("column", EVENT(OnColumnClick), [](TListView *c) { click(c, 30, 8); });
}

TEST(handlers_free, events_of_grids)
{
    free_in<TStringGrid>("cell by click", EVENT(OnSelectCell), [](TStringGrid *c) { click_cell(c, 2, 2); });
    free_in<TStringGrid>("cell by key", EVENT(OnSelectCell), [](TStringGrid *c) {
        c->SetFocus();
        press(VK_DOWN);
        press(VK_DOWN);
    });
    free_in<TStringGrid>("cell by program", EVENT(OnSelectCell), [](TStringGrid *c) { c->SetRow(3); });
    free_in<TStringGrid>("edited", EVENT(OnSetEditText), [](TStringGrid *c) {
        c->SetFocus();
        type(L"ab");
        press(VK_RETURN);
        press(VK_DOWN);
    });
    free_in<TStringGrid>("scrolled", EVENT(OnTopLeftChanged), [](TStringGrid *c) {
        c->SetFocus();
        press(VK_NEXT);
        press(VK_NEXT);
    });
    free_in<TStringGrid>("row moved", EVENT(OnRowMoved), [](TStringGrid *c) { drag_cell(c, 0, 1, 0, 2); });
    free_in<TStringGrid>("column moved", EVENT(OnColumnMoved),
                         [](TStringGrid *c) { drag_cell(c, 1, 0, 2, 0); });
    free_in<TColorGrid>("color", EVENT(OnChange), [](TColorGrid *c) { click(c, 70, 30); });
}

TEST(handlers_free, events_of_pages_and_sliders)
{
    free_in<TPageControl>("changing", EVENT(OnChanging), [](TPageControl *c) { click_tab(c, 1); });
    free_in<TPageControl>("changed", EVENT(OnChange), [](TPageControl *c) { click_tab(c, 1); });
    free_in<TPageControl>(
        "page shown", [](TPageControl &c, liberator &f) { f.in(c.GetPages(1)->OnShow); },
        [](TPageControl *c) { click_tab(c, 1); });
    free_in<TPageControl>(
        "page hidden", [](TPageControl &c, liberator &f) { f.in(c.GetPages(0)->OnHide); },
        [](TPageControl *c) { click_tab(c, 1); });
    free_in<TTrackBar>("slider", EVENT(OnChange), [](TTrackBar *c) {
        c->SetFocus();
        press(VK_RIGHT);
    });
    free_in<TUpDown>("steps", EVENT(OnChanging), [](TUpDown *c) { click(c, 10, 10); });
    free_in<TUpDown>(
        "stepped", [](TUpDown &c, liberator &f) { f.in(c.OnClick); }, [](TUpDown *c) { click(c, 10, 10); });
}

TEST(handlers_free, a_neighbour_in_a_layout)
{
    TForm form(nullptr);
    liberator frees;
    std::vector<TPanel *> panels;
    for (int i = 0; i < 3; ++i) {
        auto *panel = new TPanel(&form);
        panel->SetParent(&form);
        panel->SetAlign(alLeft);
        panel->SetWidth(50);
        panels.push_back(panel);
    }
    form.Show();
    wait_idle();
    frees.in(panels[0]->OnResize);
    frees.doomed = panels[1];
    form.SetHeight(form.GetHeight() + 40);
    EXPECT_EQ(frees.doomed, nullptr);
    wait_idle();
    EXPECT_EQ(panels[2]->GetLeft(), 50) << "stands in the place of the one that went";
    // The whole form, from within its layout.
    auto *other = new TForm(nullptr);
    auto *inside = new TPanel(other);
    inside->SetParent(other);
    inside->SetAlign(alClient);
    other->Show();
    wait_idle();
    liberator ends;
    ends.in(inside->OnResize);
    ends.doomed = other;
    other->SetWidth(other->GetWidth() + 30);
    EXPECT_EQ(ends.doomed, nullptr);
    wait_idle();
}
