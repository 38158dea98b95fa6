#include "support/temp_dir.h"
#include "user_input/user_input.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_list_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/controls/panel.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/menus/menu.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

using namespace vx::user_input;

namespace {
/// Writes down which event of which control ran.
struct recorder
{
    std::vector<std::string> log;

    void on_click(TObject *sender) { log.push_back("click " + name(sender)); }
    void on_double_click(TObject *sender) { log.push_back("double " + name(sender)); }
    void on_mouse_down(TObject *sender, TMouseButton button, TShiftState shift, int x, int y)
    {
        log.push_back("down " + name(sender) + " " + std::to_string(button) +
                      (shift.Contains(ssShift) ? "S" : "") + (shift.Contains(ssCtrl) ? "C" : "") + " " +
                      std::to_string(x) + "," + std::to_string(y));
    }
    void on_mouse_up(TObject *sender, TMouseButton, TShiftState, int x, int y)
    {
        log.push_back("up " + name(sender) + " " + std::to_string(x) + "," + std::to_string(y));
    }
    std::vector<std::string> take() { return std::exchange(log, {}); }
    static std::string name(TObject *sender)
    {
        return dynamic_cast<TComponent *>(sender)->GetName().to_utf8();
    }
};

using lines = std::vector<std::string>;

class input_test : public testing::Test
{
protected:
    input_test() : form(nullptr)
    {
        form.SetBounds(50, 50, 400, 300);
        form.SetName(L"form");
        button = add<TButton>(L"button", Bounds(10, 10, 80, 25));
        panel = add<TPanel>(L"panel", Bounds(10, 50, 200, 100));
        edit = add<TEdit>(L"edit", Bounds(220, 10, 100, 25));
        button->OnClick = make_closure<&recorder::on_click>(&events);
        panel->OnClick = make_closure<&recorder::on_click>(&events);
        panel->OnMouseDown = make_closure<&recorder::on_mouse_down>(&events);
        panel->OnMouseUp = make_closure<&recorder::on_mouse_up>(&events);
        form.OnMouseDown = make_closure<&recorder::on_mouse_down>(&events);
        form.Show();
        wait_idle();
    }
    ~input_test() override { forget_pending_modals(); }

    template <class T>
    T *add(wchar_t const *name, TRect const &bounds)
    {
        T *control = new T(&form);
        control->SetName(name);
        control->SetParent(&form);
        control->SetBoundsRect(bounds);
        return control;
    }

    recorder events;
    TForm form;
    TButton *button = nullptr;
    TPanel *panel = nullptr;
    TEdit *edit = nullptr;
};
} // namespace

TEST_F(input_test, a_click_reaches_what_is_under_it)
{
    EXPECT_TRUE(click(button));
    EXPECT_EQ(events.take(), lines{"click button"});
    EXPECT_TRUE(click(panel, 3, 4, mbRight, {ssShift, ssCtrl}));
    EXPECT_EQ(events.take(), (lines{"down panel 1SC 3,4", "up panel 3,4"}));
    EXPECT_FALSE(click(panel, 500, 4)) << "outside";

    auto *cover = add<TPanel>(L"cover", Bounds(0, 0, 100, 40));
    cover->BringToFront();
    EXPECT_FALSE(click(button)) << "covered";
    cover->SetVisible(false);
    EXPECT_TRUE(click(button));
    EXPECT_EQ(events.take(), lines{"click button"});

    button->SetVisible(false);
    EXPECT_FALSE(click(button));
    button->SetVisible(true);
    button->SetEnabled(false);
    EXPECT_FALSE(click(button));
    for (std::string const &line : events.take())
        EXPECT_EQ(line.find("button"), std::string::npos) << line;
}

TEST_F(input_test, two_clicks_are_no_double_click)
{
    panel->OnMouseDown = nullptr;
    panel->OnMouseUp = nullptr;
    panel->OnDblClick = make_closure<&recorder::on_double_click>(&events);
    click(panel);
    click(panel);
    EXPECT_EQ(events.take(), (lines{"click panel", "click panel"}));
    double_click(panel);
    lines const seen = events.take();
    EXPECT_EQ(std::count(seen.begin(), seen.end(), "double panel"), 1);
}

TEST_F(input_test, a_drag_holds_the_mouse_to_its_end)
{
    EXPECT_TRUE(drag(panel, 5, 5, button, 4, 4));
    EXPECT_EQ(events.take(), (lines{"down panel 0 5,5", "up panel 4,-36"})) << "the button hears nothing";
}

