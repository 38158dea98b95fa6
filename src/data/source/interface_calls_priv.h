#pragma once

#include "extension/binding/string_visitors.h"

#include <cstdint>
#include <string>

/// Small means of the classes that call the component interface.
namespace vx::data::detail {
/// Field indices and limits are cut to the low 32 bits when they cross the interface.
[[nodiscard]] constexpr int cut(std::uint64_t number)
{
    return static_cast<int>(static_cast<std::uint32_t>(number));
}

/// The text that a call with a string visitor leaves.
template <class Call>
[[nodiscard]] std::wstring text_of(Call call)
{
    std::wstring text;
    vx::stdwstring_visitor visitor(text);
    call(visitor);
    return text;
}
} // namespace vx::data::detail
