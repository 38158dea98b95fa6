#pragma once

#include "platform/base/unicode_string.h"

/// Accessible name of a button: what it belongs to and what it does, as in "Fill: Choose a colour". Where one
/// of the two is empty the other stands alone.
[[nodiscard]] inline UnicodeString vx_action_name(UnicodeString const &subject, UnicodeString const &action)
{
    return subject.IsEmpty() ? action : action.IsEmpty() ? subject : subject + L": " + action;
}
