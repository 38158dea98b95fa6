#include "user_input/user_input.h"

#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_options.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/controls/paint_box.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/core/timer.h"
#include "platform/toolkit/menus/menu.h"
#include "platform/winapi/detail/main_thread.h"

#include <QtCore/QTimer>

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace vx::user_input;

// Whatever comes out of a handler, the user is told once, and the next event is handled as ever.

namespace {
std::vector<std::wstring> g_told;

/// Throws in every event that it is given, each time with other words.
struct thrower
{
    static inline int number = 0;
    int runs = 0;

    void act()
    {
        ++runs;
        throw std::runtime_error("trouble " + std::to_string(++number));
    }
    template <class... Args>
    closure<void(Args...)> event()
    {
        return closure<void(Args...)>([](void *self, Args...) { static_cast<thrower *>(self)->act(); }, this);
    }
    template <class... Args>
    void in(closure<void(Args...)> &event)
    {
        event = this->event<Args...>();
    }
};

class handlers_throw : public testing::Test
{
protected:
    handlers_throw()
    {
        vx_options_set_language("en");
        former = vx_reason_set_handler([](wchar_t const *reason) { g_told.emplace_back(reason); });
        g_told.clear();
        form.SetBounds(100, 100, 400, 400);
    }
    ~handlers_throw() override { vx_reason_set_handler(former); }

    template <class T>
    T *add(int top, int height = 24)
    {
        auto *made = new T(&form);
        made->SetParent(&form);
        made->SetBounds(10, top, 200, height);
        return made;
    }
    /// The act made the handler run at least once, all was told, and nothing came through.
    template <class Act>
    void expect_told(char const *what, Act act)
    {
        SCOPED_TRACE(what);
        g_told.clear();
        int const before = throws.runs;
        EXPECT_NO_THROW(act());
        wait_idle();
        EXPECT_LT(before, throws.runs);
        EXPECT_EQ(g_told.size(), static_cast<std::size_t>(throws.runs - before));
        for (auto const &reason : g_told)
            EXPECT_EQ(
                reason.find(L"An error broke off what was being done. Your work is still here.\ntrouble "),
                0U);
    }

    Tvx_reason_handler former = nullptr;
    TForm form{nullptr};
    thrower throws;
};

void run_for(int milliseconds)
{
    bool over = false;
    QTimer::singleShot(milliseconds, [&over] { over = true; });
    while (!over)
        Application->HandleMessage();
}
} // namespace

TEST_F(handlers_throw, every_kind_of_event)
{
    auto *const button = add<TButton>(10);
    auto *const edit = add<TEdit>(40);
    auto *const list = add<TListBox>(70, 80);
    auto *const combo = add<TComboBox>(160);
    auto *const box = add<TPaintBox>(190, 40);
    TMainMenu menu(&form);
    auto *const item = new TMenuItem(&form);
    item->SetCaption(L"Do");
    menu.GetItems()->Add(item);
    form.SetMenu(&menu);
    list->GetItems()->SetText(L"one\ntwo");
    combo->GetItems()->SetText(L"one\ntwo");
    form.Show();
    wait_idle();

    throws.in(button->OnClick);
    expect_told("click", [&] { EXPECT_TRUE(click(button)); });
    expect_told("click again", [&] { EXPECT_TRUE(click(button)); });
    expect_told("click by key", [&] {
        button->SetFocus();
        press(VK_SPACE);
    });
    throws.in(edit->OnChange);
    expect_told("typed text", [&] { EXPECT_TRUE(enter_text(edit, L"a")); });
    throws.in(edit->OnKeyDown);
    expect_told("key", [&] { press(VK_HOME); });
    throws.in(edit->OnMouseMove);
    expect_told("mouse", [&] { EXPECT_TRUE(move(edit, 5, 5)); });
    throws.in(list->OnClick);
    expect_told("list", [&] { EXPECT_TRUE(click_item(list, 1)); });
    throws.in(combo->OnSelect);
    expect_told("combo", [&] { EXPECT_TRUE(choose_item(combo, 1)); });
    throws.in(item->OnClick);
    expect_told("menu", [&] { choose(&form, L"Do"); });
    throws.in(box->OnPaint);
    expect_told("paint", [&] {
        box->Repaint();
        wait_idle();
    });
    box->OnPaint = {};
    TTimer timer(nullptr);
    timer.SetInterval(1);
    throws.in(timer.OnTimer);
    expect_told("timer", [&] { run_for(30); });
    timer.SetEnabled(false);
    Application->OnIdle = closure<void(TObject *, bool &)>(
        [](void *self, TObject *, bool &) { static_cast<thrower *>(self)->act(); }, &throws);
    expect_told("idle", [&] { run_for(1); });
    Application->OnIdle = {};

    // What the handlers do to the program is gone: the same controls work.
    edit->OnChange = {};
    edit->OnKeyDown = {};
    EXPECT_TRUE(enter_text(edit, L"works"));
    EXPECT_EQ(edit->GetText(), L"works");
}

TEST_F(handlers_throw, close_modal_and_posted_calls)
{
    form.OnCloseQuery = closure<void(TObject *, bool &)>(
        [](void *self, TObject *, bool &) { static_cast<thrower *>(self)->act(); }, &throws);
    form.Show();
    wait_idle();
    expect_told("close", [&] { vx_qt_widget(&form)->close(); });
    EXPECT_TRUE(form.GetVisible());

    // A modal form whose button fails stays, with its loop, until it is answered.
    form.Hide();
    auto *const button = add<TButton>(10);
    throws.in(button->OnClick);
    on_next_modal([&](modal_window const &) {
        expect_told("modal", [&] { click(button); });
        form.SetModalResult(mrCancel);
        QTimer::singleShot(20, [&] {
            EXPECT_TRUE(form.GetVisible());
            form.OnCloseQuery = {};
            form.SetModalResult(mrOk);
        });
    });
    expect_told("query of a modal form", [&] { EXPECT_EQ(form.ShowModal(), mrOk); });

    // Of calls from other threads none is lost behind one that fails.
    static int reached;
    reached = 0;
    expect_told("posted", [&] {
        std::thread([&] {
            vx_main_thread_post([](void *self) { static_cast<thrower *>(self)->act(); }, &throws);
            vx_main_thread_post([](void *) { ++reached; }, nullptr);
        }).join();
        run_for(10);
    });
    EXPECT_EQ(reached, 1);
}

TEST_F(handlers_throw, no_memory_and_what_comes_again)
{
    auto *const button = add<TButton>(10);
    button->OnClick = TNotifyEvent([](void *, TObject *) { throw std::bad_alloc(); }, nullptr);
    form.Show();
    wait_idle();
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(click(button));
    wait_idle();
    EXPECT_EQ(g_told, std::vector<std::wstring>{
                          L"There was not enough memory for what was being done. Your work is still here."});

    // A host's own slot, and a listener of its own.
    g_told.clear();
    static std::wstring heard;
    Application->OnException = closure<void(TObject *, std::exception const *)>(
        [](void *, TObject *, std::exception const *e) { heard += e ? L'e' : L'?'; }, nullptr);
    QTimer::singleShot(0, [] { throw 1; });
    QTimer::singleShot(0, [] { throw std::bad_alloc(); });
    wait_idle();
    Application->OnException = {};
    EXPECT_EQ(heard, L"?e");
    EXPECT_TRUE(g_told.empty());
}
