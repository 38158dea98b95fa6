#include "user_input/user_input.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/speed_button.h"
#include "platform/toolkit/controls/tool_bar.h"
#include "platform/toolkit/core/action.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/timer.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/image_list.h"
#include "platform/toolkit/menus/menu.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using namespace vx::user_input;

namespace {
class menu_test : public testing::Test
{
public:
    menu_test()
    {
        form.SetBounds(20, 20, 400, 300);
        edit = new TEdit(&form);
        edit->SetParent(&form);
        edit->SetBounds(10, 10, 100, 24);
    }

    TMenuItem *item(TMenuItem *parent, wchar_t const *caption)
    {
        auto *made = new TMenuItem(&form);
        made->SetCaption(caption);
        made->OnClick = make_closure<&menu_test::on_click>(this);
        parent->Add(made);
        return made;
    }
    void on_click(TObject *sender)
    {
        log.push_back(static_cast<TMenuItem *>(sender)->GetCaption().to_utf8());
    }
    void on_execute(TObject *) { log.push_back("run"); }
    void on_update(TObject *sender)
    {
        log.push_back("update");
        static_cast<TAction *>(sender)->SetEnabled(can_run);
    }
    void on_popup(TObject *) { log.push_back("popup"); }
    /// Fills a submenu when it is about to open.
    void on_open(TObject *sender)
    {
        log.push_back("open");
        auto *menu = static_cast<TMenuItem *>(sender);
        menu->Clear();
        item(menu, L"late");
    }
    std::vector<std::string> take() { return std::exchange(log, {}); }
    using lines = std::vector<std::string>;

    TForm form{nullptr};
    TEdit *edit;
    std::vector<std::string> log;
    bool can_run = true;
};
} // namespace

TEST_F(menu_test, popup_clicks_what_is_chosen)
{
    TPopupMenu menu(nullptr);
    menu.OnPopup = make_closure<&menu_test::on_popup>(this);
    menu.Popup(100, 100);
    EXPECT_EQ(take(), lines{"popup"}) << "an empty menu does not open";

    item(menu.GetItems(), L"&First");
    item(menu.GetItems(), L"-");
    TMenuItem *below = item(menu.GetItems(), L"More");
    below->OnClick = make_closure<&menu_test::on_open>(this);
    item(below, L"stale");
    TMenuItem *off = item(menu.GetItems(), L"Off");
    off->SetEnabled(false);
    EXPECT_EQ(menu.GetItems()->Find(L"first"), menu.GetItems()->GetItems(0));
    form.Show();
    wait_idle();
    EXPECT_TRUE(choose(&menu, L"First"));
    EXPECT_EQ(take(), (lines{"popup", "&First"}));
    EXPECT_TRUE(choose(&menu, L"More|late"));
    EXPECT_EQ(take(), (lines{"popup", "open", "late"}));
    EXPECT_FALSE(choose(&menu, L"Off"));
    EXPECT_EQ(take(), lines{"popup"});
    off->Click();
    EXPECT_EQ(take(), lines{});
}

TEST_F(menu_test, an_open_menu_does_not_open_again)
{
    struct meddler
    {
        TPopupMenu menu{nullptr};
        TTimer timer{nullptr};
        int popups = 0, timers = 0;
        void on_popup(TObject *)
        {
            ++popups;
            timer.SetEnabled(true);
        }
        void on_timer(TObject *)
        {
            timer.SetEnabled(false);
            ++timers;
            menu.Popup(200, 200);
            menu.CloseMenu();
        }
    } m;
    m.timer.SetEnabled(false);
    m.timer.SetInterval(1);
    m.timer.OnTimer = make_closure<&meddler::on_timer>(&m);
    m.menu.OnPopup = make_closure<&meddler::on_popup>(&m);
    item(m.menu.GetItems(), L"First");
    form.Show();
    wait_idle();
    m.menu.Popup(100, 100); // comes back
    EXPECT_EQ(m.popups, 1);
    EXPECT_EQ(m.timers, 1);
}