TEST_F(input_test, keys_go_where_the_focus_is)
{
    click(edit);
    EXPECT_TRUE(edit->Focused());
    type(L"Hello, World ß Ж");
    EXPECT_EQ(edit->GetText(), L"Hello, World ß Ж");
    press(VK_BACK);
    press_times(VK_LEFT, 3, {ssShift});
    EXPECT_EQ(edit->GetSelLength(), 3);
    enter_text(edit, L"new");
    EXPECT_EQ(edit->GetText(), L"new");
    enter_text(edit, L"");
    EXPECT_EQ(edit->GetText(), L"");

    tab_to(button);
    EXPECT_TRUE(button->Focused());
    type(L"x ");
    EXPECT_EQ(events.take(), lines{"click button"}) << "Space works a button, a letter does not";
    EXPECT_EQ(edit->GetText(), L"");
}

TEST_F(input_test, modifier_keys_are_let_go)
{
    struct watch
    {
        std::vector<int> keys;
        void on_key_down(TObject *, Word &key, TShiftState) { keys.push_back(key); }
        void on_key_up(TObject *, Word &key, TShiftState) { keys.push_back(-key); }
    } w;
    edit->OnKeyDown = make_closure<&watch::on_key_down>(&w);
    edit->OnKeyUp = make_closure<&watch::on_key_up>(&w);
    edit->SetFocus();
    press('K', {ssCtrl});
    EXPECT_EQ(w.keys, (std::vector<int>{VK_CONTROL, 'K', -'K', -VK_CONTROL}));
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
}

// ---- windows

namespace {
struct modal_opener
{
    TForm *inner = nullptr;
    int result = -1;
    void on_click(TObject *) { result = inner->ShowModal(); }
};
} // namespace

TEST_F(input_test, a_modal_form_is_answered_inside_its_loop)
{
    TForm inner(nullptr);
    inner.SetBounds(200, 200, 200, 100);
    inner.SetCaption(L"Question");
    auto *ok = new TButton(&inner);
    ok->SetParent(&inner);
    ok->SetBounds(10, 10, 75, 25);
    ok->SetCaption(L"&Apply");
    ok->SetModalResult(mrOk);
    modal_opener opener{&inner};
    button->OnClick = make_closure<&modal_opener::on_click>(&opener);

    bool reached = false;
    on_next_modal([&](modal_window const &w) {
        reached = true;
        EXPECT_EQ(w.form(), &inner);
        EXPECT_EQ(w.title(), L"Question");
        EXPECT_FALSE(click(panel)) << "blocked by the modal form";
        EXPECT_FALSE(close(&form));
        EXPECT_FALSE(w.press_button(L"Cancel")) << "there is none";
        EXPECT_TRUE(w.press_button(L"Apply"));
    });
    EXPECT_EQ(pending_modals(), 1);
    EXPECT_TRUE(click(button));
    EXPECT_TRUE(reached);
    EXPECT_EQ(opener.result, mrOk);
    EXPECT_EQ(pending_modals(), 0);
    EXPECT_EQ(events.take(), lines{});

    on_next_modal([&](modal_window const &) { close(&inner); });
    click(button);
    EXPECT_EQ(opener.result, mrCancel);
}

TEST_F(input_test, a_refusing_form_stays_open)
{
    struct refusal
    {
        bool answer = false;
        void on_close_query(TObject *, bool &can_close) { can_close = answer; }
    } r;
    form.OnCloseQuery = make_closure<&refusal::on_close_query>(&r);
    EXPECT_FALSE(close(&form));
    EXPECT_TRUE(form.GetShowing());
    r.answer = true;
    EXPECT_TRUE(close(&form));
    EXPECT_FALSE(form.GetShowing());
    EXPECT_FALSE(click(button));
}

TEST_F(input_test, a_shot_is_written)
{
    vx_test::temp_dir const dir;
    EXPECT_TRUE(save_shot(&form, UnicodeString((dir / "form.png").string())));
    EXPECT_EQ(vx_test::read_file(dir / "form.png").substr(1, 3), "PNG");
    EXPECT_FALSE(save_shot(&form, UnicodeString((dir / "none" / "form.png").string())));
    EXPECT_EQ(dir.count(), 1);
}

// ---- compound controls and menus

