#include "platform/base/text_codec.h"

#include "platform/base/text_append.h"

namespace vx::text {
namespace {
constexpr wchar_t c_replacement = 0xFFFD;

codec &installed()
{
    static codec c{nullptr, nullptr};
    return c;
}

unsigned g_system_code_page = c_cp_utf8;

unsigned resolved(unsigned code_page)
{
    return code_page == c_cp_system ? g_system_code_page : code_page;
}

bool is_continuation(unsigned char c)
{
    return (c & 0xC0) == 0x80;
}

void append_utf8(std::string &out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | c >> 12);
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | c >> 18);
        out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}
} // namespace

void set_codec(codec const &c)
{
    installed() = c;
}

unsigned system_code_page()
{
    return g_system_code_page;
}

void set_system_code_page(unsigned code_page)
{
    g_system_code_page = code_page == c_cp_system ? c_cp_utf8 : code_page;
}

namespace {
/// What becomes of surrogates that have no partner.
enum class lone_surrogate
{
    replaced,
    kept
};

void append_from_utf8(std::wstring &out, std::string_view text,
                      lone_surrogate lone = lone_surrogate::replaced)
{
    out.reserve(out.size() + text.size());
    auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    for (std::size_t i = 0; i < text.size();) {
        unsigned char const lead = byte(i);
        if (lead < 0x80) {
            out += static_cast<wchar_t>(lead);
            ++i;
            continue;
        }
        // The allowed range of the second byte keeps out over-long forms, surrogates and values above
        // U+10FFFF.
        int more = 0;
        unsigned char low = 0x80;
        unsigned char high = 0xBF;
        if (lead >= 0xC2 && lead <= 0xDF) {
            more = 1;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            more = 2;
            low = lead == 0xE0 ? 0xA0 : 0x80;
            high = lead == 0xED && lone == lone_surrogate::replaced ? 0x9F : 0xBF;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            more = 3;
            low = lead == 0xF0 ? 0x90 : 0x80;
            high = lead == 0xF4 ? 0x8F : 0xBF;
        }
        char32_t c = more == 1 ? lead & 0x1F : more == 2 ? lead & 0x0F : lead & 0x07;
        std::size_t end = i + 1;
        for (int k = 0; k < more && end < text.size(); ++k, ++end) {
            unsigned char const next = byte(end);
            if (k == 0 ? next < low || next > high : !is_continuation(next))
                break;
            c = c << 6 | (next & 0x3F);
        }
        bool const whole = more > 0 && end == i + 1 + static_cast<std::size_t>(more);
        out += whole ? static_cast<wchar_t>(c) : c_replacement;
        i = end;
    }
}

void append_to_utf8(std::string &out, std::wstring_view text, lone_surrogate lone = lone_surrogate::replaced)
{
    out.reserve(out.size() + text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto c = static_cast<char32_t>(text[i]);
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size()) {
            auto const low = static_cast<char32_t>(text[i + 1]);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                ++i;
            }
        }
        if (c > 0x10FFFF || (lone == lone_surrogate::replaced && c >= 0xD800 && c <= 0xDFFF))
            c = c_replacement;
        append_utf8(out, c);
    }
}
} // namespace

std::wstring utf8_to_wide(std::string_view text)
{
    std::wstring out;
    append_from_utf8(out, text);
    return out;
}

std::string wide_to_utf8(std::wstring_view text)
{
    std::string out;
    append_to_utf8(out, text);
    return out;
}

std::string wide_to_whole_utf8(std::wstring_view text)
{
    std::string out;
    append_to_utf8(out, text, lone_surrogate::kept);
    return out;
}

std::wstring whole_utf8_to_wide(std::string_view text)
{
    std::wstring out;
    append_from_utf8(out, text, lone_surrogate::kept);
    return out;
}

void append_wide(std::wstring &target, std::string_view text, unsigned code_page)
{
    unsigned const page = resolved(code_page);
    if (page == c_cp_utf8 || !installed().to_wide)
        append_from_utf8(target, text);
    else
        target += installed().to_wide(text, page);
}

void append_bytes(std::string &target, std::wstring_view text, unsigned code_page)
{
    unsigned const page = resolved(code_page);
    if (page == c_cp_utf8 || !installed().to_bytes)
        append_to_utf8(target, text);
    else
        target += installed().to_bytes(text, page);
}

std::wstring to_wide(std::string_view text, unsigned code_page)
{
    std::wstring out;
    append_wide(out, text, code_page);
    return out;
}

std::string to_bytes(std::wstring_view text, unsigned code_page)
{
    std::string out;
    append_bytes(out, text, code_page);
    return out;
}
} // namespace vx::text
