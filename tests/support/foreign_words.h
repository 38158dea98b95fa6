#pragma once

#include <string>
#include <string_view>

namespace vx_test {
/// The words of Latin letters in a text, but for those that every language writes so: names of formats and
/// keys. Empty for a text that is wholly in another script. Quoted parts, which repeat what the user wrote,
/// do not count.
[[nodiscard]] std::wstring latin_words(std::wstring_view text);
} // namespace vx_test
