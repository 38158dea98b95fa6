#pragma once

#include <string_view>

/// Without blanks at the end: space, tab, newline, return, vertical tab, form feed. Null counts as empty.
[[nodiscard]] inline std::string_view vx_trimmed_right(char const *text)
{
    std::string_view const whole = text ? text : "";
    return whole.substr(0, whole.find_last_not_of(" \t\n\r\v\f") + 1);
}
