#include "platform/winapi/detail/utf16.h"

namespace vx::text {
namespace {
constexpr char32_t c_replacement = 0xFFFD;

constexpr bool is_high(char32_t c)
{
    return c >= 0xD800 && c < 0xDC00;
}
constexpr bool is_low(char32_t c)
{
    return c >= 0xDC00 && c < 0xE000;
}
constexpr char32_t join(char32_t high, char32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

void append_utf16(std::u16string &out, char32_t c)
{
    if (c < 0x10000) {
        out.push_back(static_cast<char16_t>(c));
        return;
    }
    c -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (c >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
}
} // namespace

std::u16string wide_to_utf16(std::wstring_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto c = static_cast<char32_t>(text[i]);
        if (is_high(c) && i + 1 < text.size() && is_low(static_cast<char32_t>(text[i + 1])))
            c = join(c, static_cast<char32_t>(text[++i]));
        else if (c > 0x10FFFF || is_high(c) || is_low(c))
            c = c_replacement;
        append_utf16(out, c);
    }
    return out;
}

std::wstring utf16_to_wide(std::u16string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (is_high(c) && i + 1 < text.size() && is_low(text[i + 1]))
            c = join(c, text[++i]);
        else if (is_high(c) || is_low(c))
            c = c_replacement;
        out.push_back(static_cast<wchar_t>(c));
    }
    return out;
}
} // namespace vx::text
