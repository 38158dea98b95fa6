#include "controls/forms/keys.h"

#include "platform/toolkit/core/key_codes.h"

bool vx_control_pressed()
{
    return GetKeyState(VK_CONTROL) < 0;
}

bool vx_alt_pressed()
{
    return GetKeyState(VK_MENU) < 0;
}

bool vx_shift_pressed()
{
    return GetKeyState(VK_SHIFT) < 0;
}
