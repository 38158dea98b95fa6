#include "core_fixture.h"

#include "platform/toolkit/core/dock_manager.h"
#include "platform/toolkit/core/list.h"
#include "platform/toolkit/graphics/font.h"

#include <gtest/gtest.h>
#include <memory>

using namespace vx;

TEST(core_window, windows_are_made_late_and_parents_first)
{
    event_log log;
    TForm form(nullptr);
    auto *const outer = new probe_control(&form, &form, "outer", &log);
    auto *const inner = new probe_control(&form, outer, "inner", &log);
    auto *const hidden = new probe_control(&form, outer, "hidden", &log);
    hidden->SetVisible(false);
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(inner->HandleAllocated());
    EXPECT_FALSE(inner->GetShowing());

    form.Show();
    EXPECT_EQ(log, (event_log{"outer window", "inner window"}));
    EXPECT_TRUE(inner->GetShowing());
    form.Hide();
    form.Show();
    EXPECT_EQ(inner->windows, 1) << "hiding keeps the window";

    log.clear();
    hidden->SetVisible(true);
    EXPECT_EQ(log, event_log{"hidden window"});
    log.clear();
    outer->RecreateWnd();
    EXPECT_EQ(log, (event_log{"inner no window", "hidden no window", "outer no window", "outer window",
                              "inner window", "hidden window"}));
    log.clear();
    inner->SetParent(nullptr);
    EXPECT_EQ(log, event_log{"inner no window"});
    EXPECT_EQ(inner->GetHandle(), nullptr) << "nowhere to make it";
    inner->SetParent(outer);
    EXPECT_NE(inner->GetHandle(), nullptr);
    EXPECT_EQ(FindControl(inner->GetHandle()), inner);
}

TEST(core_window, enabled_and_visible_are_each_controls_own)
{
    TForm form(nullptr);
    auto *const outer = new probe_control(&form, &form, "outer");
    auto *const inner = new probe_control(&form, outer, "inner");
    form.Show();
    outer->SetEnabled(false);
    EXPECT_TRUE(inner->GetEnabled());
    EXPECT_FALSE(inner->CanFocus());
    outer->SetVisible(false);
    EXPECT_TRUE(inner->GetVisible());
    EXPECT_FALSE(inner->GetShowing());
    EXPECT_FALSE(form.GetParentColor());
    form.SetColor(clRed);
    EXPECT_EQ(inner->GetColor(), clRed);
    inner->SetCaption(L"&Size && more");
    EXPECT_EQ(inner->GetAccessibleName(), L"Size & more");
}

TEST(core_window, fonts_come_from_the_parent_until_there_is_one_of_ones_own)
{
    TForm form(nullptr);
    TPanel panel(nullptr);
    TPanel child(nullptr);
    panel.SetParent(&form);
    child.SetParent(&panel);
    form.GetFont()->SetHeight(-20);
    EXPECT_EQ(child.GetFont()->GetHeight(), -20);
    form.GetFont()->SetHeight(-24);
    EXPECT_EQ(child.GetFont()->GetHeight(), -24) << "also after it was asked for";
    EXPECT_TRUE(child.GetParentFont());
    panel.GetFont()->SetStyle({fsBold});
    EXPECT_FALSE(panel.GetParentFont());
    EXPECT_TRUE(child.GetFont()->GetStyle().Contains(fsBold));
    form.GetFont()->SetHeight(-30);
    EXPECT_EQ(child.GetFont()->GetHeight(), -24) << "the panel stands in between";
    panel.SetParentFont(true);
    EXPECT_EQ(child.GetFont()->GetHeight(), -30);
}

TEST(core_window, hints_are_shown_as_the_nearest_answer_says)
{
    TForm form(nullptr);
    TPanel panel(nullptr);
    panel.SetParent(&form);
    panel.SetHint(L"short|long");
    EXPECT_FALSE(panel.GetShowHint());
    form.SetShowHint(true);
    EXPECT_TRUE(panel.GetShowHint());
    panel.SetShowHint(false);
    EXPECT_FALSE(panel.GetShowHint());
    panel.SetParentShowHint(true);
    EXPECT_TRUE(panel.GetShowHint());
}

