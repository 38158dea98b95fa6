#include "platform/winapi/detail/char_name.h"

#include "platform/base/ascii_case.h"

#include <array>
#include <unicode/uchar.h>

std::string vx_char_name(char32_t character)
{
    std::array<char, 128> name;
    UErrorCode status = U_ZERO_ERROR;
    auto const length = u_charName(static_cast<UChar32>(character), U_EXTENDED_CHAR_NAME, name.data(),
                                   static_cast<int>(name.size()), &status);
    if (U_FAILURE(status) || length <= 0)
        return {};
    // A stand-in comes as "<private use-E000>".
    std::string text(name.data(), static_cast<std::size_t>(length));
    if (text.starts_with('<') && text.ends_with('>'))
        return vx::text::ascii_upper(text.substr(1, text.size() - 2));
    return text;
}
