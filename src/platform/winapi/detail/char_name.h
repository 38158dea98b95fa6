#pragma once

#include "platform/base/export.h"

#include <string>

/// The Unicode name of a character, such as "LATIN SMALL LETTER A"; for one without a name of its own what
/// stands for it, such as "PRIVATE USE-E000". Empty for what is no character.
[[nodiscard]] VX_API std::string vx_char_name(char32_t character);
