#pragma once

#include "user_input/user_input.h"

#include "platform/toolkit/controls/page_control.h"

#include <string_view>

/// What a person finds in a window of which the program knows nothing: controls by their names.
namespace dialog_reader {
/// The first control of the class, below `root` and on the pages in front, whose accessible name begins with
/// `name`; null if there is none.
template <class T>
T *find(TWinControl *root, std::wstring_view name)
{
    for (int i = 0; i < root->GetControlCount(); ++i) {
        TControl *control = root->GetControls(i);
        if (!control->GetShowing())
            continue;
        auto *wanted = dynamic_cast<T *>(control);
        if (wanted && control->GetAccessibleName().str().starts_with(name))
            return wanted;
        if (auto *inner = dynamic_cast<TWinControl *>(control))
            if (T *found = find<T>(inner, name))
                return found;
    }
    return nullptr;
}

inline bool open_tab(TWinControl *root, UnicodeString const &caption)
{
    auto *pages = find<TPageControl>(root, L"");
    return pages && vx::user_input::click_tab(pages, caption);
}
} // namespace dialog_reader