TEST_F(menu_test, checks_and_radio_items)
{
    TPopupMenu menu(nullptr);
    TMenuItem *check = item(menu.GetItems(), L"check");
    check->SetAutoCheck(true);
    std::vector<TMenuItem *> radio;
    for (wchar_t const *caption : {L"r1", L"r2", L"other"})
        radio.push_back(item(menu.GetItems(), caption));
    for (TMenuItem *r : radio)
        r->SetRadioItem(true);
    radio[2]->SetGroupIndex(5);
    radio[0]->SetChecked(true);
    radio[2]->SetChecked(true);
    radio[1]->SetChecked(true);
    EXPECT_FALSE(radio[0]->GetChecked());
    EXPECT_TRUE(radio[2]->GetChecked()) << "of another group";
    form.Show();
    wait_idle();
    take();
    ASSERT_TRUE(choose(&menu, L"check"));
    EXPECT_TRUE(check->GetChecked());
    ASSERT_TRUE(choose(&menu, L"check"));
    EXPECT_FALSE(check->GetChecked());
    // An item checks itself only when it was told to.
    ASSERT_TRUE(choose(&menu, L"r1"));
    EXPECT_FALSE(radio[0]->GetChecked());
    EXPECT_TRUE(radio[1]->GetChecked());
}

TEST_F(menu_test, items_leave_their_menu_in_any_order)
{
    auto menu = std::make_unique<TPopupMenu>(&form);
    TMenuItem *a = item(menu->GetItems(), L"a");
    TMenuItem *b = item(menu->GetItems(), L"b");
    TMenuItem *below = item(b, L"below");
    EXPECT_EQ(below->GetParentMenu(), menu.get());
    delete a;
    EXPECT_EQ(menu->GetItems()->GetCount(), 1);
    menu->GetItems()->Insert(0, below);
    EXPECT_EQ(b->GetCount(), 0);
    EXPECT_EQ(below->GetMenuIndex(), 0);
    menu->GetItems()->Remove(b);
    EXPECT_EQ(b->GetParentMenu(), nullptr);
    menu.reset();
    b->SetCaption(L"alone");
    EXPECT_EQ(form.FindComponent(L"nothing"), nullptr);
}

TEST_F(menu_test, action_speaks_for_its_clients)
{
    auto *list = new TActionList(&form);
    TAction *action = new TAction(&form);
    action->SetActionList(list);
    action->SetCaption(L"Do it");
    action->SetHint(L"hint");
    action->OnExecute = make_closure<&menu_test::on_execute>(this);
    auto *button = new TButton(&form);
    button->SetParent(&form);
    button->SetBounds(10, 50, 80, 25);
    button->SetAction(action);
    TPopupMenu menu(nullptr);
    auto *line = new TMenuItem(nullptr);
    menu.GetItems()->Add(line);
    line->SetAction(action);
    EXPECT_EQ(button->GetCaption(), L"Do it");
    EXPECT_EQ(line->GetCaption(), L"Do it");
    EXPECT_EQ(button->GetHint(), L"hint");
    action->SetEnabled(false);
    EXPECT_FALSE(button->GetEnabled());
    EXPECT_FALSE(line->GetEnabled());
    action->SetEnabled(true);
    form.Show();
    wait_idle();
    ASSERT_TRUE(click(button));
    EXPECT_EQ(take(), lines{"run"});
    ASSERT_TRUE(choose(&menu, L"Do it"));
    EXPECT_EQ(take(), lines{"run"});

    // A handler of the client comes before the action.
    line->OnClick = make_closure<&menu_test::on_click>(this);
    line->Click();
    EXPECT_EQ(take(), lines{"Do it"});

    action->OnUpdate = make_closure<&menu_test::on_update>(this);
    can_run = false;
    EXPECT_FALSE(action->Execute());
    EXPECT_EQ(take(), lines{"update"});

    delete action;
    EXPECT_EQ(button->GetAction(), nullptr);
    EXPECT_EQ(line->GetAction(), nullptr);
    EXPECT_EQ(list->GetActionCount(), 0);
}

