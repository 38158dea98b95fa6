#include "data/filesystem/tutils.h"

#include "data/filesystem/strutil.h"

#include "platform/base/shown_number.h"
#include "platform/base/text_codec.h"
#include "platform/winapi/codepage.h"
#include "platform/winapi/collation.h"

namespace {
constexpr unsigned c_dos_page = 866;
constexpr char const *c_blanks = " \t\n\r\v\f";
constexpr wchar_t const *c_blanks_w = L" \t\n\r\v\f";

// The letters of the Russian alphabet from 0xC0 (А) on, in the order of Windows code page 1251.
constexpr char c_upper_latin[] = "ABVGDEGZIIKLMNOPRSTUFHCCSS_Y_EUA";
constexpr char c_lower_latin[] = "abvgdegziiklmnoprstufhccss_y_eua";

int hex_digit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

void append_hex(std::string &out, unsigned unit)
{
    constexpr char digits[] = "0123456789ABCDEF";
    for (int shift = 12; shift >= 0; shift -= 4)
        out += digits[unit >> shift & 15];
}
} // namespace

std::string Tutils::str_dos2win(std::string const &s)
{
    return vx::text::to_bytes(vx_bytes_to_wide(s, c_dos_page));
}

std::string Tutils::str_win2dos(std::string const &s)
{
    return vx_wide_to_bytes(vx::text::to_wide(s), c_dos_page);
}

std::string Tutils::str_trim(std::string const &s)
{
    return vx::strutil::trim(s, c_blanks);
}

std::wstring Tutils::str_trim(std::wstring const &s)
{
    return vx::strutil::trim(s, c_blanks_w);
}

int Tutils::trim_stricmp(std::string const &a, std::string const &b)
{
    return lstrcmpiA(str_trim(a).c_str(), str_trim(b).c_str());
}

int Tutils::trim_stricmp(std::wstring const &a, std::wstring const &b)
{
    return lstrcmpiW(str_trim(a).c_str(), str_trim(b).c_str());
}

double Tutils::str2dbl(std::string const &s, bool *ok)
{
    return vx::strutil::to_numeric_safe(
        [](char const *text, char **end) { return vx::strutil::to_double(text, end); }, s.c_str(), ok);
}

double Tutils::str2dbl(std::wstring const &s, bool *ok)
{
    return vx::strutil::to_numeric_safe(
        [](wchar_t const *text, wchar_t **end) { return vx::strutil::to_double(text, end); }, s.c_str(), ok);
}

std::string Tutils::dbl2str(double d)
{
    vx::text::number_buffer buffer;
    return std::string(vx::text::shown_number(d, buffer));
}

std::wstring Tutils::dbl2wstr(double d)
{
    std::string const text = dbl2str(d);
    return {text.begin(), text.end()};
}

std::string Tutils::int2str(int i)
{
    return std::to_string(i);
}

std::wstring Tutils::int2wstr(int i)
{
    return std::to_wstring(i);
}

std::string Tutils::wide_char_to_hex(std::wstring const &w)
{
    std::string out;
    for (wchar_t const c : w) {
        auto const code = static_cast<unsigned>(c);
        if (code > 0xFFFF) {
            append_hex(out, 0xD800 + ((code - 0x10000) >> 10));
            append_hex(out, 0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            append_hex(out, code);
        }
    }
    return out;
}

std::wstring Tutils::hex_to_wide_char(std::string const &s)
{
    std::string const text = str_trim(s);
    std::wstring out;
    for (std::size_t at = 0; at + 4 <= text.size(); at += 4) {
        unsigned unit = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            int const digit = hex_digit(text[at + i]);
            if (digit < 0)
                return out;
            unit = unit << 4 | static_cast<unsigned>(digit);
        }
        bool const joins = unit >= 0xDC00 && unit <= 0xDFFF && !out.empty() &&
                           static_cast<unsigned>(out.back()) >= 0xD800 &&
                           static_cast<unsigned>(out.back()) <= 0xDBFF;
        if (joins)
            out.back() = static_cast<wchar_t>(0x10000 + ((static_cast<unsigned>(out.back()) - 0xD800) << 10) +
                                              (unit - 0xDC00));
        else
            out += static_cast<wchar_t>(unit);
    }
    return out;
}

char Tutils::char_rus2eng_simple(char c)
{
    auto const byte = static_cast<unsigned char>(c);
    if (byte == 0xA8)
        return 'E';
    if (byte == 0xB8)
        return 'e';
    if (byte >= 0xE0)
        return c_lower_latin[byte - 0xE0];
    if (byte >= 0xC0)
        return c_upper_latin[byte - 0xC0];
    return c;
}

std::string Tutils::str_rus2eng_simple(std::string const &s)
{
    std::string out = s;
    for (char &c : out)
        c = char_rus2eng_simple(c);
    return out;
}
