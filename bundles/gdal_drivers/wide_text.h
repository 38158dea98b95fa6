#pragma once

#include <string>
#include <string_view>

namespace vx::gdal {
/// Brings one UTF-8 text after the other into the wide form, in the same room.
class wide_text
{
public:
    /// Zero-terminated; valid until the next call. A text with a zero in it ends there for its reader.
    [[nodiscard]] wchar_t const *of(std::string_view utf8);

private:
    std::wstring f_text;
};
} // namespace vx::gdal
