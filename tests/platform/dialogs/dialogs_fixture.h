#pragma once

#include "user_input/user_input.h"

#include "platform/basic/vx_options.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"

#include <gtest/gtest.h>
#include <string>

using namespace vx::user_input;

/// English captions, the built-in dialogs, and the program's window.
class dialogs_test : public testing::Test
{
protected:
    dialogs_test() : form(nullptr)
    {
        vx_options_set_language("en");
        vx_dlg_set_table(nullptr);
        form.SetBounds(100, 100, 300, 200);
        form.Show();
        Application->SetMainForm(&form);
        wait_idle();
    }
    ~dialogs_test() override
    {
        EXPECT_EQ(pending_modals(), 0);
        forget_pending_modals();
        vx_dlg_set_table(nullptr);
        Application->SetMainForm(nullptr);
    }

    /// The control below `parent` of this class and accessible name; a null name takes the first one.
    template <class T>
    static T *find(TWinControl *parent, wchar_t const *name)
    {
        for (int i = 0; i < parent->GetControlCount(); ++i) {
            auto *control = parent->GetControls(i);
            auto *right = dynamic_cast<T *>(control);
            if (right && (!name || control->GetAccessibleName() == name))
                return right;
            auto *inner = dynamic_cast<TWinControl *>(control);
            if (auto *found = inner ? find<T>(inner, name) : nullptr)
                return found;
        }
        return nullptr;
    }

    TForm form;
};
