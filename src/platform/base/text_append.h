#pragma once

#include "platform/base/text_codec.h"

/// The conversions of text_codec.h at the end of a string that is used again and again: with UTF-8 nothing is
/// allocated once the string has grown.
namespace vx::text {
VX_API void append_wide(std::wstring &target, std::string_view text, unsigned code_page = c_cp_system);
VX_API void append_bytes(std::string &target, std::wstring_view text, unsigned code_page = c_cp_system);
} // namespace vx::text