TEST(core_form, position_centre_and_designed)
{
    TForm form(nullptr);
    form.SetBounds(0, 0, 300, 200);
    form.SetPosition(poScreenCenter);
    form.Show();
    EXPECT_EQ(form.GetLeft(), (1920 - 300) / 2);
    EXPECT_EQ(form.GetTop(), (1080 - 200) / 2);
    EXPECT_EQ(form.GetPosition(), poScreenCenter);

    TForm designed(nullptr);
    designed.SetBounds(-50, 700, 300, 200);
    designed.SetBorderStyle(bsSizeToolWin);
    designed.SetFormStyle(fsStayOnTop);
    designed.Show();
    user_input::wait_idle();
    EXPECT_EQ(text_of(designed.GetBoundsRect()), "-50,700,300,200");
    designed.SetLeft(1620);
    designed.SetTop(880);
    user_input::wait_idle();
    EXPECT_EQ(text_of(designed.GetBoundsRect()), "1620,880,300,200");
}

namespace {
/// Writes down a form's events and answers its questions.
struct form_probe
{
    explicit form_probe(TCustomForm &form)
    {
        form.OnShow = make_closure<&form_probe::on_show>(this);
        form.OnHide = make_closure<&form_probe::on_hide>(this);
        form.OnCloseQuery = make_closure<&form_probe::on_query>(this);
        form.OnClose = make_closure<&form_probe::on_close>(this);
    }
    void on_show(TObject *) { log.push_back("show"); }
    void on_hide(TObject *) { log.push_back("hide"); }
    void on_query(TObject *, bool &can_close)
    {
        log.push_back("query");
        can_close = may_close;
    }
    void on_close(TObject *, TCloseAction &action)
    {
        log.push_back("close");
        if (answer >= 0)
            action = static_cast<TCloseAction>(answer);
    }

    event_log log;
    bool may_close = true;
    int answer = -1;
};
} // namespace

TEST(core_form, closing_asks_and_hides)
{
    TForm form(nullptr);
    form_probe probe(form);
    form.Show();
    form.Show();
    EXPECT_EQ(probe.log, event_log{"show"});
    probe.may_close = false;
    form.Close();
    EXPECT_TRUE(form.GetVisible());
    probe.may_close = true;
    probe.answer = caNone;
    form.Close();
    EXPECT_TRUE(form.GetVisible());
    probe.answer = -1;
    probe.log.clear();
    EXPECT_TRUE(user_input::close(&form));
    EXPECT_FALSE(form.GetVisible());
    EXPECT_EQ(probe.log, (event_log{"query", "close", "hide"}));
}

TEST(core_form, close_action_free_ends_the_form_later)
{
    auto *const form = new TForm(nullptr);
    TComponentList watch(false);
    watch.Add(form);
    form_probe probe(*form);
    probe.answer = caFree;
    form->Show();
    form->Close();
    EXPECT_EQ(watch.GetCount(), 1);
    user_input::wait_idle();
    EXPECT_EQ(watch.GetCount(), 0);
}

