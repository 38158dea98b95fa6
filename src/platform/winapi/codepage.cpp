#include "platform/winapi/codepage.h"

#include "platform/base/text_codec.h"
#include "platform/winapi/detail/utf16.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <unicode/ucnv.h>

namespace {
constexpr unsigned c_cp_utf16_le = 1200;
constexpr unsigned c_cp_utf16_be = 1201;
constexpr unsigned c_cp_utf32_le = 12000;
constexpr unsigned c_cp_utf32_be = 12001;
constexpr unsigned c_cp_ascii = 20127;

struct converter_closer
{
    void operator()(UConverter *converter) const { ucnv_close(converter); }
};
using converter = std::unique_ptr<UConverter, converter_closer>;

converter open_named(std::string const &name)
{
    UErrorCode status = U_ZERO_ERROR;
    converter made(ucnv_open(name.c_str(), &status));
    if (U_FAILURE(status))
        return nullptr;
    status = U_ZERO_ERROR;
    ucnv_setSubstChars(made.get(), "?", 1, &status);
    if (U_FAILURE(status)) // a page of wider units: it has no one-byte question mark
        return nullptr;
    return made;
}

converter open_page(unsigned page)
{
    if (page == c_cp_ascii)
        return open_named("US-ASCII");
    auto const number = std::to_string(page);
    for (auto const *prefix : {"windows-", "cp", "ibm-"})
        if (auto made = open_named(prefix + number))
            return made;
    return nullptr;
}

// Converters keep a state, so each thread has its own.
UConverter *page_converter(unsigned page)
{
    thread_local std::map<unsigned, converter> open;
    auto const at = open.find(page);
    if (at != open.end())
        return at->second.get();
    return open.emplace(page, open_page(page)).first->second.get();
}

bool is_utf16_or_32(unsigned page)
{
    return page == c_cp_utf16_le || page == c_cp_utf16_be || page == c_cp_utf32_le || page == c_cp_utf32_be;
}

// ---- UTF-16 and UTF-32 as bytes

std::size_t unit_size(unsigned page)
{
    return page == c_cp_utf16_le || page == c_cp_utf16_be ? 2 : 4;
}
bool high_byte_first(unsigned page)
{
    return page == c_cp_utf16_be || page == c_cp_utf32_be;
}

char32_t read_unit(char const *bytes, std::size_t size, bool high_first)
{
    char32_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[high_first ? i : size - 1 - i]);
    return value;
}

void append_unit(std::string &out, char32_t value, std::size_t size, bool high_first)
{
    for (std::size_t i = 0; i < size; ++i) {
        auto const shift = 8 * (high_first ? size - 1 - i : i);
        out.push_back(static_cast<char>(value >> shift & 0xFF));
    }
}

std::wstring units_to_wide(std::string_view bytes, unsigned page)
{
    auto const size = unit_size(page);
    bool const high_first = high_byte_first(page);
    std::u16string wide16;
    std::wstring wide;
    std::size_t i = 0;
    for (; i + size <= bytes.size(); i += size) {
        auto const unit = read_unit(bytes.data() + i, size, high_first);
        if (size == 2)
            wide16.push_back(static_cast<char16_t>(unit));
        else
            wide.push_back(unit > 0x10FFFF || (unit >= 0xD800 && unit < 0xE000) ? L'\xFFFD'
                                                                                : static_cast<wchar_t>(unit));
    }
    if (size == 2)
        wide = vx::text::utf16_to_wide(wide16);
    if (i < bytes.size())
        wide.push_back(L'\xFFFD');
    return wide;
}

std::string wide_to_units(std::wstring_view text, unsigned page)
{
    auto const size = unit_size(page);
    bool const high_first = high_byte_first(page);
    auto const wide16 = vx::text::wide_to_utf16(text);
    std::string out;
    if (size == 2) {
        for (auto const unit : wide16)
            append_unit(out, unit, size, high_first);
        return out;
    }
    for (auto const unit :
         vx::text::utf16_to_wide(wide16)) // through UTF-16, so that ill-formed text is mended
        append_unit(out, static_cast<char32_t>(unit), size, high_first);
    return out;
}

