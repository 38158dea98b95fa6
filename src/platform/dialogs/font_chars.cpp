#include "platform/dialogs/font_chars.h"

#include "platform/base/ascii_case.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/toolkit/graphics/font.h"
#include "platform/winapi/collation.h"
#include "platform/winapi/detail/char_name.h"

#include <QtCore/QChar>
#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QFontDatabase>
#include <QtGui/QRawFont>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

namespace vx::dialogs {
namespace {
constexpr char32_t c_space = U' ';

/// Planes with characters: the first four, and the two of private use.
struct range
{
    char32_t first;
    char32_t last;
};
constexpr range c_ranges[] = {{c_space, 0x3FFFF}, {0xF0000, 0x10FFFF}};

bool is_shown(char32_t c)
{
    switch (QChar::category(c)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    case QChar::Separator_Space:
        return c == c_space;
    default:
        return true;
    }
}

std::optional<char32_t> code_of(std::string_view text)
{
    if (text.starts_with("U+") || text.starts_with("0X"))
        text.remove_prefix(2);
    std::uint32_t code = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), code, 16);
    if (text.size() < 2 || result.ec != std::errc() || result.ptr != text.data() + text.size())
        return std::nullopt;
    return code;
}

std::vector<std::string> words_of(std::string_view text)
{
    std::vector<std::string> words;
    while (!text.empty()) {
        auto const end = std::min(text.find(' '), text.size());
        if (end > 0)
            words.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}
} // namespace

std::vector<std::wstring> font_families()
{
    std::vector<std::wstring> families;
    for (auto const &family : QFontDatabase::families())
        if (!QFontDatabase::isPrivateFamily(family))
            families.push_back(family.toStdWString());
    std::sort(families.begin(), families.end(),
              [](auto const &a, auto const &b) { return vx_compare_text(a, b) < 0; });
    return families;
}

std::vector<char32_t> font_characters(std::wstring const &family)
{
    std::vector<char32_t> characters;
    auto const font = QRawFont::fromFont(QFont(QString::fromStdWString(family)));
    if (!font.isValid())
        return characters;
    for (auto const &[first, last] : c_ranges)
        for (char32_t c = first; c <= last; ++c)
            if (is_shown(c) && font.supportsCharacter(c))
                characters.push_back(c);
    return characters;
}

std::vector<char32_t> find_characters(std::vector<char32_t> const &characters, std::wstring_view text)
{
    auto const has = [&characters](char32_t c) {
        return std::binary_search(characters.begin(), characters.end(), c);
    };
    auto const first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos)
        return characters;
    text = text.substr(first, text.find_last_not_of(L' ') - first + 1);
    std::vector<char32_t> found;
    if (text.size() == 1) {
        if (auto const c = static_cast<char32_t>(text.front()); has(c))
            found.push_back(c);
        return found;
    }
    std::string const key = vx::text::ascii_upper(vx::text::wide_to_utf8(text));
    if (auto const code = code_of(key); code && has(*code))
        found.push_back(*code);
    auto const words = words_of(key);
    auto const exact = found;
    for (char32_t const c : characters) {
        std::string const name = vx_char_name(c);
        if (std::all_of(words.begin(), words.end(),
                        [&name](auto const &word) { return name.find(word) != std::string::npos; }) &&
            std::find(exact.begin(), exact.end(), c) == exact.end())
            found.push_back(c);
    }
    return found;
}

std::wstring describe(char32_t character)
{
    constexpr wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring code;
    for (auto rest = static_cast<std::uint32_t>(character); rest || code.size() < 4; rest >>= 4)
        code.insert(code.begin(), digits[rest & 15]);
    return L"U+" + code + L" " + vx::text::utf8_to_wide(vx_char_name(character));
}

void assign_font(TFont *target, vx_fnt_type const &source)
{
    target->SetName(source.wname());
    target->SetCharset(source.charset);
    TFontStyles style;
    if (source.bold)
        style.Include(fsBold);
    if (source.italic)
        style.Include(fsItalic);
    if (source.underline)
        style.Include(fsUnderline);
    if (source.strikeout)
        style.Include(fsStrikeOut);
    target->SetStyle(style);
}
} // namespace vx::dialogs