TEST(core_form, modal_result_comes_back_and_may_be_refused)
{
    TForm form(nullptr);
    form_probe probe(form);
    user_input::on_next_modal([&](user_input::modal_window const &w) {
        EXPECT_EQ(w.form(), &form);
        EXPECT_TRUE(form.IsModal());
        form.SetModalResult(mrOk);
    });
    EXPECT_EQ(form.ShowModal(), mrOk);
    EXPECT_FALSE(form.GetVisible());
    EXPECT_FALSE(form.IsModal());
    EXPECT_EQ(probe.log, (event_log{"show", "query", "close", "hide"}));

    user_input::on_next_modal([&](user_input::modal_window const &) { form.Close(); });
    EXPECT_EQ(form.ShowModal(), mrCancel);

    // The question is asked until it is answered with yes.
    struct stubborn
    {
        TForm *form;
        int asked = 0;
        void on_query(TObject *, bool &can_close)
        {
            can_close = ++asked == 2;
            if (!can_close)
                user_input::on_next_modal([](user_input::modal_window const &) {});
        }
        void on_idle(TObject *, bool &done)
        {
            if (asked == 1)
                form->SetModalResult(mrYes);
            done = asked != 1;
        }
    } stubborn{&form};
    form.OnCloseQuery = make_closure<&stubborn::on_query>(&stubborn);
    Application->OnIdle = make_closure<&stubborn::on_idle>(&stubborn);
    user_input::forget_pending_modals();
    user_input::on_next_modal([&](user_input::modal_window const &) { form.SetModalResult(mrNo); });
    EXPECT_EQ(form.ShowModal(), mrYes);
    EXPECT_EQ(stubborn.asked, 2);
    Application->OnIdle = {};
    user_input::forget_pending_modals();
}

TEST(core_form, modal_forms_nest)
{
    TForm outer(nullptr);
    TForm inner(nullptr);
    int inner_result = 0;
    user_input::on_next_modal([&](user_input::modal_window const &) {
        user_input::on_next_modal([&](user_input::modal_window const &) { inner.SetModalResult(mrRetry); });
        inner_result = inner.ShowModal();
        EXPECT_TRUE(outer.GetVisible());
        outer.SetModalResult(mrOk);
    });
    EXPECT_EQ(outer.ShowModal(), mrOk);
    EXPECT_EQ(inner_result, mrRetry);
}

TEST(core_form, a_form_may_be_freed_while_it_is_modal)
{
    auto *const form = new TForm(nullptr);
    user_input::on_next_modal([&](user_input::modal_window const &) { delete form; });
    EXPECT_EQ(form->ShowModal(), mrCancel);
}

TEST(core_form, help_context_goes_to_the_application)
{
    struct listener
    {
        THelpContext context = 0;
        bool on_help(THelpContext c)
        {
            context = c;
            return true;
        }
    } listener;
    EXPECT_FALSE(Application->HelpContext(7));
    Application->OnHelp = make_closure<&listener::on_help>(&listener);
    TForm form(nullptr);
    form.SetHelpContext(23);
    auto *const probe = new probe_control(&form, &form, "probe");
    form.Show();
    probe->SetFocus();
    user_input::wait_idle();
    user_input::press(VK_F1);
    EXPECT_EQ(listener.context, 23);
    probe->SetHelpContext(5);
    user_input::press(VK_F1);
    EXPECT_EQ(listener.context, 5);
    Application->OnHelp = {};
}

TEST(core_mdi, the_front_child_is_the_active_one)
{
    TForm main(nullptr);
    main.SetBounds(0, 0, 800, 600);
    main.SetFormStyle(fsMDIForm);
    Application->SetMainForm(&main);
    EXPECT_EQ(main.GetActiveMDIChild(), nullptr);
    main.Show();

    auto *const a = new TForm(&main);
    a->SetFormStyle(fsMDIChild);
    a->SetBounds(10, 20, 300, 200);
    a->SetCaption(L"a");
    a->Show();
    auto *const b = new TForm(&main);
    b->SetFormStyle(fsMDIChild);
    auto *const edit = new probe_control(b, b, "edit");
    b->Show();
    user_input::wait_idle();
    EXPECT_EQ(main.GetMDIChildCount(), 2);
    EXPECT_EQ(main.GetMDIChildren(0), a);
    EXPECT_EQ(main.GetActiveMDIChild(), b);
    EXPECT_EQ(text_of(a->GetBoundsRect()), "10,20,300,200");

    // A tool window in front of the program leaves the active child what it is.
    TForm tool(nullptr);
    tool.SetBorderStyle(bsSizeToolWin);
    tool.Show();
    user_input::wait_idle();
    EXPECT_EQ(main.GetActiveMDIChild(), b);
    TList order;
    b->GetTabOrderList(&order);
    ASSERT_EQ(order.GetCount(), 1);
    static_cast<TWinControl *>(order[0])->SetFocus();
    user_input::wait_idle();
    EXPECT_TRUE(edit->Focused());

    b->Hide();
    EXPECT_EQ(main.GetActiveMDIChild(), a);
    delete b;
    EXPECT_EQ(main.GetMDIChildCount(), 1);
    Application->SetMainForm(nullptr);
}

