#pragma once

#include "platform/toolkit/core/win_control.h"

#include <string_view>

/// The first control of the class that is seen, at or below one, whose name for assistive tools begins with
/// the text; null for none. So a person finds it, who knows nothing of the program.
template <class T>
T *vx_tour_find(TWinControl *root, std::wstring_view name = {})
{
    if (!root || !root->GetShowing())
        return nullptr;
    if (auto *const found = dynamic_cast<T *>(root);
        found && found->GetAccessibleName().str().starts_with(name))
        return found;
    for (int i = 0; i < root->GetControlCount(); ++i)
        if (auto *const child = dynamic_cast<TWinControl *>(root->GetControls(i)))
            if (auto *const found = vx_tour_find<T>(child, name))
                return found;
    return nullptr;
}
