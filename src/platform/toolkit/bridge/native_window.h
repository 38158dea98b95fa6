#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/types.h"

/// The window of the X Window System behind a control's window, made if need be; 0 for null, and where the
/// program shows its windows by other means.
[[nodiscard]] VX_API unsigned long vx_native_x11_window(HWND window);
