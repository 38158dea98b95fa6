#pragma once

#include "platform/base/unicode_string.h"

namespace vx {
/// Shows the message of this caption number about the text or the limit; a long text is cut.
void show_number_message(int caption, UnicodeString const &text);
} // namespace vx