TEST(core_mdi, main_form_forgets_itself_at_its_end)
{
    auto main = std::make_unique<TForm>(nullptr);
    Application->SetMainForm(main.get());
    EXPECT_EQ(Application->GetMainForm(), main.get());
    main.reset();
    EXPECT_EQ(Application->GetMainForm(), nullptr);
}

TEST(core_dock, a_form_becomes_a_bar_of_its_site_and_a_window_again)
{
    TForm host(nullptr);
    host.SetBounds(0, 0, 500, 400);
    TPanel site(nullptr);
    site.SetBevelOuter(bvNone);
    site.SetParent(&host);
    site.SetAlign(alClient);
    site.SetDockSite(true);
    TForm tool(nullptr);
    tool.SetBounds(100, 120, 200, 150);
    tool.SetDragKind(dkDock);
    host.Show();
    tool.Show();

    EXPECT_EQ(static_cast<int>(alBottom), 2);
    EXPECT_TRUE(tool.ManualDock(&site, nullptr, alBottom));
    EXPECT_EQ(tool.GetParent(), &site);
    EXPECT_EQ(tool.GetHostDockSite(), &site);
    EXPECT_EQ(site.GetDockClientCount(), 1);
    EXPECT_TRUE(tool.GetShowing());
    EXPECT_FALSE(tool.GetFloating());
    EXPECT_EQ(text_of(tool.GetBoundsRect()), "0,250,500,150");

    EXPECT_TRUE(tool.ManualFloat(Bounds(40, 50, 200, 150)));
    user_input::wait_idle();
    EXPECT_EQ(tool.GetParent(), nullptr);
    EXPECT_EQ(site.GetDockClientCount(), 0);
    EXPECT_TRUE(tool.GetShowing());
    EXPECT_TRUE(tool.GetFloating());
    EXPECT_EQ(text_of(tool.GetBoundsRect()), "40,50,200,150");
}

TEST(core_dock, a_docked_form_outlives_its_site)
{
    TForm tool(nullptr);
    {
        TForm host(nullptr);
        host.SetDockSite(true);
        host.Show();
        tool.Show();
        tool.ManualDock(&host, nullptr, alBottom);
    }
    EXPECT_EQ(tool.GetParent(), nullptr);
    EXPECT_EQ(tool.GetHostDockSite(), nullptr);
    EXPECT_FALSE(tool.GetVisible());
    tool.Show();
    EXPECT_TRUE(tool.GetShowing());
}

TEST(core_dock, site_may_keep_its_client)
{
    struct refuser
    {
        void on_undock(TObject *, TControl *, TWinControl *, bool &allow) { allow = false; }
    } refuser;
    TForm host(nullptr);
    TForm tool(nullptr);
    tool.ManualDock(&host, nullptr, alLeft);
    host.OnUnDock = make_closure<&refuser::on_undock>(&refuser);
    EXPECT_FALSE(tool.ManualFloat(Bounds(0, 0, 100, 100)));
    EXPECT_EQ(tool.GetHostDockSite(), &host);
}

