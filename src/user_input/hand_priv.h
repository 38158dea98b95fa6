#pragma once

#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/types.h"

class QString;
class QWidget;
class TPageControl;

/// What the parts of the input driver share.
namespace vx::user_input::detail {
/// Presses and releases a key by its code in the window system, without and with Shift.
bool tap(int native_key);
/// A click at a point of a widget that need not belong to a control.
bool click_widget(vx_native_widget *widget, TPoint const &at);
/// A caption as one reads it: without accelerator marks and shortcut.
[[nodiscard]] UnicodeString plain_caption(UnicodeString const &text);
} // namespace vx::user_input::detail

namespace vx::user_hand::detail {
/// Offers a key to the shortcuts of the window, as the window system does before the widget gets it. True
/// when one of them took it; the widget may be gone then.
bool run_shortcut(QWidget *widget, int key, int modifiers, QString const &text);
} // namespace vx::user_hand::detail
