#include "wide_text.h"

#include "platform/base/text_codec.h"

namespace vx::gdal {
wchar_t const *wide_text::of(std::string_view utf8)
{
    f_text.resize(utf8.size());
    unsigned all_bits = 0;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        auto const byte = static_cast<unsigned char>(utf8[i]);
        all_bits |= byte;
        f_text[i] = static_cast<wchar_t>(byte);
    }
    if (all_bits & 0x80)
        f_text = text::utf8_to_wide(utf8);
    return f_text.c_str();
}
} // namespace vx::gdal