TEST(core_dock, a_manager_divides_the_site)
{
    TForm host(nullptr);
    host.SetBounds(0, 0, 405, 305);
    host.SetUseDockManager(true);
    TPanel a(nullptr);
    TPanel b(nullptr);
    TPanel c(nullptr);
    b.SetBounds(0, 0, 100, 80);
    c.SetBounds(0, 0, 90, 100);
    a.ManualDock(&host, nullptr, alClient);
    EXPECT_EQ(text_of(a.GetBoundsRect()), "0,0,405,305");
    b.ManualDock(&host, nullptr, alLeft);
    EXPECT_EQ(text_of(b.GetBoundsRect()), "0,0,100,305");
    EXPECT_EQ(text_of(a.GetBoundsRect()), "105,0,300,305");
    c.ManualDock(&host, &a, alBottom);
    EXPECT_EQ(text_of(a.GetBoundsRect()), "105,0,300,200");
    EXPECT_EQ(text_of(c.GetBoundsRect()), "105,205,300,100");
    EXPECT_EQ(text_of(b.GetBoundsRect()), "0,0,100,305");

    b.SetVisible(false);
    EXPECT_EQ(a.GetLeft(), 0) << "a hidden client takes no room";
    b.SetVisible(true);
    host.GetDockManager()->MoveBorder(&b, alRight, 50);
    EXPECT_EQ(b.GetWidth(), 150);
    EXPECT_EQ(c.GetLeft(), 155);
    host.SetWidth(505);
    EXPECT_EQ(b.GetWidth(), 150) << "the newcomer keeps its size when the site grows";
    b.SetParent(nullptr);
    EXPECT_EQ(text_of(a.GetBoundsRect()), "0,0,505,200");
    a.SetParent(nullptr);
    c.SetParent(nullptr);
}

TEST(core_dock, a_floating_panel_gets_a_window_that_goes_with_it)
{
    TForm host(nullptr);
    auto panel = std::make_unique<TPanel>(nullptr);
    panel->SetCaption(L"Legend");
    panel->ManualDock(&host, nullptr, alLeft);
    host.Show();
    ASSERT_TRUE(panel->ManualFloat(Bounds(10, 10, 150, 120)));
    EXPECT_TRUE(panel->GetFloating());
    TCustomForm *const frame = GetParentForm(panel.get());
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->GetCaption(), L"Legend");
    EXPECT_EQ(text_of(panel->GetBoundsRect()), "0,0,150,120");
    TComponentList watch(false);
    watch.Add(frame);
    panel->ManualDock(&host, nullptr, alRight);
    user_input::wait_idle();
    EXPECT_EQ(watch.GetCount(), 0);
    panel.reset();
    EXPECT_EQ(host.GetDockClientCount(), 0);
}

TEST(core_dock, the_mouse_takes_a_form_into_a_site_and_out_again)
{
    TForm host(nullptr);
    host.SetBounds(0, 0, 500, 400);
    host.SetDockSite(true);
    TForm elsewhere(nullptr);
    elsewhere.SetBounds(900, 600, 300, 200);
    TForm tool(nullptr);
    tool.SetBounds(600, 100, 200, 150);
    tool.SetDragKind(dkDock);
    tool.SetDragMode(dmAutomatic);
    host.Show();
    elsewhere.Show();
    tool.Show();
    user_input::wait_idle();

    user_input::drag(&tool, 50, 50, &host, 490, 200);
    user_input::wait_idle();
    ASSERT_EQ(tool.GetHostDockSite(), &host);
    EXPECT_EQ(text_of(tool.GetBoundsRect()), "300,0,200,400") << "the side that the mouse was nearest to";

    user_input::drag(&tool, 50, 50, &elsewhere, 100, 100);
    user_input::wait_idle();
    EXPECT_EQ(tool.GetHostDockSite(), nullptr);
    EXPECT_TRUE(tool.GetFloating());
    EXPECT_TRUE(tool.GetShowing());
    EXPECT_EQ(tool.GetWidth(), 200);
    EXPECT_EQ(tool.GetHeight(), 150);
}