// ---- pages of ICU

std::optional<std::wstring> page_to_wide(std::string_view bytes, unsigned page)
{
    auto *const icu = page_converter(page);
    if (!icu)
        return std::nullopt;
    ucnv_reset(icu);
    std::u16string wide16(bytes.size() + 16, u'\0');
    char const *source = bytes.data();
    char const *const source_end = source + bytes.size();
    std::size_t used = 0;
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        auto *target = wide16.data() + used;
        ucnv_toUnicode(icu, &target, wide16.data() + wide16.size(), &source, source_end, nullptr, true,
                       &status);
        used = static_cast<std::size_t>(target - wide16.data());
        if (status != U_BUFFER_OVERFLOW_ERROR)
            break;
        wide16.resize(wide16.size() * 2);
    }
    return vx::text::utf16_to_wide({wide16.data(), used});
}

std::optional<std::string> wide_to_page(std::wstring_view text, unsigned page)
{
    auto *const icu = page_converter(page);
    if (!icu)
        return std::nullopt;
    ucnv_reset(icu);
    auto const wide16 = vx::text::wide_to_utf16(text);
    std::string bytes(wide16.size() + 16, '\0');
    char16_t const *source = wide16.data();
    char16_t const *const source_end = source + wide16.size();
    std::size_t used = 0;
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        auto *target = bytes.data() + used;
        ucnv_fromUnicode(icu, &target, bytes.data() + bytes.size(), &source, source_end, nullptr, true,
                         &status);
        used = static_cast<std::size_t>(target - bytes.data());
        if (status != U_BUFFER_OVERFLOW_ERROR)
            break;
        bytes.resize(bytes.size() * 2);
    }
    bytes.resize(used);
    return bytes;
}

std::optional<std::wstring> decode(std::string_view bytes, unsigned page)
{
    if (page == CP_ACP)
        page = vx::text::system_code_page();
    if (page == CP_UTF8)
        return vx::text::utf8_to_wide(bytes);
    if (is_utf16_or_32(page))
        return units_to_wide(bytes, page);
    return page_to_wide(bytes, page);
}

std::optional<std::string> encode(std::wstring_view text, unsigned page)
{
    if (page == CP_ACP)
        page = vx::text::system_code_page();
    if (page == CP_UTF8)
        return vx::text::wide_to_utf8(text);
    if (is_utf16_or_32(page))
        return wide_to_units(text, page);
    return wide_to_page(text, page);
}

// Two pointers are all that loading the library sets, so that text in any code page is understood from the
// start.
[[maybe_unused]] bool const codec_installed = [] {
    vx::text::set_codec({[](std::string_view text, unsigned page) { return vx_bytes_to_wide(text, page); },
                         [](std::wstring_view text, unsigned page) { return vx_wide_to_bytes(text, page); }});
    return true;
}();

// The calling rules that both functions share, once the text is converted.
template <class Text, class Char>
int deliver(std::optional<Text> const &converted, Char *target, int capacity)
{
    if (!converted || converted->size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return 0;
    auto const size = static_cast<int>(converted->size());
    if (capacity == 0)
        return size;
    if (!target || capacity < size)
        return 0;
    std::copy(converted->begin(), converted->end(), target);
    return size;
}
} // namespace

int MultiByteToWideChar(unsigned code_page, unsigned /*flags*/, char const *text, int length, wchar_t *target,
                        int capacity)
{
    if (!text || length == 0 || length < -1 || capacity < 0)
        return 0;
    auto const size = length < 0 ? std::strlen(text) + 1 : static_cast<std::size_t>(length);
    return deliver(decode({text, size}, code_page), target, capacity);
}

