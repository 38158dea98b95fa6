#pragma once

#include "user_input/user_input.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/core/clipboard.h"
#include "platform/toolkit/core/form.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

/// A shown form to put number controls on, with a button to leave them for.
class numeric_form : public testing::Test
{
protected:
    void SetUp() override
    {
        form.SetBounds(100, 100, 420, 400);
        button.SetParent(&form);
        button.SetBounds(10, 340, 90, 25);
        button.SetCaption(L"Elsewhere");
        form.Show();
        vx::user_input::wait_idle();
    }
    void TearDown() override { EXPECT_EQ(vx::user_input::pending_modals(), 0) << "no message came"; }

    /// Each control stands below the one before.
    template <class T>
    T *add()
    {
        auto *control = new T(&form);
        control->SetParent(&form);
        control->SetTop(next_top);
        next_top += 70;
        return control;
    }
    closure<void(TObject *)> recorder() { return make_closure<&numeric_form::on_event>(this); }
    void on_event(TObject *sender)
    {
        ++events;
        last_sender = sender;
    }
    int taken_events() { return std::exchange(events, 0); }

    /// Keeps the next message and presses Enter on it.
    void expect_message()
    {
        vx::user_input::on_next_modal([this](vx::user_input::modal_window const &window) {
            messages.push_back(window.text().str());
            window.accept();
        });
    }
    std::vector<std::wstring> taken_messages() { return std::exchange(messages, {}); }

    /// In place of the whole text of the edit, which must not filter anything of it.
    static void paste(TWinControl *edit, wchar_t const *text)
    {
        Clipboard()->SetAsText(text);
        vx::user_input::click(edit);
        static_cast<TCustomEdit *>(edit)->SelectAll();
        vx::user_input::press(VK_INSERT, {ssShift});
    }

    TForm form{nullptr};
    TButton button{&form};
    int next_top = 0;
    int events = 0;
    TObject *last_sender = nullptr;
    std::vector<std::wstring> messages;
};
