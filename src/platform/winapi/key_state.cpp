#include "platform/winapi/key_state.h"

namespace {
constexpr short c_key_down = static_cast<short>(0x8000);
Tvx_key_state_source key_source = nullptr;
} // namespace

short GetKeyState(int virtual_key)
{
    return key_source && key_source(virtual_key) ? c_key_down : short{0};
}

void vx_set_key_state_source(Tvx_key_state_source source)
{
    key_source = source;
}