TEST_F(input_test, tabs_and_lists_are_chosen_by_what_is_read)
{
    auto *pages = add<TPageControl>(L"pages", Bounds(10, 160, 300, 120));
    for (wchar_t const *caption : {L"&One", L"Hidden", L"Three"}) {
        auto *sheet = new TTabSheet(&form);
        sheet->SetPageControl(pages);
        sheet->SetCaption(caption);
    }
    pages->GetPages(1)->SetTabVisible(false);
    EXPECT_TRUE(click_tab(pages, L"Three"));
    EXPECT_EQ(pages->GetActivePage(), pages->GetPages(2));
    EXPECT_TRUE(click_tab(pages, L"One"));
    EXPECT_EQ(pages->GetActivePage(), pages->GetPages(0));
    EXPECT_TRUE(click_tab(pages, 1));
    EXPECT_EQ(pages->GetActivePage(), pages->GetPages(2)) << "the second that is seen";
    EXPECT_FALSE(click_tab(pages, L"Hidden"));

    auto *combo = add<TComboBox>(L"combo", Bounds(220, 40, 120, 25));
    combo->SetStyle(csDropDownList);
    for (wchar_t const *text : {L"red", L"green", L"blue"})
        combo->GetItems()->Add(text);
    combo->OnChange = make_closure<&recorder::on_click>(&events);
    EXPECT_TRUE(choose_item(combo, L"blue"));
    EXPECT_EQ(combo->GetItemIndex(), 2);
    EXPECT_EQ(events.take(), lines{"click combo"});
    EXPECT_FALSE(choose_item(combo, L"black"));
    EXPECT_EQ(combo->GetItemIndex(), 2);
    EXPECT_TRUE(choose_item(combo, 0));
    EXPECT_EQ(combo->GetItemIndex(), 0);

    auto *list = add<TCheckListBox>(L"list", Bounds(220, 70, 120, 60));
    for (int i = 0; i < 20; ++i)
        list->GetItems()->Add(UnicodeString(i));
    EXPECT_TRUE(click_item(list, 15)) << "scrolled into sight";
    EXPECT_EQ(list->GetItemIndex(), 15);
    EXPECT_FALSE(list->GetChecked(15));
    EXPECT_TRUE(click_item_check(list, 3));
    EXPECT_TRUE(list->GetChecked(3));
    EXPECT_FALSE(click_item(list, 20));
}

TEST_F(input_test, a_hint_is_shown_at_once_when_asked_for)
{
    panel->SetHint(L"short|long");
    TPoint const inside = panel->ClientToScreen({5, 5});
    Application->ActivateHint(inside);
    EXPECT_EQ(Application->GetHint(), L"") << "the panel shows no hints";
    panel->SetShowHint(true);
    Application->ActivateHint(inside);
    EXPECT_EQ(Application->GetHint(), L"short");
    panel->SetHint(L"other");
    Application->ActivateHint(inside);
    EXPECT_EQ(Application->GetHint(), L"other");
    Application->ActivateHint(form.ClientToScreen({300, 250}));
    EXPECT_EQ(Application->GetHint(), L"") << "nothing there";
}

TEST_F(input_test, menu_items_are_chosen_by_their_path)
{
    TPopupMenu menu(nullptr);
    auto const add_item = [&](TMenuItem *to, wchar_t const *caption) {
        auto *item = new TMenuItem(&menu);
        item->SetName(caption[0] == L'&' ? caption + 1 : caption);
        item->SetCaption(caption);
        item->OnClick = make_closure<&recorder::on_click>(&events);
        to->Add(item);
        return item;
    };
    add_item(menu.GetItems(), L"&First");
    TMenuItem *more = add_item(menu.GetItems(), L"More");
    more->OnClick = nullptr;
    add_item(more, L"Deep");
    add_item(more, L"Grey")->SetEnabled(false);

    EXPECT_TRUE(choose(&menu, L"First"));
    EXPECT_EQ(events.take(), lines{"click First"});
    EXPECT_TRUE(choose(&menu, L"More|Deep"));
    EXPECT_EQ(events.take(), lines{"click Deep"});
    EXPECT_FALSE(choose(&menu, L"More|Grey"));
    EXPECT_FALSE(choose(&menu, L"None"));
    EXPECT_EQ(events.take(), lines{});

    panel->OnMouseDown = nullptr;
    panel->OnMouseUp = nullptr;
    panel->SetPopupMenu(&menu);
    choose_in_next_menu(L"First");
    click(panel, 5, 5, mbRight);
    EXPECT_TRUE(menu_choice_done());
    EXPECT_EQ(events.take(), lines{"click First"});
    choose_in_next_menu(L"");
    click(panel, 5, 5, mbRight);
    EXPECT_EQ(events.take(), lines{});
    EXPECT_TRUE(click(button)) << "no menu is left open";
}
