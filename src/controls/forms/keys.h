#pragma once

#include "platform/base/export.h"

/// Each is true while the key is held down, as of the input event that is being handled.
[[nodiscard]] VX_API bool vx_control_pressed();
[[nodiscard]] VX_API bool vx_alt_pressed();
[[nodiscard]] VX_API bool vx_shift_pressed();
