#pragma once

#include "platform/toolkit/core/types.h"

/// Key codes of `OnKeyDown` and `OnKeyUp`. Letters and digits have the code of their upper case ASCII
/// character.
inline constexpr Word VK_LBUTTON = 0x01;
inline constexpr Word VK_CANCEL = 0x03;
inline constexpr Word VK_BACK = 0x08;
inline constexpr Word VK_TAB = 0x09;
inline constexpr Word VK_CLEAR = 0x0C;
inline constexpr Word VK_RETURN = 0x0D;
inline constexpr Word VK_SHIFT = 0x10;
inline constexpr Word VK_CONTROL = 0x11;
inline constexpr Word VK_MENU = 0x12;
inline constexpr Word VK_PAUSE = 0x13;
inline constexpr Word VK_CAPITAL = 0x14;
inline constexpr Word VK_ESCAPE = 0x1B;
inline constexpr Word VK_SPACE = 0x20;
inline constexpr Word VK_PRIOR = 0x21;
inline constexpr Word VK_NEXT = 0x22;
inline constexpr Word VK_END = 0x23;
inline constexpr Word VK_HOME = 0x24;
inline constexpr Word VK_LEFT = 0x25;
inline constexpr Word VK_UP = 0x26;
inline constexpr Word VK_RIGHT = 0x27;
inline constexpr Word VK_DOWN = 0x28;
inline constexpr Word VK_SNAPSHOT = 0x2C;
inline constexpr Word VK_INSERT = 0x2D;
inline constexpr Word VK_DELETE = 0x2E;
inline constexpr Word VK_HELP = 0x2F;
inline constexpr Word VK_APPS = 0x5D;
inline constexpr Word VK_NUMPAD0 = 0x60;
inline constexpr Word VK_NUMPAD9 = 0x69;
inline constexpr Word VK_MULTIPLY = 0x6A;
inline constexpr Word VK_ADD = 0x6B;
inline constexpr Word VK_SUBTRACT = 0x6D;
inline constexpr Word VK_DECIMAL = 0x6E;
inline constexpr Word VK_DIVIDE = 0x6F;
inline constexpr Word VK_F1 = 0x70;
inline constexpr Word VK_F2 = 0x71;
inline constexpr Word VK_F3 = 0x72;
inline constexpr Word VK_F4 = 0x73;
inline constexpr Word VK_F5 = 0x74;
inline constexpr Word VK_F6 = 0x75;
inline constexpr Word VK_F7 = 0x76;
inline constexpr Word VK_F8 = 0x77;
inline constexpr Word VK_F9 = 0x78;
inline constexpr Word VK_F10 = 0x79;
inline constexpr Word VK_F11 = 0x7A;
inline constexpr Word VK_F12 = 0x7B;
inline constexpr Word VK_F24 = 0x87;
inline constexpr Word VK_NUMLOCK = 0x90;
inline constexpr Word VK_SCROLL = 0x91;
inline constexpr Word VK_OEM_1 = 0xBA;
inline constexpr Word VK_OEM_PLUS = 0xBB;
inline constexpr Word VK_OEM_COMMA = 0xBC;
inline constexpr Word VK_OEM_MINUS = 0xBD;
inline constexpr Word VK_OEM_PERIOD = 0xBE;
inline constexpr Word VK_OEM_2 = 0xBF;

/// The state of a key as the last handled input event left it: negative while the key is held. Known for
/// VK_SHIFT, VK_CONTROL, VK_MENU and the mouse button VK_LBUTTON; 0 for every other key.
[[nodiscard]] VX_API short GetKeyState(int key);

/// A key with its modifiers in one number, as `TextToShortCut` and menu items have it; 0 is none.
using TShortCut = std::uint16_t;
inline constexpr TShortCut scShift = 0x2000;
inline constexpr TShortCut scCtrl = 0x4000;
inline constexpr TShortCut scAlt = 0x8000;
[[nodiscard]] VX_API TShortCut ShortCut(Word key, TShiftState shift);
VX_API void ShortCutToKey(TShortCut short_cut, Word &key, TShiftState &shift);
