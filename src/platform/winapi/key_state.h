#pragma once

#include "platform/base/export.h"

/// State of a key, by its virtual key code (the toolkit's key_codes.h names them), at the time of the event
/// that is being handled: negative while the key is down, else 0. 0 for every key while no source is set.
[[nodiscard]] VX_API short GetKeyState(int virtual_key);

/// The toolkit's answer: true while the key is down. Null takes it away.
using Tvx_key_state_source = bool (*)(int virtual_key);
VX_API void vx_set_key_state_source(Tvx_key_state_source source);
