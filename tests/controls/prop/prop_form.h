#pragma once

#include "user_input/user_input.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/toolkit/core/form.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

/// A shown form to put controls on, which counts what they report, and dialogs that answer what a test says.
class prop_form : public testing::Test
{
protected:
    void SetUp() override
    {
        table.user = this;
        table.color = [](void *self, HWND, int x, int y, Tvx_color *color, int format) {
            return of(self).answer(x, y, [&](prop_form &test) {
                test.asked_format = format;
                if (test.accepts)
                    *color = test.next_color;
            });
        };
        table.font = [](void *self, HWND, int x, int y, vx_fnt_type *font) {
            return of(self).answer(x, y, [&](prop_form &test) {
                if (test.accepts)
                    font->set_wname(test.next_font.c_str());
            });
        };
        table.charmap = [](void *self, HWND, int x, int y, vx_fnt_type *font, int *symbol) {
            return of(self).answer(x, y, [&](prop_form &test) {
                test.asked_symbol = *symbol;
                if (!test.accepts)
                    return;
                font->set_wname(test.next_font.c_str());
                *symbol = test.next_symbol;
            });
        };
        table.file = [](void *self, HWND, int x, int y, Tvx_file_dialog_prm *prm) {
            return of(self).answer(x, y, [&](prop_form &test) {
                test.asked_file = *prm;
                if (test.next_filter_index > 0) {
                    prm->filter_index = test.next_filter_index;
                    test.retyped = test.next_file;
                    prm->on_filter_changed(prm->filter_index, test.retyped);
                }
                if (test.accepts)
                    prm->file_name = test.next_file;
            });
        };
        table.message = [](void *self, HWND, Tvx_msg_kind, wchar_t const *text) {
            of(self).messages.emplace_back(text);
        };
        vx_dlg_set_table(&table);
        form.SetBounds(100, 100, 500, 460);
        form.Show();
        vx::user_input::wait_idle();
    }
    void TearDown() override
    {
        vx_dlg_set_table(nullptr);
        EXPECT_EQ(vx::user_input::pending_modals(), 0);
        EXPECT_TRUE(messages.empty()) << "an unexpected message came";
    }

    static prop_form &of(void *self) { return *static_cast<prop_form *>(self); }
    template <class F>
    bool answer(int x, int y, F fill)
    {
        ++dialogs;
        asked_at = {x, y};
        fill(*this);
        return accepts;
    }

    /// Each control stands below the one before.
    template <class T>
    T *add(int height = 24)
    {
        auto *control = new T(&form);
        control->SetParent(&form);
        control->SetBounds(10, next_top, 300, height);
        next_top += height + 10;
        return control;
    }
    closure<void(TObject *)> recorder() { return make_closure<&prop_form::on_event>(this); }
    void on_event(TObject *sender)
    {
        ++events;
        last_sender = sender;
    }
    int taken_events() { return std::exchange(events, 0); }
    int taken_dialogs() { return std::exchange(dialogs, 0); }

    vx_dlg_table table;
    TForm form{nullptr};
    int next_top = 10;
    int events = 0;
    TObject *last_sender = nullptr;

    bool accepts = true;
    int dialogs = 0;
    TPoint asked_at;
    Tvx_color next_color = vx_clr_init_rgba(1, 2, 3, 4);
    int asked_format = -1;
    std::wstring next_font = L"DejaVu Serif";
    int asked_symbol = -1;
    int next_symbol = 0x41;
    UnicodeString next_file;
    int next_filter_index = 0; ///< above 0: the user chooses this pair of the filter
    UnicodeString retyped;     ///< what the panel made of the name then
    Tvx_file_dialog_prm asked_file;
    std::vector<std::wstring> messages;
};
