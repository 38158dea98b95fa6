#pragma once

#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace vx::plugin {
inline std::wstring text_of(char const *text)
{
    return text::utf8_to_wide(text ? text : "");
}

/// Into a buffer of the plug-in's, as its header promises; no character is cut in two.
inline std::size_t hand_out(std::string_view text, char *buffer, std::size_t size)
{
    if (buffer && size > 0) {
        std::size_t length = text.size() < size ? text.size() : size - 1;
        while (length > 0 && length < text.size() &&
               (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
            --length;
        std::memcpy(buffer, text.data(), length);
        buffer[length] = 0;
    }
    return text.size();
}

inline std::size_t hand_out(std::wstring_view text, char *buffer, std::size_t size)
{
    return hand_out(std::string_view(text::wide_to_utf8(text)), buffer, size);
}
} // namespace vx::plugin
