#pragma once

#include "platform/storage/detail/xml_element.h"
#include "platform/storage/vx_xml_data.h"

#include <optional>
#include <string>

struct Ivx_xml_data
{
    std::wstring error;
};

/// What the functions of the storage share.
namespace vx::storage {
/// Remembers why a call failed; the empty text when it did not. Gives whether it went well.
bool done(Ivx_xml_data *xml, std::wstring error);
/// The same, telling the user.
bool saved(Ivx_xml_data *xml, std::wstring const &error);

/// The file's bytes; nothing, with the reason in `error`.
[[nodiscard]] std::optional<std::string> file_bytes(wchar_t const *file, std::wstring &error);
/// One sentence about a file that was read; empty for no fault.
[[nodiscard]] std::wstring fault_text(xml_fault const &fault, wchar_t const *file);
/// Puts the bytes in place; empty bytes stand for what is too large. The reason (see vx_fault.h), or the
/// empty text.
[[nodiscard]] std::wstring save_bytes(wchar_t const *file, std::string const &bytes);
} // namespace vx::storage
