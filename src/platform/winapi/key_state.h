#pragma once

#include "platform/base/export.h"

/// Virtual key codes.
inline constexpr int VK_LBUTTON = 0x01;
inline constexpr int VK_RBUTTON = 0x02;
inline constexpr int VK_MBUTTON = 0x04;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;
inline constexpr int VK_CAPITAL = 0x14;

/// State of a key at the time of the event that is being handled: negative while the key is down, else 0. 0
/// for every key while no source is set.
[[nodiscard]] VX_API short GetKeyState(int virtual_key);

/// The toolkit's answer: true while the key is down. Null takes it away.
using Tvx_key_state_source = bool (*)(int virtual_key);
VX_API void vx_set_key_state_source(Tvx_key_state_source source);