int WideCharToMultiByte(unsigned code_page, unsigned /*flags*/, wchar_t const *text, int length, char *target,
                        int capacity, char const *default_char, bool *used_default)
{
    if (used_default)
        *used_default = false;
    if (!text || length == 0 || length < -1 || capacity < 0)
        return 0;
    std::wstring_view const wide(text, length < 0 ? std::char_traits<wchar_t>::length(text) + 1
                                                  : static_cast<std::size_t>(length));
    if (!default_char && !used_default)
        return deliver(encode(wide, code_page), target, capacity);

    // Whether a character has bytes shows in the way back; done by character, as no caller of these is in a
    // hurry.
    std::optional<std::string> bytes(std::in_place);
    for (std::size_t i = 0; i < wide.size(); ++i) {
        auto part = encode(wide.substr(i, 1), code_page);
        if (!part)
            return 0;
        auto const back = decode(*part, code_page);
        bool const lost = !back || *back != wide.substr(i, 1);
        if (lost && used_default)
            *used_default = true;
        *bytes += lost && default_char ? std::string(default_char) : *part;
    }
    return deliver(bytes, target, capacity);
}

bool vx_set_system_code_page(unsigned code_page)
{
    if (is_utf16_or_32(code_page) || !vx_is_code_page(code_page))
        return false;
    vx::text::set_system_code_page(code_page == CP_ACP ? CP_UTF8 : code_page);
    return true;
}

unsigned vx_get_system_code_page()
{
    return vx::text::system_code_page();
}

bool vx_is_code_page(unsigned code_page)
{
    return code_page == CP_ACP || code_page == CP_UTF8 || is_utf16_or_32(code_page) ||
           page_converter(code_page);
}

std::wstring vx_bytes_to_wide(std::string_view text, unsigned code_page)
{
    auto converted = decode(text, code_page);
    return converted ? std::move(*converted) : vx::text::utf8_to_wide(text);
}

std::string vx_wide_to_bytes(std::wstring_view text, unsigned code_page)
{
    auto converted = encode(text, code_page);
    return converted ? std::move(*converted) : vx::text::wide_to_utf8(text);
}

namespace {
bool is_high(char c)
{
    return (static_cast<unsigned char>(c) & 0x80U) != 0;
}

/// Length of the character of UTF-8 that begins there; 0 for bytes that are none.
std::size_t utf8_length(std::string_view text, std::size_t at)
{
    auto const lead = static_cast<unsigned char>(text[at]);
    std::size_t const length = lead >= 0xC2 && lead <= 0xDF   ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    for (std::size_t i = at + 1; i < at + length; ++i)
        if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80)
            return 0;
    return length;
}
} // namespace

unsigned vx_guess_code_page(std::string_view text)
{
    constexpr unsigned c_western = 1252;
    constexpr unsigned c_cyrillic = 1251;
    constexpr unsigned c_dos_cyrillic = 866;
    // Fields of a fixed width may cut characters, so that a few are none in a text that is UTF-8.
    std::size_t characters = 0;
    std::size_t others = 0;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t const length = is_high(text[i]) ? utf8_length(text, i) : 0;
        characters += length > 0 ? 1 : 0;
        others += length == 0 && is_high(text[i]) ? 1 : 0;
        i += length > 0 ? length : 1;
    }
    if (others <= characters)
        return CP_UTF8;
    if (vx_get_system_code_page() != CP_UTF8)
        return vx_get_system_code_page();
    std::size_t high = 0;
    std::size_t beside = 0;
    std::size_t low_half = 0; // where the other Cyrillic page has no letters
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!is_high(text[i]))
            continue;
        ++high;
        bool const is_beside =
            (i > 0 && is_high(text[i - 1])) || (i + 1 < text.size() && is_high(text[i + 1]));
        beside += is_beside ? 1 : 0;
        low_half += static_cast<unsigned char>(text[i]) < 0xB0 ? 1 : 0;
    }
    if (2 * beside <= high)
        return c_western;
    return 2 * low_half > high ? c_dos_cyrillic : c_cyrillic;
}
