#pragma once

#include <string_view>

namespace vx {
/// First character of the name of a source without a file of its own.
inline constexpr wchar_t c_virtual_mark = L'*';

/// The name behind the mark; the whole name without one.
[[nodiscard]] constexpr std::wstring_view without_virtual_mark(std::wstring_view source)
{
    if (source.starts_with(c_virtual_mark))
        source.remove_prefix(1);
    return source;
}
} // namespace vx