TEST_F(menu_test, shortcuts_work_where_the_focus_is)
{
    auto *list = new TActionList(&form);
    TAction *action = new TAction(&form);
    action->SetActionList(list);
    action->SetShortCut(ShortCut('K', {ssCtrl}));
    action->OnExecute = make_closure<&menu_test::on_execute>(this);
    auto *menu = new TPopupMenu(&form);
    TMenuItem *line = item(menu->GetItems(), L"line");
    line->SetShortCut(ShortCut(VK_F7, {}));
    edit->SetPopupMenu(menu);
    auto *other = new TButton(&form);
    other->SetParent(&form);
    other->SetBounds(10, 50, 80, 25);
    form.Show();
    wait_idle();
    edit->SetFocus();
    press('K', {ssCtrl});
    press(VK_F7);
    EXPECT_EQ(take(), (lines{"run", "line"}));
    EXPECT_EQ(edit->GetText(), L"");
    // The popup menu belongs to the edit, the action to the whole form.
    other->SetFocus();
    press('K', {ssCtrl});
    press(VK_F7);
    EXPECT_EQ(take(), lines{"run"});
    action->SetEnabled(false);
    press('K', {ssCtrl});
    EXPECT_EQ(take(), lines{});
}

TEST_F(menu_test, main_menu_is_the_forms)
{
    auto *menu = new TMainMenu(&form);
    TMenuItem *file = item(menu->GetItems(), L"&File");
    item(file, L"&Open")->SetShortCut(ShortCut('O', {ssCtrl}));
    EXPECT_EQ(form.GetMenu(), menu);
    form.Show();
    wait_idle();
    take();
    ASSERT_TRUE(choose(&form, L"File|Open"));
    EXPECT_EQ(take(), (lines{"&File", "&Open"}));
    edit->SetFocus();
    press('O', {ssCtrl});
    EXPECT_EQ(take(), lines{"&Open"});
    delete menu;
    EXPECT_EQ(form.GetMenu(), nullptr);
}

TEST_F(menu_test, speed_buttons_of_a_group)
{
    std::vector<TSpeedButton *> buttons;
    for (int i = 0; i < 3; ++i) {
        auto *button = new TSpeedButton(&form);
        button->SetParent(&form);
        button->SetBounds(10 + 30 * i, 50, 25, 25);
        button->SetGroupIndex(i < 2 ? 1 : 2);
        buttons.push_back(button);
    }
    form.Show();
    wait_idle();
    buttons[2]->SetDown(true);
    click(buttons[0]);
    click(buttons[1]);
    EXPECT_FALSE(buttons[0]->GetDown());
    EXPECT_TRUE(buttons[1]->GetDown());
    EXPECT_TRUE(buttons[2]->GetDown());
    click(buttons[1]);
    EXPECT_TRUE(buttons[1]->GetDown()) << "one of the group stays down";
    buttons[1]->SetAllowAllUp(true);
    click(buttons[1]);
    EXPECT_FALSE(buttons[1]->GetDown());
    // Reached and pressed by key.
    ASSERT_TRUE(tab_to(buttons[0]));
    press(VK_SPACE);
    EXPECT_TRUE(buttons[0]->GetDown());
}

TEST_F(menu_test, tool_bar_places_its_buttons)
{
    auto *images = new TImageList(&form);
    TBitmap picture(16, 16);
    images->Add(&picture, nullptr);
    auto *bar = new TToolBar(&form);
    bar->SetParent(&form);
    bar->SetImages(images);
    bar->SetAutoSize(true);
    std::vector<TToolButton *> buttons;
    for (int i = 0; i < 4; ++i) {
        auto *button = new TToolButton(&form);
        button->SetParent(bar);
        button->SetImageIndex(0);
        buttons.push_back(button);
    }
    buttons[1]->SetStyle(tbsSeparator);
    EXPECT_EQ(buttons[2]->GetLeft(), bar->GetButtonWidth() + 8);
    EXPECT_EQ(bar->GetHeight(), bar->GetButtonHeight());
    buttons[2]->SetWrap(true);
    EXPECT_EQ(buttons[3]->GetLeft(), 0);
    EXPECT_EQ(bar->GetHeight(), 2 * bar->GetButtonHeight());
    buttons[0]->SetVisible(false);
    EXPECT_EQ(buttons[2]->GetLeft(), 8);

    buttons[2]->SetStyle(tbsCheck);
    buttons[3]->SetStyle(tbsCheck);
    buttons[2]->SetGrouped(true);
    buttons[3]->SetGrouped(true);
    form.Show();
    wait_idle();
    click(buttons[2]);
    click(buttons[3]);
    EXPECT_FALSE(buttons[2]->GetDown());
    EXPECT_TRUE(buttons[3]->GetDown());
    delete images;
    EXPECT_EQ(bar->GetImages(), nullptr);
}
