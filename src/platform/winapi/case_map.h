#pragma once

#include "platform/base/export.h"

#include <string>
#include <string_view>

/// The text in lower case, one character for one, by Unicode's simple mapping and whatever the locale of the
/// process.
[[nodiscard]] VX_API std::wstring vx_lower_w(std::wstring_view text);
