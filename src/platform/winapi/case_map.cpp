#include "platform/winapi/case_map.h"

#include <unicode/uchar.h>

std::wstring vx_lower_w(std::wstring_view text)
{
    std::wstring out(text);
    for (wchar_t &c : out)
        c = static_cast<wchar_t>(u_tolower(static_cast<UChar32>(c)));
    return out;
}
