#pragma once

#include "platform/toolkit/core/types.h"

/// Enter presses a tool button that has the focus, as it presses push buttons; the key is used up. Given is
/// the button's widget, an abstract button.
void vx_press_by_enter(vx_native_widget *button, Word &key, TShiftState shift);
