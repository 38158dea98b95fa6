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

// ---- compound controls and menus

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
