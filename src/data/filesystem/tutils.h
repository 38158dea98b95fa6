#pragma once

#include "platform/base/export.h"

#include <string>

/// Text conversions, on narrow or wide text as name and argument say.
class VX_API Tutils
{
public:
    /// Between the DOS code page 866 and the system code page.
    [[nodiscard]] static std::string str_dos2win(std::string const &s);
    [[nodiscard]] static std::string str_win2dos(std::string const &s);

    /// Without leading and trailing space, tab, newline, return, vertical tab and form feed.
    [[nodiscard]] static std::string str_trim(std::string const &s);
    [[nodiscard]] static std::wstring str_trim(std::wstring const &s);
    /// Compares the trimmed texts without regard to case: negative, 0 or positive.
    [[nodiscard]] static int trim_stricmp(std::string const &a, std::string const &b);
    [[nodiscard]] static int trim_stricmp(std::wstring const &a, std::wstring const &b);

    /// The first "," counts as "."; see `vx::strutil::to_numeric_safe` for `ok`, which may be null.
    [[nodiscard]] static double str2dbl(std::string const &s, bool *ok = nullptr);
    [[nodiscard]] static double str2dbl(std::wstring const &s, bool *ok = nullptr);
    /// 15 significant digits, "." as decimal separator.
    [[nodiscard]] static std::string dbl2str(double d);
    [[nodiscard]] static std::wstring dbl2wstr(double d);
    [[nodiscard]] static std::string int2str(int i);
    [[nodiscard]] static std::wstring int2wstr(int i);

    /// Four upper-case hexadecimal digits for each UTF-16 unit of the text.
    [[nodiscard]] static std::string wide_char_to_hex(std::wstring const &w);
    /// The inverse; the text is trimmed, and what is no group of four digits ends it.
    [[nodiscard]] static std::wstring hex_to_wide_char(std::string const &s);

    /// Transliteration of Russian letters of Windows code page 1251 to ASCII; all other bytes stay.
    [[nodiscard]] static char char_rus2eng_simple(char c);
    [[nodiscard]] static std::string str_rus2eng_simple(std::string const &s);
};
